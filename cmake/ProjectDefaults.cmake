# What holds for every target of ours: standard, warnings, sanitizers, output folders.

# Release is the default: the plugin's metadata records whether it is a debug build, and hosts look
# at that.
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)

# The build folder is laid out like the installation, so that what runs here runs there.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(ADVTRIGGER_PLUGIN_DIR ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/plugins)

# Programs find our library from where they lie, built and installed. A run path that the
# installation replaces is no alternative: CMake leaves an empty entry at its end until then, and
# that one means the working directory.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib")
# Libraries from elsewhere are found where they were linked.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)

# Precompiled headers are a matter of trust for ccache: the compiler checks itself whether they fit.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

if(ADVTRIGGER_SANITIZER)
    add_compile_options(-fsanitize=${ADVTRIGGER_SANITIZER} -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ADVTRIGGER_SANITIZER})
endif()

# All programs have threads, those of the SDK; precompiled headers are for targets with like flags.
add_compile_options(-pthread)
add_link_options(-pthread)

# Warnings as errors and the project root as include folder, for a target of our own code. Generated
# code (moc, uic) is compiled with the same warnings.
function(adv_target_defaults target)
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
        -Werror)
    target_compile_definitions(${target} PRIVATE QT_DEPRECATED_WARNINGS)
endfunction()

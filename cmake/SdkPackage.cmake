# What others need to build against libZalCPP: find_package(ZalCPP) gives them ZalCPP::ZalCPP. The
# library itself comes with the programs that need it.
include(CMakePackageConfigHelpers)
set(package_folder lib/cmake/ZalCPP)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/sdk/include/ZalCPP
    DESTINATION include COMPONENT dev FILES_MATCHING PATTERN *.h)
install(EXPORT ZalCPPTargets NAMESPACE ZalCPP:: DESTINATION ${package_folder} COMPONENT dev)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZalCPPConfig.cmake.in ZalCPPConfig.cmake
    INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(ZalCPPConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/ZalCPPConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ZalCPPConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT dev)

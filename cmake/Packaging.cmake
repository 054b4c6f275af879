# `cpack` makes a .tar.gz and a .deb from the install rules, and one of each with what others need to
# build against the SDK.
set(CPACK_PACKAGE_NAME advanced-trigger-io)
set(CPACK_PACKAGE_VENDOR "Advanced Trigger IO developers")
set(CPACK_PACKAGE_CONTACT "Advanced Trigger IO developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The texts of Qt itself in other languages.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qttranslations5-l10n)

# What names no component is what runs; it keeps the plain name.
set(CPACK_COMPONENTS_ALL Unspecified dev)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(package_file ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME})
set(CPACK_ARCHIVE_UNSPECIFIED_FILE_NAME ${package_file})
set(CPACK_ARCHIVE_DEV_FILE_NAME ${package_file}-dev)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME ${CPACK_PACKAGE_NAME})
set(CPACK_DEBIAN_UNSPECIFIED_FILE_NAME ${package_file}.deb)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME ${CPACK_PACKAGE_NAME}-dev)
set(CPACK_DEBIAN_DEV_FILE_NAME ${package_file}-dev.deb)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${CPACK_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Headers and CMake package of the camera SDK")
include(CPack)

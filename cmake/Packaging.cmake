# `cpack` makes a .tar.gz and a .deb from the install rules.
set(CPACK_PACKAGE_NAME advanced-trigger-io)
set(CPACK_PACKAGE_VENDOR "Advanced Trigger IO developers")
set(CPACK_PACKAGE_CONTACT "Advanced Trigger IO developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The texts of Qt itself in other languages.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qttranslations5-l10n)
include(CPack)

# cpack, in the build folder, makes quillbank-translator_<version>_<architecture>.deb.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillbank-translator)
set(CPACK_PACKAGE_VENDOR "ORB AG")
set(CPACK_PACKAGE_CONTACT "ORB AG <quillbank@example.com>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbench for the translators of a documentation repository")
set(CPACK_PACKAGE_DESCRIPTION
    "A documentation repository hands out packages, each one file and a tree of
documents. Quillbank Translator shows the documents of a package with their
states, sends one to the editor that suits it, takes files translated
elsewhere, and marks what is done. Every change is in the package file at once.
.
The program speaks English, German and Japanese.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://www.example.com/")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries come by themselves.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme, shared-mime-info")
# What shows the help, and what edits office documents.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xchm | kchmviewer, libreoffice-writer, libreoffice-impress, libreoffice-draw")
include(CPack)

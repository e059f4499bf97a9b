# The packages that cpack makes; see docs/packaging.md.

set(VESPERINE_CONTACT "The Vesperine developers <vesperine@localhost.localdomain>" CACHE STRING
    "Who answers for the packages: NAME <ADDRESS>")

set(CPACK_PACKAGE_NAME vesperine)
set(CPACK_PACKAGE_VENDOR "The Vesperine developers")
set(CPACK_PACKAGE_CONTACT "${VESPERINE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor of surfaces and normal maps for 2D sprites")
set(CPACK_PACKAGE_DESCRIPTION
"Vesperine gives flat 2D sprites a painted surface and writes the normal
maps with which a game engine lights them. The editor shows sprites under
a light that you move; vesperine-cli does the same work in scripts and
build systems, without a display.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY Vesperine)
set(CPACK_PACKAGE_EXECUTABLES vesperine Vesperine)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
# An ordinary strip keeps the dynamic symbols, which name the functions of a crash log.
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    set(CPACK_GENERATOR NSIS)
    include(windows/Installer.cmake)
elseif(APPLE)
    set(CPACK_GENERATOR DragNDrop)
else()
    set(CPACK_GENERATOR TGZ)
    find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
    find_program(RPMBUILD rpmbuild)
    mark_as_advanced(DPKG_SHLIBDEPS RPMBUILD)
    if(DPKG_SHLIBDEPS)
        list(APPEND CPACK_GENERATOR DEB)
    endif()
    if(RPMBUILD)
        list(APPEND CPACK_GENERATOR RPM)
    endif()
endif()

# Caches of types, icons and menus are brought up to date by triggers of the packages that own them.
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qtwayland5)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_PACKAGE_GROUP Applications/Multimedia)
# Folders that belong to others.
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/share/applications /usr/share/icons /usr/share/metainfo /usr/share/mime
    /usr/share/mime/packages /usr/share/thumbnailers /usr/share/bash-completion
    /usr/share/bash-completion/completions /usr/share/zsh /usr/share/zsh/site-functions
    /usr/share/man /usr/share/man/man1 /usr/share/zsh/vendor-completions /usr/share/fish /usr/share/fish/vendor_completions.d)
foreach(size 16x16 24x24 32x32 48x48 64x64 128x128 256x256 512x512 scalable)
    list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION /usr/share/icons/hicolor/${size}
        /usr/share/icons/hicolor/${size}/apps /usr/share/icons/hicolor/${size}/mimetypes)
endforeach()
list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION /usr/share/icons/hicolor)

include(CPack)

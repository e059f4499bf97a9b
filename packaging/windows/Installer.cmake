# The installer for Windows, by CPack and NSIS. Not run yet: there is no Windows machine where Vesperine
# is developed. "cpack -G NSIS" in the build folder, with windeployqt in PATH.

# The toolkit's libraries and plugins come along; those of OpenCV and zlib too.
find_program(WINDEPLOYQT windeployqt)
if(NOT WINDEPLOYQT)
    message(STATUS "Without windeployqt the installer would lack the toolkit")
    return()
endif()
install(CODE "execute_process(COMMAND \"${WINDEPLOYQT}\" --release --no-translations
    \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/vesperine.exe\" COMMAND_ERROR_IS_FATAL ANY)")
install(CODE "file(GET_RUNTIME_DEPENDENCIES
        EXECUTABLES \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/vesperine.exe\"
        RESOLVED_DEPENDENCIES_VAR found UNRESOLVED_DEPENDENCIES_VAR missing
        PRE_EXCLUDE_REGEXES [[^api-ms-]] [[^ext-ms-]] [[^[Qq]t5]]
        POST_EXCLUDE_REGEXES [[[Ss]ystem32]])
    file(INSTALL \${found} DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")")

set(CPACK_NSIS_DISPLAY_NAME Vesperine)
set(CPACK_NSIS_MUI_ICON ${CMAKE_CURRENT_LIST_DIR}/../icons/VEP.ico)
set(CPACK_NSIS_INSTALLED_ICON_NAME bin/icons/VEP.ico)
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
set(CPACK_NSIS_MODIFY_PATH ON)
# The editor tells the desktop of its files at each start, for its user; the installer takes it back.
set(CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS [[
    DeleteRegKey HKCU 'Software\\Classes\\Vesperine.Project'
    DeleteRegValue HKCU 'Software\\Classes\\.vep\\OpenWithProgids' 'Vesperine.Project'
    DeleteRegValue HKCU 'Software\\Classes\\.vex\\OpenWithProgids' 'Vesperine.Project'
]])

# The bundle for macOS. Not run yet: there is no Mac where Vesperine is developed. "cpack -G DragNDrop" in
# the build folder, with macdeployqt in PATH.

set(icons ${PROJECT_SOURCE_DIR}/packaging/icons/Vesperine.icns
    ${PROJECT_SOURCE_DIR}/packaging/icons/VEP.icns)
target_sources(vesperine PRIVATE ${icons})
set_source_files_properties(${icons} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_target_properties(vesperine PROPERTIES MACOSX_BUNDLE ON OUTPUT_NAME Vesperine
    MACOSX_BUNDLE_INFO_PLIST ${PROJECT_SOURCE_DIR}/packaging/macos/Info.plist.in)
install(TARGETS vesperine BUNDLE DESTINATION .)
find_program(MACDEPLOYQT macdeployqt)
if(MACDEPLOYQT)
    install(CODE "execute_process(COMMAND \"${MACDEPLOYQT}\"
        \"\${CMAKE_INSTALL_PREFIX}/Vesperine.app\" COMMAND_ERROR_IS_FATAL ANY)")
endif()

# One static library for each folder below src/, linked by the table of docs/architecture.md.

# vesperine_folder(<folder> [LINKS <target>...])
#
# Makes the library vesperine_<folder>, slashes as underscores, of all sources in that very folder.
function(vesperine_folder folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS")
    string(REPLACE "/" "_" name ${folder})
    file(GLOB sources CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/src/${folder}/*.h)
    add_library(vesperine_${name} STATIC ${sources})
    target_link_libraries(vesperine_${name} PUBLIC vesperine_settings ${arg_LINKS})
endfunction()

# orvix_tool(<name> <source>... [LINK <target>...] [FOLDER <folder>])
#
# A module <name>.orvix that shows nothing but makeButtonPlugin, which one of the sources defines. It
# holds what it needs of the toolkit; LINK names other targets instead. FOLDER is where it is put,
# beside the build's other files by default.
function(orvix_tool name)
    cmake_parse_arguments(PARSE_ARGV 1 TOOL "" "FOLDER" "LINK")
    if(NOT TOOL_LINK)
        set(TOOL_LINK OrvixToolkit::orvix_toolkit)
    endif()
    # Beside this file in an installation, with the contract in a checkout.
    set(exports "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/makeButtonPlugin.map")
    if(NOT EXISTS "${exports}")
        set(exports "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../contract/makeButtonPlugin.map")
    endif()

    add_library(${name} MODULE ${TOOL_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE ${TOOL_LINK})
    target_link_options(${name} PRIVATE "LINKER:--version-script=${exports}")
    set_target_properties(${name} PROPERTIES
        PREFIX ""
        SUFFIX ".orvix"
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LINK_DEPENDS "${exports}")
    if(TOOL_FOLDER)
        set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY "${TOOL_FOLDER}")
    endif()
endfunction()

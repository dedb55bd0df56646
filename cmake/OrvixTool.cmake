# A module <name>.orvix that shows nothing but makeButtonPlugin, which one of the sources defines.
function(orvix_tool name)
    add_library(${name} MODULE ${ARGN})
    target_link_libraries(${name} PRIVATE OrvixToolkit::orvix_toolkit)
    target_link_options(${name} PRIVATE "LINKER:--version-script=${OrvixToolkit_EXPORTS}")
    set_target_properties(${name} PROPERTIES
        PREFIX ""
        SUFFIX ".orvix"
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LINK_DEPENDS "${OrvixToolkit_EXPORTS}")
endfunction()

# orvix_layer(<name> FOLDER <folder> SOURCES <file>... [LINK <target>...])
#
# One folder of the library as a target. Its include path is a generated root that holds nothing but
# the folder, and those of the targets it links: an include against the direction of the layers does
# not compile.
function(orvix_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 LAYER "" "FOLDER" "SOURCES;LINK")
    set(root "${PROJECT_BINARY_DIR}/include-roots/${name}")
    cmake_path(GET LAYER_FOLDER PARENT_PATH parent)
    file(MAKE_DIRECTORY "${root}/${parent}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${LAYER_FOLDER}" "${root}/${LAYER_FOLDER}" SYMBOLIC)

    add_library(${name} OBJECT ${LAYER_SOURCES})
    target_include_directories(${name} PUBLIC "${root}")
    target_link_libraries(${name} PUBLIC ${LAYER_LINK})
endfunction()

# orvix_include_root(<target> <PUBLIC|PRIVATE> <folder>)
#
# The target sees the headers of this folder, under their folder name, and none beside it: the include
# path is a generated root that holds nothing else.
function(orvix_include_root target visibility folder)
    set(root "${PROJECT_BINARY_DIR}/include-roots/${target}")
    cmake_path(GET folder PARENT_PATH parent)
    file(MAKE_DIRECTORY "${root}/${parent}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${folder}" "${root}/${folder}" SYMBOLIC)
    target_include_directories(${target} ${visibility} "${root}")
endfunction()

# orvix_layer(<name> FOLDER <folder> SOURCES <file>... [LINK <target>...])
#
# One folder of the library as a target. Its include path is its own root, and those of the targets it
# links: an include against the direction of the layers does not compile.
function(orvix_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 LAYER "" "FOLDER" "SOURCES;LINK")
    add_library(${name} OBJECT ${LAYER_SOURCES})
    orvix_include_root(${name} PUBLIC ${LAYER_FOLDER})
    target_link_libraries(${name} PUBLIC ${LAYER_LINK})
endfunction()

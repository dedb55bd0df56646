# ORVIX_LAYERS, the folders of layers.txt from left to right, and for each layer ORVIX_SEES_<layer>,
# those that it sees directly.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/layers.txt)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/layers.txt layer_lines REGEX "^[a-z]")
set(ORVIX_LAYERS "")
foreach(line IN LISTS layer_lines)
    separate_arguments(words UNIX_COMMAND "${line}")
    list(POP_FRONT words layer)
    list(APPEND ORVIX_LAYERS ${layer})
    set(ORVIX_SEES_${layer} ${words})
endforeach()
list(TRANSFORM ORVIX_LAYERS PREPEND orvix_ OUTPUT_VARIABLE ORVIX_LAYER_TARGETS)

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

# orvix_layer(<layer> SOURCES <file>... [LINK <target>...])
#
# One folder of the library as the target orvix_<layer>. Its include path is its own root, and those of
# the layers that it sees: an include against the direction of the layers does not compile. LINK names
# libraries from outside. From the bridge on, layers take the head of pages.
function(orvix_layer layer)
    cmake_parse_arguments(PARSE_ARGV 1 LAYER "" "" "SOURCES;LINK")
    if(NOT layer IN_LIST ORVIX_LAYERS)
        message(FATAL_ERROR "${layer} is missing in cmake/layers.txt")
    endif()
    add_library(orvix_${layer} OBJECT ${LAYER_SOURCES})
    orvix_include_root(orvix_${layer} PUBLIC ${layer})
    list(TRANSFORM ORVIX_SEES_${layer} PREPEND orvix_ OUTPUT_VARIABLE left_of_it)
    target_link_libraries(orvix_${layer} PUBLIC ${left_of_it} ${LAYER_LINK})
    if(layer STREQUAL "bridge" OR TARGET orvix_bridge)
        orvix_page_head(orvix_${layer})
    else()
        orvix_plain_head(orvix_${layer})
    endif()
endfunction()

# orvix_raw_string(<target> <file>)
#
# The text of the file as a string literal, which C++ of this target includes under the file's name
# and ".h". It stands in the code and needs no resource, which would go with an unloaded module. The
# file is a path below the repository; a change of it makes the literal anew.
function(orvix_raw_string target file)
    set(root "${PROJECT_BINARY_DIR}/raw-strings/${target}")
    file(READ "${PROJECT_SOURCE_DIR}/${file}" RAW_STRING)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${file}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/RawString.h.in" "${root}/${file}.h" @ONLY)
    target_include_directories(${target} PRIVATE "${root}")
endfunction()

# The example tools, built along with the toolkit as the workbench's own. Their projects look for the
# installed package; here they find this build under the same names.
add_library(OrvixToolkit::orvix_standin ALIAS orvix_standin)
file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/orvixtoolkit-config.cmake "")
write_basic_package_version_file(
    ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/orvixtoolkit-config-version.cmake
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)

set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/plugins)
add_subdirectory(examples/region_tool)
add_subdirectory(examples/note_tool)
add_dependencies(orvix-workbench t_region t_note)
unset(CMAKE_LIBRARY_OUTPUT_DIRECTORY)

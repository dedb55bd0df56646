# What other projects build tools with: headers under their folder names, the toolkit and the
# stand-in host as archives, and the package that finds both. The archives hold the objects of all
# layers, and the package names them by hand: the layers themselves stay in this build.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(ORVIX_INSTALL_LIBDIR ${CMAKE_INSTALL_LIBDIR})
set(ORVIX_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/orvix)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/OrvixToolkit)
set(ORVIX_INSTALL_SANITIZERS "")
if(ORVIX_SANITIZE)
    set(ORVIX_INSTALL_SANITIZERS -fsanitize=address,undefined)
endif()

foreach(folder IN LISTS ORVIX_LAYERS ITEMS standin)
    install(DIRECTORY ${folder} DESTINATION ${ORVIX_INSTALL_INCLUDEDIR}
            FILES_MATCHING PATTERN "*.h")
endforeach()
install(TARGETS orvix_toolkit orvix_standin ARCHIVE DESTINATION ${ORVIX_INSTALL_LIBDIR})

configure_package_config_file(
    cmake/OrvixToolkitConfig.cmake.in package/OrvixToolkitConfig.cmake.gen
    INSTALL_DESTINATION ${package_folder}
    PATH_VARS ORVIX_INSTALL_LIBDIR ORVIX_INSTALL_INCLUDEDIR)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/package/OrvixToolkitConfig.cmake
     INPUT ${PROJECT_BINARY_DIR}/package/OrvixToolkitConfig.cmake.gen)
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/package/OrvixToolkitConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
        ${PROJECT_BINARY_DIR}/package/OrvixToolkitConfig.cmake
        ${PROJECT_BINARY_DIR}/package/OrvixToolkitConfigVersion.cmake
        cmake/OrvixTool.cmake
        contract/makeButtonPlugin.map
        DESTINATION ${package_folder})

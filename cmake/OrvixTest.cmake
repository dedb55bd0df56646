include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold ORVIX_HAS_GOLD)

# orvix_test(<name> SOURCES <file>... [LINK <target>...] [PLAIN])
#
# A Qt Test executable, run offscreen. It links the stand-in host, and with it the whole toolkit;
# PLAIN links nothing of this repository but the headers of the contract.
function(orvix_test name)
    cmake_parse_arguments(PARSE_ARGV 1 TEST "PLAIN" "" "SOURCES;LINK")
    add_executable(${name} ${TEST_SOURCES})
    orvix_source_moc(${name} ${TEST_SOURCES})
    if(TEST_PLAIN)
        target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
        target_link_libraries(${name} PRIVATE Qt5::Test Qt5::Widgets ${TEST_LINK})
    else()
        target_link_libraries(${name} PRIVATE orvix_test_support ${TEST_LINK})
        orvix_test_head(${name} REUSE_FROM orvix_test_support)
    endif()
    if(ORVIX_HAS_GOLD) # in a third of the time
        target_link_options(${name} PRIVATE -fuse-ld=gold)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    orvix_test_properties(${name})
endfunction()

# orvix_test_library(<name> SOURCES <file>... [LINK <target>...])
#
# What several tests share, compiled as they are. An include path of its own, the folder gives it.
function(orvix_test_library name)
    cmake_parse_arguments(PARSE_ARGV 1 LIBRARY "" "" "SOURCES;LINK")
    add_library(${name} STATIC ${LIBRARY_SOURCES})
    target_link_libraries(${name} PUBLIC orvix_test_support ${LIBRARY_LINK})
    orvix_test_head(${name} REUSE_FROM orvix_test_support)
endfunction()

# orvix_source_moc(<name> <file>...)
#
# What a source includes at its end, "test_x.moc", comes from one call for each file. CMake's own way
# looks through the target first and compiles one more file for each executable.
# It is left to targets whose headers have classes with Q_OBJECT.
function(orvix_source_moc name)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}_moc")
    file(MAKE_DIRECTORY "${folder}")
    foreach(source IN LISTS ARGN)
        get_filename_component(extension "${source}" LAST_EXT)
        if(NOT extension STREQUAL ".cpp")
            continue()
        endif()
        get_filename_component(stem "${source}" NAME_WLE)
        get_filename_component(path "${source}" ABSOLUTE)
        add_custom_command(
            OUTPUT "${folder}/${stem}.moc"
            # A file without such a class gets an empty one, or it would be asked for again.
            COMMAND Qt5::moc --no-notes -o "${folder}/${stem}.moc" "${path}"
            COMMAND touch "${folder}/${stem}.moc"
            DEPENDS "${path}"
            VERBATIM)
        target_sources(${name} PRIVATE "${folder}/${stem}.moc")
    endforeach()
    target_include_directories(${name} PRIVATE "${folder}")
endfunction()

# orvix_long_tests(<name>...)
#
# Tests of half a minute and more. They begin first, so that none of them runs alone at the end, and
# may take as long as they do on a busy machine.
function(orvix_long_tests)
    set_tests_properties(${ARGN} PROPERTIES COST 100 TIMEOUT 1200)
endfunction()

# orvix_test_head(<target> <PRIVATE <header>... | REUSE_FROM <target>>)
#
# The head of the tests holds the stand-in host, too. Tests are not optimised, what they test is: that
# was most of the work that the head left.
function(orvix_test_head target)
    target_compile_options(${target} PRIVATE -O0)
    orvix_head(${target} ${ARGN})
endfunction()

# Environment and limits that every test shares. Further properties may follow the name.
function(orvix_test_properties name)
    set(environment QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC)
    set(patience 300) # seconds
    if(ORVIX_SANITIZE)
        set(patience 900)
        set(suppressions "${PROJECT_SOURCE_DIR}/cmake/leaks.supp")
        list(APPEND environment
             "ASAN_OPTIONS=detect_leaks=1:new_delete_type_mismatch=1"
             "LSAN_OPTIONS=suppressions=${suppressions}:print_suppressions=0"
             "UBSAN_OPTIONS=print_stacktrace=1")
    endif()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${patience}
                         ${ARGN})
endfunction()

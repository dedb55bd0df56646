# What most files include is compiled once and taken from there: Qt's part of a file is the greater
# half of the work of compiling it. clang keeps the templates of such a header, too; gcc makes them
# anew for each file, which takes a second. The build of ./dev lint takes no such header
# (CMakePresets.json) and shows an include that is missing in a file.

# orvix_head(<target> <PRIVATE <header>... | REUSE_FROM <target>>)
function(orvix_head target)
    target_precompile_headers(${target} ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Tells ccache which header it was.
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # The same header made again is the same file, and so are all that ccache keeps of its users.
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()

# orvix_plain_head(<target>)
#
# The header for code without pages: Qt's widgets. The contract owns it.
function(orvix_plain_head target)
    if(target STREQUAL "orvix_contract")
        orvix_head(${target} PRIVATE <QtWidgets> <functional> <memory> <optional>)
    else()
        orvix_head(${target} REUSE_FROM orvix_contract)
    endif()
endfunction()

# orvix_page_head(<target>)
#
# The header for code that shows pages: Qt's widgets and its page engine, nothing of this repository,
# whose layers stay invisible to each other. The leftmost layer that has pages owns it.
function(orvix_page_head target)
    if(target STREQUAL "orvix_bridge")
        orvix_head(${target} PRIVATE
                   <QtConcurrent> <QtWidgets>
                   <QWebElement> <QWebFrame> <QWebHistory> <QWebPage> <QWebView>
                   <functional> <memory> <optional>)
    else()
        orvix_head(${target} REUSE_FROM orvix_bridge)
    endif()
endfunction()

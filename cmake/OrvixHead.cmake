# What most files include is compiled once and taken from there: Qt's part of a file is the greater
# half of the work of compiling it. The second compiler takes no such header (CMakePresets.json), so
# that ./dev lint shows an include which is missing in a file.

# orvix_head(<target> <PRIVATE <header>... | REUSE_FROM <target>>)
function(orvix_head target)
    target_precompile_headers(${target} ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Tells ccache which header it was.
        target_compile_options(${target} PRIVATE -fpch-preprocess)
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

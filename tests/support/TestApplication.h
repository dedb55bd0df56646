#pragma once

#include <QApplication>

#include <memory>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

/// The application of a test, with Qt's own dialogs. What the platform plug-in keeps until the
/// process ends is no leak of ours. `argc` and `argv` outlive it.
inline std::unique_ptr<QApplication> makeTestApplication(int &argc, char *argv[])
{
#ifdef __SANITIZE_ADDRESS__
    __lsan::ScopedDisabler platformKeepsItsScreen;
#endif
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    return std::make_unique<QApplication>(argc, argv);
}

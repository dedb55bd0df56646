#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/tour/Tour.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QScreen>

#include <cstdio>

namespace {

Options readOptions(int &argc, char **argv)
{
    // The help needs no display.
    QCoreApplication application(argc, argv);
    return Options::parse(QCoreApplication::arguments());
}

void useNoDisplay()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

}

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName("orvix-workbench");
    QCoreApplication::setApplicationVersion("1.0.0");
    const Options options = readOptions(argc, argv);
    if (options.action != Options::Action::Run) {
        const bool help = options.action == Options::Action::Help;
        std::fputs(qPrintable(options.text), help ? stdout : stderr);
        return help ? 0 : 2;
    }
    const bool tour = !options.tourFolder.isEmpty();
    if (tour) {
        useNoDisplay();
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName("Orvix Workbench");
    QApplication::setStyle("fusion");
    if (tour)
        return Tour(options, Walks::all()).run();

    Workbench workbench(options);
    workbench.host().setInteractive(true);
    workbench.start(options);
    workbench.window().fitInto(workbench.window().screen()->availableGeometry());
    workbench.window().show();
    return QApplication::exec();
}

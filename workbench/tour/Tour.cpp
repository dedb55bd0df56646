#include "workbench/tour/Tour.h"

#include "workbench/app/Workbench.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int WatchInterval = 500; // milliseconds
constexpr int DialogPatience = 40; // intervals

// What the walk-through brings about on purpose.
bool isExpected(const QString &text)
{
    return text.contains("File read failed.") || text.startsWith("t_broken.orvix: ");
}

// The log panel has every line; the terminal gets those that tell of something wrong.
void writeProblems(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (levelOf(type) >= levelOf(QtWarningMsg) && !isPlatformNoise(text) && !isExpected(text))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

// Closes a dialog that nobody answers, and tells.
class Watchdog
{
public:
    explicit Watchdog(TourReport &report)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this, &report] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            m_waited = dialog && dialog == m_dialog ? m_waited + 1 : 0;
            m_dialog = dialog;
            if (!dialog || m_waited < DialogPatience)
                return;
            report.check(false, "no dialog that nobody expected: " + dialog->windowTitle());
            dialog->reject();
        });
        m_timer.start(WatchInterval);
    }

private:
    QTimer m_timer;
    QDialog *m_dialog = nullptr;
    int m_waited = 0;
};

}

Tour::Tour(const Options &options) : m_options(options) {}

int Tour::run()
{
    TourReport report(m_options.tourFolder);
    QTemporaryDir own;
    if (!report.isWritable() || !own.isValid()) {
        std::fprintf(stderr, "%s cannot be written to\n", qPrintable(m_options.tourFolder));
        return 2;
    }
    Options options = m_options;
    options.settingsFile = own.filePath("settings.ini");
    options.cameras = 2;
    options.style = "light";
    options.openFolder.clear();

    qInstallMessageHandler(writeProblems);
    // Without a desktop nobody says how large texts are.
    QFont font = QApplication::font();
    font.setPointSize(10);
    QApplication::setFont(font);
    Workbench workbench(options);
    workbench.host().setInteractive(true);
    MainWindow &window = workbench.window();
    workbench.start(options);
    window.resize(1280, 800);
    window.show();
    window.activateWindow();
    const bool shown = QTest::qWaitForWindowActive(&window);
    if (!shown)
        std::fprintf(stderr, "the window did not become active\n");

    const Watchdog watchdog(report);
    TourSteps(workbench, report, own.path()).walk();
    report.finish();
    std::printf("%d steps, %d checks, %d failed\n", report.steps(), report.checks(),
                report.failures());
    return shown && report.failures() == 0 ? 0 : 1;
}

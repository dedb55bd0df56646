#include "workbench/tour/Tour.h"

#include "workbench/tour/TourReport.h"
#include "workbench/tour/Walk.h"

#include <QApplication>
#include <QDialog>
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

// Neither the workbench of a walk nor what it throws reaches the next.
void take(const Walk &walk, const Options &options, TourReport &report)
{
    try {
        TourStage stage(options, walk.scene, report);
        if (!stage.isReady())
            report.check(false, "the stage of the walk " + walk.name);
        walk.run(stage);
    } catch (const std::exception &e) {
        report.check(false, "the end of the walk " + walk.name + ", not " + e.what());
    }
}

}

Tour::Tour(const Options &options, const QVector<Walk> &walks) : m_options(options), m_walks(walks)
{
}

int Tour::run()
{
    QVector<Walk> walks;
    QStringList names;
    for (const Walk &walk : m_walks) {
        names.append(walk.name);
        if (m_options.walk.isEmpty() ? !walk.isAsked : walk.name == m_options.walk)
            walks.append(walk);
    }
    if (walks.isEmpty()) {
        std::fprintf(stderr, "There is no walk %s, but these: %s\n", qPrintable(m_options.walk),
                     qPrintable(names.join(", ")));
        return 2;
    }
    TourReport report(m_options.tourFolder);
    if (!report.isWritable()) {
        std::fprintf(stderr, "%s cannot be written to\n", qPrintable(m_options.tourFolder));
        return 2;
    }

    const QtMessageHandler handler = qInstallMessageHandler(writeProblems);
    // Without a desktop nobody says how large texts are.
    QFont font = QApplication::font();
    font.setPointSize(10);
    QApplication::setFont(font);

    const Watchdog watchdog(report);
    for (const Walk &walk : walks)
        take(walk, m_options, report);
    qInstallMessageHandler(handler);
    report.finish();
    std::printf("%d steps, %d checks, %d failed\n", report.steps(), report.checks(),
                report.failures());
    return report.failures() == 0 ? 0 : 1;
}

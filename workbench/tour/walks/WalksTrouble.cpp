#include "workbench/log/HostCallPanel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"

#include <QComboBox>
#include <QFile>
#include <QTabBar>
#include <QTest>

namespace {
const QString BrokenTool = QStringLiteral("t_broken.orvix");
const QString BrokenText =
    QStringLiteral("t_broken.orvix: it is no library of this system (file too short)");

void reportsABrokenTool(TourStage &stage)
{
    stage.step("broken", "A tool that cannot be loaded is reported, and the others go on", [&] {
        const QString path = stage.folder() + '/' + BrokenTool;
        QFile file(path);
        stage.check(file.open(QIODevice::WriteOnly) && file.write("no library") > 0,
                    "a broken file");
        file.close();
        bool chosen = false;
        TourHand::answerDialogs(
            [&] { TourHand::press(Qt::Key_L, Qt::ControlModifier, &stage.window()); },
            {[&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, path); }});
        stage.check(chosen, "the file is chosen");
        stage.compare(stage.window().notice()->text(), BrokenText, "the notice");
        stage.check(stage.logHolds("Warning " + BrokenText), "a warning in the log");

        stage.pressTool();
        stage.checkLock(true, 3);
        stage.pressTool();
        stage.checkLock(false, 3);
    });
}

void filtersTheLog(TourStage &stage)
{
    stage.step("log", "The log shows warnings alone when it is asked to", [&] {
        stage.check(TourHand::click(stage.window().notice()->findChild<QWidget *>("noticeLog")),
                    "a click on Show log");
        stage.check(stage.window().logPanel()->isVisible(), "the log is in view");
        stage.check(stage.window().logPanel()->visibleLines().size() > 3,
                    "it holds lines of all levels");
        stage.check(TourHand::choose(stage.window().findChild<QComboBox *>("logLevel"),
                                     "Warning and worse"),
                    "the level is chosen");
        const QStringList lines = stage.window().logPanel()->visibleLines();
        stage.check(!lines.isEmpty() && lines.filter(" Info ").isEmpty(), "no line of information");
        stage.check(stage.logHolds(BrokenText), "the warning is still there");
    });
}

void dismissesTheNotice(TourStage &stage)
{
    stage.step("dismiss", "The notice goes when it is dismissed", [&] {
        stage.check(TourHand::choose(stage.window().findChild<QComboBox *>("logLevel"), "All"),
                    "all levels are chosen");
        stage.check(TourHand::click(stage.window().notice()->findChild<QWidget *>("noticeDismiss")),
                    "a click on Dismiss");
        stage.check(!stage.window().notice()->isVisible(), "the notice has gone");
    });
}

void showsTheHostCalls(TourStage &stage)
{
    stage.step("calls", "A panel shows what the tools told the host", [&] {
        QTabBar *tabs = nullptr;
        for (QTabBar *bar : stage.window().findChildren<QTabBar *>()) {
            if (bar->count() == 2 && bar->tabText(1) == "Host calls")
                tabs = bar;
        }
        if (tabs)
            QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(1).center());
        TourHand::settle();
        stage.check(stage.window().hostCalls()->isVisible(), "the panel is in view");
        const QStringList lines = stage.window().hostCalls()->lines();
        stage.check(lines.contains("setTrelvikLock(true)") &&
                        lines.contains("setTrelvikLock(false)"),
                    "both calls of the lock tool");
    });
}

}

void Walks::trouble(TourStage &stage)
{
    reportsABrokenTool(stage);
    filtersTheLog(stage);
    dismissesTheNotice(stage);
    showsTheHostCalls(stage);
}

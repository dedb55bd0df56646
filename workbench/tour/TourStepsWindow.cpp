#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Look.h"
#include "workbench/log/HostCallPanel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/EmptyPage.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

namespace {
const QString BrokenTool = QStringLiteral("t_broken.orvix");
const QString BrokenText =
    QStringLiteral("t_broken.orvix: it is no library of this system (file too short)");
}

void TourSteps::reportsABrokenTool()
{
    step("broken", "A tool that cannot be loaded is reported, and the others go on", [this] {
        const QString path = m_folder + '/' + BrokenTool;
        QFile file(path);
        check(file.open(QIODevice::WriteOnly) && file.write("no library") > 0, "a broken file");
        file.close();
        bool chosen = false;
        TourHand::answerDialogs(
            [&] { TourHand::press(Qt::Key_L, Qt::ControlModifier, &m_window); },
            {[&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, path); }});
        check(chosen, "the file is chosen");
        compare(m_window.notice()->text(), BrokenText, "the notice");
        check(logHolds("Warning " + BrokenText), "a warning in the log");

        pressTool();
        checkLock(true, 3);
        pressTool();
        checkLock(false, 3);
    });
}

void TourSteps::filtersTheLog()
{
    step("log", "The log shows warnings alone when it is asked to", [this] {
        check(TourHand::click(m_window.notice()->findChild<QWidget *>("noticeLog")),
              "a click on Show log");
        check(m_window.logPanel()->isVisible(), "the log is in view");
        check(m_window.logPanel()->visibleLines().size() > 3, "it holds lines of all levels");
        check(TourHand::choose(m_window.findChild<QComboBox *>("logLevel"), "Warning and worse"),
              "the level is chosen");
        const QStringList lines = m_window.logPanel()->visibleLines();
        check(!lines.isEmpty() && lines.filter(" Info ").isEmpty(), "no line of information");
        check(logHolds(BrokenText), "the warning is still there");
    });
}

void TourSteps::dismissesTheNotice()
{
    step("dismiss", "The notice goes when it is dismissed", [this] {
        check(TourHand::choose(m_window.findChild<QComboBox *>("logLevel"), "All"),
              "all levels are chosen");
        check(TourHand::click(m_window.notice()->findChild<QWidget *>("noticeDismiss")),
              "a click on Dismiss");
        check(!m_window.notice()->isVisible(), "the notice has gone");
    });
}

void TourSteps::showsTheHostCalls()
{
    step("calls", "A panel shows what the tools told the host", [this] {
        QTabBar *tabs = nullptr;
        for (QTabBar *bar : m_window.findChildren<QTabBar *>()) {
            if (bar->count() == 2 && bar->tabText(1) == "Host calls")
                tabs = bar;
        }
        if (tabs)
            QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(1).center());
        TourHand::settle();
        check(m_window.hostCalls()->isVisible(), "the panel is in view");
        const QStringList lines = m_window.hostCalls()->lines();
        check(lines.contains("setTrelvikLock(true)") && lines.contains("setTrelvikLock(false)"),
              "both calls of the lock tool");
    });
}

void TourSteps::turnsDark()
{
    step("dark", "The dark style", [this] {
        check(TourHand::chooseMenu(m_window.menuBar(), "View", "Dark style"), "View, Dark style");
        check(QApplication::palette() == Look::palette(true), "the window is dark");
        compare(m_host.settings().value(Keys::application.style, QVariant()).toString(), "dark",
                "the setting");
        pressTool();
        checkLock(true, 3);
    });
}

void TourSteps::showsNoCamera()
{
    step("none", "Without a camera the window says what to do", [this] {
        for (int left = m_host.cameras().size(); left > 0; --left)
            TourHand::press(Qt::Key_W, Qt::ControlModifier, &m_window);
        compare(QString::number(m_host.cameras().size()), "0", "number of cameras");
        const auto *empty = m_window.findChild<EmptyPage *>();
        check(empty && empty->isVisible(), "there is a page in place of the pictures");
        compare(empty ? empty->title() : QString(), "No camera", "its title");
        const auto *hint = m_window.findChild<QLabel *>("cameraHint");
        check(hint && hint->isVisible(), "the panel has a hint in place of the settings");
        const QAction *button = lockAction();
        check(button && !button->isChecked(),
              "without a document the button is up, though the lock is on");
        showsNoNote();
    });
}

void TourSteps::turnsLight()
{
    step("light", "The light style, and a camera that joins the lock", [this] {
        check(TourHand::click(m_window.findChild<QPushButton *>("emptyButton")),
              "a click on Add camera");
        checkLock(true, 1);
        check(TourHand::chooseMenu(m_window.menuBar(), "View", "Light style"), "View, Light style");
        check(QApplication::palette() == Look::palette(false), "the window is light");
        compare(m_host.settings().value(Keys::application.style, QVariant()).toString(), "light",
                "the setting");
    });
}

#include "bridge/page/GUI_WebView.h"
#include "contract/HostValues.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>

namespace {

void choosesInTheDeviceList(TourStage &stage)
{
    stage.step("devices", "A click in the list of devices selects a camera", [&] {
        GUI_WebView *list = stage.window().devicePanel()->view();
        stage.compare(QString::number(PageHand::count(list, ".device")), "3", "rows of the list");
        stage.clickInPage(list, "#device-3", "the third row");
        stage.check(stage.host().selection() == QList<DOCKEY>({3}), "camera 3 alone is selected");
        stage.check(TourHand::waitFor([&] {
                        return PageHand::count(list, ".ui-selected") == 1 &&
                               PageHand::count(list, "#device-3.ui-selected") == 1;
                    }),
                    "its row is marked, and no other");
        stage.check(PageHand::press(list, Qt::Key_Up) && PageHand::press(list, Qt::Key_Space),
                    "the keys Up and Space");
        stage.check(stage.host().selection() == QList<DOCKEY>({2}), "camera 2 alone is selected");
    });
}

void commandsFromTheStatus(TourStage &stage)
{
    stage.step("status", "The status panel shows what goes on and gives commands", [&] {
        GUI_WebView *status = stage.window().statusPanel()->view();
        stage.check(PageHand::count(status, "#IsLiveMode.on") == 1, "the mode Live is lit");
        stage.check(!PageHand::isShown(status, "#IsRecording"), "nothing is recorded");
        stage.clickInPage(status, "#selectAll", "Select all");
        stage.compare(QString::number(stage.host().selection().size()), "3", "selected cameras");

        stage.host().state().isRecording = true;
        stage.host().updateUI(UpdateFlag::Operation, true);
        stage.check(TourHand::waitFor([&] { return !PageHand::isEnabled(status, "#selectAll"); }),
                    "while the cameras record, Select all is off");
        stage.check(PageHand::isShown(status, "#IsRecording"), "Recording is lit");
        stage.addPicture("-recording");
        stage.host().state().isRecording = false;
        stage.host().updateUI(UpdateFlag::Operation, true);
        stage.check(TourHand::waitFor([&] { return PageHand::isEnabled(status, "#selectAll"); }),
                    "behind the recording it is on again");
    });
}

void choosesAPartition(TourStage &stage)
{
    stage.step("partition", "A list chooses the partition of the cameras", [&] {
        GUI_WebView *status = stage.window().statusPanel()->view();
        DropDownBoxes *boxes = stage.workbench().boxes();
        for (const int number : {2, 1}) {
            stage.clickInPage(status, "#partition", "the partition");
            GUI_WebView *list = boxes->box() ? boxes->box()->webView() : nullptr;
            stage.check(TourHand::waitFor([&] {
                            return list && boxes->box()->isVisible() &&
                                   PageHand::count(list, "li") == 2;
                        }),
                        "the list has two partitions");
            if (list && number == 2)
                stage.addPicture(list, "-list");
            const QString row = QStringLiteral("#row-%1").arg(number);
            stage.clickInPage(list, row, row);
            stage.check(!boxes->box() || !boxes->box()->isVisible(), "the list has gone");
            const QString text = QStringLiteral("Partition %1").arg(number);
            stage.check(
                TourHand::waitFor([&] { return PageHand::text(status, "#partition") == text; }),
                "the field says " + text);
        }
        stage.window().activateWindow();
    });
}

void reloadsTheViews(TourStage &stage)
{
    stage.step("reload", "The pictures stand in a page, and live on when it is loaded anew", [&] {
        GUI_WebView *page = stage.window().viewPage()->view();
        stage.check(page->isAncestorOf(stage.window().views()),
                    "the pictures are a part of the page");
        bool loaded = false;
        const auto connection =
            QObject::connect(page, &QWebView::loadFinished, [&](bool ok) { loaded = ok; });
        page->reload();
        stage.check(TourHand::waitFor([&] { return loaded; }), "the page has loaded anew");
        QObject::disconnect(connection);
        stage.check(TourHand::waitFor([&] { return stage.window().views()->isVisible(); }),
                    "the pictures are in view");
        stage.chooseView(0);
        stage.chooseView(1);
    });
}

void changesPreferences(TourStage &stage)
{
    stage.step("prefs", "Preferences change at once", [&] {
        stage.visitDialog("Edit", "Preferences...", "-style", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#tab-units", "Units");
            stage.addPicture(page, "-units");
            stage.clickInPage(page, "#unitsImperial", "Imperial");
            stage.compare(PageHand::text(page, "#unitList li:first-child"), "Inches (in): inch",
                          "the first unit");
            stage.clickInPage(page, "#unitsMetric", "Metric");
            stage.clickInPage(page, "#tab-recording", "Recording");
            const bool before =
                stage.host().settings().value(Keys::recording.autoDownload, QVariant()).toBool();
            stage.clickInPage(page, "#autoDownload", "Download automatically");
            stage.check(
                stage.host().settings().value(Keys::recording.autoDownload, QVariant()).toBool() !=
                    before,
                "the setting has changed");
            stage.addPicture(page, "-recording");
            stage.clickInPage(page, "#autoDownload", "it again");
            stage.clickInPage(page, "#tab-display", "Display");
            stage.addPicture(page, "-display");
            stage.clickInPage(page, "#close", "Close");
        });
        stage.check(!stage.host().state().isPrefsDialogOpen, "the dialog has gone");
    });
}

void showsAboutAndEthernet(TourStage &stage)
{
    stage.step("about", "About box and Ethernet settings are pages too", [&] {
        stage.visitDialog("Help", "About", "-box", [&](GUI_WebView *page) {
            stage.compare(PageHand::text(page, "#version"),
                          "Version " + QApplication::applicationVersion(), "its version");
            stage.clickInPage(page, "#close", "Close");
        });
        stage.visitDialog("Cameras", "Ethernet settings...", "-ethernet", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#search", "the field Search among");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "10.20.30.999");
            stage.check(!PageHand::isEnabled(page, "#ok"), "no address: OK is off");
            stage.addPicture(page, "-wrong");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "10.20.30.0");
            stage.clickInPage(page, "#ok", "OK");
        });
        stage.compare(
            stage.host().settings().value("cameraconnection/SearchIP", QVariant()).toString(),
            "10.20.30.0", "the setting");
    });
}

}

void Walks::pages(TourStage &stage)
{
    choosesInTheDeviceList(stage);
    commandsFromTheStatus(stage);
    choosesAPartition(stage);
    reloadsTheViews(stage);
    changesPreferences(stage);
    showsAboutAndEthernet(stage);
}

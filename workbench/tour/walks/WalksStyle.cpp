#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Look.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QMenuBar>

namespace {

void turnsDark(TourStage &stage)
{
    stage.step("dark", "The dark style", [&] {
        stage.check(TourHand::chooseMenu(stage.window().menuBar(), "View", "Dark style"),
                    "View, Dark style");
        stage.check(QApplication::palette() == Look::palette(true), "the window is dark");
        stage.compare(stage.host().settings().value(Keys::application.style, QVariant()).toString(),
                      "dark", "the setting");
        stage.pressTool();
        stage.checkLock(true, 3);
    });
}

void showsDarkPages(TourStage &stage)
{
    stage.step("night", "All pages are dark", [&] {
        for (PagePanel *panel : {stage.window().statusPanel(), stage.window().devicePanel()})
            stage.check(TourHand::waitFor([&] {
                            return PageHand::read(panel->view(), "document.body.className") ==
                                   "dark";
                        }),
                        "the panel " + panel->mediator()->pageName() + " is dark");
        stage.visitDialog("Edit", "Preferences...", "-style", [&](GUI_WebView *page) {
            stage.check(
                PageHand::read(page, "document.getElementById('styleDark').checked").toBool(),
                "Dark is chosen");
            stage.clickInPage(page, "#tab-recording", "Recording");
            stage.addPicture(page, "-recording");
            stage.clickInPage(page, "#close", "Close");
        });
        stage.visitDialog("Help", "About", "-about",
                          [&](GUI_WebView *page) { stage.clickInPage(page, "#close", "Close"); });
        stage.visitDialog("Cameras", "Ethernet settings...", "-ethernet",
                          [&](GUI_WebView *page) { stage.clickInPage(page, "#cancel", "Cancel"); });
        GUI_WebView *status = stage.window().statusPanel()->view();
        stage.clickInPage(status, "#partition", "the partition");
        GUI_SelectBox *box = stage.workbench().boxes()->box();
        stage.check(TourHand::waitFor([&] { return box && box->isVisible(); }), "the list is open");
        if (box) {
            stage.check(TourHand::waitFor([&] {
                            return PageHand::read(box->webView(), "document.body.className") ==
                                   "dark";
                        }),
                        "it is dark");
            stage.addPicture(box->webView(), "-list");
            stage.check(TourHand::press(Qt::Key_Escape, Qt::NoModifier, box->webView()),
                        "the key Esc");
            stage.check(!box->isVisible(), "the list has gone");
        }
        stage.window().activateWindow();
    });
}

}

void Walks::style(TourStage &stage)
{
    turnsDark(stage);
    showsDarkPages(stage);
}

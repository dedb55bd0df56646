#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostValues.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QFile>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace {

bool isDrawn(QWebView *view)
{
    return PageHand::read(view, "document.readyState === 'complete' && "
                                "document.body.classList.length > 0")
        .toBool();
}

bool clickStandardButton(QMessageBox::StandardButton button)
{
    QMessageBox *box = nullptr;
    TourHand::waitFor(
        [&] { return (box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())); });
    return box && TourHand::click(box->button(button));
}

}

void TourSteps::clickInPage(QWebView *view, const QString &selector, const QString &what)
{
    check(PageHand::click(view, selector), "a click on " + what);
}

void TourSteps::visitDialog(const QString &menu, const QString &entry, const QString &picture,
                            const std::function<void(GUI_WebView *)> &body)
{
    int visits = 0;
    TourHand::answerDialogs(
        [&] { check(TourHand::chooseMenu(m_window.menuBar(), menu, entry), menu + ", " + entry); },
        {[&](QDialog *dialog) {
            auto *shown = dynamic_cast<GUI_WebViewDialog *>(dialog);
            if (!shown || !TourHand::waitFor([&] { return isDrawn(shown->webView()); }))
                return;
            ++visits;
            TourHand::settle();
            m_report.addPicture(shown->grab(), picture);
            body(shown->webView());
        }});
    check(visits == 1, "the dialog with its page");
}

void TourSteps::choosesInTheDeviceList()
{
    step("devices", "A click in the list of devices selects a camera", [this] {
        GUI_WebView *list = m_window.devicePanel()->view();
        compare(QString::number(PageHand::count(list, ".device")), "3", "rows of the list");
        clickInPage(list, "#device-3", "the third row");
        check(m_host.selection() == QList<DOCKEY>({3}), "camera 3 alone is selected");
        check(TourHand::waitFor([&] {
                  return PageHand::count(list, ".ui-selected") == 1 &&
                         PageHand::count(list, "#device-3.ui-selected") == 1;
              }),
              "its row is marked, and no other");
        check(PageHand::press(list, Qt::Key_Up) && PageHand::press(list, Qt::Key_Space),
              "the keys Up and Space");
        check(m_host.selection() == QList<DOCKEY>({2}), "camera 2 alone is selected");
    });
}

void TourSteps::commandsFromTheStatus()
{
    step("status", "The status panel shows what goes on and gives commands", [this] {
        GUI_WebView *status = m_window.statusPanel()->view();
        check(PageHand::count(status, "#IsLiveMode.on") == 1, "the mode Live is lit");
        check(!PageHand::isShown(status, "#IsRecording"), "nothing is recorded");
        clickInPage(status, "#selectAll", "Select all");
        compare(QString::number(m_host.selection().size()), "3", "selected cameras");

        m_host.state().isRecording = true;
        m_host.updateUI(UpdateFlag::Operation, true);
        check(TourHand::waitFor([&] { return !PageHand::isEnabled(status, "#selectAll"); }),
              "while the cameras record, Select all is off");
        check(PageHand::isShown(status, "#IsRecording"), "Recording is lit");
        m_report.addPicture(m_window.grab(), "-recording");
        m_host.state().isRecording = false;
        m_host.updateUI(UpdateFlag::Operation, true);
        check(TourHand::waitFor([&] { return PageHand::isEnabled(status, "#selectAll"); }),
              "behind the recording it is on again");
    });
}

void TourSteps::choosesAPartition()
{
    step("partition", "A list chooses the partition of the cameras", [this] {
        GUI_WebView *status = m_window.statusPanel()->view();
        DropDownBoxes *boxes = m_workbench.boxes();
        for (const int number : {2, 1}) {
            clickInPage(status, "#partition", "the partition");
            GUI_WebView *list = boxes->box() ? boxes->box()->webView() : nullptr;
            check(TourHand::waitFor([&] {
                      return list && boxes->box()->isVisible() && PageHand::count(list, "li") == 2;
                  }),
                  "the list has two partitions");
            if (list && number == 2)
                m_report.addPicture(list->grab(), "-list");
            const QString row = QStringLiteral("#row-%1").arg(number);
            clickInPage(list, row, row);
            check(!boxes->box() || !boxes->box()->isVisible(), "the list has gone");
            const QString text = QStringLiteral("Partition %1").arg(number);
            check(TourHand::waitFor([&] { return PageHand::text(status, "#partition") == text; }),
                  "the field says " + text);
        }
        m_window.activateWindow();
    });
}

void TourSteps::reloadsTheViews()
{
    step("reload", "The pictures stand in a page, and live on when it is loaded anew", [this] {
        GUI_WebView *page = m_window.viewPage()->view();
        check(page->isAncestorOf(m_window.views()), "the pictures are a part of the page");
        bool loaded = false;
        const auto connection =
            QObject::connect(page, &QWebView::loadFinished, [&](bool ok) { loaded = ok; });
        page->reload();
        check(TourHand::waitFor([&] { return loaded; }), "the page has loaded anew");
        QObject::disconnect(connection);
        check(TourHand::waitFor([&] { return m_window.views()->isVisible(); }),
              "the pictures are in view");
        chooseView(0);
        chooseView(1);
    });
}

void TourSteps::changesPreferences()
{
    step("prefs", "Preferences change at once", [this] {
        visitDialog("Edit", "Preferences...", "-style", [this](GUI_WebView *page) {
            clickInPage(page, "#tab-units", "Units");
            m_report.addPicture(page->grab(), "-units");
            clickInPage(page, "#unitsImperial", "Imperial");
            compare(PageHand::text(page, "#unitList li:first-child"), "Inches (in): inch",
                    "the first unit");
            clickInPage(page, "#unitsMetric", "Metric");
            clickInPage(page, "#tab-recording", "Recording");
            const bool before =
                m_host.settings().value(Keys::recording.autoDownload, QVariant()).toBool();
            clickInPage(page, "#autoDownload", "Download automatically");
            check(m_host.settings().value(Keys::recording.autoDownload, QVariant()).toBool() !=
                      before,
                  "the setting has changed");
            m_report.addPicture(page->grab(), "-recording");
            clickInPage(page, "#autoDownload", "it again");
            clickInPage(page, "#tab-display", "Display");
            m_report.addPicture(page->grab(), "-display");
            clickInPage(page, "#close", "Close");
        });
        check(!m_host.state().isPrefsDialogOpen, "the dialog has gone");
    });
}

void TourSteps::showsAboutAndEthernet()
{
    step("about", "About box and Ethernet settings are pages too", [this] {
        visitDialog("Help", "About", "-box", [this](GUI_WebView *page) {
            compare(PageHand::text(page, "#version"),
                    "Version " + QApplication::applicationVersion(), "its version");
            clickInPage(page, "#close", "Close");
        });
        visitDialog("Cameras", "Ethernet settings...", "-ethernet", [this](GUI_WebView *page) {
            clickInPage(page, "#search", "the field Search among");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "10.20.30.999");
            check(!PageHand::isEnabled(page, "#ok"), "no address: OK is off");
            m_report.addPicture(page->grab(), "-wrong");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "10.20.30.0");
            clickInPage(page, "#ok", "OK");
        });
        compare(m_host.settings().value("cameraconnection/SearchIP", QVariant()).toString(),
                "10.20.30.0", "the setting");
    });
}

void TourSteps::writesASupportFile()
{
    step("support", "The support file is a ZIP", [this] {
        const QString path = m_folder + "/support.zip";
        bool agreed = false;
        bool chosen = false;
        bool told = false;
        TourHand::answerDialogs(
            [&] {
                check(TourHand::chooseMenu(m_window.menuBar(), "Help", "Support file..."),
                      "Help, Support file...");
            },
            {[&](QDialog *dialog) {
                 m_report.addPicture(dialog->grab(), "-question");
                 agreed = clickStandardButton(QMessageBox::Yes);
             },
             [&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, path); },
             [&](QDialog *) { told = clickStandardButton(QMessageBox::Ok); }});
        check(agreed, "the question what goes in is answered by Yes");
        check(chosen, "a file is chosen");
        check(told, "a message says what to do with it");
        QFile file(path);
        const QByteArray zip = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        check(zip.startsWith("PK"), "the file is a ZIP");
        for (const char *name :
             {"settings.txt", "cameras.txt", "operation-log.txt", "host-calls.txt",
              "environment.txt", "version.txt", "screen.png", "frame.png"})
            check(zip.contains(name), QStringLiteral("it holds %1").arg(name));
        check(m_host.handledErrors().isEmpty() ||
                  !m_host.handledErrors().last().contains("support"),
              "no error was reported");
    });
}

void TourSteps::showsDarkPages()
{
    step("night", "All pages are dark", [this] {
        for (PagePanel *panel : {m_window.statusPanel(), m_window.devicePanel()})
            check(TourHand::waitFor([&] {
                      return PageHand::read(panel->view(), "document.body.className") == "dark";
                  }),
                  "the panel " + panel->mediator()->pageName() + " is dark");
        visitDialog("Edit", "Preferences...", "-style", [this](GUI_WebView *page) {
            check(PageHand::read(page, "document.getElementById('styleDark').checked").toBool(),
                  "Dark is chosen");
            clickInPage(page, "#tab-recording", "Recording");
            m_report.addPicture(page->grab(), "-recording");
            clickInPage(page, "#close", "Close");
        });
        visitDialog("Help", "About", "-about",
                    [this](GUI_WebView *page) { clickInPage(page, "#close", "Close"); });
        visitDialog("Cameras", "Ethernet settings...", "-ethernet",
                    [this](GUI_WebView *page) { clickInPage(page, "#cancel", "Cancel"); });
        GUI_WebView *status = m_window.statusPanel()->view();
        clickInPage(status, "#partition", "the partition");
        GUI_SelectBox *box = m_workbench.boxes()->box();
        check(TourHand::waitFor([&] { return box && box->isVisible(); }), "the list is open");
        if (box) {
            check(TourHand::waitFor([&] {
                      return PageHand::read(box->webView(), "document.body.className") == "dark";
                  }),
                  "it is dark");
            m_report.addPicture(box->webView()->grab(), "-list");
            check(TourHand::press(Qt::Key_Escape, Qt::NoModifier, box->webView()), "the key Esc");
            check(!box->isVisible(), "the list has gone");
        }
        m_window.activateWindow();
    });
}

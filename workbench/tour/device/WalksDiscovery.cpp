#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/device/DeviceWalks.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

namespace {

// Those of the built-in network.
const QString Foreign = QStringLiteral("70004");
const QString Held = QStringLiteral("70006");
const QString Double = QStringLiteral("70007");
const QString TwoHeads = QStringLiteral("70002");
const QString Silent = QStringLiteral("79999");

QString rowOf(const QString &serialNumber)
{
    return "#camera-" + serialNumber;
}

QString badge(GUI_WebView *page, const QString &serialNumber)
{
    return PageHand::text(page, rowOf(serialNumber) + " .badge");
}

int headsOf(TourStage &stage, const QString &serialNumber)
{
    return stage.host().connections().heads(serialNumber).size();
}

void search(TourStage &stage, const QString &picture,
            const std::function<void(GUI_WebView *)> &body)
{
    stage.visitDialog("Cameras", "Search for cameras...", picture, body);
}

void tellsWhyCamerasCannotBeConnected(TourStage &stage, const QString &style)
{
    stage.step("discovery-" + style, "The search tells why a camera cannot be connected", [&] {
        search(stage, "-found", [&](GUI_WebView *page) {
            stage.compare(badge(page, Foreign), "cannot be reached",
                          "the camera of another subnet");
            stage.compare(badge(page, Held), "in use elsewhere", "the one that is held");
            stage.compare(badge(page, Double), "address used twice", "the one with a double");
            stage.clickInPage(page, rowOf(Held), "the camera that is held");
            stage.check(PageHand::text(page, "#reason").startsWith("Another application"),
                        "the reason stands there");
            stage.check(!PageHand::isEnabled(page, "#connect"), "Connect is off");
            stage.addPicture(page->window(), "-held");
            stage.clickInPage(page, "#close", "Close");
        });
    });
}

void mendsAnAddress(TourStage &stage, const QString &style)
{
    stage.step("discovery-address-" + style, "A camera gets another address, and connects", [&] {
        search(stage, "-again", [&](GUI_WebView *page) {
            stage.clickInPage(page, rowOf(Foreign), "the camera of another subnet");
            stage.check(PageHand::text(page, "#reason").startsWith("172.16.5.20 is in the subnet"),
                        "the reason stands there");
            stage.addPicture(page->window(), "-foreign");
            const QString offered =
                PageHand::read(page, "document.getElementById('address').value").toString();
            stage.compare(offered, "192.168.0.2", "the address that is offered");

            stage.clickInPage(page, "#address", "the address");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "192.168.0.255");
            QString told;
            TourHand::answerDialogs([&] { stage.clickInPage(page, "#change", "Change address"); },
                                    {[&](QDialog *dialog) {
                                        if (auto *box = qobject_cast<QMessageBox *>(dialog))
                                            told = box->text();
                                        stage.addPicture(dialog, "-refused");
                                    }});
            stage.compare(told, "192.168.0.255 is the address of all devices of the subnet.",
                          "the message");
            stage.compare(badge(page, Foreign), "cannot be reached", "the camera");

            stage.clickInPage(page, "#address", "the address");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, offered);
            stage.clickInPage(page, "#change", "Change address");
            stage.compare(badge(page, Foreign), "ready", "the camera");
            stage.addPicture(page->window(), "-changed");
            stage.clickInPage(page, "#connect", "Connect");
            stage.compare(badge(page, Foreign), "connected", "the camera");
            stage.addPicture(page->window(), "-connected");
            stage.clickInPage(page, "#close", "Close");
        });
        stage.check(stage.host().connections().isConnected(Foreign), "the camera is connected");
        stage.compare(QString::number(headsOf(stage, Foreign)), "1", "its rows");
    });
}

void connectsBothHeads(TourStage &stage, const QString &style)
{
    stage.step("discovery-heads-" + style, "A camera of two heads connects by keys", [&] {
        search(stage, "-keys", [&](GUI_WebView *page) {
            PageHand::read(page, "document.getElementById('camera-" + TwoHeads + "').focus()");
            stage.check(PageHand::press(page, Qt::Key_Space), "the key Space");
            const QString connect = QStringLiteral("#connect:focus");
            for (int i = PageHand::stops(page).size(); i > 0 && PageHand::count(page, connect) == 0;
                 --i)
                PageHand::press(page, Qt::Key_Tab);
            stage.check(PageHand::press(page, Qt::Key_Return), "the key Enter on Connect");
            stage.compare(badge(page, TwoHeads), "connected", "the camera");
            stage.clickInPage(page, "#close", "Close");
        });
        stage.compare(QString::number(headsOf(stage, TwoHeads)), "2", "its rows");
    });
}

void cancelsASearch(TourStage &stage, const QString &style)
{
    stage.step("discovery-cancel-" + style, "A search that is cancelled says so", [&] {
        search(stage, "-before", [&](GUI_WebView *page) {
            NetworkDevice silent;
            silent.serialNumber = Silent;
            silent.setting.ipAddress = QStringLiteral("192.168.0.209");
            silent.delay = -1; // it never answers
            stage.host().network().addDevice(silent);
            bool isCancelled = false;
            QTimer watch;
            QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
                auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
                if (!progress || !progress->isVisible())
                    return;
                watch.stop();
                stage.addPicture(progress, "-progress");
                isCancelled = TourHand::click(progress->findChild<QPushButton *>());
            });
            watch.start(50);
            stage.clickInPage(page, "#again", "Search again");
            stage.check(isCancelled, "the search was cancelled");
            stage.check(PageHand::text(page, "#found").contains("there may be more"),
                        "the page says that there may be more");
            stage.addPicture(page->window(), "-incomplete");
            stage.host().network().setPlugged(Silent, false);
            stage.clickInPage(page, "#close", "Close");
        });
    });
}

void searchesInOneSubnet(TourStage &stage, const QString &style)
{
    stage.step("discovery-subnet-" + style, "The search is limited to one subnet", [&] {
        stage.visitDialog("Cameras", "Settings of the search...", "-all", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#subnet", "In one subnet");
            stage.clickInPage(page, "#address", "the address");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "10.0.0.999");
            stage.check(!PageHand::isEnabled(page, "#ok"), "no address: OK is off");
            stage.addPicture(page->window(), "-wrong");
            PageHand::press(page, Qt::Key_A, Qt::ControlModifier);
            PageHand::type(page, "10.0.0.0");
            stage.clickInPage(page, "#ok", "OK");
        });
        search(stage, "-found", [&](GUI_WebView *page) {
            stage.compare(QString::number(PageHand::count(page, ".camera")), "2",
                          "cameras of the subnet");
            stage.check(!PageHand::isShown(page, rowOf(Held)), "the others are not there");
            stage.clickInPage(page, "#close", "Close");
        });
    });
}

}

void Walks::discovery(TourStage &stage)
{
    const QString style =
        stage.host().settings().value(Keys::application.style, QVariant()).toString();
    tellsWhyCamerasCannotBeConnected(stage, style);
    mendsAnAddress(stage, style);
    connectsBothHeads(stage, style);
    cancelsASearch(stage, style);
    searchesInOneSubnet(stage, style);
}

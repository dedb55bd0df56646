#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "standin/documents/StandInCamera.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/device/DeviceWalks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/window/MainWindow.h"

#include <QFile>
#include <QMenuBar>
#include <QPointer>

namespace {

QString fieldOf(GUI_WebView *page, const QString &id)
{
    return PageHand::read(page, "document.getElementById('" + id + "').value").toString();
}

void visit(TourStage &stage, const QString &entry, const QString &picture,
           const std::function<void(GUI_WebView *)> &body)
{
    stage.visitDialog("Cameras", entry, picture, [&](GUI_WebView *page) {
        const QPointer<QWidget> dialog = page->window();
        body(page);
        stage.check(!dialog || !dialog->isVisible(), "the dialog has gone");
    });
}

void write(TourStage &stage, GUI_WebView *page, const QString &field, const QString &text)
{
    stage.clickInPage(page, field, "a field");
    stage.check(PageHand::press(page, Qt::Key_A, Qt::ControlModifier) && PageHand::type(page, text),
                text + " is typed");
}

void namesTheFile(TourStage &stage, const QString &style)
{
    stage.step("names-file-" + style, "The preferences name a file of camera names", [&] {
        const QString path = stage.folder() + "/names.csv";
        QFile file(path);
        stage.check(file.open(QIODevice::WriteOnly) &&
                        file.write("Crash hall,Left side,Right side,Roof\n"
                                   "Laboratory,Microscope,Left rig\n,Spare\n") > 0,
                    "there is a file of names");
        file.close();
        stage.visitDialog("Edit", "Preferences...", "-opened", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#tab-names", "Names");
            stage.clickInPage(page, "#completeNames", "the switch");
            write(stage, page, "#namesFile", path);
            stage.check(PageHand::press(page, Qt::Key_Tab), "the key Tab");
            stage.addPicture(page->window(), "-written");
            stage.clickInPage(page, "#close", "Close");
        });
        stage.check(stage.host().setting("usercustom/completeCameraNames").toBool(),
                    "names are completed");
        stage.compare(stage.host().setting("usercustom/cameraNameFilePath").toString(), path,
                      "the file");
    });
}

void addsADummy(TourStage &stage, const QString &style)
{
    const int before = stage.host().cameraCount();
    stage.step("dummy-" + style, "A dummy is added with a completed name", [&] {
        visit(stage, "Add a camera by address...", "-opened", [&](GUI_WebView *page) {
            write(stage, page, "#name", "Left:");
            stage.check(!PageHand::isEnabled(page, "#ok"), "a name with a colon is not taken");
            stage.compare(PageHand::text(page, "#state"),
                          "A name cannot hold this character: :", "the reason");
            stage.addPicture(page->window(), "-refused");
            write(stage, page, "#name", "left");
            stage.compare(QString::number(PageHand::count(page, "#nameList .name")), "2",
                          "names that are offered");
            stage.check(PageHand::press(page, Qt::Key_Down) && PageHand::press(page, Qt::Key_Down),
                        "the key Down, twice");
            stage.addPicture(page->window(), "-names");
            stage.check(PageHand::press(page, Qt::Key_Return), "the key Enter");
            stage.compare(fieldOf(page, "name"), "Left rig", "the name");
            stage.clickInPage(page, "#dummy", "Dummy");
            stage.compare(fieldOf(page, "address"), "999.999.999.1", "the address of a dummy");
            stage.addPicture(page->window(), "-dummy");
            stage.clickInPage(page, "#ok", "Add");
        });
        stage.compare(QString::number(stage.host().cameraCount()), QString::number(before + 1),
                      "cameras");
        const QList<StandInCamera *> cameras = stage.host().cameras();
        stage.check(!cameras.isEmpty() && cameras.last()->state().isDummy &&
                        cameras.last()->name() == "Left rig",
                    "the last one is the dummy");
    });
}

void editsACamera(TourStage &stage, const QString &style)
{
    stage.step("edit-device-" + style, "A camera gets another name and address", [&] {
        stage.chooseView(0);
        visit(stage, "Edit the camera...", "-opened", [&](GUI_WebView *page) {
            write(stage, page, "#mask", "255.0.255.0");
            stage.check(!PageHand::isEnabled(page, "#ok"), "a mask with a hole is not taken");
            stage.addPicture(page->window(), "-refused");
            write(stage, page, "#mask", "255.255.255.0");
            write(stage, page, "#name", "Sled");
            write(stage, page, "#address", "192.168.0.99");
            stage.addPicture(page->window(), "-typed");
            stage.clickInPage(page, "#ok", "OK");
        });
        const StandInCamera *camera = stage.host().cameras().value(0);
        stage.compare(camera ? camera->name() : QString(), "Sled", "the camera's name");
        stage.compare(camera ? camera->state().ipAddress : QString(), "192.168.0.99",
                      "its address");
        stage.check(TourHand::waitFor(
                        [&] { return stage.viewAt(0) && stage.viewAt(0)->title() == "Sled"; }),
                    "the title over its picture says so");
    });
}

}

void Walks::deviceEdit(TourStage &stage)
{
    const QString style =
        stage.host().settings().value(Keys::application.style, QVariant()).toString();
    namesTheFile(stage, style);
    addsADummy(stage, style);
    editsACamera(stage, style);
}

#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/device/DeviceWalks.h"
#include "workbench/window/MainWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>

namespace {

QString rateOf(TourStage &stage, int camera)
{
    return QString::number(stage.host().camera(DOCKEY(camera))->recordRate());
}

// Clicks a button behind which a file or a folder is chosen.
void choosePath(TourStage &stage, GUI_WebView *page, const QString &button, const QString &path)
{
    bool chosen = false;
    TourHand::answerDialogs(
        [&] { stage.clickInPage(page, button, "the button that asks for a path"); },
        {[&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, path); }});
    stage.check(chosen, "a path is chosen");
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

QString savesWithTime(TourStage &stage, const QString &style)
{
    const QString folder = stage.folder() + "/settings";
    stage.step(
        "camerasettings-save-" + style, "Settings of two cameras are saved with the time", [&] {
            QDir().mkpath(folder);
            stage.host().select(2, true);
            visit(stage, "Save settings...", "-opened", [&](GUI_WebView *page) {
                stage.check(!PageHand::isEnabled(page, "#ok"), "nothing is saved yet");
                stage.clickInPage(page, "#name", "the name");
                stage.check(PageHand::type(page, "run"), "a name is typed");
                stage.compare(PageHand::text(page, "#file"), "run.qcfg", "the name");
                stage.compare(PageHand::text(page, "#note"), "Choose a folder.", "what is missing");
                stage.check(!PageHand::isEnabled(page, "#ok"), "it needs a folder");
                choosePath(stage, page, "#chooseFolder", folder);
                stage.clickInPage(page, "#addTime", "the box that adds the time");
                stage.check(QRegularExpression("^run_\\d{8}_\\d{6}\\.qcfg$")
                                .match(PageHand::text(page, "#file"))
                                .hasMatch(),
                            "the name has the time");
                stage.addPicture(page->window(), "-named");
                stage.clickInPage(page, "#ok", "Save");
            });
            stage.check(TourHand::waitFor(
                            [&] { return QDir(folder).entryList({"run_*.qcfg"}).size() == 1; }),
                        "the file is there");
        });
    return folder + '/' + QDir(folder).entryList({"run_*.qcfg"}).value(0);
}

void loadsIntoChangedCameras(TourStage &stage, const QString &style, const QString &file)
{
    stage.step("camerasettings-load-" + style, "Changed cameras take the settings of the file",
               [&] {
                   const QStringList before{rateOf(stage, 1), rateOf(stage, 2)};
                   stage.chooseSetting("recordRate", "2000 fps");
                   stage.compare(rateOf(stage, 1), "2000", "the changed record rate");
                   stage.host().select(1, true);
                   stage.host().select(2, true);
                   visit(stage, "Load settings...", "-opened", [&](GUI_WebView *page) {
                       stage.check(!PageHand::isEnabled(page, "#ok"), "it needs a file");
                       choosePath(stage, page, "#chooseFile", file);
                       stage.addPicture(page->window(), "-chosen");
                       stage.clickInPage(page, "#ok", "Load");
                   });
                   stage.compare(rateOf(stage, 1), before.at(0), "the record rate of camera 1");
                   stage.compare(rateOf(stage, 2), before.at(1), "the record rate of camera 2");
               });
}

void appliesAPreset(TourStage &stage, const QString &style)
{
    stage.step("camerasettings-preset-" + style, "A preset is applied to one of two cameras", [&] {
        const QString other = rateOf(stage, 2);
        visit(stage, "Presets...", "-opened", [&](GUI_WebView *page) {
            stage.check(!PageHand::isEnabled(page, "#ok"), "None leaves the cameras as they are");
            stage.check(PageHand::press(page, Qt::Key_Down), "the key Down");
            stage.compare(PageHand::read(page, "document.activeElement.id").toString(), "preset1",
                          "the list that has the focus");
            stage.addPicture(page->window(), "-chosen");
            stage.clickInPage(page, "#ok", "Apply");
        });
        stage.compare(rateOf(stage, 1), "10000", "the record rate of camera 1");
        stage.compare(rateOf(stage, 2), other, "the record rate of camera 2");
    });
}

// The message comes from the dialog, which is still open.
void choosesWaitingPreset(TourStage &stage, QDialog *dialog)
{
    auto *check = dialog->findChild<QCheckBox *>("checkLoadCamera");
    auto *cameras = dialog->findChild<QWidget *>("cameras");
    if (!check || !cameras)
        return;
    check->setFocus(Qt::TabFocusReason);
    stage.check(TourHand::press(Qt::Key_Space, Qt::NoModifier, check),
                "the key Space on the box of the presets");
    const auto lists = cameras->findChildren<QComboBox *>();
    stage.check(!lists.isEmpty() && TourHand::choose(lists.first(), "3: Slow"),
                "a preset of camera 1");
    stage.addPicture(dialog, "-presets");
    TourHand::answerDialogs(
        [&] { TourHand::click(dialog->findChild<QPushButton *>("ok")); }, {[&](QDialog *message) {
            stage.addPicture(message, "-message");
            auto *box = qobject_cast<QMessageBox *>(message);
            stage.check(box && box->text().contains("Please restart the camera"),
                        "the message asks for a restart");
            if (box)
                TourHand::click(box->button(QMessageBox::Ok));
        }});
}

void restartsForAPreset(TourStage &stage, const QString &style)
{
    stage.step(
        "camerasettings-restart-" + style, "A preset waits until the camera is restarted", [&] {
            const QString before = rateOf(stage, 1);
            TourHand::answerDialogs(
                [&] {
                    stage.check(TourHand::chooseMenu(stage.window().menuBar(), "Cameras",
                                                     "Open camera file..."),
                                "Cameras, Open camera file...");
                },
                {[&](QDialog *dialog) {
                    stage.addPicture(dialog, "-files");
                    choosesWaitingPreset(stage, dialog);
                }});
            stage.compare(rateOf(stage, 1), before, "the record rate before the restart");
            stage.check(TourHand::chooseMenu(stage.window().menuBar(), "Cameras", "Restart camera"),
                        "Cameras, Restart camera");
            stage.compare(rateOf(stage, 1), "100", "the record rate behind the restart");
        });
}

}

void Walks::cameraSettings(TourStage &stage)
{
    const QString style =
        stage.host().settings().value(Keys::application.style, QVariant()).toString();
    const QString file = savesWithTime(stage, style);
    loadsIntoChangedCameras(stage, style, file);
    appliesAPreset(stage, style);
    restartsForAPreset(stage, style);
}

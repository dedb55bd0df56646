#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/record/RecordWalks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/window/MainWindow.h"

#include <QMessageBox>
#include <QPushButton>

namespace {

QString setting(const TourStage &stage, const QString &key)
{
    return stage.host().settings().value(key, QVariant()).toString();
}

// What the first picture looks like on the screen, with all that stands over it.
QImage firstView(const TourStage &stage)
{
    return stage.viewAt(0) ? stage.viewAt(0)->grab().toImage() : QImage();
}

// The views are drawn anew behind the page's script.
bool viewChanges(const TourStage &stage, const QImage &before)
{
    return TourHand::waitFor([&] { return firstView(stage) != before; });
}

QStringList ids(const QString &display)
{
    QStringList ids;
    for (const QString &entry : display.split(','))
        ids.append(entry.section(':', 0, 0));
    return ids;
}

QString previewOf(GUI_WebView *page)
{
    return PageHand::read(page, "document.getElementById('preview').src").toString();
}

// A picture is decoded, and painted, behind the script that brought it.
bool previewChanges(GUI_WebView *page, const QString &before)
{
    const bool changed = TourHand::waitFor([&] {
        return previewOf(page) != before &&
               PageHand::read(page, "document.getElementById('preview').complete").toBool();
    });
    TourHand::settle();
    return changed;
}

void ordersOverALiveView(TourStage &stage)
{
    const char *const above = "[id='item-Camera name']";
    const auto rateBehindName = [&stage] {
        const QStringList order = ids(setting(stage, Keys::info.display));
        return order.indexOf("FrameRate") - order.indexOf("Camera name");
    };
    stage.step("order", "What stands over a turned live picture is put in order", [&] {
        stage.chooseView(0);
        stage.check(TourHand::chooseMenu(stage.window().menuBar(), "Picture", "Turn right"),
                    "Picture, Turn right");
        stage.addPicture("-before");
        const auto body = [&](GUI_WebView *page) {
            QImage seen = firstView(stage);
            stage.check(PageHand::drag(page, "#item-FrameRate", above),
                        "the mouse takes the row Frame rate behind the row Camera name");
            stage.check(rateBehindName() == 1, "it is stored there");
            stage.compare(PageHand::text(page, "#place").section(": ", 1), "Frame rate",
                          "its place is told, of");
            stage.check(viewChanges(stage, seen), "the live picture shows it");
            stage.addPicture("-mouse");
            stage.addPicture(page, "-moved");

            seen = firstView(stage);
            stage.check(PageHand::press(page, Qt::Key_Up, Qt::AltModifier), "the keys Alt+Up");
            stage.check(rateBehindName() == -1, "it stands before the name");
            stage.compare(PageHand::read(page, "document.activeElement.id").toString(),
                          "item-FrameRate", "the focus is on");
            stage.check(viewChanges(stage, seen), "the live picture shows it");
            stage.addPicture("-keys");

            seen = firstView(stage);
            stage.check(PageHand::press(page, Qt::Key_Space), "the key Space");
            stage.check(setting(stage, Keys::info.display).contains("FrameRate:false,"),
                        "the item has no tick");
            stage.check(viewChanges(stage, seen), "it has gone from the live picture");
            stage.check(PageHand::press(page, Qt::Key_Space), "the key Space");
            stage.clickInPage(page, "#ok", "OK");
        };
        stage.visitDialog("Information", "Displayed information...", "-page", body);
        stage.check(rateBehindName() == -1, "behind the dialog the order is kept");
    });
}

void changesAndCancels(TourStage &stage)
{
    stage.step("font", "Another font is seen at once, and gone with Cancel", [&] {
        const QString display = setting(stage, Keys::info.display);
        stage.visitDialog(
            "Information", "Displayed information...", "-page", [&](GUI_WebView *page) {
                QImage seen = firstView(stage);
                stage.clickInPage(page, "#font", "Font");
                stage.clickInPage(page, "#bold", "Bold");
                stage.clickInPage(page, "#foreground-ffff00", "yellow");
                stage.check(viewChanges(stage, seen), "the live picture shows it");
                stage.addPicture("-yellow");
                stage.addPicture(page, "-panel");
                stage.clickInPage(page, "#fontOk", "OK of the font");
                stage.clickInPage(page, "#item-CameraState .label", "a tick");
                seen = firstView(stage);
                stage.clickInPage(page, "#cancel", "Cancel");
                stage.check(viewChanges(stage, seen), "the live picture is as before");
            });
        stage.compare(setting(stage, Keys::info.display), display, "the items");
        stage.compare(setting(stage, Keys::info.bold), "false", "bold");
        stage.compare(setting(stage, Keys::info.foregroundColor), "#ffffff", "the colour");
    });
}

void resetsWhenAsked(TourStage &stage)
{
    stage.step("reset", "A reset asks first", [&] {
        stage.visitDialog(
            "Information", "Displayed information...", "-page", [&](GUI_WebView *page) {
                const QString display = setting(stage, Keys::info.display);
                for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
                    const int questions = TourHand::answerDialogs(
                        [&] { stage.clickInPage(page, "#reset", "Reset"); }, {[&](QDialog *dialog) {
                            auto *box = qobject_cast<QMessageBox *>(dialog);
                            stage.check(box && TourHand::click(box->button(button)),
                                        button == QMessageBox::No ? "No" : "Yes");
                        }});
                    stage.compare(QString::number(questions), "1", "questions");
                    stage.check((setting(stage, Keys::info.display) == display) ==
                                    (button == QMessageBox::No),
                                button == QMessageBox::No ? "nothing has changed"
                                                          : "the items are as at first");
                }
                stage.compare(PageHand::read(page, "list.children[0].id").toString(),
                              "item-SyncSignalState", "the first row");
                stage.clickInPage(page, "#ok", "OK");
            });
    });
}

void previewsWhatIsSaved(TourStage &stage)
{
    stage.step("saved", "What is written into saved pictures is seen before", [&] {
        stage.visitDialog(
            "Information", "Information in saved recordings...", "-page", [&](GUI_WebView *page) {
                stage.check(
                    TourHand::waitFor([page] { return PageHand::isShown(page, "#preview"); }),
                    "there is a preview");
                stage.compare(PageHand::text(page, "#resolution"), "Resolution : 640 x 480",
                              "the resolution");
                QString seen = previewOf(page);
                stage.clickInPage(page, "#group-1", "Top left");
                stage.check(PageHand::press(page, Qt::Key_Right), "the key Right");
                stage.check(PageHand::press(page, Qt::Key_Left), "the key Left");
                stage.compare(
                    PageHand::read(page,
                                   "document.querySelector('[role=tab][aria-selected=true]').id")
                        .toString(),
                    "group-1", "the chosen tab");
                for (const char *row : {"#item-FrameRate", "#item-Resolution"}) {
                    const bool ticked =
                        PageHand::count(page, QString(row) + "[aria-checked=true]") == 1;
                    if (!ticked)
                        stage.clickInPage(page, QString(row) + " .label", row);
                }
                stage.check(previewChanges(page, seen), "the preview follows the ticks");
                stage.addPicture(page, "-ticks");

                seen = previewOf(page);
                stage.clickInPage(page, "#font", "Font");
                stage.clickInPage(page, "#bold", "Bold");
                stage.clickInPage(page, "#useBackground", "Coloured background");
                stage.check(previewChanges(page, seen), "the preview follows the font");
                stage.addPicture(page, "-font");
                stage.clickInPage(page, "#fontOk", "OK of the font");

                seen = previewOf(page);
                stage.clickInPage(page, "#withinImage", "Write it into the picture");
                stage.check(previewChanges(page, seen), "the preview shows it beside the picture");
                stage.addPicture(page, "-beside");
                stage.clickInPage(page, "#cancel", "Cancel");
            });
        stage.compare(setting(stage, Keys::saveInfo.bold + "1"), "false", "bold, behind it");
        stage.compare(setting(stage, Keys::saveInfo.withinImage), "true",
                      "written into the picture, behind it");
    });
}

}

void Walks::editInfo(TourStage &stage)
{
    ordersOverALiveView(stage);
    changesAndCancels(stage);
    resetsWhenAsked(stage);
    previewsWhatIsSaved(stage);
}

#include "bridge/page/GUI_WebView.h"
#include "contract/HostTypes.h"
#include "foundation/Keys.h"
#include "standin/documents/DocumentOverlay.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/record/RecordWalks.h"
#include "workbench/window/MainWindow.h"

#include <QSlider>

namespace {

QString valueOf(GUI_WebView *page, const char *id)
{
    return PageHand::read(page, QStringLiteral("document.getElementById('%1').value").arg(id))
        .toString();
}

// In place of what the field holds; it is left by Tab.
void typeInto(TourStage &stage, GUI_WebView *page, const char *id, const char *text)
{
    stage.clickInPage(page, QLatin1Char('#') + QLatin1String(id), id);
    stage.check(PageHand::press(page, Qt::Key_A, Qt::ControlModifier) &&
                    PageHand::type(page, text) && PageHand::press(page, Qt::Key_Tab),
                QStringLiteral("%1 typed into it").arg(text));
}

// The reset unit follows its field; the arrows choose its unit.
void setsTheTimeCode(TourStage &stage)
{
    stage.step("time-code", "The sample follows the settings of the time code", [&] {
        stage.visitDialog("Information", "Time code...", "-time", [&](GUI_WebView *page) {
            const auto sample = [page] { return PageHand::text(page, "#sample"); };
            stage.compare(sample(), "+00:00:00.002", "two milliseconds");
            stage.clickInPage(page, "#scale", "Custom scale");
            stage.compare(sample(), "+000.0000 deg", "a frame of the scale");
            typeInto(stage, page, "oneFrame", "0.5");
            typeInto(stage, page, "unit", "CA");
            stage.compare(sample(), "+000.5000 CA", "a frame of the scale");
            stage.clickInPage(page, "#reset", "Restarts at");
            typeInto(stage, page, "resetValue", "8");
            stage.check(PageHand::press(page, Qt::Key_Down), "the key Down on the unit");
            stage.compare(valueOf(page, "resetUnit"), "1", "the unit is the value");
            stage.compare(valueOf(page, "resetValue"), "4.0000", "eight frames");
            typeInto(stage, page, "resetValue", "4.2");
            stage.compare(valueOf(page, "resetValue"), "4.5000", "the next frame");
            stage.addPicture(page, "-snapped");
            stage.check(PageHand::press(page, Qt::Key_Up), "the key Up on the unit");
            stage.compare(valueOf(page, "resetValue"), "9", "as frames");
            stage.addPicture(page, "-scale");
            stage.clickInPage(page, "#ok", "OK");
        });
        TimeCodeRecord record;
        stage.host().getTimeCodeSetting(record);
        stage.check(record.timeCodeIndex == 1 && record.oneFrame == 0.5 && record.reset &&
                        record.resetValue == 4.5 && record.displayUnit == "CA",
                    "the settings are stored");
    });
}

// What stands over the current picture, which is drawn for it.
QString timeCodeSeen(TourStage &stage)
{
    stage.window().grab();
    return stage.host().cameras().at(1)->overlay().shownTexts().filter("Current Time: ").join('|');
}

void seesTheTimeCodeInFrames(TourStage &stage)
{
    stage.step("time-code-frames", "The time code counts over the pictures, and restarts", [&] {
        stage.pressAction("modeMemory");
        stage.compare(timeCodeSeen(stage), "Current Time: +000.0000 CA", "over the first frame");
        stage.window().findChild<QSlider *>("frame")->setFocus();
        stage.check(TourHand::press(Qt::Key_Right), "the key Right on the slider");
        stage.compare(timeCodeSeen(stage), "Current Time: +000.5000 CA", "over the second frame");
        stage.addPicture("-second");
        stage.check(TourHand::press(Qt::Key_PageUp), "the key PgUp on the slider");
        stage.compare(timeCodeSeen(stage), "Current Time: +001.0000 CA",
                      "two frames behind the ninth, where it restarts");
    });
}

QStringList comments(TourStage &stage)
{
    QStringList texts;
    for (const StandInCamera *camera : stage.host().cameras())
        texts.append(camera->state().comment);
    return texts;
}

void commentsTwoDocuments(TourStage &stage)
{
    stage.step("comments", "One editor writes the comments of two cameras", [&] {
        stage.host().cameras().last()->state().comment = "Cold start";
        stage.clickInPage(stage.window().statusPanel()->view(), "#selectAll", "Select all");
        stage.visitDialog("Information", "Comments...", "-one", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#row-1", "the first camera");
            stage.check(PageHand::press(page, Qt::Key_Down, Qt::ShiftModifier),
                        "the keys Shift+Down");
            stage.compare(PageHand::text(page, "#note"), "One comment for 2 documents", "the note");
            stage.clickInPage(page, "#comment", "the editor");
            stage.check(PageHand::type(page, "Run 7") && PageHand::press(page, Qt::Key_Return) &&
                            PageHand::type(page, "warm"),
                        "two lines typed");
            stage.addPicture(page, "-two");
            stage.compare(comments(stage).join('|'), "||Cold start", "before OK");
            stage.clickInPage(page, "#ok", "OK");
        });
        stage.compare(comments(stage).join('|'), "Run 7\nwarm|Run 7\nwarm|Cold start", "behind OK");
    });
    stage.step("mixed", "Comments that differ are marked, and stay", [&] {
        stage.visitDialog("Information", "Comments...", "-one", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#row-1", "the first camera");
            stage.compare(valueOf(page, "comment"), "Run 7\nwarm", "its comment");
            stage.check(PageHand::press(page, Qt::Key_A, Qt::ControlModifier), "the keys Ctrl+A");
            stage.compare(PageHand::text(page, "#note"), "3 documents, mixed comments", "the note");
            stage.check(PageHand::count(page, "#comment.mixed") == 1, "the editor is marked");
            stage.compare(valueOf(page, "comment"), QString(), "it is empty");
            stage.addPicture(page, "-mixed");
            stage.clickInPage(page, "#ok", "OK");
        });
        stage.compare(comments(stage).join('|'), "Run 7\nwarm|Run 7\nwarm|Cold start",
                      "nothing is overwritten");
    });
}

/// A dialog that sets how a value is written, and what a key on its first control does.
struct Format
{
    const char *entry;
    int key;
    const char *picture;
    QString setting;
    const char *before;
    const char *after;
};

// The first control has the focus.
void choosesFormats(TourStage &stage)
{
    const Format formats[] = {
        {"Shutter speed...", Qt::Key_Down, "-shutter", Keys::display.shutterSpeed, "1/1000 sec",
         "1 msec"},
        {"Record rate...", Qt::Key_Space, "-rate", Keys::display.recordRateInsertDelimiter,
         "12500 fps", "12,500 fps"},
        {"Frame number...", Qt::Key_Space, "-frame", Keys::display.frameInsertDelimiter, "1234567",
         "1,234,567"},
        {"Recording time...", Qt::Key_Down, "-rectime", Keys::info.recTimeUnit, "3725.25 sec",
         "3725250 msec"},
    };
    stage.step("formats", "An example follows each format, and Cancel takes it back", [&] {
        for (const Format &format : formats) {
            const auto stored = [&] {
                return stage.host().settings().value(format.setting, QVariant()).toInt();
            };
            for (const char *end : {"cancel", "ok"}) {
                const bool isOk = qstrcmp(end, "ok") == 0;
                const QString picture = format.picture + QString(isOk ? "-again" : "");
                stage.visitDialog("Information", format.entry, picture, [&](GUI_WebView *page) {
                    stage.compare(PageHand::text(page, "#example"), format.before, "the example");
                    stage.check(PageHand::press(page, format.key), "a key on the control");
                    stage.compare(PageHand::text(page, "#example"), format.after, "it follows");
                    stage.check(stored() == 1, "the setting is stored at once");
                    if (isOk)
                        stage.addPicture(page, QString(format.picture) + "-chosen");
                    stage.clickInPage(page, QLatin1Char('#') + QLatin1String(end), end);
                });
                stage.check(stored() == (isOk ? 1 : 0),
                            QStringLiteral("the setting behind ") + end);
            }
        }
    });
}

}

void Walks::information(TourStage &stage)
{
    setsTheTimeCode(stage);
    seesTheTimeCodeInFrames(stage);
    commentsTwoDocuments(stage);
    choosesFormats(stage);
}

#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/record/RecordWalks.h"
#include "workbench/window/MainWindow.h"

#include <QDialog>
#include <QDir>
#include <QFile>

namespace {

constexpr int Existing = 6;

QString base(TourStage &stage)
{
    return stage.folder() + "/save/";
}

void set(TourStage &stage, const QString &key, const QVariant &value)
{
    stage.host().settings().setValue(key, value);
}

// Digits of the session alone, or with a camera's.
void setDigits(TourStage &stage, const QString &level, int camera, int session)
{
    set(stage, level + "addnumberformat", "");
    set(stage, level + "addnumbercameranodigits", camera);
    set(stage, level + "addnumberheadnodigits", 0);
    set(stage, level + "addnumbersessionnodigits", session);
}

void prepare(TourStage &stage)
{
    QDir().mkpath(base(stage));
    for (int i = 1; i <= Existing; ++i) {
        QFile file(base(stage) + QStringLiteral("Shot_S000%1.avi").arg(i));
        stage.check(file.open(QIODevice::WriteOnly), "an empty file");
    }
    for (StandInCamera *camera : stage.host().cameras())
        camera->state().partitions = {{1, QStringLiteral("Impact"), 200, 1000},
                                      {2, QStringLiteral("Rebound"), 120, 1000}};
    set(stage, "export/dir", base(stage));
    set(stage, "export/filename", "");
    set(stage, "export/filenameaddnumber", true);
    setDigits(stage, "export/filename", 0, 4);
    setDigits(stage, "export/groupdir", 1, 2);
    stage.pressAction("modeMemory");
}

// Below the folder, as it stands on the page.
QString pathOf(GUI_WebView *page)
{
    return PageHand::read(page,
                          "Array.from(document.querySelectorAll('#path .piece, #path .joint'))"
                          ".filter(function (each) {"
                          "    return !each.classList.contains('base');"
                          "}).map(function (each) { return each.textContent; }).join('')")
        .toString();
}

void comparePath(TourStage &stage, GUI_WebView *page, const QString &path)
{
    TourHand::waitFor([&] { return pathOf(page) == path; });
    stage.compare(pathOf(page), path, "the path");
}

void write(TourStage &stage, GUI_WebView *page, const QString &id, const QString &text)
{
    stage.clickInPage(page, '#' + id, id);
    stage.check(PageHand::press(page, Qt::Key_A, Qt::ControlModifier) && PageHand::type(page, text),
                text.left(20) + " typed into it");
}

// The page of a dialog that an element opens over the page.
void visitOver(TourStage &stage, GUI_WebView *page, const QString &selector, const QString &picture,
               const std::function<void(GUI_WebView *)> &body)
{
    int visits = 0;
    TourHand::answerDialogs([&] { stage.clickInPage(page, selector, "the button of a dialog"); },
                            {[&](QDialog *dialog) {
                                auto *over = dialog->findChild<GUI_WebView *>();
                                if (!over ||
                                    !TourHand::waitFor([over] { return PageHand::isDrawn(over); }))
                                    return;
                                ++visits;
                                TourHand::settle();
                                stage.addPicture(dialog, picture);
                                body(over);
                            }});
    stage.check(visits == 1, "the dialog with its page");
}

void growsAPath(TourStage &stage)
{
    stage.step("path", "The path grows while it is typed, and its number moves on", [&] {
        stage.visitDialog("Save", "Recordings...", "-start", [&](GUI_WebView *page) {
            write(stage, page, "fileName", "Run");
            comparePath(stage, page, "Run_S0001");
            stage.addPicture(page, "-typed");
            write(stage, page, "fileName", "Shot");
            comparePath(stage, page, "Shot_S0007");
            stage.check(PageHand::text(page, "#reasons").contains("0007: 0001 to 0006 exist"),
                        "it says why");
            stage.addPicture(page, "-collision");
            stage.clickInPage(page, "#fileTime", "Time");
            write(stage, page, "fileTimeFormat", "HH:mm");
            TourHand::waitFor([&] { return PageHand::isShown(page, "#warnings"); });
            stage.check(PageHand::text(page, "#warnings").contains("the time brings :"),
                        "a colon in a name is told");
            stage.addPicture(page, "-warning");
            stage.clickInPage(page, "#fileTime", "Time");
            stage.clickInPage(page, "#cancel", "Cancel");
        });
    });
}

void sharesAGroup(TourStage &stage)
{
    stage.step("group", "Two cameras share the group directory of the first", [&] {
        stage.visitDialog("Save", "Recordings...", "-before", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#groupUse", "Group directory");
            write(stage, page, "groupName", "Crash");
            stage.clickInPage(page, "#groupNumber", "Number");
            stage.clickInPage(page, "#target-1-1", "the first camera");
            comparePath(stage, page, "Crash_C1S01/Shot_S0001");
            stage.check(PageHand::press(page, Qt::Key_Down, Qt::ShiftModifier) &&
                            PageHand::press(page, Qt::Key_Down, Qt::ShiftModifier),
                        "the keys Shift+Down twice");
            comparePath(stage, page, "Crash_C1S01/Shot_S0003");
            stage.check(PageHand::text(page, "#reasons").contains("The first target gives all"),
                        "it says why");
            stage.addPicture(page, "-second");
            stage.clickInPage(page, "#previousTarget", "Previous target");
            comparePath(stage, page, "Crash_C1S01/Shot_S0002");
            stage.clickInPage(page, "#groupUse", "Group directory");
            stage.clickInPage(page, "#cancel", "Cancel");
        });
    });
}

void refusesWhatIsTooLong(TourStage &stage)
{
    stage.step("limit", "A path above 245 characters is refused with the reason", [&] {
        stage.visitDialog("Save", "Recordings...", "-before", [&](GUI_WebView *page) {
            const QString name(246 - base(stage).size() - 6, 'x');
            write(stage, page, "fileName", name);
            comparePath(stage, page, name + "_S0001");
            stage.compare(PageHand::text(page, "#refusal"),
                          "The path has 246 characters. 245 are the most that a save takes.",
                          "the reason");
            stage.check(!PageHand::isEnabled(page, "#save"), "Save is disabled");
            stage.addPicture(page, "-refused");
            write(stage, page, "fileName", "a/b");
            stage.compare(PageHand::text(page, "#fileNameReason"), "A name cannot hold /",
                          "the reason beside the field");
            stage.addPicture(page, "-forbidden");
            write(stage, page, "fileName", "Shot");
            comparePath(stage, page, "Shot_S0007");
            stage.clickInPage(page, "#cancel", "Cancel");
        });
    });
}

void fillsDestinations(TourStage &stage)
{
    stage.step("destinations", "The table of destinations is filled by keys", [&] {
        stage.visitDialog("Save", "Recordings...", "-before", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#useDestinations", "Each device to a destination");
            stage.clickInPage(page, "#editDestinations", "Destinations");
            stage.addPicture(page, "-empty");
            stage.check(PageHand::press(page, Qt::Key_Return) && PageHand::type(page, "Fast") &&
                            PageHand::press(page, Qt::Key_Tab) &&
                            PageHand::type(page, base(stage) + "fast") &&
                            PageHand::press(page, Qt::Key_Return) &&
                            PageHand::type(page, "Large") && PageHand::press(page, Qt::Key_Tab) &&
                            PageHand::type(page, base(stage) + "large") &&
                            PageHand::press(page, Qt::Key_Tab),
                        "two destinations typed");
            stage.addPicture(page, "-filled");
            stage.clickInPage(page, "#closeDestinations", "Close");
            stage.compare(
                stage.host().settings().value("export/multipathlist", QVariant()).toString(),
                "Fast|" + base(stage) + "fast?Large|" + base(stage) + "large", "they are stored");
            stage.clickInPage(page, "#useDestinations", "Each device to a destination");
            stage.clickInPage(page, "#cancel", "Cancel");
        });
    });
}

void setsDigits(TourStage &stage)
{
    stage.step("digits", "The digits of the number are set in a dialog of their own", [&] {
        stage.visitDialog("Save", "Recordings...", "-before", [&](GUI_WebView *page) {
            visitOver(stage, page, "#fileDigits", "-dialog",
                      [](GUI_WebView *over) { PageHand::press(over, Qt::Key_Escape); });
            stage.clickInPage(page, "#cancel", "Cancel");
        });
    });
}

void editsTheConversion(TourStage &stage)
{
    stage.step("conversion", "What follows an automatic conversion has a page too", [&] {
        set(stage, "convert/dir", base(stage));
        set(stage, "convert/filename", "Converted");
        set(stage, "convert/filenameaddnumber", false);
        stage.visitDialog("Save", "Recordings...", "-before", [&](GUI_WebView *page) {
            visitOver(stage, page, "#convert", "-dialog", [&](GUI_WebView *over) {
                comparePath(stage, over, "Converted");
                stage.clickInPage(over, "#subUse", "Sub directory");
                write(stage, over, "subName", "Movies");
                comparePath(stage, over, "Movies/Converted");
                stage.addPicture(over, "-typed");
                stage.clickInPage(over, "#save", "OK");
            });
            stage.clickInPage(page, "#cancel", "Cancel");
        });
    });
}

}

void Walks::save(TourStage &stage)
{
    prepare(stage);
    growsAPath(stage);
    sharesAGroup(stage);
    refusesWhatIsTooLong(stage);
    fillsDestinations(stage);
    setsDigits(stage);
    editsTheConversion(stage);
}

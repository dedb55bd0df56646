#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/record/RecordWalks.h"

#include <QDialog>
#include <QFile>
#include <QPointer>

namespace {

constexpr int Cameras = 3;

QVariantMap record(const QString &name, const QString &value, const QString &unit)
{
    return {
        {"name", name}, {"value", value}, {"unit", unit}, {"display", "on"}, {"usefilename", "on"}};
}

// A number that all share, a speed that differs, a distance that only the first has.
void furnish(TourStage &stage)
{
    for (int i = 1; i <= Cameras; ++i) {
        stage.host().camera(DOCKEY(i))->state().customInfo = {
            record("TestNo", "12", ""), record("Speed", QString::number(10 * i), "m/s")};
        stage.host().select(DOCKEY(i), true);
    }
    stage.host().camera(1)->state().customInfo.append(record("Distance", "250", "mm"));
}

/// "TestNo=12, Speed=10 m/s".
QString recordsOf(TourStage &stage, int camera)
{
    QStringList texts;
    for (const QVariant &each : stage.host().camera(DOCKEY(camera))->state().customInfo) {
        const QVariantMap map = each.toMap();
        texts.append(
            QStringLiteral("%1=%2 %3")
                .arg(map["name"].toString(), map["value"].toString(), map["unit"].toString())
                .trimmed());
    }
    return texts.join(QLatin1String(", "));
}

void compareRecords(TourStage &stage, const QStringList &expected)
{
    for (int i = 1; i <= Cameras; ++i)
        stage.compare(recordsOf(stage, i), expected.at(i - 1),
                      QStringLiteral("the items of camera %1").arg(i));
}

void selectAll(TourStage &stage, GUI_WebView *page)
{
    stage.clickInPage(page, "#document1", "the first document");
    stage.check(PageHand::press(page, Qt::Key_A, Qt::ControlModifier), "the keys Ctrl+A");
    stage.compare(QString::number(PageHand::count(page, ".document[aria-selected=true]")), "3",
                  "selected documents");
}

void write(TourStage &stage, GUI_WebView *page, const QString &cell, const QString &text)
{
    stage.clickInPage(page, cell, "a cell");
    stage.check(PageHand::type(page, text) && PageHand::press(page, Qt::Key_Return),
                text + " is written");
}

void visit(TourStage &stage, const QString &picture, const std::function<void(GUI_WebView *)> &body)
{
    stage.visitDialog("Information", "Custom information...", picture, [&](GUI_WebView *page) {
        const QPointer<QWidget> dialog = page->window();
        body(page);
        stage.check(!dialog || !dialog->isVisible(), "the dialog has gone");
    });
}

// Clicks a button behind which a file is chosen.
void chooseFile(TourStage &stage, GUI_WebView *page, const QString &button, const QString &path)
{
    bool chosen = false;
    TourHand::answerDialogs(
        [&] { stage.clickInPage(page, button, "the button that asks for a file"); },
        {[&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, path); }});
    stage.check(chosen, "a file is chosen");
}

void load(TourStage &stage, GUI_WebView *page, const QString &path)
{
    stage.clickInPage(page, "#load", "Load");
    stage.check(PageHand::isShown(page, "#question"), "it asks before items are replaced");
    chooseFile(stage, page, "#yes", path);
}

void editsMixedValues(TourStage &stage, const QString &style)
{
    stage.step("custominfo-edit-" + style, "A value that differs is written to three cameras", [&] {
        furnish(stage);
        visit(stage, "-opened", [&](GUI_WebView *page) {
            selectAll(stage, page);
            stage.compare(PageHand::text(page, "#valueCell1"), "mixed", "the speed");
            stage.compare(PageHand::text(page, "#valueCell0"), "12", "the number");
            stage.addPicture(page->window(), "-mixed");
            write(stage, page, "#valueCell1", "42");
            stage.clickInPage(page, "#newName", "the name of a new item");
            stage.check(PageHand::type(page, "Speed") && PageHand::press(page, Qt::Key_Return),
                        "a name that is taken");
            stage.check(PageHand::isShown(page, "#addReason"), "it is refused with its reason");
            stage.addPicture(page->window(), "-refused");
            stage.check(PageHand::press(page, Qt::Key_Escape), "the key Esc");
            stage.clickInPage(page, "#ok", "OK");
        });
        compareRecords(stage, {"TestNo=12, Speed=42 m/s, Distance=250 mm",
                               "TestNo=12, Speed=42 m/s", "TestNo=12, Speed=42 m/s"});
    });
}

void cancelsAJobFile(TourStage &stage, const QString &style)
{
    stage.step("custominfo-job-" + style, "A job file is loaded, and cancelled", [&] {
        furnish(stage);
        const QString path = stage.folder() + "/job.xml";
        QFile file(path);
        stage.check(file.open(QIODevice::WriteOnly) &&
                        file.write("<job><Sf_TestCode>A-77</Sf_TestCode>"
                                   "<Angle unit=\"deg\">30</Angle>"
                                   "<Cm_Comment>From the job</Cm_Comment></job>") > 0,
                    "there is a job file");
        file.close();
        visit(stage, "-opened", [&](GUI_WebView *page) {
            selectAll(stage, page);
            load(stage, page, path);
            const QString loaded = "TestNo=A-77, Angle=30 deg";
            compareRecords(stage, {loaded, loaded, loaded});
            stage.compare(PageHand::text(page, "#valueCell0"), "A-77", "the number");
            stage.addPicture(page->window(), "-loaded");
            stage.clickInPage(page, "#cancel", "Cancel");
        });
        compareRecords(stage, {"TestNo=12, Speed=10 m/s, Distance=250 mm",
                               "TestNo=12, Speed=20 m/s", "TestNo=12, Speed=30 m/s"});
        stage.compare(stage.host().camera(3)->state().comment, "From the job",
                      "the comment, which stays");
    });
}

void savesAndLoadsAgain(TourStage &stage, const QString &style)
{
    stage.step("custominfo-save-" + style, "Items are saved and loaded again", [&] {
        furnish(stage);
        const QString path = stage.folder() + "/items.xml";
        visit(stage, "-opened", [&](GUI_WebView *page) {
            stage.clickInPage(page, "#document1", "the first document");
            chooseFile(stage, page, "#save", path);
            write(stage, page, "#valueCell2", "7");
            stage.clickInPage(page, "#ok", "OK");
        });
        stage.compare(recordsOf(stage, 1), "TestNo=12, Speed=10 m/s, Distance=7 mm",
                      "the items of camera 1");
        visit(stage, "-again", [&](GUI_WebView *page) {
            selectAll(stage, page);
            load(stage, page, path);
            stage.addPicture(page->window(), "-loaded");
            stage.clickInPage(page, "#ok", "OK");
        });
        const QString saved = "TestNo=12, Speed=10 m/s, Distance=250 mm";
        compareRecords(stage, {saved, saved, saved});
    });
}

}

void Walks::customInfo(TourStage &stage)
{
    const QString style =
        stage.host().settings().value(Keys::application.style, QVariant()).toString();
    editsMixedValues(stage, style);
    cancelsAJobFile(stage, style);
    savesAndLoadsAgain(stage, style);
}

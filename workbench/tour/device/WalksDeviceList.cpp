#include "bridge/page/GUI_WebView.h"
#include "workbench/app/Workbench.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/device/DeviceWalks.h"
#include "workbench/window/MainWindow.h"

#include <QAbstractButton>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

namespace {

const QString HeadsQuestion =
    QStringLiteral("Heads connected to the same device are also removed from the list. Is it OK?");

QString selected(TourStage &stage)
{
    QStringList keys;
    for (const DOCKEY key : stage.host().selection())
        keys.append(QString::number(key));
    return keys.join(QStringLiteral(", "));
}

void clickRow(TourStage &stage, GUI_WebView *page, const QString &id,
              Qt::KeyboardModifiers modifiers)
{
    PageHand::read(page, "document.getElementById('" + id + "').scrollIntoView()");
    const QString box = "document.getElementById('" + id + "').getBoundingClientRect()";
    const QPoint place(PageHand::read(page, box + ".left + 12").toInt(),
                       PageHand::read(page, box + ".top + 8").toInt());
    stage.check(PageHand::isShown(page, "#" + id) && page->rect().contains(place), "the row " + id);
    QTest::mouseClick(page, Qt::LeftButton, modifiers, place);
    TourHand::settle();
}

// Clicks what asks, looks at the question and answers it.
void answer(TourStage &stage, GUI_WebView *page, const QString &selector, const QString &question,
            QMessageBox::StandardButton button)
{
    const int asked = TourHand::answerDialogs(
        [&] { stage.clickInPage(page, selector, selector); }, {[&](QDialog *dialog) {
            auto *box = qobject_cast<QMessageBox *>(dialog);
            stage.compare(box ? box->text() : QString(), question, "the question");
            stage.addPicture(dialog, button == QMessageBox::Yes ? "-yes" : "-no");
            stage.check(box && TourHand::click(box->button(button)), "its answer");
        }});
    stage.compare(QString::number(asked), "1", "questions");
}

void selectsSeveral(TourStage &stage)
{
    stage.step("several", "Ctrl and Shift select several cameras in the list of devices", [&] {
        GUI_WebView *list = stage.window().devicePanel()->view();
        clickRow(stage, list, "device-1", Qt::NoModifier);
        clickRow(stage, list, "device-3", Qt::ControlModifier);
        stage.compare(selected(stage), "1, 3", "the selection");
        clickRow(stage, list, "device-1", Qt::NoModifier);
        clickRow(stage, list, "device-3", Qt::ShiftModifier);
        stage.compare(selected(stage), "1, 2, 3", "the selection");
        stage.check(TourHand::waitFor([&] { return PageHand::count(list, ".ui-selected") == 3; }),
                    "their rows are marked");
        stage.clickInPage(list, "#selectNone", "None");
        stage.compare(selected(stage), QString(), "the selection");
    });
}

void removesAHead(TourStage &stage)
{
    stage.step(
        "head", "A head is removed with the others of its device, when the user agrees", [&] {
            GUI_WebView *list = stage.window().devicePanel()->view();
            StandInCamera::Description device;
            device.name = QStringLiteral("Twin");
            device.cameraNumber = 40;
            device.headCount = 2;
            for (device.headNumber = 1; device.headNumber <= device.headCount; ++device.headNumber)
                stage.host().addCamera(device);
            stage.check(TourHand::waitFor([&] { return PageHand::count(list, ".device") == 5; }),
                        "five rows");
            stage.check(PageHand::isShown(list, "#device-4 .isMultiHead"),
                        "the mark of several heads");
            clickRow(stage, list, "device-4", Qt::NoModifier);
            answer(stage, list, "#remove", HeadsQuestion, QMessageBox::No);
            stage.compare(QString::number(stage.host().cameras().size()), "5", "cameras");
            answer(stage, list, "#remove", HeadsQuestion, QMessageBox::Yes);
            stage.compare(QString::number(stage.host().cameras().size()), "3", "cameras");
            stage.check(TourHand::waitFor([&] { return PageHand::count(list, ".device") == 3; }),
                        "three rows");
        });
}

void selectsAGroup(TourStage &stage)
{
    stage.step("group", "A group is selected together, and the selection is undone", [&] {
        GUI_WebView *list = stage.window().devicePanel()->view();
        clickRow(stage, list, "device-2", Qt::NoModifier);
        clickRow(stage, list, "device-3", Qt::ControlModifier);
        stage.check(
            TourHand::chooseMenu(stage.window().menuBar(), "Cameras", "Group selected cameras"),
            "the entry Group selected cameras");
        clickRow(stage, list, "device-1", Qt::NoModifier);
        stage.compare(selected(stage), "1", "the selection");

        stage.raisePanel("Selection");
        GUI_WebView *control = stage.window().controlPanel()->view();
        clickRow(stage, control, "control-2", Qt::NoModifier);
        stage.compare(selected(stage), "2, 3", "the selection");
        stage.check(TourHand::waitFor([&] {
                        return PageHand::count(control, "[aria-selected=true]") == 2 &&
                               PageHand::isEnabled(control, "#undo");
                    }),
                    "both rows are marked");
        stage.addPicture("-selected");
        stage.clickInPage(control, "#undo", "Undo");
        stage.compare(selected(stage), "1", "the selection");
        stage.check(TourHand::waitFor([&] { return PageHand::isEnabled(control, "#redo"); }),
                    "Redo is on");
    });
}

void switchesTheInformation(TourStage &stage)
{
    stage.step("information", "The page of the selection switches the information in all views",
               [&] {
                   GUI_WebView *control = stage.window().controlPanel()->view();
                   const bool before = stage.host().isInfoShowing();
                   stage.clickInPage(control, "#showInfo", "Information over the pictures");
                   stage.check(stage.host().isInfoShowing() != before, "it has changed");
                   stage.addPicture("-other");
                   stage.clickInPage(control, "#showInfo", "it again");
                   stage.check(stage.host().isInfoShowing() == before, "it is as before");
                   stage.raisePanel("Devices");
               });
}

}

void Walks::deviceList(TourStage &stage)
{
    selectsSeveral(stage);
    removesAHead(stage);
    selectsAGroup(stage);
    switchesTheInformation(stage);
}

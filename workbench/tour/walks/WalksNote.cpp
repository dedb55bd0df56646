#include "bridge/page/GUI_WebView.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/NoteHand.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/window/MainWindow.h"

#include <QAction>
#include <QMenuBar>

namespace {

void typeNote(TourStage &stage, const QString &text)
{
    NoteHand::activate(stage);
    stage.clickInPage(NoteHand::page(stage), "#text", "the text box");
    stage.check(PageHand::type(NoteHand::page(stage), text), "typed: " + text);
    stage.check(stage.host().state().textBoxFocus, "the host knows that the user types");
}

void chooseNote(TourStage &stage, int index, const QString &note)
{
    stage.window().activateWindow();
    stage.chooseView(index);
    const QString name = stage.viewAt(index) ? stage.viewAt(index)->title() : QString();
    stage.check(
        TourHand::waitFor([&] { return PageHand::text(NoteHand::page(stage), "#name") == name; }),
        "the dialog says " + name);
    stage.compare(PageHand::read(NoteHand::page(stage), "text.value").toString(), note, "its note");
}

void writesNotes(TourStage &stage)
{
    stage.step(
        "note", "A dialog of a tool stays beside the window and keeps a note per camera", [&] {
            stage.chooseView(0);
            if (!NoteHand::open(stage))
                return;
            stage.check(stage.toolAction("t_note")->isChecked(), "the button is down");
            typeNote(stage, "Lens cleaned, f/4.");
            stage.check(TourHand::press(Qt::Key_2, Qt::ControlModifier), "the keys Ctrl+2");
            stage.check(stage.host().mode() == StandInHost::Mode::Live,
                        "they do nothing while the user types");
            NoteHand::addPicture(stage, "-first");

            chooseNote(stage, 1, QString());
            typeNote(stage, "Light from the left.");
            chooseNote(stage, 0, "Lens cleaned, f/4.");
            chooseNote(stage, 1, "Light from the left.");
            stage.check(!stage.host().state().textBoxFocus,
                        "in the main window nobody types a note");

            NoteHand::activate(stage);
            stage.check(PageHand::press(NoteHand::page(stage), Qt::Key_Tab),
                        "the key Tab, to the button Close");
            stage.check(TourHand::press(Qt::Key_2, Qt::ControlModifier), "the keys Ctrl+2");
            stage.check(stage.host().mode() == StandInHost::Mode::Memory,
                        "they change to memory mode");
            stage.check(TourHand::press(Qt::Key_1, Qt::ControlModifier), "the keys Ctrl+1");
            stage.check(stage.host().mode() == StandInHost::Mode::Live, "they change to live mode");
            NoteHand::addPicture(stage, "-second");

            stage.window().activateWindow();
            stage.check(TourHand::chooseMenu(stage.window().menuBar(), "View", "Dark style"),
                        "View, Dark style");
            stage.check(TourHand::waitFor([&] {
                            return PageHand::read(NoteHand::page(stage),
                                                  "document.body.className") == "dark";
                        }),
                        "the dialog is dark too");
            NoteHand::addPicture(stage, "-dark");
            stage.check(TourHand::chooseMenu(stage.window().menuBar(), "View", "Light style"),
                        "View, Light style");
            NoteHand::close(stage);
        });
}

}

void Walks::note(TourStage &stage)
{
    writesNotes(stage);
}

#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/views/DocumentView.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/ToolBar.h"

#include <QAction>
#include <QMenuBar>

PLG_Interface *TourSteps::noteTool() const
{
    for (PLG_Interface *tool : m_workbench.loader().tools()) {
        if (tool->name() == "t_note")
            return tool;
    }
    return nullptr;
}

GUI_ModelessPatternDialog *TourSteps::noteDialog() const
{
    PLG_Interface *tool = noteTool();
    return tool ? tool->ensureDialog(false) : nullptr;
}

GUI_WebView *TourSteps::notePage() const
{
    const GUI_ModelessPatternDialog *dialog = noteDialog();
    return dialog ? dialog->webView() : nullptr;
}

// Whether its dialog is there, with its page.
bool TourSteps::openNote()
{
    PLG_Interface *tool = noteTool();
    const QAction *button = tool ? m_window.tools()->action(tool) : nullptr;
    check(TourHand::click(buttonOf(button)), "a click on the button Note");
    const bool open =
        noteDialog() && noteDialog()->isVisible() && TourHand::waitFor([&] {
            return PageHand::isShown(notePage(), "#text") || PageHand::isShown(notePage(), "#none");
        });
    check(open, "its dialog is there, with its page");
    return open;
}

void TourSteps::closeNote()
{
    activateNote();
    clickInPage(notePage(), "#close", "Close");
    check(!noteDialog()->isVisible(), "the dialog has gone");
    check(TourHand::waitFor([&] { return !m_window.tools()->action(noteTool())->isChecked(); }),
          "the button is up");
    m_window.activateWindow();
}

void TourSteps::activateNote()
{
    noteDialog()->activateWindow();
    check(TourHand::waitFor([&] { return noteDialog()->isActiveWindow(); }),
          "the dialog has the keys");
}

void TourSteps::typeNote(const QString &text)
{
    activateNote();
    clickInPage(notePage(), "#text", "the text box");
    check(PageHand::type(notePage(), text), "typed: " + text);
    check(m_host.state().textBoxFocus, "the host knows that the user types");
}

void TourSteps::chooseNote(int index, const QString &note)
{
    m_window.activateWindow();
    chooseView(index);
    const QString name = viewAt(index) ? viewAt(index)->title() : QString();
    check(TourHand::waitFor([&] { return PageHand::text(notePage(), "#name") == name; }),
          "the dialog says " + name);
    compare(PageHand::read(notePage(), "text.value").toString(), note, "its note");
}

void TourSteps::addNotePicture(const QString &suffix)
{
    TourHand::settle();
    m_report.addPicture(noteDialog()->grab(), suffix);
}

void TourSteps::writesNotes()
{
    step("note", "A dialog of a tool stays beside the window and keeps a note per camera", [this] {
        chooseView(0);
        if (!openNote())
            return;
        check(m_window.tools()->action(noteTool())->isChecked(), "the button is down");
        typeNote("Lens cleaned, f/4.");
        check(TourHand::press(Qt::Key_2, Qt::ControlModifier), "the keys Ctrl+2");
        check(m_host.mode() == StandInHost::Mode::Live, "they do nothing while the user types");
        addNotePicture("-first");

        chooseNote(1, QString());
        typeNote("Light from the left.");
        chooseNote(0, "Lens cleaned, f/4.");
        chooseNote(1, "Light from the left.");
        check(!m_host.state().textBoxFocus, "in the main window nobody types a note");

        activateNote();
        check(PageHand::press(notePage(), Qt::Key_Tab), "the key Tab, to the button Close");
        check(TourHand::press(Qt::Key_2, Qt::ControlModifier), "the keys Ctrl+2");
        check(m_host.mode() == StandInHost::Mode::Memory, "they change to memory mode");
        check(TourHand::press(Qt::Key_1, Qt::ControlModifier), "the keys Ctrl+1");
        check(m_host.mode() == StandInHost::Mode::Live, "they change to live mode");
        addNotePicture("-second");

        m_window.activateWindow();
        check(TourHand::chooseMenu(m_window.menuBar(), "View", "Dark style"), "View, Dark style");
        check(TourHand::waitFor(
                  [&] { return PageHand::read(notePage(), "document.body.className") == "dark"; }),
              "the dialog is dark too");
        addNotePicture("-dark");
        check(TourHand::chooseMenu(m_window.menuBar(), "View", "Light style"), "View, Light style");
        closeNote();
    });
}

void TourSteps::showsNoNote()
{
    if (!openNote())
        return;
    compare(PageHand::text(notePage(), "#none"), "There is no camera to write a note for.",
            "its page");
    addNotePicture("-note");
    closeNote();
}

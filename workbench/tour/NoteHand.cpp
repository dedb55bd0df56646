#include "workbench/tour/NoteHand.h"

#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/window/MainWindow.h"

#include <QAction>

namespace {
const char NoteTool[] = "t_note";
}

bool NoteHand::open(TourStage &stage)
{
    stage.check(TourHand::click(stage.toolButton(NoteTool)), "a click on the button Note");
    const bool open = dialog(stage) && dialog(stage)->isVisible() && TourHand::waitFor([&] {
                          return PageHand::isShown(page(stage), "#text") ||
                                 PageHand::isShown(page(stage), "#none");
                      });
    stage.check(open, "its dialog is there, with its page");
    return open;
}

void NoteHand::close(TourStage &stage)
{
    activate(stage);
    stage.clickInPage(page(stage), "#close", "Close");
    stage.check(!dialog(stage)->isVisible(), "the dialog has gone");
    stage.check(TourHand::waitFor([&] { return !stage.toolAction(NoteTool)->isChecked(); }),
                "the button is up");
    stage.window().activateWindow();
}

void NoteHand::activate(TourStage &stage)
{
    dialog(stage)->activateWindow();
    stage.check(TourHand::waitFor([&] { return dialog(stage)->isActiveWindow(); }),
                "the dialog has the keys");
}

GUI_ModelessPatternDialog *NoteHand::dialog(const TourStage &stage)
{
    PLG_Interface *tool = stage.tool(NoteTool);
    return tool ? tool->ensureDialog(false) : nullptr;
}

GUI_WebView *NoteHand::page(const TourStage &stage)
{
    const GUI_ModelessPatternDialog *shown = dialog(stage);
    return shown ? shown->webView() : nullptr;
}

void NoteHand::addPicture(TourStage &stage, const QString &suffix)
{
    TourHand::settle();
    stage.addPicture(dialog(stage), suffix);
}

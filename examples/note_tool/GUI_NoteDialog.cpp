#include "GUI_NoteDialog.h"

#include "JS_Mediator_Note.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"

namespace {
const QSize Smallest(240, 200);
}

GUI_NoteDialog::GUI_NoteDialog(HostServices *host, JS_Mediator_Note *mediator)
    : GUI_ModelessPatternDialog(host, QLatin1String("Note"), QLatin1String("qrc:/t_note.html"),
                                mediator, host->mainWidget())
{
    setMinimumSize(Smallest);
    resize(mediator->getWidth(), mediator->getHeight());
    webView()->setAccessibleName(windowTitle());
}

// Not shown any more, but still with its page.
GUI_NoteDialog::~GUI_NoteDialog()
{
    hide();
}

// However it hides, the page learns of it and gives the shortcuts back to the main window: nobody
// says that the engine tells a page of a lost focus whose window has gone.
void GUI_NoteDialog::hideEvent(QHideEvent *event)
{
    GUI_ModelessPatternDialog::hideEvent(event);
    JS_Mediator_Dialog *page = mediator();
    guarded(host(), [page] { PageSignal::send(page, [page] { emit page->close(); }); });
}

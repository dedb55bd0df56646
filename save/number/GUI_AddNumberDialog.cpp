#include "save/number/GUI_AddNumberDialog.h"

#include "save/number/JS_Mediator_AddNumberDialog.h"

GUI_AddNumberDialog::GUI_AddNumberDialog(HostServices *host, QWidget *parent, int targetKind,
                                         int selectedDocs, int selectedHeads)
    : GUI_WebViewDialog(
          host, QLatin1String("Adding a number"), QLatin1String("qrc:/addnumberdialog.html"),
          new JS_Mediator_AddNumberDialog(host, targetKind, selectedDocs, selectedHeads), parent)
{
    resize(420, 330);
}

#include "save/convert/GUI_ConvertParameterEditDialog.h"

#include "save/convert/JS_Mediator_ConvertParameterEditDialog.h"
#include "save/dialog/JS_Mediator_SaveFile.h"

GUI_ConvertParameterEditDialog::GUI_ConvertParameterEditDialog(HostServices *host, QWidget *parent,
                                                               const QVariantList &dockeyList,
                                                               DOCKEY selectDocKey,
                                                               PARTITIONNUMBER selectPartitionNo)
    : GUI_WebViewDialog(host, QLatin1String("Saved after the automatic conversion"),
                        QLatin1String("qrc:/convertparametereditdialog.html"),
                        new JS_Mediator_ConvertParameterEditDialog(host, dockeyList, selectDocKey,
                                                                   selectPartitionNo),
                        parent)
{
    setFixedSize(600, 920);
    addMediator(new JS_Mediator_SaveFile(host, mediator()->pageName()));
}

#include "save/dialog/JS_Mediator_FileDialog.h"

#include "bridge/operation/OperationLog.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/LogGroups.h"
#include "save/convert/GUI_ConvertParameterEditDialog.h"
#include "save/convert/JS_Mediator_ConvertParameterEditDialog.h"

// The dialog of what follows a conversion. Its mediator is a file dialog's too, so that this stands
// behind both.

bool JS_Mediator_FileDialog::openConvertParameterEditDialog(const QVariantList &dockeyList)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::openConvertParameterEditDialog"),
                            LogGroups::group(QLatin1String("dockeyList"), dockeyList));
    HostServices *services = host(); // its calls may end the mediator
    const DOCKEY docKey = m_selectDocKey;
    const int partitionNo = m_selectPartitionNo;
    const QPointer<GUI_WebView> view(webView());
    return runEditor([&]() -> QDialog * {
        JS_Mediator_ConvertParameterEditDialog composer(services, dockeyList, docKey, partitionNo);
        if (composer.getExportPath().isEmpty())
            return nullptr;
        return new GUI_ConvertParameterEditDialog(services, view ? view->window() : nullptr,
                                                  dockeyList, docKey, partitionNo);
    });
}

#include "save/dialog/JS_Mediator_FileSaveDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/LogGroups.h"

namespace {

template <class Result, class Question>
Result askDocument(HostServices *host, DOCKEY key, Result neutral, Question question)
{
    return guarded(host, neutral, [&] {
        DOC_Interface *doc = host->deviceByKey(key, true);
        return doc ? (doc->*question)() : neutral;
    });
}

void tellDocument(HostServices *host, DOCKEY key, void (DOC_MainPart::*command)())
{
    guarded(host, [&] {
        if (DOC_Interface *doc = host->deviceByKey(key, true))
            (doc->*command)();
    });
}

}

void JS_Mediator_FileSaveDialog::exportDocCount(int count)
{
    guarded(host(), [&] { PageSignal::send(this, [&] { emit selectedDocCount(count); }); });
}

int JS_Mediator_FileSaveDialog::getHeadNo(DOCKEY dockey)
{
    return askDocument(host(), dockey, 0, &DOC_CameraPart::headNumber);
}

bool JS_Mediator_FileSaveDialog::isMultiTrimming(DOCKEY dockey)
{
    return askDocument(host(), dockey, false, &DOC_MainPart::isMultiTrimming);
}

QString JS_Mediator_FileSaveDialog::getMultiTrimmingLabel(DOCKEY dockey)
{
    return askDocument(host(), dockey, QString(), &DOC_MainPart::multiTrimmingLabel);
}

void JS_Mediator_FileSaveDialog::prevPreivew(DOCKEY dockey)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileSaveDialog::prevPreivew"),
                            LogGroups::group(QLatin1String("dockey"), dockey));
    tellDocument(host(), dockey, &DOC_MainPart::showPreviousPreview);
}

void JS_Mediator_FileSaveDialog::nextPreivew(DOCKEY dockey)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileSaveDialog::nextPreivew"),
                            LogGroups::group(QLatin1String("dockey"), dockey));
    tellDocument(host(), dockey, &DOC_MainPart::showNextPreview);
}

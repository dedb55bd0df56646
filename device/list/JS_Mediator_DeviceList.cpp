#include "device/list/JS_Mediator_DeviceList.h"

#include "bridge/operation/DialogRun.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/operation/OwnedDialog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/list/DocumentSelection.h"
#include "foundation/LogGroups.h"

namespace {

const QLatin1String WholeDeviceQuestion(
    "Heads connected to the same device are also removed from the list. Is it OK?");
const QLatin1String DeleteQuestion("Do you want to delete?");

template <typename Key> QString keyGroup(const char *label, const Key &key)
{
    return LogGroups::group(QLatin1String(label), key);
}

}

void JS_Mediator_DeviceList::selectDoc(const QVariant &key)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceList::selectDoc"),
                            keyGroup("key", key));
    HostServices *services = host(); // a call of the host may end the mediator
    guarded(services, [&] {
        services->prepareSelectAll();
        const DOCKEY docKey = DocumentSelection::keyOf(key);
        if (DOC_Interface *doc = DocumentSelection::selectable(services, docKey))
            DocumentSelection::select(services, doc, docKey);
    });
}

void JS_Mediator_DeviceList::unselectDoc(const QVariant &key)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceList::unselectDoc"),
                            keyGroup("key", key));
    HostServices *services = host();
    guarded(services, [&] {
        services->prepareSelectAll();
        services->unselectDoc(DocumentSelection::keyOf(key));
    });
}

void JS_Mediator_DeviceList::addDoc(bool connect)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceList::addDoc"),
                            LogGroups::group(QLatin1String("connect"), connect));
    HostServices *services = host();
    guarded(services, [&] {
        const OwnedDialog dialog(
            new GUI_AddDeviceDialog(services, connect, services->mainWidget()));
        DialogRun::exec(*dialog);
    });
}

void JS_Mediator_DeviceList::deleteDoc(DOCKEY dockey)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceList::deleteDoc"),
                            keyGroup("dockey", dockey));
    HostServices *services = host();
    guarded(services, [&] {
        services->prepareSelectAll();
        DOC_Interface *doc = services->deviceByKey(dockey, true);
        if (!doc)
            return;
        const QString question = doc->sharesDevice() ? WholeDeviceQuestion : DeleteQuestion;
        if (!services->confirm(services->translate(question), nullptr, QVariantMap()))
            return;
        if (services->deviceByKey(dockey, true)) // while the user thought it may have gone
            services->removeDocument(dockey);
    });
}

void JS_Mediator_DeviceList::deleteAllDocs(bool unselectOnly)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_DeviceList::deleteAllDocs"),
                            LogGroups::group(QLatin1String("unselectOnly"), unselectOnly));
    HostServices *services = host();
    guarded(services, [&] {
        services->prepareSelectAll();
        services->removeAllDocuments(0, unselectOnly);
    });
}

bool JS_Mediator_DeviceList::isSelectedDoc(const QVariant &key)
{
    return askDocument("JS_Mediator_DeviceList::isSelectedDoc", key,
                       [](DOC_Interface *doc) { return doc->isSelected(); });
}

bool JS_Mediator_DeviceList::isSelectedMultiDoc(const QVariant &key)
{
    return askDocument("JS_Mediator_DeviceList::isSelectedMultiDoc", key,
                       [](DOC_Interface *doc) { return doc->isSelectedMulti(); });
}

bool JS_Mediator_DeviceList::isMultiHead(const QVariant &key)
{
    return askDocument("JS_Mediator_DeviceList::isMultiHead", key, [](DOC_Interface *doc) {
        DOC_HeadInterface *heads = doc->headInterface();
        return heads && heads->headCount() > 1 && doc->isSelectable();
    });
}

// What a document answers; false without one.
template <typename Ask>
bool JS_Mediator_DeviceList::askDocument(const char *trace, const QVariant &key, Ask ask)
{
    OperationLogScope scope(QLatin1String(trace), keyGroup("key", key));
    HostServices *services = host();
    return guarded(services, false, [&] {
        DOC_Interface *doc = services->deviceByKey(DocumentSelection::keyOf(key), true);
        return doc && ask(doc);
    });
}

#include "standin/host/StandInHost.h"

#include "bridge/mediator/JS_Mediator.h"
#include "standin/session/SelectionStep.h"

#include <algorithm>

template <class Document> Document *StandInHost::addDocument(std::unique_ptr<Document> document)
{
    Document *added = document.get();
    m_documents.add(std::move(document));
    return added;
}

StandInCamera *StandInHost::addCamera(const StandInCamera::Description &description)
{
    StandInCamera::Description full = description;
    if (full.cameraNumber < 0) {
        for (const StandInCamera *other : cameras())
            full.cameraNumber = std::max(full.cameraNumber, other->state().cameraNumber);
        ++full.cameraNumber;
    }
    auto camera = std::make_unique<StandInCamera>(*this, m_documents.nextKey(), full);
    if (m_lock.isOn())
        camera->setLockedTogether(true);
    StandInCamera *added = addDocument(std::move(camera));
    m_readOut.addCamera(*added);
    m_connections.adopt(*added);
    m_settingsCopies.take(*added);
    return added;
}

StandInRecording *StandInHost::openRecording(const QString &folder)
{
    auto recording = std::make_unique<StandInRecording>(*this, m_documents.nextKey(), folder);
    m_state.openedKeys = {recording->key()};
    return addDocument(std::move(recording));
}

StandInGroup *StandInHost::addGroup(const QString &name, const QList<StandInDocument *> &members)
{
    return addDocument(std::make_unique<StandInGroup>(*this, m_documents.nextKey(), name, members));
}

void StandInHost::removeFromList(DOCKEY key)
{
    const QList<DOCKEY> heads = headsOf(key);
    closeDocument(key);
    for (DOCKEY head : heads)
        closeDocument(head);
}

template <class Change> void StandInHost::choose(const Change &change)
{
    const DocumentList::Chosen before = m_documents.chosen();
    change();
    const DocumentList::Chosen after = m_documents.chosen();
    if (openMacros() > 0 && after != before)
        m_undo.push(new SelectionStep(m_documents, before, after));
}

void StandInHost::makeCurrent(DOCKEY key)
{
    choose([&] { m_documents.makeCurrent(key); });
}

void StandInHost::select(DOCKEY key, bool selected)
{
    choose([&] { m_documents.select(key, selected); });
}

DOC_Interface *StandInHost::contractOf(DOCKEY key) const
{
    StandInDocument *found = document(key);
    return found ? found->contract() : nullptr;
}

DOC_Interface *StandInHost::deviceByKey(DOCKEY key, bool flag)
{
    if (asked("deviceByKey", key, flag).null)
        return nullptr;
    return contractOf(key);
}

DOC_Interface *StandInHost::documentByKey(DOCKEY key)
{
    if (asked("documentByKey", key).null)
        return nullptr;
    return contractOf(key);
}

void StandInHost::setCurrentDoc(DOCKEY key, bool flag)
{
    told("setCurrentDoc", key, flag);
    makeCurrent(key);
}

void StandInHost::unselectDoc(DOCKEY key)
{
    told("unselectDoc", key);
    select(key, false);
}

DOC_Interface *StandInHost::currentDocument()
{
    if (asked("currentDocument").null)
        return nullptr;
    return contractOf(currentKey());
}

DOCKEY StandInHost::currentDocKey()
{
    asked("currentDocKey");
    return currentKey();
}

void StandInHost::removeDocument(DOCKEY key)
{
    told("removeDocument", key);
    removeFromList(key);
}

void StandInHost::removeAllDocuments(int number, bool unselectOnly)
{
    told("removeAllDocuments", number, unselectOnly);
    if (unselectOnly) {
        choose([&] { m_documents.setSelection({}); });
        return;
    }
    for (DOCKEY key : m_documents.keys())
        closeDocument(key);
}

void StandInHost::selectAllDocs(JS_Mediator *receiver)
{
    told("selectAllDocs", receiver);
    QList<DOCKEY> keys;
    for (const StandInDocument *document : documents()) {
        if (document->state().isSelectable)
            keys.append(document->key());
    }
    choose([&] { m_documents.setSelection(keys); });
}

void StandInHost::selectDocs(const QList<DOCKEY> &keys, bool flag)
{
    told("selectDocs", keys, flag);
    choose([&] { m_documents.setSelection(keys); });
}

void StandInHost::refreshDocumentInfo(bool flag)
{
    told("refreshDocumentInfo", flag);
    markInfoDirty();
    emit m_events.documentInfoChanged();
}

void StandInHost::setTrelvikLock(bool lock)
{
    told("setTrelvikLock", lock);
    m_lock.set(lock);
}

bool StandInHost::isTrelvikLocked()
{
    asked("isTrelvikLocked");
    return m_lock.isOn();
}

void StandInHost::commitTransaction(bool apply, const QString &tool)
{
    told("commitTransaction", apply, tool);
    const CameraSettingsByKey before = m_tools.endTransaction(tool, "commitTransaction");
    if (!apply)
        m_lock.restore(before);
}

void StandInHost::beginTransaction(const QString &tool, bool first, bool second)
{
    auto failed = qScopeGuard([&] { m_tools.transactionFailed(tool); });
    told("beginTransaction", tool, first, second);
    failed.dismiss();
    m_tools.beginTransaction(tool, m_lock.settingsOfAll());
}

void StandInHost::rollbackTransaction(const QString &tool)
{
    told("rollbackTransaction", tool);
    m_lock.restore(m_tools.endTransaction(tool, "rollbackTransaction"));
}

void StandInHost::resetTransaction(const QString &tool)
{
    told("resetTransaction", tool);
    m_lock.restore(m_tools.settingsBefore(tool));
}

void StandInHost::setToolActive(const QString &tool, bool on)
{
    told("setToolActive", tool, on);
    m_tools.setActive(tool, on);
}

void StandInHost::setQuickTool(const QString &tool)
{
    told("setQuickTool", tool);
    m_tools.setQuickTool(tool);
}

void StandInHost::setToolState(const QString &tool, bool on)
{
    told("setToolState", tool, on);
    m_tools.setOn(tool, on);
}

bool StandInHost::isWaveDataAcquisition()
{
    asked("isWaveDataAcquisition");
    return m_state.isWaveDataAcquisition;
}

void StandInHost::deviceKeys(QList<DOCKEY> &out, bool flag)
{
    const bool empty = asked("deviceKeys", flag).empty;
    out = empty ? QList<DOCKEY>() : m_documents.cameraKeys(false);
}

void StandInHost::liveDocKeys(QList<DOCKEY> &out, bool flag)
{
    const bool empty = asked("liveDocKeys", flag).empty;
    out = empty ? QList<DOCKEY>() : m_documents.cameraKeys(true);
}

void StandInHost::selectedDocKeys(QList<DOCKEY> &out, bool inListOrder)
{
    out.clear();
    if (asked("selectedDocKeys", inListOrder).empty)
        return;
    out = inListOrder ? m_documents.selectionInListOrder() : m_documents.selection();
}

QMutex *StandInHost::documentsMutex()
{
    asked("documentsMutex");
    return &m_documentsMutex;
}

void StandInHost::endExclusiveUpdate()
{
    told("endExclusiveUpdate");
    m_pauses.exclusiveUpdate.end();
}

void StandInHost::beginExclusiveUpdate()
{
    begun(m_pauses.exclusiveUpdate, "beginExclusiveUpdate");
}

void StandInHost::endExclusiveRefresh()
{
    told("endExclusiveRefresh");
    m_pauses.exclusiveRefresh.end();
}

void StandInHost::beginExclusiveRefresh()
{
    begun(m_pauses.exclusiveRefresh, "beginExclusiveRefresh");
}

QList<DOCKEY> StandInHost::documentKeys(bool first, bool second)
{
    return asked("documentKeys", first, second).empty ? QList<DOCKEY>() : m_documents.keys();
}

QList<DOCKEY> StandInHost::liveDocumentKeys(bool flag)
{
    return asked("liveDocumentKeys", flag).empty ? QList<DOCKEY>() : m_documents.cameraKeys(true);
}

void StandInHost::temporaryDocumentKeys(QList<DOCKEY> &out)
{
    const bool empty = asked("temporaryDocumentKeys").empty;
    out = empty ? QList<DOCKEY>() : m_state.temporaryKeys;
}

QList<DOCKEY> StandInHost::openedDocumentKeys()
{
    return asked("openedDocumentKeys").empty ? QList<DOCKEY>() : m_state.openedKeys;
}

void StandInHost::targetDocKeys(QList<DOCKEY> &out, bool flag, int number)
{
    out.clear();
    if (asked("targetDocKeys", flag, number).empty)
        return;
    if (m_state.targetKeys) {
        out = *m_state.targetKeys;
        return;
    }
    const QList<DOCKEY> selected = selection();
    for (DOCKEY key : m_documents.keys()) {
        if (key == currentKey() || selected.contains(key))
            out.append(key);
    }
}

DOCKEY StandInHost::documentKeyOf(DOC_Interface *doc)
{
    asked("documentKeyOf", doc);
    return m_documents.keyOf(doc);
}

int StandInHost::selectedDocumentCount()
{
    asked("selectedDocumentCount");
    return selection().size();
}

void StandInHost::importTargets(const QList<DOCKEY> &keys)
{
    told("importTargets", keys);
}

void StandInHost::closeFileDocuments(bool flag)
{
    told("closeFileDocuments", flag);
    for (const StandInRecording *recording : recordings())
        closeDocument(recording->key());
}

void StandInHost::openFiles(const QStringList &files, bool first, bool second, bool third,
                            bool fourth, bool fifth)
{
    told("openFiles", files, first, second, third, fourth, fifth);
}

void StandInHost::closeCameraData(int cameraNumber)
{
    told("closeCameraData", cameraNumber);
}

QList<SavedRecord> StandInHost::findSavedRecords(const QString &folder,
                                                 const QList<SavedRecord> &records)
{
    QList<SavedRecord> found;
    if (asked("findSavedRecords", folder, records).empty)
        return found;
    for (const SavedRecord &record : records) {
        if (m_state.savedRecords.contains(record))
            found.append(record);
    }
    return found;
}

void StandInHost::refreshAfterDelete(DOCKEY key)
{
    told("refreshAfterDelete", key);
}

int StandInHost::documentCount()
{
    asked("documentCount");
    return m_documents.count();
}

bool StandInHost::hasWaveformData()
{
    asked("hasWaveformData");
    return m_state.hasWaveformData;
}

bool StandInHost::areAllDevicesLocked()
{
    asked("areAllDevicesLocked");
    const QList<StandInCamera *> all = cameras();
    return !all.isEmpty() && std::all_of(all.begin(), all.end(), [](const StandInCamera *camera) {
        return camera->isLockedTogether();
    });
}

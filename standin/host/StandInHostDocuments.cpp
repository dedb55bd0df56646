#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "standin/host/StandInHost.h"

#include "bridge/mediator/JS_Mediator.h"

#include <algorithm>

template <class Document> Document *StandInHost::addDocument(std::unique_ptr<Document> document)
{
    Document *added = document.get();
    m_documents.push_back(std::move(document));
    emit m_events.documentsChanged();
    if (m_currentKey == NoDocKey) {
        makeCurrent(added->key());
        select(added->key(), true);
    }
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
    auto camera = std::make_unique<StandInCamera>(*this, ++m_lastKey, full);
    if (m_locked)
        camera->setLockedTogether(true);
    StandInCamera *added = addDocument(std::move(camera));
    if (m_readOutTool)
        guarded(this, [&] { m_readOutTool->setRegion(added, added->sensorRegion(), false); });
    return added;
}

StandInRecording *StandInHost::openRecording(const QString &folder)
{
    auto recording = std::make_unique<StandInRecording>(*this, m_lastKey + 1, folder);
    ++m_lastKey;
    m_state.openedKeys = {recording->key()};
    return addDocument(std::move(recording));
}

StandInGroup *StandInHost::addGroup(const QString &name, const QList<StandInDocument *> &members)
{
    return addDocument(std::make_unique<StandInGroup>(*this, ++m_lastKey, name, members));
}

void StandInHost::closeDocument(DOCKEY key)
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [key](const auto &document) { return document->key() == key; });
    if (found == m_documents.end())
        return;
    const bool wasSelected = m_selection.removeAll(key) > 0;
    (*found)->markClosed();
    for (const auto &other : m_documents) {
        if (auto *group = dynamic_cast<StandInGroup *>(other.get()))
            group->removeMember(found->get());
    }
    m_closedDocuments.push_back(std::move(*found));
    m_documents.erase(found);
    if (m_currentKey == key) {
        m_currentKey = !m_selection.isEmpty() ? m_selection.last()
                       : !m_documents.empty() ? m_documents.front()->key()
                                              : NoDocKey;
        emit m_events.currentDocumentChanged(m_currentKey);
    }
    if (wasSelected)
        emit m_events.selectionChanged();
    emit m_events.documentsChanged();
}

StandInDocument *StandInHost::document(DOCKEY key) const
{
    for (const auto &document : m_documents) {
        if (document->key() == key)
            return document.get();
    }
    return nullptr;
}

StandInCamera *StandInHost::camera(DOCKEY key) const
{
    return dynamic_cast<StandInCamera *>(document(key));
}

QList<StandInDocument *> StandInHost::documents() const
{
    QList<StandInDocument *> result;
    for (const auto &document : m_documents)
        result.append(document.get());
    return result;
}

QList<StandInCamera *> StandInHost::cameras() const
{
    QList<StandInCamera *> result;
    for (const auto &document : m_documents) {
        if (auto *camera = dynamic_cast<StandInCamera *>(document.get()))
            result.append(camera);
    }
    return result;
}

QList<StandInRecording *> StandInHost::recordings() const
{
    QList<StandInRecording *> result;
    for (const auto &document : m_documents) {
        if (auto *recording = dynamic_cast<StandInRecording *>(document.get()))
            result.append(recording);
    }
    return result;
}

void StandInHost::makeCurrent(DOCKEY key)
{
    if (key == m_currentKey || !document(key))
        return;
    m_currentKey = key;
    emit m_events.currentDocumentChanged(key);
}

void StandInHost::select(DOCKEY key, bool selected)
{
    if (m_selection.contains(key) == selected || !document(key))
        return;
    if (selected)
        m_selection.append(key);
    else
        m_selection.removeAll(key);
    emit m_events.selectionChanged();
}

void StandInHost::setSelection(const QList<DOCKEY> &keys)
{
    QList<DOCKEY> known;
    for (DOCKEY key : keys) {
        if (document(key) && !known.contains(key))
            known.append(key);
    }
    if (!known.isEmpty())
        makeCurrent(known.last());
    if (known == m_selection)
        return;
    m_selection = known;
    emit m_events.selectionChanged();
}

QList<DOC_Interface *> StandInHost::groupMembersOf(StandInDocument *document) const
{
    QList<StandInDocument *> members = document->members();
    for (const auto &other : m_documents) {
        if (members.isEmpty() && other->members().contains(document))
            members = other->members();
    }
    QList<DOC_Interface *> result;
    for (const auto &other : m_documents) {
        if (members.contains(other.get()))
            result.append(other->contract());
    }
    return result;
}

QList<DOCKEY> StandInHost::allKeys() const
{
    QList<DOCKEY> keys;
    for (const auto &document : m_documents)
        keys.append(document->key());
    return keys;
}

QList<DOCKEY> StandInHost::cameraKeys(bool liveOnly) const
{
    QList<DOCKEY> keys;
    for (const StandInCamera *camera : cameras()) {
        if (!liveOnly || (camera->state().isConnected && !camera->state().isDummy))
            keys.append(camera->key());
    }
    return keys;
}

DOC_Interface *StandInHost::deviceByKey(DOCKEY key, bool flag)
{
    if (asked("deviceByKey", key, flag).null)
        return nullptr;
    StandInDocument *found = document(key);
    return found ? found->contract() : nullptr;
}

DOC_Interface *StandInHost::documentByKey(DOCKEY key)
{
    if (asked("documentByKey", key).null)
        return nullptr;
    StandInDocument *found = document(key);
    return found ? found->contract() : nullptr;
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
    StandInDocument *found = document(m_currentKey);
    return found ? found->contract() : nullptr;
}

DOCKEY StandInHost::currentDocKey()
{
    asked("currentDocKey");
    return m_currentKey;
}

void StandInHost::removeDocument(DOCKEY key)
{
    told("removeDocument", key);
    closeDocument(key);
}

void StandInHost::removeAllDocuments(int number, bool unselectOnly)
{
    told("removeAllDocuments", number, unselectOnly);
    if (unselectOnly) {
        setSelection({});
        return;
    }
    for (DOCKEY key : allKeys())
        closeDocument(key);
}

void StandInHost::selectAllDocs(JS_Mediator *receiver)
{
    told("selectAllDocs", receiver);
    QList<DOCKEY> keys;
    for (const auto &document : m_documents) {
        if (document->state().isSelectable)
            keys.append(document->key());
    }
    setSelection(keys);
}

void StandInHost::selectDocs(const QList<DOCKEY> &keys, bool flag)
{
    told("selectDocs", keys, flag);
    setSelection(keys);
}

void StandInHost::refreshDocumentInfo(bool flag)
{
    told("refreshDocumentInfo", flag);
    emit m_events.documentInfoChanged();
}

void StandInHost::setTrelvikLock(bool lock)
{
    told("setTrelvikLock", lock);
    const bool changed = lock != m_locked;
    m_locked = lock;
    for (StandInCamera *camera : cameras())
        camera->setLockedTogether(lock);
    if (changed)
        emit m_events.lockChanged(lock);
}

bool StandInHost::isTrelvikLocked()
{
    asked("isTrelvikLocked");
    return m_locked;
}

void StandInHost::commitTransaction(bool apply, const QString &tool)
{
    told("commitTransaction", apply, tool);
    if (m_transactions.contains(tool) && !apply)
        restoreSettings(m_transactions.value(tool));
    m_transactions.remove(tool);
}

void StandInHost::beginTransaction(const QString &tool, bool first, bool second)
{
    told("beginTransaction", tool, first, second);
    m_transactions.insert(tool, settingsOfAll());
}

void StandInHost::rollbackTransaction(const QString &tool)
{
    told("rollbackTransaction", tool);
    restoreSettings(m_transactions.take(tool));
}

void StandInHost::resetTransaction(const QString &tool)
{
    told("resetTransaction", tool);
    restoreSettings(m_transactions.value(tool));
}

void StandInHost::setToolOn(const QString &tool, bool on)
{
    m_toolOn.insert(tool, on);
    emit m_events.toolStateChanged(tool);
}

void StandInHost::setToolActive(const QString &tool, bool on)
{
    told("setToolActive", tool, on);
    if (on)
        m_activeTools.insert(tool);
    else
        m_activeTools.remove(tool);
    setToolOn(tool, on);
}

void StandInHost::setQuickTool(const QString &tool)
{
    told("setQuickTool", tool);
    m_quickTool = tool;
    emit m_events.toolStateChanged(tool);
}

void StandInHost::setToolState(const QString &tool, bool on)
{
    told("setToolState", tool, on);
    setToolOn(tool, on);
}

bool StandInHost::isWaveDataAcquisition()
{
    asked("isWaveDataAcquisition");
    return m_state.isWaveDataAcquisition;
}

void StandInHost::deviceKeys(QList<DOCKEY> &out, bool flag)
{
    const bool empty = asked("deviceKeys", flag).empty;
    out = empty ? QList<DOCKEY>() : cameraKeys(false);
}

void StandInHost::liveDocKeys(QList<DOCKEY> &out, bool flag)
{
    const bool empty = asked("liveDocKeys", flag).empty;
    out = empty ? QList<DOCKEY>() : cameraKeys(true);
}

void StandInHost::selectedDocKeys(QList<DOCKEY> &out, bool inListOrder)
{
    out.clear();
    if (asked("selectedDocKeys", inListOrder).empty)
        return;
    if (!inListOrder) {
        out = m_selection;
        return;
    }
    for (DOCKEY key : allKeys()) {
        if (m_selection.contains(key))
            out.append(key);
    }
}

QMutex *StandInHost::documentsMutex()
{
    asked("documentsMutex");
    return &m_documentsMutex;
}

void StandInHost::endExclusiveUpdate()
{
    told("endExclusiveUpdate");
    --m_exclusiveUpdates;
}

void StandInHost::beginExclusiveUpdate()
{
    told("beginExclusiveUpdate");
    ++m_exclusiveUpdates;
}

void StandInHost::endExclusiveRefresh()
{
    told("endExclusiveRefresh");
    --m_exclusiveRefreshes;
}

void StandInHost::beginExclusiveRefresh()
{
    told("beginExclusiveRefresh");
    ++m_exclusiveRefreshes;
}

QList<DOCKEY> StandInHost::documentKeys(bool first, bool second)
{
    return asked("documentKeys", first, second).empty ? QList<DOCKEY>() : allKeys();
}

QList<DOCKEY> StandInHost::liveDocumentKeys(bool flag)
{
    return asked("liveDocumentKeys", flag).empty ? QList<DOCKEY>() : cameraKeys(true);
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
    const bool empty = asked("targetDocKeys", flag, number).empty;
    out = empty ? QList<DOCKEY>() : m_state.targetKeys;
}

DOCKEY StandInHost::documentKeyOf(DOC_Interface *doc)
{
    asked("documentKeyOf", doc);
    for (const auto &document : m_documents) {
        if (document->contract() == doc)
            return document->key();
    }
    return NoDocKey;
}

int StandInHost::selectedDocumentCount()
{
    asked("selectedDocumentCount");
    return m_selection.size();
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
    return int(m_documents.size());
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

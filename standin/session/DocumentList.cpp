#include "standin/session/DocumentList.h"

#include "standin/documents/StandInCamera.h"
#include "standin/documents/StandInGroup.h"
#include "standin/documents/StandInRecording.h"
#include "standin/journal/StandInEvents.h"

#include <algorithm>

DocumentList::DocumentList(StandInEvents &events) : m_events(events) {}

DocumentList::~DocumentList() = default;

DOCKEY DocumentList::nextKey() const
{
    DOCKEY key = m_nextKey;
    while (key == NoDocKey || m_usedKeys.contains(key))
        ++key;
    return key;
}

StandInDocument *DocumentList::add(std::unique_ptr<StandInDocument> document)
{
    StandInDocument *added = document.get();
    const DOCKEY key = added->key();
    m_documents.push_back(std::move(document));
    m_byKey.insert(key, added);
    m_keys.insert(added->contract(), key);
    m_usedKeys.insert(key);
    m_nextKey = key + 1;
    emit m_events.documentsChanged();
    if (m_currentKey == NoDocKey) {
        makeCurrent(key);
        select(key, true);
    }
    return added;
}

void DocumentList::close(DOCKEY key)
{
    StandInDocument *closed = document(key);
    if (!closed)
        return;
    const bool wasSelected = m_selection.removeAll(key) > 0;
    closed->markClosed();
    for (const auto &other : m_documents) {
        if (auto *group = dynamic_cast<StandInGroup *>(other.get()))
            group->removeMember(closed);
    }
    m_byKey.remove(key);
    m_keys.remove(closed->contract());
    const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [closed](const auto &other) { return other.get() == closed; });
    m_closed.push_back(std::move(*place));
    m_documents.erase(place);
    if (m_currentKey == key) {
        m_currentKey = !m_selection.isEmpty() ? m_selection.last()
                       : !m_documents.empty() ? m_documents.front()->key()
                                              : NoDocKey;
        emit m_events.currentDocumentChanged(m_currentKey);
    }
    if (wasSelected)
        emit m_events.selectionChanged();
    emit m_events.documentClosed(key);
    emit m_events.documentsChanged();
}

StandInCamera *DocumentList::camera(DOCKEY key) const
{
    return dynamic_cast<StandInCamera *>(document(key));
}

DOCKEY DocumentList::keyOf(const DOC_Interface *document) const
{
    return m_keys.value(document, NoDocKey);
}

template <class Document> QList<Document *> DocumentList::allOf() const
{
    QList<Document *> result;
    for (const auto &entry : m_documents) {
        if (auto *document = dynamic_cast<Document *>(entry.get()))
            result.append(document);
    }
    return result;
}

QList<StandInDocument *> DocumentList::all() const
{
    return allOf<StandInDocument>();
}

QList<StandInCamera *> DocumentList::cameras() const
{
    return allOf<StandInCamera>();
}

QList<StandInRecording *> DocumentList::recordings() const
{
    return allOf<StandInRecording>();
}

QList<DOCKEY> DocumentList::keys() const
{
    QList<DOCKEY> keys;
    for (const auto &document : m_documents)
        keys.append(document->key());
    return keys;
}

QList<DOCKEY> DocumentList::cameraKeys(bool liveOnly) const
{
    QList<DOCKEY> keys;
    for (const StandInCamera *camera : cameras()) {
        if (!liveOnly || (camera->state().isConnected && !camera->state().isDummy))
            keys.append(camera->key());
    }
    return keys;
}

QList<DOCKEY> DocumentList::headsOf(DOCKEY key) const
{
    QList<DOCKEY> keys;
    const StandInCamera *head = camera(key);
    if (!head)
        return keys;
    for (const StandInCamera *other : cameras()) {
        if (other->state().cameraNumber == head->state().cameraNumber)
            keys.append(other->key());
    }
    return keys;
}

QList<DOC_Interface *> DocumentList::groupMembersOf(StandInDocument *document) const
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

void DocumentList::makeCurrent(DOCKEY key)
{
    if (key == m_currentKey || !document(key))
        return;
    m_currentKey = key;
    emit m_events.currentDocumentChanged(key);
}

QList<DOCKEY> DocumentList::selectionInListOrder() const
{
    QList<DOCKEY> keys;
    for (const auto &document : m_documents) {
        if (m_selection.contains(document->key()))
            keys.append(document->key());
    }
    return keys;
}

void DocumentList::select(DOCKEY key, bool selected)
{
    if (m_selection.contains(key) == selected || !document(key))
        return;
    if (selected)
        m_selection.append(key);
    else
        m_selection.removeAll(key);
    emit m_events.selectionChanged();
}

void DocumentList::setSelection(const QList<DOCKEY> &keys)
{
    const QList<DOCKEY> wanted = known(keys);
    if (!wanted.isEmpty())
        makeCurrent(wanted.last());
    takeSelection(wanted);
}

void DocumentList::choose(const Chosen &chosen)
{
    makeCurrent(chosen.current);
    takeSelection(known(chosen.selection));
}

// Those that are here, each once.
QList<DOCKEY> DocumentList::known(const QList<DOCKEY> &keys) const
{
    QList<DOCKEY> known;
    QSet<DOCKEY> seen;
    for (DOCKEY key : keys) {
        if (document(key) && !seen.contains(key))
            known.append(key);
        seen.insert(key);
    }
    return known;
}

void DocumentList::takeSelection(const QList<DOCKEY> &keys)
{
    if (keys == m_selection)
        return;
    m_selection = keys;
    emit m_events.selectionChanged();
}

#pragma once

#include "contract/HostTypes.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <memory>
#include <vector>

class DOC_Interface;
class StandInCamera;
class StandInDocument;
class StandInEvents;
class StandInRecording;

/// The open documents, which of them is current, and which are selected. It owns them, and keeps
/// those that were closed until its own end. The events tell of every change. GUI thread.
class DocumentList
{
public:
    explicit DocumentList(StandInEvents &events);
    ~DocumentList();

    DocumentList(const DocumentList &) = delete;
    DocumentList &operator=(const DocumentList &) = delete;

    /// Which documents are selected, in the order of selection, and which is the current one.
    struct Chosen
    {
        QList<DOCKEY> selection;
        DOCKEY current = NoDocKey;

        bool operator==(const Chosen &other) const
        {
            return selection == other.selection && current == other.current;
        }
        bool operator!=(const Chosen &other) const { return !(*this == other); }
    };

    /// Key that the next document gets. Keys count from 1, each behind the one added last; a key
    /// that was ever used, and NoDocKey, are passed over.
    DOCKEY nextKey() const;
    void setNextKey(DOCKEY key) { m_nextKey = key; }

    /// Takes a document with the key nextKey(). The first one becomes current and is selected.
    StandInDocument *add(std::unique_ptr<StandInDocument> document);

    /// Nothing without such a document. When it was the current one, the document that was selected
    /// last takes its place, else the first of the list. Groups lose it.
    void close(DOCKEY key);

    // In the order of the list. Found in constant time; null without such a document.

    StandInDocument *document(DOCKEY key) const { return m_byKey.value(key); }
    StandInCamera *camera(DOCKEY key) const;
    DOCKEY keyOf(const DOC_Interface *document) const; ///< NoDocKey for one that is not here
    int count() const { return int(m_documents.size()); }
    QList<StandInDocument *> all() const;
    QList<StandInCamera *> cameras() const;
    QList<StandInRecording *> recordings() const;
    QList<DOCKEY> keys() const;

    /// Keys of the cameras, those alone that are connected and real when `liveOnly` is set.
    QList<DOCKEY> cameraKeys(bool liveOnly) const;

    /// Keys of the heads of a camera's device, its own among them; none for what is no camera.
    QList<DOCKEY> headsOf(DOCKEY key) const;

    /// Members of the group that a document stands for or is part of, in the order of the list.
    QList<DOC_Interface *> groupMembersOf(StandInDocument *document) const;

    DOCKEY currentKey() const { return m_currentKey; } ///< NoDocKey without a current document
    StandInDocument *current() const { return document(m_currentKey); }
    void makeCurrent(DOCKEY key); ///< nothing without such a document

    QList<DOCKEY> selection() const { return m_selection; } ///< in the order of selection
    QList<DOCKEY> selectionInListOrder() const;
    void select(DOCKEY key, bool selected); ///< nothing without such a document

    /// Makes this the selection, and its last document current. Unknown keys are left out.
    void setSelection(const QList<DOCKEY> &keys);

    Chosen chosen() const { return {m_selection, m_currentKey}; }

    /// Brings back what was chosen once, as far as it is still there.
    void choose(const Chosen &chosen);

private:
    template <class Document> QList<Document *> allOf() const;
    QList<DOCKEY> known(const QList<DOCKEY> &keys) const;
    void takeSelection(const QList<DOCKEY> &keys);

    StandInEvents &m_events;
    std::vector<std::unique_ptr<StandInDocument>> m_documents;
    std::vector<std::unique_ptr<StandInDocument>> m_closed;
    QHash<DOCKEY, StandInDocument *> m_byKey;
    QHash<const DOC_Interface *, DOCKEY> m_keys;
    QSet<DOCKEY> m_usedKeys;
    DOCKEY m_nextKey = 1;
    DOCKEY m_currentKey = NoDocKey;
    QList<DOCKEY> m_selection;
};

#pragma once

#include "save/dialog/SavedCheck.h"

#include <QJsonArray>
#include <QSet>
#include <QString>
#include <QVariant>

/// What the row of a partition is made from, beside its information: of an opened file.
struct FileTarget
{
    QVariantList partitions; ///< a map of texts for each, as DOC_MainPart::documentInfoMap() tells
    bool allowsSkip = false; ///< several partitions can be saved with skipped frames
    bool isOnMedium = false; ///< in a card reader or a drive
};

/// The same of a camera.
struct CameraTarget
{
    QVariantList partitions;
    bool allowsSkip = false;
    int current = 0;                  ///< position of the current partition, from 1
    bool selectsRecorded = false;     ///< every partition with frames is selected
    bool isRecordedOnce = false;      ///< selects the current partition, where that does not hold
    bool isLive = false;              ///< lists what is being recorded alone
    bool loopsOverPartitions = false; ///< when live: the recording goes from partition to partition
    bool stopsAfterLast = false; ///< and ends at the last: those before the current one are old
};

/// The partitions that a save page offers, a row for each: {"recid":1,"dockey":"7",...}.
///
/// What the information lacks is empty text. A partition without frames makes no row. Values are
/// texts, but for "recid" and "totalframesplain", numbers, and "multiskip", a bool. After a search
/// for saved copies a row on a medium has the "style" of a warning when it has none. Any thread.
class TargetRows
{
public:
    explicit TargetRows(const SavedCheck &check);

    /// Appends the rows of a document.
    void add(const FileTarget &file);
    void add(const CameraTarget &camera);

    const QJsonArray &rows() const { return m_rows; }

    /// The rows as compact JSON.
    QString text() const;

private:
    void append(QJsonObject &row, qint64 frames);
    bool hasCopy(const SavedRecord &record) const;

    bool m_isChecked;
    QSet<SavedRecord> m_copies;
    QJsonArray m_rows;
};

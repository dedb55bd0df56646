#pragma once

#include "standin/drawing/InfoValues.h"

#include <QDateTime>
#include <QVariant>

class StandInDocument;

/// A document as the target of a save: what it adds to names of files, and what lists tell of its
/// partitions. All follows from the settings and the document as they are at the moment.
class DocumentTarget
{
public:
    /// Part of the document, which outlives it.
    explicit DocumentTarget(const StandInDocument &document) : m_document(document) {}

    /// What the file of a partition, saved in a mode, has behind its name; `usesSequence` tells
    /// whether the number of the file, from 1, is part of it.
    QString nameAddition(int mode, int partitionNo, int sequence, bool &usesSequence,
                         const QDateTime &time) const;

    /// A row for each partition, under "partitions". `layout`: for a list of layouts, which skip
    /// frames by settings of their own.
    QVariantMap infoMap(bool layout) const;

private:
    InfoValues values() const;

    const StandInDocument &m_document;
};

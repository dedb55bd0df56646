#pragma once

#include "standin/drawing/InfoValues.h"

#include <QDateTime>

class StandInDocument;

/// A document as the target of a save: what it adds to names of files. All follows from the
/// settings and the document as they are at the moment.
class DocumentTarget
{
public:
    /// Part of the document, which outlives it.
    explicit DocumentTarget(const StandInDocument &document) : m_document(document) {}

    /// What the file of a partition, saved in a mode, has behind its name; `usesSequence` tells
    /// whether the number of the file, from 1, is part of it.
    QString nameAddition(int mode, int partitionNo, int sequence, bool &usesSequence,
                         const QDateTime &time) const;

private:
    InfoValues values() const;

    const StandInDocument &m_document;
};

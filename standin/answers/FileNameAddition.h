#pragma once

#include "foundation/SaveModes.h"
#include "save/path/PathRules.h"

#include <QStringList>
#include <QVariant>

#include <functional>

/// What a document adds to the name of its file: a text, directly behind it a number, and behind
/// that texts of the information. Any thread.
struct FileNameAddition
{
    QString text;
    bool addsNumber = false;
    bool sizesDigits = false; ///< digits of camera and head follow from what there is
    NumberText::Digits digits;
    bool addsDetails = false;
    QStringList details; ///< ids of the items of information
    QString connector;   ///< before each of their texts, unless nothing stands before it

    /// From the settings of one kind of save, each asked by its key.
    static FileNameAddition read(SaveModes::Family family,
                                 const std::function<QVariant(const QString &key)> &setting);

    /// Whether the sequence number is part of it.
    bool usesSequence() const { return addsNumber && digits.session >= 1; }

    /// The addition, empty when there is nothing to add. The number is made as those of directories
    /// are: files that were opened have no camera and no head. `detail` gives the text of an item
    /// of information; empty ones are left out.
    QString compose(int sequence, const PathRules::NumberFacts &device, bool isFileMode,
                    const std::function<QString(const QString &id)> &detail) const;
};

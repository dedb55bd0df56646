#pragma once

#include "contract/HostTypes.h"
#include "standin/drawing/DisplayFormats.h"
#include "standin/drawing/InfoFacts.h"

#include <QStringList>

/// The texts of the items of information, each by its id.
struct InfoValues
{
    DisplayFormats formats;
    TimeCodeRecord timeCode;

    /// The lines of an item, without its label and of plain text. None for an item without a value,
    /// for the logo, which is a picture, and for what is no item. An item that is not computed from
    /// the other facts is what the device tells.
    QStringList lines(const QString &id, const InfoFacts &facts) const;

    /// Whether the lines of an item speak for themselves, without a label in front.
    static bool isBare(const QString &id);
};

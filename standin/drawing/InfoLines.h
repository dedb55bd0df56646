#pragma once

#include "record/display/InfoItemList.h"
#include "standin/drawing/InfoLine.h"
#include "standin/drawing/InfoValues.h"

#include <QVector>

#include <functional>

/// The lines that a group of items makes.
namespace InfoLines {

/// More lines than any picture has room for, and more characters than any line.
constexpr int MostLines = 500;
constexpr int MostCharacters = 1000;

/// What is drawn beside the values.
struct Options
{
    bool blankLines = false; ///< each separator of the list is a blank line; else it is nothing
    bool hasLogo = false;    ///< the logo can be drawn
    std::function<QString(const QString &id)> label; ///< what stands before an item's first line
};

/// The lines of the items that are ticked and enabled, in their order. What has no value makes
/// none. Line breaks and control characters of a value become blanks.
QVector<InfoLine> of(const QVector<InfoItemList::Entry> &entries, const InfoValues &values,
                     const InfoFacts &facts, const Options &options);

}

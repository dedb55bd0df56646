#pragma once

#include <QString>

#include <array>

/// An item of information that can be shown over a picture or saved with it.
struct InfoItem
{
    /// Where an item can be offered, in the order of `usable`.
    enum Target { Live, Memory, File, SaveForm };

    QString key; ///< "<hr>" is a separator without labels; empty ends the table
    bool defaultShown;
    QString label;      ///< source text, translated for the settings list
    QString shortLabel; ///< head of a column where space is short
    bool usable[4];     ///< by Target

    static std::array<InfoItem, 55> makeAll();
};

/// All items in the order in which they are shown, built when the library is loaded. A reader stops
/// at the end row, which has an empty key.
inline const std::array<InfoItem, 55> infoItems = InfoItem::makeAll();

#pragma once

#include <QString>

/// A line of the information over a picture. Without a text it is blank.
struct InfoLine
{
    QString text;        ///< plain, without line breaks
    bool isLogo = false; ///< the logo stands in its place

    friend bool operator==(const InfoLine &a, const InfoLine &b)
    {
        return a.isLogo == b.isLogo && a.text == b.text;
    }
    friend bool operator!=(const InfoLine &a, const InfoLine &b) { return !(a == b); }
};

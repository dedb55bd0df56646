#pragma once

#include <QString>

/// Texts as XML 1.0 can hold them.
namespace XmlText {

/// The text with U+FFFD in place of what no XML 1.0 document can hold, not even as a reference:
/// control characters but tab and the two line ends, halves of a surrogate pair without the other,
/// U+FFFE and U+FFFF. One such character unreplaced makes a whole file unreadable.
QString storable(const QString &text);

}

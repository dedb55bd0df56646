#pragma once

#include <QDomDocument>

class QIODevice;

/// Trees of XML files that come from outside, within limits.
///
/// A tree is what QDomDocument::setContent() makes of the same bytes, without namespaces: text of
/// blanks alone is left out, and of a broken file there is what stands before the break. The
/// parser calls itself for each level of parentheses in a document type, and a tree goes level by
/// level; both would end the process for a file that is made for it. Hence the limits.
namespace XmlTree {

constexpr qint64 MaxSize = 16 * 1024 * 1024; ///< bytes of a file
constexpr int MaxDepth = 64;                 ///< elements inside each other, the root counted

/// The tree of what is left to read of `device`, which is open. Empty for more than MaxSize bytes,
/// for more than MaxDepth levels, and for a document type with definitions of its own; one that
/// only names itself is read. What it names outside the file is not looked at. Any thread.
QDomDocument read(QIODevice &device);

}

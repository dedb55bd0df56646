#pragma once

#include <QString>

/// Order of names as people count: "image9" before "image10", under any locale. Runs of digits
/// compare by their value, other characters without regard to case; names that are equal so far
/// compare as they are, so that the order is always the same.
namespace NaturalOrder {

bool isLess(const QString &left, const QString &right);

}

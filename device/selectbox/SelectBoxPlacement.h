#pragma once

#include <QRect>

/// Where a pop-up list stands beside the field that it belongs to.
namespace SelectBoxPlacement {

/// Height of one row, in pixels.
constexpr int RowHeight = 24;

/// The list's place for `rows` rows, all in screen pixels: below `field` and as wide, or above it
/// where there is more room, never outside `screen`. It is cut where it does not fit; a page
/// scrolls then. At least one row.
QRect place(const QRect &field, int rows, const QRect &screen);

}

#include "device/selectbox/SelectBoxPlacement.h"

#include <algorithm>

namespace {

constexpr int LeastWidth = 80;
constexpr int Border = 1;

// For a row count that comes from outside.
constexpr int MostRows = 1000;

}

namespace SelectBoxPlacement {

QRect place(const QRect &field, int rows, const QRect &screen)
{
    const int wanted = std::clamp(rows, 1, MostRows) * RowHeight + 2 * Border;
    const int roomBelow = screen.bottom() - field.bottom();
    const int roomAbove = field.top() - screen.top();
    const bool below = wanted <= roomBelow || roomBelow >= roomAbove;
    const int room = std::max(below ? roomBelow : roomAbove, RowHeight);
    const int height = std::min({wanted, room, screen.height()});
    const int width = std::min(std::max(field.width(), LeastWidth), screen.width());
    const int x = std::clamp(field.left(), screen.left(), screen.right() - width + 1);
    const int y = below ? field.bottom() + 1 : field.top() - height;
    return QRect(x, std::clamp(y, screen.top(), screen.bottom() - height + 1), width, height);
}

}

#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QRandomGenerator>

#include <cmath>

using namespace RegionGeometry;

// The same edits once more, written out step by step and side by side, without what the two axes
// have in common, on numbers far from any limit of their type. Random cases hold the two together.
namespace Literal {

struct Sides
{
    long long x1, y1, x2, y2;

    long long width() const { return x2 - x1 + 1; }
    long long height() const { return y2 - y1 + 1; }
};

Sides sidesOf(const QRect &rect)
{
    return {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

QRect rectOf(const Sides &r)
{
    return corners(int(r.x1), int(r.y1), int(r.x2), int(r.y2));
}

long long rounded(double v)
{
    if (v >= 0.0)
        return (long long)(v + 0.5);
    const auto i = (long long)(v - 1.0);
    return i + (long long)(v - double(i) + 0.5);
}

struct Turned
{
    long long stepX, stepY, sizeX, sizeY, maxW, maxH;
};

Turned turnedLimits(const Limits &limits)
{
    Turned t{limits.positionStep.x(),  limits.positionStep.y(), limits.sizeStep.width(),
             limits.sizeStep.height(), limits.maximum.width(),  limits.maximum.height()};
    if (limits.transposed)
        t = {t.stepY, t.stepX, t.sizeY, t.sizeX, t.maxH, t.maxW};
    for (long long *step : {&t.stepX, &t.stepY, &t.sizeX, &t.sizeY}) {
        if (*step < 1)
            *step = 1;
    }
    return t;
}

Sides clamped(Sides r, const Limits &limits)
{
    r = sidesOf(rectOf(r).normalized());
    const long long right = limits.image.width() - 1;
    const long long bottom = limits.image.height() - 1;
    if (r.y1 < 0) {
        r.y2 += 0 - r.y1;
        r.y1 = 0;
    }
    if (r.x1 < 0) {
        r.x2 += 0 - r.x1;
        r.x1 = 0;
    }
    if (r.y2 > bottom) {
        r.y1 -= r.y2 - bottom;
        r.y2 = bottom;
    }
    if (r.x2 > right) {
        r.x1 -= r.x2 - right;
        r.x2 = right;
    }
    const Turned t = turnedLimits(limits);
    if (t.maxW >= 0 && t.maxH >= 0) {
        if (r.width() > t.maxW)
            r.x2 = r.x1 + t.maxW - 1;
        if (r.height() > t.maxH)
            r.y2 = r.y1 + t.maxH - 1;
    }
    return r;
}

bool isOneOf(int handle, std::initializer_list<int> handles)
{
    return std::find(handles.begin(), handles.end(), handle) != handles.end();
}

void maximum(Sides &r, int handle, const Sides &reference, const Turned &t)
{
    if (t.maxW < 0 || t.maxH < 0)
        return;
    if (r.width() > t.maxW) {
        r.x2 = r.x1 + t.maxW - 1;
        if (isOneOf(handle, {2, 4, 6})) {
            r.x1 += reference.x2 - r.x2;
            r.x2 = reference.x2;
        }
        if (isOneOf(handle, {3, 5, 7})) {
            r.x2 += reference.x1 - r.x1;
            r.x1 = reference.x1;
        }
    }
    if (r.height() > t.maxH) {
        r.y2 = r.y1 + t.maxH - 1;
        if (isOneOf(handle, {0, 4, 5})) {
            r.y1 += reference.y2 - r.y2;
            r.y2 = reference.y2;
        }
        if (isOneOf(handle, {1, 6, 7})) {
            r.y2 += reference.y1 - r.y1;
            r.y1 = reference.y1;
        }
    }
}

void aspectRule(Sides &r, int handle, double a, const Limits &limits, int &anchor)
{
    const long long minX = 0;
    const long long minY = 0;
    const long long maxX = limits.image.width() - 1;
    const long long maxY = limits.image.height() - 1;
    const long long nw = rounded(double(r.y2 - r.y1 + 1) / a);
    const long long nh = rounded(double(r.x2 - r.x1 + 1) * a);
    if (handle == 0) {
        if ((r.x1 <= minX || anchor != 4) && anchor != 3) {
            r.x2 = r.x1 - 1 + nw;
            if (r.x2 > maxX) {
                r.x2 = maxX;
                r.y1 = r.y2 - rounded(double(maxX - r.x1 + 1) * a) + 1;
            }
            anchor = 2;
        } else {
            r.x1 = r.x2 - nw + 1;
            if (r.x1 < minX) {
                r.x1 = minX;
                r.y1 = r.y2 - rounded(double(r.x2 - minX + 1) * a) + 1;
            }
            anchor = 3;
        }
    } else if (handle == 1) {
        if ((r.x2 >= maxX || anchor != 4) && anchor != 0) {
            r.x1 = r.x2 - nw + 1;
            if (r.x1 <= minX) {
                r.x1 = minX;
                r.y2 = r.y1 - 1 + rounded(double(r.x2 - minX + 1) * a);
            }
            anchor = 1;
        } else {
            r.x2 = r.x1 - 1 + nw;
            if (r.x2 > maxX) {
                r.x2 = maxX;
                r.y2 = r.y1 - 1 + rounded(double(maxX - r.x1 + 1) * a);
            }
            anchor = 0;
        }
    } else if (handle == 2) {
        if ((r.y1 <= minY || anchor != 4) && anchor != 3) {
            r.y2 = r.y1 - 1 + nh;
            if (r.y2 > maxY) {
                r.y2 = maxY;
                r.x1 = r.x2 - rounded(double(maxY - r.y1 + 1) / a) + 1;
            }
            anchor = 1;
        } else {
            r.y1 = r.y2 - nh + 1;
            if (r.y1 <= minY) {
                r.y1 = minY;
                r.x1 = r.x2 - rounded(double(r.y2 - minY + 1) / a) + 1;
            }
            anchor = 3;
        }
    } else if (handle == 3) {
        if ((r.y2 >= maxY || anchor != 4) && anchor != 0) {
            r.y1 = r.y2 - nh + 1;
            if (r.y1 <= minY) {
                r.y1 = minY;
                r.x2 = r.x1 + 1 + rounded(double(r.y2 - minY + 1) / a);
            }
            anchor = 2;
        } else {
            r.y2 = r.y1 - 1 + nh;
            if (r.y2 > maxY) {
                r.y2 = maxY;
                r.x2 = r.x1 - 1 + rounded(double(maxY - r.y1 + 1) / a);
            }
            anchor = 0;
        }
    } else if (handle == 4) {
        r.y1 = r.y2 - nh + 1;
        if (r.y1 <= minY) {
            r.y2 = minY;
            r.x1 = r.x2 - rounded(double(minY - r.y1 + 1) / a) + 1;
        }
        anchor = 3;
    } else if (handle == 5) {
        r.x2 = r.x1 - 1 + nw;
        if (r.x2 > maxX) {
            r.x2 = maxX;
            r.y1 = r.y2 - rounded(double(maxX - r.x1 + 1) * a) + 1;
        }
        anchor = 2;
    } else if (handle == 6) {
        r.y2 = r.y1 - 1 + nh;
        if (r.y2 > maxY) {
            r.y2 = maxY;
            r.x1 = r.x2 - rounded(double(maxY - r.y1 + 1) / a) + 1;
        }
        anchor = 1;
    } else if (handle == 7) {
        r.x2 = r.x1 - 1 + nw;
        if (r.x2 > maxX) {
            r.x2 = maxX;
            r.y2 = r.y1 - 1 + rounded(double(maxX - r.x1 + 1) * a);
        }
        anchor = 0;
    }
}

Sides constrained(Sides r, int handle, const Sides &reference, const Limits &limits, int &anchor)
{
    const Turned t = turnedLimits(limits);
    const long long minW = limits.minimum.width();
    const long long minH = limits.minimum.height();

    maximum(r, handle, reference, t);
    r = clamped(r, limits);

    if (limits.aspectFixed && limits.aspect > 0.0) {
        aspectRule(r, handle, limits.aspect, limits, anchor);
        r = clamped(r, limits);
    }

    if (t.stepX >= 2 || t.stepY >= 2) {
        if (handle == 8) {
            long long x = r.x1;
            long long y = r.y1;
            if (t.stepX >= 2) {
                const long long rx = r.x1 % t.stepX;
                x = r.x1 - rx;
                if (rx >= t.stepX / 2)
                    x += t.stepX;
            }
            if (t.stepY >= 2) {
                const long long ry = r.y1 % t.stepY;
                y = r.y1 - ry;
                if (ry >= t.stepY / 2)
                    y += t.stepY;
            }
            r = {x, y, x + r.width() - 1, y + r.height() - 1};
        }
        r = clamped(r, limits);
    }

    if (t.sizeX >= 2 || t.sizeY >= 2) {
        if (isOneOf(handle, {0, 4, 5}))
            r.y1 += (r.y2 - minH - r.y1 + 1) % t.sizeY;
        if (isOneOf(handle, {1, 6, 7}))
            r.y2 -= (r.y2 - r.y1 - minH + 1) % t.sizeY;
        if (isOneOf(handle, {2, 4, 6}))
            r.x1 += (r.x2 - minW - r.x1 + 1) % t.sizeX;
        if (isOneOf(handle, {3, 5, 7}))
            r.x2 -= (r.x2 - minW - r.x1 + 1) % t.sizeX;
        r = clamped(r, limits);
    }

    if (limits.symmetricX || limits.symmetricY) {
        const long long width = limits.fullImage.width();
        const long long height = limits.fullImage.height();
        long long x = r.x1;
        long long y = r.y1;
        if (limits.symmetricX)
            x = (width - r.x2 - 1 + r.x1) >> 1;
        if (limits.symmetricY)
            y = (r.y1 - r.y2 + height - 1) >> 1;
        r = {x, y, x + r.width() - 1, y + r.height() - 1};
        r = clamped(r, limits);
    }

    if (minW >= 0 && minH >= 0) {
        if (r.width() < minW)
            r.x2 = r.x1 + minW - 1;
        if (r.height() < minH)
            r.y2 = r.y1 + minH - 1;
    }
    return r;
}

Sides dragged(const Sides &old, int handle, const QPoint &point, const Limits &limits)
{
    Sides r = old;
    const long long px = point.x();
    const long long py = point.y();
    const long long mw = limits.minimum.width();
    const long long mh = limits.minimum.height();
    const bool top = isOneOf(handle, {0, 4, 5});
    const bool bottom = isOneOf(handle, {1, 6, 7});
    const bool left = isOneOf(handle, {2, 4, 6});
    const bool right = isOneOf(handle, {3, 5, 7});
    if ((top && py > old.y2 - mh + 1) || (bottom && py < old.y1 + mh - 1) ||
        (left && px > old.x2 - mw + 1) || (right && px < old.x1 + mw - 1))
        return r;
    if (limits.symmetricX && left)
        r.x2 = limits.image.width() - 1 - px;
    if (limits.symmetricX && right)
        r.x1 = limits.image.width() - 1 - px;
    if (limits.symmetricY && top)
        r.y2 = limits.image.height() - 1 - py;
    if (limits.symmetricY && bottom)
        r.y1 = limits.image.height() - 1 - py;
    if (left)
        r.x1 = px;
    if (right)
        r.x2 = px;
    if (top)
        r.y1 = py;
    if (bottom)
        r.y2 = py;
    return r;
}

// The edit of a key, up to the pass; the handle, or -1 for a key that does nothing.
int keyEdit(QRect &rect, int key, Qt::KeyboardModifiers modifiers, const Limits &limits)
{
    Sides r = sidesOf(rect);
    int handle = 9;
    long long dx = 0;
    long long dy = 0;
    const long long width = limits.image.width();
    const long long height = limits.image.height();
    const long long mw = limits.minimum.width();
    const long long mh = limits.minimum.height();
    long long sw = limits.sizeStep.width() < 1 ? 1 : limits.sizeStep.width();
    long long sh = limits.sizeStep.height() < 1 ? 1 : limits.sizeStep.height();
    if (limits.symmetricX)
        sw /= 2;
    if (limits.symmetricY)
        sh /= 2;
    const long long px = limits.positionStep.x() < 1 ? 1 : limits.positionStep.x();
    const long long py = limits.positionStep.y() < 1 ? 1 : limits.positionStep.y();
    const bool shift = modifiers & Qt::ShiftModifier;
    const bool control = modifiers & Qt::ControlModifier;
    switch (key) {
    case Qt::Key_Left:
        if (shift) {
            handle = 2;
            const long long x1 = control ? r.x1 + sw : r.x1 - sw;
            if (x1 >= 0 && x1 <= r.x2 - mw + 1) {
                if (limits.symmetricX)
                    r.x2 = width - 1 - x1;
                r.x1 = x1;
            }
        } else {
            dx = -px;
        }
        break;
    case Qt::Key_Up:
        if (shift) {
            handle = 0;
            const long long y1 = control ? r.y1 + sh : r.y1 - sh;
            if (y1 >= 0 && y1 <= r.y2 - mh + 1) {
                if (limits.symmetricY)
                    r.y2 = height - 1 - y1;
                r.y1 = y1;
            }
        } else {
            dy = -py;
        }
        break;
    case Qt::Key_Right:
        if (shift) {
            handle = 3;
            const long long x2 = control ? r.x2 - sw : r.x2 + sw;
            if (x2 <= width - 1 && x2 >= r.x1 + mw - 1) {
                if (limits.symmetricX)
                    r.x1 = width - 1 - x2;
                r.x2 = x2;
            }
        } else {
            dx = px;
        }
        break;
    case Qt::Key_Down:
        if (shift) {
            handle = 1;
            const long long y2 = control ? r.y2 - sh : r.y2 + sh;
            if (y2 <= height - 1 && y2 >= r.y1 + mh - 1) {
                if (limits.symmetricY)
                    r.y1 = height - 1 - y2;
                r.y2 = y2;
            }
        } else {
            dy = py;
        }
        break;
    default:
        return -1;
    }
    rect = rectOf(r);
    rect.moveCenter(QPoint(int((r.x1 + r.x2) / 2 + dx), int((r.y1 + r.y2) / 2 + dy)));
    return handle;
}

int hitTest(const QRect &viewRect, QPoint pos, const ViewTurn &turn, int tol)
{
    const Sides old = sidesOf(viewRect);
    Sides r = old;
    const bool quarter = turn.degrees == 90 || turn.degrees == 270;
    if (turn.degrees == 90)
        r = {old.y1, old.x2, old.y2 + 1, old.x1 - 1};
    if (turn.degrees == 180)
        r = {old.x2, old.y2, old.x1, old.y1};
    if (turn.degrees == 270)
        r = {old.y2, old.x1, old.y1 - 1, old.x2 + 1};
    if (quarter)
        pos = QPoint(pos.y(), pos.x());
    if (turn.flippedHorizontally) {
        if (quarter)
            std::swap(r.y1, r.y2);
        else
            std::swap(r.x1, r.x2);
    }
    if (turn.flippedVertically) {
        if (quarter)
            std::swap(r.x1, r.x2);
        else
            std::swap(r.y1, r.y2);
    }
    const long long lowX = r.x1 > r.x2 ? r.x2 + tol : r.x1 - tol;
    const long long highX = r.x1 > r.x2 ? r.x1 - tol : r.x2 + tol;
    const long long lowY = r.y1 > r.y2 ? r.y2 + tol : r.y1 - tol;
    const long long highY = r.y1 > r.y2 ? r.y1 - tol : r.y2 + tol;
    const auto inBand = [tol](long long value, long long side) {
        return value >= side - tol && value <= side + tol;
    };
    const long long x = pos.x();
    const long long y = pos.y();
    if (inBand(y, r.y1)) {
        if (inBand(x, r.x1))
            return 4;
        if (inBand(x, r.x2))
            return 5;
        if (x >= lowX && x <= highX)
            return 0;
    }
    if (inBand(y, r.y2)) {
        if (inBand(x, r.x1))
            return 6;
        if (inBand(x, r.x2))
            return 7;
        if (x >= lowX && x <= highX)
            return 1;
    }
    if (y >= lowY && y <= highY && inBand(x, r.x1))
        return 2;
    if (y >= lowY && y <= highY && inBand(x, r.x2))
        return 3;
    if (x > lowX && x < highX && y > lowY && y < highY)
        return 8;
    return 9;
}

}

class TestRegionReference : public TestBase
{
    Q_OBJECT

private slots:
    void passesAgree();
    void dragsAgree();
    void keysAgree();
    void hitTestsAgree();

private:
    QRandomGenerator m_random{20};

    int between(int low, int high) { return m_random.bounded(low, high + 1); }
    bool maybe() { return between(0, 1) == 1; }
    QRect anyRect()
    {
        return corners(between(-30, 90), between(-30, 90), between(-30, 90), between(-30, 90));
    }
    QPoint anyPoint() { return QPoint(between(-40, 100), between(-40, 100)); }
    Limits anyLimits();
};

Limits TestRegionReference::anyLimits()
{
    Limits limits;
    limits.image = QSize(between(0, 64), between(0, 64));
    limits.fullImage = maybe() ? limits.image : QSize(between(0, 90), between(0, 90));
    limits.positionStep = maybe() ? QPoint(1, 1) : QPoint(between(-1, 9), between(-1, 9));
    limits.sizeStep = maybe() ? QSize(1, 1) : QSize(between(-1, 9), between(-1, 9));
    limits.maximum = maybe() ? QSize(-1, -1) : QSize(between(-1, 50), between(-1, 50));
    limits.minimum = QSize(between(-1, 20), between(-1, 20));
    limits.transposed = maybe();
    limits.symmetricX = between(0, 3) == 0;
    limits.symmetricY = between(0, 3) == 0;
    limits.aspectFixed = maybe();
    limits.aspect = between(-1, 40) / 10.0;
    return limits;
}

void TestRegionReference::passesAgree()
{
    for (int i = 0; i < 300000; ++i) {
        const Limits limits = anyLimits();
        const QRect rect = anyRect();
        const QRect reference = maybe() ? rect : anyRect();
        const int handle = between(0, 9);
        const int before = between(0, 4);
        int anchor = before;
        int expectedAnchor = before;
        const QRect result = constrained(rect, handle, reference, limits, anchor);
        const Literal::Sides expected = Literal::constrained(
            Literal::sidesOf(rect), handle, Literal::sidesOf(reference), limits, expectedAnchor);
        if (result != Literal::rectOf(expected) || anchor != expectedAnchor)
            qInfo() << "case" << i << rect << handle << reference << before << limits.aspect;
        QCOMPARE(result, Literal::rectOf(expected));
        QCOMPARE(anchor, expectedAnchor);
        QCOMPARE(clamped(rect, limits),
                 Literal::rectOf(Literal::clamped(Literal::sidesOf(rect), limits)));
    }
}

void TestRegionReference::dragsAgree()
{
    for (int i = 0; i < 100000; ++i) {
        const Limits limits = anyLimits();
        const QRect rect = anyRect();
        const QPoint point = anyPoint();
        const int handle = between(0, 9);
        QCOMPARE(dragged(rect, handle, point, limits),
                 Literal::rectOf(Literal::dragged(Literal::sidesOf(rect), handle, point, limits)));

        const QPoint from = anyPoint();
        const QRect start = anyRect();
        QRect expected = rect;
        expected.moveCenter(start.center() + point - from);
        QCOMPARE(moved(rect, start, from, point), expected);
    }
}

void TestRegionReference::keysAgree()
{
    const int keys[] = {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_A};
    for (int i = 0; i < 100000; ++i) {
        const Limits limits = anyLimits();
        const QRect rect = anyRect();
        const int key = keys[between(0, 4)];
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ShiftModifier, maybe());
        modifiers.setFlag(Qt::ControlModifier, maybe());
        QRect expected = rect;
        const int handle = Literal::keyEdit(expected, key, modifiers, limits);
        const auto edit = keyEdit(rect, key, modifiers, limits);
        QCOMPARE(bool(edit), handle >= 0);
        if (edit) {
            QCOMPARE(edit->handle, handle);
            QCOMPARE(edit->rect, expected);
        }
    }
}

void TestRegionReference::hitTestsAgree()
{
    for (int i = 0; i < 300000; ++i) {
        const QRect rect = anyRect();
        const QPoint point = anyPoint();
        const ViewTurn turn{90 * between(0, 3), maybe(), maybe()};
        const int tolerance = between(1, 6);
        QCOMPARE(hitTest(rect, point, turn, tolerance),
                 Literal::hitTest(rect, point, turn, tolerance));
    }
}

int main(int argc, char *argv[])
{
    TestRegionReference test;
    return runTest(argc, argv, test);
}

#include "test_region_reference.moc"

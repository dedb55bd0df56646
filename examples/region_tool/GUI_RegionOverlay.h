#pragma once

#include <QWidget>

class PLG_region;

/// Draws the region of the current camera with its eight handles. The host lays it over the picture
/// as large as that is shown; the pointer passes through it.
class GUI_RegionOverlay : public QWidget
{
    Q_OBJECT

public:
    /// Side of a handle, in pixels of the screen.
    static constexpr int HandleSize = 7;

    /// The tool outlives the overlay.
    explicit GUI_RegionOverlay(PLG_region &tool);

    /// Middles of the eight handles of a rectangle.
    static QVector<QPoint> handlePoints(const QRect &rect);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PLG_region &m_tool;
};

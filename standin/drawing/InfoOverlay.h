#pragma once

#include "standin/drawing/InfoBlock.h"

#include <QRect>
#include <QSize>

#include <map>

class QPainter;

/// The information over a picture, or around it: a caption strip below, and six groups at the top
/// and the bottom, left, in the middle and right. It lays out and paints, and knows nothing of
/// where the lines come from.
///
/// Its coordinates are those of its canvas, which is the picture, and where the groups stand
/// outside the strips above and below it too. A painter that is scaled paints the same at another
/// size. Text stands upright: how a picture is turned is the matter of who draws it.
class InfoOverlay
{
public:
    /// Where a group stands.
    enum Place { Caption, TopLeft, Top, TopRight, BottomLeft, Bottom, BottomRight };

    /// Whether groups stand within the picture; else in black strips above and below it.
    explicit InfoOverlay(bool withinImage = true) : m_withinImage(withinImage) {}

    /// The caption is as wide as the picture, whatever its style says.
    void setGroup(Place place, const InfoStyle &style, const QImage &logo = QImage());

    /// Nothing for a place without a group.
    void setLines(Place place, const QVector<InfoLine> &lines);

    /// Size of the picture in pixels.
    void setPicture(const QSize &picture);

    QSize canvas() const;

    /// Where the picture stands on the canvas.
    QRect picturePlace() const;

    /// Where a group stands on the canvas; empty where nothing of it is to be seen.
    QRectF groupPlace(Place place) const;

    void paint(QPainter &painter) const;

    /// The picture with the information, scaled to this size; a null image for an empty one.
    QImage composed(const QImage &picture, const QSize &size) const;

    /// The block of a group, for a test; null without one.
    const InfoBlock *block(Place place) const;

private:
    void layOut(Place place);
    double height(Place place) const; ///< pixels of the canvas
    int stripHeight(Place first) const;

    bool m_withinImage;
    QSize m_picture;
    std::map<Place, InfoBlock> m_blocks;
};

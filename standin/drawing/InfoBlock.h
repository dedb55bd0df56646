#pragma once

#include "standin/drawing/InfoLine.h"
#include "standin/drawing/InfoStyle.h"

#include <QImage>
#include <QPointF>
#include <QSizeF>
#include <QStaticText>
#include <QVector>

class QPainter;

/// The lines of one group, laid out below each other in one column or several. A line that is
/// longer than its column ends in an ellipsis. The layout of lines that stay is kept from one
/// picture to the next. Lengths are those of the style, before its scale.
class InfoBlock
{
public:
    explicit InfoBlock(const InfoStyle &style, const QImage &logo = QImage());

    const InfoStyle &style() const { return m_style; }

    /// The place there is for it. A block is as wide as its style says, or fills the place; it is
    /// never wider. Columns end where the next line would not fit in whole.
    void setPlace(const QSizeF &place, bool filled);

    void setLines(const QVector<InfoLine> &lines);

    /// With its margins; empty where there is nothing to see. Blank lines count only beside others.
    QSizeF size() const { return m_size; }

    /// Paints it with its top left at this point.
    void paint(QPainter &painter, const QPointF &topLeft) const;

    /// The texts as they are shown, for a test: column by column.
    QStringList shownTexts() const;

private:
    struct Cell
    {
        InfoLine line;
        QString shown;
        QStaticText layout;
        QSizeF size;      ///< of the text or logo
        QPointF position; ///< in the block
        bool isPlaced = false;
    };

    double columnWidth() const;
    void prepare(Cell &cell) const;
    void arrange();

    InfoStyle m_style;
    QImage m_logo;
    QFont m_font;
    double m_margin = 0.0;
    double m_lineHeight = 0.0;
    double m_width = 0.0;
    double m_height = 0.0; ///< that there is place for
    QVector<Cell> m_cells;
    QSizeF m_size{0.0, 0.0};
};

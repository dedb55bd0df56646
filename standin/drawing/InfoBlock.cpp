#include "standin/drawing/InfoBlock.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

InfoBlock::InfoBlock(const InfoStyle &style, const QImage &logo)
    : m_style(style), m_logo(logo), m_font(style.font())
{
    m_lineHeight = QFontMetricsF(m_font).height();
    m_margin = std::round(style.fontSize / 3.0);
    m_width = style.width;
}

void InfoBlock::setPlace(const QSizeF &place, bool filled)
{
    const double width = filled ? place.width() : std::min(double(m_style.width), place.width());
    const bool otherWidth = width != m_width;
    m_width = width;
    m_height = place.height();
    if (otherWidth) {
        for (Cell &cell : m_cells)
            prepare(cell);
    }
    arrange();
}

void InfoBlock::setLines(const QVector<InfoLine> &lines)
{
    const int before = m_cells.size();
    bool changed = before != lines.size();
    m_cells.resize(lines.size());
    for (int i = 0; i < lines.size(); ++i) {
        Cell &cell = m_cells[i];
        if (i < before && cell.line == lines.at(i))
            continue;
        cell.line = lines.at(i);
        prepare(cell);
        changed = true;
    }
    if (changed)
        arrange();
}

double InfoBlock::columnWidth() const
{
    const int columns = m_style.columns;
    const double inner = m_width - 2.0 * m_margin - m_style.columnSpacing * (columns - 1);
    return std::max(0.0, inner / columns);
}

void InfoBlock::prepare(Cell &cell) const
{
    const double width = columnWidth();
    if (cell.line.isLogo) {
        QSizeF size = m_logo.size();
        if (m_style.logoHeight > 0)
            size.scale(QSizeF(1e9, m_style.logoHeight), Qt::KeepAspectRatio);
        if (size.width() > width)
            size.scale(QSizeF(width, size.height()), Qt::KeepAspectRatio);
        cell.size = size;
        cell.shown.clear();
        return;
    }
    cell.shown = QFontMetricsF(m_font).elidedText(cell.line.text, Qt::ElideRight, width);
    cell.layout.setTextFormat(Qt::PlainText);
    cell.layout.setPerformanceHint(QStaticText::AggressiveCaching);
    cell.layout.setText(cell.shown);
    cell.layout.prepare(QTransform(), m_font);
    cell.size = QSizeF(cell.layout.size().width(), m_lineHeight);
}

void InfoBlock::arrange()
{
    m_size = QSizeF(0.0, 0.0);
    const int rows = (m_cells.size() + m_style.columns - 1) / m_style.columns;
    const double width = columnWidth();
    double bottom = 0.0;
    for (int i = 0; i < m_cells.size(); ++i) {
        Cell &cell = m_cells[i];
        const int column = i / rows;
        const bool first = i % rows == 0;
        const Cell *above = first ? nullptr : &m_cells.at(i - 1);
        const double top = above ? above->position.y() + above->size.height() : m_margin;
        double left = m_margin + column * (width + m_style.columnSpacing);
        if (m_style.alignment & Qt::AlignHCenter)
            left += (width - cell.size.width()) / 2.0;
        else if (m_style.alignment & Qt::AlignRight)
            left += width - cell.size.width();
        cell.position = QPointF(left, top);
        cell.isPlaced =
            (!above || above->isPlaced) && top + cell.size.height() + m_margin <= m_height;
        const bool isSeen = cell.line.isLogo ? !cell.size.isEmpty() : !cell.shown.isEmpty();
        if (cell.isPlaced) {
            bottom = std::max(bottom, top + cell.size.height() + m_margin);
            if (isSeen)
                m_size.setWidth(m_width);
        }
    }
    if (m_size.width() > 0.0)
        m_size.setHeight(bottom);
}

void InfoBlock::paint(QPainter &painter, const QPointF &topLeft) const
{
    if (m_size.isEmpty())
        return;
    if (m_style.background.isValid())
        painter.fillRect(QRectF(topLeft, m_size), m_style.background);
    painter.setFont(m_font);
    painter.setPen(m_style.foreground);
    for (const Cell &cell : m_cells) {
        if (!cell.isPlaced)
            continue;
        const QPointF place = topLeft + cell.position;
        if (cell.line.isLogo)
            painter.drawImage(QRectF(place, cell.size), m_logo);
        else if (!cell.shown.isEmpty())
            painter.drawStaticText(place, cell.layout);
    }
}

QStringList InfoBlock::shownTexts() const
{
    QStringList texts;
    for (const Cell &cell : m_cells) {
        if (cell.isPlaced)
            texts.append(cell.shown);
    }
    return texts;
}

#include "bench/BenchRatios.h"
#include "standin/drawing/InfoOverlay.h"

#include <QGuiApplication>
#include <QPainter>

// The information over a picture, as it is painted with every frame.

namespace {

constexpr int LineCount = 40;
constexpr QSize Picture(1024, 1024);

// Some are longer than their block.
QStringList texts(int frame)
{
    QStringList all;
    for (int i = 0; i < LineCount; ++i)
        all.append(i % 4 == 0
                       ? QStringLiteral("Recording date and time: 2024/1/31 23:59:59 (%1)").arg(i)
                       : QStringLiteral("Frame rate: %1 fps").arg(1000 * i));
    all[1] = QStringLiteral("Frame No: %1").arg(frame); // the one that changes
    return all;
}

QVector<InfoLine> lines(int frame)
{
    QVector<InfoLine> all;
    for (const QString &text : texts(frame))
        all.append({text, false});
    return all;
}

InfoStyle style()
{
    InfoStyle own;
    own.fontName = QStringLiteral("DejaVu Sans");
    own.width = 280;
    own.alignment = Qt::AlignRight;
    own.background = QColor(0, 0, 64);
    return own;
}

QImage blackPicture()
{
    QImage image(Picture, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

void paintLines(benchmark::State &state)
{
    InfoOverlay overlay;
    overlay.setPicture(Picture);
    overlay.setGroup(InfoOverlay::TopLeft, style());
    const QVector<InfoLine> frames[] = {lines(1), lines(2)};
    QImage image = blackPicture();
    QPainter painter(&image);
    int frame = 0;
    for (auto _ : state) {
        overlay.setLines(InfoOverlay::TopLeft, frames[frame++ % 2]);
        overlay.paint(painter);
    }
}

void drawBareText(benchmark::State &state)
{
    const QFont font = style().font();
    const QFontMetricsF metrics(font);
    QStringList cut;
    for (const QString &text : texts(1))
        cut.append(metrics.elidedText(text, Qt::ElideRight, 272));
    QImage image = blackPicture();
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    for (auto _ : state) {
        double y = metrics.ascent();
        for (const QString &text : qAsConst(cut)) {
            painter.drawText(QPointF(4, y), text);
            y += metrics.height();
        }
    }
}

}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    BenchRatios ratios;
    ratios.add("40 lines of information, beside their text", 2, paintLines, drawBareText);
    return ratios.run(argc, argv);
}

#include "standin/drawing/SceneRenderer.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <algorithm>

namespace {

constexpr double WheelTurnsPerSecond = 12.5;
constexpr double BounceSeconds = 0.5;
constexpr double SwingSeconds = 1.7;
constexpr int Spokes = 6;
constexpr quint64 TimingBarFrames = 100;

// Height of the ball over the ground, 0 to 1: thrown up, falling, thrown up again.
double ballHeight(double seconds)
{
    const double phase = std::fmod(seconds, BounceSeconds) / BounceSeconds;
    return 4.0 * phase * (1.0 - phase);
}

// Everything is laid out on a field of 640x480 in the middle of the sensor, and grows with it.
struct Stage
{
    QPointF centre;
    double unit; ///< sensor pixels for one pixel of the field

    QPointF at(double x, double y) const { return centre + QPointF(x, y) * unit; }

    QPointF ball(double seconds) const
    {
        const double swing = std::sin(2.0 * M_PI * seconds / SwingSeconds);
        return at(-150.0 + 90.0 * swing, 150.0 - 270.0 * ballHeight(seconds));
    }
};

QColor lit(int level, double gain, const QColor &tint = Qt::white)
{
    const auto channel = [&](int part) {
        return std::clamp(qRound(level * gain * part / 255.0), 0, 255);
    };
    return QColor(channel(tint.red()), channel(tint.green()), channel(tint.blue()));
}

// Fills the image with the background and the grid. A row is one of three, and those are copied: a
// camera draws this for every frame, and lines that are one pixel wide cost a painter most of it.
void fillGrid(QImage &image, const QRect &region, double gain)
{
    constexpr int Step = 32; // sensor pixels
    constexpr int Coarse = 4;
    const QRgb fineLine = lit(66, gain).rgb();
    const QRgb coarseLine = lit(104, gain).rgb();

    // Calls draw(place, coarse) for each line, the coarse ones last: they lie above.
    const auto eachLine = [](int first, int length, int pixels, auto draw) {
        for (const bool coarse : {false, true}) {
            for (int line = first / Step; line <= (first + length - 1) / Step; ++line) {
                const int place = qFloor(double(line * Step - first) * pixels / length);
                if ((line % Coarse == 0) == coarse && place >= 0 && place < pixels)
                    draw(place, coarse);
            }
        }
    };
    QVector<QRgb> between(image.width(), lit(40, gain).rgb());
    QVector<QRgb> onFine(image.width(), fineLine);
    const QVector<QRgb> onCoarse(image.width(), coarseLine);
    eachLine(region.left(), region.width(), image.width(), [&](int x, bool coarse) {
        between[x] = coarse ? coarseLine : fineLine;
        onFine[x] = between[x];
    });
    QVector<const QVector<QRgb> *> rows(image.height(), &between);
    eachLine(region.top(), region.height(), image.height(),
             [&](int y, bool coarse) { rows[y] = coarse ? &onCoarse : &onFine; });
    for (int y = 0; y < image.height(); ++y)
        std::copy(rows[y]->cbegin(), rows[y]->cend(), reinterpret_cast<QRgb *>(image.scanLine(y)));
}

void drawWheel(QPainter &painter, const Stage &stage, double seconds, double exposure, double gain)
{
    const QPointF hub = stage.at(150, -10);
    const double radius = 120 * stage.unit;
    painter.setBrush(lit(48, gain));
    painter.setPen(QPen(lit(190, gain), 10 * stage.unit));
    painter.drawEllipse(hub, radius, radius);

    // A spoke sweeps over an angle during the exposure, and is fainter the wider it sweeps.
    const double start = 360.0 * WheelTurnsPerSecond * seconds;
    const double sweep = std::min(60.0, 360.0 * WheelTurnsPerSecond * exposure);
    const double width = 6.0;
    const double reach = radius - 5 * stage.unit;
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit(48 + qRound(172 * width / (width + 0.6 * sweep)), gain));
    for (int i = 0; i < Spokes; ++i) {
        const double angle = start + i * 360.0 / Spokes;
        painter.drawPie(QRectF(hub.x() - reach, hub.y() - reach, 2 * reach, 2 * reach),
                        qRound(-(angle - width / 2) * 16), qRound(-(width + sweep) * 16));
    }
    painter.setBrush(lit(255, gain, QColor(240, 180, 60)));
    painter.drawEllipse(hub, 14 * stage.unit, 14 * stage.unit);
}

void drawBall(QPainter &painter, const Stage &stage, double seconds, double exposure, double gain)
{
    painter.setPen(QPen(lit(150, gain), 4 * stage.unit));
    painter.drawLine(stage.at(-300, 186), stage.at(300, 186));

    const double diameter = 64 * stage.unit;
    QPainterPath track(stage.ball(seconds));
    constexpr int Samples = 4;
    for (int i = 1; i <= Samples; ++i)
        track.lineTo(stage.ball(seconds + exposure * i / Samples));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(lit(230, gain, QColor(255, 120, 90)), diameter, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    if (track.length() > 0.01)
        painter.drawPath(track);
    else
        painter.drawPoint(stage.ball(seconds));
}

void drawTimingBar(QPainter &painter, const SceneRenderer &scene)
{
    const QSize size = scene.picture;
    const int height = std::clamp(size.height() / 72, 2, 13);
    const QRect bar(0, size.height() - height, size.width(), height);
    painter.fillRect(bar, QColor(0, 0, 0, 140));
    const double part = double(scene.frame % TimingBarFrames + 1) / double(TimingBarFrames);
    painter.fillRect(QRect(bar.topLeft(), QSize(std::max(1, qRound(size.width() * part)), height)),
                     QColor(90, 200, 120));
}

}

double SceneRenderer::exposureGain(uint shutterSpeed)
{
    return std::clamp(std::pow(1000.0 / std::max(1u, shutterSpeed), 0.3), 0.25, 1.3);
}

QImage SceneRenderer::render() const
{
    if (picture.isEmpty() || region.isEmpty())
        return QImage();
    QImage image(picture, QImage::Format_RGB32);
    const double gain = exposureGain(shutterSpeed);
    fillGrid(image, region, gain);

    const double seconds = start + double(frame) / std::max(1u, recordRate);
    const double exposure = 1.0 / std::max(1u, shutterSpeed);
    const Stage stage{QPointF(sensor.width(), sensor.height()) / 2.0,
                      std::min(sensor.width() / 1024.0, sensor.height() / 1024.0)};

    QPainter painter(&image);
    painter.scale(double(picture.width()) / region.width(),
                  double(picture.height()) / region.height());
    painter.translate(-region.topLeft());
    painter.setRenderHint(QPainter::Antialiasing);
    drawWheel(painter, stage, seconds, exposure, gain);
    drawBall(painter, stage, seconds, exposure, gain);

    painter.resetTransform();
    drawTimingBar(painter, *this);
    return image;
}

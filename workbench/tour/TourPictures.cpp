#include "workbench/tour/TourPictures.h"

#include <QDir>
#include <QImage>
#include <QPainter>

QColor TourPictures::colour(int frame)
{
    return QColor::fromHsv(frame * 360 / Count, 200, 220);
}

bool TourPictures::write(const QString &folder)
{
    const QDir dir(folder);
    bool written = dir.mkpath(".");
    for (int frame = 0; frame < Count && written; ++frame) {
        QImage picture(320, 240, QImage::Format_RGB32);
        picture.fill(QColor(0x202428));
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour(frame));
        painter.drawEllipse(picture.rect().center(), 40 + 4 * frame, 40 + 4 * frame);
        painter.setPen(Qt::white);
        QFont font = painter.font();
        font.setPixelSize(24);
        painter.setFont(font);
        painter.drawText(picture.rect().adjusted(10, 6, -10, -6), Qt::AlignLeft | Qt::AlignTop,
                         QStringLiteral("Shot %1").arg(frame + 1));
        painter.end();
        const QString suffix = frame % 3 == 2 ? "jpg" : "png";
        const QString name = QStringLiteral("shot %1.%2").arg(QString::number(frame + 1), suffix);
        written = picture.save(dir.filePath(name), nullptr, 100);
    }
    return written;
}

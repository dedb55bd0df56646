#include "standin/drawing/InfoLogo.h"

#include <QFileInfo>
#include <QImageReader>

namespace InfoLogo {

namespace {
constexpr qint64 MostPixels = 64000000;
}

QImage read(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return QImage();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    return qint64(size.width()) * size.height() > MostPixels ? QImage() : reader.read();
}

}

#pragma once

#include "record/display/InfoFontSettings.h"

#include <QColor>
#include <QFont>
#include <QSize>
#include <QString>
#include <QVariant>

#include <functional>

/// How one group of information is written. Lengths are pixels of the picture, or of one of the
/// base resolution where there is one.
struct InfoStyle
{
    QString fontName;
    int fontSize = 12;
    bool bold = false;
    bool italic = false;
    QColor foreground = Qt::white;
    QColor background; ///< invalid: none
    Qt::Alignment alignment = Qt::AlignLeft;
    int width = 200;
    int columns = 1;
    int columnSpacing = 0;
    int logoHeight = 0;   ///< 0: the logo's own
    QSize baseResolution; ///< empty: sizes do not follow that of the picture

    /// From the settings, each asked by its key. What is no size or colour is as it stands above;
    /// an alignment of 0, 1, 2 means left, centre, right, and any other left.
    static InfoStyle read(InfoFontSettings::Form form, int group,
                          const std::function<QVariant(const QString &key)> &setting);

    QFont font() const;

    /// Pixels of such a picture for one of the style.
    double scaleFor(const QSize &picture) const;
};

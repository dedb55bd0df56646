#include "standin/drawing/InfoStyle.h"

#include <algorithm>

namespace {

using Property = InfoFontSettings::Property;

constexpr int LargestFont = 1000;
constexpr int LargestLength = 100000;
constexpr int MostColumns = 10;

int number(const QVariant &value, int least, int most, int otherwise)
{
    bool isNumber = false;
    const int read = value.toInt(&isNumber);
    return isNumber && read >= least ? std::min(read, most) : otherwise;
}

}

InfoStyle InfoStyle::read(InfoFontSettings::Form form, int group,
                          const std::function<QVariant(const QString &key)> &setting)
{
    const auto value = [&](Property property) {
        const QString key = InfoFontSettings::key(property, form, group);
        return InfoFontSettings::value(property, key.isEmpty() ? QVariant() : setting(key));
    };
    InfoStyle style;
    style.fontName = value(Property::FontName).toString();
    style.fontSize = number(value(Property::FontSize), 1, LargestFont, style.fontSize);
    style.bold = value(Property::Bold).toBool();
    style.italic = value(Property::Italic).toBool();
    const QColor foreground(value(Property::ForegroundColor).toString());
    if (foreground.isValid())
        style.foreground = foreground;
    if (value(Property::UseBackgroundColor).toBool())
        style.background = QColor(value(Property::BackgroundColor).toString());
    switch (value(Property::Alignment).toInt()) {
    case 1:
        style.alignment = Qt::AlignHCenter;
        break;
    case 2:
        style.alignment = Qt::AlignRight;
        break;
    default:
        break;
    }
    style.width = number(value(Property::Width), 1, LargestLength, style.width);
    if (value(Property::ToColumn).toBool())
        style.columns = number(value(Property::ColumnNum), 1, MostColumns, style.columns);
    style.columnSpacing = number(value(Property::ColumnSpacing), 0, LargestLength, 0);
    style.logoHeight = number(value(Property::IconSize), 1, LargestLength, 0);
    if (value(Property::FixedFontSizeRatio).toBool())
        style.baseResolution = value(Property::FixedFontSizeRatioBaseResolution).toSize();
    return style;
}

QFont InfoStyle::font() const
{
    QFont font(fontName);
    font.setPixelSize(fontSize);
    font.setBold(bold);
    font.setItalic(italic);
    // Text is scaled with the picture; hints of one size would move its letters at another.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double InfoStyle::scaleFor(const QSize &picture) const
{
    if (baseResolution.isEmpty() || picture.isEmpty())
        return 1.0;
    return double(picture.height()) / baseResolution.height();
}

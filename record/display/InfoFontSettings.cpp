#include "record/display/InfoFontSettings.h"

#include "foundation/Keys.h"

#include <QSize>

#include <algorithm>
#include <array>

using namespace InfoFontSettings;

namespace {

enum class Type { Text, Flag, NumberAsText, Number, Size };

enum class Offset { None, Group };

/// The columns behind the keys tell the place of the property in each pass, from 1; 0: not in it.
struct Row
{
    Property property;
    QString saveKey;
    QString editorKey;
    Type type;
    Offset offset; ///< what stands behind the key of the save form
    int initial;
    int backup;
    int collective;
    int rollback;
};

constexpr int PropertyCount = int(Property::LogoPath) + 1;

std::array<Row, PropertyCount> makeRows()
{
    using P = Property;
    const auto &save = Keys::saveInfo;
    const auto &editor = Keys::info;
    const QString none;
    const Offset group = Offset::Group;
    const Offset no = Offset::None;
    return {{
        {P::FontName, save.fontName, editor.fontName, Type::Text, group, 3, 2, 1, 2},
        {P::FontSize, save.fontSize, editor.fontSize, Type::Text, group, 4, 3, 2, 3},
        {P::Bold, save.bold, editor.bold, Type::Flag, group, 5, 4, 3, 4},
        {P::Italic, save.italic, editor.italic, Type::Flag, group, 6, 5, 4, 5},
        {P::ForegroundColor, save.foregroundColor, editor.foregroundColor, Type::Text, group, 13, 6,
         5, 10},
        {P::Alignment, save.alignment, editor.alignment, Type::NumberAsText, group, 9, 9, 10, 6},
        {P::Width, save.width, editor.width, Type::NumberAsText, group, 10, 12, 11, 7},
        {P::FixedFontSizeRatio, save.fixedFontSizeRatio, none, Type::Flag, group, 7, 7, 6, 15},
        {P::FixedFontSizeRatioBaseResolution, save.fixedFontSizeRatioBaseResolution, none,
         Type::Size, group, 8, 8, 7, 16},
        {P::UseBackgroundColor, save.useBackgroundColor, none, Type::Flag, group, 14, 10, 8, 12},
        {P::BackgroundColor, save.backgroundColor, none, Type::Text, group, 15, 11, 9, 11},
        {P::ToColumn, save.toColumn, none, Type::Flag, group, 11, 14, 12, 8},
        {P::ColumnNum, save.columnNum, none, Type::Text, group, 12, 15, 13, 9},
        {P::ColumnSpacing, save.columnSpacing, none, Type::Number, group, 16, 16, 14, 14},
        {P::IconSize, none, editor.iconSize, Type::NumberAsText, no, 0, 13, 0, 0},
        {P::Display, save.display, editor.display, Type::Text, group, 2, 0, 0, 0},
        {P::WithinImage, save.withinImage, none, Type::Flag, no, 17, 0, 0, 13},
        {P::CollectiveSetting, save.collectiveSetting, none, Type::Flag, no, 1, 1, 0, 1},
        {P::BlankLine, editor.blankLine, editor.blankLine, Type::Flag, no, 18, 0, 0, 0},
        {P::LogoPath, save.logoPath, editor.logoPath, Type::Text, no, 0, 0, 0, 0},
    }};
}

const std::array<Row, PropertyCount> &rows()
{
    static const std::array<Row, PropertyCount> all = makeRows();
    return all;
}

const Row &rowOf(Property property)
{
    return rows()[size_t(property)];
}

const QString &keyIn(const Row &row, Form form)
{
    return form == Form::Save ? row.saveKey : row.editorKey;
}

int placeIn(const Row &row, Pass pass)
{
    switch (pass) {
    case Pass::Initial:
        return row.initial;
    case Pass::Backup:
        return row.backup;
    case Pass::Collective:
        return row.collective;
    case Pass::Rollback:
        break;
    }
    return row.rollback;
}

}

namespace InfoFontSettings {

QString key(Property property, Form form, int group)
{
    const Row &row = rowOf(property);
    const QString &key = keyIn(row, form);
    if (form != Form::Save || row.offset != Offset::Group || key.isEmpty())
        return key;
    return group >= 0 && group < GroupCount ? key + QString::number(group) : QString();
}

bool isPerGroup(Property property)
{
    return rowOf(property).offset == Offset::Group;
}

QVariant value(Property property, const QVariant &stored)
{
    switch (rowOf(property).type) {
    case Type::Flag:
        return stored.toBool();
    case Type::NumberAsText:
    case Type::Number:
        return stored.toInt();
    case Type::Size:
        return stored.toSize();
    case Type::Text:
        break;
    }
    return stored.toString();
}

QVariant stored(Property property, const QVariant &value)
{
    const QVariant typed = InfoFontSettings::value(property, value);
    return rowOf(property).type == Type::NumberAsText ? typed.toString() : typed;
}

QVector<Property> order(Pass pass, Form form)
{
    QVector<const Row *> taking;
    for (const Row &row : rows()) {
        if (placeIn(row, pass) != 0 && !keyIn(row, form).isEmpty())
            taking.append(&row);
    }
    std::sort(taking.begin(), taking.end(),
              [pass](const Row *a, const Row *b) { return placeIn(*a, pass) < placeIn(*b, pass); });
    QVector<Property> properties;
    for (const Row *row : qAsConst(taking))
        properties.append(row->property);
    return properties;
}

QVector<Place> initialOrder(Form form)
{
    const QVector<Property> all = order(Pass::Initial, form);
    const auto begin = std::find_if(all.begin(), all.end(), isPerGroup);
    const auto end = std::find_if_not(begin, all.end(), isPerGroup);
    QVector<Place> places;
    const auto append = [&places](auto first, auto last, int group) {
        for (; first != last; ++first)
            places.append({*first, group});
    };
    append(all.begin(), begin, 0);
    for (int group = 0; group < GroupCount; ++group)
        append(begin, end, group);
    append(end, all.end(), 0);
    return places;
}

}

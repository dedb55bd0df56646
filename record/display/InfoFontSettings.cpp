#include "record/display/InfoFontSettings.h"

#include "foundation/Keys.h"

#include <QSize>

#include <algorithm>
#include <array>

using namespace InfoFontSettings;

namespace {

enum class Type { Text, Flag, NumberAsText, Number, Size };

enum class Offset { None, Group };

/// The letters of `places` tell the place of the property in each pass, in the order of Pass: "a"
/// is the first, "-" is not in it.
struct Row
{
    Property property;
    QString saveKey;
    QString editorKey;
    Type type;
    Offset offset; ///< what stands behind the key of the save form
    const char *places;
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
        {P::FontName, save.fontName, editor.fontName, Type::Text, group, "cbab"},
        {P::FontSize, save.fontSize, editor.fontSize, Type::Text, group, "dcbc"},
        {P::Bold, save.bold, editor.bold, Type::Flag, group, "edcd"},
        {P::Italic, save.italic, editor.italic, Type::Flag, group, "fede"},
        {P::ForegroundColor, save.foregroundColor, editor.foregroundColor, Type::Text, group,
         "mfej"},
        {P::Alignment, save.alignment, editor.alignment, Type::NumberAsText, group, "iijf"},
        {P::Width, save.width, editor.width, Type::NumberAsText, group, "jlkg"},
        {P::FixedFontSizeRatio, save.fixedFontSizeRatio, none, Type::Flag, group, "ggfo"},
        {P::FixedFontSizeRatioBaseResolution, save.fixedFontSizeRatioBaseResolution, none,
         Type::Size, group, "hhgp"},
        {P::UseBackgroundColor, save.useBackgroundColor, none, Type::Flag, group, "njhl"},
        {P::BackgroundColor, save.backgroundColor, none, Type::Text, group, "okik"},
        {P::ToColumn, save.toColumn, none, Type::Flag, group, "knlh"},
        {P::ColumnNum, save.columnNum, none, Type::Text, group, "lomi"},
        {P::ColumnSpacing, save.columnSpacing, none, Type::Number, group, "ppnn"},
        {P::IconSize, none, editor.iconSize, Type::NumberAsText, no, "-m--"},
        {P::Display, save.display, editor.display, Type::Text, group, "b---"},
        {P::WithinImage, save.withinImage, none, Type::Flag, no, "q--m"},
        {P::CollectiveSetting, save.collectiveSetting, none, Type::Flag, no, "aa-a"},
        {P::BlankLine, editor.blankLine, editor.blankLine, Type::Flag, no, "r---"},
        {P::LogoPath, save.logoPath, editor.logoPath, Type::Text, no, "----"},
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

char placeIn(const Row &row, Pass pass)
{
    return row.places[int(pass)];
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
        if (placeIn(row, pass) != '-' && !keyIn(row, form).isEmpty())
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

#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

/// The settings of the information display: where each is stored and as what, and in which order
/// they go when many are read or written at once.
///
/// They stand twice in the host's store: for the picture on the screen, once, and for what is
/// saved, where most are there for each of seven groups, with the group's number behind the key.
namespace InfoFontSettings {

constexpr int GroupCount = 7; ///< groups count from 0

enum class Form { Editor, Save };

enum class Property {
    FontName,
    FontSize,
    Bold,
    Italic,
    ForegroundColor,
    Alignment,
    Width,
    FixedFontSizeRatio,
    FixedFontSizeRatioBaseResolution,
    UseBackgroundColor,
    BackgroundColor,
    ToColumn,
    ColumnNum,
    ColumnSpacing,
    IconSize,
    Display,
    WithinImage,
    CollectiveSetting,
    BlankLine,
    LogoPath
};

/// What reads or writes many at once.
enum class Pass {
    Initial,    ///< what a dialog finds when it opens
    Backup,     ///< what a page keeps of one group, to come back to it
    Collective, ///< what one group gives to all that are set together
    Rollback    ///< what a group gets back when the dialog is cancelled
};

/// A property of one group; group 0 for what no group has for itself.
struct Place
{
    Property property;
    int group;
};

/// The key of a property; empty where the form has none. `group` counts in the save form alone,
/// and has no key there when it is none of the groups.
QString key(Property property, Form form, int group);

/// Whether the save form has one for each group.
bool isPerGroup(Property property);

/// What stands in the store, as the property's own type: text, bool, int or QSize. Of what is not
/// there it is the empty text, false, 0 or a size of -1 by -1; so reads what the form does not
/// have.
QVariant value(Property property, const QVariant &stored);

/// A value as it is stored: numbers that are stored as text become decimal text.
QVariant stored(Property property, const QVariant &value);

/// The properties of one group that take part, as far as the form has them, in their order.
QVector<Property> order(Pass pass, Form form);

/// All that a dialog finds when it opens, in the order in which it reads: every group in turn, in
/// the editor form too, between what no group has for itself.
QVector<Place> initialOrder(Form form);

}

#pragma once

#include "foundation/InfoItems.h"
#include "record/display/InfoFontSettings.h"

#include <QHash>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

/// The information items of each group of settings, as a page sorts and ticks them.
///
/// The setting of a group is one text: entries with "," between them, each "<hr>" for a line
/// between items, or the item's id, ":" and "true" or "false", in the order in which they are
/// shown. The ticks are held once for all groups, so a group is read again before it is changed.
/// A group that is none of them has no entries and takes none.
class InfoItemList
{
public:
    static constexpr int GroupCount = InfoFontSettings::GroupCount;

    struct Entry
    {
        bool isSeparator; ///< a line between items, without all that follows
        QString id;
        bool isChecked;
        bool isEnabled; ///< whether the item can be shown there
    };

    /// Where the items of a list are offered: in what is saved, or over the picture in one of the
    /// host's modes. None for an unknown mode: no item is enabled there.
    static std::optional<InfoItem::Target> target(bool saveForm, int mode);

    /// Whether an item has a link behind its label that opens what edits it.
    static bool hasLink(const QString &id);

    /// The markup of one entry. `label` is the item's and `linkText` that of its link, where it has
    /// one. Both and the id go into the markup as they are.
    static QString html(const Entry &entry, bool saveForm, const QString &label,
                        const QString &linkText);

    /// Takes over a group's setting.
    void read(int group, const QString &setting);

    bool isRead(int group) const;

    /// What a page shows of a group, as it was read. What is neither a line nor an id with a tick
    /// is left out.
    QVector<Entry> entries(int group, std::optional<InfoItem::Target> target) const;

    /// Ticks an item of any group.
    void setChecked(const QString &id, bool checked);

    /// Puts the items of a group that has been read in the order of `idList`: ids with "," between
    /// them, "HR" for a line between items. Empty ids are left out. Items keep their ticks; one
    /// that has never been read has none.
    void setOrder(int group, const QString &idList);

    /// A group as it is stored.
    QString setting(int group) const;

private:
    std::array<std::optional<QStringList>, GroupCount> m_lists;
    QHash<QString, QString> m_states;
};

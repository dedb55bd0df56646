#include "record/display/InfoItemList.h"

#include <algorithm>

namespace {

const QLatin1Char Comma(',');
const QLatin1Char Colon(':');
const QLatin1String Line("<hr>");
const QLatin1String LineOfPage("HR");
const QLatin1String True("true");
const QLatin1String False("false");

// The link behind an item: what its page finds it by.
struct Link
{
    const char *item;
    const char *id;
    const char *classes;
};

constexpr Link links[] = {
    {"Comment", "edit_comment", "float-right localize"},
    {"Custom", "edit_custom", "float-right localize"},
    {"Logo", "select_logo", "float-right localize"},
    {"TimeIrigCode", "time_code", "custom_timecode float-right"},
    {"TimeCode", "time_code", "custom_timecode float-right"},
    {"ShutterSpeed", "edit_shutter", "float-right localize"},
    {"Length", "edit_rectime", "float-right localize"},
    {"FrameRate", "edit_recordrate", "float-right localize"},
    {"FrameNumber", "edit_frame", "float-right localize"},
    {"MaxFrames", "edit_frame", "float-right localize"},
};

const Link *linkOf(const QString &id)
{
    const auto found = std::find_if(std::begin(links), std::end(links), [&](const Link &link) {
        return id == QLatin1String(link.item);
    });
    return found == std::end(links) ? nullptr : found;
}

QString linkHtml(const QString &id, const QString &text)
{
    const Link *link = linkOf(id);
    if (!link)
        return QString();
    return QLatin1String("<a href='#' name='editinfo_edit' id='") + QLatin1String(link->id) +
           QLatin1String("' class='") + QLatin1String(link->classes) + QLatin1String("'>") + text +
           QLatin1String("</a>");
}

bool isGroup(int group)
{
    return group >= 0 && group < InfoItemList::GroupCount;
}

// An entry as an item with its state; none for a line, and for what is broken.
struct Item
{
    QString id;
    QString state;
};

std::optional<Item> itemOf(const QString &entry)
{
    if (entry == Line || !entry.contains(Colon))
        return std::nullopt;
    return Item{entry.section(Colon, 0, 0), entry.section(Colon, 1, 1)};
}

QHash<QString, bool> enabledItems(std::optional<InfoItem::Target> target)
{
    QHash<QString, bool> enabled;
    if (!target)
        return enabled;
    for (const InfoItem &item : infoItems) {
        if (item.key.isEmpty())
            break;
        if (item.key != Line)
            enabled.insert(item.key, item.usable[*target]);
    }
    return enabled;
}

}

std::optional<InfoItem::Target> InfoItemList::target(bool saveForm, int mode)
{
    if (saveForm)
        return InfoItem::SaveForm;
    if (mode < InfoItem::Live || mode > InfoItem::File)
        return std::nullopt;
    return InfoItem::Target(mode);
}

bool InfoItemList::hasLink(const QString &id)
{
    return linkOf(id) != nullptr;
}

QString InfoItemList::html(const Entry &entry, bool saveForm, const QString &label,
                           const QString &linkText)
{
    if (entry.isSeparator)
        return saveForm ? QLatin1String("<hr class='unsortable'>") : Line;
    return QLatin1String("<li><input type='checkbox' id='") + entry.id + QLatin1String("' ") +
           QLatin1String(entry.isChecked ? "checked='checked'" : "") +
           QLatin1String(entry.isEnabled ? "" : " disabled='disabled'") +
           QLatin1String("><label for='") + entry.id + QLatin1String("'>") + label +
           QLatin1String("</label>") + linkHtml(entry.id, linkText) + QLatin1String("</li>");
}

void InfoItemList::read(int group, const QString &setting)
{
    if (!isGroup(group))
        return;
    const QStringList list = setting.split(Comma);
    for (const QString &entry : list) {
        if (const auto item = itemOf(entry))
            m_states.insert(item->id, item->state);
    }
    m_lists[size_t(group)] = list;
}

bool InfoItemList::isRead(int group) const
{
    return isGroup(group) && m_lists[size_t(group)];
}

QVector<InfoItemList::Entry> InfoItemList::entries(int group,
                                                   std::optional<InfoItem::Target> target) const
{
    QVector<Entry> result;
    if (!isRead(group))
        return result;
    const QHash<QString, bool> enabled = enabledItems(target);
    for (const QString &entry : *m_lists[size_t(group)]) {
        if (entry == Line)
            result.append({true, QString(), false, false});
        else if (const auto item = itemOf(entry))
            result.append({false, item->id, item->state == True, enabled.value(item->id)});
    }
    return result;
}

void InfoItemList::setChecked(const QString &id, bool checked)
{
    m_states.insert(id, checked ? True : False);
}

void InfoItemList::setOrder(int group, const QString &idList)
{
    if (!isGroup(group))
        return;
    QStringList list;
    const QStringList ids = idList.split(Comma, Qt::SkipEmptyParts);
    for (const QString &id : ids)
        list.append(id == LineOfPage ? QString(Line) : id + Colon + True);
    m_lists[size_t(group)] = list;
}

QString InfoItemList::setting(int group) const
{
    if (!isRead(group))
        return QString();
    QStringList list;
    for (const QString &entry : *m_lists[size_t(group)]) {
        if (entry == Line)
            list.append(entry);
        else if (const auto item = itemOf(entry))
            list.append(item->id + Colon + m_states.value(item->id));
    }
    return list.join(Comma);
}

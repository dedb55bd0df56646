#include "record/display/GUI_EditInfoDialog.h"

#include "contract/HostGuard.h"

#include <QPointer>

// The items of each group. A call of the host may end the dialog.

QString GUI_EditInfoDialog::getInfoSettingsHtml(int offset)
{
    if (m_transitions == 0)
        m_isDecided = false; // the page begins anew
    const InfoSettings settings = m_settings;
    const HeldDocument held = m_document;
    HostServices *services = settings.host();
    QString html;
    guarded(services, [&] {
        if (!readItems(offset))
            return;
        const QPointer<GUI_EditInfoDialog> self(this);
        const auto target = InfoItemList::target(settings.isSaveForm(), services->currentMode());
        if (!present(services, held) || !self)
            return;
        const QVector<InfoItemList::Entry> entries = m_items.entries(offset, target);
        for (const InfoItemList::Entry &entry : entries) {
            const QString label = entry.isSeparator ? QString() : services->infoItemLabel(entry.id);
            const QString link = InfoItemList::hasLink(entry.id)
                                     ? services->translate(QLatin1String("edit..."))
                                     : QString();
            html += InfoItemList::html(entry, settings.isSaveForm(), label, link);
        }
    });
    return html;
}

/// False when the dialog has gone meanwhile.
bool GUI_EditInfoDialog::readItems(int offset)
{
    const QPointer<GUI_EditInfoDialog> self(this);
    const QString setting = m_settings.read(Property::Display, offset).toString();
    if (self)
        m_items.read(offset, setting);
    return self;
}

template <typename Change> void GUI_EditInfoDialog::changeItems(int offset, Change &&change)
{
    const InfoSettings settings = m_settings;
    guarded(settings.host(), [&] {
        if (!m_items.isRead(offset) && !readItems(offset))
            return;
        if (!m_items.isRead(offset))
            return; // no group of that number
        change();
        settings.write(Property::Display, m_items.setting(offset), offset);
        settings.refresh();
    });
}

void GUI_EditInfoDialog::changeDisp(const QString &id, bool check, int offset)
{
    changeItems(offset, [&] { m_items.setChecked(id, check); });
}

void GUI_EditInfoDialog::changeOrder(const QString &idList, int offset)
{
    changeItems(offset, [&] { m_items.setOrder(offset, idList); });
}

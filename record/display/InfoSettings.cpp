#include "record/display/InfoSettings.h"

#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "foundation/Keys.h"

InfoSettings::InfoSettings(HostServices *host, InfoFontSettings::Form form)
    : m_host(host), m_form(form)
{
}

QVariant InfoSettings::read(InfoFontSettings::Property property, int group) const
{
    const QString key = InfoFontSettings::key(property, m_form, group);
    const QVariant stored = key.isEmpty() ? QVariant() : m_host->getPref(key, QVariant());
    return InfoFontSettings::value(property, stored);
}

void InfoSettings::write(InfoFontSettings::Property property, const QVariant &value,
                         int group) const
{
    const QString key = InfoFontSettings::key(property, m_form, group);
    if (key.isEmpty())
        return;
    m_host->setPref(key, InfoFontSettings::stored(property, value));
    if (property == InfoFontSettings::Property::FontName && isSaveForm())
        applyOutputFont(value.toString(), group);
}

void InfoSettings::applyOutputFont(const QString &name, int group) const
{
    const QString language = m_host->getPrefString(Keys::display.language, QVariant());
    if (language != QLatin1String("ja") && group != 0)
        m_host->applyOutputFontName(name, group - 1);
}

void InfoSettings::refresh() const
{
    if (!isSaveForm())
        m_host->updateUI(UpdateFlag::Everything, true);
}

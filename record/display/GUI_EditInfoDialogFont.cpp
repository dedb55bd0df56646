#include "record/display/GUI_EditInfoDialog.h"

#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"

#include <QPointer>

// The settings: how they are read and stored, kept, copied and written back. A call of the host may
// end the dialog, so what goes on behind one works on copies.

using namespace InfoFontSettings;

namespace {

// Group 0 is never set together with the others.
constexpr int FirstSetTogether = 1;
constexpr int LastSetTogether = GroupCount - 1;

// What the text of a saved picture is scaled by.
constexpr int BaseKind = 1;
constexpr int BasePartition = 0;

void writeBackSetting(const InfoSettings &settings, const PrefSnapshot &initial, Property property,
                      int group = 0)
{
    const auto value = initial.value(key(property, settings.form(), group));
    if (!value)
        return;
    guarded(settings.host(),
            [&] { settings.write(property, InfoFontSettings::value(property, *value), group); });
}

void writeBackTypeface(const InfoSettings &settings, const PrefSnapshot &initial, int group = 0)
{
    for (Property property : order(Pass::Rollback, settings.form()))
        writeBackSetting(settings, initial, property, group);
}

void writeBackTypefaces(const InfoSettings &settings, const PrefSnapshot &initial)
{
    if (settings.isSaveForm()) {
        for (int group = FirstSetTogether; group <= LastSetTogether; ++group)
            writeBackTypeface(settings, initial, group);
    } else {
        writeBackTypeface(settings, initial);
        guarded(settings.host(), [&] { settings.refresh(); });
    }
}

void writeBackItems(const InfoSettings &settings, const PrefSnapshot &initial)
{
    if (settings.isSaveForm()) {
        for (int group = 0; group < GroupCount; ++group)
            writeBackSetting(settings, initial, Property::Display, group);
    } else {
        writeBackSetting(settings, initial, Property::Display);
        writeBackSetting(settings, initial, Property::BlankLine);
    }
}

void copyToGroupsSetTogether(const InfoSettings &settings, int from)
{
    const QVector<Property> properties = order(Pass::Collective, settings.form());
    QVector<QVariant> values;
    for (Property property : properties)
        values.append(settings.read(property, from));
    for (int group = FirstSetTogether; group <= LastSetTogether; ++group) {
        for (int i = 0; group != from && i < properties.size(); ++i)
            settings.write(properties.at(i), values.at(i), group);
    }
}

}

void GUI_EditInfoDialog::readInitial()
{
    const auto places = initialOrder(m_settings.form());
    for (const Place &place : places) {
        if (isPerGroup(place.property))
            m_currentGroup = place.group;
        m_initial.read(host(), key(place.property, m_settings.form(), place.group),
                       PrefSnapshot::Type::Plain);
    }
}

void GUI_EditInfoDialog::backupFontSettings(int offset)
{
    m_currentGroup = offset;
    const InfoSettings settings = m_settings;
    const QPointer<GUI_EditInfoDialog> self(this);
    QVector<QPair<Property, QVariant>> backup;
    for (Property property : order(Pass::Backup, settings.form())) {
        guarded(settings.host(), [&] {
            backup.append({property, settings.read(property, offset)});
        });
    }
    if (self)
        m_backup = backup;
}

void GUI_EditInfoDialog::restoreFontSettings()
{
    const InfoSettings settings = m_settings;
    const int group = m_currentGroup;
    const QVector<QPair<Property, QVariant>> backup = m_backup;
    for (const auto &each : backup) {
        guarded(settings.host(), [&] { settings.write(each.first, each.second, group); });
    }
}

QStringList GUI_EditInfoDialog::getFontNameList()
{
    return guarded(host(), QStringList(), [this] { return host()->fontFamilyList(); });
}

QStringList GUI_EditInfoDialog::getFontSizeList()
{
    return m_fontSizeList;
}

QStringList GUI_EditInfoDialog::getToColumnList()
{
    return m_columnList;
}

bool GUI_EditInfoDialog::isCollectiveSetting()
{
    return value(Property::CollectiveSetting).toBool();
}

void GUI_EditInfoDialog::setCollectiveSetting(bool value, bool update)
{
    if (m_settings.isSaveForm())
        setValue(Property::CollectiveSetting, value, update);
}

QVariant GUI_EditInfoDialog::value(Property property, int group)
{
    const InfoSettings settings = m_settings;
    return guarded(settings.host(), InfoFontSettings::value(property, QVariant()),
                   [&] { return settings.read(property, group); });
}

QVariant GUI_EditInfoDialog::groupValue(Property property, int group)
{
    m_currentGroup = group;
    return value(property, group);
}

void GUI_EditInfoDialog::setValue(Property property, const QVariant &value, bool update)
{
    const InfoSettings settings = m_settings;
    const int group = m_currentGroup;
    guarded(settings.host(), [&] {
        settings.write(property, value, group);
        if (update)
            settings.refresh();
    });
}

QString GUI_EditInfoDialog::getFontName(int offset)
{
    return groupValue(Property::FontName, offset).toString();
}

QString GUI_EditInfoDialog::getFontSize(int offset)
{
    return groupValue(Property::FontSize, offset).toString();
}

bool GUI_EditInfoDialog::getBold(int offset)
{
    return groupValue(Property::Bold, offset).toBool();
}

bool GUI_EditInfoDialog::getItalic(int offset)
{
    return groupValue(Property::Italic, offset).toBool();
}

QString GUI_EditInfoDialog::getForegroundColor(int offset)
{
    return groupValue(Property::ForegroundColor, offset).toString();
}

bool GUI_EditInfoDialog::isFixedFontSizeRatio(int offset)
{
    return groupValue(Property::FixedFontSizeRatio, offset).toBool();
}

QSize GUI_EditInfoDialog::getFixedFontSizeRatioBaseResolution(int offset)
{
    return groupValue(Property::FixedFontSizeRatioBaseResolution, offset).toSize();
}

int GUI_EditInfoDialog::getAlignment(int offset)
{
    return groupValue(Property::Alignment, offset).toInt();
}

bool GUI_EditInfoDialog::getUseBackgroundColor(int offset)
{
    return groupValue(Property::UseBackgroundColor, offset).toBool();
}

QString GUI_EditInfoDialog::getBackgroundColor(int offset)
{
    return groupValue(Property::BackgroundColor, offset).toString();
}

int GUI_EditInfoDialog::getWidth(int offset)
{
    return groupValue(Property::Width, offset).toInt();
}

int GUI_EditInfoDialog::getIconSize(int offset)
{
    return groupValue(Property::IconSize, offset).toInt();
}

bool GUI_EditInfoDialog::getToColumn(int offset)
{
    return groupValue(Property::ToColumn, offset).toBool();
}

QString GUI_EditInfoDialog::getColumnNum(int offset)
{
    return groupValue(Property::ColumnNum, offset).toString();
}

int GUI_EditInfoDialog::getColumnSpacing(int offset)
{
    return groupValue(Property::ColumnSpacing, offset).toInt();
}

void GUI_EditInfoDialog::setFontName(const QString &value, bool update)
{
    setValue(Property::FontName, value, update);
}

void GUI_EditInfoDialog::setFontSize(const QString &value, bool update)
{
    setValue(Property::FontSize, value, update);
}

void GUI_EditInfoDialog::setBold(bool value, bool update)
{
    setValue(Property::Bold, value, update);
}

void GUI_EditInfoDialog::setItalic(bool value, bool update)
{
    setValue(Property::Italic, value, update);
}

void GUI_EditInfoDialog::setForegroundColor(const QString &value, bool update)
{
    setValue(Property::ForegroundColor, value, update);
}

void GUI_EditInfoDialog::setFixedFontSizeRatio(bool value, bool update)
{
    setValue(Property::FixedFontSizeRatio, value, update);
}

void GUI_EditInfoDialog::setFixedFontSizeRatioBaseResolution(const QSize &value, bool update)
{
    setValue(Property::FixedFontSizeRatioBaseResolution, value, update);
}

void GUI_EditInfoDialog::setAlignment(int value, bool update)
{
    setValue(Property::Alignment, value, update);
}

void GUI_EditInfoDialog::setUseBackgroundColor(bool value, bool update)
{
    setValue(Property::UseBackgroundColor, value, update);
}

void GUI_EditInfoDialog::setBackgroundColor(const QString &value, bool update)
{
    setValue(Property::BackgroundColor, value, update);
}

void GUI_EditInfoDialog::setWidth(int value, bool update)
{
    setValue(Property::Width, value, update);
}

void GUI_EditInfoDialog::setIconSize(int value, bool update)
{
    setValue(Property::IconSize, value, update);
}

void GUI_EditInfoDialog::setToColumn(bool value, bool update)
{
    setValue(Property::ToColumn, value, update);
}

void GUI_EditInfoDialog::setColumnNum(const QString &value, bool update)
{
    setValue(Property::ColumnNum, value, update);
}

void GUI_EditInfoDialog::setColumnSpacing(int value, bool update)
{
    setValue(Property::ColumnSpacing, value, update);
}

bool GUI_EditInfoDialog::getWithinImage()
{
    return value(Property::WithinImage).toBool();
}

void GUI_EditInfoDialog::setWithinImage(bool value, bool update)
{
    setValue(Property::WithinImage, value, update);
}

bool GUI_EditInfoDialog::getDisplayBlankLine()
{
    return value(Property::BlankLine).toBool();
}

void GUI_EditInfoDialog::setDisplayBlankLine(bool display)
{
    setValue(Property::BlankLine, display, true);
}

void GUI_EditInfoDialog::writeFontOK()
{
    const InfoSettings settings = m_settings;
    const HeldDocument held = m_document;
    const int group = m_currentGroup;
    guarded(settings.host(), [&] {
        if (settings.read(Property::FixedFontSizeRatio, group).toBool()) {
            if (DOC_Interface *document = present(settings.host(), held))
                settings.write(Property::FixedFontSizeRatioBaseResolution,
                               document->documentResolution(BaseKind, BasePartition, true), group);
        }
        if (settings.read(Property::CollectiveSetting).toBool())
            copyToGroupsSetTogether(settings, group);
    });
}

void GUI_EditInfoDialog::writeFontCancel()
{
    m_currentGroup = LastSetTogether;
    const InfoSettings settings = m_settings;
    const PrefSnapshot initial = m_initial;
    writeBackTypefaces(settings, initial);
}

void GUI_EditInfoDialog::writeBack()
{
    m_currentGroup = LastSetTogether;
    const InfoSettings settings = m_settings;
    const PrefSnapshot initial = m_initial;
    writeBackItems(settings, initial);
    writeBackTypefaces(settings, initial);
}

void GUI_EditInfoDialog::reset()
{
    const InfoSettings settings = m_settings;
    HostServices *services = settings.host();
    guarded(services, [&] {
        if (settings.isSaveForm()) {
            for (int group = 0; group < GroupCount; ++group)
                services->removePref(key(Property::Display, settings.form(), group));
        } else {
            settings.write(Property::Display, services->infoItemDefaultDisplay());
            settings.write(Property::BlankLine, services->prefDefault(Keys::info.blankLine));
            settings.refresh();
        }
    });
}

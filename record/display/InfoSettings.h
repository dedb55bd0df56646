#pragma once

#include "record/display/InfoFontSettings.h"

class HostServices;

/// The settings of the information display as a host stores them, in one of the two forms. A copy
/// is the same settings. A group counts in the save form, for what each has for itself. The
/// functions throw what the host throws. GUI thread.
class InfoSettings
{
public:
    /// `host` outlives the settings.
    InfoSettings(HostServices *host, InfoFontSettings::Form form);

    HostServices *host() const { return m_host; }
    InfoFontSettings::Form form() const { return m_form; }
    bool isSaveForm() const { return m_form == InfoFontSettings::Form::Save; }

    /// The value as the property's own type, as InfoFontSettings::value() tells. The host is not
    /// asked for what the form does not have.
    QVariant read(InfoFontSettings::Property property, int group = 0) const;

    /// Stores a value, unless the form does not have the property. A font for what is saved is
    /// also told to the host, but for group 0, and where the application is not Japanese.
    void write(InfoFontSettings::Property property, const QVariant &value, int group = 0) const;

    /// Shows the views anew, which the editor form alone changes.
    void refresh() const;

private:
    void applyOutputFont(const QString &name, int group) const;

    HostServices *m_host;
    InfoFontSettings::Form m_form;
};

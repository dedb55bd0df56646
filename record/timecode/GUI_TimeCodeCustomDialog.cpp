#include "record/timecode/GUI_TimeCodeCustomDialog.h"

#include "contract/HostGuard.h"

#include <QPointer>

GUI_TimeCodeCustomDialog::GUI_TimeCodeCustomDialog(HostServices *host, QWidget *parent)
    : GUI_PageDialog(host, QLatin1String("Current Time Setting"), parent)
{
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(450, 470);
    loadPage(QLatin1String("qrc:/prefs_customize_timecode.html"));
}

void GUI_TimeCodeCustomDialog::populateJavaScriptWindowObject()
{
    showToPage(QLatin1String("timecode_custom_mediator"));
}

void GUI_TimeCodeCustomDialog::ok()
{
    QPointer<GUI_TimeCodeCustomDialog> self(this);
    if (saveTimeCodeSetting() && self)
        acceptAndClose();
}

void GUI_TimeCodeCustomDialog::cancel()
{
    rejectAndClose();
}

int GUI_TimeCodeCustomDialog::getTimeCodeIndex()
{
    return m_model.timeCodeIndex;
}

QString GUI_TimeCodeCustomDialog::getTimeCodeDisplayUnit()
{
    return m_model.displayUnit;
}

QString GUI_TimeCodeCustomDialog::getTimeCodeOneFrame()
{
    return m_model.oneFrame;
}

QString GUI_TimeCodeCustomDialog::getTimeCodeStartValue()
{
    return m_model.startValue;
}

bool GUI_TimeCodeCustomDialog::getTimeCodeReset()
{
    return m_model.reset;
}

QString GUI_TimeCodeCustomDialog::getTimeCodeResetValue()
{
    return m_model.resetValue;
}

int GUI_TimeCodeCustomDialog::getTimeCodeResetUnitIndex()
{
    return m_model.resetUnitIndex;
}

int GUI_TimeCodeCustomDialog::getTimeCodeScopeDisplayIndex()
{
    return m_model.scopeDisplayIndex;
}

int GUI_TimeCodeCustomDialog::getTimeCodeDecimalPlaceIndex()
{
    return m_model.decimalPlaceIndex;
}

bool GUI_TimeCodeCustomDialog::getTimeCodeDecimalDivide()
{
    return m_model.decimalDivide;
}

bool GUI_TimeCodeCustomDialog::getTimeCodeUsingRihFileInfo()
{
    return m_model.usingRihFileInfo;
}

bool GUI_TimeCodeCustomDialog::getTimeCodeOverWrite()
{
    return m_model.overWrite;
}

bool GUI_TimeCodeCustomDialog::getTimeCodeRealTime()
{
    return m_model.realTime;
}

QString GUI_TimeCodeCustomDialog::getTimeCodeSample()
{
    return m_model.sample;
}

void GUI_TimeCodeCustomDialog::setTimeCodeIndex(int value, bool isUpdateSample)
{
    m_model.timeCodeIndex = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeDisplayUnit(const QString &value, bool isUpdateSample)
{
    m_model.displayUnit = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeOneFrame(const QString &value, bool isUpdateSample)
{
    m_model.setOneFrame(value);
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeStartValue(const QString &value, bool isUpdateSample)
{
    m_model.setStartValue(value);
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeReset(bool value, bool isUpdateSample)
{
    m_model.reset = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeResetValue(const QString &value, bool isUpdateSample)
{
    m_model.setResetValue(value);
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeResetUnitIndex(int value, bool isUpdateSample)
{
    m_model.setResetUnitIndex(value);
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeScopeDisplayIndex(int value, bool isUpdateSample)
{
    m_model.scopeDisplayIndex = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeDecimalPlaceIndex(int value, bool isUpdateSample)
{
    m_model.decimalPlaceIndex = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeDecimalDivide(bool value, bool isUpdateSample)
{
    m_model.decimalDivide = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeUsingRihFileInfo(bool value, bool isUpdateSample)
{
    m_model.usingRihFileInfo = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeOverWrite(bool value, bool isUpdateSample)
{
    m_model.overWrite = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::setTimeCodeRealTime(bool value, bool isUpdateSample)
{
    m_model.realTime = value;
    updateSampleIf(isUpdateSample);
}

void GUI_TimeCodeCustomDialog::loadTimeCodeSetting()
{
    QPointer<GUI_TimeCodeCustomDialog> self(this);
    guarded(host(), [&, services = host()] {
        TimeCodeRecord record;
        services->getTimeCodeSetting(record);
        if (self)
            m_model.load(record);
    });
}

bool GUI_TimeCodeCustomDialog::saveTimeCodeSetting()
{
    return guarded(host(), false, [this] {
        host()->setTimeCodeSetting(m_model.record());
        return true;
    });
}

void GUI_TimeCodeCustomDialog::reset()
{
    m_model = TimeCodeModel();
    m_model.updateSample();
}

QString GUI_TimeCodeCustomDialog::getStyle()
{
    return style();
}

QString GUI_TimeCodeCustomDialog::translate(const QString &string)
{
    return translated(string);
}

void GUI_TimeCodeCustomDialog::updateSampleIf(bool isUpdateSample)
{
    if (isUpdateSample)
        m_model.updateSample();
}

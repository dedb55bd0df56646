#pragma once

#include "bridge/dialog/GUI_PageDialog.h"
#include "record/timecode/TimeCodeModel.h"

/// The dialog that sets how the running time code of a recording is labelled: as a time, or by a
/// scale in which every frame advances a fixed amount.
///
/// Its page, which finds it as "timecode_custom_mediator", loads the settings when it is ready and
/// works on a copy of them; ok() alone stores them. GUI thread.
class GUI_TimeCodeCustomDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. Throws what the host throws.
    GUI_TimeCodeCustomDialog(HostServices *host, QWidget *parent);

public slots:
    void populateJavaScriptWindowObject() override;

    /// Stores the settings and ends the dialog, which stays open when the host fails.
    void ok();

    /// Ends the dialog and stores nothing.
    void cancel();

    // The fields of TimeCodeModel.
    int getTimeCodeIndex();
    QString getTimeCodeDisplayUnit();
    QString getTimeCodeOneFrame();
    QString getTimeCodeStartValue();
    bool getTimeCodeReset();
    QString getTimeCodeResetValue();
    int getTimeCodeResetUnitIndex();
    int getTimeCodeScopeDisplayIndex();
    int getTimeCodeDecimalPlaceIndex();
    bool getTimeCodeDecimalDivide();
    bool getTimeCodeUsingRihFileInfo();
    bool getTimeCodeOverWrite();
    bool getTimeCodeRealTime();
    QString getTimeCodeSample();

    // What they set in other fields, and how numbers are kept in their limits, is TimeCodeModel's.
    // The sample follows where it is asked to.
    void setTimeCodeIndex(int value, bool isUpdateSample = true);
    void setTimeCodeDisplayUnit(const QString &value, bool isUpdateSample = true);
    void setTimeCodeOneFrame(const QString &value, bool isUpdateSample = true);
    void setTimeCodeStartValue(const QString &value, bool isUpdateSample = true);
    void setTimeCodeReset(bool value, bool isUpdateSample = true);
    void setTimeCodeResetValue(const QString &value, bool isUpdateSample = true);
    void setTimeCodeResetUnitIndex(int value, bool isUpdateSample = true);
    void setTimeCodeScopeDisplayIndex(int value, bool isUpdateSample = true);
    void setTimeCodeDecimalPlaceIndex(int value, bool isUpdateSample = true);
    void setTimeCodeDecimalDivide(bool value, bool isUpdateSample = true);
    void setTimeCodeUsingRihFileInfo(bool value, bool isUpdateSample = true);
    void setTimeCodeOverWrite(bool value, bool isUpdateSample = true);
    void setTimeCodeRealTime(bool value, bool isUpdateSample = true);

    /// Reads the settings of the host. When it fails everything stays as it is.
    void loadTimeCodeSetting();

    /// Stores the settings; false when the host fails.
    bool saveTimeCodeSetting();

    /// Puts everything back to how the application was shipped, and stores nothing.
    void reset();

    QString getStyle();
    QString translate(const QString &string);

private:
    void updateSampleIf(bool isUpdateSample);

    TimeCodeModel m_model;
};

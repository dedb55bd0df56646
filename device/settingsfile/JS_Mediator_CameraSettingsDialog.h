#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

#include <QMap>

/// What the page sees that saves the settings of the selected cameras to a file, loads them from
/// one, or applies presets to the cameras; which of these, its mode says. GUI thread.
class JS_Mediator_CameraSettingsDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// What `ok` does. Pages know the numbers; any other does nothing.
    enum Mode { SaveFile = 0, LoadFile = 1, ApplyPresets = 2 };

    JS_Mediator_CameraSettingsDialog(HostServices *host, int mode);

public slots:
    /// The Mode that the dialog was opened for, or that `ok` was last given.
    int getDialogMode();

    /// Lets the user choose the file that is loaded. False when none was chosen or the host failed.
    bool openFile();

    /// Lets the user choose the folder that is saved to, and keeps it for the next time. False when
    /// none was chosen or the host failed.
    bool openFolder();

    /// {"FolderPath":"...","FileName":"..."}: the folder that is saved to, and the name without
    /// folder of the file that is loaded, empty before one was chosen. Empty when the host fails.
    QString getFilePathSettings();

    /// For each selected device its presets, as JSON text: "key" of its document, "name",
    /// "ipaddress", "devicename", "presets" with "presetno" and "selected", and "selNone" where
    /// none is selected. Empty when the host fails.
    QVariantList getPresetList();

    /// The present time in a format of QDateTime, in the C locale.
    QString addDateTime(const QString &format);

    /// The settings of the file's name: {"userFileName":"...","original":true,"addTime":true,
    /// "addTimeFormat":"..."}. Empty when the host fails.
    QString recvFileNameDialogData();

    /// Stores them. What is missing, or of another type, stays as it is.
    void sendFileNameDialogData(const QString &sendData);

    /// The name that the file would have now, with ".qcfg" when `additional` is set. Empty when the
    /// host fails.
    QString getFileName(bool additional);
    QString getFileName(); ///< without the suffix

    /// Takes {"dialogMode":0,"presetList":[{"key":"1","value":2}]}: the mode, which stays when it
    /// is missing, and the preset of each document, where a value of 0 or below leaves the camera
    /// alone. Does the work of the mode, and accepts when that is done. Where the name or the path
    /// does not do, or the user keeps the file that is there, the dialog stays open.
    void ok(const QString &sendData);

    void cancel();

private:
    bool runWork();

    int m_dialogMode;
    QString m_folder; ///< chosen; empty: the one of the settings
    QString m_file;   ///< chosen, with its folder
    QMap<DOCKEY, int> m_presets;
};

#pragma once

#include "bridge/dialog/GUI_QFileDialog.h"
#include "contract/HostTypes.h"

#include <QPointer>
#include <QStringList>
#include <QVector>

class HostServices;
class QCheckBox;
class QComboBox;
class QGridLayout;

/// The chooser of a file with camera settings, to open or to save.
///
/// To open, it has a list of the connected cameras beside its files, which a check box shows: then
/// a preset is chosen for each camera in place of a file. It has an OK and a Cancel of its own, as
/// presets need no file. A dialog to save only hands its path back. The caller owns it. GUI thread.
class GUI_CameraFileDialog : public GUI_QFileDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. Throws what the host throws.
    GUI_CameraFileDialog(HostServices *host, AcceptMode mode, QWidget *parent);

    /// The file that was accepted, with its folder; empty when presets were.
    QString path() const { return m_path; }

public slots:
    /// Shows the cameras and their presets in place of the files, or the files again.
    void on_checkLoadCamera_change(bool check);

    /// Applies the chosen presets, or loads the chosen file into the selected cameras, and closes.
    /// Cameras whose preset waits for a restart are named in a warning. Without a file that will do
    /// a warning says so, and the dialog stays open; as it does when the host fails. A folder is
    /// opened.
    void accept() override;

    void on_ok_clicked();
    void on_cancel_clicked();

private:
    struct Row
    {
        DOCKEY key;
        QComboBox *presets;
    };

    void addCameras(QGridLayout *grid);
    void addButtons(QGridLayout *grid);
    bool hasPresets() const;
    QString chosenFile() const;
    bool mayTake(const QString &file);
    QStringList work(const QString &file) const;
    void tellWaiting(const QStringList &cameras);
    void run();

    HostServices *m_host;
    QWidgetList m_fileWidgets;
    QList<QPointer<QWidget>> m_disabled; ///< those of them that were enabled before the check
    QCheckBox *m_loadCamera = nullptr;
    QWidget *m_cameras = nullptr;
    QVector<Row> m_rows;
    QString m_path;
};

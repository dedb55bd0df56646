#pragma once

#include <QWidget>

class HostServices;
class QComboBox;
class QLabel;
class StandInCamera;

/// Shutter and record rate of the current camera, its image size, and whether it is locked. Without
/// a camera it says why.
class CameraPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CameraPanel(HostServices &host, QWidget *parent = nullptr);

    /// Shows this camera, null for none. The camera outlives the panel.
    void setCamera(StandInCamera *camera);

    /// What stands in place of the settings while there is no camera.
    void setHint(const QString &text);

    /// Shows its settings anew.
    void refresh();

private:
    void chooseShutter(int index);
    void chooseRecordRate(int index);

    HostServices &m_host;
    StandInCamera *m_camera = nullptr;
    QLabel *m_hint;
    QWidget *m_form;
    QLabel *m_name;
    QComboBox *m_shutter;
    QComboBox *m_recordRate;
    QLabel *m_size;
    QLabel *m_position;
    QLabel *m_sensor;
    QLabel *m_lock;
};

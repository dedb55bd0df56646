#include "workbench/window/CameraPanel.h"

#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "workbench/base/SettingChoices.h"
#include "workbench/base/SettingsText.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

template <typename Text>
void fill(QComboBox *box, const QVector<uint> &values, uint current, const Text &text)
{
    const QSignalBlocker quiet(box);
    box->clear();
    for (const uint value : values)
        box->addItem(text(value), value);
    box->setCurrentIndex(values.indexOf(current));
}

void logChoice(const QComboBox *box)
{
    OperationLog::userOperation("CameraPanel", "selected", "ComboBox", box->objectName(), QString(),
                                box->currentText());
}

}

CameraPanel::CameraPanel(HostServices &host, QWidget *parent)
    : QWidget(parent), m_host(host), m_hint(new QLabel(this)), m_form(new QWidget(this)),
      m_name(new QLabel(m_form)), m_shutter(new QComboBox(m_form)),
      m_recordRate(new QComboBox(m_form)), m_size(new QLabel(m_form)),
      m_position(new QLabel(m_form)), m_sensor(new QLabel(m_form)), m_lock(new QLabel(m_form))
{
    m_hint->setObjectName("cameraHint");
    m_hint->setWordWrap(true);
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    m_name->setObjectName("cameraName");
    m_name->setTextFormat(Qt::PlainText);
    QFont bold = m_name->font();
    bold.setBold(true);
    m_name->setFont(bold);
    m_shutter->setObjectName("shutter");
    m_shutter->setToolTip(tr("Exposure of a frame, no longer than the frame itself"));
    m_recordRate->setObjectName("recordRate");
    m_recordRate->setToolTip(tr("Frames per second"));
    m_size->setObjectName("imageSize");
    m_position->setToolTip(tr("Top left corner of the image on the sensor"));
    m_position->setObjectName("imagePosition");
    m_lock->setObjectName("lockState");
    m_lock->setWordWrap(true);

    auto *form = new QFormLayout(m_form);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("Camera:"), m_name);
    form->addRow(tr("Sh&utter:"), m_shutter);
    form->addRow(tr("Record &rate:"), m_recordRate);
    form->addRow(tr("Image size:"), m_size);
    form->addRow(tr("Position:"), m_position);
    form->addRow(tr("Sensor:"), m_sensor);
    form->addRow(tr("Lock:"), m_lock);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    layout->addWidget(m_form);
    layout->addStretch(1);
    m_hint->setMinimumWidth(fontMetrics().averageCharWidth() * 34);

    connect(m_shutter, QOverload<int>::of(&QComboBox::activated), this,
            &CameraPanel::chooseShutter);
    connect(m_recordRate, QOverload<int>::of(&QComboBox::activated), this,
            &CameraPanel::chooseRecordRate);
    refresh();
}

void CameraPanel::setCamera(StandInCamera *camera)
{
    m_camera = camera;
    refresh();
}

void CameraPanel::setHint(const QString &text)
{
    m_hint->setText(text);
}

void CameraPanel::refresh()
{
    m_hint->setVisible(!m_camera);
    m_form->setVisible(m_camera);
    if (!m_camera)
        return;
    const CameraSettings &settings = m_camera->settings();
    m_name->setText(m_camera->name());
    fill(m_recordRate, SettingChoices::recordRates(m_camera->limits(), settings.recordRate),
         settings.recordRate, SettingsText::recordRate);
    fill(m_shutter,
         SettingChoices::shutterSpeeds(m_camera->limits(), settings.recordRate,
                                       settings.shutterSpeed),
         settings.shutterSpeed, SettingsText::shutter);
    m_size->setText(SettingsText::size(settings.region.size()));
    m_position->setText(QStringLiteral("%1, %2").arg(QString::number(settings.region.x()),
                                                     QString::number(settings.region.y())));
    m_sensor->setText(SettingsText::size(m_camera->sensorSize()));
    m_lock->setText(m_camera->isLockedTogether() ? tr("Locked with the others")
                                                 : tr("Released, set alone"));
}

void CameraPanel::chooseShutter(int index)
{
    if (!m_camera)
        return;
    logChoice(m_shutter);
    const uint parts = m_shutter->itemData(index).toUInt();
    guarded(&m_host, [&] { m_camera->setShutterSpeed(parts); });
    refresh();
}

void CameraPanel::chooseRecordRate(int index)
{
    if (!m_camera)
        return;
    logChoice(m_recordRate);
    const uint rate = m_recordRate->itemData(index).toUInt();
    guarded(&m_host, [&] { m_camera->setRecordRate(rate); });
    refresh();
}

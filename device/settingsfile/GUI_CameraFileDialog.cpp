#include "device/settingsfile/GUI_CameraFileDialog.h"

#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/ViewPauseGuard.h"
#include "device/settingsfile/CameraSettingsPath.h"
#include "device/settingsfile/CameraSettingsTarget.h"
#include "foundation/Keys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>

namespace {

constexpr QSize FilesSize(640, 420);
constexpr QSize PresetsSize(920, 420);

/// Has a chooser made of widgets, beside which there can be others. The system's own would be
/// exchanged for them too late: the chooser looks for slots with the names of its widgets when it
/// makes them.
class WidgetsScope
{
public:
    WidgetsScope() : m_before(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs))
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, true);
    }
    ~WidgetsScope() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, m_before); }

    WidgetsScope(const WidgetsScope &) = delete;
    WidgetsScope &operator=(const WidgetsScope &) = delete;

    QWidget *pass(QWidget *parent) const { return parent; }

private:
    bool m_before;
};

QString presetText(const PresetInfo &preset)
{
    const QString number = QString::number(preset.number);
    return preset.name.isEmpty() ? number : number + QLatin1String(": ") + preset.name;
}

void logButton(const QString &operation, const QString &id, const QVariant &value)
{
    OperationLog::userOperation(QLatin1String("GUI_CameraFileDialog"), operation,
                                QLatin1String("Button"), id, QString(), value);
}

}

GUI_CameraFileDialog::GUI_CameraFileDialog(HostServices *host, AcceptMode mode, QWidget *parent)
    : GUI_QFileDialog(WidgetsScope().pass(parent)), m_host(host)
{
    const bool opens = mode == AcceptOpen;
    setOption(DontUseNativeDialog);
    setWindowTitle(
        m_host->translate(QLatin1String(opens ? "Open camera settings" : "Save camera settings")));
    setAcceptMode(mode);
    setFileMode(opens ? ExistingFile : AnyFile);
    const QString suffix = CameraSettingsPath::suffix();
    setNameFilter(QLatin1String("*.") + suffix + QLatin1String(" *.") + suffix.toUpper());
    const QString folder = m_host->getPrefString(Keys::qcfg.path, QVariant());
    if (!folder.isEmpty())
        setDirectory(folder);

    m_fileWidgets = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    if (auto *buttons = findChild<QDialogButtonBox *>(QLatin1String("buttonBox")))
        buttons->hide();
    auto *grid = static_cast<QGridLayout *>(layout());
    if (opens)
        addCameras(grid);
    addButtons(grid);
    resize(FilesSize);
}

void GUI_CameraFileDialog::addCameras(QGridLayout *grid)
{
    m_loadCamera =
        new QCheckBox(m_host->translate(QLatin1String("Load presets of the cameras")), this);
    m_loadCamera->setObjectName(QLatin1String("checkLoadCamera"));
    connect(m_loadCamera, &QCheckBox::toggled, this,
            &GUI_CameraFileDialog::on_checkLoadCamera_change);

    auto *area = new QScrollArea(this);
    m_cameras = area;
    m_cameras->setObjectName(QLatin1String("cameras"));
    auto *list = new QWidget;
    area->setWidget(list);
    area->setWidgetResizable(true);
    auto *rows = new QGridLayout(list);
    const QString none = m_host->translate(QLatin1String("None"));
    QList<DOCKEY> keys;
    m_host->deviceKeys(keys, true);
    QSet<int> devices;
    for (DOCKEY key : qAsConst(keys)) {
        DOC_Interface *camera = m_host->deviceByKey(key, true);
        if (!camera || !camera->isConnected())
            continue;
        const int device = camera->cameraNumber();
        if (devices.contains(device))
            continue; // another head of it
        devices.insert(device);
        auto *presets = new QComboBox(list);
        presets->addItem(none, 0);
        auto *name = new QLabel(camera->cameraName(), list);
        const QList<PresetInfo> infos = camera->presets();
        for (const PresetInfo &info : infos)
            presets->addItem(presetText(info), info.number);
        name->setTextFormat(Qt::PlainText);
        name->setBuddy(presets);
        rows->addWidget(name, m_rows.size(), 0);
        rows->addWidget(presets, m_rows.size(), 1);
        presets->setAccessibleName(name->text());
        m_rows.append({key, presets});
    }
    if (m_rows.isEmpty())
        rows->addWidget(
            new QLabel(m_host->translate(QLatin1String("No camera is connected.")), list), 0, 0);
    rows->setRowStretch(rows->rowCount(), 1);
    rows->setColumnStretch(1, 1);
    m_cameras->hide();
    grid->addWidget(m_cameras, 0, grid->columnCount(), grid->rowCount(), 1);
}

void GUI_CameraFileDialog::addButtons(QGridLayout *grid)
{
    auto *row = new QHBoxLayout;
    if (m_loadCamera)
        row->addWidget(m_loadCamera);
    row->addStretch(1);
    auto *ok = new QPushButton(m_host->translate(QLatin1String("OK")), this);
    ok->setObjectName(QLatin1String("ok"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &GUI_CameraFileDialog::on_ok_clicked);
    row->addWidget(ok);
    auto *cancel = new QPushButton(m_host->translate(QLatin1String("Cancel")), this);
    cancel->setObjectName(QLatin1String("cancel"));
    connect(cancel, &QPushButton::clicked, this, &GUI_CameraFileDialog::on_cancel_clicked);
    row->addWidget(cancel);
    grid->addLayout(row, grid->rowCount(), 0, 1, grid->columnCount());
}

bool GUI_CameraFileDialog::hasPresets() const
{
    return m_loadCamera && m_loadCamera->isChecked();
}

void GUI_CameraFileDialog::on_checkLoadCamera_change(bool check)
{
    logButton(QLatin1String("toggled"), QLatin1String("checkLoadCamera"),
              QLatin1String(check ? "ON" : "OFF"));
    if (!m_cameras)
        return;
    m_cameras->setVisible(check);
    if (check) {
        for (QWidget *widget : qAsConst(m_fileWidgets)) {
            if (!widget->isEnabled())
                continue;
            widget->setEnabled(false);
            m_disabled.append(widget);
        }
    } else {
        for (const QPointer<QWidget> &widget : qAsConst(m_disabled)) {
            if (widget)
                widget->setEnabled(true);
        }
        m_disabled.clear();
    }
    resize(check ? PresetsSize : FilesSize);
}

// Empty where no file is named: then the chooser gives the folder that it shows. Its own suffix it
// adds to folders too.
QString GUI_CameraFileDialog::chosenFile() const
{
    const QString chosen = selectedFiles().value(0);
    if (chosen.isEmpty() || chosen == directory().absolutePath())
        return QString();
    const QFileInfo file(chosen);
    const QString suffix = CameraSettingsPath::suffix();
    const bool isWhole = file.suffix().compare(suffix, Qt::CaseInsensitive) == 0 ||
                         (acceptMode() == AcceptOpen && file.exists()) || file.isDir();
    return isWhole ? chosen : chosen + QLatin1Char('.') + suffix;
}

bool GUI_CameraFileDialog::mayTake(const QString &file)
{
    if (acceptMode() == AcceptSave)
        return CameraSettingsTarget::mayWrite(m_host, file, this);
    if (QFileInfo(file).isFile())
        return true;
    HostServices *host = m_host;
    const QPointer<QWidget> parent(this); // a call of the host may end it
    const QString text = host->translate(QLatin1String("Invalid filename."));
    host->warn(text, parent);
    return false;
}

// Gives the cameras whose preset waits for a restart. With a file there are no presets.
QStringList GUI_CameraFileDialog::work(const QString &file) const
{
    HostServices *host = m_host; // its calls may end the dialog
    QVector<QPair<DOCKEY, int>> presets;
    for (const Row &row : m_rows)
        presets.append({row.key, row.presets->currentData().toInt()});
    QStringList waiting;
    ViewPauseGuard pause(host, true, true);
    if (!file.isEmpty()) {
        QList<DOCKEY> keys;
        host->selectedDocKeys(keys, true);
        host->loadCameraSettings(file, keys);
        return waiting;
    }
    for (const auto &preset : qAsConst(presets)) {
        if (preset.second <= 0)
            continue;
        DOC_Interface *camera = host->deviceByKey(preset.first, true);
        if (!camera)
            continue;
        camera->applyPreset(preset.second);
        camera = host->deviceByKey(preset.first, true); // it may have gone
        if (camera && camera->presetNeedsReboot(preset.second))
            waiting.append(camera->cameraName());
    }
    return waiting;
}

void GUI_CameraFileDialog::tellWaiting(const QStringList &cameras)
{
    HostServices *host = m_host;
    const QPointer<QWidget> parent(this); // a call of the host may end it
    const QString text = host->translate(QLatin1String(
        "The following camera preset is loaded after rebooting. Please restart the camera."));
    host->warn(text + QLatin1Char('\n') + cameras.join(QLatin1Char('\n')), parent);
}

void GUI_CameraFileDialog::run()
{
    QPointer<GUI_CameraFileDialog> self(this); // a call of the host may end it
    const QString file = hasPresets() ? QString() : chosenFile();
    if (!file.isEmpty() && QFileInfo(file).isDir()) {
        setDirectory(file);
        return;
    }
    if (!hasPresets() && (!mayTake(file) || !self))
        return;
    if (acceptMode() == AcceptOpen) {
        const QStringList waiting = work(file);
        if (self && !waiting.isEmpty())
            tellWaiting(waiting);
    }
    if (!self)
        return;
    m_path = file;
    QDialog::accept(); // the file has been tested
}

void GUI_CameraFileDialog::accept()
{
    guarded(m_host, [this] { run(); });
}

void GUI_CameraFileDialog::on_ok_clicked()
{
    logButton(QLatin1String("clicked"), QLatin1String("ok"), QVariant());
    accept();
}

void GUI_CameraFileDialog::on_cancel_clicked()
{
    logButton(QLatin1String("clicked"), QLatin1String("cancel"), QVariant());
    reject();
}

#include "bench/BenchRatios.h"
#include "contract/DOC_Interface.h"
#include "device/settingsfile/JS_Mediator_CameraSettingsDialog.h"
#include "foundation/Json.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>

#include <memory>

namespace {

void dropMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

/// A host whose devices are all selected, each with eight presets, and the page that lists them.
struct Scene
{
    explicit Scene(int devices) : page(&host, JS_Mediator_CameraSettingsDialog::ApplyPresets)
    {
        StandInCamera::Description camera;
        for (int i = 1; i <= 8; ++i)
            camera.presets.append({i, QString("Preset %1").arg(i), i == 3});
        for (int i = 0; i < devices; ++i) {
            camera.cameraNumber = i;
            documents.append(host.addCamera(camera));
            host.select(documents.last()->key(), true);
        }
        host.setJournalEnabled(false);
        QJsonArray pairs;
        for (const StandInCamera *document : qAsConst(documents))
            pairs.append(QJsonObject{{"key", QString::number(document->key())}, {"value", 2}});
        answer = Json::compactText(QJsonObject{{"dialogMode", 2}, {"presetList", pairs}});
    }

    // The same texts from documents that are known.
    QVariantList write()
    {
        QVariantList rows;
        for (StandInCamera *document : qAsConst(documents)) {
            QJsonArray presets;
            for (const PresetInfo &info : document->presets())
                presets.append(QJsonObject{{"presetno", info.number}, {"selected", info.selected}});
            rows.append(Json::compactText(QJsonObject{{"key", QString::number(document->key())},
                                                      {"name", document->documentName()},
                                                      {"ipaddress", document->ipAddress()},
                                                      {"devicename", document->deviceName()},
                                                      {"presets", presets},
                                                      {"selNone", false}}));
        }
        return rows;
    }

    void apply()
    {
        for (StandInCamera *document : qAsConst(documents))
            document->applyPreset(2);
    }

    StandInHost host;
    JS_Mediator_CameraSettingsDialog page;
    QList<StandInCamera *> documents;
    QString answer;
};

bool addDevices(BenchRatios &ratios, int devices)
{
    const auto scene = std::make_shared<Scene>(devices);
    if (scene->write() != scene->page.getPresetList())
        return false;
    const auto calls = [scene] { return scene->host.callCount(); };
    const std::string list = "preset list, " + std::to_string(devices) + " devices";
    ratios.add(
        list, 0,
        [scene](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(scene->page.getPresetList());
        },
        [scene](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(scene->write());
        });
    ratios.countCalls(list, {[scene] { scene->page.getPresetList(); }, calls});
    const std::string choice = "presets applied, " + std::to_string(devices) + " devices";
    ratios.add(
        choice, 0,
        [scene](benchmark::State &state) {
            for (auto _ : state)
                scene->page.ok(scene->answer);
        },
        [scene](benchmark::State &state) {
            for (auto _ : state)
                scene->apply();
        });
    ratios.countCalls(choice, {[scene] { scene->page.ok(scene->answer); }, calls});
    return true;
}

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(dropMessages);
    BenchRatios ratios;
    for (int devices : {100, 1000}) {
        if (!addDevices(ratios, devices))
            return 1;
    }
    return ratios.run(argc, argv);
}

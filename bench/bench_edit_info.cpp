#include "bench/BenchRatios.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>

// The dialog of the information display: its list, and its preview.

namespace {

constexpr int FewItems = 200;
constexpr int ManyItems = 2000;
constexpr int Few = 1; // the groups that hold so many
constexpr int Many = 2;
constexpr int Width = 640;
constexpr int Height = 480;
constexpr int Kind = 10;

// One item in ten has a link.
QString settingOf(int items)
{
    QStringList entries;
    for (int i = 0; i < items; ++i) {
        const QString id = i % 10 ? QStringLiteral("Item%1").arg(i) : QStringLiteral("Comment");
        entries.append(id + (i % 2 ? ":true" : ":false"));
    }
    return entries.join(',');
}

void addList(BenchRatios &ratios, GUI_EditInfoDialog &dialog)
{
    ratios.add(
        "getInfoSettingsHtml, per item", 1.3,
        [&dialog](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(dialog.getInfoSettingsHtml(Many));
        },
        [&dialog](benchmark::State &state) {
            for (auto _ : state) {
                for (int i = 0; i < ManyItems / FewItems; ++i)
                    benchmark::DoNotOptimize(dialog.getInfoSettingsHtml(Few));
            }
        });
}

QByteArray drawn(DOC_Interface *document, const QDateTime &time)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    document->documentThumbnail(Kind, Width, Height, 1, 0, time).save(&buffer, "PNG");
    return bytes.toBase64();
}

void addPreview(BenchRatios &ratios, GUI_EditInfoDialog &dialog, DOC_Interface *document,
                const QDateTime &time)
{
    ratios.add(
        "getThumbnail", 1.3,
        [&dialog](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(dialog.getThumbnail(Width, Height));
        },
        [document, time](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(drawn(document, time));
        });
}

}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    StandInHost host;
    host.setJournalEnabled(false);
    DOC_Interface *document = host.addCamera()->contract();
    host.settings().setValue("saveinfo/display" + QString::number(Few), settingOf(FewItems));
    host.settings().setValue("saveinfo/display" + QString::number(Many), settingOf(ManyItems));
    const QDateTime time(QDate(2024, 5, 6), QTime(7, 8, 9));
    GUI_EditInfoDialog dialog(&host, 1, true, document, 1, {}, time);
    BenchRatios ratios;
    addList(ratios, dialog);
    addPreview(ratios, dialog, document, time);
    return ratios.run(argc, argv);
}

#include "bench/BenchRatios.h"
#include "record/display/InfoItemList.h"
#include "record/timecode/TimeCodeModel.h"

#include <QCoreApplication>

// What is recorded about a recording: its lists and texts.

namespace {

constexpr int FewItems = 200;
constexpr int ManyItems = 2000;

QString settingOf(int items)
{
    QStringList entries;
    for (int i = 0; i < items; ++i)
        entries.append(QStringLiteral("Item%1:%2").arg(i).arg(i % 2 ? "true" : "false"));
    return entries.join(',');
}

// The list of a page as it is read anew, without the time of the host that gives label and setting.
QString wholeList(const QString &setting)
{
    InfoItemList list;
    list.read(0, setting);
    QString html;
    for (const InfoItemList::Entry &entry : list.entries(0, InfoItem::SaveForm))
        html += InfoItemList::html(entry, true, entry.id, QString());
    return html;
}

void addInfoList(BenchRatios &ratios)
{
    ratios.add(
        "HTML of 2,000 items, per item", 1.3,
        [setting = settingOf(ManyItems)](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(wholeList(setting));
        },
        [setting = settingOf(FewItems)](benchmark::State &state) {
            for (auto _ : state) {
                for (int i = 0; i < ManyItems / FewItems; ++i)
                    benchmark::DoNotOptimize(wholeList(setting));
            }
        });
}

QString bareTime()
{
    const QLatin1Char zero('0');
    const QString whole =
        QStringLiteral("%1:%2:%3").arg(0, 2, 10, zero).arg(0, 2, 10, zero).arg(0, 2, 10, zero);
    const QString digits = QStringLiteral("%1").arg(2000000, 9, 10, zero);
    const QString fraction = QStringLiteral(".%1").arg(digits.left(6));
    return QStringLiteral("%1 %2").arg(whole + fraction, QString());
}

QString bareAmount(const QString &unit)
{
    const QLatin1Char zero('0');
    return QStringLiteral("%1").arg(12, 3, 10, zero) +
           QStringLiteral(".%1").arg(1234, 4, 10, zero) + QLatin1Char(' ') + unit;
}

template <class Bare> void addSample(BenchRatios &ratios, const char *name, int index, Bare bare)
{
    TimeCodeModel model;
    model.timeCodeIndex = index;
    model.decimalPlaceIndex = 6;
    model.setOneFrame(QStringLiteral("12.1234"));
    ratios.add(
        name, 2,
        [model](benchmark::State &state) mutable {
            for (auto _ : state) {
                model.updateSample();
                benchmark::DoNotOptimize(model.sample);
            }
        },
        [bare](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(bare());
        });
    ratios.countCalls(name, {[model]() mutable { model.updateSample(); }, [] { return 0; }});
}

}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    BenchRatios ratios;
    addInfoList(ratios);
    addSample(ratios, "sample of the time", 0, bareTime);
    addSample(ratios, "sample of the custom scale", 1,
              [unit = QString("deg")] { return bareAmount(unit); });
    return ratios.run(argc, argv);
}

#include "workbench/pages/InformationSamples.h"

#include "bridge/page/GUI_WebView.h"
#include "foundation/Json.h"
#include "standin/drawing/DisplayFormats.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PageWindow.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

constexpr uint SamplePartsOfSecond = 1000;
constexpr uint SampleRate = 12500; // frames per second
constexpr quint64 SampleFrame = 1234567;
constexpr quint64 SampleFrames = 3725250; // at a thousand a second

QString choicesText(const QVector<DisplayFormats::Choice> &choices)
{
    QJsonArray list;
    for (const DisplayFormats::Choice &choice : choices)
        list.append(QJsonObject{{"number", choice.number}, {"label", choice.label}});
    return Json::compactText(list);
}

}

InformationSamples::InformationSamples(StandInHost &host, QObject *parent)
    : PageProof<QObject>(parent)
{
    connect(host.events(), &StandInEvents::pageAttached, this, [this](GUI_WebView *view) {
        PageWindow::show(view, QStringLiteral("informationSamples"), this);
    });
}

QString InformationSamples::substituteFont(const QString &family) const
{
    if (family.isEmpty() || QFontDatabase().families().contains(family, Qt::CaseInsensitive))
        return QString();
    return QFontInfo(QFont(family)).family();
}

QString InformationSamples::shutterSpeedChoices() const
{
    return choicesText(DisplayFormats::shutterSpeedChoices());
}

QString InformationSamples::shutterSpeedUnitChoices() const
{
    return choicesText(DisplayFormats::shutterSpeedUnitChoices());
}

QString InformationSamples::recordingTimeChoices() const
{
    return choicesText(DisplayFormats::recTimeUnitChoices());
}

QString InformationSamples::shutterSpeed(int format, int unit, bool insertDelimiter) const
{
    DisplayFormats formats;
    formats.shutterSpeed = format;
    formats.shutterSpeedUnit = unit;
    formats.shutterSpeedInsertDelimiter = insertDelimiter;
    return formats.shutterSpeedText(SamplePartsOfSecond);
}

QString InformationSamples::recordRate(bool insertDelimiter) const
{
    DisplayFormats formats;
    formats.recordRateInsertDelimiter = insertDelimiter;
    return formats.recordRateText(SampleRate);
}

QString InformationSamples::frame(bool insertDelimiter) const
{
    DisplayFormats formats;
    formats.frameInsertDelimiter = insertDelimiter;
    return formats.frameText(SampleFrame);
}

QString InformationSamples::recordingTime(int unit) const
{
    DisplayFormats formats;
    formats.recTimeUnit = unit;
    return formats.recTimeText(SampleFrames, 1000);
}

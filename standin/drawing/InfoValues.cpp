#include "standin/drawing/InfoValues.h"

#include "foundation/Keys.h"
#include "standin/drawing/TimeCodeFrames.h"

#include <QHash>

namespace {

using Value = QStringList (*)(const InfoValues &values, const InfoFacts &facts);

const QString IrigCode = QStringLiteral("IrigCode");
const QString DateForm = QStringLiteral("yyyy/M/d");
const QString TimeForm = QStringLiteral("HH:mm:ss");

// A value of one line; none for an empty text.
QStringList line(const QString &text)
{
    return text.isEmpty() ? QStringList() : QStringList(text);
}

QStringList number(int value)
{
    return value > 0 ? QStringList(QString::number(value)) : QStringList();
}

QDateTime recordedAt(const InfoFacts &facts)
{
    for (const QString &form : {QStringLiteral("HH:mm:ss"), QStringLiteral("HH:mm")}) {
        const QTime time = QTime::fromString(facts.recordTime, form);
        if (time.isValid())
            return QDateTime(QDate::fromString(facts.recordDate, DateForm), time, Qt::UTC);
    }
    return QDateTime();
}

QString timeCodeText(const InfoValues &values, const InfoFacts &facts)
{
    return TimeCodeFrames::text(facts.frame, facts.recordRate, values.timeCode);
}

QStringList commentLines(const QString &comment)
{
    QString text = comment;
    text.replace(Keys::texts.separator, QLatin1String("\n"));
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QStringList lines = text.split(QLatin1Char('\n'));
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    return lines;
}

QStringList customLines(const QVector<InfoFacts::Custom> &customs)
{
    QStringList lines;
    for (const InfoFacts::Custom &custom : customs)
        lines.append(
            (custom.name + QLatin1String(": ") + custom.value + QLatin1Char(' ') + custom.unit)
                .trimmed());
    return lines;
}

const QHash<QString, Value> &table()
{
    static const QHash<QString, Value> all{
        {QStringLiteral("CameraState"),
         [](const InfoValues &, const InfoFacts &facts) { return line(facts.cameraState); }},
        {QStringLiteral("Camera name"),
         [](const InfoValues &, const InfoFacts &facts) { return line(facts.cameraName); }},
        {QStringLiteral("File name"),
         [](const InfoValues &, const InfoFacts &facts) { return line(facts.fileName); }},
        {QStringLiteral("Device"),
         [](const InfoValues &, const InfoFacts &facts) { return line(facts.deviceName); }},
        {QStringLiteral("Head"),
         [](const InfoValues &, const InfoFacts &facts) { return number(facts.headNumber); }},
        {QStringLiteral("PartitionNumber"),
         [](const InfoValues &, const InfoFacts &facts) { return number(facts.partitionNumber); }},
        {QStringLiteral("Date"),
         [](const InfoValues &, const InfoFacts &facts) {
             return line(facts.time.toString(DateForm));
         }},
        {QStringLiteral("Time"),
         [](const InfoValues &, const InfoFacts &facts) {
             return line(facts.time.toString(TimeForm));
         }},
        {QStringLiteral("RecDateTime"),
         [](const InfoValues &, const InfoFacts &facts) {
             return line((facts.recordDate + QLatin1Char(' ') + facts.recordTime).trimmed());
         }},
        {QStringLiteral("FrameRate"),
         [](const InfoValues &values, const InfoFacts &facts) {
             return line(values.formats.recordRateText(facts.recordRate));
         }},
        {QStringLiteral("ShutterSpeed"),
         [](const InfoValues &values, const InfoFacts &facts) {
             return line(values.formats.shutterSpeedText(facts.shutterSpeed));
         }},
        {QStringLiteral("Resolution"),
         [](const InfoValues &, const InfoFacts &facts) {
             return facts.resolution.isEmpty() ? QStringList()
                                               : line(QStringLiteral("%1 x %2")
                                                          .arg(facts.resolution.width())
                                                          .arg(facts.resolution.height()));
         }},
        {QStringLiteral("FrameNumber"),
         [](const InfoValues &values, const InfoFacts &facts) {
             return facts.frameCount == 0 ? QStringList()
                                          : line(values.formats.frameText(facts.frame + 1));
         }},
        {QStringLiteral("MaxFrames"),
         [](const InfoValues &values, const InfoFacts &facts) {
             return facts.frameCount == 0 ? QStringList()
                                          : line(values.formats.frameText(facts.frameCount));
         }},
        {QStringLiteral("Length"),
         [](const InfoValues &values, const InfoFacts &facts) {
             return facts.frameCount == 0
                        ? QStringList()
                        : line(values.formats.recTimeText(facts.frameCount, facts.recordRate));
         }},
        {QStringLiteral("TimeIrigCode"),
         [](const InfoValues &values, const InfoFacts &facts) {
             const QString irig = facts.readings.value(IrigCode);
             return line(irig.isEmpty() ? timeCodeText(values, facts) : irig);
         }},
        {QStringLiteral("TimeCode"),
         [](const InfoValues &values, const InfoFacts &facts) {
             return line(timeCodeText(values, facts));
         }},
        {QStringLiteral("LUT"),
         [](const InfoValues &, const InfoFacts &facts) {
             return facts.usesLut ? line(QStringLiteral("on")) : QStringList();
         }},
        {QStringLiteral("ZoomRate"),
         [](const InfoValues &, const InfoFacts &facts) {
             return facts.zoomRate > 0.0
                        ? line(QStringLiteral("%1 %").arg(qRound(facts.zoomRate * 100.0)))
                        : QStringList();
         }},
        {QStringLiteral("CrossCursor"),
         [](const InfoValues &, const InfoFacts &facts) {
             return facts.showsCrossCursor ? line(QStringLiteral("%1, %2")
                                                      .arg(facts.crossCursor.x())
                                                      .arg(facts.crossCursor.y()))
                                           : QStringList();
         }},
        {QStringLiteral("Comment"),
         [](const InfoValues &, const InfoFacts &facts) { return commentLines(facts.comment); }},
        {QStringLiteral("Custom"),
         [](const InfoValues &, const InfoFacts &facts) { return customLines(facts.customs); }},
        {QStringLiteral("RecEndTime"),
         [](const InfoValues &, const InfoFacts &facts) {
             const QDateTime start = recordedAt(facts);
             if (!start.isValid() || facts.frameCount == 0 || facts.recordRate == 0)
                 return QStringList();
             const qint64 seconds = qint64(facts.frameCount / facts.recordRate);
             return line(start.addSecs(seconds).toString(DateForm + QLatin1Char(' ') + TimeForm));
         }},
    };
    return all;
}

}

QStringList InfoValues::lines(const QString &id, const InfoFacts &facts) const
{
    const Value value = table().value(id);
    return value ? value(*this, facts) : line(facts.readings.value(id));
}

bool InfoValues::isBare(const QString &id)
{
    static const QStringList bare{QStringLiteral("Camera name"), QStringLiteral("File name"),
                                  QStringLiteral("Device"), QStringLiteral("Comment"),
                                  QStringLiteral("Custom")};
    return bare.contains(id);
}

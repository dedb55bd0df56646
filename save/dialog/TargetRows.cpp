#include "save/dialog/TargetRows.h"

#include "foundation/Json.h"

#include <QJsonObject>
#include <QVector>

namespace {

/// A text of a row, and the one of the information that it is.
struct RowText
{
    QString key;
    QString source;
};

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QVector<RowText> sameTexts(std::initializer_list<const char *> keys)
{
    QVector<RowText> texts;
    for (const char *key : keys)
        texts.append({text(key), text(key)});
    return texts;
}

const QString Recid = text("recid");
const QString MultiSkip = text("multiskip");
const QString PartitionNo = text("partitionno");
const QString FramesPlain = text("totalframesplain");
const QString Selected = text("selected");
const QString FileName = text("filename");
const QString Path = text("path");
const QString DataName = text("dataname");
const QString Name = text("name");
const QString DriveName = text("drivename");
const QString SerialNo = text("serialno");
const QString DataNo = text("datano");
const QString Style = text("style");
const QString NoCopy = text("background-color:red;");
const QString Yes = text("true");
const QString No = text("false");

const QVector<RowText> RowTexts =
    sameTexts(
        {"dockey", "recordrate", "Comments", "currentpartition", "totalframes", "resolution"}) +
    QVector<RowText>{{Path, text("filepath")}, {text("saveframes"), text("exportframes")}};

const QVector<RowText> FileTexts =
    sameTexts({"selected", "filename", "devicename", "date", "time", "shutterspeed"}) + RowTexts;

const QVector<RowText> CameraTexts =
    sameTexts({"cameraname", "ipaddress", "slotno", "capacity", "capacitylabel"}) + RowTexts;

// Only where the document has the item.
const QVector<RowText> CustomTexts =
    sameTexts({"Custom_TestNo", "Custom_Project", "Custom_TestType", "Custom_TestTypeNo",
               "Custom_Date", "Custom_Engineer", "Custom_Technician"});

void addTexts(QJsonObject &row, const QVector<RowText> &texts, const QVariantMap &facts)
{
    for (const RowText &each : texts)
        row.insert(each.key, facts.value(each.source).toString());
    for (const RowText &each : CustomTexts) {
        const auto fact = facts.constFind(each.source);
        if (fact != facts.constEnd())
            row.insert(each.key, fact->toString());
    }
}

qint64 framesOf(const QVariantMap &facts)
{
    return facts.value(FramesPlain).toLongLong();
}

bool isListedLive(const CameraTarget &camera, int position)
{
    if (camera.loopsOverPartitions)
        return !camera.stopsAfterLast || position >= camera.current;
    return position == camera.current;
}

bool isSelected(const CameraTarget &camera, int position)
{
    if (camera.selectsRecorded) // a partition without frames makes no row
        return true;
    return camera.allowsSkip || (position == camera.current && camera.isRecordedOnce);
}

}

TargetRows::TargetRows(const SavedCheck &check)
    : m_isChecked(check.done), m_copies(check.records.cbegin(), check.records.cend())
{
}

void TargetRows::add(const FileTarget &file)
{
    int position = 0;
    for (const QVariant &each : file.partitions) {
        ++position;
        const QVariantMap facts = each.toMap();
        const qint64 frames = framesOf(facts);
        if (frames <= 0)
            continue;
        QJsonObject row;
        addTexts(row, FileTexts, facts);
        row.insert(MultiSkip, file.allowsSkip);
        row.insert(PartitionNo, QString::number(position));
        if (file.isOnMedium) {
            const QString name = facts.value(Name).toString();
            const SavedRecord record(facts.value(SerialNo).toString(),
                                     facts.value(DataNo).toString());
            row.insert(DataName, name);
            row.insert(FileName, name);
            row.insert(Path, facts.value(DriveName).toString());
            row.insert(SerialNo, record.first);
            row.insert(DataNo, record.second);
            if (m_isChecked && !hasCopy(record))
                row.insert(Style, NoCopy);
        }
        append(row, frames);
    }
}

void TargetRows::add(const CameraTarget &camera)
{
    int position = 0;
    for (const QVariant &each : camera.partitions) {
        ++position;
        if (camera.isLive && !isListedLive(camera, position))
            continue;
        const QVariantMap facts = each.toMap();
        const qint64 frames = framesOf(facts);
        if (frames <= 0)
            continue;
        QJsonObject row;
        addTexts(row, CameraTexts, facts);
        row.insert(MultiSkip, camera.allowsSkip);
        row.insert(Selected, isSelected(camera, position) ? Yes : No);
        row.insert(PartitionNo, QString::number(position));
        append(row, frames);
    }
}

QString TargetRows::text() const
{
    return Json::compactText(m_rows);
}

void TargetRows::append(QJsonObject &row, qint64 frames)
{
    row.insert(Recid, m_rows.size() + 1);
    row.insert(FramesPlain, frames);
    m_rows.append(row);
}

bool TargetRows::hasCopy(const SavedRecord &record) const
{
    return !record.first.isEmpty() && !record.second.isEmpty() && m_copies.contains(record);
}

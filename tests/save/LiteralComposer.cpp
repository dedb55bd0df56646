#include "tests/save/LiteralComposer.h"

#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "foundation/exceptions/UTL_Exception.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QtDebug>

#include <limits>

namespace {

QString familyOf(int mode)
{
    if (mode == 4 || mode == 5 || mode == 18)
        return "layout";
    if (mode == 6 || mode == 11)
        return "convert";
    if (mode == 7)
        return "snap";
    if (mode == 16 || mode == 17)
        return "report";
    return "export";
}

QString withSlash(const QString &text)
{
    return text.isEmpty() || text.endsWith('/') ? text : text + '/';
}

QString appended(const QString &name, const QString &part)
{
    if (part.isEmpty())
        return name;
    return name.isEmpty() ? part : name + "_" + part;
}

QString cleaned(QString text)
{
    static const QRegularExpression forbidden("[\\\\\\/\\*\\?\\|\\t\\n\":<>%]");
    if (text.contains(forbidden)) {
        for (const char *letter : {"\\", "/", ":", "*", "?", "\"", "<", ">", "|", "%"})
            text.replace(letter, "_");
    }
    if (text == "." || text == "..")
        text.replace(".", "_");
    return text;
}

QString inRoundBrackets(QString text)
{
    return text.replace("[", "(").replace("]", ")");
}

QString timeText(const QDateTime &time, const QString &format)
{
    return QLocale(QLocale::C).toString(time, format);
}

QString numberPart(const QString &letter, int number, int digits)
{
    return digits < 1 ? QString() : letter + QString("%1").arg(number, digits, 10, QChar('0'));
}

QMap<QString, QString> pairsOf(const QString &list)
{
    QMap<QString, QString> pairs;
    for (const QString &entry : list.split('?')) {
        const QStringList fields = entry.split('|');
        if (fields.size() == 2)
            pairs[fields[0]] = fields[1];
    }
    return pairs;
}

}

bool LiteralComposer::on(const QString &key)
{
    return m_host->getPrefBool(key, QVariant());
}

QString LiteralComposer::text(const QString &key)
{
    return m_host->getPrefString(key, QVariant());
}

// `part`: "camera", "head" or "session".
int LiteralComposer::digits(int kind, const QString &part)
{
    const QMap<int, QString> levels{
        {0, "export/groupdir"},     {1, "export/subdir"},  {2, "export/filename"},
        {3, "convert/groupdir"},    {4, "convert/subdir"}, {5, "convert/filename"},
        {6, "snap/groupdir"},       {7, "snap/subdir"},    {8, "snap/filename"},
        {9, "report/groupdir"},     {10, "report/subdir"}, {11, "report/filename"},
        {13, "export/kv/dataname"}, {15, "layout/subdir"}, {16, "layout/filename"}};
    QString key = levels[kind] + "addnumber" + part + "nodigits";
    if (kind == 9 || ((kind == 10 || kind == 11) && part != "session"))
        key.clear();
    return m_host->getPrefInt(key, QVariant());
}

QString LiteralComposer::directory(int mode, DOC_Interface *doc)
{
    const QString family = familyOf(mode);
    QString result = text(family + "/dir");
    if (!m_host->isFileMode() && (mode == 1 || mode == 2) && !on("export/singlepath") && doc) {
        const QMap<QString, QString> destinations = pairsOf(text("export/multipathlist"));
        const QMap<QString, QString> devices = pairsOf(text("export/multipathdevicelist"));
        const QString device = doc->deviceName();
        if (devices.contains(device) && destinations.contains(devices[device]))
            result = destinations[devices[device]];
    }
    bool asOriginal = false;
    if (family == "convert")
        asOriginal = on("convert/dirasoriginal");
    else if (m_host->isFileMode())
        asOriginal = on(family + "/dirasoriginal");
    if (asOriginal) {
        result.clear();
        if (doc && !doc->originalFilePath().isEmpty())
            result = QFileInfo(doc->originalFilePath()).absolutePath();
    }
    return withSlash(result);
}

QString LiteralComposer::fileName(int mode, DOC_Interface *doc, int partitionNo, bool withAdditions,
                                  const QDateTime &time, bool useAlternativeDir, int reportVariant)
{
    const QString family = familyOf(mode);
    if (text("export/media") == "file" && (family == "export" || family == "convert") &&
        on("save/SaveInfFile") && on(family + "/saveinf")) {
        if (!text("export/inf_testno").isEmpty())
            return text("export/inf_testno");
        if (doc) {
            for (const QVariant &item : doc->customInfoList()) {
                if (item.toMap()["name"].toString() == "TestNo")
                    return item.toMap()["value"].toString();
            }
        }
        return QString();
    }

    QString name = text(family + "/filename");
    if (on(family + "/filenameasoriginal")) {
        name.clear();
        if (doc)
            name = doc->originalFileName();
        if (doc && family == "convert" && doc->isCameraRecord() && m_host->isMemoryMode())
            name = fileName(1, doc, partitionNo, withAdditions, time, useAlternativeDir,
                            reportVariant);
    }
    if (!m_host->isFileMode() && on(family + "/filenameaspartitionname"))
        name = cleaned(doc ? doc->partitionName(partitionNo) : QString());
    if (on(family + "/filenameusecustom")) {
        DOC_Interface *source = doc;
        const int key = m_host->getPrefInt(family + "/filenameusecustomfromtargetkey", QVariant());
        if (on(family + "/filenameusecustomfromtarget") && key >= 0) {
            if (DOC_Interface *other = m_host->deviceByKey(DOCKEY(key), true))
                source = other;
        }
        if (source) {
            name.clear();
            for (const QVariant &entry : source->customInfoList()) {
                const QVariantMap item = entry.toMap();
                if (item["usefilename"].toString() != "on")
                    continue;
                if (!name.isEmpty())
                    name += "_";
                name += item["value"].toString();
                if (on(family + "/filenameusecustomincludeunit"))
                    name += item["unit"].toString();
            }
            name = cleaned(name);
        }
    }
    if (!withAdditions)
        return name;

    const QMap<QString, int> kinds{
        {"layout", 16}, {"snap", 8}, {"convert", 5}, {"report", 11}, {"export", 2}};
    const int sessionDigits = digits(kinds[family], "session");
    int sequence = 0;
    bool usesSequence = false;
    std::optional<QString> additionBefore;
    for (;;) {
        if (sequence == std::numeric_limits<int>::max())
            throw UTL_Exception("Invalid filename.", 0);
        ++sequence;
        QString candidate = name;
        QString addition;
        if (doc)
            addition = doc->fileNameAddition(mode, partitionNo, sequence, usesSequence, time);
        candidate = appended(candidate, cleaned(addition));
        if (on(family + "/filenameaddtime"))
            candidate =
                appended(candidate, timeText(time, text(family + "/filenameaddtimeformat")));
        if (candidate.isEmpty() || !usesSequence || sessionDigits < 1)
            return candidate;
        if (additionBefore && *additionBefore == addition)
            throw UTL_Exception("Invalid filename.", 0);
        additionBefore = addition;

        QString bare =
            fileName(mode, doc, partitionNo, false, time, useAlternativeDir, reportVariant);
        QString written = candidate;
        const bool isRound = mode == 16 && reportVariant == 1;
        if (isRound) {
            bare = inRoundBrackets(bare);
            written = inRoundBrackets(written);
        }
        QString optionFamily = "export";
        if (family == "snap")
            optionFamily = "snap";
        else if (family == "convert" || family == "report")
            optionFamily = "convert";
        const bool groupOption = on(optionFamily + "/groupdirasfilenameincludeoption");
        const bool subOption = on(family + "/subdirasfilenameincludeoption");
        const QString group = groupDir(mode, doc, groupOption ? written : bare, time);
        QString sub = subDir(mode, doc, subOption ? written : bare, time);
        if (isRound)
            sub = inRoundBrackets(sub);
        const QString folder = directory(mode, doc) + withSlash(group) + withSlash(sub);
        QString listed = folder;
        QString beginning = written;
        QString path = folder + written;
        const QString other = useAlternativeDir ? m_host->plannedTargetDir() : QString();
        if (!other.isEmpty()) {
            if (folder.isEmpty())
                path = withSlash(other) + written;
            else
                path.replace(folder, other);
            listed = path.left(path.lastIndexOf('/') + 1);
            beginning = path.mid(listed.size());
        }
        bool isTaken = false;
        for (const QString &file : QDir(listed).entryList(QDir::Files, QDir::Unsorted))
            isTaken = isTaken || file.startsWith(beginning, Qt::CaseInsensitive);
        if (!isTaken && !m_host->isPlannedFile(path))
            return candidate;
    }
}

QString LiteralComposer::groupDir(int mode, DOC_Interface *doc, const QString &baseName,
                                  const QDateTime &time)
{
    if (mode == 4 || mode == 5)
        return QString();
    QString family = familyOf(mode);
    if (family == "layout")
        family = "export";
    if (!on(family + "/groupdir"))
        return QString();
    const QString planned = m_host->plannedGroupDir();
    if (!planned.isEmpty())
        return planned;
    const QMap<QString, int> kinds{{"export", 0}, {"convert", 3}, {"snap", 6}, {"report", 9}};
    return folderName(mode, doc, baseName, time, family + "/groupdir", kinds[family]);
}

QString LiteralComposer::subDir(int mode, DOC_Interface *doc, const QString &baseName,
                                const QDateTime &time)
{
    const QString family = familyOf(mode);
    if (!on(family + "/subdir"))
        return QString();
    const QMap<QString, int> kinds{
        {"export", 1}, {"convert", 4}, {"snap", 7}, {"report", 10}, {"layout", 15}};
    return folderName(mode, doc, baseName, time, family + "/subdir", kinds[family]);
}

QString LiteralComposer::folderName(int mode, DOC_Interface *doc, const QString &baseName,
                                    const QDateTime &time, const QString &prefix, int kind)
{
    QString name = on(prefix + "asfilename") ? baseName : text(prefix + "name");
    if (on(prefix + "addnumber")) {
        for (int session = 1;; ++session) {
            const QString format = text(prefix + "addnumberformat");
            int cameraDigits = 0;
            int headDigits = 0;
            if (!m_host->isFileMode()) {
                cameraDigits = digits(kind, "camera");
                headDigits = digits(kind, "head");
            }
            const int sessionDigits = digits(kind, "session");
            int camera = 1;
            int head = 1;
            if (!m_host->isFileMode() && doc) {
                camera = doc->cameraNumber() + 1;
                head = doc->headNumber();
                if (format == "auto") {
                    cameraDigits = QString::number(doc->cameraCount()).size();
                    headDigits = 0;
                    if (doc->headInterface() && doc->headInterface()->headCount() > 1)
                        headDigits = QString::number(doc->headInterface()->headCount()).size();
                }
            }
            const QString number = numberPart("C", camera, cameraDigits) +
                                   numberPart("H", head, headDigits) +
                                   numberPart("S", session, sessionDigits);
            if (number.isEmpty())
                break;
            const QString candidate = appended(name, number);
            const QString path = withSlash(directory(mode, doc)) + candidate + "/";
            if (sessionDigits >= 1 && (QDir(path).exists() || m_host->isPlannedDir(path))) {
                qWarning() << "exists" << path;
                continue;
            }
            name = candidate;
            break;
        }
    }
    if (on(prefix + "addtime"))
        name = appended(name, timeText(time, text(prefix + "addtimeformat")));
    return name;
}

void LiteralComposer::targetPaths(int mode, DOC_Interface *doc, bool useAlternativeDir,
                                  QMap<int, QString> &groupDirs, QMap<int, QString> &dirs,
                                  QMap<int, QString> &paths, const QDateTime &time,
                                  int reportVariant)
{
    if (!doc)
        return;
    const QString family = familyOf(mode);
    const QString baseDir = directory(mode, doc);
    for (int partitionNo : doc->partitionNumbers()) {
        QString dir = baseDir;
        QString bare =
            fileName(mode, doc, partitionNo, false, time, useAlternativeDir, reportVariant);
        QString full =
            fileName(mode, doc, partitionNo, true, time, useAlternativeDir, reportVariant);
        if (mode == 16 && reportVariant == 1) {
            bare = inRoundBrackets(bare);
            full = inRoundBrackets(full);
        }
        QString optionFamily = "export";
        if (family == "snap")
            optionFamily = "snap";
        else if (family == "convert" || family == "report")
            optionFamily = "convert";
        const bool groupOption = on(optionFamily + "/groupdirasfilenameincludeoption");
        const QString group = groupDir(mode, doc, groupOption ? full : bare, time);
        if (!group.isEmpty()) {
            groupDirs[partitionNo] = group;
            m_host->setPlannedGroupDir(group);
            dir = withSlash(dir) + group;
        }
        const bool subOption = on(family + "/subdirasfilenameincludeoption");
        QString sub = subDir(mode, doc, subOption ? full : bare, time);
        if (mode == 16 && reportVariant == 1)
            sub = inRoundBrackets(sub);
        if (!sub.isEmpty())
            dir = withSlash(dir) + sub;
        if (full.isEmpty() && !on("save/EnableBlankFilename") && mode != 9 && mode != 10 &&
            mode != 11 && mode != 17 && mode != 18)
            throw UTL_Exception("Invalid filename.", 0);
        dir = withSlash(dir);
        QString path = dir + full;
        if (useAlternativeDir) {
            const QString other = m_host->plannedTargetDir();
            if (!other.isEmpty()) {
                if (dir.isEmpty())
                    path = withSlash(other) + full;
                else
                    path.replace(dir, other);
                dir = other;
            }
        }
        dirs[partitionNo] = dir;
        paths[partitionNo] = path;
        if (mode != 16) {
            m_host->addPlannedDir(dir);
            m_host->addPlannedFile(path);
            if (path.size() > 245)
                throw UTL_Exception("The path of the target is too long.", 0);
            if (thumbnailPath(mode, path).size() > 245)
                throw UTL_Exception("The path of the target is too long.", 0);
        }
    }
}

QString LiteralComposer::thumbnailPath(int mode, const QString &path)
{
    if (mode != 1 && mode != 2 && mode != 6)
        return path;
    const QString family = mode == 6 ? "convert" : "export";
    if ((on("save/SaveInfFile") && on(family + "/saveinf")) || !on(family + "/savethumbnail"))
        return path;
    return path + text(family + "/savethumbnailaddtextvalue");
}

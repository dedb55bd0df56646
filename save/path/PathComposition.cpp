#include "save/path/PathComposition.h"

#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "foundation/DateTexts.h"
#include "foundation/LogLines.h"
#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/MultiPath.h"
#include "save/path/PathText.h"

#include <QFileInfo>

#include <algorithm>
#include <limits>

using SaveModes::Family;

namespace {

constexpr int LastNumber = std::numeric_limits<int>::max();

const QString Replacement = QLatin1String("_");

[[noreturn]] void refuseName()
{
    throw UTL_Exception(QLatin1String("Invalid filename."), 0);
}

void appendDirectory(QString &path, const QString &name)
{
    if (name.isEmpty())
        return;
    PathText::ensureTrailingSlash(path);
    path += name;
}

bool isWithoutBrackets(int mode, const PathComposition::Target &target)
{
    return mode == SaveModes::ReportMode && target.reportVariant == 1;
}

QString asWritten(int mode, const PathComposition::Target &target, const QString &text)
{
    return isWithoutBrackets(mode, target) ? PathText::bracketsToParens(text) : text;
}

void bracketsToParens(ComposedName &name)
{
    for (QString *text : {&name.text, &name.name, &name.number, &name.time})
        *text = PathText::bracketsToParens(*text);
}

void join(ComposedName &name)
{
    name.text = PathText::joined(PathText::joined(name.name, name.number), name.time);
}

}

PathComposition::PathComposition(HostServices *host, DOC_Interface *doc, const QDateTime &time,
                                 int firstNumber)
    : m_host(host), m_doc(doc), m_time(time), m_firstNumber(firstNumber)
{
}

QString PathComposition::directory(int mode)
{
    std::optional<QString> &directory = m_modes[mode].directory;
    if (!directory) {
        QString text = composeBase(mode);
        PathText::ensureTrailingSlash(text);
        directory = text;
    }
    return *directory;
}

QString PathComposition::composeBase(int mode)
{
    const Family family = SaveModes::family(mode);
    const Keys::SaveKeys &keys = SaveModes::keys(family);
    const bool mayBeOriginal = family == Family::Convert || isFileMode();
    if (mayBeOriginal && getBool(keys.dirAsOriginal)) {
        const QString path = m_doc ? m_doc->originalFilePath() : QString();
        return path.isEmpty() ? path : QFileInfo(path).absolutePath();
    }
    if (m_doc && !isFileMode() && PathRules::usesDestinations(mode) &&
        !getBool(Keys::exportTarget.singlePath)) {
        const std::optional<QString> directory =
            MultiPath::directoryOf(m_doc->deviceName(), getString(Keys::exportTarget.multiPathList),
                                   getString(Keys::exportTarget.multiPathDeviceList));
        if (directory)
            return *directory;
    }
    return getString(keys.dir);
}

ComposedName PathComposition::fileName(int mode, int partitionNo, bool withAdditions,
                                       const Target &target)
{
    ComposedName result;
    if (const std::optional<QString> &number = testNumber(mode)) {
        result.name = *number;
        result.text = *number;
        return result;
    }
    result.name = bareName(mode, partitionNo, withAdditions, target);
    result.text = result.name;
    if (!withAdditions)
        return result;

    const FileNameSettings &settings = fileNameSettings(mode);
    if (settings.addsTime)
        result.time = DateTexts::formatDateTime(m_time, settings.timeFormat);
    std::optional<QString> bare;
    QString directory;
    QString other;
    DirectoryView *files = nullptr;
    bool movesWithName = false;
    QString before;
    bool usesSequence = false;
    for (int sequence = m_firstNumber;; ++sequence) {
        QString addition;
        if (m_doc)
            addition = m_doc->fileNameAddition(mode, partitionNo, sequence, usesSequence, m_time);
        result.number = PathText::replaceInvalidChars(addition, Replacement);
        join(result);
        if (result.text.isEmpty() || !usesSequence || settings.sessionDigits < 1) {
            result.search = {};
            return result;
        }
        if (sequence != m_firstNumber && addition == before)
            refuseName();
        before = addition;

        if (!bare) {
            bare = asWritten(mode, target, bareName(mode, partitionNo, false, target));
            other = alternativeDir(target);
            movesWithName = dependsOnFileName(mode);
        }
        const QString name = asWritten(mode, target, result.text);
        if (!files || movesWithName)
            directory = fileDirectory(mode, target, *bare, name);
        QString path = directory + name;
        int nameStart = directory.size();
        if (!other.isEmpty()) {
            path = PathRules::movedPath(path, directory, name, other);
            nameStart = path.lastIndexOf(QLatin1Char('/')) + 1;
        }
        if (!files || movesWithName || !other.isEmpty())
            files = &view(path.left(nameStart));
        result.search.number = sequence;
        if (files->hasFileBeginning(path.mid(nameStart)))
            ++result.search.onDisk;
        else if (isPlannedFile(path))
            ++result.search.planned;
        else
            return result;
        if (sequence == LastNumber)
            refuseName();
    }
}

QString PathComposition::bareName(int mode, int partitionNo, bool withAdditions,
                                  const Target &target)
{
    const FileNameSettings &settings = fileNameSettings(mode);
    PathRules::NameFacts facts;
    if (settings.asOriginal)
        facts.originalName = originalName(mode, partitionNo, withAdditions, target);
    if (settings.asPartitionName && m_doc && !isFileMode())
        facts.partitionName = m_doc->partitionName(partitionNo);
    if (settings.usesCustomInfo)
        facts.customInfo = customInfo(mode);
    return PathRules::bareName(settings, facts, isFileMode());
}

// What is converted from a camera's memory has no file yet, and is named as its export.
QString PathComposition::originalName(int mode, int partitionNo, bool withAdditions,
                                      const Target &target)
{
    if (!m_doc)
        return QString();
    if (SaveModes::family(mode) == Family::Convert && m_doc->isCameraRecord() &&
        m_host->isMemoryMode())
        return fileName(SaveModes::ExportMode, partitionNo, withAdditions, target).text;
    return m_doc->originalFileName();
}

// Empty where the composed directory stays.
QString PathComposition::alternativeDir(const Target &target)
{
    if (!target.useAlternativeDir)
        return QString();
    if (!m_alternativeDir)
        m_alternativeDir = m_host->plannedTargetDir();
    return *m_alternativeDir;
}

QString PathComposition::fileDirectory(int mode, const Target &target, const QString &bareName,
                                       const QString &fullName)
{
    QString path = directory(mode);
    appendDirectory(
        path, groupDir(mode, groupDirSettings(mode).takesFullFileName ? fullName : bareName).text);
    const ComposedName sub =
        subDir(mode, subDirSettings(mode).takesFullFileName ? fullName : bareName);
    appendDirectory(path, asWritten(mode, target, sub.text));
    PathText::ensureTrailingSlash(path);
    return path;
}

bool PathComposition::dependsOnFileName(int mode)
{
    const auto depends = [](const FolderSettings &settings) {
        return settings.isUsed && settings.isNamedAsFile && settings.takesFullFileName;
    };
    return (PathRules::hasGroupDir(mode) && depends(groupDirSettings(mode))) ||
           depends(subDirSettings(mode));
}

ComposedName PathComposition::groupDir(int mode, const QString &baseName)
{
    if (!PathRules::hasGroupDir(mode))
        return {};
    const FolderSettings &settings = groupDirSettings(mode);
    if (!settings.isUsed)
        return {};
    ComposedName fixed;
    fixed.text = plannedGroupDir();
    return fixed.text.isEmpty() ? folder(mode, settings, baseName) : fixed;
}

ComposedName PathComposition::subDir(int mode, const QString &baseName)
{
    const FolderSettings &settings = subDirSettings(mode);
    return settings.isUsed ? folder(mode, settings, baseName) : ComposedName();
}

ComposedName PathComposition::folder(int mode, const FolderSettings &settings,
                                     const QString &baseName)
{
    ComposedName result;
    result.name = PathRules::folderName(settings, baseName);
    if (settings.addsNumber)
        searchFolderNumber(
            mode,
            PathRules::folderNumber(settings, numberFacts(settings.sizesDigits), isFileMode()),
            result);
    if (settings.addsTime)
        result.time = DateTexts::formatDateTime(m_time, settings.timeFormat);
    join(result);
    return result;
}

// The numbers below one that was taken stay taken while this composition lives: nothing is removed
// from the plan, and directories that were found are remembered. A further search of the same kind
// begins where the last one ended.
void PathComposition::searchFolderNumber(int mode, const PathRules::FolderNumber &number,
                                         ComposedName &result)
{
    const NumberText::Digits &digits = number.digits;
    if (digits.session < 1) {
        result.number = NumberText::compose(number.camera, number.head, m_firstNumber, digits);
        return;
    }
    const QString before =
        NumberText::compose(number.camera, number.head, 0, {digits.camera, digits.head, 0});
    QString path = directory(mode);
    if (!result.name.isEmpty())
        path += result.name + QLatin1Char('_');
    path += before;
    const int length = path.size();

    NumberSearch &search = m_searches[path + QChar(QChar::Null) + QString::number(digits.session)];
    if (search.number == 0)
        search.number = m_firstNumber;
    for (;; ++search.number) {
        path.truncate(length);
        path += NumberText::compose(0, 0, search.number, {0, 0, digits.session});
        path += QLatin1Char('/');
        const bool exists = DirectoryView::isDirectory(path);
        if (!exists && !isPlannedDir(path))
            break;
        LogLines::warning() << "exists" << path;
        if (search.number == LastNumber)
            refuseName();
        ++(exists ? search.onDisk : search.planned);
    }
    result.search = search;
    result.number = before + path.mid(length, path.size() - length - 1);
}

QString PathComposition::thumbnailPath(int mode, const QString &path)
{
    if (!PathRules::hasThumbnail(mode))
        return path;
    const Keys::SaveKeys &keys = SaveModes::keys(SaveModes::family(mode));
    ThumbnailSettings settings;
    settings.hasInformationFile = getBool(Keys::saveOption.saveInfFile) && getBool(keys.saveInf);
    settings.isSaved = getBool(keys.saveThumbnail);
    settings.addition = getString(keys.saveThumbnailAddTextValue);
    return PathRules::thumbnailPath(path, settings);
}

void PathComposition::compose(int mode, int partitionNo, const Target &target, ComposedPath &result)
{
    result.base = directory(mode);
    QString directory = result.base;
    ComposedName bare = fileName(mode, partitionNo, false, target);
    result.file = fileName(mode, partitionNo, true, target);
    if (isWithoutBrackets(mode, target)) {
        bracketsToParens(bare);
        bracketsToParens(result.file);
    }
    const QString &full = result.file.text;

    result.group = groupDir(mode, groupDirSettings(mode).takesFullFileName ? full : bare.text);
    if (!result.group.text.isEmpty())
        planGroupDir(target.plan, result.group.text);
    appendDirectory(directory, result.group.text);
    result.sub = subDir(mode, subDirSettings(mode).takesFullFileName ? full : bare.text);
    if (isWithoutBrackets(mode, target))
        bracketsToParens(result.sub);
    appendDirectory(directory, result.sub.text);

    if (full.isEmpty() && !PathRules::mayBeUnnamed(mode) &&
        !getBool(Keys::saveOption.enableBlankFilename)) {
        result.refusal = ComposedPath::Refusal::NoName;
        return;
    }
    PathText::ensureTrailingSlash(directory);
    QString path = directory + full;
    const QString other = alternativeDir(target);
    if (!other.isEmpty()) {
        path = PathRules::movedPath(path, directory, full, other);
        directory = other;
    }
    result.directory = directory;
    result.path = path;
    result.thumbnail = path;
    result.isPlaced = true;
    if (!PathRules::isPlanned(mode))
        return;
    planFile(target.plan, directory, path);
    result.thumbnail = thumbnailPath(mode, path);
    if (PathRules::isTooLong(path))
        result.refusal = ComposedPath::Refusal::TooLong;
    else if (PathRules::isTooLong(result.thumbnail))
        result.refusal = ComposedPath::Refusal::ThumbnailTooLong;
}

int PathComposition::listedDirectories() const
{
    return int(std::count_if(m_views.cbegin(), m_views.cend(),
                             [](const auto &entry) { return entry.second.isRead(); }));
}

QString PathComposition::plannedGroupDir()
{
    return m_plan.groupDir.isEmpty() ? m_host->plannedGroupDir() : m_plan.groupDir;
}

bool PathComposition::isPlannedDir(const QString &path)
{
    return m_plan.dirs.contains(path) || m_host->isPlannedDir(path);
}

bool PathComposition::isPlannedFile(const QString &path)
{
    return m_plan.files.contains(path) || m_host->isPlannedFile(path);
}

void PathComposition::planGroupDir(Plan plan, const QString &name)
{
    if (plan == Plan::Extend)
        m_host->setPlannedGroupDir(name);
    else
        m_plan.groupDir = name;
}

void PathComposition::planFile(Plan plan, const QString &directory, const QString &path)
{
    if (plan == Plan::Extend) {
        m_host->addPlannedDir(directory);
        m_host->addPlannedFile(path);
    } else {
        m_plan.dirs.insert(directory);
        m_plan.files.insert(path);
    }
}

bool PathComposition::isFileMode()
{
    if (!m_isFileMode)
        m_isFileMode = m_host->isFileMode();
    return *m_isFileMode;
}

PathRules::NumberFacts PathComposition::numberFacts(bool withCounts)
{
    PathRules::NumberFacts facts;
    if (!m_doc || isFileMode())
        return facts;
    facts.camera = m_doc->cameraNumber() + 1;
    facts.head = m_doc->headNumber();
    if (withCounts) {
        facts.cameraCount = m_doc->cameraCount();
        if (DOC_HeadInterface *heads = m_doc->headInterface())
            facts.headCount = heads->headCount();
    }
    return facts;
}

const FileNameSettings &PathComposition::fileNameSettings(int mode)
{
    std::optional<FileNameSettings> &settings = m_modes[mode].fileName;
    if (settings)
        return *settings;
    const Family family = SaveModes::family(mode);
    const Keys::SaveFileNameKeys &keys = SaveModes::keys(family).fileName;
    FileNameSettings read;
    read.name = getString(keys.name);
    read.asOriginal = getBool(keys.asOriginal);
    read.asPartitionName = getBool(keys.asPartitionName);
    read.usesCustomInfo = getBool(keys.useCustom);
    read.usesOtherDocument = getBool(keys.useCustomFromTarget);
    read.otherDocument = getInt(keys.useCustomFromTargetKey);
    read.includesUnit = getBool(keys.useCustomIncludeUnit);
    read.sessionDigits = getInt(keys.digits.session);
    read.addsTime = getBool(keys.addTime);
    read.timeFormat = getString(keys.addTimeFormat);
    settings = read;
    return *settings;
}

const FolderSettings &PathComposition::groupDirSettings(int mode)
{
    std::optional<FolderSettings> &settings = m_modes[mode].groupDir;
    if (settings)
        return *settings;
    const Family family = SaveModes::groupDirFamily(mode);
    FolderSettings read = folderSettings(SaveModes::keys(family).groupDir);
    // A report takes this one option from the conversions, as saves do. The page's own preview of
    // the group directory reads the report's.
    const Family optionFamily = family == Family::Report ? Family::Convert : family;
    read.takesFullFileName =
        getBool(SaveModes::keys(optionFamily).groupDir.asFileNameIncludeOption);
    settings = read;
    return *settings;
}

const FolderSettings &PathComposition::subDirSettings(int mode)
{
    std::optional<FolderSettings> &settings = m_modes[mode].subDir;
    if (settings)
        return *settings;
    const Keys::SaveFolderKeys &keys = SaveModes::keys(SaveModes::family(mode)).subDir;
    FolderSettings read = folderSettings(keys);
    read.takesFullFileName = getBool(keys.asFileNameIncludeOption);
    settings = read;
    return *settings;
}

// Of a directory that is not used nothing else is read.
FolderSettings PathComposition::folderSettings(const Keys::SaveFolderKeys &keys)
{
    FolderSettings settings;
    settings.isUsed = getBool(keys.use);
    if (!settings.isUsed)
        return settings;
    settings.isNamedAsFile = getBool(keys.asFileName);
    settings.name = getString(keys.name);
    settings.addsNumber = getBool(keys.addNumber);
    if (settings.addsNumber) {
        settings.sizesDigits = getString(keys.addNumberFormat) == QLatin1String("auto");
        settings.digits = {getInt(keys.digits.camera), getInt(keys.digits.head),
                           getInt(keys.digits.session)};
    }
    settings.addsTime = getBool(keys.addTime);
    settings.timeFormat = getString(keys.addTimeFormat);
    return settings;
}

const std::optional<QString> &PathComposition::testNumber(int mode)
{
    auto &known = m_modes[mode].testNumber;
    if (known)
        return *known;
    const Family family = SaveModes::family(mode);
    const bool hasInformationFile = (family == Family::Export || family == Family::Convert) &&
                                    getString(Keys::exportTarget.media) == Keys::texts.mediaFile &&
                                    getBool(Keys::saveOption.saveInfFile) &&
                                    getBool(SaveModes::keys(family).saveInf);
    std::optional<QString> number;
    if (hasInformationFile) {
        const QString setting = getString(Keys::exportTarget.infTestNo);
        number = PathRules::testNumber(setting, setting.isEmpty() && m_doc ? m_doc->customInfoList()
                                                                           : QVariantList());
    }
    known = number;
    return *known;
}

const std::optional<QVariantList> &PathComposition::customInfo(int mode)
{
    auto &known = m_modes[mode].customInfo;
    if (known)
        return *known;
    const FileNameSettings &settings = fileNameSettings(mode);
    DOC_Interface *source = m_doc;
    if (settings.usesOtherDocument && settings.otherDocument >= 0) {
        if (DOC_Interface *other = m_host->deviceByKey(DOCKEY(settings.otherDocument), true))
            source = other;
    }
    std::optional<QVariantList> list;
    if (source)
        list = source->customInfoList();
    known = list;
    return *known;
}

DirectoryView &PathComposition::view(const QString &directory)
{
    return m_views.try_emplace(directory, directory).first->second;
}

bool PathComposition::getBool(const QString &key)
{
    return m_host->getPrefBool(key, QVariant());
}

QString PathComposition::getString(const QString &key)
{
    return m_host->getPrefString(key, QVariant());
}

int PathComposition::getInt(const QString &key)
{
    return m_host->getPrefInt(key, QVariant());
}

#include "FuzzInput.h"

#include "foundation/Utilities.h"
#include "save/path/MultiPath.h"
#include "save/path/NumberText.h"
#include "save/path/PathRules.h"
#include "save/path/PathText.h"

#include <QMap>
#include <QStringList>

#include <cstdio>
#include <cstdlib>

// Random destinations of devices, numbers, and names from settings and custom items.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Letters that mean something in a list or a path, and any other.
QString randomText(FuzzInput &input)
{
    static const char *const words[] = {"?", "|", "A",  "B",  "Cam", "/",     "\\", ":",
                                        "*", "%", ".",  "..", "\t",  "\n",    "<",  ">",
                                        "[", "]", "\"", "on", "_",   "TestNo"};
    constexpr int count = int(sizeof words / sizeof *words);
    QString text;
    for (int length = input.choice(24); length > 0; --length) {
        const int word = input.choice(2 * count);
        text += word < count ? QString(words[word]) : QString(QChar(input.number() & 0xffff));
    }
    return text;
}

void destinations(FuzzInput &input)
{
    const auto pairsOf = [](const QString &list) {
        QMap<QString, QString> pairs;
        for (const QString &entry : list.split('?')) {
            const QStringList fields = entry.split('|');
            if (fields.size() == 2)
                pairs.insert(fields.first(), fields.last());
        }
        return pairs;
    };
    const QString paths = randomText(input);
    const QString devices = randomText(input);
    const QString device = randomText(input);
    const auto entries = MultiPath::entries(paths);
    require(entries.size() <= paths.count('?') + 1, "no more entries than the list has");
    for (const MultiPath::Entry &entry : entries)
        require(!(entry.first + entry.second).contains('?') &&
                    !(entry.first + entry.second).contains('|'),
                "a field is one field");
    const QMap<QString, QString> keys = pairsOf(devices);
    const QMap<QString, QString> directories = pairsOf(paths);
    const bool hasOne = keys.contains(device) && directories.contains(keys.value(device));
    const auto directory = MultiPath::directoryOf(device, paths, devices);
    require(directory.has_value() == hasOne, "a device has its destination");
    require(!hasOne || *directory == directories.value(keys.value(device)), "and no other");
}

void numbers(FuzzInput &input)
{
    const int camera = input.number();
    const int head = input.number();
    const int session = input.number();
    const NumberText::Digits digits{input.number(), input.number(), input.number()};
    const QString text = NumberText::compose(camera, head, session, digits);
    const auto partSize = [](int number, int count) {
        if (count < 1)
            return 0;
        return 1 + qMax(QString::number(number).size(), qMin(count, NumberText::MostDigits));
    };
    require(text.size() == partSize(camera, digits.camera) + partSize(head, digits.head) +
                               partSize(session, digits.session),
            "each part has its digits");
    if (digits.session > 0) {
        bool isNumber = false;
        require(text.mid(text.lastIndexOf('S') + 1).toInt(&isNumber) == session && isNumber,
                "the session number can be read");
    }
}

void checkCleaned(const QString &text)
{
    for (const char *letter = "\\/:*?\"<>|%"; *letter != 0; ++letter)
        require(!text.contains(*letter), "no forbidden character is left");
    require(text != "." && text != "..", "a name is no step of a path");
    require(UTL::isValidFileName(text) || text.contains('\t') || text.contains('\n'),
            "a cleaned name is valid");
    require(PathText::replaceInvalidChars(text, "_") == text, "what is clean stays");
}

void names(FuzzInput &input)
{
    const QString given = randomText(input);
    const QString cleaned = PathText::replaceInvalidChars(given, "_");
    checkCleaned(cleaned);
    require(cleaned.size() == given.size(), "a character takes the place of one");
    require(!UTL::isValidFileName(given) || given == "." || given == ".." || cleaned == given,
            "a valid name stays");

    QVariantList items;
    int marked = 0;
    for (int count = input.choice(6); count > 0; --count) {
        const QString mark = input.flag() ? QString("on") : randomText(input);
        marked += mark == "on" ? 1 : 0;
        items.append(QVariantMap{{"name", randomText(input)},
                                 {"value", randomText(input)},
                                 {"unit", randomText(input)},
                                 {"usefilename", mark}});
    }
    const QString custom = PathRules::customName(items, input.flag());
    checkCleaned(custom);
    require(marked > 0 || custom.isEmpty(), "a name is made of marked items");

    FileNameSettings settings;
    settings.name = randomText(input);
    settings.asOriginal = input.flag();
    settings.asPartitionName = input.flag();
    settings.usesCustomInfo = input.flag();
    const bool isFileMode = input.flag();
    const QString name =
        PathRules::bareName(settings, {randomText(input), randomText(input), items}, isFileMode);
    if (settings.usesCustomInfo || (settings.asPartitionName && !isFileMode))
        checkCleaned(name);

    QString directory = randomText(input);
    PathText::ensureTrailingSlash(directory);
    require(directory.isEmpty() || directory.endsWith('/'), "a directory ends in a slash");
    const QString path = directory + name;
    const QString other = randomText(input);
    const QString moved = PathRules::movedPath(path, directory, name, other);
    require(moved.endsWith(name) || name.contains(directory), "a file keeps its name");
    require(PathText::joined(given, QString()) == given && PathText::joined("", given) == given,
            "nothing is joined without a line");
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    for (int step = 0; step < 20 && !input.isAtEnd(); ++step) {
        switch (input.choice(3)) {
        case 0:
            destinations(input);
            break;
        case 1:
            numbers(input);
            break;
        default:
            names(input);
            break;
        }
    }
    return 0;
}

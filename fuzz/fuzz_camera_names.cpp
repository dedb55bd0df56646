#include "FuzzInput.h"

#include "device/names/CameraNameList.h"
#include "foundation/Utilities.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextCodec>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

// Files of camera names, of any bytes and of words that make up such files; beside them the reading
// step by step.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

QByteArray randomFile(FuzzInput &input)
{
    static const char *const words[] = {",",
                                        "\n",
                                        "\r\n",
                                        ",,",
                                        "Lab",
                                        "Hall",
                                        " ",
                                        "?",
                                        ":",
                                        "\t",
                                        "%",
                                        "?default?",
                                        "\xe5\xb7\xa6",
                                        "\x8d\xb6",
                                        "\x83\\",
                                        "\\/",
                                        "Camera 1",
                                        "left,",
                                        "\xef\xbb\xbf",
                                        "\xf0\x9d\x84\x9e"};
    constexpr int count = int(sizeof words / sizeof *words);
    QByteArray bytes;
    while (!input.isAtEnd() && bytes.size() < 4000) {
        const int word = input.choice(count + 4);
        if (word < count)
            bytes += words[word];
        else if (word == count)
            bytes += QByteArray(input.choice(256) * 8, 'x');
        else
            bytes += char(input.byte());
    }
    return bytes;
}

QString decoded(const QByteArray &bytes)
{
    const bool isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char byte) { return quint8(byte) < 0x80; });
    if (!isAscii && CameraNameList::isShiftJis(bytes))
        return QTextCodec::codecForName("Shift-JIS")->toUnicode(bytes);
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

QString cleaned(QString name)
{
    for (QChar letter : UTL::forbiddenInFileName())
        name.remove(letter);
    name = name.trimmed();
    if (name.size() <= CameraNameList::LongestName)
        return name;
    name.truncate(CameraNameList::LongestName);
    if (name.at(name.size() - 1).isHighSurrogate())
        name.chop(1);
    return name;
}

CameraNameList::Content stepByStep(const QByteArray &bytes)
{
    CameraNameList::Content content;
    const QStringList lines = decoded(bytes).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        QStringList fields = line.split(QLatin1Char(','));
        if (line.isEmpty())
            continue;
        QString category = fields.takeFirst().trimmed();
        if (fields.isEmpty()) {
            content.bareCategories.append(category);
            continue;
        }
        if (category.isEmpty())
            category = QLatin1String("?default?");
        QStringList &names = content.names[category];
        for (const QString &field : fields) {
            const QString name = cleaned(field);
            if (!name.isEmpty())
                names.append(name);
        }
        names.removeDuplicates();
    }
    return content;
}

int count(const CameraNameList::Content &content)
{
    int names = 0;
    for (const QStringList &each : content.names)
        names += each.size();
    return names;
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    const QByteArray file = input.flag()
                                ? QByteArray(reinterpret_cast<const char *>(data), int(size))
                                : randomFile(input);
    const CameraNameList::Content content = CameraNameList::read(file);
    const CameraNameList::Content expected = stepByStep(file);
    require(content.names == expected.names, "names are those of the file");
    require(content.bareCategories == expected.bareCategories, "each line without a name is told");
    for (const QStringList &names : content.names) {
        for (const QString &name : names) {
            require(UTL::isValidFileName(name) && !name.isEmpty(), "a name can be a camera's");
            require(name.size() <= CameraNameList::LongestName, "a name is short");
        }
    }

    const QJsonArray rows =
        QJsonDocument::fromJson(CameraNameList::pageText(content).toUtf8()).array();
    require(rows.size() == count(content), "the page gets each name");
    const int first = content.names.value(CameraNameList::defaultCategory()).size();
    for (int i = 0; i < first; ++i) {
        const QJsonObject row = rows.at(i).toObject();
        require(row.value(QLatin1String("category")).toString().isEmpty(),
                "names without a category come first");
    }
    return 0;
}

#include "device/names/CameraNameList.h"

#include "foundation/Json.h"
#include "foundation/Utilities.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QStringView>
#include <QTextCodec>

#include <algorithm>

namespace CameraNameList {

namespace {

constexpr int Utf8Mib = 106;

bool hasOnlyAscii(const QByteArray &bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool isUtf8(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForMib(Utf8Mib)->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

QTextCodec *shiftJisCodec()
{
    return QTextCodec::codecForName("Shift-JIS");
}

QString decoded(const QByteArray &bytes)
{
    if (!hasOnlyAscii(bytes) && isShiftJis(bytes))
        return shiftJisCodec()->toUnicode(bytes.constData(), bytes.size());
    return QString::fromUtf8(bytes.constData(), bytes.size()); // beyond a zero byte too
}

class Reader
{
public:
    void readLine(QStringView line)
    {
        if (line.isEmpty())
            return;
        const int comma = int(line.indexOf(QLatin1Char(',')));
        const QStringView category = (comma < 0 ? line : line.left(comma)).trimmed();
        if (comma < 0) {
            m_content.bareCategories.append(category.toString());
            return;
        }
        Names &names = namesOf(category);
        QStringView rest = line.mid(comma + 1);
        for (;;) {
            const int end = int(rest.indexOf(QLatin1Char(',')));
            add(names, end < 0 ? rest : rest.left(end));
            if (end < 0)
                return;
            rest = rest.mid(end + 1);
        }
    }

    Content takeContent()
    {
        for (auto each = m_names.begin(); each != m_names.end(); ++each)
            m_content.names.insert(each.key(), each->list);
        return std::move(m_content);
    }

private:
    struct Names
    {
        QStringList list;
        QSet<QString> seen;
    };

    Names &namesOf(QStringView category)
    {
        return m_names[category.isEmpty() ? defaultCategory() : category.toString()];
    }

    void add(Names &names, QStringView field)
    {
        const QString name = cleaned(field);
        if (name.isEmpty())
            return;
        const int known = names.seen.size();
        names.seen.insert(name);
        if (names.seen.size() > known)
            names.list.append(name);
    }

    static QString cleaned(QStringView field)
    {
        QString name = field.trimmed().toString();
        if (!UTL::isValidFileName(name)) {
            const QString forbidden = UTL::forbiddenInFileName();
            const auto kept = std::remove_if(
                name.begin(), name.end(), [&](QChar letter) { return forbidden.contains(letter); });
            name.truncate(int(kept - name.begin()));
            name = name.trimmed();
        }
        if (name.size() <= LongestName)
            return name;
        // Half of a character is none.
        const bool isSplit = name.at(LongestName - 1).isHighSurrogate();
        return name.left(isSplit ? LongestName - 1 : LongestName);
    }

    QHash<QString, Names> m_names;
    Content m_content;
};

void append(QJsonArray &rows, const QString &category, const QStringList &names)
{
    for (const QString &name : names) {
        rows.append(
            QJsonObject{{QLatin1String("category"), category}, {QLatin1String("label"), name}});
    }
}

}

QString defaultCategory()
{
    return QLatin1String("?default?");
}

bool isShiftJis(const QByteArray &bytes)
{
    if (hasOnlyAscii(bytes))
        return true;
    QTextCodec *codec = shiftJisCodec();
    if (isUtf8(bytes) || !codec)
        return false;
    QTextCodec::ConverterState state;
    const QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && !text.contains(QChar::ReplacementCharacter) &&
           codec->fromUnicode(text) == bytes;
}

Content read(const QByteArray &bytes)
{
    QString text = decoded(bytes);
    // The ends of lines are "\n" or "\r\n".
    text.remove(QLatin1Char('\r'));
    Reader reader;
    for (QStringView rest(text); !rest.isEmpty();) {
        const int end = int(rest.indexOf(QLatin1Char('\n')));
        reader.readLine(end < 0 ? rest : rest.left(end));
        rest = end < 0 ? QStringView() : rest.mid(end + 1);
    }
    return reader.takeContent();
}

QString pageText(const Content &content)
{
    QJsonArray rows;
    append(rows, QString(), content.names.value(defaultCategory()));
    for (auto each = content.names.begin(); each != content.names.end(); ++each) {
        if (each.key() != defaultCategory())
            append(rows, each.key(), each.value());
    }
    return Json::compactText(rows);
}

}

#include "standin/drawing/InfoLines.h"

namespace InfoLines {

namespace {

const QString LogoId = QStringLiteral("Logo");

QString oneLine(const QString &text)
{
    QString line = text.left(MostCharacters);
    for (QChar &letter : line) {
        const QChar::Category category = letter.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            letter = QLatin1Char(' ');
    }
    if (line.size() < text.size() && line.at(line.size() - 1).isHighSurrogate())
        line.chop(1);
    return line;
}

}

QVector<InfoLine> of(const QVector<InfoItemList::Entry> &entries, const InfoValues &values,
                     const InfoFacts &facts, const Options &options)
{
    QVector<InfoLine> all;
    for (const InfoItemList::Entry &entry : entries) {
        if (entry.isSeparator) {
            if (options.blankLines)
                all.append(InfoLine());
            continue;
        }
        if (!entry.isChecked || !entry.isEnabled)
            continue;
        if (entry.id == LogoId) {
            if (options.hasLogo)
                all.append({QString(), true});
            continue;
        }
        QStringList texts = values.lines(entry.id, facts);
        if (!texts.isEmpty() && !InfoValues::isBare(entry.id))
            texts.first().prepend(options.label(entry.id) + QLatin1String(": "));
        for (const QString &text : qAsConst(texts))
            all.append({oneLine(text), false});
        if (all.size() > MostLines)
            break;
    }
    return all.mid(0, MostLines);
}

}

#include "workbench/tour/TourReport.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <cstdio>

namespace {
const char TranscriptName[] = "transcript.txt";
constexpr int FewestColours = 8;
}

TourReport::TourReport(const QString &folder) : m_folder(folder)
{
    m_folder.mkpath(".");
    const QRegularExpression ours("^\\d\\d-[a-z-]+\\.png$");
    const QStringList pictures = m_folder.entryList({"*.png"}, QDir::Files);
    for (const QString &picture : pictures) {
        if (ours.match(picture).hasMatch())
            m_folder.remove(picture);
    }
    QFile transcript(m_folder.filePath(TranscriptName));
    m_writable = transcript.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

void TourReport::beginStep(const QString &name, const QString &title)
{
    ++m_steps;
    m_step = QStringLiteral("%1-%2").arg(m_steps, 2, 10, QLatin1Char('0')).arg(name);
    write(m_step + ": " + title);
    std::printf("%s: %s\n", qPrintable(m_step), qPrintable(title));
    std::fflush(stdout);
}

void TourReport::check(bool seen, const QString &what)
{
    ++m_checks;
    write((seen ? "  seen    " : "  FAILED  ") + what);
    if (seen)
        return;
    ++m_failures;
    std::fprintf(stderr, "%s: not seen: %s\n", qPrintable(m_step), qPrintable(what));
}

void TourReport::compare(const QString &seen, const QString &expected, const QString &what)
{
    if (seen == expected)
        check(true, what + ": " + expected);
    else
        check(false, QStringLiteral("%1: \"%2\", but it is \"%3\"").arg(what, expected, seen));
}

void TourReport::addPicture(const QPixmap &picture, const QString &suffix)
{
    const QString name = m_step + suffix + ".png";
    // Packed quickly: with the usual effort this was a third of the work of a tour.
    const bool good =
        !isBlank(picture.toImage()) && picture.save(m_folder.filePath(name), nullptr, 80);
    check(good, "picture " + name);
}

void TourReport::finish()
{
    write(
        QStringLiteral("%1 steps, %2 checks, %3 failed")
            .arg(QString::number(m_steps), QString::number(m_checks), QString::number(m_failures)));
}

bool TourReport::isBlank(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); y += 3) {
        for (int x = 0; x < picture.width() && colours.size() < FewestColours; x += 3)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size() < FewestColours;
}

void TourReport::write(const QString &line)
{
    QFile transcript(m_folder.filePath(TranscriptName));
    if (transcript.open(QIODevice::WriteOnly | QIODevice::Append))
        transcript.write(line.toUtf8() + '\n');
}

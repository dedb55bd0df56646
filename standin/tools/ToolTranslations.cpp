#include "standin/tools/ToolTranslations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTranslator>

#include <algorithm>

struct ToolTranslations::File
{
    QString name;
    QByteArray bytes;       ///< the translator reads in here
    QTranslator translator; ///< its end takes it out of the application
};

namespace {

/// Where the label of a tool stands in the message files.
struct Label
{
    const char *tool;
    const char *context;
    const char *text;
};

// The context of the lock tool is spelled like this in the module's message file.
const Label Labels[] = {{"t_multilock", "mutlicamera", "Lock Camera"}, {"t_note", "note", "Note"}};

QString languageOf(const QString &fileName)
{
    const QString base = QFileInfo(fileName).completeBaseName();
    const int underscore = base.lastIndexOf(QLatin1Char('_'));
    return underscore < 0 ? QString() : base.mid(underscore + 1);
}

}

ToolTranslations::ToolTranslations() = default;

ToolTranslations::~ToolTranslations() = default;

void ToolTranslations::add(PLG_Interface *plugin, const QString &language)
{
    const QDir root(QStringLiteral(":/"));
    const QStringList names = root.entryList({QStringLiteral("*.qm")}, QDir::Files, QDir::Name);
    QList<std::shared_ptr<File>> files;
    for (const QString &name : names) {
        const QString only = languageOf(name);
        if (!only.isEmpty() && only != language)
            continue;
        QFile source(root.filePath(name));
        if (!source.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = source.readAll();
        std::shared_ptr<File> file;
        for (const auto &others : qAsConst(m_files)) {
            for (const auto &other : others) {
                if (other->name == name && other->bytes == bytes)
                    file = other;
            }
        }
        if (!file) {
            file = std::make_shared<File>();
            file->name = name;
            file->bytes = bytes;
            const auto *data = reinterpret_cast<const uchar *>(file->bytes.constData());
            if (!file->translator.load(data, file->bytes.size()))
                continue;
            QCoreApplication::installTranslator(&file->translator);
        }
        files.append(file);
    }
    m_files.insert(plugin, files);
}

void ToolTranslations::remove(PLG_Interface *plugin)
{
    m_files.remove(plugin);
}

QStringList ToolTranslations::files() const
{
    QStringList names;
    for (const auto &files : m_files) {
        for (const auto &file : files) {
            if (!names.contains(file->name))
                names.append(file->name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

QString ToolTranslations::label(const QString &tool)
{
    for (const Label &label : Labels) {
        if (tool == QLatin1String(label.tool))
            return QCoreApplication::translate(label.context, label.text);
    }
    return tool;
}

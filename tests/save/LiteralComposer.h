#pragma once

#include <QDateTime>
#include <QMap>
#include <QString>

#include <optional>

class DOC_Interface;
class HostServices;

/// The path composer once more, step by step and without any thought of time: each setting is read
/// where it is needed, each directory listed for each number. Tests hold the composer against it.
class LiteralComposer
{
public:
    explicit LiteralComposer(HostServices *host) : m_host(host) {}

    void targetPaths(int mode, DOC_Interface *doc, bool useAlternativeDir,
                     QMap<int, QString> &groupDirs, QMap<int, QString> &dirs,
                     QMap<int, QString> &paths, const QDateTime &time, int reportVariant);
    QString directory(int mode, DOC_Interface *doc);
    QString fileName(int mode, DOC_Interface *doc, int partitionNo, bool withAdditions,
                     const QDateTime &time, bool useAlternativeDir = false, int reportVariant = 0);
    QString groupDir(int mode, DOC_Interface *doc, const QString &baseName, const QDateTime &time);
    QString subDir(int mode, DOC_Interface *doc, const QString &baseName, const QDateTime &time);
    QString thumbnailPath(int mode, const QString &path);

private:
    QString folderName(int mode, DOC_Interface *doc, const QString &baseName, const QDateTime &time,
                       const QString &prefix, int kind);
    int digits(int kind, const QString &part);
    bool on(const QString &key);
    QString text(const QString &key);

    HostServices *m_host;
};

#pragma once

#include "standin/host/StandInHost.h"
#include "tests/save/AddingCamera.h"
#include "tests/support/TestLog.h"

#include <QMap>
#include <QTemporaryDir>

#include <memory>

/// A host, a camera beside its list and an empty directory on the disk that all kinds of save have
/// as their base; exports are named "Shot", the others have no name.
class PathTest : public TestBase
{
    Q_OBJECT

protected:
    using Settings = QVariantMap;

    /// The three results of a composition.
    struct Maps
    {
        QMap<int, QString> groups;
        QMap<int, QString> dirs;
        QMap<int, QString> paths;
    };

    /// The host of a test.
    virtual std::unique_ptr<StandInHost> makeHost() const;

    static QDateTime moment(); ///< the time of all compositions, 2017-06-05 07:08:09

    /// A custom item of a document.
    static QVariantMap item(const QString &name, const QString &value, const QString &unit,
                            const QString &useFileName);

    /// An addition that ends in the number, and one that is always the same.
    static AddingCamera::Addition numbered(const QString &before, int digits = 4);
    static AddingCamera::Addition fixed(const QString &text, bool usesSequence = false);

    void set(const QString &key, const QVariant &value);
    void set(const Settings &settings);

    /// The line that an exception with this text leaves in the log.
    static QString refusal(const QString &message);

    /// An empty file, and a directory, below the base.
    void touch(const QString &name);
    void makeDir(const QString &name);

    QString base() const { return m_dir->path() + "/"; }
    QString inBase(const QString &path) const; ///< the part below it

    QString fileName(int mode, bool withAdditions = true);
    QString groupDir(int mode, const QString &baseName = "Shot");
    QString subDir(int mode, const QString &baseName = "Shot");
    void composeAll(int mode, Maps &maps, bool alternative = false, int variant = 0);
    void composeAll(int mode, Maps &maps, DOC_Interface *doc, bool alternative = false,
                    int variant = 0);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<AddingCamera> m_camera;

protected slots:
    void init();
    void cleanup();
};

#include "tests/save/PathTest.h"

#include "save/path/PathComposer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

std::unique_ptr<StandInHost> PathTest::makeHost() const
{
    return std::make_unique<StandInHost>();
}

QDateTime PathTest::moment()
{
    return QDateTime(QDate(2017, 6, 5), QTime(7, 8, 9));
}

QVariantMap PathTest::item(const QString &name, const QString &value, const QString &unit,
                           const QString &useFileName)
{
    return {{"name", name}, {"value", value}, {"unit", unit}, {"usefilename", useFileName}};
}

AddingCamera::Addition PathTest::numbered(const QString &before, int digits)
{
    return [before, digits](int, int, int sequence, bool &usesSequence) {
        usesSequence = true;
        return before + "S" + QString::number(sequence).rightJustified(digits, '0');
    };
}

AddingCamera::Addition PathTest::fixed(const QString &text, bool usesSequence)
{
    return [text, usesSequence](int, int, int, bool &uses) {
        uses = usesSequence;
        return text;
    };
}

void PathTest::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_host = makeHost();
    StandInCamera::Description description;
    description.model = "Cam";
    description.cameraNumber = 0;
    m_camera = std::make_unique<AddingCamera>(*m_host, 100, description);
    for (const char *family : {"export", "convert", "snap", "report", "layout"}) {
        set(QString("%1/dir").arg(family), m_dir->path());
        set(QString("%1/filename").arg(family), "");
    }
    set("export/media", "camera");
    set("export/filename", "Shot");
}

void PathTest::cleanup()
{
    m_camera.reset();
    m_host.reset();
    m_dir.reset();
    TestBase::cleanup();
}

void PathTest::set(const QString &key, const QVariant &value)
{
    StandInSettings &settings = m_host->settings();
    const QVariant stored = settings.value(key, QVariant());
    if (stored.type() != value.type() || stored != value)
        settings.setValue(key, value);
}

void PathTest::set(const Settings &settings)
{
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry)
        set(entry.key(), entry.value());
}

QString PathTest::refusal(const QString &message)
{
    return "\"APP_Exception:[message:" + message + "] [errorCode:0] \"";
}

void PathTest::touch(const QString &name)
{
    makeDir(QFileInfo(name).path());
    QFile file(base() + name);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void PathTest::makeDir(const QString &name)
{
    QVERIFY(QDir(m_dir->path()).mkpath(name));
}

QString PathTest::inBase(const QString &path) const
{
    return path.startsWith(base()) ? path.mid(base().size()) : "not in the base: " + path;
}

QString PathTest::fileName(int mode, bool withAdditions)
{
    return PathComposer::composeFileName(m_host.get(), mode, m_camera.get(), 1, withAdditions,
                                         moment());
}

QString PathTest::groupDir(int mode, const QString &baseName)
{
    return PathComposer::composeGroupDir(m_host.get(), mode, m_camera.get(), baseName, moment());
}

QString PathTest::subDir(int mode, const QString &baseName)
{
    return PathComposer::composeSubDir(m_host.get(), mode, m_camera.get(), baseName, moment());
}

void PathTest::composeAll(int mode, Maps &maps, bool alternative, int variant)
{
    composeAll(mode, maps, m_camera.get(), alternative, variant);
}

void PathTest::composeAll(int mode, Maps &maps, DOC_Interface *doc, bool alternative, int variant)
{
    PathComposer::composeTargetPaths(m_host.get(), mode, doc, alternative, maps.groups, maps.dirs,
                                     maps.paths, moment(), variant);
}

#include "tests/support/TestLog.h"

#include "tests/support/TestApplication.h"

#include <QApplication>
#include <QMutex>
#include <QMutexLocker>

namespace {

QMutex mutex;
int captures = 0;
QList<LogLine> captured;
QStringList unannounced;
QtMessageHandler previousHandler = nullptr;

// The offscreen platform says these two by itself.
bool isPlatformNoise(const QString &text)
{
    return text == QLatin1String("This plugin does not support setting window opacity") ||
           text == QLatin1String("This plugin does not support propagateSizeHints()");
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (isPlatformNoise(text))
        return;
    {
        QMutexLocker locker(&mutex);
        if (captures > 0) {
            captured.append({type, text});
            return;
        }
        if (type == QtWarningMsg || type == QtCriticalMsg)
            unannounced.append(text);
    }
    if (previousHandler)
        previousHandler(type, context, text);
}

}

LogCapture::LogCapture()
{
    QMutexLocker locker(&mutex);
    if (captures++ == 0)
        captured.clear();
}

LogCapture::~LogCapture()
{
    QMutexLocker locker(&mutex);
    --captures;
}

QList<LogLine> LogCapture::lines() const
{
    QMutexLocker locker(&mutex);
    return captured;
}

QStringList LogCapture::texts() const
{
    QStringList result;
    for (const LogLine &line : lines())
        result.append(line.text);
    return result;
}

QStringList LogCapture::texts(QtMsgType type) const
{
    QStringList result;
    for (const LogLine &line : lines()) {
        if (line.type == type)
            result.append(line.text);
    }
    return result;
}

void LogCapture::clear()
{
    QMutexLocker locker(&mutex);
    captured.clear();
}

void TestBase::init()
{
    QMutexLocker locker(&mutex);
    unannounced.clear();
    previousHandler = qInstallMessageHandler(handleMessage);
}

void TestBase::cleanup()
{
    qInstallMessageHandler(previousHandler);
    QStringList lines;
    {
        QMutexLocker locker(&mutex);
        lines.swap(unannounced);
    }
    if (!lines.isEmpty())
        QFAIL(qPrintable(QLatin1String("unannounced in the log: ") +
                         lines.join(QLatin1String(" | "))));
}

int runTest(int argc, char *argv[], QObject &test)
{
    const std::unique_ptr<QApplication> application = makeTestApplication(argc, argv);
    return QTest::qExec(&test, argc, argv);
}

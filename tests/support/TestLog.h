#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtTest>

/// One line of the message log.
struct LogLine
{
    QtMsgType type;
    QString text;
};

/// Collects the log lines written while it lives, of all threads. Its lines count as announced: a
/// warning or critical line outside of any capture fails the test that wrote it.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();

    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QList<LogLine> lines() const;
    QStringList texts() const;
    QStringList texts(QtMsgType type) const;
    void clear();
};

/// Base of all test classes: a warning or critical line that no LogCapture took fails the test. A
/// class with an init() or cleanup() of its own calls these from it.
class TestBase : public QObject
{
    Q_OBJECT

protected slots:
    void init();
    void cleanup();
};

/// What `main` of a test does: an application (offscreen, native dialogs off) and the test.
int runTest(int argc, char *argv[], QObject &test);

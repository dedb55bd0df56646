#pragma once

#include <QDateTime>
#include <QString>

/// One line of the message log.
struct LogEntry
{
    QDateTime time;
    QtMsgType type = QtInfoMsg;
    QString text;
};

/// Levels from the least to the most serious: 0 debug, 1 info, 2 warning, 3 critical.
int levelOf(QtMsgType type);

/// "Debug", "Info", "Warning", "Critical".
QString levelName(int level);

/// Whether the line is one that the platform without a display writes about itself.
bool isPlatformNoise(const QString &text);

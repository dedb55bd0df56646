#include "workbench/log/LogEntry.h"

int levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return 0;
    case QtInfoMsg:
        return 1;
    case QtWarningMsg:
        return 2;
    default:
        return 3;
    }
}

QString levelName(int level)
{
    static const char *const names[] = {"Debug", "Info", "Warning", "Critical"};
    return QLatin1String(names[qBound(0, level, 3)]);
}

bool isPlatformNoise(const QString &text)
{
    return text.startsWith("This plugin does not support ");
}

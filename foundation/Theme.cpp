#include "foundation/Theme.h"

#include "contract/HostServices.h"
#include "foundation/Keys.h"

#include <QFile>
#include <QTextStream>
#include <QWidget>

namespace Theme {

void applyNativeStyle(HostServices *host, QWidget *widget)
{
    const QString style =
        host->getPref(Keys::application.style, QVariant(QLatin1String("light"))).toString();
    const bool dark = style.toLower() == QLatin1String("dark");
    widget->setStyleSheet(readStyleSheet(dark ? QLatin1String("://ui-native-dark.css")
                                              : QLatin1String("://ui-native-light.css")));
}

QString readStyleSheet(const QString &path)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return QString();
    QTextStream stream(&file);
    return stream.readAll();
}

}

#include "tests/support/OwnMethods.h"

#include <QMetaMethod>

QStringList ownMethods(const QMetaObject &meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char *const access = method.access() == QMetaMethod::Public      ? ""
                                   : method.access() == QMetaMethod::Protected ? "protected "
                                                                               : "private ";
        methods.append(QLatin1String(access) + QString::fromLatin1(method.typeName()) + ' ' +
                       QString::fromLatin1(method.methodSignature()));
    }
    return methods;
}

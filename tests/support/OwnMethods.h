#pragma once

#include <QStringList>

struct QMetaObject;

/// The methods that a class itself adds to its meta-object, in their order, as "void ok(bool)".
/// One that is not public has its access in front: "private void ok(bool)".
QStringList ownMethods(const QMetaObject &meta);

#pragma once

#include <QList>
#include <QString>
#include <QVariant>

/// The one form in which values stand in a log line: groups "[label:value] ", joined directly; and
/// the one place that decides what is never shown.
namespace LogGroups {

/// What stands in a log line, a journal or a tape in place of a password.
QString masked();

/// Whether a value under this name is a password: one of the name's words says so, as in "oldPass",
/// "inputpass" or "qrc:/input_password_dialog.html", but not in "compass". Words are runs of
/// letters, cut where a small letter meets a capital and before a capital that a small letter
/// follows.
bool isSecretName(const QString &name);

/// "[label:value] " with its trailing blank. A text under a secret name is masked, an empty one
/// stays empty.
QString group(const QString &label, const QString &value);
QString group(const QString &label, bool value); ///< "true" or "false"
QString group(const QString &label, int value);
QString group(const QString &label, uint value);
QString group(const QString &label, quint64 value);
QString group(const QString &label, double value);
QString group(const QString &label, const char *value) = delete; ///< would be taken for a bool

/// A value that a page gave. A text or number stands as its text; lists and maps stand as compact
/// JSON, whose numbers of 64 bits are texts and whose values under secret names are masked; what
/// has no text is empty.
QString group(const QString &label, const QVariant &value);

/// A list, as of a QVariantList.
template <typename Value> QString group(const QString &label, const QList<Value> &values)
{
    return group(label, QVariant(QVariantList(values.cbegin(), values.cend())));
}

/// A group whose value is never shown.
QString secretGroup(const QString &label);

}

#pragma once

#include <QString>

/// The one form in which values stand in a log line: groups "[label:value] ", joined directly; and
/// the one place that decides what is never shown.
namespace LogGroups {

/// What stands in a log line, a journal or a tape in place of a password.
QString masked();

/// Whether a value under this name is a password: the name holds "pass" in any case, as in
/// "oldPass", "inputpass" or "qrc:/input_password_dialog.html".
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

/// A group whose value is never shown.
QString secretGroup(const QString &label);

}

#pragma once

#include "tests/workbench/support/PageVisit.h"

#include <QTemporaryDir>

/// Two cameras in memory mode, each with a recording of 100 frames in its first partition, and an
/// empty folder that all kinds of save go to. Exports are named "Shot".
struct SaveVisit : PageVisit
{
    SaveVisit();

    void set(const QString &key, const QVariant &value) { host.settings().setValue(key, value); }

    /// Numbers of files in this family, with four digits for the session alone.
    void numberFiles(const QString &family = "export");

    /// An empty file in the folder, with the directories on the way.
    void touch(const QString &name);

    QString base() const { return folder.path() + "/"; }

    QTemporaryDir folder;
};

/// The path as the page shows it, below the folder: its parts, and what joins them.
QString shownPath(GUI_WebView *view);

/// Its parts but for the folder: "group=Run file=Shot", each with its kind.
QString shownParts(GUI_WebView *view);

/// The lines of a place that tells several, "reasons", "warnings", "refusal"; none when it is
/// hidden.
QStringList linesOf(GUI_WebView *view, const QString &id);

/// Waits until the page shows this path.
bool waitForPath(GUI_WebView *view, const QString &path);

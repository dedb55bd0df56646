#pragma once

#include <QString>
#include <QStringList>

/// What the command line asks for.
struct Options
{
    enum class Action {
        Run,  ///< Open the workbench, or walk through it.
        Help, ///< Print `text` and end with status 0.
        Error ///< Print `text` on the error channel and end with status 2.
    };

    Action action = Action::Run;
    QString text;
    QString pluginFolder; ///< Empty: the folder "plugins" beside the executable.
    QString settingsFile; ///< Empty: the user's own.
    QString pagesFolder;  ///< Pages come from here, live; empty: from the executable alone.
    QString networkFile;  ///< The network that cameras are found in; empty: the built-in one.
    int cameras = 2;      ///< 0 to 16.
    QString openFolder;   ///< Folder of pictures to open as a recording; empty: none.
    QString style;        ///< "light" or "dark"; empty: as it was left.
    QString tourFolder;   ///< Where a walk-through puts its pictures; empty: no walk-through.
    QString walk;         ///< The one walk to take of them; empty: all.

    /// Reads the arguments, the program's name first. Needs a QCoreApplication.
    static Options parse(const QStringList &arguments);
};

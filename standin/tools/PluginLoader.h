#pragma once

#include <QList>
#include <QString>

#include <memory>
#include <vector>

class PLG_Interface;
class QLibrary;

/// A file that could not be used as a module of a tool, and why.
struct PluginFailure
{
    QString file;   ///< Path of the file.
    QString reason; ///< One line without a full stop at its end.

    /// One line that says which and why: "t_zoom.orvix: it has no makeButtonPlugin".
    QString text() const;
};

/// Loads modules of tools and owns the tools that they make.
///
/// It knows of a module only its exported function `makeButtonPlugin`. A module is loaded with all
/// its symbols resolved at once, so that a missing one is a reason and not a crash later. What
/// fails is unloaded at once, recorded in failures(), and disturbs nothing else; no operation
/// throws. The tools are made but not told anything: setHost() is the caller's, and so is to
/// withdraw a tool from the host before it is unloaded. GUI thread.
class PluginLoader
{
public:
    PluginLoader();

    /// unloadAll().
    ~PluginLoader();

    PluginLoader(const PluginLoader &) = delete;
    PluginLoader &operator=(const PluginLoader &) = delete;

    /// load() of every "*.orvix" of the folder, by name. The new tools, in this order. A folder
    /// that does not exist is a failure, an empty one is not.
    QList<PLG_Interface *> loadFolder(const QString &folder);

    /// The tool of this module, null when it failed.
    PLG_Interface *load(const QString &file);

    /// All tools, in the order of loading.
    QList<PLG_Interface *> tools() const;

    /// Path of the module that made this tool, empty for any other tool.
    QString fileOf(const PLG_Interface *tool) const;

    /// All failures since the loader was made.
    QList<PluginFailure> failures() const { return m_failures; }

    /// Deletes the tool, and what it asked to be deleted later, then unloads its module. Nothing
    /// for a tool that is not the loader's.
    void unload(PLG_Interface *tool);

    /// unload() of all tools, the last one first.
    void unloadAll();

private:
    struct Module;

    PLG_Interface *fail(const QString &file, const QString &reason);

    std::vector<Module> m_modules;
    QList<PluginFailure> m_failures;
};

#pragma once

#include <QHash>
#include <QStringList>

#include <memory>

class PLG_Interface;
class QTranslator;

/// The translations that modules of tools bring along, and the labels of tools.
///
/// A module carries its message file ("*.qm") at the root of the resource tree, registered while
/// the module is loaded. The bytes are copied, so that nothing of a module is in use behind its
/// unload. A file whose name ends in "_" and a language is used for that language only.
class ToolTranslations
{
public:
    ToolTranslations();
    ~ToolTranslations();

    ToolTranslations(const ToolTranslations &) = delete;
    ToolTranslations &operator=(const ToolTranslations &) = delete;

    /// Installs what is there now, on behalf of the plug-in. Needs an application object.
    void add(PLG_Interface *plugin, const QString &language);

    /// Takes out what no other plug-in came with.
    void remove(PLG_Interface *plugin);

    /// Names of the files in use, in ascending order.
    QStringList files() const;

    /// Label of the tool with this key, translated; the key when no label is known for it.
    static QString label(const QString &tool);

private:
    struct File;

    QHash<PLG_Interface *, QList<std::shared_ptr<File>>> m_files;
};

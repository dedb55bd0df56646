#include "standin/tools/PluginLoader.h"

#include "contract/PLG_Interface.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QLibrary>

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <exception>

namespace {

using MakeButtonPlugin = PLG_Interface *(*)();

// The name as it stands in the sources, for a symbol of C++.
QString plainName(const QString &symbol)
{
    int status = -1;
    const std::unique_ptr<char, void (*)(void *)> name(
        abi::__cxa_demangle(symbol.toUtf8().constData(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? QString::fromUtf8(name.get()) : symbol;
}

// The linker's message is "file: reason"; QLibrary puts it in brackets behind a sentence of its
// own.
QString linkerReason(const QLibrary &library)
{
    const QString file = library.fileName() + QLatin1String(": ");
    QString reason = library.errorString();
    const int begin = reason.indexOf(file + QLatin1Char('('));
    if (begin >= 0) {
        reason = reason.mid(begin + file.size() + 1);
        reason.chop(reason.endsWith(QLatin1Char(')')) ? 1 : 0);
    }
    return reason.startsWith(file) ? reason.mid(file.size()) : reason;
}

QString loadFailure(const QLibrary &library)
{
    const QString reason = linkerReason(library);
    const QString undefined = QLatin1String("undefined symbol: ");
    if (reason.startsWith(undefined)) {
        const QString symbol = reason.mid(undefined.size()).section(QLatin1Char(','), 0, 0);
        return QLatin1String("unresolved symbol ") + plainName(symbol);
    }
    for (const char *noLibrary : {"invalid ELF header", "file too short", "wrong ELF class"}) {
        if (reason.startsWith(QLatin1String(noLibrary)))
            return QLatin1String("it is no library of this system (") + reason + QLatin1Char(')');
    }
    return reason;
}

// Makes the tool; null with a reason when the module's function fails. What it throws is destroyed
// in here, while the module that holds its class is still loaded.
PLG_Interface *makeTool(MakeButtonPlugin make, QString &reason)
{
    try {
        if (PLG_Interface *tool = make())
            return tool;
        reason = QLatin1String("its makeButtonPlugin returned no tool");
    } catch (const std::exception &e) {
        reason = QLatin1String("its makeButtonPlugin failed: ") + QString::fromUtf8(e.what());
    } catch (...) {
        reason = QLatin1String("its makeButtonPlugin threw something that is no exception");
    }
    return nullptr;
}

}

struct PluginLoader::Module
{
    std::unique_ptr<QLibrary> library;
    std::unique_ptr<PLG_Interface> tool;
};

QString PluginFailure::text() const
{
    return QFileInfo(file).fileName() + QLatin1String(": ") + reason;
}

PluginLoader::PluginLoader() = default;

PluginLoader::~PluginLoader()
{
    unloadAll();
}

QList<PLG_Interface *> PluginLoader::loadFolder(const QString &folder)
{
    QList<PLG_Interface *> tools;
    const QDir dir(folder);
    if (!dir.exists()) {
        fail(dir.absolutePath(), QLatin1String("there is no such folder"));
        return tools;
    }
    // System: broken links too, so that they are told.
    const QFileInfoList files = dir.entryInfoList(
        {QLatin1String("*.orvix")}, QDir::Files | QDir::System | QDir::CaseSensitive, QDir::Name);
    for (const QFileInfo &file : files) {
        if (PLG_Interface *tool = load(file.absoluteFilePath()))
            tools.append(tool);
    }
    return tools;
}

PLG_Interface *PluginLoader::load(const QString &file)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    if (!info.exists())
        return fail(path, QLatin1String("there is no such file"));
    if (!info.isFile())
        return fail(path, QLatin1String("it is not a file"));

    Module module;
    module.library = std::make_unique<QLibrary>(path);
    module.library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (!module.library->load())
        return fail(path, loadFailure(*module.library));

    const auto make = MakeButtonPlugin(module.library->resolve("makeButtonPlugin"));
    QString reason = QLatin1String("it has no makeButtonPlugin");
    module.tool.reset(make ? makeTool(make, reason) : nullptr);
    if (!module.tool) {
        module.library->unload();
        return fail(path, reason);
    }
    m_modules.push_back(std::move(module));
    return m_modules.back().tool.get();
}

QList<PLG_Interface *> PluginLoader::tools() const
{
    QList<PLG_Interface *> tools;
    for (const Module &module : m_modules)
        tools.append(module.tool.get());
    return tools;
}

QString PluginLoader::fileOf(const PLG_Interface *tool) const
{
    for (const Module &module : m_modules) {
        if (module.tool.get() == tool)
            return module.library->fileName();
    }
    return QString();
}

void PluginLoader::unload(PLG_Interface *tool)
{
    const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                    [tool](const Module &m) { return m.tool.get() == tool; });
    if (found == m_modules.end())
        return;
    Module module = std::move(*found);
    m_modules.erase(found);
    module.tool.reset();
    // An object that waits for its deletion would run code of the module after it has gone.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    module.library->unload();
}

void PluginLoader::unloadAll()
{
    while (!m_modules.empty())
        unload(m_modules.back().tool.get());
}

PLG_Interface *PluginLoader::fail(const QString &file, const QString &reason)
{
    m_failures.append({file, reason.simplified()});
    return nullptr;
}

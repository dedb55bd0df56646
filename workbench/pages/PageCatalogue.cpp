#include "workbench/pages/PageCatalogue.h"

#include "bridge/mediator/JS_Mediator.h"

#include <algorithm>

namespace {

using Kind = PageEntry::Kind;

// name, kind, menu, entry, shortcut, title, URL, mediator, size, maker, command
QVector<PageEntry> makePages()
{
    return {
        {"views", Kind::Panel, "", "", {}, "Views", "qrc:/viewarea.html", "viewareapage", {}},
        {"devices", Kind::Panel, "", "", {}, "Devices", "qrc:/devices.html", "devicepanel", {}},
        {"status", Kind::Panel, "", "", {}, "Status", "qrc:/status.html", "statuspanel", {}},
        {"partitions", Kind::List, "", "", {}, "Partitions", "qrc:/selectbox.html", "items", {}},
        {"prefs", Kind::Dialog, "Edit", "&Preferences...", QKeySequence("Ctrl+,"), "Preferences",
         "qrc:/prefs.html", "preferences", QSize(420, 300), nullptr,
         [](JS_Mediator &commands) { commands.openPrefsDialog(); }},
        {"ethernet",
         Kind::Dialog,
         "Cameras",
         "&Ethernet settings...",
         {},
         "Ethernet settings",
         "qrc:/ethernet.html",
         "ethernet",
         QSize(430, 250),
         nullptr,
         [](JS_Mediator &commands) { commands.openPrefsEthernetSettings(); }},
        {"about",
         Kind::Dialog,
         "Help",
         "&About",
         {},
         "About the workbench",
         "qrc:/about.html",
         "about",
         QSize(380, 210),
         nullptr,
         [](JS_Mediator &commands) { commands.openAbouOrvixDialog(); }},
    };
}

}

const QVector<PageEntry> &PageCatalogue::pages()
{
    static const QVector<PageEntry> pages = makePages();
    return pages;
}

const PageEntry &PageCatalogue::page(const QString &name)
{
    const auto found = std::find_if(pages().begin(), pages().end(),
                                    [&](const PageEntry &page) { return page.name == name; });
    Q_ASSERT(found != pages().end());
    return *found;
}

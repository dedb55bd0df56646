#pragma once

#include <QKeySequence>
#include <QSize>
#include <QString>

#include <memory>

class JS_Mediator;
class QDialog;
class QWidget;
class StandInHost;

/// One page of the workbench, as a row of the catalogue: all that the rest of the workbench, its
/// tests and its walk-through know of it.
struct PageEntry
{
    /// How it is shown. A panel and a list have their place in the window's code.
    enum class Kind {
        Panel,  ///< in the window, as long as that lives
        Dialog, ///< modal, opened by its menu entry
        List,   ///< a pop-up of another page
    };

    using Make = std::unique_ptr<QDialog> (*)(StandInHost &host, const PageEntry &page,
                                              QWidget *parent);
    using Command = void (*)(JS_Mediator &commands);
    using MakeMediator = std::unique_ptr<JS_Mediator> (*)(StandInHost &host, const QString &name);

    QString name; ///< of the page and of its menu entry, for tests and the log
    Kind kind = Kind::Dialog;
    QString menu;          ///< "Edit"; a menu that is not there is made; empty: no entry
    QString entry;         ///< "&Preferences..."
    QKeySequence shortcut; ///< of the entry
    QString title;         ///< English source text
    QString url;
    QString mediator; ///< under this name the page finds it
    QSize size;       ///< of the dialog in pixels; an invalid one leaves it the size that it has

    /// Makes the dialog; null: one with a JS_Mediator_Dialog. What it makes may throw what the host
    /// throws, and is not shown yet.
    Make make = nullptr;

    /// The command of the host that opens it from the menu; null: it is made and run as it is.
    Command command = nullptr;

    /// Makes the mediator of a panel; null: a JS_Mediator_Page.
    MakeMediator makeMediator = nullptr;
};

#pragma once

#include "bridge/mediator/JS_Mediator_Page.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PageFont.h"

#include <QString>

#include <functional>

class GUI_WebView;
class QDialog;

/// A host, and the dialogs of the catalogue as its menu opens them, without the window.
struct PageVisit
{
    /// With settings in memory, or in a file.
    explicit PageVisit(const QString &settingsFile = QString());

    /// Opens the dialog of a page and hands it on once its page is drawn; what `body` leaves open
    /// is rejected. Whether it came.
    bool open(const QString &page, const std::function<void(QDialog &, GUI_WebView *)> &body);

    QVariant setting(const QString &key) { return host.settings().value(key, QVariant()); }

    /// What was written to the settings since the dialog was opened last.
    QStringList stored() const;

    PageFont font;
    StandInHost host;
    PageDialogs dialogs;
    JS_Mediator_Page commands;
};

/// What the engine takes a control of a page to show: "value" of a field or a list, "checked".
QVariant shownIn(GUI_WebView *view, const QString &id, const QString &property = "value");

/// Gives the focus to a control, by Tab from the first one; whether it came there.
bool goTo(GUI_WebView *view, const QString &id);

/// Chooses an entry of a list by the arrow keys, from 0; whether it is chosen.
bool chooseByKeys(GUI_WebView *view, const QString &id, int entry);

/// Puts a text in place of what a field holds, by keys; the focus stays there.
bool typeInto(GUI_WebView *view, const QString &id, const QString &text);

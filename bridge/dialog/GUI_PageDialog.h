#pragma once

#include "bridge/dialog/GUI_Dialog.h"

class GUI_WebView;

/// A dialog that consists of one page, which works it by the dialog's own slots: what such dialogs
/// share.
///
/// A subclass lists its slots, populateJavaScriptWindowObject() among them, and loads the page at
/// the end of its constructor. Escape is ignored, and there is no context-help button. GUI thread.
class GUI_PageDialog : public GUI_Dialog
{
    Q_OBJECT

public:
    ~GUI_PageDialog() override;

    GUI_WebView *webView() const { return m_webView; }

protected:
    /// `host` outlives the dialog. `title` is an English source text, translated by the host.
    /// Throws what the host throws.
    GUI_PageDialog(HostServices *host, const QString &title, QWidget *parent);

    HostServices *host() const { return m_host; }

    /// Comes each time that a page begins, before its first script: calls showToPage().
    virtual void populateJavaScriptWindowObject() = 0;

    /// Shows the dialog to the page under `name`, and the host's first scriptable object beside it
    /// as "app". Without that one, or when the host fails, the page finds the dialog alone.
    void showToPage(const QString &name);

    /// Loads the page. From here on its handlers of the dialog's signals cannot harm the process.
    void loadPage(const QString &url);

    /// Ends the dialog, then closes what has been hidden so: it leaves the line in the log that
    /// every closed dialog leaves. Whoever waits for the end may delete the dialog.
    void acceptAndClose();
    void rejectAndClose();

    /// "light" or "dark", as it is stored; "light" without one, and when the host fails.
    QString style();

    /// The host's translation, empty when it fails.
    QString translated(const QString &text);

private:
    HostServices *m_host;
    GUI_WebView *m_webView;
};

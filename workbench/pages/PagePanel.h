#pragma once

#include <QWidget>

#include <memory>

class GUI_WebView;
class JS_Mediator;
class StandInHost;
struct PageEntry;

/// A panel whose content is a page. The page hears `open` once it has loaded, and `update` behind
/// each refresh.
class PagePanel : public QWidget
{
    Q_OBJECT

public:
    /// `name` is the mediator's, under which the page finds it; `url` is that of the page. `title`
    /// is what screen readers say of the view. The host outlives the panel.
    PagePanel(StandInHost &host, const QString &name, const QString &url, const QString &title,
              QWidget *parent = nullptr);
    /// The panel of a row of the catalogue.
    PagePanel(StandInHost &host, const PageEntry &page, QWidget *parent = nullptr);
    ~PagePanel() override;

    GUI_WebView *view() const { return m_view; }
    JS_Mediator *mediator() const { return m_mediator.get(); }

    /// Whether the page has loaded, and so can be asked and clicked.
    bool isLoaded() const { return m_loaded; }

    /// Lets the page draw itself anew; nothing before it has loaded.
    void refresh();

    QSize sizeHint() const override;

private:
    PagePanel(StandInHost &host, std::unique_ptr<JS_Mediator> mediator, const QString &url,
              const QString &title, QWidget *parent);

    void tellOpen(bool loaded);

    StandInHost &m_host;
    GUI_WebView *m_view; ///< child
    std::unique_ptr<JS_Mediator> m_mediator;
    bool m_loaded = false;
};

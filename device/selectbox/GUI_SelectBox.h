#pragma once

#include "bridge/page/PageObject.h"

#include <QRect>
#include <QVariantList>
#include <QWidget>

#include <functional>
#include <memory>

class GUI_WebView;
class HostServices;
class JS_Mediator_SelectBox;

/// A small pop-up list over a page, for a partition or a variable of a camera.
///
/// It loads its page once, "qrc:/selectbox.html", where the mediator stands as "items"; a box that
/// is asked for before its page is ready shows when it is. It goes when the user has chosen,
/// presses Escape, or turns to another window. A page that fails to load leaves the box empty; the
/// next time that the box is asked for it loads again. The host makes it. GUI thread.
class GUI_SelectBox : public QWidget
{
    Q_OBJECT

public:
    /// `host` outlives the box.
    explicit GUI_SelectBox(HostServices *host, QWidget *parent = nullptr);
    ~GUI_SelectBox() override;

    /// Fills the page and shows the box at `field`, which is in screen pixels. The entries are the
    /// page's; there is a row for each.
    void showPartitions(const QVariantList &partitions, const QRect &field);
    void showVariables(const QString &variables, int rows, const QRect &field);
    void showVariableRegistration(const QString &variable, const QRect &field);

    JS_Mediator_SelectBox *mediator() const { return m_mediator.get(); }
    GUI_WebView *webView() const { return m_webView; }

    /// Shows the box when no load of its page is under way, else when that has ended.
    void setVisible(bool visible) override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void addJSObject();
    void onLoadFinish(bool ok);
    void onClose();
    void onUpdate();

private:
    void loadPage();
    void open(int rows, const QRect &field, const std::function<void()> &fill);
    void fillPage();

    HostServices *m_host;
    GUI_WebView *m_webView;
    std::unique_ptr<JS_Mediator_SelectBox, PageObjectOwner> m_mediator;
    bool m_wantedVisible = false;
    bool m_loaded = false;
    bool m_loading = false;       ///< a load is under way
    std::function<void()> m_fill; ///< what the page is still to be told
};

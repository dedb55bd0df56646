#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>
#include <QWidget>

class QWebPage;

/// The host's native widgets that stand in a page.
///
/// The engine deletes a widget whose tag has gone, and a view deletes its children; but the widgets
/// are the host's. They leave the page instead, hidden and without a parent, and can be embedded
/// again, in this page or in another one. The host in turn may delete a widget that stands in the
/// page: its tag goes with it. Owned by the page, and goes last of what the page holds. GUI thread.
class EmbeddedWidgets : public QObject
{
    Q_OBJECT

public:
    explicit EmbeddedWidgets(QWebPage *page);
    ~EmbeddedWidgets() override;

    /// `widget` is about to be given to the engine, for a tag with this class id.
    void add(QWidget *widget, const QString &classid);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Entry
    {
        QPointer<QWidget> widget;
        QPointer<QObject> sentinel; ///< child of the widget
    };

    void removeTags(const QString &classid);

    QWebPage *m_page;
    QPointer<QWidget> m_view; ///< that the page was shown in last
    QVector<Entry> m_entries;
};

#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

class QWebPage;

/// The host's native widgets that stand in a page.
///
/// The engine deletes a widget whose tag has gone, and a view deletes its children; but the widgets
/// are the host's. They leave the page instead, hidden and without a parent, and can be embedded
/// again. One that the engine hides gives up the focus to nobody. A widget stands in one page: when
/// another one embeds it, or the host deletes it, its tags go. While its tag is shown,
/// deleteLater() from anywhere deletes nothing. Owned by the page, and goes last of what the page
/// holds. GUI thread.
class EmbeddedWidgets : public QObject
{
    Q_OBJECT

public:
    explicit EmbeddedWidgets(QWebPage *page);
    ~EmbeddedWidgets() override;

    /// `widget` is about to be given to the engine, for a tag with this class id.
    void add(QWidget *widget, const QString &classid);

    /// The view goes, and the page stays for a while: the widgets leave it now.
    void leaveView();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Entry
    {
        QPointer<QWidget> widget;
        QObject *token; ///< child of the widget, goes when the page is to give it up
        QStringList classids;
    };

    static void takeFocusFrom(QWidget *widget);
    int indexOf(const QObject *widget) const;
    void release(int index);
    void giveUp(const QObject *token);
    bool isShown(const QStringList &classids) const;

    QWebPage *m_page;
    QPointer<QWidget> m_view; ///< that the page was shown in last
    QVector<Entry> m_entries;
};

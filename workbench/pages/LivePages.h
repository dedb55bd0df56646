#pragma once

#include "workbench/pages/PageFolder.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QWebPage>

#include <memory>
#include <vector>

class PageFolderAccess;
class QWebView;

/// Takes the pages of all views of the application from a folder while it lives, and loads a page
/// anew when one of the files has changed that it was made of. Views of tools count too. Made
/// before the first of them. GUI thread.
///
/// It looks at the files again and again, so it does not matter how an editor writes them, nor
/// whether the folder goes and comes back. A file that is being written is waited for, an empty one
/// longer. A page whose script is on the stack loads anew when that has returned.
class LivePages : public QObject
{
    Q_OBJECT

public:
    static constexpr int LookInterval = 100; ///< milliseconds between two looks
    static constexpr int SettleTime = 200;   ///< milliseconds that a file stays as it is
    static constexpr int EmptyTime = 1500;   ///< the same for one without a byte

    explicit LivePages(const QString &folder);
    ~LivePages() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Shown
    {
        QPointer<QWebPage> page;
        QHash<QUrl, PageFolder::State> files; ///< what it asked for, as it was then
        QString stack; ///< script that waited for something else when it began to load
        bool loading = false;
    };
    struct Seen
    {
        PageFolder::State state;
        qint64 since = 0;
    };

    void take(QWebPage *page);
    Shown *find(const QWebPage *page);
    void begin(QWebPage *page);
    void note(QObject *origin, const QUrl &url, const PageFolder::State &state);
    void look();
    void see();
    bool isDue(const Shown &shown) const;
    QString scriptStack();

    QWebPage m_bare; ///< asked for the stack, which all pages share
    std::unique_ptr<PageFolderAccess> m_access;
    std::vector<Shown> m_shown;
    QHash<QUrl, Seen> m_seen;
    QElapsedTimer m_clock;
};

#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

class GUI_SelectBox;
class GUI_WebView;
class StandInHost;

/// The pop-up lists that pages ask for. A page names the list and the place of its field: the list
/// "partition" shows the partitions of the current camera. GUI thread.
class DropDownBoxes : public QObject
{
    Q_OBJECT

public:
    /// Places are in pixels of `page`, which asks for the lists. Host and page outlive the boxes.
    DropDownBoxes(StandInHost &host, GUI_WebView &page, QObject *parent = nullptr);
    ~DropDownBoxes() override;

    /// The box, null before it was first asked for.
    GUI_SelectBox *box() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show(const QString &key, const QRect &rect);
    void hide();
    void makeBox();
    void restyle();

    StandInHost &m_host;
    GUI_WebView &m_page;
    QPointer<GUI_SelectBox> m_box; ///< child of the page's window
};

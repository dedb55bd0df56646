#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class StandInDocument;
class StandInHost;

/// The menu "Picture": it turns, flips, zooms and bins the view of the current document.
class ViewActions : public QObject
{
    Q_OBJECT

public:
    /// Zooms go from 1/8 to 16 view pixels per sensor pixel, by factors of 2.
    static constexpr double SmallestZoom = 0.125;
    static constexpr double LargestZoom = 16.0;

    /// The menu comes before the last one, the help. The host outlives it.
    ViewActions(StandInHost &host, QMainWindow *window);

private:
    QAction *add(const char *name, const QString &text, const QString &shortcut,
                 void (ViewActions::*action)(StandInDocument &));
    void refresh();

    void turnRight(StandInDocument &document);
    void turnLeft(StandInDocument &document);
    void flipHorizontally(StandInDocument &document);
    void flipVertically(StandInDocument &document);
    void zoomIn(StandInDocument &document);
    void zoomOut(StandInDocument &document);
    void zoomToFit(StandInDocument &document);
    void zoomToPixels(StandInDocument &document);
    void bin(StandInDocument &document, int exponent);
    void zoomBy(StandInDocument &document, double factor);

    StandInHost &m_host;
    QList<QAction *> m_actions;
    QAction *m_horizontally = nullptr;
    QAction *m_vertically = nullptr;
    QList<QAction *> m_binnings; ///< by exponent
};

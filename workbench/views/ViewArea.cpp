#include "workbench/views/ViewArea.h"

#include "bridge/operation/OperationLog.h"
#include "standin/documents/StandInCamera.h"
#include "standin/documents/StandInRecording.h"
#include "standin/host/StandInHost.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/EmptyPage.h"
#include "workbench/views/PlaybackBar.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

ViewArea::ViewArea(StandInHost &host, QWidget *parent)
    : QWidget(parent), m_host(host), m_stack(new QStackedWidget(this)),
      m_scroll(new QScrollArea(m_stack)), m_gridPage(new QWidget),
      m_grid(new QGridLayout(m_gridPage)), m_empty(new EmptyPage(m_stack)),
      m_playback(new PlaybackBar(this)), m_clock(new QTimer(this))
{
    m_grid->setContentsMargins(6, 6, 6, 6);
    m_grid->setSpacing(6);
    m_scroll->setObjectName("viewScroll");
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidgetResizable(true);
    m_scroll->setWidget(m_gridPage);
    m_stack->addWidget(m_scroll);
    m_stack->addWidget(m_empty);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_stack, 1);
    layout->addWidget(m_playback);

    m_clock->setInterval(PictureInterval);
    connect(m_clock, &QTimer::timeout, this, &ViewArea::advance);
    connect(m_playback, &PlaybackBar::frameChosen, this, &ViewArea::setFrame);
    connect(m_playback, &PlaybackBar::playRequested, this, &ViewArea::setPlaying);
    connect(m_empty, &EmptyPage::pressed, this, [this] {
        if (m_host.mode() == StandInHost::Mode::File)
            emit openFolderRequested();
        else
            emit addCameraRequested();
    });
    rebuild();
    setRunning(true);
}

DocumentView *ViewArea::view(DOCKEY key) const
{
    for (DocumentView *view : m_views) {
        if (view->key() == key)
            return view;
    }
    return nullptr;
}

void ViewArea::rebuild()
{
    const QList<StandInDocument *> documents = documentsOfMode();
    QList<DocumentView *> views;
    for (StandInDocument *document : documents) {
        DocumentView *shown = view(document->key());
        if (!shown) {
            shown = new DocumentView(*document, m_gridPage);
            shown->setObjectName(QStringLiteral("view%1").arg(document->key()));
            connect(shown, &DocumentView::chosen, this, &ViewArea::choose);
        }
        views.append(shown);
    }
    for (DocumentView *old : qAsConst(m_views)) {
        if (!views.contains(old))
            delete old;
    }
    m_views = views;
    arrange();
    refresh();
    emit viewsChanged();
}

void ViewArea::refresh()
{
    const DOCKEY current = m_host.currentKey();
    const bool live = m_host.mode() == StandInHost::Mode::Live;
    for (DocumentView *view : qAsConst(m_views)) {
        const quint64 frames = live ? 0 : view->document().frameCount();
        view->setCurrent(view->key() == current);
        view->showAll(live || frames > 0 ? QString()
                                         : tr("Nothing has been recorded by this camera."),
                      frames, live ? m_liveFrame : m_positions.value(view->key()).frame);
    }
    showPosition();
    showCurrent();
}

void ViewArea::refreshView(DOCKEY key)
{
    if (DocumentView *shown = view(key))
        shown->refresh();
}

void ViewArea::setRunning(bool running)
{
    running ? m_clock->start() : m_clock->stop();
}

bool ViewArea::isRunning() const
{
    return m_clock->isActive();
}

void ViewArea::advance()
{
    if (m_host.mode() == StandInHost::Mode::Live) {
        if (m_liveHeld)
            return;
        ++m_liveFrame;
        for (DocumentView *view : qAsConst(m_views))
            view->showFrame(m_liveFrame);
        return;
    }
    for (DocumentView *view : qAsConst(m_views)) {
        Position &position = m_positions[view->key()];
        const quint64 count = view->frameCount();
        if (!position.playing || count == 0)
            continue;
        position.frame = (position.frame + 1) % count;
        view->showFrame(position.frame);
    }
    showPosition();
}

void ViewArea::stepCurrent(int step)
{
    if (m_views.isEmpty())
        return;
    const int index = m_views.indexOf(currentView());
    const int count = m_views.size();
    DocumentView *next = m_views.at(index < 0 ? 0 : (index + step + count) % count);
    next->setFocus(Qt::ShortcutFocusReason);
    choose(next->key());
}

QList<StandInDocument *> ViewArea::documentsOfMode() const
{
    QList<StandInDocument *> documents;
    if (m_host.mode() == StandInHost::Mode::File) {
        for (StandInRecording *recording : m_host.recordings())
            documents.append(recording);
    } else {
        for (StandInCamera *camera : m_host.cameras())
            documents.append(camera);
    }
    return documents;
}

void ViewArea::choose(DOCKEY key)
{
    OperationLog::userOperation("ViewArea", "clicked", "View", QString("view%1").arg(key),
                                QString(), QVariant());
    m_host.makeCurrent(key);
    m_host.select(key, true);
    for (const DOCKEY other : m_host.selection()) {
        if (other != key)
            m_host.select(other, false);
    }
}

// As square as it goes, filled line by line.
void ViewArea::arrange()
{
    while (QLayoutItem *item = m_grid->takeAt(0))
        delete item;
    const int columns = int(std::ceil(std::sqrt(double(m_views.size()))));
    for (int column = 0; column < qMax(columns, m_grid->columnCount()); ++column)
        m_grid->setColumnStretch(column, column < columns ? 1 : 0);
    QWidget *before = nullptr;
    for (int i = 0; i < m_views.size(); ++i) {
        m_grid->addWidget(m_views.at(i), i / columns, i % columns);
        if (before)
            setTabOrder(before, m_views.at(i));
        before = m_views.at(i);
        m_views.at(i)->show();
    }
    const bool file = m_host.mode() == StandInHost::Mode::File;
    if (file)
        m_empty->say(tr("No recording is open"),
                     tr("Open a folder of pictures: each picture becomes a frame, in the natural "
                        "order of the file names."),
                     tr("O&pen folder..."));
    else
        m_empty->say(tr("No camera"),
                     tr("Add a camera to see its live picture. Two cameras or more can be locked "
                        "together."),
                     tr("A&dd camera"));
    m_stack->setCurrentWidget(m_views.isEmpty() ? static_cast<QWidget *>(m_empty) : m_scroll);
    m_playback->setVisible(!m_views.isEmpty() && m_host.mode() != StandInHost::Mode::Live);
}

// Once, so that the user may look at others.
void ViewArea::showCurrent()
{
    const DOCKEY current = m_host.currentKey();
    DocumentView *view = currentView();
    if (!view || current == m_shownCurrent)
        return;
    m_shownCurrent = current;
    m_grid->activate(); // a new view has its place
    m_scroll->ensureWidgetVisible(view, 0, 0);
}

void ViewArea::showPosition()
{
    const DocumentView *view = currentView();
    m_playback->setPosition(view ? view->frameNumber() : 0, view ? view->frameCount() : 0);
    const bool playing = view && m_positions.value(view->key()).playing;
    if (m_playback->isPlaying() != playing)
        m_playback->setPlaying(playing);
}

void ViewArea::setFrame(quint64 frame)
{
    if (DocumentView *view = currentView()) {
        m_positions[view->key()].frame = frame;
        view->showFrame(frame);
        showPosition();
    }
}

void ViewArea::setPlaying(bool playing)
{
    if (DocumentView *view = currentView())
        m_positions[view->key()].playing = playing;
    showPosition();
}

DocumentView *ViewArea::currentView() const
{
    return view(m_host.currentKey());
}

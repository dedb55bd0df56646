#include "workbench/views/DocumentView.h"

#include "standin/documents/StandInDocument.h"
#include "workbench/base/ElidingLabel.h"
#include "workbench/base/SettingsText.h"
#include "workbench/views/LockBadge.h"
#include "workbench/views/PictureArea.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {
constexpr int Border = 3;
}

DocumentView::DocumentView(StandInDocument &document, QWidget *parent)
    : QFrame(parent), m_document(document), m_title(new ElidingLabel(this)),
      m_lock(new LockBadge(this)), m_picture(new PictureArea(document, this)),
      m_frameLabel(new ElidingLabel(this)), m_settings(new ElidingLabel(this))
{
    setFocusPolicy(Qt::StrongFocus);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_lock->hide();
    // Where space is short the settings give way.
    m_frameLabel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    m_settings->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto *header = new QHBoxLayout;
    header->setContentsMargins(8, 0, 6, 0);
    header->addWidget(m_title, 1);
    header->addWidget(m_lock);
    header->addStrut(m_lock->sizeHint().height() + 4);
    auto *footer = new QHBoxLayout;
    footer->setContentsMargins(8, 2, 8, 3);
    footer->setSpacing(12);
    footer->addWidget(m_frameLabel);
    footer->addWidget(m_settings, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Border, Border, Border, Border);
    layout->setSpacing(0);
    layout->addLayout(header);
    layout->addWidget(m_picture, 1);
    layout->addLayout(footer);
    refresh();
}

DOCKEY DocumentView::key() const
{
    return m_document.key();
}

void DocumentView::setCurrent(bool current)
{
    if (m_current == current)
        return;
    m_current = current;
    refreshTexts();
    update();
}

void DocumentView::setFrameCount(quint64 count)
{
    m_frameCount = count;
    showFrame(m_frame);
}

void DocumentView::showFrame(quint64 number)
{
    m_frame = m_frameCount > 0 ? qMin(number, m_frameCount - 1) : number;
    refreshPicture();
    refreshTexts();
}

void DocumentView::setEmptyText(const QString &text)
{
    m_emptyText = text;
    m_picture->setEmptyText(text);
    refreshPicture();
    refreshTexts();
}

void DocumentView::showAll(const QString &emptyText, quint64 count, quint64 number)
{
    m_emptyText = emptyText;
    m_picture->setEmptyText(emptyText);
    m_frameCount = count;
    showFrame(number);
}

void DocumentView::refresh()
{
    refreshPicture();
    refreshTexts();
}

QString DocumentView::title() const
{
    return m_title->text();
}

QString DocumentView::frameText() const
{
    return m_frameLabel->text();
}

QString DocumentView::settingsText() const
{
    return m_settings->text();
}

bool DocumentView::showsLock() const
{
    return !m_lock->isHidden();
}

QImage DocumentView::picture() const
{
    return m_picture->picture();
}

void DocumentView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    const QColor line = palette().color(m_current ? QPalette::Highlight : QPalette::Mid);
    const int width = m_current ? Border : 1;
    for (int i = 0; i < width; ++i) {
        painter.setPen(line);
        painter.drawRect(rect().adjusted(i, i, -1 - i, -1 - i));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
}

void DocumentView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit chosen(key());
    event->accept();
}

void DocumentView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit chosen(key());
        break;
    default:
        QFrame::keyPressEvent(event);
    }
}

void DocumentView::focusInEvent(QFocusEvent *event)
{
    QFrame::focusInEvent(event);
    update();
}

void DocumentView::focusOutEvent(QFocusEvent *event)
{
    QFrame::focusOutEvent(event);
    update();
}

void DocumentView::refreshPicture()
{
    m_picture->setPicture(m_emptyText.isEmpty() ? m_document.frame(m_frame) : QImage(), m_frame);
}

void DocumentView::refreshTexts()
{
    const DocumentState &state = m_document.state();
    const QString name = state.displayName.isEmpty() ? state.documentName : state.displayName;
    m_title->setText(name);
    m_lock->setVisible(m_document.isLockedTogether());
    m_settings->setText(SettingsText::ofDocument(m_document));
    if (!m_emptyText.isEmpty())
        m_frameLabel->clear();
    else if (m_frameCount > 0)
        m_frameLabel->setText(
            tr("Frame %1 of %2").arg(QString::number(m_frame + 1), QString::number(m_frameCount)));
    else
        m_frameLabel->setText(tr("Frame %1").arg(QString::number(m_frame)));

    setAccessibleName(name);
    QStringList description{m_settings->text()};
    if (m_current)
        description.prepend(tr("current"));
    if (showsLock())
        description.append(tr("locked"));
    setAccessibleDescription(description.join(", "));
}

#include "workbench/window/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

NoticeBar::NoticeBar(QWidget *parent) : QFrame(parent), m_label(new QLabel(this))
{
    setObjectName("notice");
    setAccessibleName(tr("Notice"));
    // Amber with dark ink, the same in both looks.
    setStyleSheet("#notice { background: #ffe3a3; border: none; border-bottom: 1px solid #b98900; }"
                  "#notice QLabel { color: #3a2a00; }");
    m_label->setObjectName("noticeText");
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *log = new QPushButton(tr("Show lo&g"), this);
    log->setObjectName("noticeLog");
    auto *close = new QPushButton(tr("Dis&miss"), this);
    close->setObjectName("noticeDismiss");

    for (QPushButton *button : {log, close})
        button->setMinimumWidth(fontMetrics().horizontalAdvance(button->text()) + 20);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 4, 6, 4);
    layout->addWidget(m_label, 1);
    layout->addWidget(log);
    layout->addWidget(close);

    connect(log, &QPushButton::clicked, this, &NoticeBar::logRequested);
    connect(close, &QPushButton::clicked, this, &NoticeBar::dismiss);
    hide();
}

void NoticeBar::tell(const QString &text)
{
    if (m_texts.contains(text)) // a script may fail again and again
        return;
    m_texts.append(text);
    const int others = m_texts.size() - 1;
    m_label->setText(others == 0
                         ? text
                         : tr("%1 (and %2 more, see the log)").arg(text, QString::number(others)));
    show();
}

QString NoticeBar::text() const
{
    return isHidden() ? QString() : m_label->text();
}

void NoticeBar::dismiss()
{
    m_texts.clear();
    hide();
}

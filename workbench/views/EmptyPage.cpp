#include "workbench/views/EmptyPage.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

EmptyPage::EmptyPage(QWidget *parent)
    : QWidget(parent), m_title(new QLabel(this)), m_text(new QLabel(this)),
      m_button(new QPushButton(this))
{
    m_title->setObjectName("emptyTitle");
    QFont large = m_title->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    m_title->setFont(large);
    m_text->setObjectName("emptyText");
    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_button->setObjectName("emptyButton");

    auto *layout = new QVBoxLayout(this);
    layout->addStretch(2);
    layout->addWidget(m_title, 0, Qt::AlignHCenter);
    layout->addSpacing(4);
    layout->addWidget(m_text);
    layout->addSpacing(12);
    layout->addWidget(m_button, 0, Qt::AlignHCenter);
    layout->addStretch(3);
    connect(m_button, &QPushButton::clicked, this, &EmptyPage::pressed);
}

void EmptyPage::say(const QString &title, const QString &text, const QString &button)
{
    m_title->setText(title);
    m_text->setText(text);
    m_button->setText(button);
    m_button->setMinimumWidth(m_button->fontMetrics().horizontalAdvance(button) + 40);
    m_button->setVisible(!button.isEmpty());
}

QString EmptyPage::title() const
{
    return m_title->text();
}

#include "workbench/log/LogPanel.h"

#include "workbench/base/Look.h"
#include "workbench/log/LogFilter.h"
#include "workbench/log/LogLineDelegate.h"
#include "workbench/log/LogModel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

LogPanel::LogPanel(LogModel *model, QWidget *parent)
    : QWidget(parent), m_model(model), m_filter(new LogFilter(this)), m_view(new QTreeView(this))
{
    m_filter->setSourceModel(model);

    auto *level = new QComboBox(this);
    level->setObjectName("logLevel");
    for (int i = 0; i <= levelOf(QtCriticalMsg); ++i)
        level->addItem(i == 0   ? tr("All")
                       : i == 3 ? levelName(i)
                                : tr("%1 and worse").arg(levelName(i)));
    auto *levelLabel = new QLabel(tr("Leve&l:"), this);
    levelLabel->setBuddy(level);

    auto *text = new QLineEdit(this);
    text->setObjectName("logText");
    text->setClearButtonEnabled(true);
    text->setPlaceholderText(tr("Any text"));
    auto *textLabel = new QLabel(tr("Contai&ning:"), this);
    textLabel->setBuddy(text);

    auto *clear = new QPushButton(tr("Cle&ar"), this);
    clear->setObjectName("logClear");
    clear->setToolTip(tr("Removes all lines of this list"));

    m_view->setObjectName("logLines");
    m_view->setAccessibleName(tr("Log lines"));
    m_view->setModel(m_filter);
    m_view->setItemDelegate(new LogLineDelegate(m_view));
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->header()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->header()->setSectionsMovable(false);

    auto *copy = new QAction(tr("Copy lines"), m_view);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(copy);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto *filters = new QHBoxLayout;
    filters->addWidget(levelLabel);
    filters->addWidget(level);
    filters->addSpacing(8);
    filters->addWidget(textLabel);
    filters->addWidget(text, 1);
    filters->addWidget(clear);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->addLayout(filters);
    layout->addWidget(m_view);

    connect(level, QOverload<int>::of(&QComboBox::currentIndexChanged), m_filter,
            &LogFilter::setLevel);
    connect(text, &QLineEdit::textChanged, m_filter, &LogFilter::setText);
    connect(clear, &QPushButton::clicked, m_model, &LogModel::clear);
    connect(copy, &QAction::triggered, this, &LogPanel::copySelected);

    // Follows the end only while the end is in view.
    connect(m_filter, &QAbstractItemModel::rowsAboutToBeInserted, this, [this] {
        const QScrollBar *bar = m_view->verticalScrollBar();
        m_view->setProperty("atEnd", bar->value() >= bar->maximum());
    });
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_view->property("atEnd").toBool())
            m_view->scrollToBottom();
    });
    fitColumns();
}

QStringList LogPanel::visibleLines() const
{
    QStringList lines;
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < m_filter->columnCount(); ++column)
            cells.append(m_filter->index(row, column).data().toString());
        lines.append(cells.join(' '));
    }
    return lines;
}

void LogPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitColumns();
}

void LogPanel::fitColumns()
{
    m_view->setFont(Look::fixedFont(font()));
    const int margin = 2 * m_view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 16;
    const QFontMetrics metrics(m_view->font());
    m_view->setColumnWidth(LogModel::Time, metrics.horizontalAdvance("00:00:00.000") + margin);
    m_view->setColumnWidth(LogModel::Level, metrics.horizontalAdvance("Critical") + margin);
}

void LogPanel::copySelected()
{
    QModelIndexList rows = m_view->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    const QStringList all = visibleLines();
    QStringList lines;
    for (const QModelIndex &row : rows)
        lines.append(all.at(row.row()));
    QApplication::clipboard()->setText(lines.join('\n'));
}

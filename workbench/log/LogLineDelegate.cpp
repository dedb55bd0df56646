#include "workbench/log/LogLineDelegate.h"

#include "workbench/log/LogModel.h"

LogLineDelegate::LogLineDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

void LogLineDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const bool dark = option->palette.color(QPalette::Base).lightness() < 128;
    const int level = index.data(LogModel::LevelRole).toInt();
    QColor ink = option->palette.color(QPalette::Text);
    if (level == levelOf(QtCriticalMsg))
        ink = dark ? QColor(0xff8a80) : QColor(0xb3261e);
    else if (level == levelOf(QtWarningMsg))
        ink = dark ? QColor(0xffc857) : QColor(0x8a5300);
    else if (level == levelOf(QtDebugMsg))
        ink = option->palette.color(QPalette::PlaceholderText);
    option->palette.setColor(QPalette::Text, ink);
}

#include "workbench/pages/PageFont.h"

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QWebSettings>

namespace {

void giveSize(const QFont &font)
{
    const int pixels = QFontInfo(font).pixelSize();
    QWebSettings *settings = QWebSettings::globalSettings();
    settings->setFontSize(QWebSettings::DefaultFontSize, pixels);
    settings->setFontSize(QWebSettings::DefaultFixedFontSize, pixels);
}

}

PageFont::PageFont(QObject *parent) : QObject(parent)
{
    giveSize(QApplication::font());
    connect(qApp, &QGuiApplication::fontChanged, this, &giveSize);
}

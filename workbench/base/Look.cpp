#include "workbench/base/Look.h"

#include <QApplication>

namespace {

QPalette makePalette(const QColor &window, const QColor &base, const QColor &button,
                     const QColor &text, const QColor &dimmed, const QColor &accent,
                     const QColor &onAccent, const QColor &link)
{
    QPalette palette(button, window);
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor &ink = group == QPalette::Disabled ? dimmed : text;
        palette.setColor(group, QPalette::Window, window);
        palette.setColor(group, QPalette::WindowText, ink);
        palette.setColor(group, QPalette::Base, base);
        palette.setColor(group, QPalette::AlternateBase, window);
        palette.setColor(group, QPalette::Text, ink);
        palette.setColor(group, QPalette::Button, button);
        palette.setColor(group, QPalette::ButtonText, ink);
        palette.setColor(group, QPalette::BrightText, Qt::white);
        palette.setColor(group, QPalette::ToolTipBase, base);
        palette.setColor(group, QPalette::ToolTipText, text);
        palette.setColor(group, QPalette::PlaceholderText, dimmed);
        palette.setColor(group, QPalette::Link, link);
        palette.setColor(group, QPalette::Highlight, group == QPalette::Disabled ? dimmed : accent);
        palette.setColor(group, QPalette::HighlightedText, onAccent);
    }
    return palette;
}

}

bool Look::isDark(const QString &style)
{
    return style.compare("dark", Qt::CaseInsensitive) == 0;
}

QPalette Look::palette(bool dark)
{
    return dark ? makePalette(0x2b2d30, 0x1e1f22, 0x3c3f43, 0xe3e5e8, 0x8a8d93, 0x2f6fd0, 0xffffff,
                              0x8ab4f8)
                : makePalette(0xf2f3f5, 0xffffff, 0xe6e8eb, 0x1c1e21, 0x7a7e85, 0x1f5fbf, 0xffffff,
                              0x0b57d0);
}

// A style sheet keeps the palette that it met first, so the colours are written out.
QString Look::toolBarStyle(bool dark)
{
    const QPalette colours = palette(dark);
    const auto name = [&](QPalette::ColorRole role) { return colours.color(role).name(); };
    const QString dimmed = colours.color(QPalette::Disabled, QPalette::ButtonText).name();
    return QStringLiteral(
               "QToolBar { background: %1; border: none; spacing: 2px; padding: 2px; }"
               "QToolButton { color: %2; padding: 3px 9px; border: 1px solid transparent;"
               " border-radius: 3px; }"
               "QToolButton:hover { border-color: %3; }"
               "QToolButton:pressed { background: %3; }"
               "QToolButton:disabled { color: %3; }"
               "QToolButton:checked { background: %4; color: %5; }"
               "QToolButton:checked:disabled { background: %6; }"
               "QToolButton:focus { border: 1px dashed %2; }")
        .arg(name(QPalette::Window), name(QPalette::WindowText), dimmed, name(QPalette::Highlight),
             name(QPalette::HighlightedText), name(QPalette::Button));
}

QFont Look::fixedFont(const QFont &font)
{
    QFont fixed(QStringLiteral("monospace"));
    fixed.setStyleHint(QFont::Monospace);
    fixed.setPointSizeF(font.pointSizeF());
    return fixed;
}

void Look::apply(bool dark)
{
    const QPalette wanted = palette(dark);
    if (QApplication::palette() != wanted)
        QApplication::setPalette(wanted);
}

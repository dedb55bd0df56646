#include "workbench/tour/TourHand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace {

constexpr int Patience = 10000;     // milliseconds
constexpr int SettlingTime = 30;    // milliseconds
constexpr int DialogPatience = 300; // attempts

QString plain(const QString &text)
{
    return QString(text).remove('&');
}

// Without a window manager nobody gives the focus back to a window when a dialog or a menu has
// gone. One that has been closed meanwhile gets none.
void giveFocusBack(const QPointer<QWidget> &window)
{
    TourHand::settle();
    if (!window || !window->isVisible() || QApplication::activeWindow() == window)
        return;
    window->activateWindow();
    TourHand::waitFor([&] { return QApplication::activeWindow() == window; });
}

QAction *entryOf(const QWidget *menu, const QString &text)
{
    for (QAction *action : menu->actions()) {
        if (plain(action->text()) == text)
            return action;
    }
    return nullptr;
}

}

bool TourHand::waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, Patience);
}

void TourHand::settle()
{
    QTest::qWait(SettlingTime);
}

bool TourHand::click(QWidget *widget)
{
    if (!widget || !widget->isVisible() || !widget->isEnabled())
        return false;
    QTest::mouseClick(widget, Qt::LeftButton);
    settle();
    return true;
}

bool TourHand::press(int key, Qt::KeyboardModifiers modifiers, QWidget *widget)
{
    QWidget *target = widget ? widget : QApplication::focusWidget();
    if (!target)
        target = QApplication::activeWindow();
    if (!target)
        return false;
    QTest::keyClick(target, Qt::Key(key), modifiers);
    settle();
    return true;
}

bool TourHand::drag(QWidget *widget, const QPoint &from, const QPoint &to)
{
    QWindow *window = widget && widget->isVisible() ? widget->window()->windowHandle() : nullptr;
    if (!window || !widget->rect().contains(from) || !widget->rect().contains(to))
        return false;
    const QPoint start = widget->mapTo(widget->window(), from);
    const QPoint end = widget->mapTo(widget->window(), to);
    QTest::mouseMove(window, start);
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, start);
    QTest::mouseMove(window, start + (end - start) / 2);
    QTest::mouseMove(window, end);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, end);
    settle();
    return true;
}

bool TourHand::choose(QComboBox *box, const QString &text)
{
    const int index = box && box->isVisible() && box->isEnabled() ? box->findText(text) : -1;
    if (index < 0)
        return false;
    box->setFocus();
    QTest::keyClick(box, Qt::Key_F4);
    QAbstractItemView *list = box->view();
    if (!waitFor([list] { return list->isVisible(); }))
        return false;
    const QModelIndex entry = list->model()->index(index, box->modelColumn());
    list->scrollTo(entry);
    settle();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(entry).center());
    const bool closed = waitFor([list] { return !list->isVisible(); });
    giveFocusBack(box->window());
    return closed;
}

bool TourHand::chooseMenu(QMenuBar *bar, const QString &menuText, const QString &entryText)
{
    QAction *menuAction = entryOf(bar, menuText);
    QMenu *menu = menuAction ? menuAction->menu() : nullptr;
    QAction *entry = menu ? entryOf(menu, entryText) : nullptr;
    if (!entry || !entry->isEnabled())
        return false;
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      bar->actionGeometry(menuAction).center());
    if (!waitFor([menu] { return menu->isVisible(); }))
        return false;
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(entry).center());
    const bool closed = waitFor([menu] { return !menu->isVisible(); });
    giveFocusBack(bar->window());
    return closed;
}

int TourHand::answerDialogs(const std::function<void()> &trigger, const QList<Answer> &answers)
{
    int answered = 0;
    int attempts = 0;
    const QPointer<QWidget> window = QApplication::activeWindow();
    // The trigger may be in a dialog itself, and take its time until it opens another.
    QPointer<QDialog> last = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        QPointer<QDialog> dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        // What shows progress goes by itself, and only when nobody waits inside it.
        if (qobject_cast<QProgressDialog *>(dialog))
            return;
        if (!dialog || !dialog->isVisible() || (dialog == last && last)) {
            if (++attempts > DialogPatience)
                watch.stop();
            return;
        }
        watch.stop();
        last = dialog;
        answers.at(answered++)(dialog);
        if (dialog && dialog->isVisible())
            dialog->reject();
        if (answered < answers.size())
            watch.start();
    });
    watch.start(SettlingTime);
    trigger();
    waitFor([&] { return !watch.isActive(); });
    giveFocusBack(window);
    return answered;
}

bool TourHand::choosePath(QDialog *dialog, const QString &path)
{
    auto *chooser = qobject_cast<QFileDialog *>(dialog);
    auto *name = chooser ? chooser->findChild<QLineEdit *>("fileNameEdit") : nullptr;
    auto *buttons = chooser ? chooser->findChild<QDialogButtonBox *>("buttonBox") : nullptr;
    if (!name || !buttons)
        return false;
    name->setText(path);
    settle();
    QPushButton *accept = buttons->button(QDialogButtonBox::Open);
    if (!accept)
        accept = buttons->button(QDialogButtonBox::Save);
    if (!accept || !accept->isEnabled())
        return false;
    QTest::mouseClick(accept, Qt::LeftButton);
    return chooser->result() == QDialog::Accepted;
}

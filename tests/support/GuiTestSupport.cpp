#include "GuiTestSupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QOpenGLWidget>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace tevtest {

void MouseMove(QWidget* widget, QPoint pos, Qt::MouseButtons buttons, Qt::KeyboardModifiers mods)
{
    QMouseEvent event(QEvent::MouseMove, pos, widget->mapToGlobal(pos), Qt::NoButton, buttons, mods);
    QApplication::sendEvent(widget, &event);
}

void DoubleClick(QWidget* widget, QPoint pos, Qt::MouseButton button)
{
    QTest::mousePress(widget, button, Qt::NoModifier, pos);
    QTest::mouseRelease(widget, button, Qt::NoModifier, pos);
    QTest::mouseDClick(widget, button, Qt::NoModifier, pos);
    QTest::mouseRelease(widget, button, Qt::NoModifier, pos);
}

void AnswerNextMessageBox(QMessageBox::StandardButton button, BoxSeen* seen)
{
    // Polls until the box is up: exec() starts its own event loop, in which timers still fire.
    auto* timer = new QTimer();
    timer->setInterval(20);
    QObject::connect(timer, &QTimer::timeout, [timer, button, seen]() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        timer->stop();
        timer->deleteLater();
        seen->shown = true;
        seen->title = box->windowTitle();
        seen->text = box->text();
        QAbstractButton* b = box->button(button);
        if (b) b->click();
        else box->reject();
    });
    timer->start();
}

void AnswerMessageBoxes(int count, QMessageBox::StandardButton button, std::vector<BoxSeen>* seen)
{
    auto* timer = new QTimer();
    timer->setInterval(20);
    auto remaining = std::make_shared<int>(count);
    QObject::connect(timer, &QTimer::timeout, [timer, button, seen, remaining]() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible()) return;
        seen->push_back(BoxSeen{true, box->windowTitle(), box->text()});
        QAbstractButton* b = box->button(button);
        if (!b) b = box->buttons().isEmpty() ? nullptr : box->buttons().first();
        if (b) b->click();
        else box->reject();
        if (--*remaining == 0) {
            timer->stop();
            timer->deleteLater();
        }
    });
    timer->start();
}

static std::vector<MenuEntrySeen> ReadMenu(const QMenu* menu)
{
    std::vector<MenuEntrySeen> entries;
    for (QAction* action : menu->actions()) {
        MenuEntrySeen e;
        e.separator = action->isSeparator();
        e.text = action->text();
        e.enabled = action->isEnabled();
        e.checkable = action->isCheckable();
        e.checked = action->isChecked();
        if (action->menu()) e.sub = ReadMenu(action->menu());
        entries.push_back(e);
    }
    return entries;
}

static void Describe(const std::vector<MenuEntrySeen>& entries, const QString& indent, QStringList& out)
{
    for (const MenuEntrySeen& e : entries) {
        if (e.separator) {
            out << indent + "---";
            continue;
        }
        QString line = indent + e.text;
        if (e.checkable) line += e.checked ? " [x]" : " [ ]";
        if (!e.enabled) line += " (disabled)";
        if (!e.sub.empty()) line += " >";
        out << line;
        Describe(e.sub, indent + "  ", out);
    }
}

QStringList DescribeMenu(const std::vector<MenuEntrySeen>& entries)
{
    QStringList out;
    Describe(entries, QString(), out);
    return out;
}

bool ActivateAndWait(QWidget* widget)
{
    // The request is repeated: the X server refuses the focus to a window not yet viewable.
    for (int attempt = 0; attempt < 25; ++attempt) {
        widget->activateWindow();
        if (QTest::qWaitForWindowActive(widget, 200)) return true;
    }
    return false;
}

MenuAnswer::MenuAnswer(const QStringList& path, MenuSeen* seen) : m_path(path), m_seen(seen), m_timer(new QTimer())
{
    m_timer->setInterval(20);
    QObject::connect(m_timer, &QTimer::timeout, [this]() { Poll(); });
    m_timer->start();
}

MenuAnswer::~MenuAnswer()
{
    delete m_timer;
}

void MenuAnswer::Poll()
{
    if (m_done) return;
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    // A sub-menu is answered once it is the active popup, not the menu that opened it.
    if (!menu || !menu->isVisible() || menu == m_lastMenu) return;
    if (m_depth == 0) {
        m_seen->shown = true;
        m_seen->entries = ReadMenu(menu);
    }
    QAction* chosen = nullptr;
    if (m_depth < m_path.size())
        for (QAction* action : menu->actions())
            if (!action->isSeparator() && action->text() == m_path[m_depth]) chosen = action;
    if (!chosen) {
        m_done = true;
        // Escape closes one menu; what stays open of a path not found is closed as well.
        QTest::keyClick(menu, Qt::Key_Escape);
        while (QWidget* open = QApplication::activePopupWidget()) open->close();
        return;
    }
    ++m_depth;
    m_lastMenu = menu;
    m_done = !chosen->menu();
    // Chosen from the keyboard: a mouse click on a popup can be lost to a late focus change of
    // a loaded X server, while the active action and Return always reach the menu.
    if (m_done) QObject::connect(chosen, &QAction::triggered, m_timer, [this]() { m_triggered = true; });
    menu->setActiveAction(chosen);
    QTest::keyClick(menu, Qt::Key_Return);
}

QTimer* AnswerNextDialog(const char* className, const std::vector<FieldText>& fields, bool ok, DialogSeen* seen)
{
    auto* timer = new QTimer();
    timer->setInterval(20);
    const QByteArray name(className);
    QObject::connect(timer, &QTimer::timeout, [timer, name, fields, ok, seen]() {
        auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dlg || !dlg->isVisible() || !dlg->inherits(name.constData())) return;
        timer->stop();
        timer->deleteLater();
        seen->shown = true;
        seen->title = dlg->windowTitle();
        for (QLineEdit* edit : dlg->findChildren<QLineEdit*>()) seen->fieldEnabled[edit->objectName()] = edit->isEnabled();
        for (const FieldText& field : fields) {
            auto* edit = dlg->findChild<QLineEdit*>(field.first);
            if (!edit) continue;
            edit->setFocus();
            QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(edit, Qt::Key_Backspace);
            QTest::keyClicks(edit, field.second);
        }
        auto* buttons = dlg->findChild<QDialogButtonBox*>(QString::fromLatin1("buttonBox"));
        QAbstractButton* button = buttons ? buttons->button(ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel) : nullptr;
        if (button) QTest::mouseClick(button, Qt::LeftButton);
        else dlg->reject();
    });
    timer->start();
    return timer;
}

QImage GrabRendered(QWidget* widget)
{
    // Only what the widget has drawn by itself: pending repaints are let through, nothing more.
    QTest::qWait(50);
    if (auto* gl = qobject_cast<QOpenGLWidget*>(widget)) return gl->grabFramebuffer();
    return widget->grab().toImage();
}

}  // namespace tevtest

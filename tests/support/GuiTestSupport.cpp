#include "GuiTestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
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

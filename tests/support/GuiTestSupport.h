// Helpers of the GUI tests: real Qt events on a shown widget, modal dialogs answered from a
// timer, and a rendered image read back from the widget.
#ifndef GUITESTSUPPORT_H
#define GUITESTSUPPORT_H

#include <QImage>
#include <QMessageBox>
#include <QPoint>
#include <QString>
#include <QWidget>

class QTimer;

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include <ostream>

// Lets GoogleTest print QStrings in failure messages.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}
QT_END_NAMESPACE

namespace tevtest {

// Delivers a mouse move to `widget` at `pos` with `buttons` held. QTest's own mouseMove only
// moves the X pointer, whose events arrive at an unknown later time.
void MouseMove(QWidget* widget, QPoint pos, Qt::MouseButtons buttons = Qt::NoButton,
               Qt::KeyboardModifiers mods = Qt::NoModifier);

// What a modal message box showed before it was answered.
struct BoxSeen {
    bool shown = false;
    QString title;
    QString text;
};

// Arms a timer that answers the next application-modal QMessageBox with `button` and records
// its title and text into `seen`. Call before the code that opens the box.
void AnswerNextMessageBox(QMessageBox::StandardButton button, BoxSeen* seen);

// Arms a timer that answers the next `count` message boxes, in the order they appear, each with
// `button`, and appends what each showed to `seen`. Call before the code that opens them.
void AnswerMessageBoxes(int count, QMessageBox::StandardButton button, std::vector<BoxSeen>* seen);

// What a modal dialog showed before it was answered: its title and, by object name, whether
// each of its line edits was enabled.
struct DialogSeen {
    bool shown = false;
    QString title;
    std::map<QString, bool> fieldEnabled;
};

// A field of a dialog and the text to type into it.
using FieldText = std::pair<QString, QString>;

// Arms a timer that answers the next modal dialog whose class is `className`: in each named
// line edit it selects the text, erases it and types the new one key by key (so the field's
// validator filters it as it would a user's typing), then clicks OK, or Cancel when `ok` is
// false. Call before the code that opens the dialog. Returns the polling timer, which deletes
// itself once it has answered; a caller whose dialog may never come deletes it.
QTimer* AnswerNextDialog(const char* className, const std::vector<FieldText>& fields, bool ok, DialogSeen* seen);

// Lets pending repaints through and returns the widget's framebuffer as an image (device
// pixels, top row first).
QImage GrabRendered(QWidget* widget);

}  // namespace tevtest

#endif

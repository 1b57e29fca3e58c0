// Helpers of the GUI tests: real Qt events on a shown widget, modal dialogs answered from a
// timer, and a rendered image read back from the widget.
#ifndef GUITESTSUPPORT_H
#define GUITESTSUPPORT_H

#include <QImage>
#include <QMessageBox>
#include <QPoint>
#include <QTimer>
#include <QString>
#include <QStringList>
#include <QWidget>

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

// Delivers a double click of `button` at `pos` in the order Qt does: press, release, double
// click, release. QTest's own mouseDClick sends the double click event alone to a widget.
void DoubleClick(QWidget* widget, QPoint pos, Qt::MouseButton button = Qt::LeftButton);

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

// One entry of a popup menu as it was shown.
struct MenuEntrySeen {
    QString text;
    bool separator = false;
    bool enabled = false;
    bool checkable = false;
    bool checked = false;
    std::vector<MenuEntrySeen> sub;  // the entries of its sub-menu, if it opens one
};

// What a popup menu showed before it was answered.
struct MenuSeen {
    bool shown = false;
    std::vector<MenuEntrySeen> entries;
};

// The entries one per line: "---" for a separator, else the text, then " [x]" or " [ ]" when
// checkable, " (disabled)", and " >" before the sub-menu's entries, which follow indented by
// two blanks.
QStringList DescribeMenu(const std::vector<MenuEntrySeen>& entries);

// Makes the window of `widget` the active one and waits until it is. Call it before opening a
// popup menu: a window activation still on its way would close the menu when it arrives.
bool ActivateAndWait(QWidget* widget);

// While it lives, a timer waits for the next popup menu, records its entries into `seen`, and
// then chooses the entry that `path` names (texts from the top menu down through sub-menus) by
// its active action and Return, or closes the menu with Escape when `path` is empty. Make it before
// the event that opens the menu.
class MenuAnswer
{
public:
    MenuAnswer(const QStringList& path, MenuSeen* seen);
    ~MenuAnswer();
    MenuAnswer(const MenuAnswer&) = delete;
    MenuAnswer& operator=(const MenuAnswer&) = delete;
    // Whether the last entry of `path` was triggered: false when the menu closed before.
    bool Triggered() const { return m_triggered; }

private:
    void Poll();

    QStringList m_path;
    MenuSeen* m_seen;
    QTimer* m_timer;
    QWidget* m_lastMenu = nullptr;  // the menu answered last, while its sub-menu opens
    int m_depth = 0;                // entries of `path` chosen so far
    bool m_done = false;
    bool m_triggered = false;
};

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

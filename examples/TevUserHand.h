// TevUserHand: what a user's hand does, for a scripted session: clicks on world points of the
// view, answers to the modal dialog that a click opens, and waiting while the window redraws.
// Clicks are real Qt mouse events sent to the widget, so they take the same road as the user's.
#ifndef TEVUSERHAND_H
#define TEVUSERHAND_H

#include <QPoint>
#include <QString>

#include <utility>
#include <vector>

class TevBasicViewer;

class TevUserHand
{
public:
    // The widget pixel (Qt's, origin top left) where the world point is drawn.
    static QPoint PixelOf(TevBasicViewer* viewer, double x, double y, double z);
    // Moves to the world point (x, y, 0), presses and releases the left button there.
    static void Click(TevBasicViewer* viewer, double x, double y);
    // Arms a timer that answers the next modal dialog of class `className`: it types each text
    // into the line edit of that object name and presses OK. Call before the click that opens
    // the dialog.
    static void AnswerDialogLater(const char* className, const std::vector<std::pair<QString, QString>>& fields);
    // Lets events run for `ms` milliseconds.
    static void Wait(int ms);
};

#endif

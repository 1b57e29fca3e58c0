// Building blocks shared by the parameter dialogs: a group of labelled numeric fields with a
// unit column, C-locale validators (the texts are read with QString::toDouble and toInt), an
// inline error line, and the OK / Cancel box.
//
// All parameter dialogs behave alike: each field starts with a default that gives a valid
// shape, its validator filters what can be typed, OK takes the values into the dialog's fields
// and accessors, and Cancel leaves them at their previous values.
#ifndef INPUTDLGTOOLS_H
#define INPUTDLGTOOLS_H

#include <QString>

class QDialog;
class QDialogButtonBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace InputDlgTools {

// The dialog's frame: a vertical layout holding a titled group box with a grid inside.
struct Frame {
    QVBoxLayout* layout = nullptr;
    QGroupBox* group = nullptr;
    QGridLayout* grid = nullptr;
};
Frame MakeFrame(QDialog* dialog, const QString& objectName, const QString& title, const QString& groupTitle);

// One row of the grid: label, field, unit. The field gets `objectName` and the text `value`.
QLineEdit* AddDoubleRow(Frame& frame, const QString& objectName, const QString& label, const QString& unit,
                        double value, double bottom, double top, int decimals);
QLineEdit* AddIntRow(Frame& frame, const QString& objectName, const QString& label, const QString& unit, int value,
                     int bottom, int top);

// A hidden red line under the group for input that the dialog itself refuses ("label_Error").
QLabel* AddErrorLine(Frame& frame);
// OK and Cancel ("buttonBox"), wired to accept() and reject().
QDialogButtonBox* AddButtons(QDialog* dialog, Frame& frame);

double ReadDouble(const QLineEdit* edit);
int ReadInt(const QLineEdit* edit);
// The text of a default value: no trailing zeros, no exponent.
QString NumberText(double value);

}  // namespace InputDlgTools

#endif

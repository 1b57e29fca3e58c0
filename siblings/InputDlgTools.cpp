#include "InputDlgTools.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QGridLayout>
#include <QGroupBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QVBoxLayout>

namespace InputDlgTools {

static QLocale NumberLocale()
{
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::RejectGroupSeparator);
    return c;
}

Frame MakeFrame(QDialog* dialog, const QString& objectName, const QString& title, const QString& groupTitle)
{
    Frame frame;
    dialog->setObjectName(objectName);
    dialog->setWindowTitle(title);
    dialog->setSizeGripEnabled(false);
    frame.layout = new QVBoxLayout(dialog);
    frame.group = new QGroupBox(groupTitle, dialog);
    frame.group->setObjectName(QString::fromLatin1("groupBox"));
    frame.grid = new QGridLayout(frame.group);
    frame.grid->setColumnMinimumWidth(1, 100);
    frame.layout->addWidget(frame.group);
    return frame;
}

static QLineEdit* AddRow(Frame& frame, const QString& objectName, const QString& label, const QString& unit,
                         const QString& value)
{
    const int row = frame.grid->rowCount();
    auto* name = new QLabel(label, frame.group);
    name->setObjectName(QString::fromLatin1("label_") + objectName.mid(objectName.indexOf('_') + 1));
    auto* edit = new QLineEdit(value, frame.group);
    edit->setObjectName(objectName);
    name->setBuddy(edit);
    frame.grid->addWidget(name, row, 0);
    frame.grid->addWidget(edit, row, 1);
    if (!unit.isEmpty()) frame.grid->addWidget(new QLabel(unit, frame.group), row, 2);
    return edit;
}

QLineEdit* AddDoubleRow(Frame& frame, const QString& objectName, const QString& label, const QString& unit,
                        double value, double bottom, double top, int decimals)
{
    QLineEdit* edit = AddRow(frame, objectName, label, unit, NumberText(value));
    auto* validator = new QDoubleValidator(bottom, top, decimals, edit);
    validator->setNotation(QDoubleValidator::StandardNotation);
    validator->setLocale(NumberLocale());
    edit->setValidator(validator);
    return edit;
}

QLineEdit* AddIntRow(Frame& frame, const QString& objectName, const QString& label, const QString& unit, int value,
                     int bottom, int top)
{
    QLineEdit* edit = AddRow(frame, objectName, label, unit, QString::number(value));
    auto* validator = new QIntValidator(bottom, top, edit);
    validator->setLocale(NumberLocale());
    edit->setValidator(validator);
    return edit;
}

QLabel* AddErrorLine(Frame& frame)
{
    auto* error = new QLabel(frame.group->parentWidget());
    error->setObjectName(QString::fromLatin1("label_Error"));
    error->setStyleSheet(QString::fromLatin1("color: #c00000;"));
    error->setWordWrap(true);
    error->hide();
    frame.layout->addWidget(error);
    return error;
}

QDialogButtonBox* AddButtons(QDialog* dialog, Frame& frame)
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, dialog);
    buttons->setObjectName(QString::fromLatin1("buttonBox"));
    frame.layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

double ReadDouble(const QLineEdit* edit)
{
    return edit ? edit->text().trimmed().toDouble() : 0.0;
}

int ReadInt(const QLineEdit* edit)
{
    return edit ? edit->text().trimmed().toInt() : 0;
}

QString NumberText(double value)
{
    return QString::number(value, 'f', 6).remove(QRegExp(QString::fromLatin1("\\.?0+$")));
}

}  // namespace InputDlgTools

// DataInputDlg: the small numeric dialog for a height and, when enabled, an angle in degrees.
// The widgets are those of its form object, Ui_DataInputDlg, with fixed object names and
// geometry. OK is always accepted; an empty field reads as 0.0 and the caller judges the value.
#ifndef DATAINPUTDLG_H
#define DATAINPUTDLG_H

#include <QDialog>

class QDialog;
class QDialogButtonBox;
class QGroupBox;
class QLabel;
class QLineEdit;

// The form: the widgets in the order they are made, all children of the dialog or its group box.
class Ui_DataInputDlg
{
public:
    QDialogButtonBox* buttonBox = nullptr;
    QGroupBox* groupBox = nullptr;
    QLabel* label_3 = nullptr;
    QLabel* label_2 = nullptr;
    QLabel* label = nullptr;
    QLineEdit* lineEdit = nullptr;
    QLineEdit* lineEdit_Angle = nullptr;

    void setupUi(QDialog* DataInputDlg);
    void retranslateUi(QDialog* DataInputDlg);
};

class DataInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit DataInputDlg(QWidget* parent);
    ~DataInputDlg() override;

    // The height field as a number (QString::toDouble; empty or unreadable gives 0.0).
    double GetInputHeight();
    // The angle field, in degrees, the same way.
    double GetInputAngle();
    // Stores the flag and enables or disables the angle field.
    void SetAngleEnabled(bool enabled);

private:
    Ui_DataInputDlg* ui;
    bool m_bAngleEnabled;
};

#endif

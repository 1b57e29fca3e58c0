#include "DataInputDlg.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMetaObject>

void Ui_DataInputDlg::setupUi(QDialog* DataInputDlg)
{
    if (DataInputDlg->objectName().isEmpty()) DataInputDlg->setObjectName(QString::fromUtf8("DataInputDlg"));
    DataInputDlg->setWindowModality(Qt::WindowModal);
    DataInputDlg->resize(293, 129);
    QFont font;
    font.setFamily(QString::fromUtf8("\xe5\xbe\xae\xe8\xbd\xaf\xe9\x9b\x85\xe9\xbb\x91"));
    DataInputDlg->setFont(font);
    DataInputDlg->setSizeGripEnabled(false);
    // Set last, as the form lists it: in Qt this clears the window modality set above again,
    // so the dialog is modal only while exec() runs it.
    DataInputDlg->setModal(false);

    buttonBox = new QDialogButtonBox(DataInputDlg);
    buttonBox->setObjectName(QString::fromUtf8("buttonBox"));
    buttonBox->setGeometry(QRect(90, 90, 193, 28));
    buttonBox->setOrientation(Qt::Horizontal);
    buttonBox->setStandardButtons(QDialogButtonBox::Cancel | QDialogButtonBox::Ok);

    groupBox = new QGroupBox(DataInputDlg);
    groupBox->setObjectName(QString::fromUtf8("groupBox"));
    groupBox->setGeometry(QRect(10, 10, 271, 71));

    label_3 = new QLabel(groupBox);
    label_3->setObjectName(QString::fromUtf8("label_3"));
    label_3->setGeometry(QRect(190, 40, 71, 20));

    label_2 = new QLabel(groupBox);
    label_2->setObjectName(QString::fromUtf8("label_2"));
    label_2->setGeometry(QRect(10, 40, 72, 21));

    label = new QLabel(groupBox);
    label->setObjectName(QString::fromUtf8("label"));
    label->setGeometry(QRect(10, 10, 72, 16));

    lineEdit = new QLineEdit(groupBox);
    lineEdit->setObjectName(QString::fromUtf8("lineEdit"));
    lineEdit->setGeometry(QRect(100, 10, 81, 21));

    lineEdit_Angle = new QLineEdit(groupBox);
    lineEdit_Angle->setObjectName(QString::fromUtf8("lineEdit_Angle"));
    lineEdit_Angle->setGeometry(QRect(100, 40, 81, 21));

    QWidget::setTabOrder(lineEdit, buttonBox);

    retranslateUi(DataInputDlg);
    QObject::connect(buttonBox, SIGNAL(accepted()), DataInputDlg, SLOT(accept()));
    QObject::connect(buttonBox, SIGNAL(rejected()), DataInputDlg, SLOT(reject()));

    QMetaObject::connectSlotsByName(DataInputDlg);
}

void Ui_DataInputDlg::retranslateUi(QDialog* DataInputDlg)
{
    DataInputDlg->setWindowTitle(QCoreApplication::translate("DataInputDlg", "Input Height", nullptr));
    groupBox->setTitle(QString());
    label_3->setText(QCoreApplication::translate("DataInputDlg", "Degree", nullptr));
    label_2->setText(QCoreApplication::translate("DataInputDlg", "Angle", nullptr));
    label->setText(QCoreApplication::translate("DataInputDlg", "Height", nullptr));
    lineEdit->setText(QString());
    lineEdit_Angle->setText(QCoreApplication::translate("DataInputDlg", "360", nullptr));
}

DataInputDlg::DataInputDlg(QWidget* parent) : QDialog(parent, Qt::WindowFlags()), ui(new Ui_DataInputDlg), m_bAngleEnabled(false)
{
    ui->setupUi(this);
    ui->lineEdit->setFocus(Qt::OtherFocusReason);
    auto* validator = new QDoubleValidator(0.0, 100000.0, 2, ui->lineEdit);
    validator->setNotation(QDoubleValidator::StandardNotation);
    // The text is read with QString::toDouble, which knows only the C number format.
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::RejectGroupSeparator);
    validator->setLocale(c);
    ui->lineEdit->setValidator(validator);
    ui->lineEdit_Angle->setEnabled(false);
}

DataInputDlg::~DataInputDlg()
{
    delete ui;
}

double DataInputDlg::GetInputHeight()
{
    return ui->lineEdit->text().toDouble();
}

double DataInputDlg::GetInputAngle()
{
    return ui->lineEdit_Angle->text().toDouble();
}

void DataInputDlg::SetAngleEnabled(bool enabled)
{
    m_bAngleEnabled = enabled;
    ui->lineEdit_Angle->setEnabled(enabled);
}

#include "TruncatedConeInputDlg.h"

#include "InputDlgTools.h"

#include <QLineEdit>

using namespace InputDlgTools;

TruncatedConeInputDlg::TruncatedConeInputDlg(QWidget* parent)
    : QDialog(parent), m_DlgHeight(10.0), m_DlgTopRadius(5.0), m_DlgAngle(360.0)
{
    Frame frame = MakeFrame(this, "TruncatedConeInputDlg", tr("Truncated Cone Parameters"), QString());
    m_EditHeight = AddDoubleRow(frame, "lineEdit_Height", tr("Height"), QString(), m_DlgHeight, 0.0, 100000.0, 4);
    m_EditTopRadius =
        AddDoubleRow(frame, "lineEdit_TopRadius", tr("Top radius"), QString(), m_DlgTopRadius, 0.0, 100000.0, 4);
    m_EditAngle = AddDoubleRow(frame, "lineEdit_Angle", tr("Angle"), tr("Degree"), m_DlgAngle, 0.0, 360.0, 2);
    AddButtons(this, frame);
    m_EditHeight->setFocus(Qt::OtherFocusReason);
    m_EditHeight->selectAll();
}

void TruncatedConeInputDlg::DisableAngleInput()
{
    m_EditAngle->setEnabled(false);
}

void TruncatedConeInputDlg::accept()
{
    m_DlgHeight = ReadDouble(m_EditHeight);
    m_DlgTopRadius = ReadDouble(m_EditTopRadius);
    // A disabled angle keeps its value: the caller does not read it.
    if (m_EditAngle->isEnabled()) m_DlgAngle = ReadDouble(m_EditAngle);
    QDialog::accept();
}

#include "torusParaInputDlg.h"

#include "InputDlgTools.h"

#include <QLineEdit>

using namespace InputDlgTools;

torusParaInputDlg::torusParaInputDlg(QWidget* parent)
    : QDialog(parent), m_DlgAngle1(-180.0), m_DlgAngle2(180.0), m_DlgAngle3(360.0), m_SweepRadius(1.0)
{
    Frame frame = MakeFrame(this, "torusParaInputDlg", tr("Torus Parameters"), QString());
    m_EditSweepRadius =
        AddDoubleRow(frame, "lineEdit_SweepRadius", tr("Sweep radius"), QString(), m_SweepRadius, 0.0, 100000.0, 4);
    m_EditAngle[0] =
        AddDoubleRow(frame, "lineEdit_Angle1", tr("Section start angle"), tr("Degree"), m_DlgAngle1, -360.0, 360.0, 2);
    m_EditAngle[1] =
        AddDoubleRow(frame, "lineEdit_Angle2", tr("Section end angle"), tr("Degree"), m_DlgAngle2, -360.0, 360.0, 2);
    m_EditAngle[2] = AddDoubleRow(frame, "lineEdit_Angle3", tr("Sweep angle"), tr("Degree"), m_DlgAngle3, 0.0, 360.0, 2);
    AddButtons(this, frame);
    m_EditSweepRadius->setFocus(Qt::OtherFocusReason);
    m_EditSweepRadius->selectAll();
}

double torusParaInputDlg::GetSweepRadius()
{
    return m_SweepRadius;
}

void torusParaInputDlg::DisableAngleUI()
{
    for (QLineEdit* edit : m_EditAngle) edit->setEnabled(false);
}

void torusParaInputDlg::accept()
{
    m_SweepRadius = ReadDouble(m_EditSweepRadius);
    // Disabled angles keep their values: the caller does not read them.
    if (m_EditAngle[0]->isEnabled()) {
        m_DlgAngle1 = ReadDouble(m_EditAngle[0]);
        m_DlgAngle2 = ReadDouble(m_EditAngle[1]);
        m_DlgAngle3 = ReadDouble(m_EditAngle[2]);
    }
    QDialog::accept();
}

#include "sphereParaInputdlg.h"

#include "InputDlgTools.h"

#include <QLineEdit>

using namespace InputDlgTools;

sphereParaInputdlg::sphereParaInputdlg(QWidget* parent)
    : QDialog(parent), m_DlgAngle1(-90.0), m_DlgAngle2(90.0), m_DlgAngle3(360.0)
{
    Frame frame = MakeFrame(this, "sphereParaInputdlg", tr("Sphere Parameters"), QString());
    m_EditAngle[0] = AddDoubleRow(frame, "lineEdit_Angle1", tr("Lower latitude"), tr("Degree"), m_DlgAngle1, -90.0, 0.0, 2);
    m_EditAngle[1] = AddDoubleRow(frame, "lineEdit_Angle2", tr("Upper latitude"), tr("Degree"), m_DlgAngle2, 0.0, 90.0, 2);
    m_EditAngle[2] = AddDoubleRow(frame, "lineEdit_Angle3", tr("Sweep angle"), tr("Degree"), m_DlgAngle3, 0.0, 360.0, 2);
    AddButtons(this, frame);
    m_EditAngle[0]->setFocus(Qt::OtherFocusReason);
    m_EditAngle[0]->selectAll();
}

void sphereParaInputdlg::accept()
{
    m_DlgAngle1 = ReadDouble(m_EditAngle[0]);
    m_DlgAngle2 = ReadDouble(m_EditAngle[1]);
    m_DlgAngle3 = ReadDouble(m_EditAngle[2]);
    QDialog::accept();
}

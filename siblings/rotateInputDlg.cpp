#include "rotateInputDlg.h"

#include "InputDlgTools.h"

#include <QLabel>
#include <QLineEdit>
#include <gp_Vec.hxx>

using namespace InputDlgTools;

rotateInputDlg::rotateInputDlg(QWidget* parent)
    : QDialog(parent), m_DlgRotateAngle(360.0), m_DlgRotatePoint(0.0, 0.0, 0.0), m_Direction(1.0, 0.0, 0.0)
{
    Frame frame = MakeFrame(this, "rotateInputDlg", tr("Revolve Parameters"), QString());
    const double big = 100000.0;
    m_EditPoint[0] = AddDoubleRow(frame, "lineEdit_PointX", tr("Axis point X"), QString(), 0.0, -big, big, 4);
    m_EditPoint[1] = AddDoubleRow(frame, "lineEdit_PointY", tr("Axis point Y"), QString(), 0.0, -big, big, 4);
    m_EditPoint[2] = AddDoubleRow(frame, "lineEdit_PointZ", tr("Axis point Z"), QString(), 0.0, -big, big, 4);
    m_EditDir[0] = AddDoubleRow(frame, "lineEdit_DirX", tr("Axis direction X"), QString(), 1.0, -big, big, 6);
    m_EditDir[1] = AddDoubleRow(frame, "lineEdit_DirY", tr("Axis direction Y"), QString(), 0.0, -big, big, 6);
    m_EditDir[2] = AddDoubleRow(frame, "lineEdit_DirZ", tr("Axis direction Z"), QString(), 0.0, -big, big, 6);
    m_EditAngle = AddDoubleRow(frame, "lineEdit_Angle", tr("Angle"), tr("Degree"), m_DlgRotateAngle, -360.0, 360.0, 2);
    m_Error = AddErrorLine(frame);
    AddButtons(this, frame);
    m_EditPoint[0]->setFocus(Qt::OtherFocusReason);
    m_EditPoint[0]->selectAll();
}

gp_Ax1 rotateInputDlg::GetRotateAxis()
{
    return gp_Ax1(m_DlgRotatePoint, m_Direction);
}

gp_Dir rotateInputDlg::GetRotateDir()
{
    return m_Direction;
}

void rotateInputDlg::accept()
{
    const gp_Vec dir(ReadDouble(m_EditDir[0]), ReadDouble(m_EditDir[1]), ReadDouble(m_EditDir[2]));
    if (dir.Magnitude() < 1e-12) {
        m_Error->setText(tr("The axis direction must not be a zero vector"));
        m_Error->show();
        m_EditDir[0]->setFocus(Qt::OtherFocusReason);
        return;
    }
    m_Error->hide();
    m_Direction = gp_Dir(dir);
    m_DlgRotatePoint.SetCoord(ReadDouble(m_EditPoint[0]), ReadDouble(m_EditPoint[1]), ReadDouble(m_EditPoint[2]));
    m_DlgRotateAngle = ReadDouble(m_EditAngle);
    QDialog::accept();
}

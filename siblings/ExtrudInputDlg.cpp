#include "ExtrudInputDlg.h"

#include "InputDlgTools.h"

#include <QLabel>
#include <QLineEdit>
#include <gp_Vec.hxx>

using namespace InputDlgTools;

ExtrudInputDlg::ExtrudInputDlg(QWidget* parent) : QDialog(parent), m_ExtrudeHeight(10.0), m_Direction(0.0, 0.0, 1.0)
{
    Frame frame = MakeFrame(this, "ExtrudInputDlg", tr("Extrude Parameters"), QString());
    m_EditHeight = AddDoubleRow(frame, "lineEdit_Height", tr("Height"), QString(), m_ExtrudeHeight, -100000.0,
                                100000.0, 4);
    m_EditDir[0] = AddDoubleRow(frame, "lineEdit_DirX", tr("Direction X"), QString(), 0.0, -100000.0, 100000.0, 6);
    m_EditDir[1] = AddDoubleRow(frame, "lineEdit_DirY", tr("Direction Y"), QString(), 0.0, -100000.0, 100000.0, 6);
    m_EditDir[2] = AddDoubleRow(frame, "lineEdit_DirZ", tr("Direction Z"), QString(), 1.0, -100000.0, 100000.0, 6);
    m_Error = AddErrorLine(frame);
    AddButtons(this, frame);
    m_EditHeight->setFocus(Qt::OtherFocusReason);
    m_EditHeight->selectAll();
}

gp_Dir ExtrudInputDlg::GetExtrudeDirection()
{
    return m_Direction;
}

void ExtrudInputDlg::accept()
{
    const gp_Vec dir(ReadDouble(m_EditDir[0]), ReadDouble(m_EditDir[1]), ReadDouble(m_EditDir[2]));
    if (dir.Magnitude() < 1e-12) {
        m_Error->setText(tr("The direction must not be a zero vector"));
        m_Error->show();
        m_EditDir[2]->setFocus(Qt::OtherFocusReason);
        return;
    }
    m_Error->hide();
    m_Direction = gp_Dir(dir);
    m_ExtrudeHeight = ReadDouble(m_EditHeight);
    QDialog::accept();
}

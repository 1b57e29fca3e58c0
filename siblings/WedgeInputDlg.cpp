#include "WedgeInputDlg.h"

#include "InputDlgTools.h"

#include <QLineEdit>

using namespace InputDlgTools;

WedgeInputDlg::WedgeInputDlg(QWidget* parent) : QDialog(parent), m_Height(10.0), m_Top{0.0, 0.0, 1.0, 0.0}
{
    Frame frame = MakeFrame(this, "WedgeInputDlg", tr("Wedge Parameters"), QString());
    m_EditHeight = AddDoubleRow(frame, "lineEdit_Height", tr("Height"), QString(), m_Height, 0.0, 100000.0, 4);
    const QString unit = tr("of base");
    m_EditTop[0] = AddDoubleRow(frame, "lineEdit_TopXMin", tr("Top X min"), unit, m_Top[0], 0.0, 1.0, 4);
    m_EditTop[1] = AddDoubleRow(frame, "lineEdit_TopYMin", tr("Top Y min"), unit, m_Top[1], 0.0, 1.0, 4);
    m_EditTop[2] = AddDoubleRow(frame, "lineEdit_TopXMax", tr("Top X max"), unit, m_Top[2], 0.0, 1.0, 4);
    m_EditTop[3] = AddDoubleRow(frame, "lineEdit_TopYMax", tr("Top Y max"), unit, m_Top[3], 0.0, 1.0, 4);
    AddButtons(this, frame);
    m_EditHeight->setFocus(Qt::OtherFocusReason);
    m_EditHeight->selectAll();
}

void WedgeInputDlg::GetWedgeParameter(double& height, double& topXMin, double& topYMin, double& topXMax,
                                      double& topYMax)
{
    height = m_Height;
    topXMin = m_Top[0];
    topYMin = m_Top[1];
    topXMax = m_Top[2];
    topYMax = m_Top[3];
}

void WedgeInputDlg::accept()
{
    m_Height = ReadDouble(m_EditHeight);
    for (int i = 0; i < 4; ++i) m_Top[i] = ReadDouble(m_EditTop[i]);
    QDialog::accept();
}

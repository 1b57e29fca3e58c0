#include "PolygonNumInputDlg.h"

#include "InputDlgTools.h"

#include <QLineEdit>

using namespace InputDlgTools;

static const int kDefaultEdges = 6;

PolygonNumInputDlg::PolygonNumInputDlg(QWidget* parent) : QDialog(parent), m_PolygonNumber(kDefaultEdges)
{
    Frame frame = MakeFrame(this, "PolygonNumInputDlg", tr("Input Edge Number"), QString());
    m_EditNumber = AddIntRow(frame, "lineEdit_EdgeNumber", tr("Edge number"), QString(), kDefaultEdges, 3, 1000);
    AddButtons(this, frame);
    m_EditNumber->setFocus(Qt::OtherFocusReason);
    m_EditNumber->selectAll();
}

void PolygonNumInputDlg::accept()
{
    m_PolygonNumber = ReadInt(m_EditNumber);
    QDialog::accept();
}

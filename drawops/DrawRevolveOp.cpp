#include "DrawRevolveOp.h"

#include "RevolveShapeParaCreator.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"
#include "rotateInputDlg.h"

#include <QMessageBox>
#include <QObject>
#include <TopoDS_Shape.hxx>

// The angle is set by no dialog before the first OK; a full turn is the value it starts with.
DrawRevolveOp::DrawRevolveOp()
    : DrawOpCommon(false),
      m_bStep1(false),
      m_RotateAxis(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)),
      m_RotateDir(1, 0, 0),
      m_RotateAngle(360.0),
      m_RotateCenter(0, 0, 0)
{
}

void DrawRevolveOp::InitAction(TevBasicViewer* viewer)
{
    m_bStep1 = false;
    Prompt("Revolve : ");
    PerformDraw(viewer);
}

bool DrawRevolveOp::LButtonUp(TevBasicViewer*, const double[3])
{
    return false;
}

bool DrawRevolveOp::MovePoint(TevBasicViewer*, const double[3])
{
    return false;
}

// The error paths leave the transaction open, as the framework allows.
void DrawRevolveOp::PerformDraw(TevBasicViewer* viewer)
{
    rotateInputDlg dlg(nullptr);
    if (dlg.exec() == 1) {
        m_RotateAxis = dlg.GetRotateAxis();
        m_RotateAngle = dlg.m_DlgRotateAngle;
        m_RotateDir = dlg.GetRotateDir();
        m_RotateCenter = dlg.m_DlgRotatePoint;
    }
    ShapeDocMgr::GetInstance()->StartTransaction();
    const std::vector<const TopoDS_Shape*> shapes = SelectionMgr::GetInstance()->GetshapeList();
    if (shapes.empty()) {
        QMessageBox::information(nullptr, QObject::tr("Title"), QObject::tr("Nothing is Selected"));
        return;
    }
    const TopoDS_Shape& shape = *shapes[0];
    if (shape.ShapeType() == TopAbs_COMPSOLID || shape.ShapeType() == TopAbs_SOLID) {
        QMessageBox::information(nullptr, QObject::tr("Error"), QObject::tr("Solid can't be revolved"));
        return;
    }
    RevolveShapeParaCreator creator;
    creator.CreateRevolve(shape, m_RotateCenter, m_RotateDir, m_RotateAngle);
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
}

void DrawRevolveOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawRevolveOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Revolve : Cancel");
    ClearTempDisplay(viewer);
}

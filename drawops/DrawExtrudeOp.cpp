#include "DrawExtrudeOp.h"

#include "DrawOpMgr.h"
#include "ExtrudInputDlg.h"
#include "ExtrudeShapeParaCreator.h"
#include "PickPointGeneral.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <QMessageBox>
#include <QObject>
#include <TopoDS_Shape.hxx>
#include <gp_Vec.hxx>

DrawExtrudeOp::DrawExtrudeOp() : DrawOpCommon(false), m_bPickStarted(false) {}

void DrawExtrudeOp::InitAction(TevBasicViewer* viewer)
{
    DrawOpMgr::GetInstance()->StartChildOp(new PickPointGeneral(), viewer);
    Prompt("Extrude : Select object to be extruded:");
    m_bPickStarted = true;
}

bool DrawExtrudeOp::MovePoint(TevBasicViewer*, const double[3])
{
    return true;
}

void DrawExtrudeOp::ChildActionFinished(TevBasicViewer* viewer)
{
    const std::vector<const TopoDS_Shape*> shapes = SelectionMgr::GetInstance()->GetshapeList();
    if (m_bPickStarted && !ExtrudeShapes(shapes)) return;
    viewer->RefreshViewer();
}

bool DrawExtrudeOp::ExtrudeShapes(const std::vector<const TopoDS_Shape*>& shapes)
{
    ExtrudInputDlg dlg(nullptr);
    if (dlg.exec() != 1) return false;
    double height = dlg.m_ExtrudeHeight;
    if (height == 0.0) {
        QMessageBox::information(nullptr, QObject::tr("Error"), QObject::tr("Height error input"), QMessageBox::Ok);
        return false;
    }
    const gp_Dir dir = dlg.GetExtrudeDirection();
    gp_Vec vec(dir.X(), dir.Y(), dir.Z());
    ShapeDocMgr::GetInstance()->StartTransaction();
    for (const TopoDS_Shape* shape : shapes) {
        ExtrudeShapeParaCreator creator;
        creator.CreateExtrude(*shape, vec, height);
    }
    ShapeDocMgr::GetInstance()->EndTransaction();
    return true;
}

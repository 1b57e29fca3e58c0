#include "DrawPipeOp.h"

#include "DrawOpMgr.h"
#include "PickPointGeneral.h"
#include "PipeShapeParaCreator.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <BRepBuilderAPI_MakeWire.hxx>
#include <QMessageBox>
#include <QObject>
#include <TopoDS.hxx>

DrawPipeOp::DrawPipeOp() : DrawOpCommon(false), m_PickState(1), m_ProfileShape(nullptr) {}

void DrawPipeOp::InitAction(TevBasicViewer* viewer)
{
    StartFirstPick(viewer);
}

void DrawPipeOp::StartFirstPick(TevBasicViewer* viewer)
{
    m_PickState = 1;
    DrawOpMgr::GetInstance()->StartChildOp(new PickPointGeneral(), viewer);
    Prompt("Sweep : Select path:");
}

void DrawPipeOp::StartSecondPick(TevBasicViewer* viewer)
{
    m_PickState = 2;
    DrawOpMgr::GetInstance()->StartChildOp(new PickPointGeneral(), viewer);
    Prompt("Extrude : Select object to be sweeped:");
}

bool DrawPipeOp::LButtonUp(TevBasicViewer*, const double[3])
{
    return false;
}

bool DrawPipeOp::MovePoint(TevBasicViewer*, const double[3])
{
    return false;
}

void DrawPipeOp::ChildActionFinished(TevBasicViewer* viewer)
{
    const std::vector<const TopoDS_Shape*> shapes = SelectionMgr::GetInstance()->GetshapeList();
    if (m_PickState == 1)
        TakePath(viewer, shapes);
    else if (m_PickState == 2)
        SweepProfile(viewer, shapes);
}

// Only the first selected shape is looked at; at() raises on an empty selection before anything
// changed.
void DrawPipeOp::TakePath(TevBasicViewer* viewer, const std::vector<const TopoDS_Shape*>& shapes)
{
    const TopoDS_Shape& first = *shapes.at(0);
    if (first.ShapeType() == TopAbs_EDGE) {
        BRepBuilderAPI_MakeWire wire;
        wire.Add(TopoDS::Edge(first));
        m_PathWire = wire.Wire();
    }
    StartSecondPick(viewer);
}

void DrawPipeOp::SweepProfile(TevBasicViewer* viewer, const std::vector<const TopoDS_Shape*>& shapes)
{
    if (shapes.empty()) {
        QMessageBox::information(nullptr, QObject::tr("Warning"), QObject::tr("No Entity is selected"));
        return;
    }
    if (shapes.size() > 1)
        QMessageBox::information(nullptr, QObject::tr("Warning"), QObject::tr("More than 1 Item are selected, Get first"));
    m_ProfileShape = shapes[0];
    TopoDS_Wire path = m_PathWire;
    TopoDS_Shape profile = *m_ProfileShape;
    CreateInTransaction(viewer, [&] { PipeShapeParaCreator().CreatePipe(path, profile); });
}

void DrawPipeOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    Prompt("Sweep : Done");
    ClearTempDisplay(viewer);
}

void DrawPipeOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Sweep : Cancel");
    ClearTempDisplay(viewer);
}

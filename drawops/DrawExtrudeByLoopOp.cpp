#include "DrawExtrudeByLoopOp.h"

#include "ExtrudInputDlg.h"
#include "ExtrudeLoopParaCreator.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <QMessageBox>
#include <QObject>
#include <TDocStd_Document.hxx>
#include <TopoDS.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

DrawExtrudeByLoopOp::DrawExtrudeByLoopOp() : DrawOpCommon(false) {}

void DrawExtrudeByLoopOp::InitAction(TevBasicViewer*)
{
    Prompt("Extrude : Select closed loop:");
}

bool DrawExtrudeByLoopOp::MovePoint(TevBasicViewer*, const double[3])
{
    return true;
}

void DrawExtrudeByLoopOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    PerformExtrude(viewer);
    DrawOpCommon::FinishCurrentOp(viewer);
    m_bFinished = true;
}

static void ErrorBox(const char* text)
{
    QMessageBox::information(nullptr, QObject::tr("Error"), QObject::tr(text), QMessageBox::Ok);
}

bool DrawExtrudeByLoopOp::BuildLoop(const std::vector<const TopoDS_Shape*>& shapes, TopoDS_Wire& wire)
{
    std::vector<TopoDS_Edge> edges;
    for (const TopoDS_Shape* shape : shapes) {
        if (shape->ShapeType() == TopAbs_EDGE) {
            edges.push_back(TopoDS::Edge(*shape));
            BRepBuilderAPI_MakeWire chain;
            for (const TopoDS_Edge& edge : edges) chain.Add(edge);
            if (!chain.IsDone()) {
                ErrorBox("Edges are not a loop or connected");
                return false;
            }
            wire = chain.Wire();
        } else if (shape->ShapeType() == TopAbs_WIRE) {
            wire = TopoDS::Wire(*shape);
        }
    }
    if (wire.IsNull() || !wire.Closed()) {
        ErrorBox("Edges are not closed");
        return false;
    }
    return true;
}

void DrawExtrudeByLoopOp::PerformExtrude(TevBasicViewer* viewer)
{
    const std::vector<const TopoDS_Shape*> shapes = SelectionMgr::GetInstance()->GetshapeList();
    if (shapes.empty()) {
        QMessageBox::information(nullptr, QObject::tr("Warning"), QObject::tr("No Entity is selected"));
        return;
    }
    TopoDS_Wire wire;
    if (!BuildLoop(shapes, wire)) return;
    Prompt("Extrude : Input height:");
    ExtrudInputDlg dlg(nullptr);
    if (dlg.exec() != 1) return;
    const double height = dlg.m_ExtrudeHeight;
    if (height <= 0.0) {
        ErrorBox("Height error input");
        return;
    }
    ExtrudeLoop(viewer, wire, shapes, height, dlg.GetExtrudeDirection());
}

void DrawExtrudeByLoopOp::ExtrudeLoop(TevBasicViewer* viewer, const TopoDS_Wire& wire,
                                      const std::vector<const TopoDS_Shape*>& shapes, double height,
                                      const gp_Dir& dir)
{
    opencascade::handle<TDocStd_Document> doc = ShapeDocMgr::GetInstance()->GetDoc();
    opencascade::handle<XCAFDoc_ShapeTool> tool = XCAFDoc_DocumentTool::ShapeTool(doc->Main());
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(wire, Standard_False).Face();
    doc->NewCommand();
    ExtrudeLoopParaCreator().CreateExtrudeByLoop(face, dir, height);
    for (const TopoDS_Shape* shape : shapes) {
        TDF_Label label;
        if (tool->FindShape(*shape, label, Standard_False))
            tool->RemoveShape(label, Standard_True);
        else
            QMessageBox::information(nullptr, QObject::tr("Title"), QObject::tr("Find no edges "));
    }
    doc->CommitCommand();
    viewer->RefreshViewer();
}

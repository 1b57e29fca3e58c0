#include "DrawEllipseOp.h"

#include "EllipseShapeParaCreator.h"
#include "ShapeRenderTool.h"
#include "TevBasicViewer.h"

#include <GC_MakeEllipse.hxx>
#include <GC_MakeLine.hxx>
#include <GeomAPI_ProjectPointOnCurve.hxx>
#include <Geom_Ellipse.hxx>
#include <Geom_Line.hxx>
#include <ShapeBuild_Edge.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS_Edge.hxx>
#include <vtkRenderer.h>

// A first axis shorter than this shows no rubber band.
static const double kMinAxis = 0.0001;

DrawEllipseOp::DrawEllipseOp() : DrawOpCommon(false), m_bStep1(false), m_bStep2(false) {}


void DrawEllipseOp::InitAction(TevBasicViewer*)
{
    Prompt("Ellipse : Input center point of ellipse");
    m_bStep1 = false;
    m_bStep2 = false;
}

bool DrawEllipseOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1)
        m_Point1 = picked;
    else if (m_bStep2)
        DrawTempLine(viewer, picked);
    // Between the centre and the first axis point the picked point only moves the snap ring.
    return false;
}

bool DrawEllipseOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        Prompt("Ellipse : Input first axis point");
        m_Point1 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
    } else if (!m_bStep2) {
        Prompt("Ellipse : Input second axis point");
        m_Point2 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point2);
        m_bStep1 = true;
        m_bStep2 = true;
    } else {
        // The flags stay set: every further click makes another ellipse.
        m_Point3 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point3);
        PerformDraw(viewer);
        FinishCurrentOp(viewer);
    }
    return false;
}

void DrawEllipseOp::PerformDraw(TevBasicViewer* viewer)
{
    CreateInTransaction(viewer, [this] { EllipseShapeParaCreator().CreateEllipse(m_Point2, m_Point3, m_Point1); });
}

void DrawEllipseOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
}

// No prompt: Escape only takes the rubber band away.
void DrawEllipseOp::ActionCancelled(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawEllipseOp::CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape)
{
    const gp_Pnt& c = m_Point1;
    const gp_Pnt& a = m_Point2;
    if (c.Distance(a) <= kMinAxis) return;

    opencascade::handle<Geom_Line> axis = GC_MakeLine(c, a).Value();
    const double d = GeomAPI_ProjectPointOnCurve(point, axis).LowerDistance();  // cursor from the first axis
    const double r = a.Distance(c);
    // The longer semi-axis goes first.
    const gp_Pnt& s1 = r > d ? a : point;
    const gp_Pnt& s2 = r > d ? point : a;
    // The cursor on the first axis, or on the centre, spans no ellipse: Value() raises, and the
    // viewer's boundary reports it and takes the band away.
    opencascade::handle<Geom_Ellipse> curve = GC_MakeEllipse(s1, s2, c).Value();
    TopoDS_Edge edge;
    ShapeBuild_Edge().MakeEdge(edge, curve, TopLoc_Location());
    shape = edge;
}

void DrawEllipseOp::DrawTempLine(TevBasicViewer* viewer, gp_Pnt& point)
{
    TopoDS_Shape shape;
    CreateTempGeo(point, shape);
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor2);
    m_TempActor2 = ShapeRenderTool::CreateActorForShape(shape);
    renderer->AddActor(m_TempActor2);
    viewer->RefreshViewer();
    viewer->update();
}

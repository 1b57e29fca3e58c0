#include "DrawBezierOp.h"

#include "BezierShapeParaCreator.h"
#include "FreeCurveBand.h"
#include "TevBasicViewer.h"

#include <Geom_BezierCurve.hxx>

DrawBezierOp::DrawBezierOp() : DrawOpCommon(false), m_bStep1(false), m_bContinuous(false) {}

void DrawBezierOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bFinished = false;
    Prompt("Bezier: Input First Point");
}

// No test of m_bFinished: the band keeps following the mouse after the curve is made.
bool DrawBezierOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    const double xyz[3] = {picked.X(), picked.Y(), picked.Z()};
    if (m_bStep1) DrawTempLine(viewer, xyz);
    else m_Point1 = picked;
    return false;
}

bool DrawBezierOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (m_bFinished) return false;
    Prompt("Bezier: Input Next Point");
    AddMousePoint(viewer, point);
    m_bStep1 = true;
    return false;
}

void DrawBezierOp::AddMousePoint(TevBasicViewer* viewer, const double point[3])
{
    const double flat[3] = {point[0], point[1], 0.0};
    m_PointList.push_back(PickPoint(viewer, flat));
}

// The flag is set after the creation, which is the step's last call that can raise, so that a
// failure leaves the operation in the step it was in; FinishCurrentOp sets it anyway.
bool DrawBezierOp::LButtonDoubleClick(TevBasicViewer* viewer, const double[3])
{
    Prompt("Bezier: Done");
    PerformDraw(viewer);
    m_bFinished = true;
    FinishCurrentOp(viewer);
    return false;
}

void DrawBezierOp::PerformDraw(TevBasicViewer* viewer)
{
    CreateInTransaction(viewer, [this] { BezierShapeParaCreator().CreateBeizer(m_PointList); });
}

void DrawBezierOp::DrawTempLine(TevBasicViewer* viewer, const double point[3])
{
    TopoDS_Shape shape;
    CreateTempGeo(gp_Pnt(point[0], point[1], point[2]), shape);
    if (!shape.IsNull()) FreeCurveBand::Show(viewer, m_TempActor2, shape);
}

void DrawBezierOp::CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape)
{
    opencascade::handle<TColgp_HArray1OfPnt> poles = FreeCurveBand::Points(m_PointList, point);
    if (poles.IsNull()) return;
    // More poles than a Bezier curve takes raise here; the viewer's boundary reports it.
    opencascade::handle<Geom_BezierCurve> curve = new Geom_BezierCurve(poles->Array1());
    shape = FreeCurveBand::Edge(curve);
}

void DrawBezierOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
    m_bFinished = true;
}

void DrawBezierOp::ActionCancelled(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

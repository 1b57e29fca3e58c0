#include "DrawBSplineOp.h"

#include "BSplineShapeParaCreator.h"
#include "FreeCurveBand.h"
#include "TevBasicViewer.h"

#include <GeomAPI_Interpolate.hxx>
#include <Geom_BSplineCurve.hxx>
#include <vtkRenderer.h>

DrawBSplineOp::DrawBSplineOp() : DrawOpCommon(false), m_bStep1(false), m_bContinuous(false) {}

void DrawBSplineOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bFinished = false;
    Prompt("BSpline: Input First Point");
}

// No test of m_bFinished: the band keeps following the mouse after the curve is made.
bool DrawBSplineOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    const double xyz[3] = {picked.X(), picked.Y(), picked.Z()};
    if (m_bStep1) DrawTempLine(viewer, xyz);
    else m_Point1 = picked;
    return false;
}

bool DrawBSplineOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (m_bFinished) return false;
    Prompt("BSpline: Input Next Point");
    AddMousePoint(viewer, point);
    m_bStep1 = true;
    return false;
}

void DrawBSplineOp::AddMousePoint(TevBasicViewer* viewer, const double point[3])
{
    m_PointList.push_back(PickPoint(viewer, point));
}

// The flag is set after the creation, which is the step's last call that can raise, so that a
// failure leaves the operation in the step it was in; FinishCurrentOp sets it anyway.
bool DrawBSplineOp::LButtonDoubleClick(TevBasicViewer* viewer, const double[3])
{
    PerformDraw(viewer);
    m_bFinished = true;
    FinishCurrentOp(viewer);
    return false;
}

void DrawBSplineOp::PerformDraw(TevBasicViewer* viewer)
{
    CreateInTransaction(viewer, [this] { BSplineShapeParaCreator().CreateSpline(m_PointList, false); });
    Prompt("BSpline: Done");
}

void DrawBSplineOp::DrawTempLine(TevBasicViewer* viewer, const double point[3])
{
    TopoDS_Shape shape;
    CreateTempGeo(gp_Pnt(point[0], point[1], point[2]), shape);
    if (!shape.IsNull()) FreeCurveBand::Show(viewer, m_TempActor2, shape);
}

void DrawBSplineOp::CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape)
{
    opencascade::handle<TColgp_HArray1OfPnt> points = FreeCurveBand::Points(m_PointList, point);
    if (points.IsNull()) return;
    // Points the interpolation cannot take (two listed ones that coincide) raise here, and so
    // does Curve() when it did not succeed; the viewer's boundary reports it.
    GeomAPI_Interpolate interpolate(points, Standard_False, 1e-7);
    interpolate.Perform();
    shape = FreeCurveBand::Edge(interpolate.Curve());
}

// The base call takes m_TempActor out as well.
void DrawBSplineOp::ClearBands(TevBasicViewer* viewer)
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_BSplineActor);
    renderer->RemoveActor(m_TempActor2);
    DrawOpCommon::FinishCurrentOp(viewer);
    viewer->update();
}

void DrawBSplineOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearBands(viewer);
    m_bFinished = true;
}

void DrawBSplineOp::ActionCancelled(TevBasicViewer* viewer)
{
    ClearBands(viewer);
}

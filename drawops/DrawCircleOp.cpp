#include "DrawCircleOp.h"

#include "CircleShapeParaCreator.h"
#include "DrawArcOp.h"
#include "TevBasicViewer.h"

#include <GC_MakeCircle.hxx>
#include <Geom_Circle.hxx>
#include <vtkRenderer.h>

DrawCircleOp::DrawCircleOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bStep3(false), m_bContinuous(false)
{
}


void DrawCircleOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Circle : Input first point on cirlce");
}

bool DrawCircleOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    double p[3] = {picked.X(), picked.Y(), picked.Z()};
    if (!m_bStep1) {
        m_Point1 = picked;
    } else if (!m_bStep2) {
        double a[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
        DrawOpCommon::DrawTempLine(viewer, a, p);
    } else {
        double raw[3] = {point[0], point[1], point[2]};
        DrawTempCircle(viewer, p, raw);
    }
    return false;
}

bool DrawCircleOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        m_Point1 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
        Prompt("Circle : Input second point on cirlce");
    } else if (!m_bStep2) {
        m_Point2 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point2);
        m_bStep2 = true;
        Prompt("Circle : Input third point on cirlce");
    } else if (!m_bStep3) {
        m_Point3 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point3);
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        if (m_bContinuous) {
            m_Point1 = m_Point2;
            m_bStep1 = true;
            return false;
        }
        FinishCurrentOp(viewer);
        Prompt("Circle: Done");
        Prompt("Circle : Input first point on cirlce");
    }
    return false;
}

// The circle is solved before the transaction opens; only its centre and radius go on.
void DrawCircleOp::PerformDraw(TevBasicViewer* viewer)
{
    opencascade::handle<Geom_Circle> circle = GC_MakeCircle(m_Point1, m_Point3, m_Point2).Value();
    const gp_Pnt location = circle->Location();
    const double radius = circle->Radius();
    CreateInTransaction(viewer, [&] { CircleShapeParaCreator().CreateCircle(location, radius); });
}

void DrawCircleOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawCircleOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Circle : Cancel");
    DrawOpCommon::ActionCancelled(viewer);
}

void DrawCircleOp::DrawTempCircle(TevBasicViewer* viewer, double point[3], double[3])
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor2);
    m_TempActor2 = DrawArcOp::MakeThreePointArcActor(m_Point1, m_Point2, point);
    renderer->AddActor(m_TempActor2);
    viewer->UpdateViewer();
}

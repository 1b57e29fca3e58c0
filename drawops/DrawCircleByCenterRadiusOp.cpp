#include "DrawCircleByCenterRadiusOp.h"

#include "CircleShapeParaCreator.h"
#include "TevBasicViewer.h"



// Circles with a smaller radius are dropped without a word.
static const double kMinRadius = 1e-6;

DrawCircleByCenterRadiusOp::DrawCircleByCenterRadiusOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bContinuous(true)
{
}


void DrawCircleByCenterRadiusOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Circle : Input center point");
}

bool DrawCircleByCenterRadiusOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        return false;
    }
    double center[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
    double rim[3] = {picked.X(), picked.Y(), picked.Z()};
    DrawOpCommon::DrawTempCircle(viewer, center, rim);
    return false;
}

bool DrawCircleByCenterRadiusOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        m_Point1 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
        Prompt("Circle : Input point on Circle");
    } else {
        m_Point2 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point2);
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        FinishCurrentOp(viewer);
        // Printed also when the radius was too small and nothing was made.
        Prompt("Circle: Done");
        Prompt("Circle : Input center point");
    }
    return false;
}

void DrawCircleByCenterRadiusOp::PerformDraw(TevBasicViewer* viewer)
{
    const double radius = m_Point1.Distance(m_Point2);
    if (radius < kMinRadius) return;
    CreateInTransaction(viewer, [&] { CircleShapeParaCreator().CreateCircle(m_Point1, radius); });
}

void DrawCircleByCenterRadiusOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawCircleByCenterRadiusOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Circle : Cancel");
    DrawOpCommon::ActionCancelled(viewer);
}

void DrawCircleByCenterRadiusOp::DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3])
{
    DrawTempSegment(viewer, p1, p2, 0.3, 0.0, 0.6);
}

#include "DrawLoftOp.h"

#include "LineShapeParaCreator.h"
#include "TevBasicViewer.h"

DrawLoftOp::DrawLoftOp() : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bContinuous(false) {}

void DrawLoftOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Line : Input First point:");
}

bool DrawLoftOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        return false;
    }
    double a[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
    double b[3] = {picked.X(), picked.Y(), picked.Z()};
    DrawTempLine(viewer, a, b);
    return false;
}

bool DrawLoftOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        Prompt("Line : Input Second point:");
        m_Point1 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
    } else if (!m_bStep2) {
        m_Point2 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point2);
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        if (m_bContinuous) {
            m_Point1 = m_Point2;
            m_bStep1 = true;
        } else {
            FinishCurrentOp(viewer);
        }
    }
    return false;
}

void DrawLoftOp::PerformDraw(TevBasicViewer* viewer)
{
    if (m_Point1.Distance(m_Point2) < 1e-6) return;
    CreateInTransaction(viewer, [this] { LineShapeParaCreator().CreateLine(m_Point1, m_Point2); });
}

void DrawLoftOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawLoftOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Line : Cancel");
    ClearTempDisplay(viewer);
}

#include "DrawConeOp.h"

#include "ConeShapeParaCreator.h"
#include "DrawOpMgr.h"
#include "SolidOpTools.h"
#include "TevBasicViewer.h"

#include <gp_Dir.hxx>

DrawConeOp::DrawConeOp(bool paramInput) : DrawOpCommon(paramInput), m_bStep1(false), m_bStep2(false), m_Angle(360.0)
{
}

void DrawConeOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Cone : Input bottom center point:");
}

bool DrawConeOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    MoveCircleBand(viewer, point, m_bStep1, m_bStep2, m_Point1, false);
    return false;
}

bool DrawConeOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
        Prompt("Cone : Input bottom circle point:");
    } else if (!m_bStep2) {
        Prompt("Cone : Input Height:");
        m_Point2 = picked;
        AskHeightAndDraw(viewer);
    }
    return false;
}

void DrawConeOp::AskHeightAndDraw(TevBasicViewer* viewer)
{
    double h = 0.0, angle = 0.0;
    const SolidOpTools::HeightAnswer answer =
        SolidOpTools::AskHeight(m_bParamInput, SolidOpTools::HeightRule::PositiveOnly, h, angle);
    if (answer == SolidOpTools::HeightAnswer::Cancelled) FinishCurrentOp(viewer);
    if (answer != SolidOpTools::HeightAnswer::Given) return;
    if (m_bParamInput) m_Angle = angle;
    m_Point3 = gp_Pnt(m_Point2.X(), m_Point2.Y(), m_Point1.Z() + h);
    PerformDraw(viewer);
    FinishCurrentOp(viewer);
    DrawOpMgr::GetInstance()->EndOp(this, viewer);
    Prompt("Cone: Done");
    m_bStep1 = false;
    m_bStep2 = false;
}

void DrawConeOp::PerformDraw(TevBasicViewer* viewer)
{
    gp_Dir dir(0, 0, 1);
    double radius = m_Point1.Distance(m_Point2);
    double height = m_Point3.Z() - m_Point1.Z();
    CreateInTransaction(viewer, [&] { ConeShapeParaCreator().CreateCone(m_Point1, dir, radius, height, m_Angle); });
}

void DrawConeOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Cone : Cancel");
    viewer->RemoveTempRenderActor(m_TempActor2);
    DrawOpCommon::FinishCurrentOp(viewer);
}

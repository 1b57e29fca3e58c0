#include "DrawCylinderOp.h"

#include "CylinderShapeParaCreator.h"
#include "DrawOpMgr.h"
#include "SolidOpTools.h"
#include "TevBasicViewer.h"

#include <gp_Dir.hxx>

DrawCylinderOp::DrawCylinderOp(bool paramInput)
    : DrawOpCommon(paramInput), m_bStep1(false), m_bStep2(false), m_Angle(360.0)
{
}

void DrawCylinderOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Cylinder : Input bottom center point:");
}

bool DrawCylinderOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    MoveCircleBand(viewer, point, m_bStep1, m_bStep2, m_Point1, false);
    return false;
}

bool DrawCylinderOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        Prompt("Cylinder : Input bottom circle point:");
        m_Point1 = picked;
        m_bStep1 = true;
    } else if (!m_bStep2) {
        Prompt("Cylinder : Input height:");
        m_Point2 = picked;
        AskHeightAndDraw(viewer);
    }
    return false;
}

void DrawCylinderOp::AskHeightAndDraw(TevBasicViewer* viewer)
{
    double h = 0.0, angle = 0.0;
    const SolidOpTools::HeightAnswer answer =
        SolidOpTools::AskHeight(m_bParamInput, SolidOpTools::HeightRule::PositiveOnly, h, angle);
    if (answer == SolidOpTools::HeightAnswer::Cancelled) FinishCurrentOp(viewer);
    if (answer != SolidOpTools::HeightAnswer::Given) return;
    if (m_bParamInput) m_Angle = angle;
    m_Point3 = gp_Pnt(m_Point2.X(), m_Point2.Y(), m_Point1.Z() + h);
    PerformDraw(viewer);
    Prompt("Cylinder: Done");
    DrawOpMgr::GetInstance()->EndOp(this, viewer);
    m_bStep1 = false;
    m_bStep2 = false;
}

void DrawCylinderOp::PerformDraw(TevBasicViewer* viewer)
{
    const double radius = m_Point1.Distance(m_Point2);
    const double height = m_Point3.Z() - m_Point1.Z();
    CreateInTransaction(viewer, [&] {
        CylinderShapeParaCreator().CreateCylinder(m_Point1, gp_Dir(0, 0, 1), radius, height, m_Angle);
    });
}

void DrawCylinderOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Cylinder : Cancel");
    viewer->RemoveTempRenderActor(m_TempActor2);
    DrawOpCommon::FinishCurrentOp(viewer);
}

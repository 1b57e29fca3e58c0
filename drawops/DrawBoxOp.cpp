#include "DrawBoxOp.h"

#include "BoxShapeParaCreator.h"
#include "DrawOpMgr.h"
#include "SolidOpTools.h"
#include "TevBasicViewer.h"

#include <Geom_Plane.hxx>
#include <Standard_NullObject.hxx>
#include <gp_Ax1.hxx>
#include <gp_Ax2.hxx>
#include <gp_Pln.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <cmath>

DrawBoxOp::DrawBoxOp() : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bStep3(false), m_Height(0.0) {}

void DrawBoxOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Box : Input base point:");
}

bool DrawBoxOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (m_bStep1 && !m_bStep2) DrawTempRectangle(viewer, m_Point1, picked);
    return false;
}

bool DrawBoxOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
        Prompt("Box : Input second corner point:");
    } else if (!m_bStep2) {
        Prompt("Box : Input height:");
        m_Point2 = picked;
        AskHeightAndDraw(viewer);
    }
    return false;
}

void DrawBoxOp::AskHeightAndDraw(TevBasicViewer* viewer)
{
    double h = 0.0, angle = 0.0;
    // Only exactly zero is refused here; the other solids refuse 0.0 or less.
    const SolidOpTools::HeightAnswer answer = SolidOpTools::AskHeight(false, SolidOpTools::HeightRule::ZeroOnly, h, angle);
    if (answer == SolidOpTools::HeightAnswer::Cancelled) FinishCurrentOp(viewer);
    if (answer != SolidOpTools::HeightAnswer::Given) return;
    m_Point3 = gp_Pnt(m_Point2.X(), m_Point2.Y(), m_Point1.Z() + h);
    m_Height = h;
    m_bStep3 = true;
    PerformDraw(viewer);
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Box: Done");
    DrawOpMgr::GetInstance()->EndOp(this, viewer);
    m_bStep2 = true;
}

void DrawBoxOp::PerformDraw(TevBasicViewer* viewer)
{
    const gp_Pnt base(std::min(m_Point1.X(), m_Point2.X()), std::min(m_Point1.Y(), m_Point2.Y()),
                      std::min(m_Point1.Z(), m_Point2.Z()));
    const gp_Pln plane = WorkPlane(viewer);
    const gp_Dir n = plane.Axis().Direction();
    const gp_Dir x = plane.XAxis().Direction();
    const gp_Dir y = plane.YAxis().Direction();
    const gp_Vec d(m_Point1, m_Point2);
    const double dx = std::abs(d.Dot(gp_Vec(x)));
    const double dy = std::abs(d.Dot(gp_Vec(y)));
    CreateInTransaction(viewer, [&] {
        gp_Ax2 placement;
        placement.SetLocation(base);
        placement.SetDirection(n);
        placement.SetXDirection(x);
        placement.SetYDirection(y);
        BoxShapeParaCreator().CreateBox(placement, dx, dy, m_Height);
    });
}

gp_Pln DrawBoxOp::WorkPlane(TevBasicViewer* viewer)
{
    const opencascade::handle<Geom_Plane> plane = viewer->GetCurrentPlane();
    if (plane.IsNull()) throw Standard_NullObject("the viewer has no work plane");
    return plane->Pln();
}

void DrawBoxOp::DrawTempRectangle(TevBasicViewer* viewer, const gp_Pnt& p1, const gp_Pnt& p2)
{
    const gp_Pnt mid((p1.XYZ() + p2.XYZ()) * 0.5);
    const gp_Ax1 normal(mid, WorkPlane(viewer).Axis().Direction());
    const gp_Pnt corners[4] = {p1, p1.Mirrored(normal), p2, p2.Mirrored(normal)};
    DrawTempQuad(viewer, p1, p2, corners, SolidOpTools::kQuadBandColour);
}

void DrawBoxOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawBoxOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Box : Cancel");
    ClearTempDisplay(viewer);
}

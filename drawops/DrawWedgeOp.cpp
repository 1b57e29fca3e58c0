#include "DrawWedgeOp.h"

#include "DrawOpMgr.h"
#include "SolidOpTools.h"
#include "TevBasicViewer.h"
#include "WedgeInputDlg.h"
#include "WedgeShapeParaCreator.h"

#include <gp_Dir.hxx>

#include <cmath>

DrawWedgeOp::DrawWedgeOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bStep3(false), m_WedgeHeight(0.0),
      m_WedgeParam{0.0, 0.0, 0.0, 0.0}
{
}

void DrawWedgeOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Wedge : Input base point:");
}

bool DrawWedgeOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (m_bStep1 && !m_bStep2) DrawTempRectangle(viewer, m_Point1, picked);
    return false;
}

bool DrawWedgeOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
        Prompt("Wedge : Input Corner point:");
    } else if (!m_bStep2) {
        m_Point2 = picked;
        AskParametersAndDraw(viewer);
    }
    return false;
}

void DrawWedgeOp::AskParametersAndDraw(TevBasicViewer* viewer)
{
    WedgeInputDlg dlg(nullptr);
    if (dlg.exec() != 1) {
        FinishCurrentOp(viewer);
        return;
    }
    dlg.GetWedgeParameter(m_WedgeHeight, m_WedgeParam[0], m_WedgeParam[1], m_WedgeParam[2], m_WedgeParam[3]);
    if (m_WedgeHeight <= 0.0) {
        SolidOpTools::ShowHeightError(false);
        return;
    }
    m_bStep3 = true;
    PerformDraw(viewer);
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Wedge: Done");
    DrawOpMgr::GetInstance()->EndOp(this, viewer);
    m_bStep2 = true;
}

void DrawWedgeOp::PerformDraw(TevBasicViewer* viewer)
{
    const double dx = std::abs(m_Point2.X() - m_Point1.X());
    const double dy = std::abs(m_Point2.Y() - m_Point1.Y());
    CreateInTransaction(viewer, [&] {
        WedgeShapeParaCreator().CreateWedge(m_Point1, gp_Dir(0, 0, 1), dx, dy, m_WedgeHeight, m_WedgeParam[0],
                                            m_WedgeParam[1], m_WedgeParam[2], m_WedgeParam[3]);
    });
}

void DrawWedgeOp::DrawTempRectangle(TevBasicViewer* viewer, const gp_Pnt& p1, const gp_Pnt& p2)
{
    const gp_Pnt corners[4] = {p1, gp_Pnt(p2.X(), p1.Y(), p1.Z()), gp_Pnt(p2.X(), p2.Y(), p1.Z()),
                               gp_Pnt(p1.X(), p2.Y(), p1.Z())};
    DrawTempQuad(viewer, p1, p2, corners, SolidOpTools::kQuadBandColour);
}

void DrawWedgeOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawWedgeOp::ActionCancelled(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

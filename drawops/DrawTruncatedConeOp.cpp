#include "DrawTruncatedConeOp.h"

#include "DrawOpMgr.h"
#include "SolidOpTools.h"
#include "TevBasicViewer.h"
#include "TruncatedConeInputDlg.h"
#include "TruncatedConeShapeParaCreator.h"

DrawTruncatedConeOp::DrawTruncatedConeOp(bool paramInput)
    : DrawOpCommon(paramInput), m_bStep1(false), m_bStep2(false), m_TopRadius(0.0), m_Angle(360.0)
{
}

void DrawTruncatedConeOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Truncated Cone : Input bottom center point");
}

bool DrawTruncatedConeOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    MoveCircleBand(viewer, point, m_bStep1, m_bStep2, m_Point1, true);
    return false;
}

bool DrawTruncatedConeOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
        Prompt("Truncated Cone : Input bottom circle point");
    } else if (!m_bStep2) {
        m_Point2 = picked;
        // Set before the dialog: a refused height leaves the operation inert until Escape.
        m_bStep2 = true;
        AskParametersAndDraw(viewer);
    }
    return false;
}

void DrawTruncatedConeOp::AskParametersAndDraw(TevBasicViewer* viewer)
{
    TruncatedConeInputDlg dlg(nullptr);
    if (!m_bParamInput) dlg.DisableAngleInput();
    if (dlg.exec() != 1) {
        FinishCurrentOp(viewer);
    } else {
        m_TopRadius = dlg.m_DlgTopRadius;
        const double h = dlg.m_DlgHeight;
        if (h <= 0.0) {
            SolidOpTools::ShowHeightError(false);
            return;
        }
        if (m_bParamInput) m_Angle = dlg.m_DlgAngle;
        m_Point3 = gp_Pnt(m_Point2.X(), m_Point2.Y(), m_Point1.Z() + h);
        PerformDraw(viewer);
        FinishCurrentOp(viewer);
        DrawOpMgr::GetInstance()->EndOp(this, viewer);
        Prompt("Truncated Cone: Done");
    }
    m_bStep1 = false;
    m_bStep2 = false;
}

void DrawTruncatedConeOp::PerformDraw(TevBasicViewer* viewer)
{
    double r = m_Point1.Distance(m_Point2);
    double height = m_Point3.Z() - m_Point1.Z();
    CreateInTransaction(viewer, [&] {
        TruncatedConeShapeParaCreator().CreateCone(m_Point1, r, m_TopRadius, height, m_Angle);
    });
}

void DrawTruncatedConeOp::ActionCancelled(TevBasicViewer* viewer)
{
    viewer->RemoveTempRenderActor(m_TempActor2);
    DrawOpCommon::FinishCurrentOp(viewer);
    Prompt("Truncated Cone: Cancel");
}

void DrawTruncatedConeOp::BeginStep()
{
    DrawOpCommon::BeginStep();
    m_step2AtStep = m_bStep2;
}

void DrawTruncatedConeOp::StepFailed(TevBasicViewer* viewer)
{
    m_bStep2 = m_step2AtStep;
    DrawOpCommon::StepFailed(viewer);
}

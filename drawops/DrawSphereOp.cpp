#include "DrawSphereOp.h"

#include "SphereShapeParaCreator.h"
#include "TevBasicViewer.h"
#include "sphereParaInputdlg.h"

#include <QMessageBox>
#include <vtkRenderer.h>

DrawSphereOp::DrawSphereOp(bool paramInput)
    : DrawOpCommon(paramInput), m_bStep1(false), m_bStep2(false), m_Angle1(-90.0), m_Angle2(90.0), m_Angle3(360.0)
{
}

void DrawSphereOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Sphere : Input center point");
}

bool DrawSphereOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    MoveCircleBand(viewer, point, m_bStep1, m_bStep2, m_Point1, true);
    return false;
}

bool DrawSphereOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
    } else if (!m_bStep2) {
        m_Point2 = picked;
        PerformDraw(viewer);
        FinishCurrentOp(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
    }
    return false;
}

bool DrawSphereOp::AskAngles(TevBasicViewer* viewer)
{
    sphereParaInputdlg dlg(nullptr);
    if (dlg.exec() != 1) {
        FinishCurrentOp(viewer);
        return false;
    }
    m_Angle1 = dlg.m_DlgAngle1;
    m_Angle2 = dlg.m_DlgAngle2;
    m_Angle3 = dlg.m_DlgAngle3;
    return true;
}

bool DrawSphereOp::CheckAngles()
{
    // Both limits belong to the ranges.
    const char* refusal = nullptr;
    if (m_Angle1 > 0.0 || m_Angle1 < -90.0)
        refusal = "Invalid angle1 parameter, arrange is (-90, 0) ";
    else if (m_Angle2 > 90.0 || m_Angle2 < 0.0)
        refusal = "Invalid angle2 parameter, arrange is (0, 90) ";
    if (!refusal) return true;
    QMessageBox::information(nullptr, QString(), QString::fromLatin1(refusal));
    return false;
}

void DrawSphereOp::PerformDraw(TevBasicViewer* viewer)
{
    const double radius = m_Point1.Distance(m_Point2);
    if (m_bParamInput && !AskAngles(viewer)) return;
    if (!CheckAngles()) return;
    CreateInTransaction(viewer, [&] {
        SphereShapeParaCreator().CreateSphere(m_Point1, radius, m_Angle1, m_Angle2, m_Angle3);
    });
}

void DrawSphereOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
    viewer->GetDefaultRender()->RemoveActor(m_TempActor2);
}

void DrawSphereOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Sphere : Cancel");
    // The snap ring stays for the FinishCurrentOp that follows.
    viewer->GetDefaultRender()->RemoveActor(m_TempActor2);
}

#include "DrawTorusOp.h"

#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"
#include "TorousShapeParaCreator.h"
#include "torusParaInputDlg.h"

#include <QMessageBox>
#include <QObject>

#include <cmath>

DrawTorusOp::DrawTorusOp(bool paramInput)
    : DrawOpCommon(paramInput), m_bStep1(false), m_bStep2(false), m_SweepRadius(0.0), m_Angle1(-180.0),
      m_Angle2(180.0), m_Angle3(360.0)
{
}

void DrawTorusOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Torus : Input center point");
}

bool DrawTorusOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    MoveCircleBand(viewer, point, m_bStep1, m_bStep2, m_Point1, true);
    return false;
}

bool DrawTorusOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
    } else if (!m_bStep2) {
        m_Point2 = picked;
        // Stays set whatever the dialog gives: the operation is done with clicks.
        m_bStep2 = true;
        AskParametersAndDraw(viewer);
    }
    return false;
}

void DrawTorusOp::AskParametersAndDraw(TevBasicViewer* viewer)
{
    torusParaInputDlg dlg(nullptr);
    if (!m_bParamInput) dlg.DisableAngleUI();
    if (dlg.exec() != 1) {
        FinishCurrentOp(viewer);
        return;
    }
    m_SweepRadius = dlg.GetSweepRadius();
    if (m_SweepRadius <= 0.0) {
        QMessageBox::information(nullptr, QString::fromLatin1("Error"), QString::fromLatin1("Radius error input"),
                                 QMessageBox::Ok);
        return;
    }
    if (m_bParamInput) {
        m_Angle1 = dlg.m_DlgAngle1;
        m_Angle2 = dlg.m_DlgAngle2;
        m_Angle3 = dlg.m_DlgAngle3;
    }
    PerformDraw(viewer);
    FinishCurrentOp(viewer);
    m_bStep2 = true;
}

void DrawTorusOp::PerformDraw(TevBasicViewer* viewer)
{
    gp_Pnt centre(m_Point1.X(), m_Point1.Y(), 0.0);
    double major = std::hypot(m_Point2.X() - m_Point1.X(), m_Point2.Y() - m_Point1.Y());
    ShapeDocMgr::GetInstance()->StartTransaction();
    TorousShapeParaCreator creator;
    if (m_SweepRadius > major) {
        // The transaction stays open and the picture is not rebuilt.
        QMessageBox::information(nullptr, QObject::tr("Title"), QObject::tr("DrawTorusOp radius error"));
        return;
    }
    creator.CreateTorous(centre, major, m_SweepRadius, m_Angle1, m_Angle2, m_Angle3);
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
}

void DrawTorusOp::ActionCancelled(TevBasicViewer* viewer)
{
    viewer->RemoveTempRenderActor(m_TempActor2);
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawTorusOp::BeginStep()
{
    DrawOpCommon::BeginStep();
    m_step2AtStep = m_bStep2;
}

void DrawTorusOp::StepFailed(TevBasicViewer* viewer)
{
    m_bStep2 = m_step2AtStep;
    DrawOpCommon::StepFailed(viewer);
}

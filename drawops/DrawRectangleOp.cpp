#include "DrawRectangleOp.h"

#include "RectangleShapeParaCreator.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <vtkRenderer.h>

DrawRectangleOp::DrawRectangleOp() : DrawOpCommon(false), m_bStep1(false), m_bStep2(false) {}


void DrawRectangleOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Rectangle : Input first corner point:");
}

bool DrawRectangleOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (m_bStep1 && !m_bStep2) {
        m_Point2 = picked;
        double a[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
        double b[3] = {picked.X(), picked.Y(), picked.Z()};
        DrawTempRectangle(viewer, a, b);
    }
    return false;
}

bool DrawRectangleOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        m_bStep1 = true;
        Prompt("Rectangle : Input second corner point:");
    } else if (!m_bStep2) {
        m_Point2 = picked;
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        FinishCurrentOp(viewer);
        Prompt("Rectangle: Done");
        Prompt("Rectangle: Input first corner point:");
    }
    return false;
}

// Signed sides in world X and Y from the first corner; the z difference is dropped. The
// transaction is opened ahead of the bracket as well; the bracket commits that empty one first.
void DrawRectangleOp::PerformDraw(TevBasicViewer* viewer)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    const double dx = m_Point2.X() - m_Point1.X();
    const double dy = m_Point2.Y() - m_Point1.Y();
    CreateInTransaction(viewer, [&] { RectangleShapeParaCreator().CreateRectangle(m_Point1, dx, dy); });
}

void DrawRectangleOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    viewer->RemoveTempRenderActor(m_TempActor);
    viewer->RemoveTempRenderActor(m_TempActor2);
    viewer->RenderSnapPoint(nullptr);
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawRectangleOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Rectangle : Cancel");
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor);
    renderer->RemoveActor(m_TempActor2);
    viewer->RenderSnapPoint(nullptr);
    DrawOpCommon::FinishCurrentOp(viewer);
    viewer->update();
}

void DrawRectangleOp::DrawTempRectangle(TevBasicViewer* viewer, double p1[3], double p2[3])
{
    static const double red[3] = {1.0, 0.2, 0.2};
    const gp_Pnt a(p1[0], p1[1], p1[2]), b(p2[0], p2[1], p2[2]);
    const gp_Pnt corners[4] = {a, gp_Pnt(b.X(), a.Y(), a.Z()), gp_Pnt(b.X(), b.Y(), a.Z()), gp_Pnt(a.X(), b.Y(), a.Z())};
    DrawTempQuad(viewer, a, b, corners, red);
}

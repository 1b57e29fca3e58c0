#include "DrawTriangleFaceOp.h"

#include "TevBasicViewer.h"
#include "TriangleFaceShapeParaCreator.h"


#include <vector>

// A triangle with two points closer than this is dropped without a word.
static const double kMinSide = 1e-6;

DrawTriangleFaceOp::DrawTriangleFaceOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bStep3(false), m_bContinuous(false)
{
}


void DrawTriangleFaceOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Triangle : Input First point");
}

bool DrawTriangleFaceOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    if (m_bStep3) return false;  // the face is made: nothing follows the mouse any more
    const gp_Pnt picked = PickPoint(viewer, point);
    double p[3] = {picked.X(), picked.Y(), picked.Z()};
    double a[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
    if (!m_bStep1) {
        m_Point1 = picked;
    } else if (!m_bStep2) {
        DrawTempLine(viewer, a, p);
    } else {
        double b[3] = {m_Point2.X(), m_Point2.Y(), m_Point2.Z()};
        DrawTempTriangle(viewer, a, b, p);
    }
    return false;
}

bool DrawTriangleFaceOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        Prompt("Triangle : Input Second point");
        m_Point1 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
    } else if (!m_bStep2) {
        Prompt("Triangle : Input Third point");
        m_Point2 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_bStep2 = true;
        m_PointList.push_back(m_Point2);
    } else if (!m_bStep3) {
        // The line operation's prompt, on purpose.
        Prompt("Line : Input end point");
        m_Point3 = PickPoint(viewer, point);
        m_bStep3 = true;
        m_PointList.push_back(m_Point3);
        PerformDraw(viewer);
        DrawOpCommon::FinishCurrentOp(viewer);
    }
    return false;
}

void DrawTriangleFaceOp::PerformDraw(TevBasicViewer* viewer)
{
    if (m_Point1.Distance(m_Point2) < kMinSide || m_Point2.Distance(m_Point3) < kMinSide ||
        m_Point1.Distance(m_Point3) < kMinSide)
        return;
    CreateInTransaction(viewer, [this] {
        TriangleFaceShapeParaCreator().CreateTriangle(std::vector<gp_Pnt>{m_Point1, m_Point2, m_Point3});
    });
}

void DrawTriangleFaceOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
    m_bFinished = true;
}

void DrawTriangleFaceOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Triangle : Cancel");
    ClearTempDisplay(viewer);
}

#include "DrawLineOp.h"

#include "LineShapeParaCreator.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"


// Lines shorter than this are dropped without a word.
static const double kMinLength = 1e-6;

DrawLineOp::DrawLineOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bContinuous(false)
{
}


void DrawLineOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    PromptFirstPoint();
}

bool DrawLineOp::MovePoint(TevBasicViewer* viewer, const double point[3])
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

bool DrawLineOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        // The prompt for the end point comes before the start point is taken.
        PromptSecondPoint();
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
            Prompt("Line : Input end point");
        } else {
            PromptLineDone();
            FinishCurrentOp(viewer);
        }
    }
    return false;
}

void DrawLineOp::PromptFirstPoint()
{
    Prompt("Line : Input start point");
}

void DrawLineOp::PromptSecondPoint()
{
    Prompt("Line : Input end point");
}

void DrawLineOp::PromptLineDone()
{
    Prompt("Line: Done");
    Prompt("Line : Input start point");
}

void DrawLineOp::PerformDraw(TevBasicViewer* viewer)
{
    if (m_Point1.Distance(m_Point2) < kMinLength) return;
    CreateInTransaction(viewer, [this] { LineShapeParaCreator().CreateLine(m_Point1, m_Point2); });
}

void DrawLineOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
    m_bFinished = true;
}

void DrawLineOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Line : Cancel");
    ClearTempDisplay(viewer);
}

void DrawLineOp::CreateBy2Points(gp_Pnt& a, gp_Pnt& b)
{
    if (a.Distance(b) < kMinLength) return;
    LineShapeParaCreator().CreateLine(a, b);
}

void DrawLineOp::PerformDrawLineList(std::vector<gp_Pnt>& points, TevBasicViewer* viewer)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    const size_t n = points.size();
    if (n == 2) {
        CreateBy2Points(points[0], points[1]);
    } else if (n >= 3) {
        for (size_t i = 0; i + 1 < n; ++i) CreateBy2Points(points[i], points[i + 1]);
        CreateBy2Points(points[n - 1], points[0]);
    }
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
}

#include "DrawEdgeOp.h"

#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"

#include <GC_MakeSegment.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <ShapeBuild_Edge.hxx>
#include <TopLoc_Location.hxx>

DrawEdgeOp::DrawEdgeOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bContinuous(false)
{
}

void DrawEdgeOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
}

gp_Pnt DrawEdgeOp::PickFlat(TevBasicViewer* viewer, const double point[3])
{
    const double flat[3] = {point[0], point[1], 0.0};
    return PickPoint(viewer, flat);
}

bool DrawEdgeOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickFlat(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        return false;
    }
    double a[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
    double b[3] = {picked.X(), picked.Y(), picked.Z()};
    DrawTempLine(viewer, a, b);
    return false;
}

bool DrawEdgeOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickFlat(viewer, point);
    if (!m_bStep1) {
        m_bStep1 = true;
        m_Point1 = picked;
        m_PointList.push_back(picked);
        return false;
    }
    if (m_bStep2) return false;
    m_Point2 = picked;
    m_PointList.push_back(picked);
    PerformDraw(viewer);
    m_bStep1 = false;
    m_bStep2 = false;
    if (m_bContinuous) {
        m_bStep1 = true;
        m_Point1 = m_Point2;
    } else {
        FinishCurrentOp(viewer);
    }
    return false;
}

// Deliberately outside any transaction: the document gains the edge as it is. Equal points make
// GC_MakeSegment fail, and Value() raises before anything changed.
void DrawEdgeOp::PerformDraw(TevBasicViewer* viewer)
{
    opencascade::handle<Geom_TrimmedCurve> segment = GC_MakeSegment(m_Point1, m_Point2).Value();
    TopoDS_Edge edge;
    ShapeBuild_Edge().MakeEdge(edge, segment, TopLoc_Location());
    opencascade::handle<TDocStd_Document> doc = ShapeDocMgr::GetInstance()->GetDoc();
    ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(doc, edge);
    m_AllEdges.push_back(edge);
    viewer->RefreshViewer();
}

void DrawEdgeOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawEdgeOp::ActionCancelled(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

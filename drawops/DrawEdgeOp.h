// DrawEdgeOp: straight edges from two clicks each, put into the document without a transaction
// (so no undo step covers them) and remembered in the order they were made, for the host to read
// through GetAllEdges. There are no prompts. After each edge the operation starts over, until
// Escape.
//
//   State (m_bStep1)  Mouse move                          Left release
//   false             snapped point kept in m_Point1      takes the first point
//   true              rubber band m_Point1 -> cursor      takes the second point, makes the edge,
//                                                         starts over
//
// Every raw point, moved or clicked, is picked with its z replaced by 0.0. m_bStep2 and
// m_bContinuous are set by nobody, so their branches never run. Two equal points make no
// segment: the failure is the viewer boundary's to report, and the operation keeps its first point.
#ifndef DRAWEDGEOP_H
#define DRAWEDGEOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Edge.hxx>

#include <vector>

class DrawEdgeOp : public DrawOpCommon
{
public:
    DrawEdgeOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

    // A copy of the edges made so far, in creation order; the list outlives Escape.
    std::vector<TopoDS_Edge> GetAllEdges() { return m_AllEdges; }

private:
    // The point picked from `point` with its z replaced by 0.0.
    static gp_Pnt PickFlat(TevBasicViewer* viewer, const double point[3]);
    // The segment m_Point1 -> m_Point2 into the document, without a transaction, and into
    // m_AllEdges; then a rebuild of the picture.
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
    std::vector<TopoDS_Edge> m_AllEdges;
};

#endif

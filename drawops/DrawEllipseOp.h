// DrawEllipseOp: an ellipse from its centre and two axis points. Once the second axis point is
// taken, the rubber band is the ellipse itself as the shape tool draws it, and each further click
// makes one more ellipse on the same centre and first axis point: the operation stays in its last
// state until Escape, which prints nothing.
//
//   State (s1 s2)  Mouse move                           Left release
//   -- --          snapped point kept in m_Point1       takes the centre
//   s1 --          no rubber band                       takes the first axis point
//   s1 s2          ellipse through the cursor           takes m_Point3, makes the ellipse, stays
//
// The first axis point ends the major axis while the cursor is nearer to the first axis than
// that axis is long; farther away, the cursor becomes the end of the major axis.
#ifndef DRAWELLIPSEOP_H
#define DRAWELLIPSEOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Shape.hxx>

class DrawEllipseOp : public DrawOpCommon
{
public:
    DrawEllipseOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // The ellipse of the cursor as an edge, in m_TempActor2 through ShapeRenderTool, then a
    // rebuild of the picture. A null shape (first axis point on the centre) gives an empty actor.
    void DrawTempLine(TevBasicViewer* viewer, gp_Pnt& point);
    // The ellipse on centre m_Point1 with axis points m_Point2 and `point`; `shape` stays as it
    // was when the first axis is shorter than 0.0001. The cursor on the first axis (a second
    // axis of length zero) or on the centre raises.
    void CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
};

#endif

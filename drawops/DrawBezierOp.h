// DrawBezierOp: a Bezier curve whose poles are the clicked points, any number of them; a double
// click ends it. The rubber band is the Bezier curve on the points so far and the cursor.
//
//   State                   Mouse move                        Left release    Double click
//   no point yet            snapped point kept in m_Point1    first point     makes the curve of
//                                                                             the empty list
//   points, not finished    band from the second point on     further point   makes the curve,
//                                                                             finished
//   finished                the band still follows the mouse  ignored         makes it again
//
// Qt delivers a double click as press, release, double click, release: the first release takes
// the point, the double click adds none, and the last release finds the operation finished. So
// the curve ends at the double-clicked position, taken once. A clicked point is picked from the
// raw point at z = 0, a moved one from the raw point as it is. The list of points is never
// cleared: started again, the operation goes on from the old points. Only Escape removes it.
#ifndef DRAWBEZIEROP_H
#define DRAWBEZIEROP_H

#include "DrawOpCommon.h"

#include <TopoDS_Shape.hxx>

class DrawBezierOp : public DrawOpCommon
{
public:
    DrawBezierOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool LButtonDoubleClick(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // Appends the point picked from `point` with its z replaced by 0.0.
    void AddMousePoint(TevBasicViewer* viewer, const double point[3]);
    // The band through the listed points and `point`; the last band stays when there is none.
    void DrawTempLine(TevBasicViewer* viewer, const double point[3]);
    // The band's edge into `shape`, which stays untouched when there is no band (see
    // FreeCurveBand::Points).
    void CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape);
    // The creation bracket with the listed points, whatever their number.
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
};

#endif

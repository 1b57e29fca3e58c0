// DrawCircleOp: a full circle through three clicked points. The rubber band is the red line of
// the base from the first point to the cursor, then the violet arc of DrawArcOp from the first to
// the second point, bent towards the cursor: the circle is shown by the arc that the third point
// closes. After each circle the operation starts over, until Escape.
//
//   State (s1 s2)  Mouse move                           Left release
//   -- --          snapped point kept in m_Point1       takes m_Point1, asks for the second point
//   s1 --          line m_Point1 -> cursor (red)        takes m_Point2, asks for the third point
//   s1 s2          arc m_Point1 .. m_Point2 by cursor   takes m_Point3, makes the circle, starts
//                                                       over (m_bContinuous, which nothing sets,
//                                                       would keep the second point as the first)
//
// m_bStep3 is cleared by InitAction and set by nobody. The circle goes to the creator as centre
// and radius only: it lies in the creator's plane, not necessarily in the plane of the points.
// Collinear points are not caught here: the circle construction raises before the step flags
// change, the viewer reports the failure, and the operation waits for another third point.
#ifndef DRAWCIRCLEOP_H
#define DRAWCIRCLEOP_H

#include "DrawOpCommon.h"

class DrawCircleOp : public DrawOpCommon
{
public:
    DrawCircleOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // Rubber-band arc through m_Point1, m_Point2 and `point` in m_TempActor2, as DrawArcOp's;
    // `raw`, the cursor before picking, is not used for it.
    void DrawTempCircle(TevBasicViewer* viewer, double point[3], double raw[3]);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    bool m_bStep3;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
};

#endif

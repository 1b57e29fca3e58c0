// DrawArcOp: an arc through three clicked points: the two ends, then a point on the arc. A
// dark violet rubber band runs from the first point to the cursor until the second click, then
// a violet arc from the first to the second point bends towards the cursor. After each arc the
// operation starts over, until Escape.
//
//   State (s1 s2)  Mouse move                           Left release
//   -- --          snapped point kept in m_Point1       takes m_Point1, asks for the second point
//   s1 --          line m_Point1 -> cursor (violet)     takes m_Point2, asks for the third point
//   s1 s2          arc m_Point1 .. m_Point2 by cursor   takes m_Point3, makes the arc, starts
//                                                       over (with m_bContinuous, which nothing
//                                                       sets, the second point would become the
//                                                       next first point)
//
// m_bStep3 is cleared by InitAction and set by nobody. The third click is the point the arc
// passes through: the creator receives (first, third, second click).
#ifndef DRAWARCOP_H
#define DRAWARCOP_H

#include "DrawOpCommon.h"

class DrawArcOp : public DrawOpCommon
{
public:
    DrawArcOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

    // The rubber-band arc from `p1` to `p2` on the circle through p1, p2 and `p3`, on the side
    // of the chord where p3 lies: translucent violet, width 1. DrawCircleOp shows the same.
    static vtkSmartPointer<vtkActor> MakeThreePointArcActor(const gp_Pnt& p1, const gp_Pnt& p2, const double p3[3]);

private:
    // Rubber-band segment p1-p2 in m_TempActor, dark violet; nothing when the points coincide.
    void DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3]);
    // Rubber-band arc through m_Point1, m_Point2 and `point` in m_TempActor2. The arc is made
    // from the picked point alone; `raw`, the cursor before picking, is not used for it.
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

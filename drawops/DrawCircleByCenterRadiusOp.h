// DrawCircleByCenterRadiusOp: a circle from its centre and a point on its rim, with the red
// rubber-band circle of the base around the centre through the cursor. After each circle the
// operation starts over, until Escape.
//
//   State (s1)  Mouse move                          Left release
//   --          snapped point kept in m_Point1      takes the centre, asks for the rim point
//   s1          circle around m_Point1 -> cursor    takes the rim point, makes the circle (none
//                                                   for a radius below 1e-6), starts over
//
// m_bContinuous is true from construction and read by nobody; m_bStep2 is only ever cleared.
#ifndef DRAWCIRCLEBYCENTERRADIUSOP_H
#define DRAWCIRCLEBYCENTERRADIUSOP_H

#include "DrawOpCommon.h"

class DrawCircleByCenterRadiusOp : public DrawOpCommon
{
public:
    DrawCircleByCenterRadiusOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // Rubber-band segment in the dark violet of DrawArcOp's. No step draws it: the circle band
    // of the base is the only one of this operation.
    void DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3]);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
};

#endif

// DrawTriangleFaceOp: a planar triangle face from three clicked points. The rubber band is the
// red line of the base to the cursor, then the red triangle. After its one face the operation
// stays on the stack with its flags set and reacts to nothing more until Escape.
//
//   State (s1 s2 s3)  Mouse move                           Left release
//   -- -- --          snapped point kept in m_Point1       takes the first point
//   s1 -- --          line m_Point1 -> cursor              takes the second point
//   s1 s2 --          triangle m_Point1, m_Point2, cursor  takes the third point, makes the face
//                                                          (none if two points are closer than
//                                                          1e-6), takes the rubber band away
//   s1 s2 s3          nothing                              nothing
//
// Each prompt comes before its point is taken; after the third point the prompt is the line
// operation's "Line : Input end point". Only Escape reaches the FinishCurrentOp override.
#ifndef DRAWTRIANGLEFACEOP_H
#define DRAWTRIANGLEFACEOP_H

#include "DrawOpCommon.h"

class DrawTriangleFaceOp : public DrawOpCommon
{
public:
    DrawTriangleFaceOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
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

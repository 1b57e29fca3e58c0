// DrawRectangleOp: a rectangle from two opposite corners, with a thick red rubber band. The
// rectangle is axis-aligned in world X and Y at the height of the first corner, whatever the
// work plane: the z of the second corner is dropped. After each rectangle the operation starts
// over, until Escape.
//
//   State (s1)  Mouse move                              Left release (picks first, always)
//   --          picked point only moves the snap ring   takes the first corner
//   s1          rectangle m_Point1 -> cursor            takes the second corner, makes the
//                                                       rectangle with signed sides, starts over
//
// The repeat prompt "Rectangle: Input first corner point:" has no blank before its first colon,
// unlike the one of InitAction. m_PointList is not used.
#ifndef DRAWRECTANGLEOP_H
#define DRAWRECTANGLEOP_H

#include "DrawOpCommon.h"

class DrawRectangleOp : public DrawOpCommon
{
public:
    DrawRectangleOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // Rubber-band quad with corners (p1.x, p1.y), (p2.x, p1.y), (p2.x, p2.y), (p1.x, p2.y), all
    // at p1's z, in m_TempActor; nothing when the corners coincide.
    void DrawTempRectangle(TevBasicViewer* viewer, double p1[3], double p2[3]);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
};

#endif

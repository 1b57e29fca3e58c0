// DrawWedgeOp: a wedge from a base point, a corner and the WedgeInputDlg: a base rectangle in
// world X and Y from the base point, its sides the absolute x and y differences of the clicks,
// rising along world Z to a top face placed by the dialog's four fractions. After one wedge the
// operation ends itself and leaves the stack.
//
//   State (s1 s2)  Mouse move                              Left release (picks first, always)
//   -- --          picked point only moves the snap ring   takes the base point
//   s1 --          green quad, axis-aligned at the base    takes the corner and runs the dialog
//                  point's height
//
// After the dialog: Cancel takes the band away and waits for another corner; a height of 0.0
// or less is refused with "Height error input" and waits likewise; otherwise the wedge is made
// and the operation ends. A DrawTempBox, which would do nothing, is not kept. m_bStep3
// marks the making of the wedge and is read by nobody, so a failure in the making may leave it
// set.
#ifndef DRAWWEDGEOP_H
#define DRAWWEDGEOP_H

#include "DrawOpCommon.h"

class DrawWedgeOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class SolidOpTestPeer;
public:
    DrawWedgeOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // Corners (p1.x, p1.y), (p2.x, p1.y), (p2.x, p2.y), (p1.x, p2.y), all at p1's z.
    void DrawTempRectangle(TevBasicViewer* viewer, const gp_Pnt& p1, const gp_Pnt& p2);
    // The dialog of the second click, and the wedge when it gives a height.
    void AskParametersAndDraw(TevBasicViewer* viewer);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    bool m_bStep3;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    double m_WedgeHeight;
    double m_WedgeParam[4];  // top X min, top Y min, top X max, top Y max, as CreateWedge takes them
};

#endif

// DrawConeOp: a pointed cone standing on world Z from a bottom centre, a rim point and a typed
// height; with `paramInput` the dialog's angle makes a sector of it. After one cone the
// operation ends itself and leaves the stack.
//
//   State (s1 s2)  Mouse move                              Left release (picks first, always)
//   -- --          picked point only moves the snap ring   takes the bottom centre
//   s1 --          circle m_Point1 -> cursor               takes the rim point and asks for the
//                                                          height (DataInputDlg, angle field
//                                                          enabled with `paramInput`)
//
// After the dialog: Cancel takes the band away and waits for another rim point; a height of 0.0
// or less is refused with "Height error input" and waits likewise. After the cone the operation
// finishes twice, once itself and once through EndOp; the second finish finds nothing left to
// remove. The radius is not checked: a radius of 0.0 reaches the creator, which refuses it. A
// DrawTempCylinder, which would do nothing, is not kept.
#ifndef DRAWCONEOP_H
#define DRAWCONEOP_H

#include "DrawOpCommon.h"

class DrawConeOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class SolidOpTestPeer;
public:
    explicit DrawConeOp(bool paramInput = false);

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;

private:
    // The height dialog of the second click, and the cone when it gives a height.
    void AskHeightAndDraw(TevBasicViewer* viewer);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    double m_Angle;  // degrees
};

#endif

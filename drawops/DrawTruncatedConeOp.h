// DrawTruncatedConeOp: a truncated cone on world Z from a bottom centre, a rim point (the bottom
// radius) and the TruncatedConeInputDlg (height, top radius and, with `paramInput`, the angle).
// After one cone the operation ends itself and leaves the stack.
//
//   State (s1 s2)  Mouse move                              Left release (picks first, always)
//   -- --          snapped point kept in m_Point1          takes the bottom centre
//   s1 --          circle m_Point1 -> cursor               takes the rim point, sets s2, runs
//                                                          the dialog
//   s1 s2          nothing                                 nothing
//
// After the dialog: Cancel takes the band away and starts over at the bottom centre. A height
// of 0.0 or less is refused with "Height error input" and leaves both flags set, so the
// operation takes no more clicks until Escape. A step that fails in the geometry kernel gives
// back the flags it had.
#ifndef DRAWTRUNCATEDCONEOP_H
#define DRAWTRUNCATEDCONEOP_H

#include "DrawOpCommon.h"

class DrawTruncatedConeOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class SolidOpTestPeer;
public:
    explicit DrawTruncatedConeOp(bool paramInput = false);

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void BeginStep() override;
    void StepFailed(TevBasicViewer* viewer) override;

private:
    // The dialog of the second click, and the cone when it gives a height.
    void AskParametersAndDraw(TevBasicViewer* viewer);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    double m_TopRadius;
    double m_Angle;  // degrees
    bool m_step2AtStep = false;  // m_bStep2 when the current step began
};

#endif

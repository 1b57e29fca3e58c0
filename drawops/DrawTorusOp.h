// DrawTorusOp: a torus lying in the XY plane from a centre, a rim point (the major radius) and
// the torusParaInputDlg (the sweep radius and, with `paramInput`, the three angles). After its
// torus, and after any answer of the dialog, the operation stays on the stack and takes no more
// clicks until Escape.
//
//   State (s1 s2)  Mouse move                              Left release (picks first, always)
//   -- --          snapped point kept in m_Point1          takes the centre
//   s1 --          circle m_Point1 -> cursor               takes the rim point, sets s2, runs
//                                                          the dialog
//   s1 s2          nothing                                 nothing
//
// The torus deliberately ignores z: its centre is (x, y, 0) of the first point and its major
// radius the distance of the two points in x and y only. A sweep radius of 0.0 or less is
// refused with "Radius error input". A sweep radius greater than the major radius is refused
// with "DrawTorusOp radius error" after the transaction was opened, and the transaction is left
// open; equal radii pass. A step that fails in the geometry kernel gives back the flags it had.
#ifndef DRAWTORUSOP_H
#define DRAWTORUSOP_H

#include "DrawOpCommon.h"

class DrawTorusOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class SolidOpTestPeer;
public:
    explicit DrawTorusOp(bool paramInput = false);

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void BeginStep() override;
    void StepFailed(TevBasicViewer* viewer) override;

private:
    // The dialog of the second click, and the torus when it gives a sweep radius.
    void AskParametersAndDraw(TevBasicViewer* viewer);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    double m_SweepRadius;
    double m_Angle1;  // start of the tube's section, degrees
    double m_Angle2;  // end of the tube's section, degrees
    double m_Angle3;  // sweep about the axis, degrees
    bool m_step2AtStep = false;  // m_bStep2 when the current step began
};

#endif

// DrawSphereOp: a sphere about world Z from a centre and a rim point; with `paramInput` the
// sphereParaInputdlg after the second click gives the two latitudes and the sweep, which make a
// zone or a sector of it. After each sphere the operation starts over, until Escape.
//
//   State (s1)  Mouse move                              Left release (picks first, always)
//   --          snapped point kept in m_Point1          takes the centre
//   s1          circle m_Point1 -> cursor               takes the rim point, makes the sphere
//                                                       (asking for the angles first with
//                                                       `paramInput`), starts over
//
// The angles stay at (-90, 90, 360) without `paramInput`; with it, what the dialog gave stays
// for the next sphere. Angle 1 outside [-90, 0] or angle 2 outside [0, 90] is refused with its
// box and no sphere; angle 3 is not checked here. Cancel of the dialog makes no sphere. Either
// way the operation starts over. The radius is not checked: a second click on the centre hands
// the creator a radius of 0.0, which it refuses. No prompt follows the first one. A
// DrawTempSphere, which nothing would call, is not kept.
#ifndef DRAWSPHEREOP_H
#define DRAWSPHEREOP_H

#include "DrawOpCommon.h"

class DrawSphereOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class SolidOpTestPeer;
public:
    explicit DrawSphereOp(bool paramInput = false);

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // False after Cancel: keeps the angles.
    bool AskAngles(TevBasicViewer* viewer);
    // The box of an angle outside its range, or none: true when the angles are in range.
    bool CheckAngles();
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    double m_Angle1;  // lower latitude, degrees
    double m_Angle2;  // upper latitude, degrees
    double m_Angle3;  // sweep about the axis, degrees
};

#endif

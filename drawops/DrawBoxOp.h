// DrawBoxOp: a box from a base point, an opposite corner and a typed height, placed on the work
// plane: its sides run along the plane's X and Y axes and its height along the plane's normal.
// After one box the operation ends itself and leaves the stack.
//
//   State (s1 s2)  Mouse move                              Left release (picks first, always)
//   -- --          picked point only moves the snap ring   takes the base point
//   s1 --          green quad m_Point1 -> cursor, mirrored takes the corner and asks for the
//                  through the plane normal at the middle  height (DataInputDlg, angle disabled)
//
// After the dialog: Cancel takes the band away and waits for another corner; a height of
// exactly 0.0 is refused with "Height error input" and waits likewise (the field's validator
// keeps negative numbers out); any other height makes the box and ends the operation.
//
// The sides are the absolute projections of m_Point2 - m_Point1 on the plane's axes, and the
// box stands on the componentwise minimum of the two points, which lies on the plane only when
// the plane is a principal one or the points are ordered along it. The band's quad collapses
// onto the diagonal for two points of the plane: its corners are the points and their mirror
// images through the plane normal at the middle, which fall on each other. A
// DrawTempBox, which would do nothing, is not kept. m_bStep3 marks the making of the box and is
// read by nobody, so a failure in the making may leave it set.
#ifndef DRAWBOXOP_H
#define DRAWBOXOP_H

#include "DrawOpCommon.h"

#include <gp_Pln.hxx>

class DrawBoxOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class SolidOpTestPeer;
public:
    DrawBoxOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // The viewer's current plane. A bare mesh view has none: that raises, for the viewer's
    // failure boundary to report, instead of reaching through a null handle.
    static gp_Pln WorkPlane(TevBasicViewer* viewer);
    void DrawTempRectangle(TevBasicViewer* viewer, const gp_Pnt& p1, const gp_Pnt& p2);
    // The height dialog of the second click, and the box when it gives a height.
    void AskHeightAndDraw(TevBasicViewer* viewer);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    bool m_bStep3;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    double m_Height;
};

#endif

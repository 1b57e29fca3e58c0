// DrawRevolveOp: the revolution of the first selected shape about an axis typed in a dialog. The
// selection must exist before the operation starts: InitAction asks for the axis and revolves
// at once. Afterwards the operation stays on the stack without reacting to the mouse until Escape.
//
// Cancel in the dialog does not cancel: the revolution runs with the axis and angle kept from
// before, the origin and (1, 0, 0) with 360 degrees at construction. With nothing selected or a
// solid first, a box says so and the transaction opened for the revolution stays open.
#ifndef DRAWREVOLVEOP_H
#define DRAWREVOLVEOP_H

#include "DrawOpCommon.h"

#include <gp_Ax1.hxx>
#include <gp_Dir.hxx>

class DrawRevolveOp : public DrawOpCommon
{
public:
    DrawRevolveOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // Asks for the axis, then revolves the first selected shape in a transaction.
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    gp_Ax1 m_RotateAxis;
    gp_Dir m_RotateDir;
    double m_RotateAngle;
    gp_Pnt m_RotateCenter;
};

#endif

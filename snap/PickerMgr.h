// PickerMgr: turns the raw world point of a mouse event into the point a drawing operation
// uses: projected on the work plane along the view direction, snapped to the grid or the
// geometry, with the snap ring drawn and the snap text left for the status line.
#ifndef PICKERMGR_H
#define PICKERMGR_H

#include <gp_Pnt.hxx>

struct sSnapResult;
class TevBasicViewer;

class PickerMgr
{
public:
    static PickerMgr* GetInstance();

    // The point to use: on the current plane (unless TevPreference::pickOffPlane), replaced by
    // the first snap hit on that plane if there is one. Moves the snap ring, and on a hit sets
    // DrawOpMgr's output string to the hit's text.
    gp_Pnt GetPickPoint(TevBasicViewer* viewer, gp_Pnt point);
    // `point` moved along the view direction onto the current plane; unchanged when the view is
    // parallel to the plane or the view has no plane.
    gp_Pnt CalculatePointOnPlane(TevBasicViewer* viewer, gp_Pnt point);

private:
    PickerMgr() = default;
    void RenderSnapPoint(TevBasicViewer* viewer, sSnapResult* result);
    static PickerMgr* m_PickerInstace;
};

#endif

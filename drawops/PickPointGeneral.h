// PickPointGeneral: the child operation that holds the stack while the user selects shapes with
// the viewer's normal picking. It keeps no selection of its own: it leaves by "Confirm" or
// Escape, and either way its parent hears ChildActionFinished and reads SelectionMgr.
#ifndef PICKPOINTGENERAL_H
#define PICKPOINTGENERAL_H

#include "DrawOpCommon.h"

class PickPointGeneral : public DrawOpCommon
{
public:
    PickPointGeneral();

    void InitAction(TevBasicViewer* viewer) override;
    // Nothing to take away: the child draws nothing.
    void ActionCancelled(TevBasicViewer* viewer) override;
    // Mouse events end here; the release still selects through the viewer.
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    // Prompts only: it touches no actor and does not call the base.
    void FinishCurrentOp(TevBasicViewer* viewer) override;
};

#endif

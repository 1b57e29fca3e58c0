// DrawLineOp: a straight edge from two clicks, with a rubber band from the first point to the
// cursor. After each line the operation starts over, until Escape.
//
//   State              m_bStep1  Mouse move                          Left release
//   waiting for start  false     snapped point kept in m_Point1      takes the start point
//   waiting for end    true      rubber band m_Point1 -> cursor      takes the end point, makes
//                                                                    the line, starts over
//
// m_bStep2 is never set outside LButtonUp's own step, so a state with it true does not arise.
// With m_bContinuous (which nothing sets) the end point would become the next start point.
#ifndef DRAWLINEOP_H
#define DRAWLINEOP_H

#include "DrawOpCommon.h"

class DrawLineOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class DrawOpTestPeer;
public:
    DrawLineOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

    // One line from a to b through the creator, without a transaction or a refresh of its own:
    // the caller brackets it. Points closer than 1e-6 make nothing.
    void CreateBy2Points(gp_Pnt& a, gp_Pnt& b);
    // A closed polyline through `points` in one transaction, then a refresh: segments between
    // consecutive points and, for three or more, the closing one back to the first.
    void PerformDrawLineList(std::vector<gp_Pnt>& points, TevBasicViewer* viewer);

protected:
    // The prompts around a line: at the start, after the first click, and after the line was
    // made. The loft operation, a line under other texts, replaces them.
    virtual void PromptFirstPoint();
    virtual void PromptSecondPoint();
    virtual void PromptLineDone();
    void PerformDraw(TevBasicViewer* viewer);

private:

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
};

#endif

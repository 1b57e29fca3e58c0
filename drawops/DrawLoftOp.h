// DrawLoftOp: despite its name, a straight edge from two clicks, the line operation under other
// prompts. After each edge the operation starts over, until Escape.
//
//   State              m_bStep1  Mouse move                          Left release
//   waiting for first  false     snapped point kept in m_Point1      takes the first point
//   waiting for second true      rubber band m_Point1 -> cursor      takes the second point,
//                                                                    makes the edge, starts over
//
// Unlike the line it prints no closing prompts and its FinishCurrentOp leaves m_bFinished as it
// is. m_bStep2 and m_bContinuous are set by nobody, so their branches never run. Edges shorter
// than 1e-6 are dropped without a word.
#ifndef DRAWLOFTOP_H
#define DRAWLOFTOP_H

#include "DrawOpCommon.h"

class DrawLoftOp : public DrawOpCommon
{
public:
    DrawLoftOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
};

#endif

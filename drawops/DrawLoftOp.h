// DrawLoftOp: despite its name, a straight edge from two clicks: the line operation under other
// prompts. After each edge the operation starts over, until Escape.
//
// Unlike the line it prints no closing prompts and its FinishCurrentOp leaves m_bFinished as it
// is; the states, the rubber band, the 1e-6 threshold and the cancel prompt "Line : Cancel" are
// the line's. It derives from DrawLineOp rather than directly from DrawOpCommon, so that the two
// share their steps instead of repeating them.
#ifndef DRAWLOFTOP_H
#define DRAWLOFTOP_H

#include "DrawLineOp.h"

class DrawLoftOp : public DrawLineOp
{
public:
    void FinishCurrentOp(TevBasicViewer* viewer) override;

protected:
    void PromptFirstPoint() override;
    void PromptSecondPoint() override;
    void PromptLineDone() override;
};

#endif

#include "DrawLoftOp.h"

void DrawLoftOp::PromptFirstPoint()
{
    Prompt("Line : Input First point:");
}

void DrawLoftOp::PromptSecondPoint()
{
    Prompt("Line : Input Second point:");
}

// After the edge there is no closing prompt.
void DrawLoftOp::PromptLineDone() {}

// The line's cleanup without setting m_bFinished.
void DrawLoftOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

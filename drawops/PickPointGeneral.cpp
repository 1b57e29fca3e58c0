#include "PickPointGeneral.h"

PickPointGeneral::PickPointGeneral() : DrawOpCommon(false) {}

void PickPointGeneral::InitAction(TevBasicViewer*)
{
    Prompt("Pick Object:");
}

void PickPointGeneral::ActionCancelled(TevBasicViewer*) {}

bool PickPointGeneral::LButtonUp(TevBasicViewer*, const double[3])
{
    return true;
}

bool PickPointGeneral::MovePoint(TevBasicViewer*, const double[3])
{
    return true;
}

void PickPointGeneral::FinishCurrentOp(TevBasicViewer*)
{
    Prompt("Pick Done:");
}

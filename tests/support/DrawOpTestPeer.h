// DrawOpTestPeer: how tests read the internals of the operation layer (the rubber-band actors
// of an operation, the manager's stack, single step flags and values). These are not the host's
// interface, so they live here, as a friend of those classes, rather than on the exported ones.
#ifndef DRAWOPTESTPEER_H
#define DRAWOPTESTPEER_H

#include "DrawLineOp.h"
#include "DrawOpCommon.h"
#include "DrawOpMgr.h"
#include "DrawOrthPolygonOp.h"

class DrawOpTestPeer
{
public:
    static vtkSmartPointer<vtkActor> TempActor(const DrawOpCommon& op) { return op.m_TempActor; }
    static vtkSmartPointer<vtkActor> TempActor2(const DrawOpCommon& op) { return op.m_TempActor2; }
    // The operations on the stack, bottom first.
    static const std::vector<IDrawOp*>& OpStack(const DrawOpMgr& mgr) { return mgr.m_OpStack; }
    // Whether the line has taken its start point.
    static bool IsStartTaken(const DrawLineOp& op) { return op.m_bStep1; }
    static int EdgeNumber(const DrawOrthPolygonOp& op) { return op.m_EdgeNumber; }
};

#endif

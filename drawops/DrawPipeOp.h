// DrawPipeOp: the sweep of a profile along a path, both chosen by picking children in turn: first
// the path (its first selected shape, an edge, becomes the path wire), then the profile (the
// first selected shape). Each child ends by "Confirm" or by Escape alike.
//
//   Stack over time: operation, child (path); operation, child (profile); the operation alone,
//   inert, until Escape.
//
// An empty selection at the end of the path pick is an out-of-range error that leaves the step
// (the viewer reports it); at the end of the profile pick it is a box, and no further child.
// The two spare shapes are kept for the layout of the fields and are not used.
#ifndef DRAWPIPEOP_H
#define DRAWPIPEOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Shape.hxx>
#include <TopoDS_Wire.hxx>

#include <cstdint>
#include <vector>

class DrawPipeOp : public DrawOpCommon
{
public:
    DrawPipeOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void ChildActionFinished(TevBasicViewer* viewer) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    void StartFirstPick(TevBasicViewer* viewer);
    void StartSecondPick(TevBasicViewer* viewer);
    // The path from the first selected shape, when it is an edge; then the profile pick.
    void TakePath(TevBasicViewer* viewer, const std::vector<const TopoDS_Shape*>& shapes);
    // The sweep of the first selected shape along m_PathWire in a transaction.
    void SweepProfile(TevBasicViewer* viewer, const std::vector<const TopoDS_Shape*>& shapes);

    TopoDS_Shape m_SpareShape1;
    TopoDS_Shape m_SpareShape2;
    int32_t m_PickState;
    TopoDS_Wire m_PathWire;
    const TopoDS_Shape* m_ProfileShape;
};

#endif

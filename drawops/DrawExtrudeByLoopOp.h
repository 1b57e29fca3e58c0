// DrawExtrudeByLoopOp: a solid prism of a closed loop of selected edges, or of a selected closed
// wire. The operation starts no child: it waits on top of the stack while the user selects, and
// its FinishCurrentOp does the work, so "Confirm" and Escape both extrude.
//
// The edges are chained in selection order, unsorted; a later wire or edge replaces an earlier
// result. The face of the loop is extruded inside the document's own command bracket, and the
// selected shapes that are document shapes leave the document in the same command, so one undo
// brings the loop back and takes the solid away. A selection of neither edges nor wires counts
// as not closed.
#ifndef DRAWEXTRUDEBYLOOPOP_H
#define DRAWEXTRUDEBYLOOPOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Wire.hxx>
#include <gp_Dir.hxx>

#include <vector>

class DrawExtrudeByLoopOp : public DrawOpCommon
{
public:
    DrawExtrudeByLoopOp();

    void InitAction(TevBasicViewer* viewer) override;
    // Mouse events are the viewer's selection's while the operation waits.
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    void PerformExtrude(TevBasicViewer* viewer);
    // The loop of the selection, or false after a box saying why there is none.
    static bool BuildLoop(const std::vector<const TopoDS_Shape*>& shapes, TopoDS_Wire& wire);
    // The solid of `wire` and the removal of `shapes` from the document, in one command.
    static void ExtrudeLoop(TevBasicViewer* viewer, const TopoDS_Wire& wire,
                            const std::vector<const TopoDS_Shape*>& shapes, double height, const gp_Dir& dir);
};

#endif

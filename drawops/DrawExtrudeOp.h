// DrawExtrudeOp: prisms of the selected shapes. The operation starts a picking child at once;
// when the child ends (by "Confirm" or by Escape alike) it asks for the height and direction and
// extrudes every selected shape, in selection order, in one transaction.
//
//   Stack over time: operation, child; after the child: the operation alone, inert, until
//   Escape, which runs the base's cancel and finish with no prompt.
//
// The dialog opens also with nothing selected; the loop is then empty. A height of exactly 0.0
// is refused with a box and nothing changes; a negative height passes and extrudes the other way.
#ifndef DRAWEXTRUDEOP_H
#define DRAWEXTRUDEOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Shape.hxx>

#include <vector>

class DrawExtrudeOp : public DrawOpCommon
{
public:
    DrawExtrudeOp();

    void InitAction(TevBasicViewer* viewer) override;
    // Mouse events are the viewer's selection's while the operation waits.
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void ChildActionFinished(TevBasicViewer* viewer) override;

private:
    // Asks for the height and extrudes `shapes`; false, with nothing changed, on Cancel or a
    // zero height (the caller then leaves the picture as it is).
    static bool ExtrudeShapes(const std::vector<const TopoDS_Shape*>& shapes);

    bool m_bPickStarted;
};

#endif

// DrawOrthPolygonOp: a regular polygon from its centre, a number of edges asked in
// PolygonNumInputDlg, and one vertex. The rubber band is the red polygon through the cursor,
// turned about the world Z axis through the centre, whatever the work plane.
//
//   State (s1)  Mouse move                              Left release
//   --          picked point only moves the snap ring   takes the centre, asks for the number
//                                                       of edges in the dialog
//   s1          polygon through the cursor              takes the vertex, makes the polygon,
//                                                       starts over
//
// The dialog does not change the state: after OK with 0 (a message box), or after Cancel, the
// next click takes the vertex with whatever number of edges was held before. Only 0 is refused
// here. After the polygon the flags are cleared without a prompt (m_bContinuous, which nothing
// sets, would ask for the next centre). The centre and the vertex are kept in m_CenterPoint and
// m_SecondPoint of the base.
#ifndef DRAWORTHPOLYGONOP_H
#define DRAWORTHPOLYGONOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Shape.hxx>

class DrawOrthPolygonOp : public DrawOpCommon
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class DrawOpTestPeer;
public:
    DrawOrthPolygonOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

private:
    // The polygon of the cursor as a wire, in m_TempActor2 through ShapeRenderTool in red, then
    // a rebuild of the picture.
    void DrawTempLine(TevBasicViewer* viewer, gp_Pnt point);
    // The closed polygon of m_EdgeNumber vertices, `point` turned about the Z axis through
    // m_CenterPoint in steps of 6.2831852 / m_EdgeNumber. With fewer than two vertices there is
    // nothing to close and `shape` stays as it was.
    void CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape);
    void PerformDraw(TevBasicViewer* viewer);

    bool m_bStep1;
    bool m_bStep2;
    bool m_bContinuous;
    int m_EdgeNumber;
};

#endif

// DrawBSplineOp: a B-spline curve through the clicked points, any number of them; a double click
// ends it. The rubber band is the curve interpolating the points so far and the cursor.
//
//   State                   Mouse move                        Left release    Double click
//   no point yet            snapped point kept in m_Point1    first point     makes the curve of
//                                                                             the empty list
//   points, not finished    band from the second point on     further point   makes the curve,
//                                                                             finished
//   finished                the band still follows the mouse  ignored         makes it again
//
// It works as DrawBezierOp (see there for the double click) but for these points: its prompts
// name "BSpline", and "BSpline: Done" comes after the curve is made; a clicked point keeps the
// raw point's z; the curve interpolates its points (periodic false, tolerance 1e-7); and the
// curve is made by BSplineShapeParaCreator::CreateSpline, open.
#ifndef DRAWBSPLINEOP_H
#define DRAWBSPLINEOP_H

#include "DrawOpCommon.h"

#include <TopoDS_Shape.hxx>

class DrawBSplineOp : public DrawOpCommon
{
public:
    DrawBSplineOp();

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool LButtonDoubleClick(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;

    // The creation bracket with the listed points, whatever their number, then "BSpline: Done".
    void PerformDraw(TevBasicViewer* viewer);

private:
    // Appends the point picked from `point`, z included.
    void AddMousePoint(TevBasicViewer* viewer, const double point[3]);
    // The band through the listed points and `point`; the last band stays when there is none.
    void DrawTempLine(TevBasicViewer* viewer, const double point[3]);
    // The band's edge into `shape`, which stays untouched when there is no band (see
    // FreeCurveBand::Points).
    void CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape);
    // Takes m_BSplineActor, the bands and the snap ring away.
    void ClearBands(TevBasicViewer* viewer);

    bool m_bStep1;
    gp_Pnt m_Point1;
    gp_Pnt m_Point2;
    gp_Pnt m_Point3;
    bool m_bContinuous;
    vtkSmartPointer<vtkActor> m_BSplineActor;  // never assigned; removed with the bands
};

#endif

// FreeCurveBand: the rubber band of the free-form curve operations (DrawBezierOp, DrawBSplineOp):
// the curve on the points taken so far and the cursor, rebuilt on every mouse move.
#ifndef FREECURVEBAND_H
#define FREECURVEBAND_H

#include <Geom_Curve.hxx>
#include <Standard_Handle.hxx>
#include <TColgp_HArray1OfPnt.hxx>
#include <TopoDS_Edge.hxx>
#include <gp_Pnt.hxx>
#include <vtkActor.h>
#include <vtkSmartPointer.h>

#include <vector>

class TevBasicViewer;

class FreeCurveBand
{
public:
    // The band's points, 1-based: `listed`, then `cursor`. Null when fewer than two points are
    // listed (no band yet) or when the cursor lies within 1e-5 of a listed point (the last band
    // stays as it is).
    static opencascade::handle<TColgp_HArray1OfPnt> Points(const std::vector<gp_Pnt>& listed, const gp_Pnt& cursor);
    // An edge on the whole of `curve`, with an empty location.
    static TopoDS_Edge Edge(const opencascade::handle<Geom_Curve>& curve);
    // `shape` replaces `band` in the viewer's default renderer; the picture is then rebuilt.
    static void Show(TevBasicViewer* viewer, vtkSmartPointer<vtkActor>& band, TopoDS_Shape& shape);
};

#endif

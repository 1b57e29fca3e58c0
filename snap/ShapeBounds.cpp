#include "ShapeBounds.h"

#include <BRepBndLib.hxx>
#include <BRep_Tool.hxx>
#include <BndLib_Add3dCurve.hxx>
#include <GeomAdaptor_Curve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BezierCurve.hxx>
#include <Precision.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>

#include <algorithm>
#include <cmath>

namespace {

bool g_cullingEnabled = true;

template <class Curve>
void AddPoles(const opencascade::handle<Curve>& curve, Bnd_Box& box)
{
    for (int i = 1; i <= curve->NbPoles(); ++i) box.Add(curve->Pole(i));
}

// Adds an edge's 3D curve over [first, last]; false for a curve kind whose box is not certain.
bool AddCurve(const opencascade::handle<Geom_Curve>& curve, double first, double last, Bnd_Box& box)
{
    const GeomAdaptor_Curve adaptor(curve, first, last);
    switch (adaptor.GetType()) {
    case GeomAbs_Line:
    case GeomAbs_Circle:
    case GeomAbs_Ellipse:
    case GeomAbs_Hyperbola:
    case GeomAbs_Parabola:
        BndLib_Add3dCurve::Add(adaptor, 0.0, box);
        return true;
    case GeomAbs_BezierCurve:
        // The curve lies in the convex hull of its poles, whatever part of it the edge uses.
        AddPoles(adaptor.Bezier(), box);
        return true;
    case GeomAbs_BSplineCurve:
        AddPoles(adaptor.BSpline(), box);
        return true;
    default:
        return false;
    }
}

}  // namespace

Bnd_Box ShapeBounds::Of(const TopoDS_Shape& shape)
{
    Bnd_Box box;
    if (shape.IsNull()) return box;
    // Faces and edges as the picker's sensitive entities are made: from the triangulation.
    BRepBndLib::Add(shape, box, Standard_True);
    for (TopExp_Explorer exp(shape, TopAbs_EDGE); exp.More(); exp.Next()) {
        double first = 0, last = 0;
        opencascade::handle<Geom_Curve> curve = EdgeCurve(exp.Current(), first, last);
        if (curve.IsNull()) continue;
        if (Precision::IsInfinite(first) || Precision::IsInfinite(last) || !AddCurve(curve, first, last, box)) {
            box.SetWhole();
            return box;
        }
    }
    for (TopExp_Explorer exp(shape, TopAbs_VERTEX); exp.More(); exp.Next())
        box.Add(BRep_Tool::Pnt(TopoDS::Vertex(exp.Current())));
    // Rounding of the curve boxes and of the reach tests.
    if (!box.IsVoid()) box.Enlarge(Precision::Confusion());
    return box;
}

opencascade::handle<Geom_Curve> ShapeBounds::EdgeCurve(const TopoDS_Shape& current, double& first, double& last)
{
    TopoDS_Edge edge = TopoDS::Edge(current);
    edge.Infinite(Standard_False);
    return BRep_Tool::Curve(edge, first, last);
}

bool ShapeBounds::LineMayReach(const Bnd_Box& box, const gp_Pnt& origin, const gp_Dir& dir, double tolerance)
{
    if (box.IsVoid()) return false;
    if (box.IsWhole() || box.IsOpen()) return true;
    double lo[3], hi[3];
    box.Get(lo[0], lo[1], lo[2], hi[0], hi[1], hi[2]);
    const double o[3] = {origin.X(), origin.Y(), origin.Z()};
    const double d[3] = {dir.X(), dir.Y(), dir.Z()};
    // The box grown by the tolerance, plus a margin for rounding, against the line: the slabs.
    double tMin = -Precision::Infinite(), tMax = Precision::Infinite();
    for (int i = 0; i < 3; ++i) {
        const double grow = tolerance + 1e-9 * (1.0 + std::fabs(lo[i]) + std::fabs(hi[i]));
        const double a = lo[i] - grow, b = hi[i] + grow;
        if (std::fabs(d[i]) < 1e-12) {
            if (o[i] < a || o[i] > b) return false;
            continue;
        }
        double t0 = (a - o[i]) / d[i], t1 = (b - o[i]) / d[i];
        if (t0 > t1) std::swap(t0, t1);
        tMin = std::max(tMin, t0);
        tMax = std::min(tMax, t1);
        if (tMin > tMax) return false;
    }
    return true;
}

bool ShapeBounds::CullingEnabled()
{
    return g_cullingEnabled;
}

void ShapeBounds::EnableCulling(bool on)
{
    g_cullingEnabled = on;
}

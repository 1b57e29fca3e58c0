#include "BSplineShapeParaCreator.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <GeomAPI_Interpolate.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>
#include <TColgp_HArray1OfPnt.hxx>

TDF_Label BSplineShapeParaCreator::CreateSpline(std::vector<gp_Pnt> points, bool closed)
{
    static const char* const op = "CreateSpline";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        // Interpolation through the same point twice in a row has no solution: such repeats
        // are dropped, and a closed curve does not repeat its first point at the end.
        std::vector<gp_Pnt> pts;
        for (const gp_Pnt& p : points)
            if (pts.empty() || pts.back().Distance(p) > tol) pts.push_back(p);
        if (closed && pts.size() > 1 && pts.back().Distance(pts.front()) <= tol) pts.pop_back();
        const size_t needed = closed ? 3 : 2;
        if (pts.size() < needed)
            return Fail(op, QObject::tr("a %1 spline needs at least %2 distinct points, %3 given")
                                .arg(closed ? QObject::tr("closed") : QObject::tr("open"))
                                .arg(needed)
                                .arg(pts.size()));
        opencascade::handle<TColgp_HArray1OfPnt> array = new TColgp_HArray1OfPnt(1, static_cast<int>(pts.size()));
        for (size_t i = 0; i < pts.size(); ++i) array->SetValue(static_cast<int>(i) + 1, pts[i]);
        GeomAPI_Interpolate interpolate(array, closed ? Standard_True : Standard_False, tol);
        interpolate.Perform();
        if (!interpolate.IsDone()) return Fail(op, QObject::tr("no spline interpolates the points"));
        opencascade::handle<Geom_BSplineCurve> curve = interpolate.Curve();
        BRepBuilderAPI_MakeEdge edge(curve);
        if (!edge.IsDone() || !IsValidResult(edge.Shape()))
            return Fail(op, QObject::tr("no spline interpolates the points"));
        return RegisterShape(edge.Edge(), "BSpline", {Param("Points", pts), Param("Closed", closed ? 1.0 : 0.0)});
    });
}

#include "ArcShapeParaCreator.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <GC_MakeArcOfCircle.hxx>
#include <Geom_Circle.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label ArcShapeParaCreator::CreateArc(gp_Pnt start, gp_Pnt through, gp_Pnt end)
{
    static const char* const op = "CreateArc";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (start.Distance(through) <= tol || through.Distance(end) <= tol || start.Distance(end) <= tol)
            return Fail(op, QObject::tr("two of the three points coincide"));
        GC_MakeArcOfCircle arc(start, through, end);
        if (!arc.IsDone()) return Fail(op, QObject::tr("the three points are collinear"));
        opencascade::handle<Geom_TrimmedCurve> curve = arc.Value();
        BRepBuilderAPI_MakeEdge edge(curve);
        if (!edge.IsDone() || !IsValidResult(edge.Shape()))
            return Fail(op, QObject::tr("no arc can be made through the three points"));
        opencascade::handle<Geom_Circle> circle = opencascade::handle<Geom_Circle>::DownCast(curve->BasisCurve());
        std::vector<ShapeParameter> params{Param("Start", start), Param("Through", through), Param("End", end)};
        if (!circle.IsNull()) {
            params.push_back(Param("Center", circle->Location()));
            params.push_back(Param("Normal", circle->Axis().Direction()));
            params.push_back(Param("Radius", circle->Radius()));
        }
        return RegisterShape(edge.Edge(), "Arc", params);
    });
}

#include "BezierShapeParaCreator.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <Geom_BezierCurve.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>
#include <TColgp_Array1OfPnt.hxx>

TDF_Label BezierShapeParaCreator::CreateBeizer(std::vector<gp_Pnt> points)
{
    static const char* const op = "CreateBeizer";
    return Guarded(op, [&]() -> TDF_Label {
        // A point clicked twice in a row adds nothing the user meant and would leave the curve
        // without a tangent at that pole.
        std::vector<gp_Pnt> poles;
        for (const gp_Pnt& p : points)
            if (poles.empty() || poles.back().Distance(p) > Precision::Confusion()) poles.push_back(p);
        if (poles.size() < 2)
            return Fail(op, QObject::tr("a Bezier curve needs at least 2 distinct points, %1 given").arg(poles.size()));
        const size_t maxPoles = static_cast<size_t>(Geom_BezierCurve::MaxDegree()) + 1;
        if (poles.size() > maxPoles)
            return Fail(op, QObject::tr("a Bezier curve takes at most %1 points, %2 given").arg(maxPoles).arg(poles.size()));
        TColgp_Array1OfPnt array(1, static_cast<int>(poles.size()));
        for (size_t i = 0; i < poles.size(); ++i) array.SetValue(static_cast<int>(i) + 1, poles[i]);
        opencascade::handle<Geom_BezierCurve> curve = new Geom_BezierCurve(array);
        BRepBuilderAPI_MakeEdge edge(curve);
        if (!edge.IsDone() || !IsValidResult(edge.Shape()))
            return Fail(op, QObject::tr("no curve can be made on the points"));
        return RegisterShape(edge.Edge(), "Bezier", {Param("Poles", poles)});
    });
}

#include "TriangleFaceShapeParaCreator.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>
#include <gp_Vec.hxx>

TDF_Label TriangleFaceShapeParaCreator::CreateTriangle(std::vector<gp_Pnt> points)
{
    static const char* const op = "CreateTriangle";
    return Guarded(op, [&]() -> TDF_Label {
        if (points.size() != 3)
            return Fail(op, QObject::tr("a triangle needs 3 points, not %1").arg(points.size()));
        const double tol = Precision::Confusion();
        const gp_Pnt &a = points[0], &b = points[1], &c = points[2];
        if (a.Distance(b) <= tol || b.Distance(c) <= tol || a.Distance(c) <= tol)
            return Fail(op, QObject::tr("two of the three points coincide"));
        const gp_Vec ab(a, b), ac(a, c);
        // The sine of the angle at the first point: scale-free test of collinearity.
        if (ab.Crossed(ac).Magnitude() <= 1e-9 * ab.Magnitude() * ac.Magnitude())
            return Fail(op, QObject::tr("the three points are collinear"));
        BRepBuilderAPI_MakePolygon polygon(a, b, c, Standard_True);
        if (!polygon.IsDone()) return Fail(op, QObject::tr("no triangle can be made"));
        BRepBuilderAPI_MakeFace face(polygon.Wire(), Standard_True);
        if (!face.IsDone() || !IsValidResult(face.Shape())) return Fail(op, QObject::tr("no triangle can be made"));
        return RegisterShape(face.Face(), "Triangle", {Param("Point1", a), Param("Point2", b), Param("Point3", c)});
    });
}

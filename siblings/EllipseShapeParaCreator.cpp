#include "EllipseShapeParaCreator.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <GC_MakeEllipse.hxx>
#include <Geom_Ellipse.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>
#include <gp_Lin.hxx>

TDF_Label EllipseShapeParaCreator::CreateEllipse(gp_Pnt axisPoint1, gp_Pnt axisPoint2, gp_Pnt centre)
{
    static const char* const op = "CreateEllipse";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        const double r1 = axisPoint1.Distance(centre);
        if (!(r1 > tol)) return Fail(op, QObject::tr("the first axis point coincides with the centre"));
        const gp_Lin firstAxis(centre, gp_Dir(gp_Vec(centre, axisPoint1)));
        const double d2 = firstAxis.Distance(axisPoint2);
        if (!(d2 > tol)) return Fail(op, QObject::tr("the second axis point lies on the first axis"));
        // The longer semi-axis goes first, as in the rubber band shown while the user chose.
        const gp_Pnt& major = r1 > d2 ? axisPoint1 : axisPoint2;
        const gp_Pnt& minor = r1 > d2 ? axisPoint2 : axisPoint1;
        GC_MakeEllipse maker(major, minor, centre);
        if (!maker.IsDone()) return Fail(op, QObject::tr("the three points do not define an ellipse"));
        opencascade::handle<Geom_Ellipse> ellipse = maker.Value();
        BRepBuilderAPI_MakeEdge edge(ellipse);
        if (!edge.IsDone() || !IsValidResult(edge.Shape())) return Fail(op, QObject::tr("no ellipse can be made"));
        return RegisterShape(edge.Edge(), "Ellipse",
                             {Param("AxisPoint1", axisPoint1), Param("AxisPoint2", axisPoint2), Param("Center", centre),
                              Param("MajorRadius", ellipse->MajorRadius()), Param("MinorRadius", ellipse->MinorRadius())});
    });
}

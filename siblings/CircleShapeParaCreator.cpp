#include "CircleShapeParaCreator.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>
#include <gp.hxx>
#include <gp_Circ.hxx>

TDF_Label CircleShapeParaCreator::CreateCircle(gp_Pnt centre, double radius)
{
    static const char* const op = "CreateCircle";
    return Guarded(op, [&]() -> TDF_Label {
        if (!(radius > Precision::Confusion()))
            return Fail(op, QObject::tr("the radius must be greater than 0"));
        gp_Circ circle(MakeAxes(centre, gp::DZ()), radius);
        BRepBuilderAPI_MakeEdge edge(circle);
        if (!edge.IsDone() || !IsValidResult(edge.Shape())) return Fail(op, QObject::tr("no circle can be made"));
        return RegisterShape(edge.Edge(), "Circle",
                             {Param("Center", centre), Param("Normal", gp::DZ()), Param("Radius", radius)});
    });
}

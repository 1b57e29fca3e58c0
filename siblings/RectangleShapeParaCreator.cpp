#include "RectangleShapeParaCreator.h"

#include <BRepBuilderAPI_MakePolygon.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label RectangleShapeParaCreator::CreateRectangle(gp_Pnt corner, double dx, double dy)
{
    static const char* const op = "CreateRectangle";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (!(std::abs(dx) > tol) || !(std::abs(dy) > tol))
            return Fail(op, QObject::tr("the width and the height must not be 0"));
        const double x = corner.X(), y = corner.Y(), z = corner.Z();
        BRepBuilderAPI_MakePolygon polygon(gp_Pnt(x, y, z), gp_Pnt(x + dx, y, z), gp_Pnt(x + dx, y + dy, z),
                                           gp_Pnt(x, y + dy, z), Standard_True);
        if (!polygon.IsDone() || !IsValidResult(polygon.Shape()))
            return Fail(op, QObject::tr("no rectangle can be made"));
        return RegisterShape(polygon.Wire(), "Rectangle", {Param("Corner", corner), Param("DX", dx), Param("DY", dy)});
    });
}

#include "CylinderShapeParaCreator.h"

#include <BRepPrimAPI_MakeCylinder.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label CylinderShapeParaCreator::CreateCylinder(gp_Pnt centre, gp_Dir dir, double radius, double height, double angle)
{
    static const char* const op = "CreateCylinder";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (!(radius > tol)) return Fail(op, QObject::tr("the radius must be greater than 0"));
        if (!(std::abs(height) > tol)) return Fail(op, QObject::tr("the height must not be 0"));
        if (!(angle > 0.0) || angle > 360.0)
            return Fail(op, QObject::tr("the angle must be greater than 0 and at most 360 degrees, not %1").arg(angle));
        const gp_Ax2 axes = MakeAxes(centre, height < 0 ? dir.Reversed() : dir);
        BRepPrimAPI_MakeCylinder cylinder(axes, radius, std::abs(height), angle * M_PI / 180.0);
        cylinder.Build();
        if (!cylinder.IsDone() || !IsValidResult(cylinder.Shape()))
            return Fail(op, QObject::tr("no cylinder can be made"));
        return RegisterShape(cylinder.Solid(), "Cylinder",
                             {Param("Center", centre), Param("Direction", dir), Param("Radius", radius),
                              Param("Height", height), Param("Angle", angle)});
    });
}

#include "TruncatedConeShapeParaCreator.h"

#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <Precision.hxx>
#include <QObject>
#include <gp.hxx>

#include <cmath>

TDF_Label TruncatedConeShapeParaCreator::CreateCone(gp_Pnt centre, double& bottomRadius, double& topRadius,
                                                    double& height, double& angle)
{
    static const char* const op = "CreateCone";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (!(bottomRadius > tol)) return Fail(op, QObject::tr("the bottom radius must be greater than 0"));
        if (!(topRadius >= 0.0)) return Fail(op, QObject::tr("the top radius must not be negative"));
        if (!(std::abs(height) > tol)) return Fail(op, QObject::tr("the height must not be 0"));
        if (!(angle > 0.0) || angle > 360.0)
            return Fail(op, QObject::tr("the angle must be greater than 0 and at most 360 degrees, not %1").arg(angle));
        const gp_Ax2 axes = MakeAxes(centre, height < 0 ? -gp::DZ() : gp::DZ());
        const double h = std::abs(height), a = angle * M_PI / 180.0;
        TopoDS_Shape solid;
        if (std::abs(bottomRadius - topRadius) <= tol) {
            // Equal radii: the truncated cone is a cylinder, which the cone maker refuses.
            BRepPrimAPI_MakeCylinder cylinder(axes, bottomRadius, h, a);
            cylinder.Build();
            if (cylinder.IsDone()) solid = cylinder.Solid();
        } else {
            BRepPrimAPI_MakeCone cone(axes, bottomRadius, topRadius <= tol ? 0.0 : topRadius, h, a);
            cone.Build();
            if (cone.IsDone()) solid = cone.Solid();
        }
        if (!IsValidResult(solid)) return Fail(op, QObject::tr("no truncated cone can be made"));
        return RegisterShape(solid, "TruncatedCone",
                             {Param("Center", centre), Param("BottomRadius", bottomRadius), Param("TopRadius", topRadius),
                              Param("Height", height), Param("Angle", angle)});
    });
}

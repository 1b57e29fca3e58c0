#include "SphereShapeParaCreator.h"

#include <BRepPrimAPI_MakeSphere.hxx>
#include <Precision.hxx>
#include <QObject>
#include <gp.hxx>

#include <cmath>

TDF_Label SphereShapeParaCreator::CreateSphere(gp_Pnt centre, double radius, double angle1, double angle2, double angle3)
{
    static const char* const op = "CreateSphere";
    return Guarded(op, [&]() -> TDF_Label {
        if (!(radius > Precision::Confusion())) return Fail(op, QObject::tr("the radius must be greater than 0"));
        if (!(angle1 >= -90.0) || !(angle2 <= 90.0) || !(angle1 < angle2))
            return Fail(op, QObject::tr("the latitudes must satisfy -90 <= angle1 < angle2 <= 90, not %1, %2")
                                .arg(angle1)
                                .arg(angle2));
        if (!(angle3 > 0.0) || angle3 > 360.0)
            return Fail(op, QObject::tr("the angle must be greater than 0 and at most 360 degrees, not %1").arg(angle3));
        const gp_Ax2 axes = MakeAxes(centre, gp::DZ());
        const double k = M_PI / 180.0;
        TopoDS_Shape solid;
        if (angle1 == -90.0 && angle2 == 90.0 && angle3 == 360.0) {
            BRepPrimAPI_MakeSphere sphere(axes, radius);
            sphere.Build();
            if (sphere.IsDone()) solid = sphere.Solid();
        } else {
            BRepPrimAPI_MakeSphere sphere(axes, radius, angle1 * k, angle2 * k, angle3 * k);
            sphere.Build();
            if (sphere.IsDone()) solid = sphere.Solid();
        }
        if (!IsValidResult(solid)) return Fail(op, QObject::tr("no sphere can be made"));
        return RegisterShape(solid, "Sphere",
                             {Param("Center", centre), Param("Radius", radius), Param("Angle1", angle1),
                              Param("Angle2", angle2), Param("Angle3", angle3)});
    });
}

#include "TorousShapeParaCreator.h"

#include <BRepPrimAPI_MakeTorus.hxx>
#include <Precision.hxx>
#include <QObject>
#include <gp.hxx>

#include <cmath>

TDF_Label TorousShapeParaCreator::CreateTorous(gp_Pnt centre, double& majorRadius, double& sweepRadius, double& angle1,
                                               double& angle2, double& angle3)
{
    static const char* const op = "CreateTorous";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (!(majorRadius > tol)) return Fail(op, QObject::tr("the major radius must be greater than 0"));
        if (!(sweepRadius > tol)) return Fail(op, QObject::tr("the sweep radius must be greater than 0"));
        if (sweepRadius > majorRadius)
            return Fail(op, QObject::tr("the sweep radius %1 is greater than the major radius %2")
                                .arg(sweepRadius)
                                .arg(majorRadius));
        if (!(angle1 < angle2) || angle2 - angle1 > 360.0)
            return Fail(op, QObject::tr("the section angles must satisfy angle1 < angle2 <= angle1 + 360, not %1, %2")
                                .arg(angle1)
                                .arg(angle2));
        if (!(angle3 > 0.0) || angle3 > 360.0)
            return Fail(op, QObject::tr("the angle must be greater than 0 and at most 360 degrees, not %1").arg(angle3));
        const gp_Ax2 axes = MakeAxes(centre, gp::DZ());
        const double k = M_PI / 180.0;
        TopoDS_Shape solid;
        if (angle2 - angle1 == 360.0) {
            // The whole tube section, whatever angle it starts at.
            BRepPrimAPI_MakeTorus torus(axes, majorRadius, sweepRadius, angle3 * k);
            torus.Build();
            if (torus.IsDone()) solid = torus.Solid();
        } else {
            BRepPrimAPI_MakeTorus torus(axes, majorRadius, sweepRadius, angle1 * k, angle2 * k, angle3 * k);
            torus.Build();
            if (torus.IsDone()) solid = torus.Solid();
        }
        if (!IsValidResult(solid)) return Fail(op, QObject::tr("no torus can be made"));
        return RegisterShape(solid, "Torus",
                             {Param("Center", centre), Param("MajorRadius", majorRadius),
                              Param("SweepRadius", sweepRadius), Param("Angle1", angle1), Param("Angle2", angle2),
                              Param("Angle3", angle3)});
    });
}

#include "RevolveShapeParaCreator.h"

#include "ShapeLabelMgr.h"

#include <BRepPrimAPI_MakeRevol.hxx>
#include <QObject>
#include <TopExp_Explorer.hxx>
#include <gp_Ax1.hxx>

#include <cmath>

TDF_Label RevolveShapeParaCreator::CreateRevolve(TopoDS_Shape shape, gp_Pnt point, gp_Dir dir, double angle)
{
    static const char* const op = "CreateRevolve";
    return Guarded(op, [&]() -> TDF_Label {
        if (shape.IsNull()) return Fail(op, QObject::tr("there is no shape to revolve"));
        if (TopExp_Explorer(shape, TopAbs_SOLID).More()) return Fail(op, QObject::tr("a solid cannot be revolved"));
        if (!(std::abs(angle) > 0.0) || std::abs(angle) > 360.0)
            return Fail(op, QObject::tr("the angle must not be 0 and at most 360 degrees, not %1").arg(angle));
        // A negative angle turns the other way: about the reversed axis.
        const gp_Ax1 axis(point, angle < 0 ? dir.Reversed() : dir);
        const double a = std::abs(angle);
        TopoDS_Shape result;
        if (a == 360.0) {
            BRepPrimAPI_MakeRevol revol(shape, axis, Standard_True);
            revol.Build();
            if (revol.IsDone()) result = revol.Shape();
        } else {
            BRepPrimAPI_MakeRevol revol(shape, axis, a * M_PI / 180.0, Standard_True);
            revol.Build();
            if (revol.IsDone()) result = revol.Shape();
        }
        if (!IsValidResult(result)) return Fail(op, QObject::tr("the revolution failed"));
        return RegisterShape(result, "Revolve",
                             {Param("AxisPoint", point), Param("AxisDirection", dir), Param("Angle", angle),
                              TextParam("Source", ShapeLabelMgr::GetInstance()->GetShapeName(&shape))});
    });
}

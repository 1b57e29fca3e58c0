#include "BoxShapeParaCreator.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label BoxShapeParaCreator::CreateBox(gp_Ax2 placement, double dx, double dy, double height)
{
    static const char* const op = "CreateBox";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (!(std::abs(dx) > tol) || !(std::abs(dy) > tol) || !(std::abs(height) > tol))
            return Fail(op, QObject::tr("the sizes must not be 0 (dx %1, dy %2, height %3)").arg(dx).arg(dy).arg(height));
        // A negative size spans the box from the origin backwards along that axis.
        gp_Pnt origin = placement.Location();
        if (dx < 0) origin.Translate(gp_Vec(placement.XDirection()) * dx);
        if (dy < 0) origin.Translate(gp_Vec(placement.YDirection()) * dy);
        if (height < 0) origin.Translate(gp_Vec(placement.Direction()) * height);
        const gp_Ax2 axes(origin, placement.Direction(), placement.XDirection());
        BRepPrimAPI_MakeBox box(axes, std::abs(dx), std::abs(dy), std::abs(height));
        box.Build();
        if (!box.IsDone() || !IsValidResult(box.Shape())) return Fail(op, QObject::tr("no box can be made"));
        return RegisterShape(box.Solid(), "Box",
                             {Param("Origin", placement.Location()), Param("Direction", placement.Direction()),
                              Param("XDirection", placement.XDirection()), Param("DX", dx), Param("DY", dy),
                              Param("Height", height)});
    });
}

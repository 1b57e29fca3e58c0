#include "WedgeShapeParaCreator.h"

#include <BRepPrimAPI_MakeWedge.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label WedgeShapeParaCreator::CreateWedge(gp_Pnt base, gp_Dir dir, double dx, double dy, double height,
                                             double topXMin, double topYMin, double topXMax, double topYMax)
{
    static const char* const op = "CreateWedge";
    return Guarded(op, [&]() -> TDF_Label {
        const double tol = Precision::Confusion();
        if (!(dx > tol) || !(dy > tol) || !(height > tol))
            return Fail(op, QObject::tr("dx, dy and the height must be greater than 0 (dx %1, dy %2, height %3)")
                                .arg(dx)
                                .arg(dy)
                                .arg(height));
        if (!std::isfinite(topXMin) || !std::isfinite(topXMax) || !std::isfinite(topYMin) || !std::isfinite(topYMax) ||
            topXMin > topXMax || topYMin > topYMax)
            return Fail(op, QObject::tr("the top face needs X min <= X max and Y min <= Y max"));
        const gp_Ax2 frame = MakeAxes(base, dir);
        // The kernel's wedge tapers along its own Y axis: that axis is `dir` here, its X axis the
        // base's Y direction and its main direction the base's X direction.
        const gp_Ax2 axes(base, frame.XDirection(), frame.YDirection());
        BRepPrimAPI_MakeWedge wedge(axes, dy, height, dx, topYMin * dy, topXMin * dx, topYMax * dy, topXMax * dx);
        wedge.Build();
        if (!wedge.IsDone() || !IsValidResult(wedge.Shape())) return Fail(op, QObject::tr("no wedge can be made"));
        return RegisterShape(wedge.Solid(), "Wedge",
                             {Param("Origin", base), Param("Direction", dir), Param("DX", dx), Param("DY", dy),
                              Param("Height", height), Param("TopXMin", topXMin), Param("TopYMin", topYMin),
                              Param("TopXMax", topXMax), Param("TopYMax", topYMax)});
    });
}

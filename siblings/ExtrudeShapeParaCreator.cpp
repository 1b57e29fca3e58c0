#include "ExtrudeShapeParaCreator.h"

#include "ShapeLabelMgr.h"

#include <BRepPrimAPI_MakePrism.hxx>
#include <Precision.hxx>
#include <QObject>
#include <TopExp_Explorer.hxx>

#include <cmath>

TDF_Label ExtrudeShapeParaCreator::CreateExtrude(TopoDS_Shape shape, gp_Vec& dir, double& height)
{
    static const char* const op = "CreateExtrude";
    return Guarded(op, [&]() -> TDF_Label {
        if (shape.IsNull()) return Fail(op, QObject::tr("there is no shape to extrude"));
        if (TopExp_Explorer(shape, TopAbs_SOLID).More())
            return Fail(op, QObject::tr("a solid cannot be extruded"));
        if (!(dir.Magnitude() > Precision::Confusion())) return Fail(op, QObject::tr("the direction is a zero vector"));
        if (!(std::abs(height) > Precision::Confusion())) return Fail(op, QObject::tr("the height must not be 0"));
        const gp_Dir unit(dir);
        // A copy keeps the prism's topology apart from the source, which stays in the document.
        BRepPrimAPI_MakePrism prism(shape, gp_Vec(unit) * height, Standard_True);
        prism.Build();
        if (!prism.IsDone() || !IsValidResult(prism.Shape())) return Fail(op, QObject::tr("the extrusion failed"));
        return RegisterShape(prism.Shape(), "Extrude",
                             {Param("Direction", unit), Param("Height", height),
                              TextParam("Source", ShapeLabelMgr::GetInstance()->GetShapeName(&shape))});
    });
}

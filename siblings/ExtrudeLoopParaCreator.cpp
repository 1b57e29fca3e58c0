#include "ExtrudeLoopParaCreator.h"

#include <BRepPrimAPI_MakePrism.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label ExtrudeLoopParaCreator::CreateExtrudeByLoop(TopoDS_Face face, gp_Dir dir, double height)
{
    static const char* const op = "CreateExtrudeByLoop";
    return Guarded(op, [&]() -> TDF_Label {
        if (face.IsNull()) return Fail(op, QObject::tr("there is no face to extrude"));
        if (!(std::abs(height) > Precision::Confusion())) return Fail(op, QObject::tr("the height must not be 0"));
        if (!IsValidResult(face)) return Fail(op, QObject::tr("the loop does not bound a valid face"));
        BRepPrimAPI_MakePrism prism(face, gp_Vec(dir) * height, Standard_True);
        prism.Build();
        if (!prism.IsDone() || !IsValidResult(prism.Shape())) return Fail(op, QObject::tr("the extrusion failed"));
        return RegisterShape(prism.Shape(), "Extrude", {Param("Direction", dir), Param("Height", height)});
    });
}

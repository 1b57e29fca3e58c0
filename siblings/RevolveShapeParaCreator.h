// RevolveShapeParaCreator: The revolution of a vertex, edge, wire, face or shell about the axis through `point`
// along `dir`, over `angle` degrees (a negative angle turns the other way; 360 is a full turn).
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef REVOLVESHAPEPARACREATOR_H
#define REVOLVESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TopoDS_Shape.hxx>
#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class RevolveShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateRevolve(TopoDS_Shape shape, gp_Pnt point, gp_Dir dir, double angle);
};

#endif

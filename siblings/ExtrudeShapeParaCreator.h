// ExtrudeShapeParaCreator: A prism of a vertex, edge, wire, face or shell along `dir` over `height`: an edge
// gives a face, a wire a shell, a face a solid. A negative height extrudes the other way.
// The source shape stays as it is.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef EXTRUDESHAPEPARACREATOR_H
#define EXTRUDESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TopoDS_Shape.hxx>
#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class ExtrudeShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateExtrude(TopoDS_Shape shape, gp_Vec& dir, double& height);
};

#endif

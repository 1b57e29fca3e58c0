// PipeShapeParaCreator: The sweep of a profile (vertex, edge, wire, face or shell) along a path wire.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef PIPESHAPEPARACREATOR_H
#define PIPESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TopoDS_Wire.hxx>
#include <TopoDS_Shape.hxx>
#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class PipeShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreatePipe(TopoDS_Wire& path, TopoDS_Shape& profile);
};

#endif

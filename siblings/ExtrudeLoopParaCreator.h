// ExtrudeLoopParaCreator: A solid prism of a face along `dir` over `height`; a negative height extrudes the other
// way.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef EXTRUDELOOPPARACREATOR_H
#define EXTRUDELOOPPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TopoDS_Face.hxx>
#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class ExtrudeLoopParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateExtrudeByLoop(TopoDS_Face face, gp_Dir dir, double height);
};

#endif

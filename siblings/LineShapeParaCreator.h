// LineShapeParaCreator: A straight edge between two points.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef LINESHAPEPARACREATOR_H
#define LINESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class LineShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateLine(gp_Pnt& start, gp_Pnt& end);
};

#endif

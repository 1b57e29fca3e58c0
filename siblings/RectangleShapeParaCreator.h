// RectangleShapeParaCreator: A closed wire of four edges, axis-aligned in world X and Y at the height of the
// corner. dx and dy are signed: the rectangle lies on the side they point to.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef RECTANGLESHAPEPARACREATOR_H
#define RECTANGLESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class RectangleShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateRectangle(gp_Pnt corner, double dx, double dy);
};

#endif

// BoxShapeParaCreator: A box on the placement's origin along its X direction, Y direction and main
// direction. Signed sizes: a negative size puts the box on the other side of the origin.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef BOXSHAPEPARACREATOR_H
#define BOXSHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class BoxShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateBox(gp_Ax2 placement, double dx, double dy, double height);
};

#endif

// CircleShapeParaCreator: A full circle edge in the plane normal to the world Z axis through the centre.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef CIRCLESHAPEPARACREATOR_H
#define CIRCLESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class CircleShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateCircle(gp_Pnt centre, double radius);
};

#endif

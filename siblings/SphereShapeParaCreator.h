// SphereShapeParaCreator: A sphere, or a zone of one, about the world Z axis through `centre`. angle1 and angle2
// are the lower and upper latitudes in degrees, -90 <= angle1 < angle2 <= 90; angle3 is the
// sweep about the axis, in (0, 360].
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef SPHERESHAPEPARACREATOR_H
#define SPHERESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class SphereShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateSphere(gp_Pnt centre, double radius, double angle1, double angle2, double angle3);
};

#endif

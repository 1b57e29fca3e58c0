// TorousShapeParaCreator: A torus about the world Z axis through `centre`. angle1 and angle2, in degrees, bound
// the section circle of the tube (angle1 < angle2, at most 360 apart; -180, 180 is the whole
// tube); angle3 is the sweep about the axis, in (0, 360]. The sweep radius must not exceed the
// major radius.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef TOROUSSHAPEPARACREATOR_H
#define TOROUSSHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class TorousShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateTorous(gp_Pnt centre, double& majorRadius, double& sweepRadius, double& angle1, double& angle2,
                           double& angle3);
};

#endif

// CylinderShapeParaCreator: A cylinder or a cylinder sector standing on `centre` along `dir`. A negative height
// builds it on the other side of the base; the angle in degrees is in (0, 360].
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef CYLINDERSHAPEPARACREATOR_H
#define CYLINDERSHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class CylinderShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateCylinder(gp_Pnt centre, gp_Dir dir, double radius, double height, double angle);
};

#endif

// TruncatedConeShapeParaCreator: A truncated cone on `centre` along the world Z axis. A top radius of 0 gives a pointed
// cone, a top radius equal to the bottom one a cylinder. A negative height builds it below the
// base; the angle in degrees is in (0, 360].
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef TRUNCATEDCONESHAPEPARACREATOR_H
#define TRUNCATEDCONESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class TruncatedConeShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateCone(gp_Pnt centre, double& bottomRadius, double& topRadius, double& height, double& angle);
};

#endif

// EllipseShapeParaCreator: A full ellipse edge from a centre and two axis points, built like the rubber band the
// user saw: the axis point farther from the centre than the other point is from the first axis
// becomes the end of the major axis.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef ELLIPSESHAPEPARACREATOR_H
#define ELLIPSESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class EllipseShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateEllipse(gp_Pnt axisPoint1, gp_Pnt axisPoint2, gp_Pnt centre);
};

#endif

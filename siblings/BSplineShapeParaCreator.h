// BSplineShapeParaCreator: A B-spline edge interpolating the given points, periodic when `closed`. A point that
// repeats the one before it is dropped; at least 2 distinct points are needed (3 when closed).
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef BSPLINESHAPEPARACREATOR_H
#define BSPLINESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

#include <vector>

class BSplineShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateSpline(std::vector<gp_Pnt> points, bool closed);
};

#endif

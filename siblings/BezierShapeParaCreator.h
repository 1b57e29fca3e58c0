// BezierShapeParaCreator: A Bezier curve edge whose poles are the given points. A point that repeats the one
// before it is dropped; 2 to 26 distinct poles are needed.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef BEZIERSHAPEPARACREATOR_H
#define BEZIERSHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

#include <vector>

class BezierShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateBeizer(std::vector<gp_Pnt> points);
};

#endif

// TriangleFaceShapeParaCreator: A planar triangular face on exactly three points that are not collinear.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef TRIANGLEFACESHAPEPARACREATOR_H
#define TRIANGLEFACESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

#include <vector>

class TriangleFaceShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateTriangle(std::vector<gp_Pnt> points);
};

#endif

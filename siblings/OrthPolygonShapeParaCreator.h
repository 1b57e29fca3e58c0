// OrthPolygonShapeParaCreator: A regular polygon as a closed wire: `vertex` turned about the world Z axis through
// `centre` in equal steps. Between 3 and 1000 edges.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef ORTHPOLYGONSHAPEPARACREATOR_H
#define ORTHPOLYGONSHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class OrthPolygonShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateOrthPolygon(gp_Pnt centre, gp_Pnt vertex, int edgeNumber);
};

#endif

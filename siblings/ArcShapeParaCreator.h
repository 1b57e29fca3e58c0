// ArcShapeParaCreator: A circular arc edge from the first point through the second to the third.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef ARCSHAPEPARACREATOR_H
#define ARCSHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class ArcShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateArc(gp_Pnt start, gp_Pnt through, gp_Pnt end);
};

#endif

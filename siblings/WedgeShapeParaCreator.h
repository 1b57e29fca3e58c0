// WedgeShapeParaCreator: A wedge: a base rectangle dx by dy at `base` (X along world X projected on the base
// plane, Y completing the frame), and a top face at `height` along `dir`. The four further
// values place the top face as fractions of the base: X from `topXMin` * dx to `topXMax` * dx,
// Y from `topYMin` * dy to `topYMax` * dy. Equal minimum and maximum make the top an edge
// or a point; (0, 0, 1, 0) is a ramp falling from the base's edge at Y = 0.
// Returns the new shape's label, or a null label with one level-2 message for input it cannot use.
#ifndef WEDGESHAPEPARACREATOR_H
#define WEDGESHAPEPARACREATOR_H

#include "BaseShapeParaCreator.h"

#include <TDF_Label.hxx>
#include <gp_Pnt.hxx>

class WedgeShapeParaCreator : public BaseShapeParaCreator
{
public:
    TDF_Label CreateWedge(gp_Pnt base, gp_Dir dir, double dx, double dy, double height, double topXMin,
                          double topYMin, double topXMax, double topYMax);
};

#endif

// ShapeActorLook: the look of a shape's actor as every rebuild leaves it: the defaults (line
// width 2, lighting, no edges, Gouraud, magenta, surface), then the colour, opacity and
// visibility kept on the shape's label when the document holds the shape. A rebuild applies it
// again to each actor it keeps, so that changes made to the actor alone last until then only.
#ifndef SHAPEACTORLOOK_H
#define SHAPEACTORLOOK_H

#include <TDF_Label.hxx>

class vtkActor;

class ShapeActorLook
{
public:
    // The look kept on `label`: the shape's label in the document, null for a shape the
    // document does not hold (the defaults then).
    static ShapeActorLook Read(const TDF_Label& label);
    void Apply(vtkActor* actor) const;
    static void Apply(vtkActor* actor, const TDF_Label& label) { Read(label).Apply(actor); }

    bool operator==(const ShapeActorLook& other) const;
    bool operator!=(const ShapeActorLook& other) const { return !(*this == other); }

private:
    bool m_visible = true;
    double m_opacity = 1.0;
    double m_colour[3] = {0.8, 0.0, 0.8};
};

#endif

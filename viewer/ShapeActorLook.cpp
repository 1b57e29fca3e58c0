#include "ShapeActorLook.h"

#include "BaseShapeParaCreator.h"

#include <vtkActor.h>
#include <vtkProperty.h>

ShapeActorLook ShapeActorLook::Read(const TDF_Label& label)
{
    ShapeActorLook look;
    if (label.IsNull()) return look;
    gp_Pnt colour(0.8, 0.0, 0.8);
    TDF_Label found = label;
    BaseShapeParaCreator().GetCommonAttribute(found, look.m_visible, look.m_opacity, colour);
    look.m_colour[0] = colour.X();
    look.m_colour[1] = colour.Y();
    look.m_colour[2] = colour.Z();
    return look;
}

void ShapeActorLook::Apply(vtkActor* actor) const
{
    vtkProperty* prop = actor->GetProperty();
    prop->SetLineWidth(2.0);
    prop->SetLighting(true);
    prop->SetEdgeVisibility(false);
    prop->SetInterpolationToGouraud();
    prop->SetRepresentationToSurface();
    prop->SetColor(m_colour[0], m_colour[1], m_colour[2]);
    prop->SetOpacity(m_opacity);
    actor->SetVisibility(m_visible);
}

bool ShapeActorLook::operator==(const ShapeActorLook& other) const
{
    return m_visible == other.m_visible && m_opacity == other.m_opacity && m_colour[0] == other.m_colour[0] &&
           m_colour[1] == other.m_colour[1] && m_colour[2] == other.m_colour[2];
}

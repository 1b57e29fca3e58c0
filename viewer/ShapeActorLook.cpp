#include "ShapeActorLook.h"

#include "BaseShapeParaCreator.h"

#include <vtkActor.h>
#include <vtkProperty.h>

void ShapeActorLook::Apply(vtkActor* actor, const TDF_Label& label)
{
    vtkProperty* prop = actor->GetProperty();
    prop->SetLineWidth(2.0);
    prop->SetLighting(true);
    prop->SetEdgeVisibility(false);
    prop->SetInterpolationToGouraud();
    prop->SetColor(0.8, 0.0, 0.8);
    prop->SetRepresentationToSurface();
    prop->SetOpacity(1.0);
    actor->SetVisibility(true);

    if (label.IsNull()) return;

    bool visible = true;
    double opacity = 1.0;
    gp_Pnt colour(0.8, 0.0, 0.8);
    TDF_Label found = label;
    BaseShapeParaCreator().GetCommonAttribute(found, visible, opacity, colour);
    prop->SetColor(colour.X(), colour.Y(), colour.Z());
    prop->SetOpacity(opacity);
    actor->SetVisibility(visible);
}

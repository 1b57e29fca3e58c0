#include "RenderTypeMgr.h"

#include <vtkProperty.h>

void RenderTypeMgr::InitLCActorProp(vtkSmartPointer<vtkActor> actor)
{
    ApplyHighlightLook(actor, 6.0);
}

void RenderTypeMgr::ApplyHighlightLook(vtkActor* actor, double lineWidthStep)
{
    actor->SetPickable(0);
    actor->SetVisibility(1);
    vtkProperty* prop = actor->GetProperty();
    prop->SetColor(0.8, 0.0, 0.4);
    prop->SetOpacity(0.5);
    prop->SetPointSize(prop->GetPointSize() + 2.0);
    prop->SetLineWidth(prop->GetLineWidth() + lineWidthStep);
    prop->SetLighting(false);
}

#include "ShapeActorLook.h"

#include "BaseShapeParaCreator.h"
#include "ShapeDocMgr.h"

#include <TDF_Label.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <vtkActor.h>
#include <vtkProperty.h>

void ShapeActorLook::Apply(vtkActor* actor, const TopoDS_Shape& shape)
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

    opencascade::handle<TDocStd_Document> doc = ShapeDocMgr::GetInstance()->GetDoc();
    TDF_Label label = XCAFDoc_DocumentTool::ShapeTool(doc->Main())->FindShape(shape, Standard_False);
    if (label.IsNull()) return;

    bool visible = true;
    double opacity = 1.0;
    gp_Pnt colour(0.8, 0.0, 0.8);
    BaseShapeParaCreator().GetCommonAttribute(label, visible, opacity, colour);
    prop->SetColor(colour.X(), colour.Y(), colour.Z());
    prop->SetOpacity(opacity);
    actor->SetVisibility(visible);
}

#include "ShapeRenderTool.h"

#include "BaseShapeParaCreator.h"
#include "ShapeDocMgr.h"

#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapeDataSource.hxx>
#include <TDF_Label.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

vtkSmartPointer<vtkActor> ShapeRenderTool::CreateActorForShape(TopoDS_Shape& shape)
{
    IVtkOCC_Shape::Handle occ = new IVtkOCC_Shape(shape);
    occ->SetId(0);  // the bridge leaves the id unset; the display never reads it
    auto source = vtkSmartPointer<IVtkTools_ShapeDataSource>::New();
    source->SetShape(occ);
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(0, source->GetOutputPort(0));
    auto actor = vtkSmartPointer<vtkActor>::New();
    actor->SetMapper(mapper);

    vtkProperty* prop = actor->GetProperty();
    prop->SetLineWidth(2.0);
    prop->SetLighting(true);
    prop->SetEdgeVisibility(false);
    prop->SetInterpolationToGouraud();
    prop->SetColor(0.8, 0.0, 0.8);

    opencascade::handle<TDocStd_Document> doc = ShapeDocMgr::GetInstance()->GetDoc();
    TDF_Label label = XCAFDoc_DocumentTool::ShapeTool(doc->Main())->FindShape(shape, Standard_False);
    if (label.IsNull()) return actor;

    bool visible = true;
    double opacity = 1.0;
    gp_Pnt colour(0.8, 0.0, 0.8);
    BaseShapeParaCreator().GetCommonAttribute(label, visible, opacity, colour);
    prop->SetColor(colour.X(), colour.Y(), colour.Z());
    prop->SetOpacity(opacity);
    actor->SetVisibility(visible);
    return actor;
}

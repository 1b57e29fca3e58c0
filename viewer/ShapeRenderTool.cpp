#include "ShapeRenderTool.h"

#include "ShapeActorLook.h"
#include "ShapeDocMgr.h"

#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapeDataSource.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <vtkPolyDataMapper.h>

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

    opencascade::handle<TDocStd_Document> doc = ShapeDocMgr::GetInstance()->GetDocToRead();
    ShapeActorLook::Apply(actor, XCAFDoc_DocumentTool::ShapeTool(doc->Main())->FindShape(shape, Standard_False));
    return actor;
}

// ShapeRenderTool: makes the VTK actor that shows one B-rep shape through the IVtk bridge,
// styled from the attributes of the shape's label when the document holds it.
#ifndef SHAPERENDERTOOL_H
#define SHAPERENDERTOOL_H

#include <TopoDS_Shape.hxx>
#include <vtkActor.h>
#include <vtkSmartPointer.h>

class ShapeRenderTool
{
public:
    static vtkSmartPointer<vtkActor> CreateActorForShape(TopoDS_Shape& shape);
};

#endif

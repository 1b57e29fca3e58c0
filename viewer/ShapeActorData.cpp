#include "ShapeActorData.h"

#include <IVtkVTK_ShapeData.hxx>
#include <IVtk_Types.hxx>
#include <vtkActor.h>
#include <vtkAlgorithm.h>
#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkMapper.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkShaderProperty.h>
#include <vtkStreamingDemandDrivenPipeline.h>
#include <vtkTrivialProducer.h>

#include <vector>

void ShapeActorData::Freeze(vtkActor* actor)
{
    vtkMapper* mapper = actor->GetMapper();
    vtkAlgorithm* source = mapper ? mapper->GetInputAlgorithm() : nullptr;
    if (!source) return;
    // The source runs alone: the mapper's own pipeline requests would outlive it for nothing.
    source->Update();
    vtkPolyData* made = vtkPolyData::SafeDownCast(source->GetOutputDataObject(0));
    if (!made) return;
    // The default executive of both ends is the composite-data pipeline, whose request objects
    // a plain polydata never needs: the lighter streaming pipeline runs them both.
    auto producer = vtkSmartPointer<vtkTrivialProducer>::New();
    producer->SetExecutive(vtkSmartPointer<vtkStreamingDemandDrivenPipeline>::New());
    producer->SetOutput(Compact(made));
    mapper->SetExecutive(vtkSmartPointer<vtkStreamingDemandDrivenPipeline>::New());
    mapper->SetInputConnection(0, producer->GetOutputPort());
    // Bounds and renders of a static mapper read its input as it is, without the pipeline,
    // which every rebuild's clipping range would otherwise ask of each actor.
    mapper->StaticOn();
    // Every shape actor draws with the standard shaders: one empty shader property serves all,
    // where the renderer would otherwise make one for each actor.
    actor->SetShaderProperty(SharedShaderProperty());
}

// The vertex cells to keep: all but those of vertices that bound an edge.
static std::vector<vtkIdType> FreeVertexCells(vtkPolyData* data)
{
    std::vector<vtkIdType> cells;
    vtkDataArray* types = data->GetCellData()->GetArray(IVtkVTK_ShapeData::ARRNAME_MESH_TYPES());
    const vtkIdType count = data->GetNumberOfVerts();
    for (vtkIdType cell = 0; cell < count; ++cell)
        if (!types || types->GetTuple1(cell) != MT_SharedVertex) cells.push_back(cell);
    return cells;
}

vtkSmartPointer<vtkPolyData> ShapeActorData::Compact(vtkPolyData* data)
{
    auto kept = vtkSmartPointer<vtkPolyData>::New();
    kept->SetPoints(data->GetPoints());
    kept->GetPointData()->ShallowCopy(data->GetPointData());
    const std::vector<vtkIdType> verts = FreeVertexCells(data);
    // An unset cell array costs nothing; an empty one is an object with two arrays.
    if (!verts.empty()) {
        auto kind = vtkSmartPointer<vtkCellArray>::New();
        vtkIdType size = 0;
        const vtkIdType* points = nullptr;
        for (vtkIdType cell : verts) {
            data->GetVerts()->GetCellAtId(cell, size, points);
            kind->InsertNextCell(size, points);
        }
        kept->SetVerts(kind);
    }
    if (data->GetNumberOfLines() > 0) kept->SetLines(data->GetLines());
    if (data->GetNumberOfPolys() > 0) kept->SetPolys(data->GetPolys());
    if (data->GetNumberOfStrips() > 0) kept->SetStrips(data->GetStrips());
    // No cell attributes: the sub-shape ids and mesh kinds serve the bridge's own filters and its
    // pick by actor, neither of which sees this copy. The bridge allocates room for a thousand
    // cells of each kind, which a shape's few cells never use.
    kept->Squeeze();
    return kept;
}

vtkShaderProperty* ShapeActorData::SharedShaderProperty()
{
    // Made at the first use and kept to the end of the process, as the viewer's singletons.
    static vtkShaderProperty* shared = vtkShaderProperty::New();
    return shared;
}

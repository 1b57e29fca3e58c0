#include "TevMeshRender.h"

#include "vis_Connect.h"
#include "vis_ConnectWrite.h"

#include <vtkActor.h>
#include <vtkArrowSource.h>
#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkGlyph3D.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <vector>

namespace {

const char* const kDeckName = "DisplayCAD-connect.bdf";

// The mesh as polydata. With `triangles`, every cell takes the first three entries of the
// element's node list, whatever its length; otherwise the whole list.
vtkSmartPointer<vtkPolyData> MeshPolyData(vis_Connect* connect, bool triangles)
{
    int numelem = 0, numnode = 0, maxnode = 0;
    vis_ConnectGetInteger(connect, SYS_ELEM, &numelem);
    vis_ConnectGetInteger(connect, SYS_NODE, &numnode);
    vis_ConnectMaxElemNode(connect, &maxnode);

    auto points = vtkSmartPointer<vtkPoints>::New();
    points->SetNumberOfPoints(numnode);
    for (int id = 1; id <= numnode; ++id) {
        double x[3] = {0.0, 0.0, 0.0};
        vis_ConnectCoordsdv(connect, 1, &id, x);
        points->InsertPoint(id, x[0], x[1], x[2]);
        // Point 0 belongs to no node, yet the mapper scales its vertex buffer by the range of
        // the whole array: left as allocated, any garbage there could wipe out the picture. It
        // repeats node 1, which leaves every bound as the nodes make it.
        if (id == 1) points->SetPoint(0, x[0], x[1], x[2]);
    }

    auto cells = vtkSmartPointer<vtkCellArray>::New();
    // Zeroed beyond each element's own nodes, so a short element read as a triangle points at
    // the unset point 0 rather than at stale memory.
    std::vector<int> nodes(std::max(maxnode, 4), 0);
    std::vector<vtkIdType> ids(nodes.size());
    for (int id = 1; id <= numelem; ++id) {
        int num = 0;
        std::fill(nodes.begin(), nodes.end(), 0);
        vis_ConnectElemNode(connect, id, &num, nodes.data());
        num = std::min(std::max(num, 0), static_cast<int>(nodes.size()));
        const int used = triangles ? 3 : num;
        std::copy(nodes.begin(), nodes.begin() + used, ids.begin());
        cells->InsertNextCell(used, ids.data());
    }

    auto data = vtkSmartPointer<vtkPolyData>::New();
    data->SetPoints(points);
    data->SetPolys(cells);
    return data;
}

vtkSmartPointer<vtkActor> MeshActor(vis_Connect* connect, bool triangles)
{
    vis_ConnectWrite(connect, 18, kDeckName);
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputData(MeshPolyData(connect, triangles));
    auto actor = vtkSmartPointer<vtkActor>::New();
    actor->SetMapper(mapper);
    actor->GetProperty()->EdgeVisibilityOn();
    actor->GetProperty()->SetRepresentationToSurface();
    return actor;
}

// The renderer's picture redrawn through its window, which makes the window's context current
// first: a renderer's own Render outside its window's frame would draw into whatever is bound.
void RenderThroughWindow(vtkRenderer* renderer)
{
    if (vtkRenderWindow* window = renderer->GetRenderWindow()) window->Render();
}

}  // namespace

void TevMeshRender::DisplayMesh(vis_Connect* connect, vtkRenderer* renderer)
{
    renderer->AddActor(MeshActor(connect, false));
    renderer->ResetCamera();
    RenderThroughWindow(renderer);
}

void TevMeshRender::DisplayMeshWithArrow(vis_Connect* connect, vtkRenderer* renderer)
{
    // Made and left out of the renderer: only the arrow shows.
    MeshActor(connect, true);
    renderer->ResetCamera();

    auto points = vtkSmartPointer<vtkPoints>::New();
    points->InsertNextPoint(0.0, 0.0, 0.0);
    auto vectors = vtkSmartPointer<vtkFloatArray>::New();
    vectors->SetNumberOfComponents(3);
    const float direction[3] = {-1.0f, -1.0f, -1.0f};
    vectors->InsertNextTypedTuple(direction);
    auto data = vtkSmartPointer<vtkPolyData>::New();
    data->SetPoints(points);
    data->GetPointData()->SetVectors(vectors);

    auto arrow = vtkSmartPointer<vtkArrowSource>::New();
    auto glyph = vtkSmartPointer<vtkGlyph3D>::New();
    glyph->SetSourceConnection(0, arrow->GetOutputPort());
    glyph->SetVectorModeToUseNormal();
    glyph->SetInputData(data);
    glyph->SetScaleFactor(20.0);
    glyph->Update();

    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(glyph->GetOutputPort());
    mapper->ScalarVisibilityOff();
    auto actor = vtkSmartPointer<vtkActor>::New();
    actor->SetMapper(mapper);
    renderer->AddActor(actor);
    RenderThroughWindow(renderer);
}

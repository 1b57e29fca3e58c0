#include "GeoGridDrawer.h"

#include "TevBasicViewer.h"

#include <vtkDataSetMapper.h>
#include <vtkFloatArray.h>
#include <vtkProperty.h>
#include <vtkRectilinearGrid.h>
#include <vtkRenderer.h>

static const int kGridFirst = -100;
static const int kGridLast = 100;
static const int kGridStep = 10;
static const int kGridDimension = 20;  // lines drawn per in-plane axis, one short of the values

GeoGridDrawer::GeoGridDrawer() = default;
GeoGridDrawer::~GeoGridDrawer() = default;

vtkSmartPointer<vtkActor> GeoGridDrawer::PerformPlaneDraw(TevBasicViewer* viewer, int a, int b,
                                                          std::vector<gp_Pnt>& points)
{
    vtkSmartPointer<vtkFloatArray> coords[3];
    for (int axis = 0; axis < 3; ++axis) coords[axis] = vtkSmartPointer<vtkFloatArray>::New();
    for (int i = kGridFirst; i <= kGridLast; i += kGridStep)
        for (int axis = 0; axis < 3; ++axis)
            coords[axis]->InsertNextValue(axis == a || axis == b ? static_cast<float>(i) : 0.0f);

    for (int u = kGridFirst; u <= kGridLast; u += kGridStep) {
        for (int v = kGridFirst; v <= kGridLast; v += kGridStep) {
            double xyz[3] = {0, 0, 0};
            xyz[a] = u;
            xyz[b] = v;
            points.push_back(gp_Pnt(xyz[0], xyz[1], xyz[2]));
        }
    }

    int dims[3];
    for (int axis = 0; axis < 3; ++axis) dims[axis] = (axis == a || axis == b) ? kGridDimension : 1;
    auto grid = vtkSmartPointer<vtkRectilinearGrid>::New();
    grid->SetDimensions(dims);
    grid->SetXCoordinates(coords[0]);
    grid->SetYCoordinates(coords[1]);
    grid->SetZCoordinates(coords[2]);

    auto actor = vtkSmartPointer<vtkActor>::New();
    auto mapper = vtkSmartPointer<vtkDataSetMapper>::New();
    mapper->SetInputData(grid);
    actor->SetMapper(mapper);
    actor->GetProperty()->SetColor(0.0, 0.4, 0.0);
    actor->GetProperty()->SetRepresentationToWireframe();
    actor->GetProperty()->SetLighting(false);
    viewer->GetDefaultRender()->AddActor(actor);
    viewer->UpdateViewer();
    return actor;
}

vtkSmartPointer<vtkActor> GeoGridDrawer::PerformXYDraw(TevBasicViewer* viewer)
{
    m_xyActor = PerformPlaneDraw(viewer, 0, 1, m_xoyPoints);
    return m_xyActor;
}

vtkSmartPointer<vtkActor> GeoGridDrawer::PerformXZDraw(TevBasicViewer* viewer)
{
    m_xzActor = PerformPlaneDraw(viewer, 0, 2, m_xozPoints);
    return m_xzActor;
}

vtkSmartPointer<vtkActor> GeoGridDrawer::PerformYZDraw(TevBasicViewer* viewer)
{
    // Stored in m_xzActor on purpose: m_yzActor stays unset.
    m_xzActor = PerformPlaneDraw(viewer, 1, 2, m_yozPoints);
    return m_xzActor;
}

void GeoGridDrawer::PerformDraw(TevBasicViewer* viewer)
{
    PerformXYDraw(viewer);
    PerformXZDraw(viewer);
    PerformYZDraw(viewer);
}

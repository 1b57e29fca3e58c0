// TevBasicViewer: the work plane with its grid, the axes and the seven standard views.
//
// Drawing happens on the current plane. Three principal planes through the origin come with the
// grid; a selected planar face can replace the plane, in which case the grid actors and point
// list stay those of the last principal plane.
#include "TevBasicViewer.h"

#include "GeoGridDrawer.h"
#include "SelectionMgr.h"

#include <BRep_Tool.hxx>
#include <GeomLib_IsPlanarSurface.hxx>
#include <Geom_Surface.hxx>
#include <QMessageBox>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Vec.hxx>
#include <vtkAxesActor.h>
#include <vtkCamera.h>
#include <vtkOrientationMarkerWidget.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

void TevBasicViewer::CreateAxis()
{
    auto marker = vtkSmartPointer<vtkAxesActor>::New();
    // The marker widget lives as long as the process; the viewer keeps no reference to it.
    vtkOrientationMarkerWidget* widget = vtkOrientationMarkerWidget::New();
    widget->SetOrientationMarker(marker);
    widget->SetInteractor(GetInteractor());
    widget->On();
    widget->SetInteractive(0);

    auto axes = vtkSmartPointer<vtkAxesActor>::New();
    axes->SetCylinderRadius(0.3);
    axes->SetCylinderResolution(3);
    axes->SetConeRadius(0.1);
    axes->SetTotalLength(100.0, 100.0, 100.0);
    axes->SetPickable(0);
    axes->AxisLabelsOff();
    axes->GetXAxisShaftProperty()->SetLineWidth(3.0);
    axes->GetYAxisShaftProperty()->SetLineWidth(3.0);
    axes->GetZAxisShaftProperty()->SetLineWidth(3.0);
    m_renderer->AddActor(axes);
}

void TevBasicViewer::CreatePlaneGrid()
{
    m_planeXY = new Geom_Plane(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1));
    m_planeXZ = new Geom_Plane(gp_Pnt(0, 0, 0), gp_Dir(0, 1, 0));
    m_planeYZ = new Geom_Plane(gp_Pnt(0, 0, 0), gp_Dir(1, 0, 0));
    m_currentPlane = m_planeXY;
    m_grid = new GeoGridDrawer();
    m_gridActorXY = m_grid->PerformXYDraw(this);
    m_gridActorXY->SetVisibility(1);
    m_gridActorXZ = m_grid->PerformXZDraw(this);
    m_gridActorXZ->SetVisibility(0);
    m_gridActorYZ = m_grid->PerformYZDraw(this);
    m_gridActorYZ->SetVisibility(0);
    m_currentPlanePoints = m_grid->GetXOYGridAllPt();
}

void TevBasicViewer::EnablePlane(const opencascade::handle<Geom_Plane>& plane, vtkActor* shown,
                                 const std::vector<gp_Pnt>& points)
{
    m_currentPlane = plane;
    for (vtkActor* actor : {m_gridActorXY.GetPointer(), m_gridActorXZ.GetPointer(), m_gridActorYZ.GetPointer()})
        if (actor) actor->SetVisibility(actor == shown);
    m_currentPlanePoints = points;
    update();
}

void TevBasicViewer::EnableXYPlane()
{
    EnablePlane(m_planeXY, m_gridActorXY, m_grid->GetXOYGridAllPt());
}

void TevBasicViewer::EnableXZPlane()
{
    EnablePlane(m_planeXZ, m_gridActorXZ, m_grid->GetXOZGridAllPt());
}

void TevBasicViewer::EnableYZPlane()
{
    EnablePlane(m_planeYZ, m_gridActorYZ, m_grid->GetYOZGridAllPt());
}

void TevBasicViewer::m_Slot_SetFaceAsWorkPlane()
{
    RunGuarded("Set Face as work plane", [this] { SetFaceAsWorkPlane(); });
}

void TevBasicViewer::SetFaceAsWorkPlane()
{
    QMessageBox::information(nullptr, tr("Title"), tr("Set Face as work plane"));
    const std::vector<const TopoDS_Shape*> list = SelectionMgr::GetInstance()->GetshapeList();
    if (list.size() < 1) {
        QMessageBox::information(nullptr, tr("Title"), tr("Shape number is too less"));
        return;
    }
    const TopoDS_Shape* shape = list[0];
    if (shape->ShapeType() != TopAbs_FACE) {
        QMessageBox::information(nullptr, tr("Title"), tr("Select Face first"));
        return;
    }
    TopExp_Explorer exp(*shape, TopAbs_FACE, TopAbs_SHAPE);
    opencascade::handle<Geom_Surface> surface = BRep_Tool::Surface(TopoDS::Face(exp.Current()));
    GeomLib_IsPlanarSurface planar(surface, 1e-07);
    if (!planar.IsPlanar()) {
        QMessageBox::information(nullptr, tr("Title"), tr("Please select Planar Face as work plane"));
        return;
    }
    double u1, u2, v1, v2;
    surface->Bounds(u1, u2, v1, v2);
    // The plane comes from the surface's parametrisation at (0, 0), (1, 0), (0, 1), not from
    // the face's orientation. A surface that is degenerate at those parameters gives a zero
    // vector, and normalising it raises: the current plane stays, as the plane is set last.
    const gp_Pnt p0 = surface->Value(0, 0);
    const gp_Pnt p1 = surface->Value(1, 0);
    const gp_Pnt p2 = surface->Value(0, 1);
    gp_Vec a(p0, p1), b(p0, p2);
    a.Normalize();
    b.Normalize();
    gp_Vec n = a.Crossed(b);
    n.Normalize();
    m_facePlane = new Geom_Plane(p0, gp_Dir(n));
    m_currentPlane = m_facePlane;
}

// Resets the camera of the window's first renderer, then places it at focal point + offset * d.
void TevBasicViewer::ResetViewCamera(const double offset[3], double upX, double upY, double upZ)
{
    vtkRenderer* renderer = GetRenderWindow()->GetRenderers()->GetFirstRenderer();
    if (!renderer) return;
    renderer->ResetCamera();
    vtkCamera* camera = renderer->GetActiveCamera();
    const double* f = camera->GetFocalPoint();
    const double d = camera->GetDistance();
    camera->SetPosition(f[0] + offset[0] * d, f[1] + offset[1] * d, f[2] + offset[2] * d);
    camera->SetViewUp(upX, upY, upZ);
}

void TevBasicViewer::SetXY()
{
    vtkRenderer* renderer = GetRenderWindow()->GetRenderers()->GetFirstRenderer();
    if (renderer) renderer->GetActiveCamera()->SetParallelProjection(1);
    const double offset[3] = {0, 0, 1};
    ResetViewCamera(offset, 0, 1, 0);
}

void TevBasicViewer::SetYX()
{
    const double offset[3] = {0, 0, -1};
    ResetViewCamera(offset, 1, 0, 0);
}

void TevBasicViewer::SetXZ()
{
    const double offset[3] = {0, -1, 0};
    ResetViewCamera(offset, 0, 0, 1);
}

void TevBasicViewer::SetZX()
{
    const double offset[3] = {0, 1, 0};
    ResetViewCamera(offset, 1, 0, 0);
}

void TevBasicViewer::SetYZ()
{
    const double offset[3] = {1, 0, 0};
    ResetViewCamera(offset, 0, 0, 1);
}

void TevBasicViewer::SetZY()
{
    const double offset[3] = {-1, 0, 0};
    ResetViewCamera(offset, 0, 1, 0);
}

void TevBasicViewer::SetISO()
{
    // Half of d on each axis: the camera is not at distance d from the focal point.
    const double offset[3] = {0.5, 0.5, 0.5};
    ResetViewCamera(offset, 0, 0, 1);
}

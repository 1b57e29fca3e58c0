#include "DrawOpCommon.h"

#include "DrawerOutput.h"
#include "PickerMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <QObject>
#include <vtkArcSource.h>
#include <vtkCell.h>
#include <vtkDataSetMapper.h>
#include <vtkLine.h>
#include <vtkPoints.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkQuad.h>
#include <vtkRenderer.h>
#include <vtkTriangle.h>
#include <vtkUnstructuredGrid.h>

#include <cmath>

DrawOpCommon::DrawOpCommon(bool paramInput)
    : m_bFinished(false),
      m_CenterPoint(0, 0, 0),
      m_SecondPoint(0, 0, 0),
      m_ThirdPoint(0, 0, 0),
      m_bParamInput(paramInput)
{
}

DrawOpCommon::~DrawOpCommon() = default;

void DrawOpCommon::InitAction(TevBasicViewer*) {}

void DrawOpCommon::ActionCancelled(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawOpCommon::ClearTempDisplay(TevBasicViewer* viewer)
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor);
    renderer->RemoveActor(m_TempActor2);
    DrawOpCommon::FinishCurrentOp(viewer);
    viewer->update();
}

bool DrawOpCommon::LButtonDown(TevBasicViewer*, const double[3]) { return false; }
bool DrawOpCommon::LButtonUp(TevBasicViewer*, const double[3]) { return false; }
bool DrawOpCommon::LButtonDoubleClick(TevBasicViewer*, const double[3]) { return false; }
bool DrawOpCommon::RButtonDown(TevBasicViewer*, const double[3]) { return false; }
bool DrawOpCommon::RButtonUp(TevBasicViewer*, const double[3]) { return false; }
bool DrawOpCommon::MovePoint(TevBasicViewer*, const double[3]) { return false; }
bool DrawOpCommon::KeyDown(TevBasicViewer*, int) { return false; }
void DrawOpCommon::ChildActionFinished(TevBasicViewer*) {}

bool DrawOpCommon::IsActionFinished()
{
    return m_bFinished;
}

void DrawOpCommon::FinishCurrentOp(TevBasicViewer* viewer)
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor);
    renderer->RemoveActor(m_TempActor2);
    viewer->RenderSnapPoint(nullptr);
    viewer->update();
}

void DrawOpCommon::BeginStep()
{
    m_stepPointCount = m_PointList.size();
}

void DrawOpCommon::StepFailed(TevBasicViewer* viewer)
{
    if (m_PointList.size() > m_stepPointCount) m_PointList.resize(m_stepPointCount);
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawOpCommon::Prompt(const char* text)
{
    const QByteArray bytes = QObject::tr(text).toLocal8Bit();
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(0, "%s", bytes.constData());
}

// One cell of `count` points (a line, a triangle or a quad) as a translucent wireframe of colour
// `rgb` and line width `lineWidth` in m_TempActor, replacing the previous one. When `a` and `b`,
// the points the user gave, coincide exactly, nothing new is shown.
void DrawOpCommon::ShowTempCell(TevBasicViewer* viewer, const double* a, const double* b, const double* const* points,
                                int count, const double rgb[3], double lineWidth)
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor);
    const double d = std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]));
    // The cursor on the first point: the old actor stays out of the renderer, nothing new.
    if (d == 0.0) return;

    auto vtkPts = vtkSmartPointer<vtkPoints>::New();
    for (int i = 0; i < count; ++i) vtkPts->InsertNextPoint(points[i]);
    auto grid = vtkSmartPointer<vtkUnstructuredGrid>::New();
    grid->SetPoints(vtkPts);
    vtkSmartPointer<vtkCell> cell;
    if (count == 2)
        cell = vtkSmartPointer<vtkLine>::New();
    else if (count == 3)
        cell = vtkSmartPointer<vtkTriangle>::New();
    else
        cell = vtkSmartPointer<vtkQuad>::New();
    for (int i = 0; i < count; ++i) cell->GetPointIds()->SetId(i, i);
    grid->InsertNextCell(cell->GetCellType(), cell->GetPointIds());
    auto mapper = vtkSmartPointer<vtkDataSetMapper>::New();
    mapper->SetInputData(grid);
    m_TempActor = vtkSmartPointer<vtkActor>::New();
    m_TempActor->SetMapper(mapper);
    m_TempActor->GetProperty()->SetOpacity(0.8);
    m_TempActor->GetProperty()->SetRepresentationToWireframe();
    m_TempActor->GetProperty()->SetColor(rgb[0], rgb[1], rgb[2]);
    m_TempActor->GetProperty()->SetLineWidth(lineWidth);
    renderer->AddActor(m_TempActor);
    viewer->update();
}

static const double kBandColour[3] = {1.0, 0.2, 0.2};

void DrawOpCommon::DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3])
{
    const double* pts[2] = {p1, p2};
    ShowTempCell(viewer, p1, p2, pts, 2, kBandColour, 1.0);
}

void DrawOpCommon::DrawTempSegment(TevBasicViewer* viewer, double p1[3], double p2[3], double r, double g, double b)
{
    const double* pts[2] = {p1, p2};
    const double rgb[3] = {r, g, b};
    ShowTempCell(viewer, p1, p2, pts, 2, rgb, 1.0);
}

void DrawOpCommon::DrawTempTriangle(TevBasicViewer* viewer, double p1[3], double p2[3], double p3[3])
{
    const double* pts[3] = {p1, p2, p3};
    ShowTempCell(viewer, p1, p2, pts, 3, kBandColour, 1.0);
}

gp_Pnt DrawOpCommon::PickPoint(TevBasicViewer* viewer, const double point[3])
{
    return PickerMgr::GetInstance()->GetPickPoint(viewer, gp_Pnt(point[0], point[1], point[2]));
}

void DrawOpCommon::DrawTempCircle(TevBasicViewer* viewer, double center[3], double rim[3])
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor2);
    auto arc = vtkSmartPointer<vtkArcSource>::New();
    arc->SetResolution(64);
    arc->UseNormalAndAngleOn();
    arc->SetCenter(center);
    arc->SetPolarVector(rim[0] - center[0], rim[1] - center[1], rim[2] - center[2]);
    arc->SetAngle(360.0);
    arc->NegativeOn();
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(arc->GetOutputPort(0));
    m_TempActor2 = vtkSmartPointer<vtkActor>::New();
    m_TempActor2->SetMapper(mapper);
    m_TempActor2->GetProperty()->SetOpacity(0.6);
    m_TempActor2->GetProperty()->SetColor(1.0, 0.2, 0.2);
    m_TempActor2->GetProperty()->SetLineWidth(1.0);
    renderer->AddActor(m_TempActor2);
    viewer->UpdateViewer();
}

void DrawOpCommon::CreateInTransaction(TevBasicViewer* viewer, const std::function<void()>& create)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    create();
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
}

void DrawOpCommon::DrawTempQuad(TevBasicViewer* viewer, const gp_Pnt& p1, const gp_Pnt& p2, const gp_Pnt corners[4],
                                const double rgb[3])
{
    double a[3], b[3], c[4][3];
    p1.Coord(a[0], a[1], a[2]);
    p2.Coord(b[0], b[1], b[2]);
    const double* pts[4];
    for (int i = 0; i < 4; ++i) {
        corners[i].Coord(c[i][0], c[i][1], c[i][2]);
        pts[i] = c[i];
    }
    ShowTempCell(viewer, a, b, pts, 4, rgb, 3.0);
}

void DrawOpCommon::MoveCircleBand(TevBasicViewer* viewer, const double point[3], bool centreTaken, bool rimTaken,
                                  gp_Pnt& centre, bool keepCentre)
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (!centreTaken) {
        if (keepCentre) centre = picked;
    } else if (!rimTaken) {
        double c[3] = {centre.X(), centre.Y(), centre.Z()};
        double r[3] = {picked.X(), picked.Y(), picked.Z()};
        DrawTempCircle(viewer, c, r);
    }
}

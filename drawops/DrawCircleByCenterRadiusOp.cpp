#include "DrawCircleByCenterRadiusOp.h"

#include "CircleShapeParaCreator.h"
#include "PickerMgr.h"
#include "TevBasicViewer.h"

#include <vtkDataSetMapper.h>
#include <vtkLine.h>
#include <vtkMath.h>
#include <vtkPoints.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkUnstructuredGrid.h>

#include <cmath>

// Circles with a smaller radius are dropped without a word.
static const double kMinRadius = 1e-6;

DrawCircleByCenterRadiusOp::DrawCircleByCenterRadiusOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bContinuous(true)
{
}

// The snapped point of a raw world point.
static gp_Pnt Pick(TevBasicViewer* viewer, const double point[3])
{
    return PickerMgr::GetInstance()->GetPickPoint(viewer, gp_Pnt(point[0], point[1], point[2]));
}

void DrawCircleByCenterRadiusOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Circle : Input center point");
}

bool DrawCircleByCenterRadiusOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = Pick(viewer, point);
    if (!m_bStep1) {
        m_Point1 = picked;
        return false;
    }
    double center[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
    double rim[3] = {picked.X(), picked.Y(), picked.Z()};
    DrawOpCommon::DrawTempCircle(viewer, center, rim);
    return false;
}

bool DrawCircleByCenterRadiusOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        m_Point1 = Pick(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
        Prompt("Circle : Input point on Circle");
    } else {
        m_Point2 = Pick(viewer, point);
        m_PointList.push_back(m_Point2);
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        FinishCurrentOp(viewer);
        // Printed also when the radius was too small and nothing was made.
        Prompt("Circle: Done");
        Prompt("Circle : Input center point");
    }
    return false;
}

void DrawCircleByCenterRadiusOp::PerformDraw(TevBasicViewer* viewer)
{
    const double radius = m_Point1.Distance(m_Point2);
    if (radius < kMinRadius) return;
    CreateInTransaction(viewer, [&] { CircleShapeParaCreator().CreateCircle(m_Point1, radius); });
}

void DrawCircleByCenterRadiusOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawCircleByCenterRadiusOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Circle : Cancel");
    DrawOpCommon::ActionCancelled(viewer);
}

void DrawCircleByCenterRadiusOp::DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3])
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor);
    if (std::sqrt(vtkMath::Distance2BetweenPoints(p1, p2)) == 0.0) return;

    auto points = vtkSmartPointer<vtkPoints>::New();
    points->InsertNextPoint(p1);
    points->InsertNextPoint(p2);
    auto line = vtkSmartPointer<vtkLine>::New();
    line->GetPointIds()->SetId(0, 0);
    line->GetPointIds()->SetId(1, 1);
    auto grid = vtkSmartPointer<vtkUnstructuredGrid>::New();
    grid->SetPoints(points);
    grid->InsertNextCell(line->GetCellType(), line->GetPointIds());
    auto mapper = vtkSmartPointer<vtkDataSetMapper>::New();
    mapper->SetInputData(grid);
    m_TempActor = vtkSmartPointer<vtkActor>::New();
    m_TempActor->SetMapper(mapper);
    m_TempActor->GetProperty()->SetOpacity(0.8);
    m_TempActor->GetProperty()->SetRepresentationToWireframe();
    m_TempActor->GetProperty()->SetColor(0.3, 0.0, 0.6);
    renderer->AddActor(m_TempActor);
    viewer->update();
}

#include "DrawArcOp.h"

#include "ArcShapeParaCreator.h"
#include "TevBasicViewer.h"

#include <vtkArcSource.h>
#include <vtkMath.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>


// Above this angle at the cursor (radians, a little short of a right angle) the cursor lies
// on the short side of the chord.
static const double kShortSideAngle = 1.57;

DrawArcOp::DrawArcOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bStep3(false), m_bContinuous(false)
{
}


void DrawArcOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    m_bStep3 = false;
    Prompt("Arc: Input first point on arc:");
}

bool DrawArcOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    double p[3] = {picked.X(), picked.Y(), picked.Z()};
    if (!m_bStep1) {
        m_Point1 = picked;
    } else if (!m_bStep2) {
        double a[3] = {m_Point1.X(), m_Point1.Y(), m_Point1.Z()};
        DrawTempLine(viewer, a, p);
    } else {
        double raw[3] = {point[0], point[1], point[2]};
        DrawTempCircle(viewer, p, raw);
    }
    return false;
}

bool DrawArcOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        m_Point1 = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_Point1);
        Prompt("Arc: Input second point on arc:");
    } else if (!m_bStep2) {
        m_Point2 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point2);
        m_bStep2 = true;
        Prompt("Arc: Input third point on arc:");
    } else if (!m_bStep3) {
        m_Point3 = PickPoint(viewer, point);
        m_PointList.push_back(m_Point3);
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        if (m_bContinuous) {
            m_Point1 = m_Point2;
            m_bStep1 = true;
            return false;
        }
        FinishCurrentOp(viewer);
        Prompt("Arc: Done");
        Prompt("Arc: Input first point on arc:");
    }
    return false;
}

// No length test: coinciding or collinear points go to the creator as they are.
void DrawArcOp::PerformDraw(TevBasicViewer* viewer)
{
    CreateInTransaction(viewer, [this] { ArcShapeParaCreator().CreateArc(m_Point1, m_Point3, m_Point2); });
}

void DrawArcOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    DrawOpCommon::FinishCurrentOp(viewer);
}

void DrawArcOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Arc : Cancel");
    DrawOpCommon::ActionCancelled(viewer);
}

void DrawArcOp::DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3])
{
    DrawTempSegment(viewer, p1, p2, 0.3, 0.0, 0.6);
}

vtkSmartPointer<vtkActor> DrawArcOp::MakeThreePointArcActor(const gp_Pnt& p1, const gp_Pnt& p2, const double p3[3])
{
    auto arc = vtkSmartPointer<vtkArcSource>::New();
    arc->SetResolution(64);
    const double a[3] = {p1.X(), p1.Y(), p1.Z()};
    const double b[3] = {p2.X(), p2.Y(), p2.Z()};
    double center[3] = {0.0, 0.0, 0.0};
    vtkMath::Solve3PointCircle(a, b, p3, center);
    // The angle at the third point tells on which side of the chord it lies: obtuse on the short
    // arc, acute on the long one, which is drawn the other way round.
    double va[3] = {a[0] - p3[0], a[1] - p3[1], a[2] - p3[2]};
    double vb[3] = {b[0] - p3[0], b[1] - p3[1], b[2] - p3[2]};
    if (vtkMath::AngleBetweenVectors(va, vb) > kShortSideAngle) {
        arc->SetPoint1(a[0], a[1], a[2]);
        arc->SetPoint2(b[0], b[1], b[2]);
        arc->SetNegative(false);
    } else {
        arc->SetPoint2(a[0], a[1], a[2]);
        arc->SetPoint1(b[0], b[1], b[2]);
        arc->SetNegative(true);
    }
    arc->SetCenter(center);
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(arc->GetOutputPort(0));
    auto actor = vtkSmartPointer<vtkActor>::New();
    actor->SetMapper(mapper);
    actor->GetProperty()->SetOpacity(0.6);
    actor->GetProperty()->SetColor(0.8, 0.0, 0.8);
    actor->GetProperty()->SetLineWidth(1.0);
    return actor;
}

void DrawArcOp::DrawTempCircle(TevBasicViewer* viewer, double point[3], double[3])
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor2);
    m_TempActor2 = MakeThreePointArcActor(m_Point1, m_Point2, point);
    renderer->AddActor(m_TempActor2);
    viewer->UpdateViewer();
}

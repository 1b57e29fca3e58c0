#include "DrawOrthPolygonOp.h"

#include "OrthPolygonShapeParaCreator.h"
#include "PolygonNumInputDlg.h"
#include "ShapeRenderTool.h"
#include "TevBasicViewer.h"

#include <BRepBuilderAPI_MakePolygon.hxx>
#include <QDialog>
#include <QMessageBox>
#include <QObject>
#include <gp_Ax1.hxx>
#include <gp_Dir.hxx>
#include <gp_Trsf.hxx>
#include <vtkProperty.h>
#include <vtkRenderer.h>

// The full turn of the rubber band, a little short of two pi.
static const double kFullTurn = 6.2831852;

DrawOrthPolygonOp::DrawOrthPolygonOp()
    : DrawOpCommon(false), m_bStep1(false), m_bStep2(false), m_bContinuous(false), m_EdgeNumber(0)
{
}


void DrawOrthPolygonOp::InitAction(TevBasicViewer*)
{
    m_bStep1 = false;
    m_bStep2 = false;
    Prompt("Equilateral polygon : Input center point:");
}

bool DrawOrthPolygonOp::MovePoint(TevBasicViewer* viewer, const double point[3])
{
    const gp_Pnt picked = PickPoint(viewer, point);
    if (m_bStep1 && !m_bStep2) DrawTempLine(viewer, picked);
    return false;
}

bool DrawOrthPolygonOp::LButtonUp(TevBasicViewer* viewer, const double point[3])
{
    if (!m_bStep1) {
        m_CenterPoint = PickPoint(viewer, point);
        m_bStep1 = true;
        m_PointList.push_back(m_CenterPoint);
        Prompt("Equilateral polygon : Input egde number:");
        PolygonNumInputDlg dlg(nullptr);
        if (dlg.exec() == QDialog::Accepted) {
            m_EdgeNumber = dlg.m_PolygonNumber;
            if (m_EdgeNumber == 0) {
                QMessageBox::information(nullptr, QObject::tr("Error"), QObject::tr("edge number error input"),
                                         QMessageBox::Ok);
                return false;
            }
            Prompt("Equilateral polygon : Input second point:");
        }
        // Whatever the dialog gave, the next click takes the vertex.
    } else if (!m_bStep2) {
        m_SecondPoint = PickPoint(viewer, point);
        m_PointList.push_back(m_SecondPoint);
        PerformDraw(viewer);
        m_bStep1 = false;
        m_bStep2 = false;
        if (m_bContinuous)
            Prompt("Equilateral polygon : Input center point:");
        else
            FinishCurrentOp(viewer);
    }
    return false;
}

void DrawOrthPolygonOp::PerformDraw(TevBasicViewer* viewer)
{
    CreateInTransaction(viewer, [this] {
        OrthPolygonShapeParaCreator().CreateOrthPolygon(m_CenterPoint, m_SecondPoint, m_EdgeNumber);
    });
}

void DrawOrthPolygonOp::FinishCurrentOp(TevBasicViewer* viewer)
{
    ClearTempDisplay(viewer);
}

void DrawOrthPolygonOp::ActionCancelled(TevBasicViewer* viewer)
{
    Prompt("Equilateral polygon : Cancel:");
    ClearTempDisplay(viewer);
}

void DrawOrthPolygonOp::CreateTempGeo(const gp_Pnt& point, TopoDS_Shape& shape)
{
    const double step = kFullTurn / m_EdgeNumber;
    const gp_Ax1 axis(m_CenterPoint, gp_Dir(0, 0, 1));
    BRepBuilderAPI_MakePolygon polygon;
    for (int i = 0; i < m_EdgeNumber; ++i) {
        gp_Trsf rotation;
        rotation.SetRotation(axis, i * step);
        polygon.Add(point.Transformed(rotation));
    }
    // Fewer than two points make no edge: Shape() raises, and the viewer's boundary reports it.
    polygon.Close();
    shape = polygon.Shape();
}

void DrawOrthPolygonOp::DrawTempLine(TevBasicViewer* viewer, gp_Pnt point)
{
    TopoDS_Shape shape;
    CreateTempGeo(point, shape);
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(m_TempActor2);
    m_TempActor2 = ShapeRenderTool::CreateActorForShape(shape);
    m_TempActor2->GetProperty()->SetColor(1.0, 0.2, 0.2);
    renderer->AddActor(m_TempActor2);
    viewer->RefreshViewer();
    viewer->update();
}

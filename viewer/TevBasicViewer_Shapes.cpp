// TevBasicViewer: the picture of the document. Every change of the model is followed by a
// rebuild: all shape actors and pickers are thrown away and made again from
// ShapeLabelMgr::GetAllShapes(). Nothing updates one shape's actor in place.
#include "TevBasicViewer.h"

#include "DrawerOutput.h"
#include "SelectionMgr.h"
#include "ShapeLabelMgr.h"
#include "ShapeRenderTool.h"

#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapePicker.hxx>
#include <QByteArray>
#include <vtkActor.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <algorithm>

void TevBasicViewer::UpdateViewer()
{
    FinishRedraw();
}

void TevBasicViewer::RefreshViewer()
{
    RemoveAllViewShapes();
    std::vector<TopoDS_Shape> shapes = ShapeLabelMgr::GetInstance()->GetAllShapes();
    for (TopoDS_Shape& shape : shapes) AddShape(&shape);
    PruneRetiredShapes();
    FinishRedraw();
}

void TevBasicViewer::UpdateRefreshViewer()
{
    RemoveAllViewShapes();
    SelectionMgr::GetInstance()->ClearSelList();
    m_allShapes = ShapeLabelMgr::GetInstance()->GetAllShapes();
    for (TopoDS_Shape& shape : m_allShapes) AddShape(&shape);
    PruneRetiredShapes();
    FinishRedraw();
}

void TevBasicViewer::RemoveAllViewShapes()
{
    RetireShapes();
    m_pickerByShape.clear();
    for (auto& entry : m_actorByShape) m_renderer->RemoveActor(entry.second);
    m_actorByShape.clear();
    RemoveHighLihgt();
}

void TevBasicViewer::RemoveTempRenderActor(vtkSmartPointer<vtkActor> actor)
{
    m_renderer->RemoveActor(actor);
}

void TevBasicViewer::AddShape(TopoDS_Shape* shape)
{
    IVtkOCC_Shape::Handle occ = new IVtkOCC_Shape(*shape);
    // One picker per shape, so the shape's id only has to be the one the picks ask for.
    occ->SetId(0);
    auto picker = vtkSmartPointer<IVtkTools_ShapePicker>::New();
    picker->SetRenderer(m_renderer);
    // All three modes whatever the current level: the level slots narrow them again.
    picker->SetSelectionMode(occ, SM_Solid, true);
    picker->SetSelectionMode(occ, SM_Face, true);
    picker->SetSelectionMode(occ, SM_Edge, true);

    vtkSmartPointer<vtkActor> actor = ShapeRenderTool::CreateActorForShape(*shape);
    m_shapeActors.push_back(actor);
    m_renderer->AddActor(actor);

    AddShapeMap(occ.get(), picker);
    AddShapeMap(occ.get(), actor);
    AddShapeMap(shape, actor);
    AddShapeMap(occ.get(), ShapeLabelMgr::GetInstance()->GetShapeName(shape));
}

void TevBasicViewer::AddShapeMap(IVtkOCC_Shape* occ, vtkSmartPointer<IVtkTools_ShapePicker> picker)
{
    m_pickerByShape[occ] = picker;
}

void TevBasicViewer::AddShapeMap(IVtkOCC_Shape* occ, vtkSmartPointer<vtkActor> actor)
{
    m_actorByShape[occ] = actor;
}

void TevBasicViewer::AddShapeMap(IVtkOCC_Shape* occ, QString name)
{
    m_shapeByName[name] = occ;
}

void TevBasicViewer::AddShapeMap(TopoDS_Shape* shape, vtkSmartPointer<vtkActor> actor)
{
    m_actorByTShape[shape->TShape()] = actor;
}

void TevBasicViewer::RemoveShape(IVtkOCC_Shape* occ)
{
    m_pickerByShape.erase(occ);
}

void TevBasicViewer::RemoveShape(const TopoDS_Shape* shape)
{
    auto samePicker = std::find_if(m_pickerByShape.begin(), m_pickerByShape.end(), [shape](const auto& e) {
        return e.first->GetShape().TShape() == shape->TShape();
    });
    if (samePicker != m_pickerByShape.end()) m_pickerByShape.erase(samePicker);
    auto sameActor = std::find_if(m_actorByShape.begin(), m_actorByShape.end(), [shape](const auto& e) {
        return e.first->GetShape().TShape() == shape->TShape();
    });
    if (sameActor != m_actorByShape.end()) {
        m_renderer->RemoveActor(sameActor->second);
        m_actorByShape.erase(sameActor);
    }
    RemoveHighLihgt();
}

// The actor of a shape by its TShape; an unknown shape leaves an empty entry behind.
vtkSmartPointer<vtkActor> TevBasicViewer::ActorOf(TopoDS_Shape* shape)
{
    return m_actorByTShape[shape->TShape()];
}

void TevBasicViewer::SetShapeColor(TopoDS_Shape* shape, gp_Pnt& rgb)
{
    vtkSmartPointer<vtkActor> actor = ActorOf(shape);
    if (!actor) {
        // One message for colour and opacity alike.
        DrawerOutput::GetInstance()->EmitMessage2MessageWidget(2, "SetShapeOpacity actor NULL");
        return;
    }
    if (vtkProperty* prop = actor->GetProperty()) prop->SetColor(rgb.X(), rgb.Y(), rgb.Z());
}

void TevBasicViewer::SetShapeOpacity(TopoDS_Shape* shape, double opacity)
{
    vtkSmartPointer<vtkActor> actor = ActorOf(shape);
    if (!actor) {
        const std::string text = tr("SetShapeOpacity actor NULL").toLocal8Bit().toStdString();
        DrawerOutput::GetInstance()->EmitMessage2MessageWidget(2, "%s", text.c_str());
        return;
    }
    if (vtkProperty* prop = actor->GetProperty()) prop->SetOpacity(opacity);
}

double TevBasicViewer::GetShapeOpacity(TopoDS_Shape* shape)
{
    vtkSmartPointer<vtkActor> actor = ActorOf(shape);
    vtkProperty* prop = actor ? actor->GetProperty() : nullptr;
    return prop ? prop->GetOpacity() : 1.0;
}

void TevBasicViewer::SetShapeVisibility(TopoDS_Shape* shape, bool visible)
{
    vtkSmartPointer<vtkActor> actor = ActorOf(shape);
    if (actor) actor->SetVisibility(visible);
}

bool TevBasicViewer::GetShapeVisiblity(TopoDS_Shape* shape)
{
    // A shape without an actor is not shown.
    vtkSmartPointer<vtkActor> actor = ActorOf(shape);
    return actor && actor->GetVisibility() != 0;
}

void TevBasicViewer::m_Slot_DisplayByWireFrame()
{
    RunGuarded("DisplayByWireFrame", [this] {
        for (auto& actor : m_shapeActors) actor->GetProperty()->SetRepresentationToWireframe();
    });
}

void TevBasicViewer::m_Slot_DisplayBySurface()
{
    RunGuarded("DisplayBySurface", [this] {
        for (auto& actor : m_shapeActors) actor->GetProperty()->SetRepresentationToSurface();
    });
}

void TevBasicViewer::m_Slot_DisplayByPoint()
{
    RunGuarded("DisplayByPoint", [this] {
        for (auto& actor : m_shapeActors) actor->GetProperty()->SetRepresentationToPoints();
    });
}

void TevBasicViewer::RetireShapes()
{
    for (auto& entry : m_pickerByShape) m_retiredShapes.emplace_back(entry.first);
}

// Whether `entry` is the shape of `occ` or one of its sub-shapes, by address.
static bool PointsInto(const TopoDS_Shape* entry, const IVtkOCC_Shape* occ)
{
    if (entry == &occ->GetShape()) return true;
    const IVtk_IdType id = occ->GetSubShapeId(*entry);
    return id > 0 && &occ->GetSubShape(id) == entry;
}

void TevBasicViewer::PruneRetiredShapes()
{
    const std::vector<const TopoDS_Shape*>& selection = SelectionMgr::GetInstance()->GetshapeList();
    auto referenced = [this, &selection](const IVtkOCC_Shape::Handle& occ) {
        for (const auto& named : m_shapeByName)
            if (named.second == occ.get()) return true;
        for (const TopoDS_Shape* entry : selection)
            if (PointsInto(entry, occ.get())) return true;
        return false;
    };
    m_retiredShapes.erase(std::remove_if(m_retiredShapes.begin(), m_retiredShapes.end(),
                                         [&referenced](const IVtkOCC_Shape::Handle& occ) { return !referenced(occ); }),
                          m_retiredShapes.end());
}

// TevBasicViewer: the picture of the document. Every change of the model is followed by a
// rebuild from ShapeLabelMgr::GetAllShapes(). A rebuild keeps what it built for each shape that
// is still there unchanged (same TShape, location and orientation): the IVtkOCC_Shape, its
// picker, the actor with its data source, and the shape's box; it builds the rest new and
// retires what the document no longer holds. A retired actor keeps no mapper, a retired picker
// is let go, and a retired IVtkOCC_Shape lives on only while the selection points into it.
//
// The common rebuild, after a click that added a shape at the end of the document's list, takes
// a short way that leaves the maps of the shapes already shown untouched (AppendShapes); it still
// reads every label's name and look, so what it shows is what the full rebuild would show.
#include "TevBasicViewer.h"

#include "DisplayProjection.h"
#include "DrawerOutput.h"
#include "SelectionMgr.h"
#include "ShapeActorData.h"
#include "ShapeActorLook.h"
#include "ShapeBounds.h"
#include "ShapeLabelMgr.h"
#include "ShapeRenderTool.h"

#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapePicker.hxx>
#include <QByteArray>
#include <vtkActor.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <set>

void TevBasicViewer::UpdateViewer()
{
    FinishRedraw();
}

void TevBasicViewer::RefreshViewer()
{
    ReadDocumentShapes(m_readShapes);
    RebuildShapes(m_readShapes, m_readLabels);
    FinishRedraw();
}

void TevBasicViewer::UpdateRefreshViewer()
{
    SelectionMgr::GetInstance()->ClearSelList();
    ReadDocumentShapes(m_allShapes);
    RebuildShapes(m_allShapes, m_readLabels);
    FinishRedraw();
}

void TevBasicViewer::ReadDocumentShapes(std::vector<TopoDS_Shape>& shapes)
{
    // A rebuild is the caller's word that the document changed, whatever the revision says.
    ShapeLabelMgr* registry = ShapeLabelMgr::GetInstance();
    registry->ReadAgain();
    registry->GetAllShapes(shapes, m_readLabels);
}

void TevBasicViewer::RemoveAllViewShapes()
{
    for (ShapeViewCache::Entry& entry : m_shapeViews.TakeAll()) RetireShape(entry);
    m_pickerByShape.clear();
    m_actorByShape.clear();
    m_mapsTouched = true;
    RemoveHighLihgt();
}

bool TevBasicViewer::AppendShapes(std::vector<TopoDS_Shape>& shapes, const std::vector<TDF_Label>& labels)
{
    // Level changes, stray map entries and retired shapes kept for the selection all need the
    // full rebuild's clean-up.
    if (m_pickModesChanged || m_mapsTouched || !m_retiredShapes.empty() || labels.size() != shapes.size())
        return false;
    const size_t kept = m_shapeViews.OrderSize();
    if (shapes.size() < kept || m_shapeViews.KeptPrefix(shapes, labels) != kept) return false;
    // Names and looks come from the labels again, as in every rebuild; a renamed shape needs
    // the name map rebuilt.
    std::vector<ShapeActorLook>& looks = m_readLooks;
    looks.clear();
    for (size_t i = 0; i < kept; ++i) {
        const TDF_Label& source = m_shapeViews.SourceAt(i);
        if (ShapeLabelMgr::GetLabelName(source) != m_shapeViews.NameAt(i)) return false;
        looks.push_back(ShapeActorLook::Read(source));
    }

    RemoveHighLihgt();
    for (size_t i = 0; i < kept; ++i) {
        vtkActor* actor = m_shapeViews.ActorAt(i);
        if (looks[i] != m_shapeViews.LookAt(i)) {
            looks[i].Apply(actor);
            m_shapeViews.Restamp(i, looks[i]);
        }
        m_shapeActors.push_back(actor);
    }
    for (size_t i = kept; i < shapes.size(); ++i) AddShape(&shapes[i]);
    m_shapeViews.StampOrder(labels, kept);
    return true;
}

void TevBasicViewer::RebuildShapes(std::vector<TopoDS_Shape>& shapes, const std::vector<TDF_Label>& labels)
{
    if (AppendShapes(shapes, labels)) return;
    RemoveHighLihgt();
    m_pickerByShape.clear();
    m_actorByShape.clear();
    // Rewritten for the shapes of this build only: stale keys would keep old shapes alive.
    m_actorByTShape.clear();
    std::map<QString, IVtkOCC_Shape*> previousNames;
    previousNames.swap(m_shapeByName);

    std::vector<ShapeViewCache::Entry> kept;
    kept.reserve(shapes.size());
    for (TopoDS_Shape& shape : shapes) {
        kept.emplace_back();
        if (!m_shapeViews.Take(shape, kept.back())) kept.pop_back();
    }
    // What the document no longer holds (or holds changed) leaves before anything is added.
    for (ShapeViewCache::Entry& entry : m_shapeViews.TakeAll()) RetireShape(entry);
    m_shapeViews.ClearOrder();

    auto next = kept.begin();
    for (TopoDS_Shape& shape : shapes) {
        if (next != kept.end() && next->shape.IsEqual(shape))
            ReuseShape(&shape, std::move(*next++));
        else
            AddShape(&shape);
    }
    m_pickModesChanged = false;
    KeepSelectedNames(previousNames);
    PruneRetiredShapes();
    m_shapeViews.StampOrder(labels, 0);
    m_mapsTouched = false;
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
    // The shape never changes under its actor (a changed shape gets a new one): the data is
    // made once and kept without the pipeline that made it.
    ShapeActorData::Freeze(actor);
    m_shapeActors.push_back(actor);
    m_renderer->AddActor(actor);

    AddShapeMap(occ.get(), picker);
    AddShapeMap(occ.get(), actor);
    AddShapeMap(shape, actor);
    AddShapeMap(occ.get(), ShapeLabelMgr::GetInstance()->GetShapeName(shape));
    m_shapeViews.Add({*shape, occ, picker, actor, ShapeBounds::Of(*shape)});
}

void TevBasicViewer::ReuseShape(TopoDS_Shape* shape, ShapeViewCache::Entry entry)
{
    IVtkOCC_Shape* occ = entry.occ.get();
    if (m_pickModesChanged) {
        // Back to the modes of a new picker: all off, then the three of AddShape in its order.
        for (int mode = SM_Shape; mode <= SM_Compound; ++mode)
            entry.picker->SetSelectionMode(entry.occ, static_cast<IVtk_SelectionMode>(mode), false);
        entry.picker->SetSelectionMode(entry.occ, SM_Solid, true);
        entry.picker->SetSelectionMode(entry.occ, SM_Face, true);
        entry.picker->SetSelectionMode(entry.occ, SM_Edge, true);
    }
    // One look-up of the label serves the look and the name.
    const TDF_Label label = ShapeLabelMgr::GetInstance()->FindLabel(*shape);
    ShapeActorLook::Apply(entry.actor, label);
    m_shapeActors.push_back(entry.actor);

    AddShapeMap(occ, entry.picker);
    AddShapeMap(occ, entry.actor);
    AddShapeMap(shape, entry.actor);
    AddShapeMap(occ, ShapeLabelMgr::GetLabelName(label));
    m_shapeViews.Add(std::move(entry));
}

void TevBasicViewer::RetireShape(ShapeViewCache::Entry& entry)
{
    m_renderer->RemoveActor(entry.actor);
    // The actor stays in m_shapeActors; without its mapper it holds no geometry.
    entry.actor->SetMapper(nullptr);
    m_retiredShapes.push_back(entry.occ);
    entry.picker = nullptr;
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
    m_mapsTouched = true;
    m_pickerByShape.erase(occ);
}

void TevBasicViewer::RemoveShape(const TopoDS_Shape* shape)
{
    m_mapsTouched = true;
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
    auto it = m_actorByTShape.find(shape->TShape());
    if (it != m_actorByTShape.end()) return it->second;
    m_mapsTouched = true;
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

// Whether `entry` is the shape of `occ` or one of its sub-shapes, by address.
static bool PointsInto(const TopoDS_Shape* entry, const IVtkOCC_Shape* occ)
{
    if (entry == &occ->GetShape()) return true;
    const IVtk_IdType id = occ->GetSubShapeId(*entry);
    return id > 0 && &occ->GetSubShape(id) == entry;
}

// Whether an entry of the selection points into `occ`.
static bool Selected(const IVtkOCC_Shape* occ)
{
    for (const TopoDS_Shape* entry : SelectionMgr::GetInstance()->GetshapeList())
        if (PointsInto(entry, occ)) return true;
    return false;
}

void TevBasicViewer::KeepSelectedNames(const std::map<QString, IVtkOCC_Shape*>& previous)
{
    for (const auto& named : previous)
        if (!m_shapeByName.count(named.first) && Selected(named.second)) m_shapeByName.insert(named);
}

void TevBasicViewer::PruneRetiredShapes()
{
    if (m_retiredShapes.empty()) return;
    std::set<const IVtkOCC_Shape*> named;
    for (const auto& entry : m_shapeByName) named.insert(entry.second);
    auto unreferenced = std::partition(m_retiredShapes.begin(), m_retiredShapes.end(),
                                       [&named](const IVtkOCC_Shape::Handle& occ) {
                                           return named.count(occ.get()) || Selected(occ.get());
                                       });
    std::for_each(unreferenced, m_retiredShapes.end(), ShapeViewCache::Unlink);
    m_retiredShapes.erase(unreferenced, m_retiredShapes.end());
}

std::vector<std::pair<IVtkOCC_Shape*, vtkSmartPointer<IVtkTools_ShapePicker>>> TevBasicViewer::PickCandidates(
    const int* pos)
{
    std::vector<std::pair<IVtkOCC_Shape*, vtkSmartPointer<IVtkTools_ShapePicker>>> found;
    if (!ShapeBounds::CullingEnabled()) {
        found.assign(m_pickerByShape.begin(), m_pickerByShape.end());
        return found;
    }
    // The picker's own reach around its sensitive entities is a couple of pixels.
    const double kPickRadius = 8.0;
    const DisplayProjection projection(m_renderer);
    for (const IVtkOCC_Shape* occ : m_shapeViews.Reaching(projection, pos[0], pos[1], kPickRadius)) {
        auto it = m_pickerByShape.find(const_cast<IVtkOCC_Shape*>(occ));
        if (it != m_pickerByShape.end()) found.push_back(*it);
    }
    return found;
}

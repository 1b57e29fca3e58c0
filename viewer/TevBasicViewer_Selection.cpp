// TevBasicViewer: picking at the left release and the highlight of the selection.
//
// Every shape has its own IVtkTools_ShapePicker; a point pick asks in turn the picker of each
// visible shape whose box shows near the point (no other can hit) and takes every hit, not only
// the front one, which is why Tab cycles a cursor through the selection. The level decides
// whether whole shapes (3, 4) or faces and edges (2, 1) are taken.
#include "TevBasicViewer.h"

#include "DrawerOutput.h"
#include "RenderTypeMgr.h"
#include "SelectionMgr.h"

#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapeDataSource.hxx>
#include <IVtkTools_ShapePicker.hxx>
#include <QAction>
#include <vtkActor.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>

void TevBasicViewer::OnLButtonDownMultiPicker(QMouseEvent*)
{
    SelectionMgr* sel = SelectionMgr::GetInstance();
    if (!m_ctrlPressed) {
        sel->ClearSelList();
        emit m_signal_SelChange("");
    }
    const int* pos = GetInteractor()->GetEventPosition();
    // Only the pickers of shapes whose box comes near the point, still in key order.
    for (auto& entry : PickCandidates(pos)) {
        IVtkOCC_Shape* occ = entry.first;
        vtkSmartPointer<vtkActor> actor = m_actorByShape[occ];
        if (actor && !actor->GetVisibility()) continue;
        if (entry.second->Pick(pos[0], pos[1], 0.0, m_renderer) <= 0) continue;
        if (m_selectLevel == 1 || m_selectLevel == 2) {
            AddPickedSubShapes(occ, entry.second, false);
        } else {
            sel->AddToSelectionList(&occ->GetShape());
            emit m_signal_SelChange("");
        }
    }
    PruneRetiredShapes();
    ProcessHighLightedObj();
}

void TevBasicViewer::OnLButtonDownRectPicker(QMouseEvent*)
{
    SelectionMgr* sel = SelectionMgr::GetInstance();
    if (!m_ctrlPressed) sel->ClearSelList();
    for (auto& entry : m_pickerByShape) {
        IVtkOCC_Shape* occ = entry.first;
        vtkSmartPointer<vtkActor> actor = m_actorByShape[occ];
        if (actor && !actor->GetVisibility()) continue;
        // The corners as they come: the band may have been drawn in any direction.
        if (entry.second->Pick(m_pressPos[0], m_pressPos[1], m_releasePos[0], m_releasePos[1], m_renderer) <= 0)
            continue;
        if (m_selectLevel == 3 || m_selectLevel == 4) {
            sel->AddToSelectionList(&occ->GetShape());
            emit m_signal_SelChange("");
        } else {
            AddPickedSubShapes(occ, entry.second, true);
        }
    }
    PruneRetiredShapes();
    ProcessHighLightedObj();
}

void TevBasicViewer::AddPickedSubShapes(IVtkOCC_Shape* occ, IVtkTools_ShapePicker* picker, bool all)
{
    SelectionMgr* sel = SelectionMgr::GetInstance();
    IVtk_ShapeIdList ids = picker->GetPickedSubShapesIds(0, all);
    for (const IVtk_IdType id : ids) {
        sel->AddToSelectionList(&occ->GetSubShape(id));
        emit m_signal_SelChange("");
    }
    // A shape that is itself one face (or one edge) has no sub-shape of that kind: the picker
    // reports the shape itself, which is then what the user picked.
    const TopAbs_ShapeEnum wanted = m_selectLevel == 1 ? TopAbs_EDGE : TopAbs_FACE;
    if (ids.IsEmpty() && occ->GetShape().ShapeType() == wanted) {
        sel->AddToSelectionList(&occ->GetShape());
        emit m_signal_SelChange("");
    }
}

// Not reached: the hover pick of an earlier design, kept with the class.
void TevBasicViewer::OnLButtonDown(QMouseEvent*)
{
    m_picker = IVtkTools_ShapePicker::SafeDownCast(GetInteractor()->GetPicker());
    if (!m_picker) return;
    m_picker->SetTolerance(0.1f);
    const int* pos = GetInteractor()->GetEventPosition();
    m_picker->Pick(pos[0], pos[1], 0.0, m_renderer);
    m_picker->GetPickedActors(false);
    m_picker->GetPickedActors(true);
    ProcessHighLight();
}

void TevBasicViewer::ProcessHighLight()
{
    if (!m_ctrlPressed && m_hoverActor) m_hoverActor->SetMapper(nullptr);
    if (!m_picker || !m_hoverActor) return;
    IVtk_ShapeIdList ids = m_picker->GetPickedShapesIds(false);
    if (ids.IsEmpty()) return;
    m_picker->GetPickedSubShapesIds(ids.First(), false);
    m_hoverActor->SetMapper(vtkSmartPointer<vtkPolyDataMapper>::New());
    m_renderer->AddActor(m_hoverActor);
}

void TevBasicViewer::InitHightActor()
{
    m_hoverActor = vtkActor::New();
    RenderTypeMgr::ApplyHighlightLook(m_hoverActor, 3.0);
}

void TevBasicViewer::InitAllHightActor(vtkSmartPointer<vtkActor> actor)
{
    RenderTypeMgr::ApplyHighlightLook(actor, 6.0);
}

void TevBasicViewer::ShowHighlight(vtkActor* actor, const TopoDS_Shape* shape)
{
    IVtkOCC_Shape::Handle occ = new IVtkOCC_Shape(*shape);
    occ->SetId(0);
    auto source = vtkSmartPointer<IVtkTools_ShapeDataSource>::New();
    source->SetShape(occ);
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(source->GetOutputPort());
    actor->SetMapper(mapper);
    m_renderer->AddActor(actor);
}

void TevBasicViewer::RemoveSelActor()
{
    m_renderer->RemoveActor(m_currentSelActor);
    for (auto& actor : m_selActors) m_renderer->RemoveActor(actor);
}

void TevBasicViewer::ProcessHighLightedObj()
{
    if (!m_renderer) return;
    RemoveSelActor();
    const std::vector<const TopoDS_Shape*>& list = SelectionMgr::GetInstance()->GetshapeList();
    const int n = static_cast<int>(list.size());
    if (n == 0) return;
    emit m_signal_StatusBar(DrawerOutput::GetQStringFromUtf8("选中 %d 个对象", n));
    for (const TopoDS_Shape* shape : list) {
        auto actor = vtkSmartPointer<vtkActor>::New();
        InitAllHightActor(actor);
        m_selActors.push_back(actor);
        ShowHighlight(actor, shape);
    }
}

void TevBasicViewer::HighligtCurrentObject()
{
    if (!m_renderer) return;
    m_renderer->RemoveActor(m_currentSelActor);
    const std::vector<const TopoDS_Shape*>& list = SelectionMgr::GetInstance()->GetshapeList();
    const int n = static_cast<int>(list.size());
    if (n == 0) return;
    m_currentSelIndex = m_currentSelIndex < n ? m_currentSelIndex + 1 : 1;
    m_currentSelActor = vtkSmartPointer<vtkActor>::New();
    InitAllHightActor(m_currentSelActor);
    ShowHighlight(m_currentSelActor, list[m_currentSelIndex - 1]);
    update();
}

// Not reached: the variant that also prints a hint about Tab.
void TevBasicViewer::HighligtFirstObject()
{
    RemoveSelActor();
    const std::vector<const TopoDS_Shape*>& list = SelectionMgr::GetInstance()->GetshapeList();
    const int n = static_cast<int>(list.size());
    if (n == 0) return;
    if (n == 1)
        DrawerOutput::GetInstance()->EmitMessage(0, QString::fromUtf8("点选：选中 1 个对象"));
    else
        DrawerOutput::GetInstance()->EmitMessage(0, DrawerOutput::GetQStringFromUtf8("点选：选中 %d 个对象，可按Tab切换", n));
    m_currentSelActor = vtkSmartPointer<vtkActor>::New();
    InitAllHightActor(m_currentSelActor);
    ShowHighlight(m_currentSelActor, list[0]);
}

void TevBasicViewer::SelectionUpdate()
{
    HighligtCurrentObject();
    emit m_signal_SelChange("");
    update();
}

void TevBasicViewer::SelectionUpdate(QString name)
{
    RunGuarded("SelectionUpdate", [&] {
        for (auto& entry : m_shapeByName) {
            if (QString::compare(entry.first, name, Qt::CaseSensitive) != 0) continue;
            SelectionMgr::GetInstance()->AddToSelectionList(&entry.second->GetShape());
            HighligtCurrentObject();
        }
        emit m_signal_SelChange("");
        update();
    });
}

void TevBasicViewer::RemoveHighLihgt()
{
    if (!m_renderer) return;
    for (auto& actor : m_selActors) m_renderer->RemoveActor(actor);
    m_selActors.clear();
}

void TevBasicViewer::ApplySelectionModes(const std::vector<std::pair<int, bool>>& modes)
{
    m_pickModesChanged = true;
    for (auto& entry : m_pickerByShape) {
        IVtk_IShape::Handle occ(entry.first);
        for (const auto& mode : modes)
            entry.second->SetSelectionMode(occ, static_cast<IVtk_SelectionMode>(mode.first), mode.second);
    }
}

// Checks `checked` among the three level actions and unchecks the other two.
void TevBasicViewer::CheckLevelAction(QAction* checked)
{
    for (QAction* action : {m_actionSelectEdge, m_actionSelectFace, m_actionSelectBody})
        if (action) action->setChecked(action == checked);
    UpdateSelectionLevel();
}

void TevBasicViewer::m_Slot_SetSelectionEdge()
{
    RunGuarded("SetSelectionEdge", [this] {
        ApplySelectionModes({{SM_Solid, false}, {SM_Face, false}, {SM_Edge, true}});
        m_selectLevel = 1;
        CheckLevelAction(m_actionSelectEdge);
    });
}

void TevBasicViewer::m_Slot_SetSelectionFace()
{
    RunGuarded("SetSelectionFace", [this] {
        ApplySelectionModes({{SM_CompSolid, false}, {SM_Solid, false}, {SM_Face, true}, {SM_Edge, false}});
        m_selectLevel = 2;
        CheckLevelAction(m_actionSelectFace);
    });
}

void TevBasicViewer::m_Slot_SetSelectionBody()
{
    RunGuarded("SetSelectionBody", [this] {
        ApplySelectionModes({{SM_Shape, true}, {SM_Face, false}, {SM_Edge, false}});
        m_selectLevel = 3;
        CheckLevelAction(m_actionSelectBody);
    });
}

void TevBasicViewer::UpdateSelectionLevel()
{
    if (m_actionWorkPlane && m_actionSelectFace) m_actionWorkPlane->setEnabled(m_actionSelectFace->isChecked());
}

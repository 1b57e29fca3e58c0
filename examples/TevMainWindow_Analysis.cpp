// The analysis commands of TevMainWindow: they take the solid and the faces the user picked and
// hand them to the analysis panel, and report the outcome in the message panel.
#include "TevMainWindow.h"

#include "SelectionMgr.h"
#include "TevAnalysisPanel.h"
#include "TevModelTree.h"

#include <QTabWidget>
#include <TopExp_Explorer.hxx>

namespace {

bool HasSolid(const TopoDS_Shape& shape)
{
    return !shape.IsNull() && TopExp_Explorer(shape, TopAbs_SOLID).More();
}

}  // namespace

TopoDS_Shape TevMainWindow::ChosenSolid() const
{
    for (const TopoDS_Shape& shape : m_tree->SelectedShapes())
        if (HasSolid(shape)) return shape;
    for (const TopoDS_Shape* shape : SelectionMgr::GetInstance()->GetshapeList())
        if (shape && HasSolid(*shape)) return *shape;
    return TopoDS_Shape();
}

TopoDS_Shape TevMainWindow::PickedFace() const
{
    for (const TopoDS_Shape* shape : SelectionMgr::GetInstance()->GetshapeList())
        if (shape && !shape->IsNull() && shape->ShapeType() == TopAbs_FACE) return *shape;
    return TopoDS_Shape();
}

void TevMainWindow::VolumeMeshSelection()
{
    const TopoDS_Shape solid = ChosenSolid();
    QString error;
    if (solid.IsNull()) error = tr("No solid selected: select a solid to mesh");
    else if (m_analysisPanel->MeshSolid(solid, &error)) {
        m_tabs->setCurrentWidget(m_analysisPanel);
        Say(0, tr("Volume mesh made: %1").arg(m_analysisPanel->StatusText()));
        return;
    }
    Say(2, error);
}

void TevMainWindow::FixPickedFace()
{
    QString error;
    const bool ok = m_analysisPanel->FixFace(PickedFace(), &error);
    Say(ok ? 0 : 2, ok ? m_analysisPanel->StatusText() : error);
}

void TevMainWindow::LoadPickedFace()
{
    QString error;
    const bool ok = m_analysisPanel->LoadFace(PickedFace(), &error);
    Say(ok ? 0 : 2, ok ? m_analysisPanel->StatusText() : error);
}

void TevMainWindow::EditMaterial()
{
    m_analysisPanel->EditMaterial();
}

void TevMainWindow::SolveAnalysis()
{
    QString error;
    if (!m_analysisPanel->Solve(&error)) Say(2, error);
    else m_tabs->setCurrentWidget(m_analysisPanel);
}

void TevMainWindow::CancelSolve()
{
    m_analysisPanel->CancelSolve();
}

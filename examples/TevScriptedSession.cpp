#include "TevScriptedSession.h"

#include "SelectionMgr.h"
#include "ShapeLabelMgr.h"
#include "TevAnalysisPanel.h"
#include "TevCalculixJob.h"
#include "TevBasicViewer.h"
#include "TevMainWindow.h"
#include "TevMeshPanel.h"
#include "TevMessagePanel.h"
#include "TevModelTree.h"
#include "TevUserHand.h"

#include <QAction>
#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <QDir>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <TopExp_Explorer.hxx>
#include <QFileInfo>
#include <QTabWidget>
#include <QTreeWidget>
#include <vtkCamera.h>
#include <vtkRenderer.h>

#include <cmath>
#include <cstdio>

static const int kSettle = 150;  // ms for the window to redraw after a step

void TevScriptedSession::Stage(const QString& text) const
{
    std::printf("session: %s\n", text.toLocal8Bit().constData());
    std::fflush(stdout);
}

void TevScriptedSession::Trigger(const char* action) const
{
    m_window->Action(action)->trigger();
    TevUserHand::Wait(kSettle);
}

QString TevScriptedSession::Path(const QString& name) const
{
    return QDir(m_dir).filePath(name);
}

void TevScriptedSession::Choose(const QStringList& names) const
{
    TevModelTree* tree = m_window->ModelTree();
    tree->clearSelection();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        if (names.contains(tree->topLevelItem(i)->text(0))) tree->topLevelItem(i)->setSelected(true);
    TevUserHand::Wait(kSettle);
}

bool TevScriptedSession::Grab(QWidget* widget, const QString& name) const
{
    TevUserHand::Wait(300);
    return widget->grab().save(Path(name), "PNG");
}

// A 50 x 40 x 30 box from (10, 10), and a cylinder of radius 20 and height 40 on its corner
// (60, 50), by clicks on grid points of the XY plane with the heights typed into the dialog.
void TevScriptedSession::DrawSolids() const
{
    TevBasicViewer* view = m_window->Viewer();
    Trigger("actionBox");
    TevUserHand::Click(view, 10, 10);
    TevUserHand::AnswerDialogLater("DataInputDlg", {{"lineEdit", "30"}});
    TevUserHand::Click(view, 60, 50);
    Trigger("actionCylinder");
    TevUserHand::Click(view, 60, 50);
    TevUserHand::AnswerDialogLater("DataInputDlg", {{"lineEdit", "40"}});
    TevUserHand::Click(view, 80, 50);
    TevUserHand::Wait(kSettle);
}

// The cylinder cut from the box; then a rectangle from (-80, -60) to (-30, -20) extruded by 25.
void TevScriptedSession::CutAndSweep() const
{
    TevBasicViewer* view = m_window->Viewer();
    const QStringList names = m_window->ModelTree()->Names();
    if (names.size() >= 2) Choose({names[0], names[1]});
    Trigger("actionSubtract");
    Trigger("actionCancel");
    Trigger("actionRectangle");
    TevUserHand::Click(view, -80, -60);
    TevUserHand::Click(view, -30, -20);
    Trigger("actionCancel");
    Choose({m_window->ModelTree()->Names().last()});
    Trigger("actionExtrude");
    TevUserHand::AnswerDialogLater("ExtrudInputDlg", {{"lineEdit_Height", "25"}});
    Trigger("actionConfirm");
    Trigger("actionCancel");
}

bool TevScriptedSession::WriteFiles() const
{
    bool ok = true;
    auto writeAs = [this, &ok](const char* action, const QString& name) {
        m_window->SetFileChooser([this, name](bool, const QString&, const QString&) { return Path(name); });
        Trigger(action);
        ok = ok && QFileInfo::exists(Path(name));
    };
    m_window->MeshPanel()->ChooseFormat(18);
    writeAs("actionExportMesh", "mesh.bdf");
    m_window->MeshPanel()->ChooseFormat(-17);
    QFile::remove(Path("mesh.lst"));  // the listing appends
    writeAs("actionExportMesh", "mesh.lst");
    writeAs("actionSave", "model.xbf");
    writeAs("actionExport", "model.step");
    return ok;
}

namespace {

// The face of `shape` whose centre of mass has this x, or a null shape.
TopoDS_Shape FaceAtX(const TopoDS_Shape& shape, double x)
{
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) {
        GProp_GProps props;
        BRepGProp::SurfaceProperties(it.Current(), props);
        if (std::fabs(props.CentreOfMass().X() - x) < 1e-6) return it.Current();
    }
    return TopoDS_Shape();
}

}  // namespace

// A box from (-100, 50) to (0, 90), 20 high, less a cylinder of radius 10 through it at
// (-50, 70) (clicks land on the grid of 10); its end faces x = -100 (clamped) and x = 0 (1000
// down in total).
bool TevScriptedSession::Analyse() const
{
    TevBasicViewer* view = m_window->Viewer();
    Trigger("actionPlaneXY");
    Trigger("actionBox");
    TevUserHand::Click(view, -100, 50);
    TevUserHand::AnswerDialogLater("DataInputDlg", {{"lineEdit", "20"}});
    TevUserHand::Click(view, 0, 90);
    Trigger("actionCylinder");
    TevUserHand::Click(view, -50, 70);
    TevUserHand::AnswerDialogLater("DataInputDlg", {{"lineEdit", "30"}});
    TevUserHand::Click(view, -40, 70);
    TevUserHand::Wait(kSettle);
    const QStringList names = m_window->ModelTree()->Names();
    if (names.size() < 2) return false;
    Choose({names[names.size() - 2], names.last()});
    Trigger("actionSubtract");
    Trigger("actionCancel");
    Choose({m_window->ModelTree()->Names().last()});
    const std::vector<TopoDS_Shape> chosen = m_window->ModelTree()->SelectedShapes();
    if (chosen.empty()) return false;
    TevAnalysisPanel* panel = m_window->AnalysisPanel();
    panel->SetElementSize(4.0);
    panel->SetOrder(2);
    Trigger("actionVolumeMesh");
    Stage("volume mesh of the box with a hole: " + panel->StatusText());
    const TopoDS_Shape clamp = FaceAtX(chosen[0], -100.0), tip = FaceAtX(chosen[0], 0.0);
    SelectionMgr* selection = SelectionMgr::GetInstance();
    selection->ClearSelList();
    selection->AddToSelectionList(&clamp);
    Trigger("actionFixFace");
    selection->ClearSelList();
    selection->AddToSelectionList(&tip);
    panel->SetLoad(false, 0.0, 0.0, -1000.0);
    Trigger("actionLoadFace");
    selection->ClearSelList();
    TevUserHand::AnswerDialogLater("TevMaterialDialog", {{"materialYoung", "210000"}, {"materialPoisson", "0.3"}, {"materialDensity", "7.85e-9"}});
    Trigger("actionMaterial");
    bool ended = false, solved = false;
    QObject::connect(panel, &TevAnalysisPanel::m_signal_Solved, [&](bool ok) { ended = true, solved = ok; });
    Trigger("actionSolve");
    QElapsedTimer clock;
    clock.start();
    while (!ended && panel->Job()->IsRunning() && clock.elapsed() < 300000) TevUserHand::Wait(100);
    Stage("solve: " + panel->StatusText());
    if (!solved) {
        const auto& lines = m_window->Messages()->Lines();
        if (!lines.empty()) Stage("last message: " + lines.back().second);
        return false;
    }
    panel->SetQuantity(1);
    panel->SetScale(20.0);
    return Grab(m_window, "analysis.png");
}

int TevScriptedSession::Run()
{
    if (!QDir().mkpath(m_dir)) {
        Stage("cannot make the output folder " + m_dir);
        return 1;
    }
    Stage("output folder " + QDir(m_dir).absolutePath());
    Stage("drawing a box and a cylinder");
    DrawSolids();
    Stage("subtracting the cylinder from the box, extruding a rectangle");
    CutAndSweep();
    TevBasicViewer* view = m_window->Viewer();
    view->SetISO();
    view->GetDefaultRender()->GetActiveCamera()->Azimuth(25.0);
    view->UpdateViewer();
    bool ok = Grab(m_window, "model.png");
    Stage(QString("%1 shapes in the document; model.png").arg(ShapeLabelMgr::GetInstance()->GetAllShapes().size()));
    m_window->ModelTree()->clearSelection();
    Trigger("actionMesh");
    ok = Grab(m_window, "mesh.png") && ok;
    Stage("meshed all shapes (" + m_window->MeshPanel()->CountsText() + "); mesh.png");
    ok = WriteFiles() && ok;
    Stage(ok ? "wrote mesh.bdf, mesh.lst, model.xbf and model.step" : "some files were not written");
    if (QStandardPaths::findExecutable("ccx").isEmpty()) {
        Stage("CalculiX (ccx) is not installed: the analysis is left out");
        return ok ? 0 : 1;
    }
    const bool analysed = Analyse();
    Stage(analysed ? "solved the box with a hole; analysis.png" : "the analysis did not finish");
    ok = analysed && ok;
    return ok ? 0 : 1;
}

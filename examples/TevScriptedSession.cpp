#include "TevScriptedSession.h"

#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"
#include "TevMainWindow.h"
#include "TevMeshPanel.h"
#include "TevModelTree.h"
#include "TevUserHand.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QTabWidget>
#include <QTreeWidget>
#include <vtkCamera.h>
#include <vtkRenderer.h>

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
    return ok ? 0 : 1;
}

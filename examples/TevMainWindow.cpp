#include "TevMainWindow.h"

#include "DrawerOutput.h"
#include "SelectionMgr.h"
#include "TevAnalysisPanel.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"
#include "TevDemoApplication.h"
#include "TevDocumentFiles.h"
#include "TevMeshFormats.h"
#include "TevMeshPanel.h"
#include "TevMessagePanel.h"
#include "TevModelTree.h"
#include "TevOperationRunner.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QStatusBar>
#include <QTabWidget>
#include <XCAFDoc_ShapeTool.hxx>

TevMainWindow::TevMainWindow(QWidget* parent) : QMainWindow(parent)
{
    setObjectName("tevMainWindow");
    setWindowTitle(tr("TevBasicViewer demo host"));
    m_chooseFile = [this](bool save, const QString& caption, const QString& filter) {
        return save ? QFileDialog::getSaveFileName(this, caption, QString(), filter)
                    : QFileDialog::getOpenFileName(this, caption, QString(), filter);
    };
    CreatePanels();
    m_runner = std::make_unique<TevOperationRunner>(m_viewer);
    CreateActions();
    ConnectSignals();
    ShapeDocMgr::GetInstance();
    RefreshFromDocument();
    statusBar()->showMessage(tr("Ready"));
}

TevMainWindow::~TevMainWindow() = default;

void TevMainWindow::CreatePanels()
{
    m_viewer = new TevBasicViewer("TevPlatform");
    m_viewer->InitViewer();
    m_meshPanel = new TevMeshPanel;
    m_tabs = new QTabWidget;
    m_tabs->setObjectName("centralTabs");
    m_tabs->addTab(m_viewer, tr("Model"));
    m_tabs->addTab(m_meshPanel, tr("Mesh"));
    m_analysisPanel = new TevAnalysisPanel;
    m_tabs->addTab(m_analysisPanel, tr("Analysis"));
    setCentralWidget(m_tabs);

    m_tree = new TevModelTree(m_viewer);
    auto* treeDock = new QDockWidget(tr("Model tree"), this);
    treeDock->setObjectName("modelTreeDock");
    treeDock->setWidget(m_tree);
    addDockWidget(Qt::LeftDockWidgetArea, treeDock);

    m_messages = new TevMessagePanel;
    auto* messageDock = new QDockWidget(tr("Messages"), this);
    messageDock->setObjectName("messageDock");
    messageDock->setWidget(m_messages);
    addDockWidget(Qt::BottomDockWidgetArea, messageDock);
    resizeDocks({treeDock, messageDock}, {200, 130}, Qt::Horizontal);
    resizeDocks({messageDock}, {130}, Qt::Vertical);
}

void TevMainWindow::ConnectSignals()
{
    connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message, m_messages, &TevMessagePanel::AddLine);
    connect(m_viewer, &TevBasicViewer::m_signal_StatusBar, this,
            [this](QString text) { statusBar()->showMessage(text); });
    connect(m_viewer, &TevBasicViewer::m_signal_SelChange, m_tree, &TevModelTree::FollowViewer);
    // Operations and Booleans change the document and then rebuild the view.
    connect(m_viewer, &TevBasicViewer::m_signal_ViewerUpdated, m_tree, &TevModelTree::RebuildIfChanged);
    connect(m_meshPanel, &TevMeshPanel::m_signal_MeshRequested, this, &TevMainWindow::MeshSelection);
    connect(m_meshPanel, &TevMeshPanel::m_signal_ExportRequested, this, &TevMainWindow::ExportMesh);
    connect(m_analysisPanel, &TevAnalysisPanel::m_signal_Message, this, &TevMainWindow::Say);
    if (auto* app = qobject_cast<TevDemoApplication*>(QCoreApplication::instance()))
        connect(app, &TevDemoApplication::m_signal_FailureCaught, this, &TevMainWindow::RefreshFromDocument);
}

QAction* TevMainWindow::Action(const QString& name) const
{
    return findChild<QAction*>(name);
}

void TevMainWindow::Say(int level, const QString& text)
{
    DrawerOutput::GetInstance()->EmitMessage(level, text);
}

void TevMainWindow::RefreshFromDocument()
{
    m_viewer->UpdateRefreshViewer();
    m_tree->Rebuild();
}

std::vector<TopoDS_Shape> TevMainWindow::ChosenShapes() const
{
    std::vector<TopoDS_Shape> shapes = m_tree->SelectedShapes();
    return shapes.empty() ? ShapeLabelMgr::GetInstance()->GetAllShapes() : shapes;
}

void TevMainWindow::NewDocument()
{
    m_runner->EndRunning();
    SelectionMgr::GetInstance()->ClearSelList();
    ShapeDocMgr::GetInstance()->NewDocument();
    RefreshFromDocument();
    Say(0, tr("New document"));
}

void TevMainWindow::OpenDocument()
{
    const QString path = m_chooseFile(false, tr("Open document"), tr("Documents (*.xbf *.xml)"));
    if (path.isEmpty()) return;
    m_runner->EndRunning();
    SelectionMgr::GetInstance()->ClearSelList();
    QString error;
    const bool ok = ShapeDocMgr::GetInstance()->OpenDocument(path, &error);
    RefreshFromDocument();
    Say(ok ? 0 : 2, ok ? tr("Opened %1").arg(path) : error);
}

void TevMainWindow::SaveDocument()
{
    QString path = m_chooseFile(true, tr("Save document"), tr("Binary document (*.xbf);;XML document (*.xml)"));
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += ".xbf";
    QString error;
    const bool ok = ShapeDocMgr::GetInstance()->SaveDocument(path, &error);
    Say(ok ? 0 : 2, ok ? tr("Saved %1").arg(path) : error);
}

void TevMainWindow::ImportShapes()
{
    const QString path = m_chooseFile(false, tr("Import shapes"), tr("STEP or IGES (*.step *.stp *.iges *.igs)"));
    if (path.isEmpty()) return;
    m_runner->EndRunning();
    int added = 0;
    QString error;
    const bool ok = TevDocumentFiles::Import(path, TevDocumentFiles::FormatOf(path), &added, &error);
    RefreshFromDocument();
    Say(ok ? 0 : 2, ok ? tr("Imported %1 shape(s) from %2").arg(added).arg(path) : error);
}

void TevMainWindow::ExportShapes()
{
    const QString path = m_chooseFile(true, tr("Export shapes"), tr("STEP (*.step *.stp);;IGES (*.iges *.igs)"));
    if (path.isEmpty()) return;
    QString error;
    const bool ok = TevDocumentFiles::Export(path, TevDocumentFiles::FormatOf(path), &error);
    Say(ok ? 0 : 2, ok ? tr("Exported the document to %1").arg(path) : error);
}

void TevMainWindow::Undo()
{
    m_runner->EndRunning();
    if (!ShapeDocMgr::GetInstance()->Undo()) Say(0, tr("Nothing to undo"));
    RefreshFromDocument();
}

void TevMainWindow::Redo()
{
    m_runner->EndRunning();
    if (!ShapeDocMgr::GetInstance()->Redo()) Say(0, tr("Nothing to redo"));
    RefreshFromDocument();
}

void TevMainWindow::DeleteSelection()
{
    const std::vector<TopoDS_Shape> shapes = m_tree->SelectedShapes();
    if (shapes.empty()) {
        Say(0, tr("Select the shapes to delete first"));
        return;
    }
    m_runner->EndRunning();
    SelectionMgr::GetInstance()->ClearSelList();
    ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
    doc->StartTransaction();
    for (const TopoDS_Shape& shape : shapes) {
        const TDF_Label label = ShapeLabelMgr::GetInstance()->FindLabel(shape);
        if (!label.IsNull()) doc->GetShapeTool()->RemoveShape(label);
    }
    doc->EndTransaction();
    RefreshFromDocument();
    Say(0, tr("Deleted %1 shape(s)").arg(shapes.size()));
}

// Escape as the view takes it: it ends the running operation, or clears the selection.
void TevMainWindow::Cancel()
{
    m_runner->PressEscape();
}

void TevMainWindow::MeshSelection()
{
    QString error;
    if (!m_meshPanel->MeshShapes(ChosenShapes(), &error)) {
        Say(2, error);
        return;
    }
    m_tabs->setCurrentWidget(m_meshPanel);
    Say(0, tr("Mesh made: %1").arg(m_meshPanel->CountsText()));
}

void TevMainWindow::ExportMesh()
{
    const TevMeshFormat* format = TevMeshFormats::Find(m_meshPanel->ChosenFormat());
    if (!format) return;
    const QString filter = format->suffix.isEmpty() ? tr("%1 (*)").arg(format->name)
                                                    : tr("%1 (*.%2)").arg(format->name, format->suffix);
    const QString path = m_chooseFile(true, tr("Export mesh"), filter);
    if (path.isEmpty()) return;
    QString error;
    const bool ok = m_meshPanel->Export(path, format->code, &error);
    Say(ok ? 0 : 2, ok ? tr("Mesh written to %1 as %2").arg(path, format->name) : error);
}

// TevMainWindow: the demo host's main window around a TevBasicViewer, built only on the
// library's public headers.
//
// Menus and toolbars hold one action for every drawing operation (from TevDrawOpCatalog), the
// seven views, the three principal work planes and the face plane, the selection levels, the
// display modes, the mouse modes, the Booleans, undo and redo, delete, cancel and confirm, the
// document's files (OCAF binary or XML), STEP and IGES import and export, the mesh commands and
// the analysis commands (volume mesh, fix and load the picked face, material, solve, cancel).
// Every action has an object name ("actionBox", "actionUndo", ...), an icon and a tooltip;
// Ctrl+Z, Ctrl+Y, Delete and Escape are their usual commands.
//
// Around the view: the model tree (left), the message panel fed by DrawerOutput (bottom), the
// status bar fed by the viewer's m_signal_StatusBar, a second tab with the mesh panel and a third
// with the analysis panel.
// File names come from a chooser, by default Qt's file dialogs; a caller can put its own in
// (SetFileChooser), as a scripted session or a test does.
#ifndef TEVMAINWINDOW_H
#define TEVMAINWINDOW_H

#include <QKeySequence>
#include <QMainWindow>
#include <QString>
#include <TopoDS_Shape.hxx>

#include <functional>
#include <memory>
#include <vector>

class QTabWidget;
class TevAnalysisPanel;
class TevBasicViewer;
class TevMeshPanel;
class TevMessagePanel;
class TevModelTree;
class TevOperationRunner;

class TevMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // Chooses a file to open (save false) or to write (save true); empty when the user declined.
    using FileChooser = std::function<QString(bool save, const QString& caption, const QString& filter)>;

    explicit TevMainWindow(QWidget* parent = nullptr);
    ~TevMainWindow() override;

    TevBasicViewer* Viewer() const { return m_viewer; }
    TevMessagePanel* Messages() const { return m_messages; }
    TevModelTree* ModelTree() const { return m_tree; }
    TevMeshPanel* MeshPanel() const { return m_meshPanel; }
    TevAnalysisPanel* AnalysisPanel() const { return m_analysisPanel; }
    QTabWidget* Tabs() const { return m_tabs; }
    // The action with this object name; null when there is none.
    QAction* Action(const QString& name) const;
    void SetFileChooser(FileChooser chooser) { m_chooseFile = std::move(chooser); }

public slots:
    // Redraws the view from the document (clearing the selection) and rebuilds the tree.
    void RefreshFromDocument();

private slots:
    void NewDocument();
    void OpenDocument();
    void SaveDocument();
    void ImportShapes();
    void ExportShapes();
    void Undo();
    void Redo();
    void DeleteSelection();
    void Cancel();
    void MeshSelection();
    void ExportMesh();
    // The analysis commands (TevMainWindow_Analysis.cpp).
    void VolumeMeshSelection();
    void FixPickedFace();
    void LoadPickedFace();
    void EditMaterial();
    void SolveAnalysis();
    void CancelSolve();

private:
    void CreatePanels();
    void ConnectSignals();
    // The menus and toolbars (TevMainWindow_Actions.cpp).
    void CreateActions();
    void CreateFileActions();
    void CreateEditActions();
    void CreateDrawActions();
    void CreateViewActions();
    void CreateModeActions();
    void CreateMeshActions();
    void CreateAnalysisActions();
    // The solid to mesh: the first of the tree's marked shapes, else the picked shape.
    TopoDS_Shape ChosenSolid() const;
    // The face picked in the view, or a null shape.
    TopoDS_Shape PickedFace() const;
    QAction* MakeAction(const QString& name, const QString& text, const QString& tooltip, const QIcon& icon,
                        const QKeySequence& shortcut = QKeySequence());
    // Actions of one exclusive choice, the first checked.
    void MakeChoice(QMenu* menu, QToolBar* bar, const std::vector<QAction*>& actions);

    // A note (level 0) or a fault (level 2) in the message panel.
    void Say(int level, const QString& text);
    // The chosen shapes: the tree's marked rows, or every shape of the document when none is.
    std::vector<TopoDS_Shape> ChosenShapes() const;

    TevBasicViewer* m_viewer = nullptr;
    TevMessagePanel* m_messages = nullptr;
    TevModelTree* m_tree = nullptr;
    TevMeshPanel* m_meshPanel = nullptr;
    TevAnalysisPanel* m_analysisPanel = nullptr;
    QTabWidget* m_tabs = nullptr;
    std::unique_ptr<TevOperationRunner> m_runner;
    FileChooser m_chooseFile;
};

#endif

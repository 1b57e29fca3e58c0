// TevMeshPanel: the mesh tab. It holds the surface mesh the host made last (a vis_Connect it
// owns), shows it in a mesh view of its own (a TevBasicViewer named "CAE-TevViewer", so without
// axes and grid, through TevMeshRender) and writes it in any form of TevMeshFormats. Meshing and
// writing run under a progress dialog that shows when the work takes longer than half a second;
// meshing can be cancelled between shapes.
#ifndef TEVMESHPANEL_H
#define TEVMESHPANEL_H

#include "TevPropTracker.h"

#include <QString>
#include <QWidget>
#include <TopoDS_Shape.hxx>

#include <vector>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class TevBasicViewer;
struct vis_Connect;

class TevMeshPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TevMeshPanel(QWidget* parent = nullptr);
    ~TevMeshPanel() override;

    // Meshes `shapes` with the panel's deflection and shows the result in place of the last
    // mesh. False, with the last mesh kept, when there is no shape or the user cancelled.
    bool MeshShapes(const std::vector<TopoDS_Shape>& shapes, QString* error);
    // Writes the mesh to `path` in the form of vis_ConnectWrite code `code`. False with the
    // reason when there is no mesh or the library reports an error.
    bool Export(const QString& path, int code, QString* error);

    // The mesh shown, or null; it stays the panel's.
    vis_Connect* Mesh() const { return m_connect; }
    // The code of the form chosen in the panel.
    int ChosenFormat() const;
    void ChooseFormat(int code);
    TevBasicViewer* MeshView() const { return m_view; }
    // "<n> nodes, <m> triangles" of the mesh shown, or "No mesh".
    QString CountsText() const;

signals:
    // The user asked for a mesh of the selection, or for an export.
    void m_signal_MeshRequested();
    void m_signal_ExportRequested();

private:
    void ShowMesh();

    TevBasicViewer* m_view;
    QDoubleSpinBox* m_deflection;
    QComboBox* m_format;
    QLabel* m_counts;
    vis_Connect* m_connect = nullptr;
    TevPropTracker m_meshActors;  // actors of the mesh shown
};

#endif

// TevAnalysisPanel: the analysis tab. From one solid of the document to its solved, deformed
// and coloured volume mesh:
//   1. MeshSolid: tetrahedra of the chosen size and order (TevVolumeMesher) under a progress
//      dialog with a cancel button, the mesh's boundary shown in the tab's own view;
//   2. FixFace and LoadFace: faces picked in the model view (at the face selection level), made
//      the clamp and the load (a total force, or a pressure) of a TevAnalysisModel;
//   3. EditMaterial: the material dialog;
//   4. Solve: the model written and run by TevCalculixJob; the solver's lines and the outcome
//      go out as messages, and Cancel stops it;
//   5. ShowResult: the deformed boundary coloured by the chosen quantity, with a colour bar
//      (TevResultRender).
// Every failure is returned or sent as one message; the mesh, model and last results stay as
// they were. A new mesh drops the model and the results of the old one.
#ifndef TEVANALYSISPANEL_H
#define TEVANALYSISPANEL_H

#include "TevPropTracker.h"

#include <QString>
#include <QWidget>
#include <TopoDS_Shape.hxx>

#include <memory>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QTemporaryDir;
class TevAnalysisModel;
class TevBasicViewer;
class TevCalculixJob;
class TevResultRender;
class TevVolumeMesh;

class TevAnalysisPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TevAnalysisPanel(QWidget* parent = nullptr);
    ~TevAnalysisPanel() override;

    bool MeshSolid(const TopoDS_Shape& shape, QString* error);
    // `face` must be a face of the meshed solid.
    bool FixFace(const TopoDS_Shape& face, QString* error);
    bool LoadFace(const TopoDS_Shape& face, QString* error);
    // Opens the material dialog; true when a new material was taken.
    bool EditMaterial();
    // Starts the solve; false with the reason when there is no mesh or the model is not ready.
    bool Solve(QString* error);
    void CancelSolve();
    // Draws the last results with the chosen quantity and scale.
    bool ShowResult(QString* error);

    // The choices of the tab, for scripts and tests.
    void SetElementSize(double size);
    void SetOrder(int order);
    // A total force (fx, fy, fz), or with `pressure` true a pressure of fx.
    void SetLoad(bool pressure, double fx, double fy, double fz);
    // 0 displacement magnitude, 1 von Mises stress.
    void SetQuantity(int quantity);
    void SetScale(double scale);
    // The solver program (the field "analysisSolver"; "ccx" at first).
    void SetSolver(const QString& program);

    TevBasicViewer* View() const { return m_view; }
    TevVolumeMesh* Mesh() const { return m_mesh.get(); }
    TevAnalysisModel* Model() const { return m_model.get(); }
    TevCalculixJob* Job() const { return m_job; }
    TevResultRender* Result() const { return m_result.get(); }
    QString StatusText() const;

signals:
    // A note (level 0) or a fault (level 2) for the message panel.
    void m_signal_Message(int level, const QString& text);
    // The solve ended, with its outcome.
    void m_signal_Solved(bool ok);

private:
    int FaceNumber(const TopoDS_Shape& face, QString* error) const;
    void SolveEnded(bool ok, const QString& message);
    void ShowBoundary();
    void SetStatus(const QString& text);

    TevBasicViewer* m_view;
    QDoubleSpinBox* m_size;
    QComboBox* m_order;
    QComboBox* m_loadKind;
    QDoubleSpinBox* m_load[3];
    QComboBox* m_quantity;
    QDoubleSpinBox* m_scale;
    QLabel* m_status;
    QLineEdit* m_solver;
    TevCalculixJob* m_job;
    TopoDS_Shape m_solid;
    std::unique_ptr<TevVolumeMesh> m_mesh;
    std::unique_ptr<TevAnalysisModel> m_model;
    std::unique_ptr<TevResultRender> m_result;
    std::unique_ptr<QTemporaryDir> m_workDir;
    TevPropTracker m_boundaryActors;  // actors of the boundary shown
};

#endif

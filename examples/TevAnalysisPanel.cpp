#include "TevAnalysisPanel.h"

#include "TevAnalysisModel.h"
#include "TevBasicViewer.h"
#include "TevCalculixJob.h"
#include "TevMaterialDialog.h"
#include "TevMeshRender.h"
#include "TevResultRender.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"
#include "vis_Connect.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <vtkRenderer.h>

namespace {

QDoubleSpinBox* Spin(const char* name, double lo, double hi, double value, int decimals)
{
    auto* spin = new QDoubleSpinBox;
    spin->setObjectName(name);
    spin->setRange(lo, hi);
    spin->setDecimals(decimals);
    spin->setValue(value);
    return spin;
}

}  // namespace

TevAnalysisPanel::TevAnalysisPanel(QWidget* parent)
    : QWidget(parent), m_job(new TevCalculixJob(this)), m_result(std::make_unique<TevResultRender>())
{
    setObjectName("analysisPanel");
    m_view = new TevBasicViewer("CAE-TevViewer");
    m_view->InitViewer();
    m_view->SetViewerType(VIEW_TYPE_MESH);
    m_size = Spin("analysisSize", 0.01, 1000.0, 5.0, 3);
    m_order = new QComboBox;
    m_order->setObjectName("analysisOrder");
    m_order->addItem(tr("Linear tetrahedra"), 1);
    m_order->addItem(tr("Quadratic tetrahedra"), 2);
    m_order->setCurrentIndex(1);
    m_loadKind = new QComboBox;
    m_loadKind->setObjectName("analysisLoadKind");
    m_loadKind->addItems({tr("Total force (x, y, z)"), tr("Pressure (first value)")});
    const char* names[3] = {"analysisLoadX", "analysisLoadY", "analysisLoadZ"};
    for (int k = 0; k < 3; ++k) m_load[k] = Spin(names[k], -1e9, 1e9, k == 2 ? -100.0 : 0.0, 4);
    m_quantity = new QComboBox;
    m_quantity->setObjectName("analysisQuantity");
    m_quantity->addItems({tr("Displacement magnitude"), tr("von Mises stress")});
    m_scale = Spin("analysisScale", 0.0, 1e9, 1.0, 3);
    m_solver = new QLineEdit("ccx");
    m_solver->setObjectName("analysisSolver");
    m_status = new QLabel(tr("No volume mesh"));
    m_status->setObjectName("analysisStatus");
    m_status->setWordWrap(true);
    auto* solve = new QPushButton(tr("Solve"));
    auto* cancel = new QPushButton(tr("Cancel solve"));
    auto* material = new QPushButton(tr("Material..."));
    connect(solve, &QPushButton::clicked, this, [this] {
        QString error;
        if (!Solve(&error)) emit m_signal_Message(2, error);
    });
    connect(cancel, &QPushButton::clicked, this, &TevAnalysisPanel::CancelSolve);
    connect(material, &QPushButton::clicked, this, &TevAnalysisPanel::EditMaterial);
    auto redraw = [this] {
        QString error;
        if (m_job->Displacement() && m_mesh) ShowResult(&error);
    };
    connect(m_quantity, QOverload<int>::of(&QComboBox::currentIndexChanged), this, redraw);
    connect(m_scale, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, redraw);
    connect(m_job, &TevCalculixJob::m_signal_Output, this, [this](const QString& line) { emit m_signal_Message(0, line); });
    connect(m_job, &TevCalculixJob::m_signal_Finished, this, &TevAnalysisPanel::SolveEnded);

    auto* form = new QFormLayout;
    form->addRow(tr("Element size"), m_size);
    form->addRow(tr("Elements"), m_order);
    form->addRow(tr("Load"), m_loadKind);
    for (int k = 0; k < 3; ++k) form->addRow(QString("xyz").mid(k, 1), m_load[k]);
    form->addRow(material);
    form->addRow(tr("Solver"), m_solver);
    form->addRow(solve);
    form->addRow(cancel);
    form->addRow(tr("Colour by"), m_quantity);
    form->addRow(tr("Deformation scale"), m_scale);
    form->addRow(m_status);
    auto* side = new QVBoxLayout;
    side->addLayout(form);
    side->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(side);
    layout->addWidget(m_view, 1);
}

TevAnalysisPanel::~TevAnalysisPanel()
{
    m_result->Clear();
}

QString TevAnalysisPanel::StatusText() const
{
    return m_status->text();
}

void TevAnalysisPanel::SetStatus(const QString& text)
{
    m_status->setText(text);
}

void TevAnalysisPanel::SetElementSize(double size) { m_size->setValue(size); }
void TevAnalysisPanel::SetOrder(int order) { m_order->setCurrentIndex(order == 1 ? 0 : 1); }
void TevAnalysisPanel::SetQuantity(int quantity) { m_quantity->setCurrentIndex(quantity == 1 ? 1 : 0); }
void TevAnalysisPanel::SetScale(double scale) { m_scale->setValue(scale); }
void TevAnalysisPanel::SetSolver(const QString& program) { m_solver->setText(program); }

void TevAnalysisPanel::SetLoad(bool pressure, double fx, double fy, double fz)
{
    m_loadKind->setCurrentIndex(pressure ? 1 : 0);
    m_load[0]->setValue(fx);
    m_load[1]->setValue(fy);
    m_load[2]->setValue(fz);
}

bool TevAnalysisPanel::MeshSolid(const TopoDS_Shape& shape, QString* error)
{
    if (m_job->IsRunning()) {
        if (error) *error = tr("A solve is running: cancel it before meshing again");
        return false;
    }
    QProgressDialog progress(tr("Meshing the solid..."), tr("Cancel"), 0, 4, this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    std::string reason;
    const TevVolumeMesher::Options options{m_size->value(), m_order->currentData().toInt()};
    auto mesh = TevVolumeMesher::Mesh(shape, options, &reason, [&progress](int done, int total) {
        progress.setMaximum(total);
        progress.setValue(done);
        return !progress.wasCanceled();
    });
    if (!mesh) {
        if (error) *error = QString::fromStdString(reason);
        return false;
    }
    m_result->Clear();
    m_job->ClearResults();
    m_model.reset();
    m_mesh = std::move(mesh);
    m_model = std::make_unique<TevAnalysisModel>(*m_mesh);
    m_solid = shape;
    ShowBoundary();
    SetStatus(tr("%1 nodes, %2 tetrahedra").arg(m_mesh->NodeCount()).arg(m_mesh->ElementCount()));
    return true;
}

// The boundary through TevMeshRender, in place of the last one.
void TevAnalysisPanel::ShowBoundary()
{
    vis_Connect* skin = m_mesh->NewSkin();
    m_boundaryActors.Replace(m_view->GetDefaultRender(), [this, skin] { TevMeshRender().DisplayMesh(skin, m_view->GetDefaultRender()); });
    vis_ConnectDelete(skin);
    m_view->SetISO();
    m_view->UpdateViewer();
}

int TevAnalysisPanel::FaceNumber(const TopoDS_Shape& face, QString* error) const
{
    if (!m_mesh) {
        if (error) *error = tr("No volume mesh: mesh a solid first");
        return 0;
    }
    if (face.IsNull() || face.ShapeType() != TopAbs_FACE) {
        if (error) *error = tr("Pick a face (select faces, then click one)");
        return 0;
    }
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(m_solid, TopAbs_FACE, faces);
    for (int i = 1; i <= faces.Extent(); ++i)
        if (faces(i).TShape() == face.TShape()) return i;
    if (error) *error = tr("The picked face is not a face of the meshed solid");
    return 0;
}

bool TevAnalysisPanel::FixFace(const TopoDS_Shape& face, QString* error)
{
    const int number = FaceNumber(face, error);
    std::string reason;
    if (number == 0) return false;
    if (!m_model->SetFixedFace(number, &reason)) {
        if (error) *error = QString::fromStdString(reason);
        return false;
    }
    SetStatus(tr("Face %1 fixed: %2 nodes").arg(number).arg(m_mesh->FaceNodes(number).size()));
    return true;
}

bool TevAnalysisPanel::LoadFace(const TopoDS_Shape& face, QString* error)
{
    const int number = FaceNumber(face, error);
    if (number == 0) return false;
    std::string reason;
    const bool pressure = m_loadKind->currentIndex() == 1;
    const bool ok = pressure ? m_model->SetPressure(number, m_load[0]->value(), &reason)
                             : m_model->SetForce(number, {m_load[0]->value(), m_load[1]->value(), m_load[2]->value()}, &reason);
    if (!ok) {
        if (error) *error = QString::fromStdString(reason);
        return false;
    }
    SetStatus(pressure ? tr("Face %1 loaded by a pressure of %2").arg(number).arg(m_load[0]->value())
                       : tr("Face %1 loaded by a total force (%2, %3, %4)").arg(number).arg(m_load[0]->value()).arg(m_load[1]->value()).arg(m_load[2]->value()));
    return true;
}

bool TevAnalysisPanel::EditMaterial()
{
    TevMaterialDialog dialog(m_model ? m_model->GetMaterial() : TevAnalysisModel::Material(), this);
    if (dialog.exec() != QDialog::Accepted || !m_model) return false;
    m_model->SetMaterial(dialog.Material(), nullptr);
    const TevAnalysisModel::Material m = m_model->GetMaterial();
    emit m_signal_Message(0, tr("Material: E %1, nu %2, density %3").arg(m.young).arg(m.poisson).arg(m.density));
    return true;
}

bool TevAnalysisPanel::Solve(QString* error)
{
    QString reason;
    std::string why;
    vis_Model* model = nullptr;
    if (!m_mesh) reason = tr("No volume mesh: mesh a solid first");
    else if (!(model = m_model->Build(&why))) reason = QString::fromStdString(why);
    if (reason.isEmpty() && !m_workDir) {
        m_workDir = std::make_unique<QTemporaryDir>();
        if (!m_workDir->isValid()) reason = tr("Cannot make a folder for the solver");
    }
    m_job->SetSolver(m_solver->text().trimmed());
    if (reason.isEmpty() && !m_job->Start(model, m_mesh->NodeCount(), m_workDir->path(), &reason)) m_workDir.reset();
    if (!reason.isEmpty()) {
        if (error) *error = reason;
        return false;
    }
    SetStatus(tr("Solving..."));
    emit m_signal_Message(0, tr("Solving in %1 with %2").arg(m_workDir->path(), m_job->Solver()));
    return true;
}

void TevAnalysisPanel::CancelSolve()
{
    m_job->Cancel();
}

void TevAnalysisPanel::SolveEnded(bool ok, const QString& message)
{
    SetStatus(message);
    emit m_signal_Message(ok ? 0 : 2, message);
    QString error;
    if (ok && !ShowResult(&error)) emit m_signal_Message(2, error);
    emit m_signal_Solved(ok);
}

bool TevAnalysisPanel::ShowResult(QString* error)
{
    std::string reason;
    if (!m_mesh || !m_result->Show(*m_mesh, m_job->Displacement(), m_job->Stress(),
                                   m_quantity->currentIndex() == 1 ? TevResultRender::Quantity::VonMises
                                                                   : TevResultRender::Quantity::Displacement,
                                   m_scale->value(), m_view->GetDefaultRender(), &reason)) {
        if (error) *error = m_mesh ? QString::fromStdString(reason) : tr("No volume mesh: mesh a solid first");
        return false;
    }
    m_boundaryActors.SetVisibility(false);
    m_view->UpdateViewer();
    return true;
}

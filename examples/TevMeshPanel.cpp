#include "TevMeshPanel.h"

#include "TevBasicViewer.h"
#include "TevMeshFormats.h"
#include "TevMeshRender.h"
#include "TevShapeMesher.h"
#include "vis_Connect.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemTopology.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <vtkRenderer.h>

TevMeshPanel::TevMeshPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("meshPanel");
    m_view = new TevBasicViewer("CAE-TevViewer");
    m_view->InitViewer();
    m_view->SetViewerType(VIEW_TYPE_MESH);

    m_deflection = new QDoubleSpinBox;
    m_deflection->setObjectName("meshDeflection");
    m_deflection->setRange(0.01, 1000.0);
    m_deflection->setValue(2.0);
    m_deflection->setToolTip(tr("Largest distance between a triangle and the surface it stands for"));
    m_format = new QComboBox;
    m_format->setObjectName("meshFormat");
    for (const TevMeshFormat& format : TevMeshFormats::All()) m_format->addItem(format.name, format.code);
    m_format->setToolTip(tr("The file form of the export"));
    m_counts = new QLabel(tr("No mesh"));
    m_counts->setObjectName("meshCounts");
    auto* meshButton = new QPushButton(tr("Mesh selected shapes"));
    meshButton->setToolTip(tr("Surface mesh of the selected shapes, or of all shapes when none is selected"));
    auto* exportButton = new QPushButton(tr("Export mesh..."));
    exportButton->setToolTip(tr("Write the mesh in the chosen form"));
    connect(meshButton, &QPushButton::clicked, this, &TevMeshPanel::m_signal_MeshRequested);
    connect(exportButton, &QPushButton::clicked, this, &TevMeshPanel::m_signal_ExportRequested);

    auto* form = new QFormLayout;
    form->addRow(tr("Deflection"), m_deflection);
    form->addRow(meshButton);
    form->addRow(tr("Format"), m_format);
    form->addRow(exportButton);
    form->addRow(m_counts);
    auto* side = new QVBoxLayout;
    side->addLayout(form);
    side->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(side);
    layout->addWidget(m_view, 1);
}

TevMeshPanel::~TevMeshPanel()
{
    if (m_connect) vis_ConnectDelete(m_connect);
}

QString TevMeshPanel::CountsText() const
{
    return m_counts->text();
}

int TevMeshPanel::ChosenFormat() const
{
    return m_format->currentData().toInt();
}

void TevMeshPanel::ChooseFormat(int code)
{
    const int index = m_format->findData(code);
    if (index >= 0) m_format->setCurrentIndex(index);
}

bool TevMeshPanel::MeshShapes(const std::vector<TopoDS_Shape>& shapes, QString* error)
{
    if (shapes.empty()) {
        if (error) *error = tr("No shape to mesh");
        return false;
    }
    QProgressDialog progress(tr("Meshing shapes..."), tr("Cancel"), 0, static_cast<int>(shapes.size()), this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    vis_Connect* mesh = TevShapeMesher::Mesh(shapes, m_deflection->value(), [&progress](int done, int) {
        progress.setValue(done);
        return !progress.wasCanceled();
    });
    if (!mesh) {
        if (error) *error = tr("Meshing cancelled");
        return false;
    }
    if (m_connect) vis_ConnectDelete(m_connect);
    m_connect = mesh;
    ShowMesh();
    return true;
}

// Shows the mesh in place of the last one.
void TevMeshPanel::ShowMesh()
{
    m_meshActors.Replace(m_view->GetDefaultRender(), [this] { TevMeshRender().DisplayMesh(m_connect, m_view->GetDefaultRender()); });
    int nodes = 0, elems = 0;
    vis_ConnectGetInteger(m_connect, SYS_NODE, &nodes);
    vis_ConnectGetInteger(m_connect, SYS_ELEM, &elems);
    m_counts->setText(tr("%1 nodes, %2 triangles").arg(nodes).arg(elems));
    m_view->SetISO();
    m_view->UpdateViewer();
}

bool TevMeshPanel::Export(const QString& path, int code, QString* error)
{
    if (!m_connect) {
        if (error) *error = tr("No mesh to export: mesh shapes first");
        return false;
    }
    QProgressDialog progress(tr("Writing %1...").arg(path), QString(), 0, 0, this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    progress.setValue(0);
    vis_ConnectWrite(m_connect, code, path.toLocal8Bit().constData());
    const int ierr = vis_ConnectError(m_connect);
    if (ierr != 0 && error) *error = tr("vis_ConnectWrite failed with error %1 for %2").arg(ierr).arg(path);
    return ierr == 0;
}

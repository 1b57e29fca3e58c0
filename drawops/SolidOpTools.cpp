#include "SolidOpTools.h"

#include "DataInputDlg.h"
#include "TevBasicViewer.h"

#include <QMessageBox>
#include <QObject>
#include <vtkDataSetMapper.h>
#include <vtkPoints.h>
#include <vtkProperty.h>
#include <vtkQuad.h>
#include <vtkRenderer.h>
#include <vtkUnstructuredGrid.h>

namespace SolidOpTools {

bool AskHeight(bool angleEnabled, double& height, double& angle)
{
    DataInputDlg dlg(nullptr);
    dlg.SetAngleEnabled(angleEnabled);
    if (dlg.exec() != 1) return false;
    height = dlg.GetInputHeight();
    angle = dlg.GetInputAngle();
    return true;
}

void ShowHeightError(bool translated)
{
    const char* title = "Error";
    const char* text = "Height error input";
    if (translated)
        QMessageBox::information(nullptr, QObject::tr(title), QObject::tr(text), QMessageBox::Ok);
    else
        QMessageBox::information(nullptr, QString::fromLatin1(title), QString::fromLatin1(text), QMessageBox::Ok);
}

void ShowTempQuad(TevBasicViewer* viewer, vtkSmartPointer<vtkActor>& band, const gp_Pnt& p1, const gp_Pnt& p2,
                  const gp_Pnt corners[4])
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(band);
    // The cursor on the first point: the old band stays out of the renderer, nothing new.
    if (p1.Distance(p2) == 0.0) return;

    auto points = vtkSmartPointer<vtkPoints>::New();
    for (int i = 0; i < 4; ++i) points->InsertNextPoint(corners[i].X(), corners[i].Y(), corners[i].Z());
    auto quad = vtkSmartPointer<vtkQuad>::New();
    for (int i = 0; i < 4; ++i) quad->GetPointIds()->SetId(i, i);
    auto grid = vtkSmartPointer<vtkUnstructuredGrid>::New();
    grid->SetPoints(points);
    grid->InsertNextCell(quad->GetCellType(), quad->GetPointIds());
    auto mapper = vtkSmartPointer<vtkDataSetMapper>::New();
    mapper->SetInputData(grid);
    band = vtkSmartPointer<vtkActor>::New();
    band->SetMapper(mapper);
    band->GetProperty()->SetOpacity(0.8);
    band->GetProperty()->SetRepresentationToWireframe();
    band->GetProperty()->SetColor(0.0, 0.9, 0.2);
    band->GetProperty()->SetLineWidth(3.0);
    renderer->AddActor(band);
    viewer->update();
}

}  // namespace SolidOpTools

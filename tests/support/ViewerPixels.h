// Where a world point is drawn in a shown viewer, in the widget's Qt coordinates.
#ifndef VIEWERPIXELS_H
#define VIEWERPIXELS_H

#include "TevBasicViewer.h"

#include <QPoint>
#include <gp_Pnt.hxx>
#include <vtkCoordinate.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <cmath>

namespace tevtest {

// VTK display rows count from 0 at the bottom; Qt rows from 0 at the top.
inline QPoint WorldToWidget(TevBasicViewer* viewer, const gp_Pnt& p)
{
    auto coord = vtkSmartPointer<vtkCoordinate>::New();
    coord->SetCoordinateSystemToWorld();
    coord->SetValue(p.X(), p.Y(), p.Z());
    const double* d = coord->GetComputedDoubleDisplayValue(viewer->GetDefaultRender());
    return QPoint(static_cast<int>(std::lround(d[0])), viewer->height() - 1 - static_cast<int>(std::lround(d[1])));
}

}  // namespace tevtest

#endif

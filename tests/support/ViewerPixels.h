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

// VTK display rows count from 0 at the bottom, in device pixels; Qt rows from 0 at the top, in
// the widget's own (device-independent) pixels.
inline QPoint WorldToWidget(TevBasicViewer* viewer, const gp_Pnt& p)
{
    auto coord = vtkSmartPointer<vtkCoordinate>::New();
    coord->SetCoordinateSystemToWorld();
    coord->SetValue(p.X(), p.Y(), p.Z());
    const double* d = coord->GetComputedDoubleDisplayValue(viewer->GetDefaultRender());
    const double r = viewer->devicePixelRatioF();
    return QPoint(static_cast<int>(std::lround(d[0] / r)),
                  static_cast<int>(std::lround((viewer->height() * r - 1 - d[1]) / r)));
}

}  // namespace tevtest

#endif

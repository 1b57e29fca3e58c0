#include "PickerMgr.h"

#include "BrepSnapMgr.h"
#include "DrawOpMgr.h"
#include "DrawerOutput.h"
#include "TevBasicViewer.h"
#include "TevPreference.h"

#include <GeomAPI_IntCS.hxx>
#include <Geom_Line.hxx>
#include <vtkCamera.h>
#include <vtkRenderer.h>

#include <memory>
#include <vector>

PickerMgr* PickerMgr::m_PickerInstace = nullptr;

PickerMgr* PickerMgr::GetInstance()
{
    if (!m_PickerInstace) m_PickerInstace = new PickerMgr();
    return m_PickerInstace;
}

static gp_Dir ViewDirection(TevBasicViewer* viewer)
{
    double dop[3];
    viewer->GetDefaultRender()->GetActiveCamera()->GetDirectionOfProjection(dop);
    return gp_Dir(dop[0], dop[1], dop[2]);
}

gp_Pnt PickerMgr::CalculatePointOnPlane(TevBasicViewer* viewer, gp_Pnt point)
{
    opencascade::handle<Geom_Plane> plane = viewer->GetCurrentPlane();
    if (plane.IsNull()) return point;
    opencascade::handle<Geom_Line> line = new Geom_Line(point, ViewDirection(viewer));
    GeomAPI_IntCS intersection(line, plane);
    if (intersection.IsDone() && intersection.NbPoints() == 1) return intersection.Point(1);
    return point;
}

// The status text of a snap hit; empty for an unknown kind.
static QString SnapText(const sSnapResult& hit)
{
    const double x = hit.point.X(), y = hit.point.Y(), z = hit.point.Z();
    switch (hit.type) {
    case SNAP_MIDDLE: return DrawerOutput::GetQStringFromChar("Snap Middle:%4.5f, %5.5f, %5.5f", x, y, z);
    case SNAP_END_POINT: return DrawerOutput::GetQStringFromChar("Snap End Point:%4.5f, %5.5f, %5.5f", x, y, z);
    case SNAP_GRID: return DrawerOutput::GetQStringFromChar("Snap Grid:%4.5f, %5.5f, %5.5f", x, y, z);
    case SNAP_ON_LINE: return DrawerOutput::GetQStringFromChar("Snap Point on Line:%4.5f, %5.5f, %5.5f", x, y, z);
    default: return QString();
    }
}

gp_Pnt PickerMgr::GetPickPoint(TevBasicViewer* viewer, gp_Pnt point)
{
    gp_Pnt p = point;
    if (!TevPreference::GetInstance()->pickOffPlane) p = CalculatePointOnPlane(viewer, point);

    std::unique_ptr<BrepSnapMgr> snap(new BrepSnapMgr());
    snap->InitGridData(viewer->GetCurrentPlanePoints());
    std::vector<sSnapResult> results;
    double xyz[3] = {p.X(), p.Y(), p.Z()};
    snap->PerformSnap(xyz, ViewDirection(viewer), results, 10.0, viewer);
    if (results.empty()) {
        // The last snap text stays in the status line until a hit replaces it.
        RenderSnapPoint(viewer, nullptr);
        return p;
    }
    RenderSnapPoint(viewer, &results[0]);
    DrawOpMgr::GetInstance()->SetOutputString(SnapText(results[0]));
    return results[0].point;
}

void PickerMgr::RenderSnapPoint(TevBasicViewer* viewer, sSnapResult* result)
{
    viewer->RenderSnapPoint(result);
}

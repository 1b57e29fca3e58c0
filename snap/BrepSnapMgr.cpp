#include "BrepSnapMgr.h"

#include "DisplayProjection.h"
#include "ShapeBounds.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"
#include "TevPreference.h"

#include <BRep_Tool.hxx>
#include <GeomAPI_ExtremaCurveCurve.hxx>
#include <GeomAPI_ProjectPointOnSurf.hxx>
#include <Geom_Line.hxx>
#include <QMessageBox>
#include <QObject>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>
#include <vtkRenderer.h>

#include <cmath>
#include <memory>

BrepSnapMgr::BrepSnapMgr()
    : m_pickPoint{0, 0, 0},
      m_snapped(false),
      m_viewDir(1, 0, 0),
      m_tolerance(5.0),
      m_gridToleranceSq(25.0),
      m_snapRenderer(nullptr),
      m_snapViewer(nullptr),
      m_displayX(0),
      m_displayY(0)
{
    m_result.type = SNAP_MIDDLE;
    m_result.point = gp_Pnt(0, 0, 0);
    m_result.distance = 0.0;
}

void BrepSnapMgr::InitGridData(std::vector<gp_Pnt> points)
{
    m_gridPoints = points;
}

bool BrepSnapMgr::BeginSnap(double* const point, gp_Dir dir, TevBasicViewer* viewer)
{
    m_snapViewer = viewer;
    m_snapRenderer = viewer->GetDefaultRender().GetPointer();
    if (!m_snapRenderer) return false;
    const gp_Pnt2d d = Get2DCoordinate(gp_Pnt(point[0], point[1], point[2]));
    m_pixelScale = viewer->devicePixelRatioF();
    m_displayX = d.X();
    m_displayY = d.Y();
    m_viewDir = dir;
    for (int i = 0; i < 3; ++i) m_pickPoint[i] = point[i];
    return true;
}

bool BrepSnapMgr::PerformSnap(double* const point, gp_Dir dir, sSnapResult& result, TevBasicViewer* viewer)
{
    if (!BeginSnap(point, dir, viewer)) return false;
    if (TevPreference::GetInstance()->snapGrid) SnapOnGrid();
    SnapOnGeometry();
    result = m_result;
    return m_snapped;
}

bool BrepSnapMgr::PerformSnap(double* const point, gp_Dir dir, sSnapResult& result, double tolerance)
{
    m_tolerance = tolerance;
    m_viewDir = dir;
    for (int i = 0; i < 3; ++i) m_pickPoint[i] = point[i];
    SnapOnGeometry();
    if (TevPreference::GetInstance()->snapGrid) SnapOnGrid();
    result = m_result;
    return m_snapped;
}

bool BrepSnapMgr::PerformSnap(double* const point, gp_Dir dir, std::vector<sSnapResult>& results, double tolerance,
                              TevBasicViewer* viewer)
{
    if (!BeginSnap(point, dir, viewer)) return false;
    m_tolerance = tolerance;
    if (TevPreference::GetInstance()->snapGrid) SnapOnGrid();
    SnapOnGeometry();

    // Only hits on the current plane are offered; a view without a plane offers none.
    opencascade::handle<Geom_Plane> plane = viewer->GetCurrentPlane();
    std::vector<sSnapResult> onPlane;
    for (const sSnapResult& entry : m_results) {
        if (plane.IsNull()) break;
        GeomAPI_ProjectPointOnSurf projection(entry.point, plane);
        if (projection.NbPoints() > 0 && std::fabs(projection.LowerDistance()) < 1e-06) onPlane.push_back(entry);
    }
    results = onPlane;
    return m_snapped;
}

void BrepSnapMgr::Hit(int type, const gp_Pnt& point, double distance)
{
    m_result.point = point;
    m_result.distance = distance;
    m_snapped = true;
    m_result.type = type;
    m_results.push_back(m_result);
}

gp_Pnt2d BrepSnapMgr::Get2DCoordinate(gp_Pnt p)
{
    m_snapRenderer->SetWorldPoint(p.X(), p.Y(), p.Z(), 1.0);
    m_snapRenderer->WorldToDisplay();
    const double* d = m_snapRenderer->GetDisplayPoint();
    return gp_Pnt2d(d[0], d[1]);
}

double BrepSnapMgr::PixelDistanceTo(const gp_Pnt& p)
{
    const gp_Pnt2d d = Get2DCoordinate(p);
    return std::sqrt((m_displayX - d.X()) * (m_displayX - d.X()) + (m_displayY - d.Y()) * (m_displayY - d.Y()));
}

void BrepSnapMgr::SnapOnGrid()
{
    if (m_gridPoints.empty()) {
        QMessageBox::information(nullptr, QObject::tr("Title"), "No Snap Data");
        return;
    }
    for (const gp_Pnt& p : m_gridPoints) {
        const gp_Pnt2d d = Get2DCoordinate(p);
        const double d2 = (m_displayX - d.X()) * (m_displayX - d.X()) + (m_displayY - d.Y()) * (m_displayY - d.Y());
        if (m_gridToleranceSq * m_pixelScale * m_pixelScale >= d2) Hit(SNAP_GRID, p, std::sqrt(d2));
    }
}

void BrepSnapMgr::GetAllSnappabledGeometry(std::vector<TopoDS_Shape>& shapes)
{
    shapes = ShapeLabelMgr::GetInstance()->GetAllShapes();
}

void BrepSnapMgr::SnapOnGeometry()
{
    std::vector<TopoDS_Shape> shapes;
    GetAllSnappabledGeometry(shapes);
    const TevPreference* pref = TevPreference::GetInstance();
    // A shape's passes run only where its box lets them hit: the box grown by the tolerance
    // must meet the view ray (world units), or its picture come within the tolerance of the
    // cursor (pixels, scaled to device pixels). Shapes the viewer does not show have no box and
    // are always tested.
    const bool cull = m_snapViewer && ShapeBounds::CullingEnabled();
    std::unique_ptr<DisplayProjection> projection;
    if (cull) projection.reset(new DisplayProjection(m_snapRenderer));
    const gp_Pnt origin(m_pickPoint[0], m_pickPoint[1], m_pickPoint[2]);
    for (size_t i = 0; i < shapes.size(); ++i) {
        const TopoDS_Shape& shape = shapes[i];
        const Bnd_Box* box = cull ? m_snapViewer->FindShapeBox(shape, i) : nullptr;
        if (pref->snapOnLine && (!box || ShapeBounds::LineMayReach(*box, origin, m_viewDir, m_tolerance)))
            SnapOnLines(shape);
        if (!pref->snapMiddle && !pref->snapEndPoint) continue;
        if (box && !projection->MayReach(*box, m_displayX, m_displayY, DevicePixelTolerance())) continue;
        if (pref->snapMiddle) SnapOnMiddles(shape);
        if (pref->snapEndPoint) SnapOnVertices(shape);
    }
}

void BrepSnapMgr::SnapOnLines(const TopoDS_Shape& shape)
{
    opencascade::handle<Geom_Line> ray =
        new Geom_Line(gp_Pnt(m_pickPoint[0], m_pickPoint[1], m_pickPoint[2]), m_viewDir);
    const double rayFirst = ray->FirstParameter();
    const double rayLast = ray->LastParameter();
    for (TopExp_Explorer exp(shape, TopAbs_EDGE, TopAbs_SHAPE); exp.More(); exp.Next()) {
        double first = 0, last = 0;
        opencascade::handle<Geom_Curve> curve = ShapeBounds::EdgeCurve(exp.Current(), first, last);
        if (curve.IsNull()) continue;
        GeomAPI_ExtremaCurveCurve extrema(ray, curve, rayFirst, rayLast, first, last);
        // An edge parallel to the ray has no single nearest point; its ends snap as vertices.
        if (extrema.Extrema().IsParallel() || extrema.NbExtrema() == 0) continue;
        const double w = extrema.Distance(1);
        gp_Pnt onLine, onCurve;
        extrema.Points(1, onLine, onCurve);
        const gp_Pnt2d a = Get2DCoordinate(onLine);
        const gp_Pnt2d b = Get2DCoordinate(onCurve);
        const double p = std::sqrt((a.X() - b.X()) * (a.X() - b.X()) + (a.Y() - b.Y()) * (a.Y() - b.Y()));
        // World distance here, unlike the pixel tests of the other kinds.
        if (m_tolerance >= w) Hit(SNAP_ON_LINE, onCurve, p);
    }
}

void BrepSnapMgr::SnapOnMiddles(const TopoDS_Shape& shape)
{
    for (TopExp_Explorer exp(shape, TopAbs_EDGE, TopAbs_SHAPE); exp.More(); exp.Next()) {
        double first = 0, last = 0;
        opencascade::handle<Geom_Curve> curve = ShapeBounds::EdgeCurve(exp.Current(), first, last);
        if (curve.IsNull()) continue;
        const gp_Pnt q = curve->Value((first + last) * 0.5);
        const double d = PixelDistanceTo(q);
        if (DevicePixelTolerance() >= d) Hit(SNAP_MIDDLE, q, d);
    }
}

void BrepSnapMgr::SnapOnVertices(const TopoDS_Shape& shape)
{
    for (TopExp_Explorer exp(shape, TopAbs_VERTEX, TopAbs_SHAPE); exp.More(); exp.Next()) {
        const gp_Pnt q = BRep_Tool::Pnt(TopoDS::Vertex(exp.Current()));
        const double d = PixelDistanceTo(q);
        if (DevicePixelTolerance() >= d) Hit(SNAP_END_POINT, q, d);
    }
}

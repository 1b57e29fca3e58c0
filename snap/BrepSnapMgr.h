// BrepSnapMgr: decides whether a world point under the cursor lands on a grid point, an edge's
// mid-point, a vertex or a point of an edge, for every shape of the document.
//
// One object serves one call: the point picker makes one per mouse move and deletes it after.
// The snap kinds that are on are read from TevPreference at each call. There is no scoring: hits
// are kept in the order found, and the single-result overloads keep the last hit. The passes
// skip a shape whose box, kept by the viewer with the shape's actor, the query cannot reach;
// that changes neither the hits nor their order, only the cost, which no longer grows with the
// shapes far from the cursor.
//
// Failures are not caught here (the viewer's boundary does that), with one deliberate guard: an
// edge parallel to the view ray is skipped by the on-line kind instead of taking the first
// extremum. For such an edge the extrema report a distance but no points, so the plain steps
// raise for every cursor position, and one prism seen along its edges would refuse every point
// of every operation in that view: a wrong result, not a failure of the user's step. The edge
// has no single nearest point anyway; its ends snap as vertices.
#ifndef BREPSNAPMGR_H
#define BREPSNAPMGR_H

#include <TopoDS_Shape.hxx>
#include <gp_Dir.hxx>
#include <gp_Pnt.hxx>
#include <gp_Pnt2d.hxx>

#include <vector>

class TevBasicViewer;
class vtkRenderer;

enum {
    SNAP_MIDDLE = 0,     // the curve value at the middle of an edge's parameter range
    SNAP_END_POINT = 1,  // a vertex
    SNAP_GRID = 2,       // a grid point of the current plane
    SNAP_ON_LINE = 3     // the point of an edge nearest to the view ray
};

// One snap hit.
struct sSnapResult {
    int type;         // SNAP_...
    gp_Pnt point;     // the snapped world point
    double distance;  // cursor to target in display pixels; for SNAP_ON_LINE the pixel distance
                      // between the two extrema points
};

class BrepSnapMgr
{
public:
    BrepSnapMgr();

    // A: grid, then geometry; geometry overrides the grid. Sets the renderer and the display
    // position from `viewer`; the tolerance stays 5.
    bool PerformSnap(double* const point, gp_Dir dir, sSnapResult& result, TevBasicViewer* viewer);
    // B: geometry, then grid; the grid overrides geometry. Works on the renderer and display
    // position an earlier A or C call left in this object: never the first call on an object.
    bool PerformSnap(double* const point, gp_Dir dir, sSnapResult& result, double tolerance);
    // C: grid, then geometry; every hit in the order found, filtered to the viewer's current
    // plane. Returns true when anything hit before the filter, so the vector may be empty.
    bool PerformSnap(double* const point, gp_Dir dir, std::vector<sSnapResult>& results, double tolerance,
                     TevBasicViewer* viewer);

    void InitGridData(std::vector<gp_Pnt> points);

private:
    // The common opening of A and C; false when the viewer has no renderer.
    bool BeginSnap(double* const point, gp_Dir dir, TevBasicViewer* viewer);
    void SnapOnGrid();
    void SnapOnGeometry();
    void SnapOnLines(const TopoDS_Shape& shape);
    void SnapOnMiddles(const TopoDS_Shape& shape);
    void SnapOnVertices(const TopoDS_Shape& shape);
    // The pixel tolerance of mid-points and vertices in display (device) pixels.
    double DevicePixelTolerance() const { return m_tolerance * m_pixelScale; }
    // Records one hit as the current result and appends it.
    void Hit(int type, const gp_Pnt& point, double distance);
    double PixelDistanceTo(const gp_Pnt& p);
    gp_Pnt2d Get2DCoordinate(gp_Pnt p);
    void GetAllSnappabledGeometry(std::vector<TopoDS_Shape>& shapes);

    std::vector<gp_Pnt> m_gridPoints;
    double m_pickPoint[3];
    sSnapResult m_result;
    bool m_snapped;
    std::vector<sSnapResult> m_results;
    gp_Dir m_viewDir;
    double m_tolerance;        // pixels for mid-points and vertices, world units for edges
    double m_gridToleranceSq;  // squared pixels: the grid radius is always 5 pixels as seen
    // Device pixels per pixel as the user sees it (the viewer's device pixel ratio): display
    // distances are device pixels, the pixel tolerances are scaled by it.
    double m_pixelScale = 1.0;
    vtkRenderer* m_snapRenderer;
    TevBasicViewer* m_snapViewer;  // not owned; the viewer of the last A or C call, for its boxes
    double m_displayX;
    double m_displayY;
};

#endif

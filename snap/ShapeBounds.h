// ShapeBounds: the world box of everything a snap query or a point pick can hit on a shape, and
// the world-space reach test of the on-line snap.
//
// The box holds the vertices, each edge's 3D curve over its range (exactly for the conic
// curves, by the convex hull of the poles for Bezier and B-spline curves) and the faces'
// triangulation as the picker sees it. A curve of any other kind makes the box whole, so that
// such a shape is never culled. Culling is on by default; tests switch it off to compare a query
// with the exhaustive passes.
#ifndef SHAPEBOUNDS_H
#define SHAPEBOUNDS_H

#include <Bnd_Box.hxx>
#include <Geom_Curve.hxx>
#include <TopoDS_Shape.hxx>
#include <gp_Dir.hxx>
#include <gp_Pnt.hxx>

class ShapeBounds
{
public:
    static Bnd_Box Of(const TopoDS_Shape& shape);

    // The 3D curve and range of an edge as the snap engine reads it (infinite flag cleared), or
    // null for an edge without one.
    static opencascade::handle<Geom_Curve> EdgeCurve(const TopoDS_Shape& edge, double& first, double& last);

    // False only when every point of `box` lies farther than `tolerance` from the infinite
    // line through `origin` along `dir`. A whole box is always reached, a void one never.
    static bool LineMayReach(const Bnd_Box& box, const gp_Pnt& origin, const gp_Dir& dir, double tolerance);

    // Whether snap queries and point picks skip the shapes whose box they cannot reach.
    static bool CullingEnabled();
    static void EnableCulling(bool on);
};

#endif

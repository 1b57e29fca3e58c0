// DisplayProjection: world to display pixels for one renderer's current camera, worked out once
// so that a query can test thousands of boxes without asking the renderer for each point. It
// agrees with vtkRenderer::WorldToDisplay up to rounding; the reach test allows for that.
#ifndef DISPLAYPROJECTION_H
#define DISPLAYPROJECTION_H

#include <Bnd_Box.hxx>
#include <gp_Pnt.hxx>

class vtkRenderer;

class DisplayProjection
{
public:
    explicit DisplayProjection(vtkRenderer* renderer);

    // The display position of `p`; false for a point on or behind the eye plane.
    bool Project(const gp_Pnt& p, double& x, double& y) const;

    // False only when no point of `box` can be shown within `radius` pixels of (x, y): the
    // rectangle of the box's projected corners is farther than that. A box reaching to or
    // behind the eye plane, or a whole one, is always reached; a void one never.
    bool MayReach(const Bnd_Box& box, double x, double y, double radius) const;

private:
    double m_matrix[16];  // world to view, row-major, as the camera composes it
    double m_scale[2];    // view to display: display = offset + scale * view, per axis
    double m_offset[2];
};

#endif

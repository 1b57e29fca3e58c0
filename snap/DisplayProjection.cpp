#include "DisplayProjection.h"

#include <vtkCamera.h>
#include <vtkMatrix4x4.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>

namespace {

// Pixels allowed for the rounding difference with the renderer's own conversion.
const double kRoundingPixels = 1.0;

}  // namespace

DisplayProjection::DisplayProjection(vtkRenderer* renderer)
{
    vtkMatrix4x4* m =
        renderer->GetActiveCamera()->GetCompositeProjectionTransformMatrix(renderer->GetTiledAspectRatio(), 0, 1);
    vtkMatrix4x4::DeepCopy(m_matrix, m);
    // View to display is affine in each axis: read it off two points.
    double x0 = 0, y0 = 0, z0 = 0, x1 = 1, y1 = 1, z1 = 0;
    renderer->ViewToDisplay(x0, y0, z0);
    renderer->ViewToDisplay(x1, y1, z1);
    m_offset[0] = x0;
    m_offset[1] = y0;
    m_scale[0] = x1 - x0;
    m_scale[1] = y1 - y0;
}

bool DisplayProjection::Project(const gp_Pnt& p, double& x, double& y) const
{
    const double* m = m_matrix;
    const double w = m[12] * p.X() + m[13] * p.Y() + m[14] * p.Z() + m[15];
    if (!(w > 0.0)) return false;
    const double vx = (m[0] * p.X() + m[1] * p.Y() + m[2] * p.Z() + m[3]) / w;
    const double vy = (m[4] * p.X() + m[5] * p.Y() + m[6] * p.Z() + m[7]) / w;
    x = m_offset[0] + m_scale[0] * vx;
    y = m_offset[1] + m_scale[1] * vy;
    return true;
}

bool DisplayProjection::MayReach(const Bnd_Box& box, double x, double y, double radius) const
{
    if (box.IsVoid()) return false;
    if (box.IsWhole() || box.IsOpen()) return true;
    double lo[3], hi[3];
    box.Get(lo[0], lo[1], lo[2], hi[0], hi[1], hi[2]);
    double minX = HUGE_VAL, minY = HUGE_VAL, maxX = -HUGE_VAL, maxY = -HUGE_VAL;
    for (int corner = 0; corner < 8; ++corner) {
        const gp_Pnt p(corner & 1 ? hi[0] : lo[0], corner & 2 ? hi[1] : lo[1], corner & 4 ? hi[2] : lo[2]);
        double px = 0, py = 0;
        // A box that reaches behind the eye has no bounded picture: it stays in.
        if (!Project(p, px, py)) return true;
        minX = std::min(minX, px);
        maxX = std::max(maxX, px);
        minY = std::min(minY, py);
        maxY = std::max(maxY, py);
    }
    // Inside a convex box a point projects inside the hull of the corners' pictures.
    const double dx = std::max({minX - x, 0.0, x - maxX});
    const double dy = std::max({minY - y, 0.0, y - maxY});
    const double reach = radius + kRoundingPixels;
    // A negative (or NaN) reach meets nothing, as the exact tests then hit nothing.
    return reach >= 0.0 && dx * dx + dy * dy <= reach * reach;
}

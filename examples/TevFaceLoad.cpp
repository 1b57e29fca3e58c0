#include "TevFaceLoad.h"

#include "TevVolumeMesh.h"
#include "vis_Connect.h"

#include <cmath>

namespace {

using Vec = std::array<double, 3>;

// Twice the area times the outward unit normal of a triangle: the cross product of two edges.
Vec AreaVector(vis_Connect* c, const TevVolumeMesh::Triangle& t)
{
    double x[3][3];
    for (int k = 0; k < 3; ++k) vis_ConnectCoordsdv(c, 1, &t[k], x[k]);
    const Vec a = {x[1][0] - x[0][0], x[1][1] - x[0][1], x[1][2] - x[0][2]};
    const Vec b = {x[2][0] - x[0][0], x[2][1] - x[0][1], x[2][2] - x[0][2]};
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Norm(const Vec& v)
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

// Adds the shares of one triangle of area `area` under traction `t`.
void Spread(const TevVolumeMesh& mesh, const TevVolumeMesh::Triangle& tri, double area, const Vec& t, TevFaceLoad::Forces& out)
{
    const int first = mesh.Order() == 2 ? 3 : 0;
    for (int k = first; k < first + 3; ++k) {
        Vec& f = out[tri[k]];
        for (int d = 0; d < 3; ++d) f[d] += t[d] * area / 3.0;
    }
}

}  // namespace

double TevFaceLoad::Area(const TevVolumeMesh& mesh, int face)
{
    double area = 0.0;
    for (const auto& t : mesh.FaceTriangles(face)) area += 0.5 * Norm(AreaVector(mesh.Volume(), t));
    return area;
}

TevFaceLoad::Forces TevFaceLoad::TotalForce(const TevVolumeMesh& mesh, int face, const std::array<double, 3>& total)
{
    Forces out;
    const double area = Area(mesh, face);
    if (!(area > 0.0)) return out;
    const Vec t = {total[0] / area, total[1] / area, total[2] / area};
    for (const auto& tri : mesh.FaceTriangles(face)) Spread(mesh, tri, 0.5 * Norm(AreaVector(mesh.Volume(), tri)), t, out);
    return out;
}

TevFaceLoad::Forces TevFaceLoad::Pressure(const TevVolumeMesh& mesh, int face, double pressure)
{
    Forces out;
    for (const auto& tri : mesh.FaceTriangles(face)) {
        const Vec n2 = AreaVector(mesh.Volume(), tri);
        const double twice = Norm(n2);
        if (!(twice > 0.0)) continue;
        const Vec t = {-pressure * n2[0] / twice, -pressure * n2[1] / twice, -pressure * n2[2] / twice};
        Spread(mesh, tri, 0.5 * twice, t, out);
    }
    return out;
}

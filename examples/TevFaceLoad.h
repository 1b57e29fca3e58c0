// TevFaceLoad: a load spread over a face of a volume mesh as forces at its nodes.
//
// Each boundary triangle of the face carries a uniform traction t over its area A, taken flat
// (corners only). Its nodal shares are those of the element's shape functions integrated over
// the triangle: a linear triangle gives each corner t A / 3; a quadratic one gives its corners
// nothing and each edge midpoint t A / 3. The forces of all triangles add up at shared nodes,
// so the sum over the face is t times the face's area.
#ifndef TEVFACELOAD_H
#define TEVFACELOAD_H

#include <array>
#include <map>

class TevVolumeMesh;

class TevFaceLoad
{
public:
    using Forces = std::map<int, std::array<double, 3>>;  // node number -> force

    // A total force spread as a uniform traction (total / face area). Empty for a face without
    // triangles.
    static Forces TotalForce(const TevVolumeMesh& mesh, int face, const std::array<double, 3>& total);
    // A pressure: the traction -p n on each triangle, n its outward unit normal.
    static Forces Pressure(const TevVolumeMesh& mesh, int face, double pressure);
    // Area of the face's triangles.
    static double Area(const TevVolumeMesh& mesh, int face);
};

#endif

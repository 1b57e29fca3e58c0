// TevVolumeMesher: a solid meshed into tetrahedra by gmsh's library, as a TevVolumeMesh.
//
// The shape goes to gmsh in memory (both use the same OpenCASCADE), is meshed with the target
// element size in four stages (curves, surfaces, volume, then the elevation to quadratic order,
// which linear meshes skip) and is read back. gmsh's surfaces are matched to the solid's faces
// by area and centre of mass, so that the boundary triangles are kept per face of the shape the
// user picks on. gmsh's quadratic tetrahedron lists its edge midpoints as 0-1, 1-2, 2-0, 3-0,
// 3-2, 3-1; they are put into the library's edge order. gmsh holds one model per process: calls
// must not overlap. After a failure or a cancel gmsh is started anew, since what it keeps of a
// failed mesh would leave the next one empty.
#ifndef TEVVOLUMEMESHER_H
#define TEVVOLUMEMESHER_H

#include <TopoDS_Shape.hxx>

#include <array>
#include <functional>
#include <memory>
#include <string>

class TevVolumeMesh;

class TevVolumeMesher
{
public:
    struct Options {
        double size = 1.0;  // target element edge length
        int order = 2;      // 1 linear, 2 quadratic tetrahedra
    };
    // Called after each stage with the stages done and their total; returning false cancels.
    using Progress = std::function<bool(int done, int total)>;

    // The mesh of the first solid of `shape`, or null with the reason in `error`: no solid, a
    // size that is not positive, an order other than 1 or 2, a failure in gmsh, a solid whose
    // faces gmsh did not keep, or a cancel ("Meshing cancelled").
    static std::unique_ptr<TevVolumeMesh> Mesh(const TopoDS_Shape& shape, const Options& options,
                                               std::string* error, const Progress& progress = Progress());

    // Position in the library's ten-node tetrahedron of each of gmsh's ten nodes.
    static std::array<int, 10> QuadraticOrder();
};

#endif

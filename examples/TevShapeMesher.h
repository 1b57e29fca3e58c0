// TevShapeMesher: a surface mesh of B-rep shapes as a vis_Connect of linear triangles.
//
// Each shape is triangulated by OCCT's BRepMesh with the given linear deflection (angular
// deflection 0.5 rad). The triangles of all faces become elements in face order; their nodes are
// the triangulation nodes placed by the face's location, and nodes at the same place (to 1e-9,
// as the faces' shared edge points are) become one node, numbered in order of first use, so the
// mesh is connected across edges and across shapes that touch. A reversed face's triangles are
// turned so that every normal points out of the solid. Faces that get no triangulation add
// nothing. A face that already carries a finer triangulation (the viewer's, say) keeps it, as
// BRepMesh does. Every node is marked a grid point and every triangle a shell element of
// property 1 (feature type and property id attributes), which is what the deck writers read.
#ifndef TEVSHAPEMESHER_H
#define TEVSHAPEMESHER_H

#include <TopoDS_Shape.hxx>

#include <functional>
#include <vector>

struct vis_Connect;

class TevShapeMesher
{
public:
    // Called after each shape with the number done and the total; returning false stops the
    // work, and the result is then null.
    using Progress = std::function<bool(int done, int total)>;

    // A new vis_Connect (the caller deletes it with vis_ConnectDelete), or null when `progress`
    // stopped the work. A deflection that is not positive is taken as 1.
    static vis_Connect* Mesh(const std::vector<TopoDS_Shape>& shapes, double deflection,
                             const Progress& progress = Progress());
};

#endif

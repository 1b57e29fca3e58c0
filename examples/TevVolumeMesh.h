// TevVolumeMesh: a tetrahedral volume mesh of one solid and its boundary, face by face.
//
// The volume is a vis_Connect of linear (4 nodes) or quadratic (10 nodes, corners then the edge
// midpoints in the library's edge order) tetrahedra: nodes and elements numbered from 1, their
// user ids equal to those numbers, every node a grid point and every element a solid of
// property 1. The boundary keeps, for each face of the solid (numbered from 1 in the order of
// TopExp::MapShapes over faces), its triangles: three corners, then for quadratic meshes the
// midpoints of edges 0-1, 1-2 and 2-0, corners counter-clockwise seen from outside the solid.
// The object owns the vis_Connect.
#ifndef TEVVOLUMEMESH_H
#define TEVVOLUMEMESH_H

#include <array>
#include <vector>

struct vis_Connect;

class TevVolumeMesh
{
public:
    // A boundary triangle: corners, then midpoints (0 when the mesh is linear).
    using Triangle = std::array<int, 6>;

    TevVolumeMesh(vis_Connect* volume, int order, std::vector<std::vector<Triangle>> faces);
    ~TevVolumeMesh();
    TevVolumeMesh(const TevVolumeMesh&) = delete;
    TevVolumeMesh& operator=(const TevVolumeMesh&) = delete;

    vis_Connect* Volume() const { return m_volume; }
    int Order() const { return m_order; }
    int NodeCount() const;
    int ElementCount() const;
    int FaceCount() const { return static_cast<int>(m_faces.size()); }
    // Triangles of face `face` (from 1); empty for a face out of range.
    const std::vector<Triangle>& FaceTriangles(int face) const;
    // The nodes of face `face`, each once, in increasing order.
    std::vector<int> FaceNodes(int face) const;
    // A new vis_Connect of the boundary's corner triangles, on the volume's node numbers, for
    // display (the caller deletes it with vis_ConnectDelete).
    vis_Connect* NewSkin() const;

private:
    vis_Connect* m_volume;
    int m_order;
    std::vector<std::vector<Triangle>> m_faces;
};

#endif

#include "TevVolumeMesh.h"

#include "vis_Connect.h"
#include "vis_ElemTopology.h"

#include <algorithm>
#include <utility>

TevVolumeMesh::TevVolumeMesh(vis_Connect* volume, int order, std::vector<std::vector<Triangle>> faces)
    : m_volume(volume), m_order(order), m_faces(std::move(faces))
{
}

TevVolumeMesh::~TevVolumeMesh()
{
    vis_ConnectDelete(m_volume);
}

int TevVolumeMesh::NodeCount() const
{
    return m_volume->numnode;
}

int TevVolumeMesh::ElementCount() const
{
    return m_volume->numelem;
}

const std::vector<TevVolumeMesh::Triangle>& TevVolumeMesh::FaceTriangles(int face) const
{
    static const std::vector<Triangle> none;
    if (face < 1 || face > FaceCount()) return none;
    return m_faces[face - 1];
}

std::vector<int> TevVolumeMesh::FaceNodes(int face) const
{
    std::vector<int> nodes;
    for (const Triangle& t : FaceTriangles(face))
        for (int n : t)
            if (n > 0) nodes.push_back(n);
    std::sort(nodes.begin(), nodes.end());
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    return nodes;
}

vis_Connect* TevVolumeMesh::NewSkin() const
{
    int count = 0;
    for (const auto& face : m_faces) count += static_cast<int>(face.size());
    vis_Connect* skin = vis_ConnectNew();
    vis_ConnectDef(skin, NodeCount(), count);
    double x[3];
    for (int n = 1; n <= NodeCount(); ++n) {
        vis_ConnectCoordsdv(m_volume, 1, &n, x);
        vis_ConnectSetCoordsdv(skin, n, x);
    }
    int id = 0;
    for (const auto& face : m_faces)
        for (const Triangle& t : face) {
            vis_ConnectSetTopology(skin, ++id, SYS_SHAPE_TRI, 0, 0, 0);
            vis_ConnectSetElemNode(skin, id, t.data());
        }
    return skin;
}

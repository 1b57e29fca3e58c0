#include "TevShapeMesher.h"

#include "vis_Connect.h"
#include "vis_ElemTopology.h"

#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Tool.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>

#include <array>
#include <cmath>
#include <map>

namespace {

// The attributes the deck writers read: feature type (0) of nodes and elements, and the
// element's property id (2).
const int kFeatureType = 0, kPropertyId = 2;
const int kGridPoint = 1, kShell = 2;

// Nodes merged by place, and triangles by node numbers from 1.
struct Collected {
    std::map<std::array<long long, 3>, int> byPlace;
    std::vector<gp_Pnt> nodes;
    std::vector<std::array<int, 3>> triangles;

    int NodeAt(const gp_Pnt& p)
    {
        const std::array<long long, 3> key = {std::llround(p.X() * 1e9), std::llround(p.Y() * 1e9),
                                              std::llround(p.Z() * 1e9)};
        auto found = byPlace.find(key);
        if (found != byPlace.end()) return found->second;
        nodes.push_back(p);
        const int id = static_cast<int>(nodes.size());
        byPlace.emplace(key, id);
        return id;
    }
};

void CollectFace(const TopoDS_Face& face, Collected& out)
{
    TopLoc_Location location;
    const Handle(Poly_Triangulation) tri = BRep_Tool::Triangulation(face, location);
    if (tri.IsNull()) return;
    const gp_Trsf place = location.Transformation();
    std::vector<int> ids(tri->NbNodes() + 1, 0);
    for (int i = 1; i <= tri->NbNodes(); ++i) ids[i] = out.NodeAt(tri->Node(i).Transformed(place));
    const bool reversed = face.Orientation() == TopAbs_REVERSED;
    for (int i = 1; i <= tri->NbTriangles(); ++i) {
        int a, b, c;
        tri->Triangle(i).Get(a, b, c);
        if (reversed) std::swap(b, c);
        out.triangles.push_back({ids[a], ids[b], ids[c]});
    }
}

vis_Connect* ToConnect(const Collected& mesh)
{
    vis_Connect* connect = vis_ConnectNew();
    vis_ConnectDef(connect, static_cast<int>(mesh.nodes.size()), static_cast<int>(mesh.triangles.size()));
    for (size_t i = 0; i < mesh.nodes.size(); ++i) {
        const double x[3] = {mesh.nodes[i].X(), mesh.nodes[i].Y(), mesh.nodes[i].Z()};
        vis_ConnectSetCoordsdv(connect, static_cast<int>(i + 1), x);
        vis_ConnectSetNodeAssoc(connect, kFeatureType, static_cast<int>(i + 1), kGridPoint);
    }
    for (size_t i = 0; i < mesh.triangles.size(); ++i) {
        vis_ConnectSetTopology(connect, static_cast<int>(i + 1), SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(connect, static_cast<int>(i + 1), mesh.triangles[i].data());
        vis_ConnectSetElemAssoc(connect, kFeatureType, static_cast<int>(i + 1), kShell);
        vis_ConnectSetElemAssoc(connect, kPropertyId, static_cast<int>(i + 1), 1);
    }
    return connect;
}

}  // namespace

vis_Connect* TevShapeMesher::Mesh(const std::vector<TopoDS_Shape>& shapes, double deflection, const Progress& progress)
{
    if (!(deflection > 0.0)) deflection = 1.0;
    Collected mesh;
    const int total = static_cast<int>(shapes.size());
    for (int done = 0; done < total; ++done) {
        const TopoDS_Shape& shape = shapes[done];
        BRepMesh_IncrementalMesh(shape, deflection, Standard_False, 0.5, Standard_False);
        for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) CollectFace(TopoDS::Face(it.Current()), mesh);
        if (progress && !progress(done + 1, total)) return nullptr;
    }
    return ToConnect(mesh);
}

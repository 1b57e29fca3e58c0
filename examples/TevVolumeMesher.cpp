#include "TevVolumeMesher.h"

#include "TevVolumeMesh.h"
#include "vis_Connect.h"
#include "vis_ElemTopology.h"

#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <gmsh.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

namespace {

// gmsh element types: 3-node and 6-node triangles, 4-node and 10-node tetrahedra.
const int kTri3 = 2, kTri6 = 9, kTet4 = 4, kTet10 = 11;
// The attributes the deck writers read: feature type (0), property id (2), user id (10).
const int kFeatureType = 0, kPropertyId = 2, kUserId = 10;
const int kGridPoint = 1, kSolid = 1;

// gmsh's edges of a tetrahedron, in the order of its midpoint nodes 4 to 9.
const int kGmshTetEdges[6][2] = {{0, 1}, {1, 2}, {2, 0}, {3, 0}, {3, 2}, {3, 1}};

bool g_started = false;

void StartGmsh()
{
    if (g_started) return;
    gmsh::initialize();
    gmsh::option::setNumber("General.Terminal", 0);
    g_started = true;
}

// After a failure gmsh keeps state that makes later meshes come out empty: it is started anew
// for the next mesh.
void ResetGmsh()
{
    try {
        gmsh::finalize();
    } catch (...) {
    }
    g_started = false;
}

std::string GmshError(const char* what)
{
    std::string last;
    try {
        gmsh::logger::getLastError(last);
    } catch (...) {
    }
    return std::string(what) + (last.empty() ? "" : ": " + last);
}

struct Point {
    double x, y, z;
};
Point Sub(const Point& a, const Point& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Point Cross(const Point& a, const Point& b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
double Dot(const Point& a, const Point& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

// The mesh as read back: nodes by gmsh tag, tetrahedra and triangles on the library's numbers.
struct Reading {
    std::unordered_map<std::size_t, int> id;  // gmsh node tag -> node number
    std::vector<Point> xyz;                   // by node number - 1
    std::vector<std::array<int, 10>> tets;
    int order = 1;
};

bool ReadNodes(Reading& r)
{
    std::vector<std::size_t> tags;
    std::vector<double> coord, param;
    gmsh::model::mesh::getNodes(tags, coord, param, -1, -1, false, false);
    for (std::size_t i = 0; i < tags.size(); ++i) {
        r.id[tags[i]] = static_cast<int>(i + 1);
        r.xyz.push_back({coord[3 * i], coord[3 * i + 1], coord[3 * i + 2]});
    }
    return !tags.empty();
}

bool ReadTets(Reading& r)
{
    std::vector<std::size_t> elems, nodes;
    gmsh::model::mesh::getElementsByType(r.order == 2 ? kTet10 : kTet4, elems, nodes);
    const std::size_t per = r.order == 2 ? 10 : 4;
    const std::array<int, 10> place = TevVolumeMesher::QuadraticOrder();
    for (std::size_t e = 0; e < elems.size(); ++e) {
        std::array<int, 10> tet{};
        for (std::size_t k = 0; k < per; ++k) tet[per == 10 ? place[k] : k] = r.id.at(nodes[e * per + k]);
        r.tets.push_back(tet);
    }
    return !r.tets.empty();
}

// Sorted corners of a triangle, as a key of the map from boundary triangles to the corner of
// their tetrahedron that lies off them.
using Key = std::array<int, 3>;
Key KeyOf(int a, int b, int c)
{
    Key k = {a, b, c};
    std::sort(k.begin(), k.end());
    return k;
}
struct KeyHash {
    std::size_t operator()(const Key& k) const { return (std::size_t(k[0]) * 73856093u) ^ (std::size_t(k[1]) * 19349663u) ^ (std::size_t(k[2]) * 83492791u); }
};

// Turns every triangle whose normal points into its tetrahedron.
void OrientOutwards(const Reading& r, std::vector<std::vector<TevVolumeMesh::Triangle>>& faces)
{
    std::unordered_map<Key, int, KeyHash> inner;
    for (const auto& face : faces)
        for (const auto& t : face) inner[KeyOf(t[0], t[1], t[2])] = 0;
    static const int tetFaces[4][4] = {{0, 1, 2, 3}, {0, 1, 3, 2}, {0, 2, 3, 1}, {1, 2, 3, 0}};
    for (const auto& tet : r.tets)
        for (const auto& f : tetFaces) {
            auto it = inner.find(KeyOf(tet[f[0]], tet[f[1]], tet[f[2]]));
            if (it != inner.end()) it->second = tet[f[3]];
        }
    for (auto& face : faces)
        for (auto& t : face) {
            const int off = inner[KeyOf(t[0], t[1], t[2])];
            if (off == 0) continue;
            const Point& a = r.xyz[t[0] - 1];
            const Point n = Cross(Sub(r.xyz[t[1] - 1], a), Sub(r.xyz[t[2] - 1], a));
            if (Dot(n, Sub(r.xyz[off - 1], a)) > 0.0) t = {t[0], t[2], t[1], t[5], t[4], t[3]};
        }
}

std::vector<TevVolumeMesh::Triangle> ReadTriangles(const Reading& r, int surface)
{
    std::vector<std::size_t> elems, nodes;
    gmsh::model::mesh::getElementsByType(r.order == 2 ? kTri6 : kTri3, elems, nodes, surface);
    const std::size_t per = r.order == 2 ? 6 : 3;
    std::vector<TevVolumeMesh::Triangle> out;
    for (std::size_t e = 0; e < elems.size(); ++e) {
        TevVolumeMesh::Triangle t{};
        for (std::size_t k = 0; k < per; ++k) t[k] = r.id.at(nodes[e * per + k]);
        out.push_back(t);
    }
    return out;
}

// gmsh's surface matching each face of the solid (by area and centre of mass), or an empty
// list when some face has no match.
std::vector<int> MatchFaces(const TopTools_IndexedMapOfShape& faces)
{
    gmsh::vectorpair surfaces;
    gmsh::model::occ::getEntities(surfaces, 2);
    std::vector<int> match;
    std::vector<bool> used(surfaces.size(), false);
    for (int i = 1; i <= faces.Extent(); ++i) {
        GProp_GProps props;
        BRepGProp::SurfaceProperties(faces(i), props);
        const gp_Pnt c = props.CentreOfMass();
        const double area = props.Mass(), tol = 1e-6 * std::sqrt(std::max(area, 1e-30));
        int found = -1;
        for (std::size_t s = 0; s < surfaces.size() && found < 0; ++s) {
            double mass = 0.0, x = 0.0, y = 0.0, z = 0.0;
            gmsh::model::occ::getMass(2, surfaces[s].second, mass);
            gmsh::model::occ::getCenterOfMass(2, surfaces[s].second, x, y, z);
            if (!used[s] && std::fabs(mass - area) <= 1e-6 * area && c.Distance(gp_Pnt(x, y, z)) <= tol) found = static_cast<int>(s);
        }
        if (found < 0) return {};
        used[found] = true;
        match.push_back(surfaces[found].second);
    }
    return match;
}

vis_Connect* ToConnect(const Reading& r)
{
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectPre(c, 4);
    vis_ConnectDef(c, static_cast<int>(r.xyz.size()), static_cast<int>(r.tets.size()));
    for (std::size_t i = 0; i < r.xyz.size(); ++i) {
        const int n = static_cast<int>(i + 1);
        const double x[3] = {r.xyz[i].x, r.xyz[i].y, r.xyz[i].z};
        vis_ConnectSetCoordsdv(c, n, x);
        vis_ConnectSetNodeAssoc(c, kUserId, n, n);
        vis_ConnectSetNodeAssoc(c, kFeatureType, n, kGridPoint);
    }
    for (std::size_t i = 0; i < r.tets.size(); ++i) {
        const int e = static_cast<int>(i + 1);
        vis_ConnectSetTopology(c, e, SYS_SHAPE_TET, r.order == 2 ? 3 : 0, 0, 0);
        vis_ConnectSetElemNode(c, e, r.tets[i].data());
        vis_ConnectSetElemAssoc(c, kFeatureType, e, kSolid);
        vis_ConnectSetElemAssoc(c, kPropertyId, e, 1);
        vis_ConnectSetElemAssoc(c, kUserId, e, e);
    }
    return c;
}

// Meshes the model in stages; false when `progress` cancelled.
bool Generate(int order, const TevVolumeMesher::Progress& progress)
{
    const int total = order == 2 ? 4 : 3;
    for (int dim = 1; dim <= 3; ++dim) {
        gmsh::model::mesh::generate(dim);
        if (progress && !progress(dim, total)) return false;
    }
    if (order == 2) {
        gmsh::model::mesh::setOrder(2);
        if (progress && !progress(4, total)) return false;
    }
    return true;
}

std::unique_ptr<TevVolumeMesh> MeshSolid(const TopoDS_Shape& solid, const TevVolumeMesher::Options& options,
                                         std::string* error, const TevVolumeMesher::Progress& progress)
{
    gmsh::clear();
    gmsh::model::add("solid");
    gmsh::vectorpair imported;
    gmsh::model::occ::importShapesNativePointer(&solid, imported, true);
    gmsh::model::occ::synchronize();
    gmsh::option::setNumber("Mesh.MeshSizeMax", options.size);
    gmsh::option::setNumber("Mesh.MeshSizeMin", 0.0);
    gmsh::option::setNumber("Mesh.SecondOrderLinear", 0);
    if (!Generate(options.order, progress)) {
        *error = "Meshing cancelled";
        return nullptr;
    }
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(solid, TopAbs_FACE, faces);
    const std::vector<int> surfaces = MatchFaces(faces);
    if (surfaces.empty()) {
        *error = "The mesher did not keep the faces of the solid";
        return nullptr;
    }
    Reading r;
    r.order = options.order;
    if (!ReadNodes(r) || !ReadTets(r)) {
        *error = GmshError("The mesher made no tetrahedra");
        return nullptr;
    }
    std::vector<std::vector<TevVolumeMesh::Triangle>> boundary;
    for (int s : surfaces) boundary.push_back(ReadTriangles(r, s));
    OrientOutwards(r, boundary);
    return std::make_unique<TevVolumeMesh>(ToConnect(r), options.order, std::move(boundary));
}

}  // namespace

std::array<int, 10> TevVolumeMesher::QuadraticOrder()
{
    std::array<int, 10> place = {0, 1, 2, 3, 0, 0, 0, 0, 0, 0};
    for (int g = 0; g < 6; ++g)
        for (int e = 0; e < 6; ++e) {
            int num = 0, ends[2] = {0, 0};
            vis_ElemEdgeCorners(SYS_SHAPE_TET, 3, 0, 0, e, &num, ends);
            const int* p = kGmshTetEdges[g];
            if ((ends[0] == p[0] && ends[1] == p[1]) || (ends[0] == p[1] && ends[1] == p[0])) place[4 + g] = 4 + e;
        }
    return place;
}

std::unique_ptr<TevVolumeMesh> TevVolumeMesher::Mesh(const TopoDS_Shape& shape, const Options& options,
                                                     std::string* error, const Progress& progress)
{
    std::string ignored;
    if (!error) error = &ignored;
    TopExp_Explorer solids(shape, TopAbs_SOLID);
    if (shape.IsNull() || !solids.More()) {
        *error = "No solid to mesh: select a solid";
        return nullptr;
    }
    if (!(options.size > 0.0) || (options.order != 1 && options.order != 2)) {
        *error = "The element size must be positive and the order 1 or 2";
        return nullptr;
    }
    StartGmsh();
    std::unique_ptr<TevVolumeMesh> mesh;
    try {
        mesh = MeshSolid(solids.Current(), options, error, progress);
    } catch (...) {
        *error = GmshError("The mesher failed");
    }
    if (!mesh) ResetGmsh();
    return mesh;
}

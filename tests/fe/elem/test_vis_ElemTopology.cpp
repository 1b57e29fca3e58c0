// Element topology: the fixed tables, node counts, and the node lists of corners, edges and
// faces of every element form, checked against a reference element built here from natural
// coordinates in the documented node order.
#include "vis_ElemTopology.h"

#include "vis_ElemShape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace {

// ------------------------------------------------------------------ reference tables ----
// Written out independently of the library so that the library's tables are checked.

const int kCorners[8] = {1, 2, 3, 4, 4, 5, 6, 8};
const int kEdges[8] = {0, 1, 3, 4, 6, 8, 9, 12};
const int kFaces[8] = {0, 0, 1, 1, 4, 5, 5, 6};

struct V3 {
    double x, y, z;
};
V3 operator+(V3 a, V3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
V3 operator-(V3 a, V3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
V3 operator*(double s, V3 a) { return {s * a.x, s * a.y, s * a.z}; }
double Dot(V3 a, V3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
V3 Cross(V3 a, V3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
double Len(V3 a) { return std::sqrt(Dot(a, a)); }
bool Near(V3 a, V3 b) { return Len(a - b) < 1e-9; }
std::string Str(V3 a)
{
    char buf[96];
    std::snprintf(buf, sizeof buf, "(%g,%g,%g)", a.x, a.y, a.z);
    return buf;
}

const std::vector<std::vector<V3>> kNatural = {
    {{0, 0, 0}},
    {{-1, 0, 0}, {1, 0, 0}},
    {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
    {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}},
    {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
    {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1}, {0, 0, 1}},
    {{0, 0, -1}, {1, 0, -1}, {0, 1, -1}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}},
    {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1}, {-1, -1, 1}, {1, -1, 1}, {1, 1, 1},
     {-1, 1, 1}},
};

using IntLists = std::vector<std::vector<int>>;

const std::vector<IntLists> kEdgeTable = {
    {},
    {{0, 1}},
    {{0, 1}, {1, 2}, {2, 0}},
    {{0, 1}, {1, 2}, {2, 3}, {3, 0}},
    {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}},
    {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {0, 4}, {1, 4}, {2, 4}, {3, 4}},
    {{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}},
    {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6},
     {3, 7}},
};

const std::vector<IntLists> kFaceTable = {
    {},
    {},
    {{0, 1, 2}},
    {{0, 1, 2, 3}},
    {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}},
    {{0, 3, 2, 1}, {0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}},
    {{0, 2, 1}, {3, 4, 5}, {0, 1, 4, 3}, {0, 3, 5, 2}, {1, 2, 5, 4}},
    {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 4, 7, 3}, {1, 2, 6, 5}},
};

const std::vector<IntLists> kFaceEdgeTable = {
    {},
    {{0}},
    {{0, 1, 2}},
    {{0, 1, 2, 3}},
    {{2, 1, 0}, {0, 4, 3}, {3, 5, 2}, {1, 5, 4}},
    {{3, 2, 1, 0}, {0, 5, 4}, {1, 6, 5}, {2, 7, 6}, {3, 4, 7}},
    {{2, 1, 0}, {3, 4, 5}, {0, 7, 3, 6}, {6, 5, 8, 2}, {1, 8, 4, 7}},
    {{3, 2, 1, 0}, {4, 5, 6, 7}, {0, 9, 4, 8}, {11, 6, 10, 2}, {8, 7, 11, 3}, {1, 10, 5, 9}},
};

const std::vector<IntLists> kEdgeFaceTable = {
    {},
    {},
    {{0}, {0}, {0}},
    {{0}, {0}, {0}, {0}},
    {{0, 1}, {0, 3}, {0, 2}, {1, 2}, {3, 1}, {2, 3}},
    {{0, 1}, {0, 2}, {0, 3}, {0, 4}, {1, 4}, {2, 1}, {3, 2}, {4, 3}},
    {{0, 2}, {0, 4}, {0, 3}, {2, 1}, {4, 1}, {3, 1}, {2, 3}, {4, 2}, {3, 4}},
    {{0, 2}, {0, 5}, {0, 3}, {0, 4}, {2, 1}, {5, 1}, {3, 1}, {4, 1}, {2, 4}, {5, 2}, {3, 5},
     {4, 3}},
};

// ------------------------------------------------------------------ small wrappers ----

int Num(int shape, int maxi, int maxj, int maxk)
{
    int num = -7;
    vis_ElemNum(shape, maxi, maxj, maxk, &num);
    return num;
}

int Mask(int bits) { return (int)((unsigned)bits << 16); }

std::vector<int> Corners(int shape, int maxi, int maxj, int maxk)
{
    int n = 0;
    vis_ElemCornerCount(shape, maxi, &n);
    std::vector<int> pos(n, -1);
    vis_ElemCorners(shape, maxi, maxj, maxk, n ? pos.data() : nullptr);
    return pos;
}

// Calls a list function twice: once for the count, then into a buffer of exactly that size,
// so that the sanitizer sees any write past the count.
template <class Fn>
std::vector<int> List(Fn fn)
{
    int n = -1;
    fn(&n, nullptr);
    EXPECT_GE(n, 0);
    if (n <= 0) return {};
    std::vector<int> out(n, -1);
    int n2 = -1;
    fn(&n2, out.data());
    EXPECT_EQ(n, n2);
    return out;
}

std::vector<int> EdgeNodes(int s, int i, int j, int k, int e)
{
    return List([&](int* n, int* p) { vis_ElemEdgeNodes(s, i, j, k, e, n, p); });
}
std::vector<int> EdgeCorners(int s, int i, int j, int k, int e)
{
    return List([&](int* n, int* p) { vis_ElemEdgeCorners(s, i, j, k, e, n, p); });
}
std::vector<int> FaceNodes(int s, int i, int j, int k, int f)
{
    return List([&](int* n, int* p) { vis_ElemFaceNodes(s, i, j, k, f, n, p); });
}
std::vector<int> FaceCorners(int s, int i, int j, int k, int f)
{
    return List([&](int* n, int* p) { vis_ElemFaceCorners(s, i, j, k, f, n, p); });
}
std::vector<int> FaceEdges(int s, int f)
{
    return List([&](int* n, int* p) { vis_ElemFaceEdges(s, f, n, p); });
}
std::vector<int> EdgeFaces(int s, int e)
{
    return List([&](int* n, int* p) { vis_ElemEdgeFaces(s, e, n, p); });
}
int EdgeTopo(int s, int i, int j, int k, int e)
{
    int m = -7;
    vis_ElemEdgeTopo(s, i, j, k, e, &m);
    return m;
}
void FaceTopo(int s, int i, int j, int k, int f, int* fs, int* fi, int* fj)
{
    *fs = *fi = *fj = -7;
    vis_ElemFaceTopo(s, i, j, k, f, fs, fi, fj);
}

// ------------------------------------------------------------- reference elements ----
// Natural coordinates of all nodes of a tuple, built from the documented node order:
// serendipity corners then edge runs (a line of low maxj 0 is serendipity: its two ends, then
// its interior nodes from the first end); Lagrange lattices in lexical order; apex forms base
// then apex; layered forms base per layer. Masked edges lose the nodes strictly inside them.

bool SideOk(int n) { return n >= 2 && n <= VIS_ELEM_MAXSIDE; }

// Serendipity nodes of a tri or quad (or line) with the given corner points.
std::vector<V3> Ser(int shape, int i, const std::vector<V3>& c)
{
    std::vector<V3> x = c;
    for (const auto& e : kEdgeTable[shape])
        for (int t = 1; t < i - 1; t++) x.push_back(c[e[0]] + (double)t / (i - 1) * (c[e[1]] - c[e[0]]));
    return x;
}

std::vector<V3> SerShape(int shape, int i)
{
    return Ser(shape, i, kNatural[shape]);
}

std::vector<V3> TriLattice(int n, double z)
{
    std::vector<V3> x;
    for (int J = 0; J < n; J++)
        for (int I = 0; I + J < n; I++) x.push_back({(double)I / (n - 1), (double)J / (n - 1), z});
    return x;
}

std::vector<V3> QuadLattice(int a, int b, double z)
{
    std::vector<V3> x;
    for (int J = 0; J < b; J++)
        for (int I = 0; I < a; I++) x.push_back({-1 + 2.0 * I / (a - 1), -1 + 2.0 * J / (b - 1), z});
    return x;
}

std::vector<V3> Layers(const std::vector<V3>& base, int k)
{
    std::vector<V3> x;
    for (int l = 0; l < k; l++)
        for (V3 p : base) x.push_back({p.x, p.y, -1 + 2.0 * l / (k - 1)});
    return x;
}

std::vector<V3> Plus(std::vector<V3> x, V3 apex)
{
    x.push_back(apex);
    return x;
}

std::vector<V3> TetLattice(int n)
{
    std::vector<V3> x;
    for (int K = 0; K < n; K++)
        for (int J = 0; J + K < n; J++)
            for (int I = 0; I + J + K < n; I++)
                x.push_back({(double)I / (n - 1), (double)J / (n - 1), (double)K / (n - 1)});
    return x;
}

std::vector<V3> PyrLattice(int n)
{
    std::vector<V3> x;
    for (int K = 0; K < n; K++)
        for (int J = 0; J < n - K; J++)
            for (int I = 0; I < n - K; I++)
                x.push_back({(2.0 * I + K) / (n - 1) - 1, (2.0 * J + K) / (n - 1) - 1,
                             2.0 * K / (n - 1) - 1});
    return x;
}

// The unmasked node coordinates; false when the tuple describes no element.
bool Unmasked(int shape, int maxi, int j, int k, std::vector<V3>& x)
{
    int i = maxi ? maxi : 2;
    if (!SideOk(i)) return false;
    std::vector<V3> triBase = {kNatural[4][0], kNatural[4][1], kNatural[4][2]};
    std::vector<V3> quadBase(kNatural[5].begin(), kNatural[5].begin() + 4);
    switch (shape) {
    case SYS_SHAPE_LINE:
        if (j == 0) x = SerShape(1, i);
        else
            for (int t = 0; t < i; t++) x.push_back({-1 + 2.0 * t / (i - 1), 0, 0});
        return true;
    case SYS_SHAPE_TRI:
        if (j == 0) x = SerShape(2, i);
        else if (j == i) x = TriLattice(i, 0);
        else {
            for (int t = 0; t < i; t++) x.push_back({(double)t / (i - 1), 0, 0});
            x.push_back({0, 1, 0});
        }
        return true;
    case SYS_SHAPE_QUAD:
        if (j == 0) x = SerShape(3, i);
        else if (SideOk(j)) x = QuadLattice(i, j, 0);
        else return false;
        return true;
    case SYS_SHAPE_TET:
        if (j == 0 && k == 0) x = SerShape(4, i);
        else if (j == 0) x = Plus(Ser(2, i, triBase), {0, 0, 1});
        else if (j == k) x = TetLattice(i);
        else x = Plus(TriLattice(i, 0), {0, 0, 1});
        return true;
    case SYS_SHAPE_PYR:
        if (j == 0 && k == 0) x = SerShape(5, i);
        else if (j == 0) x = Plus(Ser(3, i, quadBase), {0, 0, 1});
        else if (j == k) x = PyrLattice(i);
        else if (SideOk(j)) x = Plus(QuadLattice(i, j, -1), {0, 0, 1});
        else return false;
        return true;
    case SYS_SHAPE_WED:
        if (j == 0 && k == 0) x = SerShape(6, i);
        else if (!SideOk(k)) return false;
        else if (j == 0) x = Layers(SerShape(2, i), k);
        else x = Layers(TriLattice(i, 0), k);
        return true;
    case SYS_SHAPE_HEX:
        if (j == 0 && k == 0) x = SerShape(7, i);
        else if (!SideOk(k)) return false;
        else if (j == 0) x = Layers(SerShape(3, i), k);
        else if (SideOk(j)) x = Layers(QuadLattice(i, j, 0), k);
        else return false;
        return true;
    }
    return false;
}

bool Inside(V3 p, V3 a, V3 b)
{
    V3 ab = b - a, ap = p - a;
    if (Len(Cross(ab, ap)) > 1e-9) return false;
    double t = Dot(ap, ab) / Dot(ab, ab);
    return t > 1e-9 && t < 1 - 1e-9;
}

bool Reference(int shape, int maxi, int maxj, int maxk, std::vector<V3>& x)
{
    x.clear();
    if (!Unmasked(shape, maxi, maxj & 0xffff, maxk, x)) return false;
    const auto& c = kNatural[shape];
    for (int e = 0; e < kEdges[shape]; e++) {
        if (!(((unsigned)maxj >> (16 + e)) & 1)) continue;
        V3 a = c[kEdgeTable[shape][e][0]], b = c[kEdgeTable[shape][e][1]];
        x.erase(std::remove_if(x.begin(), x.end(), [&](V3 p) { return Inside(p, a, b); }),
                x.end());
    }
    return true;
}

// Maps a 2-D reference element (natural r, s) onto a face with corners p.
V3 MapFace(int faceshape, V3 rs, const std::vector<V3>& p)
{
    if (faceshape == SYS_SHAPE_TRI) return p[0] + rs.x * (p[1] - p[0]) + rs.y * (p[2] - p[0]);
    double r = rs.x, s = rs.y;
    return 0.25 * (1 - r) * (1 - s) * p[0] + 0.25 * (1 + r) * (1 - s) * p[1] +
           0.25 * (1 + r) * (1 + s) * p[2] + 0.25 * (1 - r) * (1 + s) * p[3];
}

V3 Newell(const std::vector<V3>& p)
{
    V3 n = {0, 0, 0};
    for (size_t a = 0; a < p.size(); a++) n = n + Cross(p[a], p[(a + 1) % p.size()]);
    return n;
}

V3 Centroid(const std::vector<V3>& p)
{
    V3 c = {0, 0, 0};
    for (V3 q : p) c = c + q;
    return (1.0 / p.size()) * c;
}

// True when p lies on the convex planar polygon with corners q (counter-clockwise about n).
bool OnFace(V3 p, const std::vector<V3>& q)
{
    V3 n = Newell(q);
    n = (1.0 / Len(n)) * n;
    if (std::fabs(Dot(p - q[0], n)) > 1e-9) return false;
    for (size_t a = 0; a < q.size(); a++) {
        V3 e = q[(a + 1) % q.size()] - q[a];
        if (Dot(Cross(e, p - q[a]), n) < -1e-9) return false;
    }
    return true;
}

bool Distinct(const std::vector<int>& v)
{
    return std::set<int>(v.begin(), v.end()).size() == v.size();
}

bool InRange(const std::vector<int>& v, int n)
{
    for (int p : v)
        if (p < 0 || p >= n) return false;
    return true;
}

std::string Tuple(int s, int i, int j, int k)
{
    char buf[96];
    std::snprintf(buf, sizeof buf, "shape %d tuple %d, %d|mask 0x%x, %d", s, i, j & 0xffff,
                  (unsigned)j >> 16, k);
    return buf;
}

int IndexOf(const std::vector<V3>& x, V3 p)
{
    for (size_t a = 0; a < x.size(); a++)
        if (Near(x[a], p)) return (int)a;
    return -1;
}

bool OnBoundary(V3 p, const std::vector<V3>& q)
{
    for (size_t v = 0; v < q.size(); v++)
        if (Near(p, q[v]) || Inside(p, q[v], q[(v + 1) % q.size()])) return true;
    return false;
}

// The node list of a face by the rule, derived from the places of the element's nodes x: the
// face corners q in the table's order; then, face edge by face edge, the nodes strictly inside
// the edge ordered by their distance from the face corner the edge starts at; then the nodes
// inside the face, in the face's own lattice order (its reference element of tuple fs, fi,
// fj mapped onto the face). A place with no node gives -1.
std::vector<int> RuleFace(const std::vector<V3>& x, const std::vector<V3>& q, int fs, int fi,
                          int fj)
{
    std::vector<int> out;
    for (V3 c : q) out.push_back(IndexOf(x, c));
    for (size_t v = 0; v < q.size(); v++) {
        V3 a = q[v], b = q[(v + 1) % q.size()];
        std::vector<std::pair<double, int>> run;
        for (size_t p = 0; p < x.size(); p++)
            if (Inside(x[p], a, b)) run.push_back({Len(x[p] - a), (int)p});
        std::sort(run.begin(), run.end());
        for (auto& r : run) out.push_back(r.second);
    }
    std::vector<V3> fx;
    Reference(fs, fi, fj, 0, fx);
    for (V3 rs : fx) {
        V3 p = MapFace(fs, rs, q);
        if (!OnBoundary(p, q)) out.push_back(IndexOf(x, p));
    }
    return out;
}

// Every check of one valid tuple of shapes 1 to 7 against its reference element.
void CheckEdges(int s, int i, int j, int k, const std::vector<V3>& x)
{
    const auto& c = kNatural[s];
    std::vector<int> corner = Corners(s, i, j, k);
    for (int e = 0; e < kEdges[s]; e++) {
        SCOPED_TRACE("edge " + std::to_string(e));
        std::vector<int> nodes = EdgeNodes(s, i, j, k, e);
        int m = (int)nodes.size();
        ASSERT_GE(m, 2);
        EXPECT_LE(m, VIS_ELEM_MAXSIDE);
        EXPECT_EQ(m, EdgeTopo(s, i, j, k, e));
        ASSERT_TRUE(InRange(nodes, (int)x.size()));
        EXPECT_TRUE(Distinct(nodes));
        int a = kEdgeTable[s][e][0], b = kEdgeTable[s][e][1];
        EXPECT_EQ(nodes.front(), corner[a]);
        EXPECT_EQ(nodes.back(), corner[b]);
        EXPECT_EQ(EdgeCorners(s, i, j, k, e), (std::vector<int>{corner[a], corner[b]}));
        for (int t = 0; t < m; t++)
            EXPECT_TRUE(Near(x[nodes[t]], c[a] + (double)t / (m - 1) * (c[b] - c[a])))
                << "node " << t << " at " << Str(x[nodes[t]]);
        int on = 0;
        for (V3 p : x) on += Inside(p, c[a], c[b]) || Near(p, c[a]) || Near(p, c[b]);
        EXPECT_EQ(on, m) << "nodes on the edge that the list misses";
    }
    EXPECT_EQ(EdgeTopo(s, i, j, k, -1), 0);
    EXPECT_EQ(EdgeTopo(s, i, j, k, kEdges[s]), 0);
    EXPECT_TRUE(EdgeNodes(s, i, j, k, kEdges[s]).empty());
}

void CheckSolidFace(int s, int i, int j, int k, int f, const std::vector<V3>& x)
{
    const auto& c = kNatural[s];
    std::vector<int> corner = Corners(s, i, j, k);
    const std::vector<int>& fc = kFaceTable[s][f];
    std::vector<V3> q;
    for (int v : fc) q.push_back(c[v]);
    // Outward: the corners' normal points from the element centroid towards the face centroid.
    EXPECT_GT(Dot(Newell(q), Centroid(q) - Centroid(c)), 0);

    std::vector<int> fcorn = FaceCorners(s, i, j, k, f);
    ASSERT_EQ(fcorn.size(), fc.size());
    for (size_t v = 0; v < fc.size(); v++) EXPECT_EQ(fcorn[v], corner[fc[v]]);

    std::vector<int> nodes = FaceNodes(s, i, j, k, f);
    EXPECT_LE(nodes.size(), (size_t)VIS_ELEM_MAXFACENODE);
    ASSERT_TRUE(InRange(nodes, (int)x.size()));
    EXPECT_TRUE(Distinct(nodes));
    int on = 0;
    for (V3 p : x) on += OnFace(p, q);
    EXPECT_EQ(on, (int)nodes.size()) << "nodes on the face that the list misses";

    // The list follows the face rule: corners, edge runs, face interior.
    int fs, fi, fj;
    FaceTopo(s, i, j, k, f, &fs, &fi, &fj);
    ASSERT_EQ(fs, fc.size() == 3 ? SYS_SHAPE_TRI : SYS_SHAPE_QUAD);
    EXPECT_EQ(Num(fs, fi, fj, 0), (int)nodes.size()) << Tuple(fs, fi, fj, 0);
    EXPECT_EQ(nodes, RuleFace(x, q, fs, fi, fj)) << "face tuple " << Tuple(fs, fi, fj, 0);
    for (size_t v = 0; v < fcorn.size() && v < nodes.size(); v++) EXPECT_EQ(nodes[v], fcorn[v]);
    // Each edge of the face runs between consecutive face corners, its count as the face says.
    std::vector<int> fe = FaceEdges(s, f);
    ASSERT_EQ(fe.size(), fc.size());
    for (size_t v = 0; v < fe.size(); v++) {
        std::set<int> ends = {kEdgeTable[s][fe[v]][0], kEdgeTable[s][fe[v]][1]};
        EXPECT_EQ(ends, (std::set<int>{fc[v], fc[(v + 1) % fc.size()]}));
        EXPECT_EQ(EdgeTopo(fs, fi, fj, 0, (int)v), EdgeTopo(s, i, j, k, fe[v]));
    }
}

// Returns whether the tuple is an element.
bool CheckTuple(int s, int i, int j, int k)
{
    SCOPED_TRACE(Tuple(s, i, j, k));
    std::vector<V3> x;
    bool valid = Reference(s, i, j, k, x);
    int num = Num(s, i, j, k);
    if (!valid) {
        EXPECT_EQ(num, 0);
        EXPECT_TRUE(EdgeNodes(s, i, j, k, 0).empty());
        EXPECT_TRUE(FaceNodes(s, i, j, k, 0).empty());
        int fs, fi, fj;
        FaceTopo(s, i, j, k, 0, &fs, &fi, &fj);
        EXPECT_EQ(fs, -1);
        return false;
    }
    EXPECT_EQ(num, (int)x.size());
    if (num != (int)x.size()) return true;
    EXPECT_LE(num, VIS_ELEM_MAXNODE);
    for (size_t a = 0; a < x.size(); a++)
        for (size_t b = a + 1; b < x.size(); b++) EXPECT_FALSE(Near(x[a], x[b]));
    std::vector<int> corner = Corners(s, i, j, k);
    EXPECT_EQ((int)corner.size(), kCorners[s]);
    for (int v = 0; v < kCorners[s]; v++) {
        if (!(corner[v] >= 0 && corner[v] < num)) {
            ADD_FAILURE() << "corner " << v << " at " << corner[v];
            return true;
        }
        EXPECT_TRUE(Near(x[corner[v]], kNatural[s][v])) << "corner " << v;
    }
    CheckEdges(s, i, j, k, x);
    if (s == SYS_SHAPE_TRI || s == SYS_SHAPE_QUAD) {
        // The one face of a plane element follows the face rule over the element's own nodes.
        EXPECT_EQ(FaceNodes(s, i, j, k, 0), RuleFace(x, kNatural[s], s, i, j));
        EXPECT_EQ(FaceCorners(s, i, j, k, 0), corner);
        int fs, fi, fj;
        FaceTopo(s, i, j, k, 0, &fs, &fi, &fj);
        EXPECT_EQ(fs, s);
        EXPECT_EQ(fi, i);
        EXPECT_EQ(fj, j);
    }
    if (s >= SYS_SHAPE_TET)
        for (int f = 0; f < kFaces[s]; f++) {
            SCOPED_TRACE("face " + std::to_string(f));
            CheckSolidFace(s, i, j, k, f, x);
        }
    EXPECT_TRUE(FaceNodes(s, i, j, k, kFaces[s]).empty());
    EXPECT_TRUE(FaceNodes(s, i, j, k, -1).empty());
    return true;
}

// Masks to try on a tuple: none, each edge alone, pairs of neighbours, every edge.
std::vector<int> MaskSet(int shape)
{
    std::vector<int> m = {0};
    int ne = kEdges[shape];
    for (int e = 0; e < ne; e++) m.push_back(1 << e);
    for (int e = 0; e + 1 < ne; e++) m.push_back(3 << e);
    m.push_back((1 << ne) - 1);
    return m;
}

// ================================================================== tests ====

TEST(ElemTopology, ShapeAndEntityCodes)
{
    EXPECT_EQ(SYS_SHAPE_POINT, 0);
    EXPECT_EQ(SYS_SHAPE_LINE, 1);
    EXPECT_EQ(SYS_SHAPE_TRI, 2);
    EXPECT_EQ(SYS_SHAPE_QUAD, 3);
    EXPECT_EQ(SYS_SHAPE_TET, 4);
    EXPECT_EQ(SYS_SHAPE_PYR, 5);
    EXPECT_EQ(SYS_SHAPE_WED, 6);
    EXPECT_EQ(SYS_SHAPE_HEX, 7);
    EXPECT_EQ(SYS_SHAPE_POLYGON, 8);
    EXPECT_EQ(SYS_SHAPE_POLYHED, 9);
    EXPECT_EQ(SYS_NODE, 1);
    EXPECT_EQ(SYS_EDGE, 2);
    EXPECT_EQ(SYS_FACE, 3);
    EXPECT_EQ(SYS_ELEM, 4);
}

TEST(ElemTopology, ShapeTableCounts)
{
    const int dim[10] = {0, 1, 2, 2, 3, 3, 3, 3, 2, 3};
    for (int s = 0; s < 8; s++) {
        int n = -1;
        vis_ElemCornerCount(s, 99, &n);
        EXPECT_EQ(n, kCorners[s]) << s;
        vis_ElemEdgeCount(s, 99, &n);
        EXPECT_EQ(n, kEdges[s]) << s;
        vis_ElemFaceCount(s, 99, &n);
        EXPECT_EQ(n, kFaces[s]) << s;
    }
    for (int s = 0; s < 10; s++) {
        int d = -9;
        vis_ElemDim(s, &d);
        EXPECT_EQ(d, dim[s]) << s;
    }
    for (int s : {SYS_SHAPE_POLYGON, SYS_SHAPE_POLYHED}) {
        int n = -1;
        vis_ElemCornerCount(s, 7, &n);
        EXPECT_EQ(n, 7);
        vis_ElemEdgeCount(s, 6, &n);
        EXPECT_EQ(n, 6);
        vis_ElemFaceCount(s, 5, &n);
        EXPECT_EQ(n, 5);
        vis_ElemCornerCount(s, -3, &n);
        EXPECT_EQ(n, 0);
    }
    for (int s : {-1, 10, -2, INT_MIN, INT_MAX}) {
        int n = -1, d = 0;
        vis_ElemCornerCount(s, 4, &n);
        EXPECT_EQ(n, 0);
        vis_ElemEdgeCount(s, 4, &n);
        EXPECT_EQ(n, 0);
        vis_ElemFaceCount(s, 4, &n);
        EXPECT_EQ(n, 0);
        vis_ElemDim(s, &d);
        EXPECT_EQ(d, -1);
    }
}

TEST(ElemTopology, NaturalCoordinatesOfCorners)
{
    for (int s = 0; s < 8; s++) {
        std::vector<float> f(3 * kCorners[s] + 1, 42.0f);
        std::vector<double> d(3 * kCorners[s] + 1, 42.0);
        vis_ElemNatural(s, f.data());
        vis_ElemNaturaldv(s, d.data());
        for (int c = 0; c < kCorners[s]; c++) {
            V3 ref = kNatural[s][c];
            EXPECT_EQ(f[3 * c], (float)ref.x);
            EXPECT_EQ(f[3 * c + 1], (float)ref.y);
            EXPECT_EQ(f[3 * c + 2], (float)ref.z);
            EXPECT_EQ(d[3 * c], ref.x);
            EXPECT_EQ(d[3 * c + 1], ref.y);
            EXPECT_EQ(d[3 * c + 2], ref.z);
        }
        EXPECT_EQ(f.back(), 42.0f) << "wrote past the corners";
        EXPECT_EQ(d.back(), 42.0);
    }
    double d[3] = {5, 5, 5};
    for (int s : {-1, 8, 9, 10}) vis_ElemNaturaldv(s, d);
    EXPECT_EQ(d[0], 5);
    vis_ElemNaturaldv(SYS_SHAPE_HEX, nullptr);
    vis_ElemNatural(SYS_SHAPE_HEX, nullptr);
}

TEST(ElemTopology, SerendipityCountTable)
{
    // Rows i = 2, 3, 4; columns tri, quad, tet, pyr, wed, hex.
    const int table[3][6] = {{3, 4, 4, 5, 6, 8}, {6, 8, 10, 13, 15, 20}, {9, 12, 16, 21, 24, 32}};
    for (int r = 0; r < 3; r++)
        for (int c = 0; c < 6; c++) EXPECT_EQ(Num(c + 2, r + 2, 0, 0), table[r][c]);
    for (int c = 0; c < 6; c++) EXPECT_EQ(Num(c + 2, 0, 0, 0), table[0][c]);
}

TEST(ElemTopology, NodeCountRules)
{
    EXPECT_EQ(Num(-1, 0, 0, 0), 0);
    EXPECT_EQ(Num(-1, 3, 3, 3), 0);
    EXPECT_EQ(Num(SYS_SHAPE_POINT, 0, 0, 0), 1);
    EXPECT_EQ(Num(SYS_SHAPE_POINT, 3, 0, 0), 3);
    for (int i = 2; i <= 4; i++) EXPECT_EQ(Num(SYS_SHAPE_LINE, i, 0, 0), i);
    EXPECT_EQ(Num(SYS_SHAPE_LINE, 0, 0, 0), 2);
    // tri: j = maxi Lagrange, other j base line plus apex.
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 2, 2, 0), 3);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 3, 3, 0), 6);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 4, 4, 0), 10);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 3, 2, 0), 4);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 4, 1, 0), 5);
    // quad: maxi * j.
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 3, 3, 0), 9);
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 2, 4, 0), 8);
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 4, 3, 0), 12);
    // tet: base plus apex, full lattice, Lagrange base plus apex.
    EXPECT_EQ(Num(SYS_SHAPE_TET, 3, 0, 1), 7);
    EXPECT_EQ(Num(SYS_SHAPE_TET, 4, 0, 2), 10);
    EXPECT_EQ(Num(SYS_SHAPE_TET, 3, 3, 3), 10);
    EXPECT_EQ(Num(SYS_SHAPE_TET, 4, 4, 4), 20);
    EXPECT_EQ(Num(SYS_SHAPE_TET, 3, 3, 0), 7);
    EXPECT_EQ(Num(SYS_SHAPE_TET, 4, 4, 1), 11);
    // pyr.
    EXPECT_EQ(Num(SYS_SHAPE_PYR, 3, 0, 1), 9);
    EXPECT_EQ(Num(SYS_SHAPE_PYR, 3, 3, 3), 14);
    EXPECT_EQ(Num(SYS_SHAPE_PYR, 4, 4, 4), 30);
    EXPECT_EQ(Num(SYS_SHAPE_PYR, 3, 2, 0), 7);
    EXPECT_EQ(Num(SYS_SHAPE_PYR, 3, 4, 1), 13);
    // wed: layered tri table times k, Lagrange maxi (maxi + 1) k / 2.
    EXPECT_EQ(Num(SYS_SHAPE_WED, 3, 0, 3), 18);
    EXPECT_EQ(Num(SYS_SHAPE_WED, 2, 0, 4), 12);
    EXPECT_EQ(Num(SYS_SHAPE_WED, 3, 3, 3), 18);
    EXPECT_EQ(Num(SYS_SHAPE_WED, 4, 1, 2), 20);
    // hex.
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 0, 2), 16);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 4, 0, 3), 36);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 2, 3, 4), 24);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 4, 4, 4), 64);
    // polygon, polyhedron: maxi.
    EXPECT_EQ(Num(SYS_SHAPE_POLYGON, 6, 5, 1), 6);
    EXPECT_EQ(Num(SYS_SHAPE_POLYHED, 16, 6, 4), 16);
    EXPECT_EQ(Num(SYS_SHAPE_POLYGON, 0, 0, 0), 0);
}

// The edge cases named for the topology tables.
TEST(ElemTopology, NamedEdgeCases)
{
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 0, 0, 0), 8);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 0, 0), 20);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 3, 3), 27);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 3, 3, 0), 6);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 4, 4, 0), 10);
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 3, 0 | Mask(1), 0), 7);
    EXPECT_EQ(Num(-1, 0, 0, 0), 0);
    // Face 0 of a hexahedron lies at t = -1 and its normal points out, towards -t.
    double x[24];
    vis_ElemNaturaldv(SYS_SHAPE_HEX, x);
    std::vector<int> f0 = FaceCorners(SYS_SHAPE_HEX, 0, 0, 0, 0);
    ASSERT_EQ(f0, (std::vector<int>{0, 3, 2, 1}));
    std::vector<V3> q;
    for (int c : f0) {
        EXPECT_EQ(x[3 * c + 2], -1.0);
        q.push_back({x[3 * c], x[3 * c + 1], x[3 * c + 2]});
    }
    V3 n = Newell(q);
    EXPECT_LT(n.z, 0);
    EXPECT_EQ(n.x, 0);
    EXPECT_EQ(n.y, 0);
}

TEST(ElemTopology, MaskedQuadraticQuadrilateral)
{
    // Edge 0 masked: node 4 (the mid-node of edge 0) is gone, 5, 6, 7 become 4, 5, 6.
    int mj = Mask(1);
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_QUAD, 3, mj, 0, 0), (std::vector<int>{0, 1}));
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_QUAD, 3, mj, 0, 1), (std::vector<int>{1, 4, 2}));
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_QUAD, 3, mj, 0, 3), (std::vector<int>{3, 6, 0}));
    EXPECT_EQ(EdgeTopo(SYS_SHAPE_QUAD, 3, mj, 0, 0), 2);
    EXPECT_EQ(EdgeTopo(SYS_SHAPE_QUAD, 3, mj, 0, 1), 3);
    // Edges 1 and 3 masked on a cubic quadrilateral: 12 - 2 * 2 nodes.
    int m13 = Mask(0xa);
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 4, m13, 0), 8);
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_QUAD, 4, m13, 0, 2), (std::vector<int>{2, 6, 7, 3}));
    // Mask bits beyond the element's edges are ignored.
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 3, Mask(0x8), 0), 6);
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 3, (int)0xfff00000u, 0), 8);
}

TEST(ElemTopology, MaskReducesCountByInteriorNodes)
{
    for (int s = SYS_SHAPE_LINE; s <= SYS_SHAPE_HEX; s++)
        for (int i : {0, 2, 3, 4})
            for (int j : {0, 2, 3, 4})
                for (int k : {0, 1, 2, 3, 4}) {
                    int base = Num(s, i, j, k);
                    if (base == 0) continue;
                    for (int m : MaskSet(s)) {
                        int drop = 0;
                        for (int e = 0; e < kEdges[s]; e++)
                            if ((m >> e) & 1) drop += EdgeTopo(s, i, j, k, e) - 2;
                        EXPECT_EQ(Num(s, i, j | Mask(m), k), base - drop) << Tuple(s, i, j | Mask(m), k);
                    }
                }
    // Uniform elements lose i - 2 nodes per masked edge.
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 4, Mask(0xfff), 0), 32 - 12 * 2);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 3 | Mask(0x3), 3), 27 - 2);
    EXPECT_EQ(Num(SYS_SHAPE_TET, 3, Mask(0x3f), 0), 4);
    EXPECT_EQ(Num(SYS_SHAPE_LINE, 3, Mask(1), 0), 2);
}

TEST(ElemTopology, EdgeTableVerbatim)
{
    for (int s = SYS_SHAPE_LINE; s <= SYS_SHAPE_HEX; s++)
        for (int e = 0; e < kEdges[s]; e++)
            EXPECT_EQ(EdgeCorners(s, 0, 0, 0, e), kEdgeTable[s][e]) << s << " edge " << e;
}

TEST(ElemTopology, FaceTableVerbatim)
{
    for (int s = SYS_SHAPE_TRI; s <= SYS_SHAPE_HEX; s++)
        for (int f = 0; f < kFaces[s]; f++)
            EXPECT_EQ(FaceCorners(s, 0, 0, 0, f), kFaceTable[s][f]) << s << " face " << f;
}

TEST(ElemTopology, FaceEdgesVerbatim)
{
    EXPECT_EQ(FaceEdges(SYS_SHAPE_LINE, 0), (std::vector<int>{0}));
    for (int s = SYS_SHAPE_TRI; s <= SYS_SHAPE_HEX; s++)
        for (int f = 0; f < kFaces[s]; f++)
            EXPECT_EQ(FaceEdges(s, f), kFaceEdgeTable[s][f]) << s << " face " << f;
    for (int s = SYS_SHAPE_POINT; s <= SYS_SHAPE_HEX; s++) {
        EXPECT_TRUE(FaceEdges(s, -1).empty());
        EXPECT_TRUE(FaceEdges(s, std::max(kFaces[s], 1)).empty());
    }
    EXPECT_TRUE(FaceEdges(SYS_SHAPE_POINT, 0).empty());
    EXPECT_TRUE(FaceEdges(SYS_SHAPE_POLYGON, 0).empty());
    EXPECT_TRUE(FaceEdges(SYS_SHAPE_POLYHED, 0).empty());
    EXPECT_TRUE(FaceEdges(-1, 0).empty());
}

TEST(ElemTopology, EdgeFacesVerbatim)
{
    for (int s = SYS_SHAPE_TRI; s <= SYS_SHAPE_HEX; s++)
        for (int e = 0; e < kEdges[s]; e++)
            EXPECT_EQ(EdgeFaces(s, e), kEdgeFaceTable[s][e]) << s << " edge " << e;
    for (int s = SYS_SHAPE_POINT; s <= SYS_SHAPE_HEX; s++) {
        EXPECT_TRUE(EdgeFaces(s, -1).empty());
        EXPECT_TRUE(EdgeFaces(s, kEdges[s]).empty());
    }
    EXPECT_TRUE(EdgeFaces(SYS_SHAPE_LINE, 0).empty());
    EXPECT_EQ(EdgeFaces(SYS_SHAPE_POLYGON, 5), (std::vector<int>{0}));
    EXPECT_TRUE(EdgeFaces(SYS_SHAPE_POLYHED, 0).empty());
}

TEST(ElemTopology, EdgeFacesAgreeWithFaceEdges)
{
    for (int s = SYS_SHAPE_TRI; s <= SYS_SHAPE_HEX; s++) {
        for (int e = 0; e < kEdges[s]; e++)
            for (int f : EdgeFaces(s, e)) {
                std::vector<int> fe = FaceEdges(s, f);
                EXPECT_EQ(std::count(fe.begin(), fe.end(), e), 1) << s << " edge " << e;
            }
        for (int f = 0; f < kFaces[s]; f++)
            for (int e : FaceEdges(s, f)) {
                std::vector<int> ef = EdgeFaces(s, e);
                EXPECT_EQ(std::count(ef.begin(), ef.end(), f), 1) << s << " face " << f;
            }
        // Faces of an edge, derived from the face corners, in the table's order of faces.
        for (int e = 0; e < kEdges[s]; e++) {
            std::set<int> derived;
            for (int f = 0; f < kFaces[s]; f++) {
                const auto& fc = kFaceTable[s][f];
                for (size_t v = 0; v < fc.size(); v++) {
                    std::set<int> side = {fc[v], fc[(v + 1) % fc.size()]};
                    if (side == std::set<int>(kEdgeTable[s][e].begin(), kEdgeTable[s][e].end()))
                        derived.insert(f);
                }
            }
            std::vector<int> ef = EdgeFaces(s, e);
            EXPECT_EQ(derived, std::set<int>(ef.begin(), ef.end())) << s << " edge " << e;
        }
    }
}

TEST(ElemTopology, SolidFacesPointOutward)
{
    for (int s = SYS_SHAPE_TET; s <= SYS_SHAPE_HEX; s++) {
        std::vector<V3> c = kNatural[s];
        for (int f = 0; f < kFaces[s]; f++) {
            std::vector<V3> q;
            for (int v : FaceCorners(s, 0, 0, 0, f)) q.push_back(c[v]);
            EXPECT_GT(Dot(Newell(q), Centroid(q) - Centroid(c)), 0) << s << " face " << f;
            // Every other corner lies behind the face plane.
            for (int v = 0; v < kCorners[s]; v++)
                EXPECT_LE(Dot(Newell(q), c[v] - q[0]), 1e-12) << s << " face " << f;
        }
    }
}

TEST(ElemTopology, LagrangeCornerPositions)
{
    for (int i = 2; i <= 4; i++) {
        int a = i - 1, t = i * (i + 1) / 2;
        EXPECT_EQ(Corners(SYS_SHAPE_TRI, i, i, 0), (std::vector<int>{0, a, t - 1}));
        for (int j = 2; j <= 4; j++) {
            int q = i * j;
            EXPECT_EQ(Corners(SYS_SHAPE_QUAD, i, j, 0),
                      (std::vector<int>{0, a, q - 1, (j - 1) * i}));
            for (int k = 2; k <= 4; k++) {
                int h = (k - 1) * q, w = (k - 1) * t;
                EXPECT_EQ(Corners(SYS_SHAPE_HEX, i, j, k),
                          (std::vector<int>{0, a, q - 1, (j - 1) * i, h, a + h, q - 1 + h,
                                            (j - 1) * i + h}));
                EXPECT_EQ(Corners(SYS_SHAPE_WED, i, j, k),
                          (std::vector<int>{0, a, t - 1, w, a + w, t - 1 + w}));
            }
        }
    }
}

TEST(ElemTopology, LayeredCornerPositions)
{
    const int tri[3] = {3, 6, 9}, quad[3] = {4, 8, 12};
    for (int i = 2; i <= 4; i++)
        for (int k = 2; k <= 4; k++) {
            int w = (k - 1) * tri[i - 2], h = (k - 1) * quad[i - 2];
            EXPECT_EQ(Corners(SYS_SHAPE_WED, i, 0, k), (std::vector<int>{0, 1, 2, w, w + 1, w + 2}));
            EXPECT_EQ(Corners(SYS_SHAPE_HEX, i, 0, k),
                      (std::vector<int>{0, 1, 2, 3, h, h + 1, h + 2, h + 3}));
        }
}

TEST(ElemTopology, ApexCornerPositions)
{
    EXPECT_EQ(Corners(SYS_SHAPE_TET, 3, 0, 1), (std::vector<int>{0, 1, 2, 6}));
    EXPECT_EQ(Corners(SYS_SHAPE_PYR, 3, 0, 1), (std::vector<int>{0, 1, 2, 3, 8}));
    EXPECT_EQ(Corners(SYS_SHAPE_TET, 3, 3, 3), (std::vector<int>{0, 2, 5, 9}));
    EXPECT_EQ(Corners(SYS_SHAPE_PYR, 3, 3, 3), (std::vector<int>{0, 2, 8, 6, 13}));
    EXPECT_EQ(Corners(SYS_SHAPE_TET, 3, 3, 0), (std::vector<int>{0, 2, 5, 6}));
    EXPECT_EQ(Corners(SYS_SHAPE_PYR, 4, 2, 0), (std::vector<int>{0, 3, 7, 4, 8}));
    EXPECT_EQ(Corners(SYS_SHAPE_TRI, 4, 2, 0), (std::vector<int>{0, 3, 4}));
}

TEST(ElemTopology, SerendipityEdgeRuns)
{
    // Quadratic hexahedron: edge e's mid-node is 8 + e.
    for (int e = 0; e < 12; e++) {
        std::vector<int> n = EdgeNodes(SYS_SHAPE_HEX, 3, 0, 0, e);
        EXPECT_EQ(n, (std::vector<int>{kEdgeTable[7][e][0], 8 + e, kEdgeTable[7][e][1]}));
    }
    // Cubic tetrahedron: edge e's run is 4 + 2e, 5 + 2e.
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_TET, 4, 0, 0, 5), (std::vector<int>{2, 14, 15, 3}));
    // Face 0 of a quadratic hexahedron: corners, then the runs of edges 3, 2, 1, 0.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_HEX, 3, 0, 0, 0),
              (std::vector<int>{0, 3, 2, 1, 11, 10, 9, 8}));
    // Face 0 of a cubic tetrahedron reads its edges backwards.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_TET, 4, 0, 0, 0),
              (std::vector<int>{0, 2, 1, 9, 8, 7, 6, 5, 4}));
    // Masked runs: edges 0 and 2 of a quadratic hexahedron have no mid-node.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_HEX, 3, Mask(0x5), 0, 0),
              (std::vector<int>{0, 3, 2, 1, 9, 8}));
    int fs, fi, fj;
    FaceTopo(SYS_SHAPE_HEX, 3, Mask(0x5), 0, 0, &fs, &fi, &fj);
    EXPECT_EQ(fs, SYS_SHAPE_QUAD);
    EXPECT_EQ(fi, 3);
    EXPECT_EQ(fj, Mask(0xa));  // face edges 1 and 3 are hexahedron edges 2 and 0
}

// Faces of Lagrange forms list their corners in the face table's order, then the interior
// nodes of the face's edges edge by edge (each run read from the face's corner towards the
// next), then the face's interior nodes in the face's own lattice order. The expected lists
// are worked out from the lexical lattice positions given in each comment.
TEST(ElemTopology, LagrangeFaces)
{
    // 3x3x3 hexahedron: position = a + 3 b + 9 c. Face 0 is corners 0-3-2-1 at 0, 6, 8, 2; its
    // edges 3, 2, 1, 0 run 0>3 (mid 3), 3>2 (mid 7), 2>1 (mid 5), 1>0 (mid 1); centre 4.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_HEX, 3, 3, 3, 0),
              (std::vector<int>{0, 6, 8, 2, 3, 7, 5, 1, 4}));
    // Face 1: corners 4-5-6-7 at 18, 20, 26, 24; edges 4>5 (19), 5>6 (23), 6>7 (25), 7>4 (21);
    // centre 22.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_HEX, 3, 3, 3, 1),
              (std::vector<int>{18, 20, 26, 24, 19, 23, 25, 21, 22}));
    int fs, fi, fj;
    FaceTopo(SYS_SHAPE_HEX, 2, 3, 4, 2, &fs, &fi, &fj);
    EXPECT_EQ(fs, SYS_SHAPE_QUAD);
    EXPECT_EQ(fi, 2);
    EXPECT_EQ(fj, 4);
    FaceTopo(SYS_SHAPE_HEX, 2, 3, 4, 0, &fs, &fi, &fj);
    EXPECT_EQ(fi, 3);
    EXPECT_EQ(fj, 2);
    // Quadratic Lagrange tetrahedron: face 3 is a quadratic triangle. Lattice: layer 0 rows
    // 0 1 2 / 3 4 / 5, layer 1 rows 6 7 / 8, apex 9. Face 3 is corners 1-2-3 at 2, 5, 9; its
    // edges 1 (1>2: mid 4), 5 (2>3: mid 8), 4 read 3>1 (mid 7).
    FaceTopo(SYS_SHAPE_TET, 3, 3, 3, 3, &fs, &fi, &fj);
    EXPECT_EQ(fs, SYS_SHAPE_TRI);
    EXPECT_EQ(fi, 3);
    EXPECT_EQ(fj, 3);
    EXPECT_EQ(FaceNodes(SYS_SHAPE_TET, 3, 3, 3, 3), (std::vector<int>{2, 5, 9, 4, 8, 7}));
    // Cubic Lagrange tetrahedron: layer 0 rows 0 1 2 3 / 4 5 6 / 7 8 / 9, layer 1 rows
    // 10 11 12 / 13 14 / 15, layer 2 rows 16 17 / 18, apex 19. Face 0 is corners 0-2-1 at
    // 0, 9, 3; edge 2 read 0>2 (4, 7), edge 1 read 2>1 (8, 6), edge 0 read 1>0 (2, 1); centre
    // of the base 5.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_TET, 4, 4, 4, 0),
              (std::vector<int>{0, 9, 3, 4, 7, 8, 6, 2, 1, 5}));
    // Face 3 is corners 1-2-3 at 3, 9, 19; edge 1 (6, 8), edge 5 from (0,3,0) up through
    // (0,2,1) and (0,1,2) (15, 18), edge 4 read 3>1 through (1,0,2) and (2,0,1) (17, 12);
    // centre (1,1,1) at 14.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_TET, 4, 4, 4, 3),
              (std::vector<int>{3, 9, 19, 6, 8, 15, 18, 17, 12, 14}));
}

TEST(ElemTopology, LagrangeWedgeAndPyramidFaces)
{
    // Quadratic Lagrange wedge 3, 3, 3: each layer is the triangle 0 1 2 / 3 4 / 5, layers
    // 6 apart. Face 0 is corners 0-2-1 at 0, 5, 2; edge 2 read 0>2 (3), edge 1 read 2>1 (4),
    // edge 0 read 1>0 (1).
    EXPECT_EQ(FaceNodes(SYS_SHAPE_WED, 3, 3, 3, 0), (std::vector<int>{0, 5, 2, 3, 4, 1}));
    // Face 2 is corners 0-1-4-3 at 0, 2, 14, 12; edges 0 (1), 7 up from 2 (8), 3 read 4>3
    // (13), 6 read 3>0 (6); centre (1, 0, 1) at 7.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_WED, 3, 3, 3, 2),
              (std::vector<int>{0, 2, 14, 12, 1, 8, 13, 6, 7}));
    // Quadratic Lagrange pyramid 3, 3, 3: base 0..8 (rows of three), layer 1 the square
    // 9 10 / 11 12, apex 13. Face 0 reads the base like the hexahedron's face 0.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_PYR, 3, 3, 3, 0),
              (std::vector<int>{0, 6, 8, 2, 3, 7, 5, 1, 4}));
    // Face 1 is corners 0-1-4 at 0, 2, 13; edge 0 (1), edge 5 from corner 1 (10), edge 4
    // read from the apex down (9).
    EXPECT_EQ(FaceNodes(SYS_SHAPE_PYR, 3, 3, 3, 1), (std::vector<int>{0, 2, 13, 1, 10, 9}));
    // Face 3 is corners 2-3-4 at 8, 6, 13; edge 2 (7), edge 7 from corner 3 (11), edge 6
    // read from the apex down to corner 2 (12).
    EXPECT_EQ(FaceNodes(SYS_SHAPE_PYR, 3, 3, 3, 3), (std::vector<int>{8, 6, 13, 7, 11, 12}));
    // Lagrange base plus apex, 3 by 2: base 0 1 2 / 3 4 5, apex 6. Face 0 is corners 0-3-2-1
    // at 0, 3, 5, 2; the edges along the 2-node direction have no interior; edge 2 read 3>2
    // (4), edge 0 read 1>0 (1); no face interior.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_PYR, 3, 2, 0, 0), (std::vector<int>{0, 3, 5, 2, 4, 1}));
}

TEST(ElemTopology, MaskedLagrangeFaces)
{
    // Hexahedron 3, 3, 3 with edge 0 masked: position 1 goes, every later position moves down
    // by one. Face 0 was 0 6 8 2 3 7 5 1 4; face 1 was 18 20 26 24 19 23 25 21 22.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_HEX, 3, 3 | Mask(1), 3, 0),
              (std::vector<int>{0, 5, 7, 1, 2, 6, 4, 3}));
    EXPECT_EQ(FaceNodes(SYS_SHAPE_HEX, 3, 3 | Mask(1), 3, 1),
              (std::vector<int>{17, 19, 25, 23, 18, 22, 24, 20, 21}));
    // Quadrilateral 3, 3 with edge 1 masked: position 5 goes. The face was 0 2 8 6 1 5 7 3 4.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_QUAD, 3, 3 | Mask(2), 0, 0),
              (std::vector<int>{0, 2, 7, 5, 1, 6, 3, 4}));
    // Wedge 3, 3, 3 with edge 7 (1-4) masked: position 8 goes. Face 2 was
    // 0 2 14 12 1 8 13 6 7.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_WED, 3, 3 | Mask(0x80), 3, 2),
              (std::vector<int>{0, 2, 13, 11, 1, 12, 6, 7}));
    // Pyramid 3, 3, 3 with edge 4 (0-4) masked: position 9 goes. Face 1 was 0 2 13 1 10 9.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_PYR, 3, 3 | Mask(0x10), 3, 1),
              (std::vector<int>{0, 2, 12, 1, 9}));
    // Tetrahedron 3, 3, 3 with edge 5 (2-3) masked: position 8 goes. Face 3 was 2 5 9 4 8 7.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_TET, 3, 3 | Mask(0x20), 3, 3),
              (std::vector<int>{2, 5, 8, 4, 7}));
}

TEST(ElemTopology, PlaneAndLineElements)
{
    // A line of low maxj 0 is serendipity: its ends at positions 0 and 1, then the interior
    // nodes from the first end to the second, so the edge reads 0, 2, 3, 1.
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_LINE, 4, 0, 0, 0), (std::vector<int>{0, 2, 3, 1}));
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_LINE, 3, 0, 0, 0), (std::vector<int>{0, 2, 1}));
    EXPECT_EQ(Corners(SYS_SHAPE_LINE, 3, 0, 0), (std::vector<int>{0, 1}));
    EXPECT_EQ(Corners(SYS_SHAPE_LINE, 4, 0, 0), (std::vector<int>{0, 1}));
    // Masked, the cubic line keeps only its ends.
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_LINE, 4, Mask(1), 0, 0), (std::vector<int>{0, 1}));
    // With low maxj not 0 the line is a lattice: nodes in order along it.
    EXPECT_EQ(EdgeNodes(SYS_SHAPE_LINE, 4, 4, 0, 0), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(Corners(SYS_SHAPE_LINE, 4, 4, 0), (std::vector<int>{0, 3}));
    // Quadrilateral 3, 3 (rows 0 1 2 / 3 4 5 / 6 7 8): corners 0 2 8 6, mid nodes of edges
    // 0 to 3 (1, 5, 7, 3), centre 4.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_QUAD, 3, 3, 0, 0),
              (std::vector<int>{0, 2, 8, 6, 1, 5, 7, 3, 4}));
    // Triangle 4, 4 (rows 0 1 2 3 / 4 5 6 / 7 8 / 9): corners 0 3 9, edge 0 (1, 2), edge 1
    // (6, 8), edge 2 from corner 2 back to corner 0 (7, 4), centre 5.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_TRI, 4, 4, 0, 0),
              (std::vector<int>{0, 3, 9, 1, 2, 6, 8, 7, 4, 5}));
    // A serendipity face keeps the element's own order.
    EXPECT_EQ(FaceNodes(SYS_SHAPE_QUAD, 4, 0, 0, 0),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_TRUE(FaceNodes(SYS_SHAPE_LINE, 3, 0, 0, 0).empty());
    int fs, fi, fj;
    FaceTopo(SYS_SHAPE_LINE, 3, 0, 0, 0, &fs, &fi, &fj);
    EXPECT_EQ(fs, -1);
    EXPECT_EQ(fi, 0);
    EXPECT_EQ(fj, 0);
    FaceTopo(SYS_SHAPE_QUAD, 3, Mask(1), 0, 0, &fs, &fi, &fj);
    EXPECT_EQ(fs, SYS_SHAPE_QUAD);
    EXPECT_EQ(fi, 3);
    EXPECT_EQ(fj, Mask(1));
    EXPECT_EQ(FaceNodes(SYS_SHAPE_QUAD, 3, Mask(1), 0, 0), (std::vector<int>{0, 1, 2, 3, 4, 5, 6}));
    // A point: one corner, no edges or faces.
    EXPECT_EQ(Corners(SYS_SHAPE_POINT, 0, 0, 0), (std::vector<int>{0}));
    EXPECT_TRUE(EdgeNodes(SYS_SHAPE_POINT, 0, 0, 0, 0).empty());
    EXPECT_EQ(EdgeTopo(SYS_SHAPE_POINT, 0, 0, 0, 0), 0);
    EXPECT_TRUE(FaceNodes(SYS_SHAPE_POINT, 0, 0, 0, 0).empty());
}

TEST(ElemTopology, EveryFormAgainstReferenceElement)
{
    int valid[8] = {0};
    for (int s = SYS_SHAPE_LINE; s <= SYS_SHAPE_HEX; s++)
        for (int i : {0, 2, 3, 4, 5})
            for (int j : {0, 1, 2, 3, 4, 5})
                for (int k : {0, 1, 2, 3, 4, 5})
                    for (int m : MaskSet(s)) {
                        valid[s] += CheckTuple(s, i, j | Mask(m), k);
                        if (HasFailure()) return;
                    }
    // Tuples that are elements, per shape: 4 valid maxi, the (j, k) pairs that make an
    // element (tri, tet all 36; quad 24; pyr 26; wed 19; hex 13), times the masks tried
    // (3, 7, 9, 13, 17, 19, 25).
    const int expected[8] = {0, 432, 1008, 864, 1872, 1768, 1444, 1300};
    for (int s = SYS_SHAPE_LINE; s <= SYS_SHAPE_HEX; s++) EXPECT_EQ(valid[s], expected[s]) << s;
}

// Every face of every Lagrange form (low maxj not 0), with and without masks, read through the
// natural coordinates of the element's nodes: the face list covers exactly the nodes on the
// face; its first entries are the face's corners in the table's order; then come, face edge
// by face edge, the interior nodes of that edge, each run moving away from the face corner the
// edge starts at; what is left lies inside the face.
void CheckLagrangeFaceList(int s, int i, int j, int k, int f, const std::vector<V3>& x)
{
    std::vector<V3> q;
    for (int v : kFaceTable[s][f]) q.push_back(kNatural[s][v]);
    std::vector<int> nodes = FaceNodes(s, i, j, k, f);
    ASSERT_TRUE(InRange(nodes, (int)x.size()));
    int on = 0;
    for (V3 p : x) on += OnFace(p, q);
    EXPECT_EQ(on, (int)nodes.size());
    for (int p : nodes) EXPECT_TRUE(OnFace(x[p], q)) << "node " << p << " at " << Str(x[p]);
    size_t t = 0;
    for (size_t v = 0; v < q.size() && t < nodes.size(); v++, t++)
        EXPECT_TRUE(Near(x[nodes[t]], q[v])) << "corner " << v;
    for (size_t v = 0; v < q.size(); v++) {
        int e = kFaceEdgeTable[s][f][v];
        V3 a = q[v], b = q[(v + 1) % q.size()];
        double last = 0;
        for (int n = EdgeTopo(s, i, j, k, e) - 2; n > 0 && t < nodes.size(); n--, t++) {
            V3 p = x[nodes[t]];
            EXPECT_TRUE(Inside(p, a, b)) << "face edge " << v << " node " << Str(p);
            EXPECT_GT(Len(p - a), last + 1e-9) << "face edge " << v << " runs backwards";
            last = Len(p - a);
        }
    }
    for (; t < nodes.size(); t++) {
        V3 p = x[nodes[t]];
        for (size_t v = 0; v < q.size(); v++)
            EXPECT_FALSE(Near(p, q[v]) || Inside(p, q[v], q[(v + 1) % q.size()]))
                << "interior node " << Str(p) << " on the boundary";
    }
}

TEST(ElemTopology, LagrangeFaceListsFollowTheirFaces)
{
    int faces = 0;
    for (int s = SYS_SHAPE_TRI; s <= SYS_SHAPE_HEX; s++)
        for (int i = 2; i <= 4; i++)
            for (int j = 1; j <= 4; j++)
                for (int k = 0; k <= 4; k++)
                    for (int m : MaskSet(s)) {
                        int mj = j | Mask(m), num = Num(s, i, mj, k);
                        if (num == 0) continue;
                        SCOPED_TRACE(Tuple(s, i, mj, k));
                        std::vector<double> nat(3 * num);
                        vis_ElemNodeNaturaldv(s, i, mj, k, nat.data());
                        std::vector<V3> x;
                        for (int p = 0; p < num; p++)
                            x.push_back({nat[3 * p], nat[3 * p + 1], nat[3 * p + 2]});
                        for (int f = 0; f < kFaces[s]; f++, faces++) {
                            SCOPED_TRACE("face " + std::to_string(f));
                            CheckLagrangeFaceList(s, i, mj, k, f, x);
                            if (HasFailure()) return;
                        }
                    }
    EXPECT_GT(faces, 1000);
}

TEST(ElemTopology, Polygon)
{
    // A quadrilateral ring: 4 corners and the first node repeated.
    const int s = SYS_SHAPE_POLYGON, n = 5, ne = 4;
    EXPECT_EQ(Num(s, n, ne, 1), 5);
    EXPECT_EQ(Corners(s, n, ne, 1), (std::vector<int>{0, 1, 2, 3, 4}));
    for (int e = 0; e < ne; e++) {
        EXPECT_EQ(EdgeNodes(s, n, ne, 1, e), (std::vector<int>{e, e + 1}));
        EXPECT_EQ(EdgeCorners(s, n, ne, 1, e), (std::vector<int>{e, e + 1}));
        EXPECT_EQ(EdgeTopo(s, n, ne, 1, e), 2);
        EXPECT_EQ(EdgeFaces(s, e), (std::vector<int>{0}));
    }
    EXPECT_TRUE(EdgeNodes(s, n, ne, 1, ne).empty());
    EXPECT_TRUE(EdgeNodes(s, n, ne, 1, -1).empty());
    EXPECT_EQ(EdgeTopo(s, n, ne, 1, ne), 0);
    EXPECT_EQ(FaceNodes(s, n, ne, 1, 0), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(FaceCorners(s, n, ne, 1, 0), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_TRUE(FaceNodes(s, n, ne, 1, 1).empty());
    int fs, fi, fj;
    FaceTopo(s, n, ne, 1, 0, &fs, &fi, &fj);
    EXPECT_EQ(fs, SYS_SHAPE_POLYGON);
    EXPECT_EQ(fi, n);
    EXPECT_EQ(fj, ne);
    FaceTopo(s, n, ne, 1, 1, &fs, &fi, &fj);
    EXPECT_EQ(fs, -1);
    // A large polygon is not limited by the fixed-shape bounds.
    EXPECT_EQ(FaceNodes(s, 101, 100, 1, 0).size(), 101u);
    EXPECT_EQ(EdgeNodes(s, 101, 100, 1, 99), (std::vector<int>{99, 100}));
    // Degenerate rings give nothing to read.
    EXPECT_TRUE(EdgeNodes(s, 1, 0, 1, 0).empty());
    EXPECT_TRUE(EdgeNodes(s, -4, 0, 1, 0).empty());
    EXPECT_EQ(Num(s, -4, 0, 1), 0);
}

TEST(ElemTopology, Polyhedron)
{
    // A tetrahedron as a polyhedron: four rings of 3 + 1 entries, 6 edges, 4 faces.
    const int s = SYS_SHAPE_POLYHED, n = 16, ne = 6, nf = 4;
    EXPECT_EQ(Num(s, n, ne, nf), 16);
    std::vector<int> c = Corners(s, n, ne, nf);
    ASSERT_EQ(c.size(), 16u);
    for (int p = 0; p < n; p++) EXPECT_EQ(c[p], p);
    for (int e = 0; e < ne; e++) {
        EXPECT_EQ(EdgeTopo(s, n, ne, nf, e), 2);
        EXPECT_TRUE(EdgeNodes(s, n, ne, nf, e).empty());
    }
    EXPECT_EQ(EdgeTopo(s, n, ne, nf, ne), 0);
    for (int f = 0; f < nf; f++) {
        int fs, fi, fj;
        FaceTopo(s, n, ne, nf, f, &fs, &fi, &fj);
        EXPECT_EQ(fs, SYS_SHAPE_POLYGON);
        EXPECT_EQ(fi, 0);
        EXPECT_EQ(fj, 0);
        EXPECT_TRUE(FaceNodes(s, n, ne, nf, f).empty());
        EXPECT_TRUE(FaceCorners(s, n, ne, nf, f).empty());
    }
    int fs, fi, fj;
    FaceTopo(s, n, ne, nf, nf, &fs, &fi, &fj);
    EXPECT_EQ(fs, -1);
    EXPECT_TRUE(EdgeFaces(s, 0).empty());
}

TEST(ElemTopology, FlipTwiceIsIdentity)
{
    for (int n = 0; n <= 6; n++) {
        std::vector<int> v(n + 1), w;
        for (int t = 0; t <= n; t++) v[t] = 10 * t + 1;
        w = v;
        vis_ElemFlip(n, w.data());
        for (int t = 0; t < n; t++) EXPECT_EQ(w[t], v[n - 1 - t]);
        EXPECT_EQ(w[n], v[n]) << "flip touched an entry past maxi";
        vis_ElemFlip(n, w.data());
        EXPECT_EQ(w, v);
    }
    int one = 3;
    vis_ElemFlip(-5, &one);
    EXPECT_EQ(one, 3);
    vis_ElemFlip(4, nullptr);
    // Reading an edge backwards gives the edge from its second corner.
    std::vector<int> e = EdgeNodes(SYS_SHAPE_HEX, 4, 0, 0, 3);
    vis_ElemFlip((int)e.size(), e.data());
    EXPECT_EQ(e, (std::vector<int>{0, 15, 14, 3}));
}

TEST(ElemTopology, BadInputWritesNothing)
{
    const int shapes[] = {-1, -2, 10, 11, INT_MIN, INT_MAX};
    for (int s : shapes) {
        EXPECT_EQ(Num(s, 3, 0, 0), 0);
        int pos[4] = {-5, -5, -5, -5}, num = 9;
        vis_ElemCorners(s, 3, 0, 0, pos);
        vis_ElemEdgeNodes(s, 3, 0, 0, 0, &num, pos);
        EXPECT_EQ(num, 0);
        num = 9;
        vis_ElemFaceNodes(s, 3, 0, 0, 0, &num, pos);
        EXPECT_EQ(num, 0);
        EXPECT_EQ(pos[0], -5);
        int fs, fi, fj;
        FaceTopo(s, 3, 0, 0, 0, &fs, &fi, &fj);
        EXPECT_EQ(fs, -1);
        EXPECT_EQ(EdgeTopo(s, 3, 0, 0, 0), 0);
    }
    // Sizes outside 2 to 4, negative sizes, huge sizes.
    const int sizes[] = {-1, 1, 5, 1000, INT_MAX, INT_MIN};
    for (int s = SYS_SHAPE_LINE; s <= SYS_SHAPE_HEX; s++)
        for (int bad : sizes) {
            EXPECT_EQ(Num(s, bad, 0, 0), 0) << s << " " << bad;
            int pos[VIS_ELEM_MAXFACENODE], num = 9;
            vis_ElemFaceNodes(s, bad, 0, 0, 0, &num, pos);
            EXPECT_EQ(num, 0);
        }
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 3, 0), 0);    // Lagrange without layers
    EXPECT_EQ(Num(SYS_SHAPE_WED, 3, 3, 1), 0);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 0, -3), 0);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 0, 70000), 0);
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 3, 1, 0), 0);
    EXPECT_EQ(Num(SYS_SHAPE_HEX, 3, 5, 3), 0);
    EXPECT_EQ(Num(SYS_SHAPE_POINT, -1, 0, 0), 0);
    // maxj with every bit set: the mask covers every edge, the low half is not a size.
    EXPECT_EQ(Num(SYS_SHAPE_QUAD, 3, -1, 0), 0);
    EXPECT_EQ(Num(SYS_SHAPE_TRI, 3, (int)0xffff0000u, 0), 3);
    // Edge and face numbers far out of range.
    for (int bad : {INT_MIN, -1, 12, 13, INT_MAX}) {
        EXPECT_TRUE(EdgeNodes(SYS_SHAPE_HEX, 4, 4, 4, bad).empty());
        EXPECT_TRUE(EdgeCorners(SYS_SHAPE_HEX, 4, 4, 4, bad).empty());
        EXPECT_TRUE(FaceNodes(SYS_SHAPE_HEX, 4, 4, 4, bad).empty());
        EXPECT_TRUE(FaceCorners(SYS_SHAPE_HEX, 4, 4, 4, bad).empty());
        EXPECT_TRUE(FaceEdges(SYS_SHAPE_HEX, bad).empty());
        EXPECT_TRUE(EdgeFaces(SYS_SHAPE_HEX, bad).empty());
        EXPECT_EQ(EdgeTopo(SYS_SHAPE_HEX, 4, 4, 4, bad), 0);
        int fs, fi, fj;
        FaceTopo(SYS_SHAPE_HEX, 4, 4, 4, bad, &fs, &fi, &fj);
        EXPECT_EQ(fs, -1);
    }
    // Null results are ignored.
    vis_ElemNum(SYS_SHAPE_HEX, 3, 0, 0, nullptr);
    vis_ElemCorners(SYS_SHAPE_HEX, 3, 0, 0, nullptr);
    vis_ElemEdgeNodes(SYS_SHAPE_HEX, 3, 0, 0, 0, nullptr, nullptr);
    vis_ElemFaceNodes(SYS_SHAPE_HEX, 3, 0, 0, 0, nullptr, nullptr);
    vis_ElemEdgeCorners(SYS_SHAPE_HEX, 3, 0, 0, 0, nullptr, nullptr);
    vis_ElemFaceCorners(SYS_SHAPE_HEX, 3, 0, 0, 0, nullptr, nullptr);
    vis_ElemFaceEdges(SYS_SHAPE_HEX, 0, nullptr, nullptr);
    vis_ElemEdgeFaces(SYS_SHAPE_HEX, 0, nullptr, nullptr);
    vis_ElemEdgeTopo(SYS_SHAPE_HEX, 3, 0, 0, 0, nullptr);
    vis_ElemFaceTopo(SYS_SHAPE_HEX, 3, 0, 0, 0, nullptr, nullptr, nullptr);
    vis_ElemCornerCount(SYS_SHAPE_HEX, 0, nullptr);
    vis_ElemDim(SYS_SHAPE_HEX, nullptr);
}

TEST(ElemTopology, BoundsHoldForEveryForm)
{
    int most = 0, mostFace = 0;
    for (int s = SYS_SHAPE_LINE; s <= SYS_SHAPE_HEX; s++)
        for (int i = 0; i <= 4; i++)
            for (int j = 0; j <= 4; j++)
                for (int k = 0; k <= 4; k++) {
                    most = std::max(most, Num(s, i, j, k));
                    for (int f = 0; f < kFaces[s]; f++)
                        mostFace = std::max(mostFace, (int)FaceNodes(s, i, j, k, f).size());
                }
    EXPECT_EQ(most, VIS_ELEM_MAXNODE);
    EXPECT_EQ(mostFace, VIS_ELEM_MAXFACENODE);
}

}  // namespace

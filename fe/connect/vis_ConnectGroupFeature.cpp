/* vis_ConnectGroupFeature: feature edges, silhouette edges and curvature creases of a set of
 * element faces (EdgeGroup opers 3, 8 and 18, face source).
 *
 * Each edge of a face of the source is judged once, on the element with the lowest id among
 * those whose source faces hold both its end nodes, and there on its first such face. With k
 * such faces: k 1 is the border of the face set and always selected; for feature edges, k other
 * than 2 with `nonmanifold` set is selected at once, and otherwise every pair of the faces'
 * normals at the edge (the sum of each face's unit normals at the two end nodes, normalised) is
 * compared: a dot product below cosangle (its absolute value unless `signedflag`) makes a
 * feature. A silhouette needs k 2 and one face turned to the view and the other not. A crease
 * needs k 2 and the curvature rule below (vis_Connect_IsCrease), with each face's principal
 * curvatures taken at the middle of the shared edge in its natural coordinates.
 * Polyhedra are skipped: their faces carry no edge table.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectKernel.h"
#include "vis_ElemGeom.h"
#include "vis_Group.h"
#include "vsy_Error.h"

#include <cmath>

static const char* kName = "vis_ConnectEdgeGroup";

typedef struct vis_ConnectFeature {
    vis_ConnectGroupWork w;
    int cap;      /* entries of elem and face */
    int k;        /* faces found */
    int* elem;    /* element of each face found */
    int* face;    /* its face number */
    float* norm;  /* scratch of face normals, three per face node */
    float* xyz;   /* scratch of face coordinates, three per face node */
} vis_ConnectFeature;

/* Adds the source faces of element id that hold a and b. */
static void vis_Connect_FeatureFaces(vis_Connect* c, vis_Group* source, vis_ConnectFeature* f, int id, int a, int b)
{
    int nface = 0;
    vis_ConnectElemNum(c, SYS_FACE, id, &nface);
    for (int no = 1; no <= nface && f->k < f->cap; ++no) {
        if (!vis_Connect_GroupFlag(source, id, no) || !vis_Connect_GroupFaceHolds(c, id, no, a, b, &f->w)) continue;
        f->elem[f->k] = id;
        f->face[f->k] = no;
        ++f->k;
    }
}

/* The unit normal of face no of element id at the edge a, b; zeros when it has none. */
static void vis_Connect_EdgeNormal(vis_Connect* c, vis_ConnectFeature* f, int id, int no, int a, int b, double* n)
{
    int num = 0;
    vis_ConnectElemCon(c, SYS_FACE, id, no, &num, f->w.nodes2);
    vis_ConnectElemFaceNorm(c, id, no, f->norm);
    n[0] = n[1] = n[2] = 0.0;
    for (int k = 0; k < num; ++k) {
        if (f->w.nodes2[k] != a && f->w.nodes2[k] != b) continue;
        for (int i = 0; i < 3; ++i) n[i] += f->norm[3 * k + i];
    }
    double len = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    if (len > 0.0) {
        for (int i = 0; i < 3; ++i) n[i] /= len;
    }
}

/* The feature rule over the k faces found. */
static int vis_Connect_IsFeature(vis_Connect* c, vis_ConnectFeature* f, int a, int b)
{
    if (f->k != 2 && c->grp.nonmanifold) return 1;
    for (int i = 0; i < f->k; ++i) {
        double ni[3];
        vis_Connect_EdgeNormal(c, f, f->elem[i], f->face[i], a, b, ni);
        for (int j = i + 1; j < f->k; ++j) {
            double nj[3];
            vis_Connect_EdgeNormal(c, f, f->elem[j], f->face[j], a, b, nj);
            double d = ni[0] * nj[0] + ni[1] * nj[1] + ni[2] * nj[2];
            if (!c->grp.signedflag) d = std::fabs(d);
            if ((double)c->grp.cosangle > d) return 1;
        }
    }
    return 0;
}

/* The plain (not normalised) normal of a face from its corners. */
static void vis_Connect_FaceCross(vis_Connect* c, int id, int no, double* n, int* pos)
{
    int num = 0, ids[4];
    n[0] = n[1] = n[2] = 0.0;
    vis_ConnectElemCorn(c, SYS_FACE, id, no, &num, pos);
    if (num < 3) return;
    for (int k = 0; k < 4; ++k) vis_ConnectIndElemNode(c, id, pos[k < num ? k : 0] - 1, &ids[k]);
    double x[12];
    vis_ConnectCoordsdv(c, 4, ids, x);
    /* A triangle: (2nd - 1st) x (3rd - 1st); more corners: (3rd - 1st) x (4th - 2nd). */
    int p = num == 3 ? 1 : 2, q = num == 3 ? 2 : 3, r = num == 3 ? 0 : 1;
    double u[3], v[3];
    for (int i = 0; i < 3; ++i) {
        u[i] = x[3 * p + i] - x[i];
        v[i] = x[3 * q + i] - x[3 * r + i];
    }
    n[0] = u[1] * v[2] - u[2] * v[1];
    n[1] = u[2] * v[0] - u[0] * v[2];
    n[2] = u[0] * v[1] - u[1] * v[0];
}

static int vis_Connect_IsSilhouette(vis_Connect* c, vis_ConnectFeature* f)
{
    if (f->k != 2) return 0;
    const float* m = c->grp.view;
    double w[3] = {m[2], m[6], m[10]}, na[3], nb[3];
    vis_Connect_FaceCross(c, f->elem[0], f->face[0], na, f->w.nodes);
    vis_Connect_FaceCross(c, f->elem[1], f->face[1], nb, f->w.nodes);
    double d1 = na[0] * w[0] + na[1] * w[1] + na[2] * w[2];
    double d2 = nb[0] * w[0] + nb[1] * w[1] + nb[2] * w[2];
    if (!(d1 > 0.0) && !(d2 > 0.0)) return 0;
    return d1 * d2 <= 0.0;
}

/* Principal curvatures of face no of element id at the middle of its edge a, b: the larger
 * absolute one into *p and the normal curvature along the edge (Euler's formula) into *e,
 * both curvatures' absolute values into k[0], k[1]. */
static void vis_Connect_EdgeCurvature(vis_Connect* c, vis_ConnectFeature* f, int id, int no, int a, int b, double* p,
                                      double* e, double* k)
{
    int fs = -1, fi = 0, fj = 0, num = 0, corners = 0;
    *p = *e = k[0] = k[1] = 0.0;
    vis_ConnectElemTopo(c, SYS_FACE, id, no, &fs, &fi, &fj);
    if (fs != SYS_SHAPE_TRI && fs != SYS_SHAPE_QUAD) return;
    vis_ConnectElemCon(c, SYS_FACE, id, no, &num, f->w.nodes2);
    vis_ConnectCoords(c, num, f->w.nodes2, f->xyz);
    vis_ConnectElemFaceNorm(c, id, no, f->norm);
    vis_ElemCornerCount(fs, 0, &corners);
    float nat[3 * 4];
    vis_ElemNatural(fs, nat);
    int ia = -1, ib = -1;
    for (int q = 0; q < corners && q < num; ++q) {
        if (f->w.nodes2[q] == a) ia = q;
        if (f->w.nodes2[q] == b) ib = q;
    }
    if (ia < 0 || ib < 0) return;
    float point[2] = {(nat[3 * ia] + nat[3 * ib]) * 0.5f, (nat[3 * ia + 1] + nat[3 * ib + 1]) * 0.5f};
    float curv[2] = {0, 0}, dirs[6] = {0, 0, 0, 0, 0, 0};
    vis_ElemCurvature(fs, fi, fj, f->xyz, f->norm, point, curv, dirs);
    double t[3], len = 0.0;
    for (int i = 0; i < 3; ++i) {
        t[i] = (double)f->xyz[3 * ib + i] - (double)f->xyz[3 * ia + i];
        len += t[i] * t[i];
    }
    len = std::sqrt(len);
    double ca = 0.0, cb = 0.0;
    for (int i = 0; i < 3 && len > 0.0; ++i) {
        ca += t[i] / len * dirs[i];
        cb += t[i] / len * dirs[3 + i];
    }
    k[0] = std::fabs((double)curv[0]);
    k[1] = std::fabs((double)curv[1]);
    *p = k[0] > k[1] ? k[0] : k[1];
    *e = curv[0] * ca * ca + curv[1] * cb * cb;
}

/* The crease rule over the two faces found; its constants are the design. */
static int vis_Connect_IsCrease(vis_Connect* c, vis_ConnectFeature* f, int a, int b)
{
    if (f->k != 2) return 0;
    double p1, p2, e1, e2, k[4];
    vis_Connect_EdgeCurvature(c, f, f->elem[0], f->face[0], a, b, &p1, &e1, k);
    vis_Connect_EdgeCurvature(c, f, f->elem[1], f->face[1], a, b, &p2, &e2, k + 2);
    double kmin = k[0], kmax = k[0];
    for (int i = 1; i < 4; ++i) {
        kmin = k[i] < kmin ? k[i] : kmin;
        kmax = k[i] > kmax ? k[i] : kmax;
    }
    double lo = std::fabs(e1) < std::fabs(e2) ? std::fabs(e1) : std::fabs(e2);
    double hi = std::fabs(e1) < std::fabs(e2) ? std::fabs(e2) : std::fabs(e1);
    double tol = (double)c->grp.curvetol, pmax = p1 > p2 ? p1 : p2;
    int flag = c->grp.curveflag;
    if (flag == 0 && (kmax * 0.2 > hi || kmin * 0.5 > hi)) return 0;
    if ((p1 < 1e-7 && p2 > tol) || (p2 < 1e-7 && p1 > tol)) return 1;
    if ((0.02 * p1 > p2 || 0.02 * p2 > p1) && pmax > tol) return 1;
    if (flag != 0) return 0;
    if (lo < 1e-7 && hi > tol) return 1;
    if (hi < tol) return 0;
    return hi >= 5.0 * lo || e1 * e2 < 0.0;
}

/* Edge e of face no of element id: gathers the faces at it and selects it by the rule. */
static void vis_Connect_FeatureEdge(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest,
                                    vis_ConnectFeature* f, int id, int no, int e)
{
    int ends[2];
    if (!vis_Connect_GroupEdgeEnds(c, id, e, ends)) return;
    f->k = 0;
    vis_Connect_FeatureFaces(c, source, f, id, ends[0], ends[1]);
    if (f->k == 0 || f->face[0] != no) return; /* judged on the element's first face only */
    int num = 0;
    vis_Connect_GroupAdj(c, source, SYS_EDGE, id, e, &num, &f->w);
    if (!vis_Connect_GroupLowest(id, num, f->w.elems)) return;
    for (int k = 0; k < num; ++k) {
        /* The adjacency list is read before FeatureFaces reuses the node scratch. */
        vis_Connect_FeatureFaces(c, source, f, f->w.elems[k], ends[0], ends[1]);
    }
    int selected = f->k == 1;
    if (!selected && oper == VIS_CGROUP_FEATURE) selected = vis_Connect_IsFeature(c, f, ends[0], ends[1]);
    if (!selected && oper == VIS_CGROUP_SILHOUETTE) selected = vis_Connect_IsSilhouette(c, f);
    if (!selected && oper == VIS_CGROUP_CREASE) selected = vis_Connect_IsCrease(c, f, ends[0], ends[1]);
    if (selected) vis_GroupSetEntFlag(dest, id, e, 1);
}

void vis_Connect_GroupFeature(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest)
{
    vis_ConnectFeature f;
    if (!vis_Connect_GroupWorkAlloc(c, kName, &f.w)) return;
    int maxelem = 0, maxnode = 0;
    vis_ConnectMaxNodeElem(c, &maxelem);
    vis_ConnectMaxElemNode(c, &maxnode);
    f.cap = (maxelem + 1) * VIS_ELEM_MAXFACE;
    f.elem = (int*)vsy_Malloc(sizeof(int) * (size_t)f.cap);
    f.face = (int*)vsy_Malloc(sizeof(int) * (size_t)f.cap);
    f.norm = (float*)vsy_Malloc(sizeof(float) * 3 * (size_t)(maxnode + VIS_ELEM_MAXFACENODE));
    f.xyz = (float*)vsy_Malloc(sizeof(float) * 3 * (size_t)(maxnode + VIS_ELEM_MAXFACENODE));
    if (!f.elem || !f.face || !f.norm || !f.xyz) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_MEMORY, "%s", "Malloc vec");
    } else {
        for (int id = 1; id <= c->numelem; ++id) {
            if (!vis_Connect_GroupDefined(c, id) || !vis_Connect_GroupHas(source, id)) continue;
            int nface = 0;
            vis_ConnectElemNum(c, SYS_FACE, id, &nface);
            for (int no = 1; no <= nface; ++no) {
                int edges[VIS_ELEM_MAXEDGE];
                if (!vis_Connect_GroupFlag(source, id, no)) continue;
                int ne = vis_Connect_GroupFaceEdges(c, id, no, edges);
                for (int e = 0; e < ne; ++e) vis_Connect_FeatureEdge(c, oper, source, dest, &f, id, no, edges[e]);
            }
        }
    }
    vsy_Free(f.elem);
    vsy_Free(f.face);
    vsy_Free(f.norm);
    vsy_Free(f.xyz);
    vis_Connect_GroupWorkFree(&f.w);
}

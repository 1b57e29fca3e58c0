/* vis_ConnectGroupFeature: feature edges and silhouette edges of a set of element faces
 * (EdgeGroup opers 3 and 8, face source).
 *
 * Each edge of a face of the source is judged once, on the element with the lowest id among
 * those whose source faces hold both its end nodes, and there on its first such face. With k
 * such faces: k 1 is the border of the face set and always selected; for feature edges, k other
 * than 2 with `nonmanifold` set is selected at once, and otherwise every pair of the faces'
 * normals at the edge (the sum of each face's unit normals at the two end nodes, normalised) is
 * compared: a dot product below cosangle (its absolute value unless `signedflag`) makes a
 * feature. A silhouette needs k 2 and one face turned to the view and the other not.
 * Polyhedra are skipped: their faces carry no edge table.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectKernel.h"
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
    if (!f.elem || !f.face || !f.norm) {
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
    vis_Connect_GroupWorkFree(&f.w);
}

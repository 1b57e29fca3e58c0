/* Coordinate systems "LOCAL", nodes "N", elements "EN" with their attributes, and the node
 * orders and face numbers of the format's element forms. */
#include "vis_ANSFwtInternal.h"

#include "vis_CoordSys.h"
#include "vis_ElemDat.h"
#include "vsy_HashTable.h"

#include <cmath>
#include <cstring>

namespace {

const double kDegree = 57.295779513082320876798;

/* The format's system type: 0 rectangular, 1 cylindrical, 2 spherical. */
int SystemType(int type)
{
    if (type == VIS_COORDSYS_CYLINDRICAL) return 1;
    if (type == VIS_COORDSYS_SPHERICAL || type == VIS_COORDSYS_SPHERICAL2) return 2;
    return 0;
}

vis_CoordSys* System(vis_ANSFwt* ans, int id)
{
    void* cs = nullptr;
    if (ans->coordsys && id) vsy_HashTableGet(ans->coordsys, id, &cs);
    return static_cast<vis_CoordSys*>(cs);
}

/* Positions of the format's node lists, in the library's local numbering. Degenerate forms
 * repeat a corner: a triangle as a collapsed quadrilateral, a tetrahedron, pyramid and wedge
 * as a collapsed brick. */
const int kTri3[4] = {0, 1, 2, 2};
const int kTri6[8] = {0, 1, 2, 2, 3, 4, 2, 5};
const int kTet4[8] = {0, 1, 2, 2, 3, 3, 3, 3};
const int kPyr5[8] = {0, 1, 2, 3, 4, 4, 4, 4};
const int kPyr13[20] = {0, 1, 2, 3, 4, 4, 4, 4, 5, 6, 7, 8, 4, 4, 4, 4, 9, 10, 11, 12};
const int kWed6[8] = {0, 1, 2, 2, 3, 4, 5, 5};
const int kWed15[20] = {0, 1, 2, 2, 3, 4, 5, 5, 6, 7, 2, 8, 9, 10, 5, 11, 12, 13, 14, 14};

/* The format's faces by their corners in its node list: a brick (faces 1 to 6), a native
 * tetrahedron (1 to 4), a plane element's edges (1 to 4). */
const int kBrickFace[6][4] = {{1, 0, 3, 2}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}, {4, 5, 6, 7}};
const int kTetFace[4][4] = {{1, 0, 2, -1}, {0, 1, 3, -1}, {1, 2, 3, -1}, {2, 0, 3, -1}};
const int kPlaneFace[4][4] = {{0, 1, -1, -1}, {1, 2, -1, -1}, {2, 3, -1, -1}, {3, 0, -1, -1}};

int Copy(const int* from, int n, int* pos)
{
    std::memcpy(pos, from, sizeof(int) * static_cast<size_t>(n));
    return n;
}

int Identity(int n, int* pos)
{
    for (int i = 0; i < n; ++i) pos[i] = i;
    return n;
}

int NativeTet(int libno) { return libno == 187 || libno == 87; }

/* 1 when both lists hold the same positions, repeats aside. */
int SameSet(const int* a, int na, const int* b, int nb)
{
    for (int i = 0; i < na; ++i) {
        int found = 0;
        for (int j = 0; j < nb; ++j) found |= a[i] == b[j];
        if (!found) return 0;
    }
    for (int j = 0; j < nb; ++j) {
        int found = 0;
        for (int i = 0; i < na; ++i) found |= a[i] == b[j];
        if (!found) return 0;
    }
    return 1;
}

void Attribute(FILE* fp, const char* name, int value, int* current)
{
    if (value == *current) return;
    std::fprintf(fp, "%s,%d\n", name, value);
    *current = value;
}

/* "EN" with the element id and eight nodes a line, "EMORE" for the rest. */
void WriteNodes(FILE* fp, int id, const int* ids, int n)
{
    char line[32 + 12 * (VIS_ELEM_MAXNODE + 1) + 8 * (VIS_ELEM_MAXNODE / 8 + 1)];
    int len = 3;
    std::memcpy(line, "EN,", 3);
    len += vis_ANSFwt_IntText(id, line + len);
    line[len++] = ',';
    for (int i = 0; i < n; ++i) {
        const int last = i == n - 1, eighth = i % 8 == 7;
        len += vis_ANSFwt_IntText(ids[i], line + len);
        line[len++] = last || eighth ? '\n' : ',';
        if (eighth && !last) {
            std::memcpy(line + len, "EMORE,", 6);
            len += 6;
        }
    }
    vis_Writer_Put(fp, line, len);
}

/* "N" with the id and the coordinates, without the line's end. */
void WriteNode(FILE* fp, int id, const double x[3])
{
    char line[16 + 3 * 25];
    int len = 2;
    std::memcpy(line, "N,", 2);
    len += vis_ANSFwt_IntText(id, line + len);
    for (int k = 0; k < 3; ++k) {
        line[len++] = ',';
        len += vis_ANSFwt_ExpText(x[k], line + len);
    }
    vis_Writer_Put(fp, line, len);
}

/* A beam's orientation node beyond the largest id, at the first node plus the vector; 0 when
 * the element has no vector. */
int OrientationNode(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e)
{
    void* ed = nullptr;
    if (e->featype != 4 || !ans->elemdat) return 0;
    vsy_HashTableGet(ans->elemdat, 28, &ed);
    if (!ed) return 0;
    double v[3] = {NAN, NAN, NAN}, x[3];
    vis_ElemDatData(static_cast<vis_ElemDat*>(ed), e->index, 3, v);
    if (std::isnan(v[0])) return 0;
    vis_Writer_Coords(&ans->w, e->node[0], x);
    const int id = ++ans->extranode;
    const double at[3] = {x[0] + v[0], x[1] + v[1], x[2] + v[2]};
    WriteNode(ans->w.fp, id, at);
    std::fputc('\n', ans->w.fp);
    return id;
}

}  // namespace

void vis_ANSFwt_Angles(const double triad[9], double angles[3])
{
    /* The rows are the local axes; the matrix R = Rz(a) Rx(b) Ry(c) has them as its columns,
     * so R[j][i] = triad[3 i + j]: sin b = R21, tan a = -R01 / R11, tan c = -R20 / R22. */
    double s = triad[5];
    if (s > 1.0) s = 1.0;
    if (s < -1.0) s = -1.0;
    angles[0] = std::atan2(-triad[3], triad[4]) * kDegree + 0.0;
    angles[1] = std::asin(s) * kDegree + 0.0;
    angles[2] = std::atan2(-triad[2], triad[8]) * kDegree + 0.0;
}

void vis_ANSFwt_CoordSys(vis_ANSFwt* ans)
{
    vis_ANSFwt_Walk(ans, ans->coordsys, "C***       Coordinate systems\n", [](vis_ANSFwt* a, int key, void* value) {
        vis_CoordSys* cs = static_cast<vis_CoordSys*>(value);
        double origin[3], triad[9], angles[3];
        int type = 0;
        vis_CoordSysGetType(cs, &type);
        vis_CoordSysOriginTriad(cs, origin, triad);
        vis_ANSFwt_Angles(triad, angles);
        std::fprintf(a->w.fp, "LOCAL,%d,%d", key + 10, SystemType(type));
        for (double x : origin) vis_ANSFwt_Real(a->w.fp, x);
        for (double g : angles) vis_ANSFwt_Real(a->w.fp, g);
        std::fputc('\n', a->w.fp);
    });
}

void vis_ANSFwt_Nodes(vis_ANSFwt* ans)
{
    vis_Writer* w = &ans->w;
    FILE* fp = w->fp;
    std::fputs("C***       Nodes\nCSYS,0\n", fp);
    int ids[VIS_WRITER_BLOCK], feat[VIS_WRITER_BLOCK], csys[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int rest = w->numnp - first + 1;
        const int n = rest < VIS_WRITER_BLOCK ? rest : VIS_WRITER_BLOCK;
        for (int i = 0; i < n; ++i) ids[i] = first + i;
        vis_Writer_NodeIds(w, n, ids);
        vis_Writer_NodeAssocs(w, 0, first, n, feat);
        vis_Writer_NodeAssocs(w, 4, first, n, csys);
        for (int i = 0; i < n; ++i) {
            if (feat[i] == 0) continue;
            double x[3];
            vis_Writer_Coords(w, first + i, x);
            WriteNode(fp, ids[i], x);
            vis_CoordSys* cs = System(ans, csys[i]);
            if (cs) {
                double origin[3], triad[9], angles[3];
                vis_CoordSysOriginTriad(cs, origin, triad);
                vis_ANSFwt_Angles(triad, angles);
                for (double a : angles) vis_ANSFwt_Real(fp, a);
            }
            std::fputc('\n', fp);
        }
    }
}

int vis_ANSFwt_NodeOrder(const vis_ANSFwt_Elem* e, int libno, int* pos)
{
    const int o3 = e->order == 3;
    switch (e->shape) {
    case SYS_SHAPE_TRI: return o3 ? Copy(kTri6, 8, pos) : Copy(kTri3, 4, pos);
    case SYS_SHAPE_TET:
        if (o3 && NativeTet(libno)) return Identity(10, pos);
        return o3 ? 0 : Copy(kTet4, 8, pos);
    case SYS_SHAPE_PYR: return o3 ? Copy(kPyr13, 20, pos) : Copy(kPyr5, 8, pos);
    case SYS_SHAPE_WED: return o3 ? Copy(kWed15, 20, pos) : Copy(kWed6, 8, pos);
    default: return Identity(e->n, pos);
    }
}

int vis_ANSFwt_Face(const vis_ANSFwt_Elem* e, int libno, int no)
{
    int pos[VIS_ELEM_MAXNODE], corners[VIS_ELEM_MAXCORNER], nc = 0;
    vis_ANSFwt_NodeOrder(e, libno, pos);
    const int plane = e->shape == SYS_SHAPE_TRI || e->shape == SYS_SHAPE_QUAD;
    const int (*faces)[4] = kBrickFace;
    int nfaces = 6;
    if (plane) {
        faces = kPlaneFace, nfaces = 4;
        if (no < 1 || no > (e->shape == SYS_SHAPE_TRI ? 3 : 4)) return 0;
        vis_ElemEdgeCorners(e->shape, e->maxi, e->maxj, e->maxk, no - 1, &nc, corners);
    } else {
        int numfaces = 0;
        vis_ElemFaceCount(e->shape, 0, &numfaces);
        if (no < 1 || no > numfaces) return 0;
        if (e->shape == SYS_SHAPE_TET && NativeTet(libno)) faces = kTetFace, nfaces = 4;
        vis_ElemFaceCorners(e->shape, e->maxi, e->maxj, e->maxk, no - 1, &nc, corners);
    }
    for (int f = 0; f < nfaces; ++f) {
        int mapped[4], nm = 0;
        for (int k = 0; k < 4 && faces[f][k] >= 0; ++k) mapped[nm++] = pos[faces[f][k]];
        if (SameSet(mapped, nm, corners, nc)) return f + 1;
    }
    return 0;
}

void vis_ANSFwt_Elems(vis_ANSFwt* ans)
{
    FILE* fp = ans->w.fp;
    std::fputs("C***       Elements\n", fp);
    int esys = 0, type = 0, mat = 0, real = 0, sec = 0;
    vis_ANSFwt_Elem e;
    int pos[VIS_ELEM_MAXNODE], ids[VIS_ELEM_MAXNODE + 1];
    for (int i = 1; i <= ans->w.numel; ++i) {
        if (ans->etnum[i] == 0) continue;
        vis_ANSFwt_ReadElem(ans, i, &e);
        const int n = vis_ANSFwt_NodeOrder(&e, ans->libno[i], pos);
        if (n == 0) continue;
        const int section = vis_ANSFwt_HasSection(ans, &e);
        Attribute(fp, "ESYS", e.csysid ? e.csysid + 10 : 0, &esys);
        Attribute(fp, "TYPE", ans->etnum[i], &type);
        Attribute(fp, "MAT", e.matlid, &mat);
        Attribute(fp, "REAL", vis_ANSFwt_RealOf(ans, &e), &real);
        Attribute(fp, "SECNUM", section ? e.propid : 0, &sec);
        for (int k = 0; k < n; ++k) ids[k] = pos[k] < e.n ? e.node[pos[k]] : 0;
        vis_Writer_NodeIds(&ans->w, n, ids);
        int count = n;
        const int extra = OrientationNode(ans, &e);
        if (extra) ids[count++] = extra;
        WriteNodes(fp, e.id, ids, count);
    }
}

/* Surface loads of the NASTRAN deck: tractions and pressures on element faces (PLOAD4,
 * PLOAD2), heat flux (QBDY1, QBDY2) and convection (CONV with its own SPOINT, TEMP, PCONV and
 * MAT4) on faces and edges.
 *
 * Corner values are those of the face's (or edge's) corners in the topology table's order.
 * A solid is an element of a three-dimensional shape, a shell one of a plane shape; faces of
 * other shapes are passed over, and edge loads are written on plane shapes only. The second
 * grid of a solid's PLOAD4 is the corner opposite the first on a four-cornered face (also a
 * pyramid's, written as a CHEXA whose top is the apex, so that a triangular face's third corner
 * is that diagonal), the node off the face of a tetrahedron, and 0 on a wedge's triangle.
 *
 * Heat flux and convection act on a surface: an interface element (feature 14) is its own, any
 * other element gets a new CHBDYE whose id the element counter gives. New SPOINT ids come from
 * the node counter and each convection takes two property ids, for its PCONV and its MAT4.
 */
#include "vis_LCase.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Field.h"

#include <cmath>

namespace {

/* Distributed load types of vis_LCase. */
enum { kTraction = 1, kPressure = 2, kFlux = 5, kConvection = 6 };

/* An element as the surface cards need it. */
struct Elem {
    int index, id, shape, maxi, maxj, maxk, featype, featwod, dim, n;
    int node[VIS_ELEM_MAXNODE];
};

bool Read(vis_NASFwt* nas, int index, Elem* e)
{
    vis_Writer* w = &nas->w;
    e->index = index;
    e->featype = vis_Writer_ElemAssoc(w, 0, index);
    if (e->featype == 0) return false;
    vis_Writer_Topology(w, index, &e->shape, &e->maxi, &e->maxj, &e->maxk);
    vis_Writer_ElemNode(w, index, &e->n, e->node);
    vis_ElemDim(e->shape, &e->dim);
    e->featwod = vis_Writer_ElemAssoc(w, 25, index);
    e->id = vis_Writer_ElemId(w, index);
    return e->n > 0;
}

/* Positions of the corners of face or edge `no` (from 1); the count, 0 when there is none. */
int Corners(const Elem* e, int entity, int no, int* pos)
{
    int n = 0;
    if (entity == SYS_FACE) vis_ElemFaceCorners(e->shape, e->maxi, e->maxj, e->maxk, no - 1, &n, pos);
    else vis_ElemEdgeCorners(e->shape, e->maxi, e->maxj, e->maxk, no - 1, &n, pos);
    return n;
}

int NodeId(vis_NASFwt* nas, const Elem* e, int pos)
{
    return pos >= 0 && pos < e->n ? vis_Writer_NodeId(&nas->w, e->node[pos]) : 0;
}

/* The second grid of a solid's PLOAD4; see the file header. */
int Diagonal(vis_NASFwt* nas, const Elem* e, int nc, const int* pos)
{
    if (e->shape == SYS_SHAPE_TET) {
        for (int c = 0; c < 4; ++c)
            if (c != pos[0] && c != pos[1] && c != pos[2]) return NodeId(nas, e, c);
        return 0;
    }
    if (nc == 4 || e->shape == SYS_SHAPE_PYR) return NodeId(nas, e, pos[2]);
    return 0;
}

void Empty(FILE* fp, int n)
{
    for (int i = 0; i < n; ++i) std::fputs("        ", fp);
}

/* One flagged face: corner values (magnitudes of a traction), the traction's last direction. */
void Face(vis_NASFwt* nas, int lid, const Elem* e, const int* pos, int nc, const double* v, bool traction)
{
    FILE* fp = nas->w.fp;
    double val[4], dir[3] = {0, 0, 0};
    bool equal = true;
    for (int c = 0; c < nc; ++c) {
        if (traction) {
            const double* t = v + 3 * c;
            val[c] = std::sqrt(t[0] * t[0] + t[1] * t[1] + t[2] * t[2]);
            for (int k = 0; k < 3; ++k) dir[k] = val[c] != 0.0 ? t[k] / val[c] : 0.0;
        } else {
            val[c] = v[c];
        }
        equal = equal && val[c] == val[0];
    }
    const int nval = equal ? 1 : nc;
    if (e->dim == 3) {
        std::fprintf(fp, "PLOAD4  %8d%8d", lid, e->id);
        vsy_FieldSmall(fp, 0, nval, val, 0);
        Empty(fp, 4 - nval);
        std::fprintf(fp, "%8d%8d\n", NodeId(nas, e, pos[0]), Diagonal(nas, e, nc, pos));
    } else if (traction) {
        std::fprintf(fp, "PLOAD4  %8d%8d", lid, e->id);
        vsy_FieldSmall(fp, 0, nval, val, 1);
    } else {
        /* A shell's pressure acts against its normal. */
        for (int c = 0; c < nc; ++c) val[c] = -val[c];
        const int order = e->maxi == 0 ? 2 : e->maxi;
        if (equal && order < 3) {
            std::fprintf(fp, "PLOAD2  %8d", lid);
            vsy_FieldSmall(fp, 0, 1, val, 0);
            std::fprintf(fp, "%8d\n", e->id);
            return;
        }
        std::fprintf(fp, "PLOAD4  %8d%8d", lid, e->id);
        vsy_FieldSmall(fp, 0, nval, val, 1);
    }
    if (traction) vsy_FieldSmall(fp, 2, 3, dir, 1);
}

void Faces(vis_NASFwt* nas, int lid, vis_LCase* lc, int elem)
{
    int tflags = 0, pflags = 0;
    vis_LCaseDistFlag(lc, SYS_FACE, elem, kTraction, &tflags);
    if (tflags == 0) vis_LCaseDistFlag(lc, SYS_FACE, elem, kPressure, &pflags);
    const bool traction = tflags != 0;
    const int flags = traction ? tflags : pflags;
    Elem e;
    if (flags == 0 || !Read(nas, elem, &e) || e.dim < 2) return;
    for (int no = 1; no <= VIS_ELEM_MAXFACE; ++no) {
        int pos[VIS_ELEM_MAXCORNER];
        const int nc = (flags >> (no - 1) & 1) ? Corners(&e, SYS_FACE, no, pos) : 0;
        if (nc < 3 || nc > 4) continue;
        double v[12];
        vis_LCaseDistdv(lc, SYS_FACE, elem, no, traction ? kTraction : kPressure, v);
        Face(nas, lid, &e, pos, nc, v, traction);
    }
}

/* The format's side of a solid's face, by shape from the tetrahedron. */
const int kSide[4][6] = {{1, 2, 4, 3}, {1, 2, 3, 4, 5}, {1, 5, 2, 4, 3}, {1, 6, 2, 4, 5, 3}};

int Side(const Elem* e, int entity, int no)
{
    if (entity == SYS_EDGE) return (e->featype == 1 && e->featwod == 3) ? no : no + 1;
    if (e->shape >= SYS_SHAPE_TET && e->shape <= SYS_SHAPE_HEX) return kSide[e->shape - SYS_SHAPE_TET][no - 1];
    return no;
}

/* The surface of a face or edge: the interface element itself, or a new CHBDYE. */
int Surface(vis_NASFwt* nas, const Elem* e, int entity, int no)
{
    if (e->featype == 14) return e->id;
    const int id = ++nas->elemid;
    std::fprintf(nas->w.fp, "CHBDYE  %8d%8d%8d\n", id, e->id, Side(e, entity, no));
    return id;
}

void Flux(vis_NASFwt* nas, int lid, int surface, int nc, const double* v)
{
    FILE* fp = nas->w.fp;
    bool equal = true;
    for (int c = 1; c < nc; ++c) equal = equal && v[c] == v[0];
    if (equal) {
        std::fprintf(fp, "QBDY1   %8d", lid);
        vis_NASFwt_Text(fp, v[0], 8, 1);
        std::fprintf(fp, "%8d\n", surface);
        return;
    }
    /* At most four corners: the values always fit the first line. */
    std::fprintf(fp, "QBDY2   %8d%8d", lid, surface);
    for (int c = 0; c < nc; ++c) vis_NASFwt_Text(fp, v[c], 8, 1);
    std::fputc('\n', fp);
}

/* A convection brings its ambient point, its PCONV and its MAT4 of the film coefficient. */
void Convection(vis_NASFwt* nas, int lid, int surface, const double* v)
{
    FILE* fp = nas->w.fp;
    const int point = ++nas->nodeid;
    std::fprintf(fp, "SPOINT  %8d\n", point);
    std::fprintf(fp, "TEMP    %8d%8d", lid, point);
    vis_NASFwt_Text(fp, v[0], 8, 1);
    std::fputc('\n', fp);
    const int n = nas->propid;
    nas->propid += 2;
    std::fprintf(fp, "CONV    %8d%8d                %8d\n", surface, n + 1, point);
    std::fprintf(fp, "PCONV   %8d%8d\n", n + 1, n + 2);
    std::fprintf(fp, "MAT4    %8d                        ", n + 2);
    vis_NASFwt_Text(fp, v[1], 8, 1);
    std::fputc('\n', fp);
}

void Heat(vis_NASFwt* nas, int lid, vis_LCase* lc, int entity, int type)
{
    int max = 0;
    vis_LCaseDistMax(lc, entity, type, &max);
    for (int elem = 1; elem <= max; ++elem) {
        int flags = 0;
        vis_LCaseDistFlag(lc, entity, elem, type, &flags);
        Elem e;
        if (flags == 0 || !Read(nas, elem, &e)) continue;
        if (entity == SYS_EDGE ? e.dim != 2 : e.dim < 2) continue;
        for (int no = 1; no <= (entity == SYS_FACE ? VIS_ELEM_MAXFACE : VIS_ELEM_MAXEDGE); ++no) {
            int pos[VIS_ELEM_MAXCORNER];
            const int nc = (flags >> (no - 1) & 1) ? Corners(&e, entity, no, pos) : 0;
            if (nc == 0) continue;
            double v[12];
            vis_LCaseDistdv(lc, entity, elem, no, type, v);
            const int surface = Surface(nas, &e, entity, no);
            if (type == kFlux) Flux(nas, lid, surface, nc, v);
            else Convection(nas, lid, surface, v);
        }
    }
}

}  // namespace

void vis_NASFwt_FaceLoads(vis_NASFwt* nas, int lid, vis_LCase* lc)
{
    int tmax = 0, pmax = 0;
    vis_LCaseDistMax(lc, SYS_FACE, kTraction, &tmax);
    vis_LCaseDistMax(lc, SYS_FACE, kPressure, &pmax);
    const int bound = tmax > pmax ? tmax : pmax;
    for (int elem = 1; elem <= bound; ++elem) Faces(nas, lid, lc, elem);
}

void vis_NASFwt_HeatLoads(vis_NASFwt* nas, int lid, vis_LCase* lc)
{
    Heat(nas, lid, lc, SYS_EDGE, kFlux);
    Heat(nas, lid, lc, SYS_FACE, kFlux);
    Heat(nas, lid, lc, SYS_EDGE, kConvection);
    Heat(nas, lid, lc, SYS_FACE, kConvection);
}

/* Nodes (dataset 2411) and elements (dataset 2412). */
#include "vis_ElemTopology.h"
#include "vis_SDRCLwtInternal.h"
#include "vsy_Field.h"

#include <cstring>

namespace {

/* How one element is written: descriptor, node positions of its list in the order of the
 * lines, and whether a beam's extra line of 0, 1, 1 comes first. */
struct Row {
    int descriptor;
    int npos;
    const int* pos;
    int beamline;
    int rigid;
};

const int kSeq[20] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19};
const int kTri6[6] = {0, 3, 1, 4, 2, 5};
const int kQuad8[8] = {0, 4, 1, 5, 2, 6, 3, 7};
const int kTet4[4] = {0, 1, 3, 2};
const int kTet10[10] = {0, 4, 1, 8, 3, 7, 6, 5, 9, 2};
const int kPyr13[13] = {0, 5, 1, 6, 2, 7, 3, 8, 9, 10, 11, 12, 4};
const int kWed6[6] = {3, 4, 5, 0, 1, 2};
const int kWed15[15] = {3, 9, 4, 10, 5, 11, 12, 13, 14, 0, 6, 1, 7, 2, 8};
const int kHex8[8] = {4, 5, 6, 7, 0, 1, 2, 3};
const int kHex20[20] = {4, 12, 5, 13, 6, 14, 7, 15, 16, 17, 18, 19, 0, 8, 1, 9, 2, 10, 3, 11};

/* The descriptor of a plane element: solid by featwod 3, 1, other; else the shell form. */
int Plane(int featype, int featwod, int axi, int strain, int stress, int shell)
{
    if (featype != 1) return shell;
    return featwod == 3 ? axi : featwod == 1 ? strain : stress;
}

/* The row of an element, or descriptor 0 when it fits none. */
Row RowOf(int shape, int n, int featype, int feaspec, int featwod)
{
    Row r = {0, n, kSeq, 0, 0};
    switch (shape) {
    case SYS_SHAPE_POINT:
        if (featype == 10 && feaspec == 2) return {121, 2, kSeq, 0, 1};
        if (featype == 10) return {122, n, kSeq, 0, 1};
        return {181, 1, kSeq, 0, 0};
    case SYS_SHAPE_LINE:
        if (n != 2 && n != 3) return r;
        if (featype == 2) r.descriptor = featwod == 3 ? (n == 2 ? 171 : 172) : 0;
        else if (featype == 9 && n == 2) r.descriptor = 136;
        else r.descriptor = n == 2 ? 21 : 24, r.beamline = 1;
        return r;
    case SYS_SHAPE_TRI:
        if (n == 3) r.descriptor = Plane(featype, featwod, 81, 51, 41, 91);
        if (n == 6) r = {Plane(featype, featwod, 82, 52, 42, 92), 6, kTri6, 0, 0};
        return r;
    case SYS_SHAPE_QUAD:
        if (n == 4) r.descriptor = Plane(featype, featwod, 84, 54, 44, 94);
        if (n == 8) r = {Plane(featype, featwod, 85, 55, 45, 95), 8, kQuad8, 0, 0};
        return r;
    case SYS_SHAPE_TET:
        if (n == 4) return {111, 4, kTet4, 0, 0};
        if (n == 10) return {118, 10, kTet10, 0, 0};
        return r;
    case SYS_SHAPE_PYR:
        if (n == 5) r.descriptor = 119;
        if (n == 13) return {120, 13, kPyr13, 0, 0};
        return r;
    case SYS_SHAPE_WED:
        if (n == 6) return {112, 6, kWed6, 0, 0};
        if (n == 15) return {113, 15, kWed15, 0, 0};
        return r;
    case SYS_SHAPE_HEX:
        if (n == 8) return {115, 8, kHex8, 0, 0};
        if (n == 20) return {116, 20, kHex20, 0, 0};
        return r;
    default: return r;
    }
}

/* An order 3 serendipity element with masked edges gets its full list back, a 0 at each
 * midside position its mask leaves out. Returns the new count. */
int Fill(int shape, int maxi, int maxj, int num, int* nodes)
{
    const int mask = static_cast<int>(static_cast<unsigned>(maxj) >> 16);
    if (maxi != 3 || mask == 0 || (maxj & 0xffff) != 0) return num;
    int nc = 0, ne = 0;
    vis_ElemCornerCount(shape, 0, &nc);
    vis_ElemEdgeCount(shape, 0, &ne);
    int full[VIS_ELEM_MAXNODE];
    int at = 0;
    for (int i = 0; i < nc; ++i) full[i] = at < num ? nodes[at++] : 0;
    for (int e = 0; e < ne; ++e) full[nc + e] = (mask >> e) & 1 ? 0 : at < num ? nodes[at++] : 0;
    std::memcpy(nodes, full, sizeof(int) * static_cast<size_t>(nc + ne));
    return nc + ne;
}

/* "%10d" of each value, then "\n"; `line` holds 22 bytes per value and one more. */
int IntLine(char* line, int n, const int* values)
{
    int len = 0;
    for (int i = 0; i < n; ++i) len += vsy_FieldIntText(values[i], 10, line + len);
    line[len++] = '\n';
    return len;
}

/* The node lines of a row: "%10d" eight to a line, the last line closed. */
int NodeLines(char* line, const Row& r, const int* nodes)
{
    int len = 0;
    for (int i = 0; i < r.npos; ++i) {
        len += vsy_FieldIntText(nodes[r.pos[i]], 10, line + len);
        if (i % 8 == 7 || i + 1 == r.npos) line[len++] = '\n';
    }
    return len;
}

/* The associations of a block of elements, read together. */
struct Block {
    int featype[VIS_WRITER_BLOCK], feaspec[VIS_WRITER_BLOCK], featwod[VIS_WRITER_BLOCK];
    int matlid[VIS_WRITER_BLOCK], propid[VIS_WRITER_BLOCK], id[VIS_WRITER_BLOCK];
};

void ReadBlock(vis_Writer* w, int first, int n, Block* b)
{
    vis_Writer_ElemAssocs(w, 0, first, n, b->featype);
    vis_Writer_ElemAssocs(w, 12, first, n, b->feaspec);
    vis_Writer_ElemAssocs(w, 25, first, n, b->featwod);
    vis_Writer_ElemAssocs(w, 1, first, n, b->matlid);
    vis_Writer_ElemAssocs(w, 2, first, n, b->propid);
    vis_Writer_ElemIds(w, first, n, b->id);
}

/* Element e, the i-th of its block. */
void Elem(vis_Writer* w, int e, const Block& b, int i)
{
    if (b.featype[i] == 0) return;
    int shape = 0, maxi = 0, maxj = 0, maxk = 0, num = 0;
    int nodes[VIS_ELEM_MAXNODE];
    vis_Writer_Topology(w, e, &shape, &maxi, &maxj, &maxk);
    vis_Writer_ElemNode(w, e, &num, nodes);
    if (num < 1) return;
    num = Fill(shape, maxi, maxj, num, nodes);
    const Row r = RowOf(shape, num, b.featype[i], b.feaspec[i], b.featwod[i]);
    if (r.descriptor == 0 || r.npos > num) return;
    vis_Writer_NodeIds(w, num, nodes);
    const int record[6] = {b.id[i], r.descriptor, b.propid[i], r.rigid ? 0 : b.matlid[i], 1, r.npos};
    static const int beam[3] = {0, 1, 1};
    char line[32 * (VIS_ELEM_MAXNODE + 12)];
    int len = IntLine(line, 6, record);
    if (r.beamline) len += IntLine(line + len, 3, beam);
    len += NodeLines(line + len, r, nodes);
    vis_Writer_Put(w->fp, line, len);
}

}  // namespace

void vis_SDRCLwt_Nodes(vis_SDRCLwt* sdrc)
{
    vis_Writer* w = &sdrc->w;
    vis_SDRCLwt_Open(w->fp, 2411);
    int ft[VIS_WRITER_BLOCK], cs[VIS_WRITER_BLOCK], id[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 0, first, n, ft);
        vis_Writer_NodeAssocs(w, 4, first, n, cs);
        for (int i = 0; i < n; ++i) id[i] = first + i;
        vis_Writer_NodeIds(w, n, id);
        for (int i = 0; i < n; ++i) {
            if (ft[i] == 0) continue;
            double x[3];
            vis_Writer_Coords(w, first + i, x);
            const int record[4] = {id[i], 0, cs[i], 1};
            char line[200];
            int len = IntLine(line, 4, record);
            for (int a = 0; a < 3; ++a) len += vis_SDRCLwt_RealText(x[a], 25, line + len);
            line[len++] = '\n';
            vis_Writer_Put(w->fp, line, len);
        }
    }
    vis_SDRCLwt_Close(w->fp);
}

void vis_SDRCLwt_Elems(vis_SDRCLwt* sdrc)
{
    vis_Writer* w = &sdrc->w;
    vis_SDRCLwt_Open(w->fp, 2412);
    Block b;
    for (int first = 1; first <= w->numel; first += VIS_WRITER_BLOCK) {
        const int n = w->numel - first + 1 < VIS_WRITER_BLOCK ? w->numel - first + 1 : VIS_WRITER_BLOCK;
        ReadBlock(w, first, n, &b);
        for (int i = 0; i < n; ++i) Elem(w, first + i, b, i);
    }
    vis_SDRCLwt_Close(w->fp);
}

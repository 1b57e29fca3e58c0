/* vis_ConnectGroupFree: the quick path of free faces and of every face once (FaceGroup opers 1
 * and 0) over the serendipity solids of a static connect with its kernel.
 *
 * The rule is that of the general scan: a face is free when no other element of the source
 * holds all its corners, and taken once on the lowest id of those that hold it. Both follow from
 * the lowest other holder of the face, found thus: the rows of the element's corners are read
 * once per element; the candidates are the entries of the row of the face's first corner that
 * are also in the row of a corner not next to it on the face (opposite corners of a
 * quadrilateral), eight entries compared at a time with no data-dependent branch; a candidate is
 * then looked up in the rows of the remaining corners. Rows ascend, so the first candidate that
 * passes is the lowest holder. Elements of other forms (shells, Lagrange solids, polyhedra) go
 * through the general test.
 *
 * The scan itself (vis_ConnectFreeScanBody.h) is built twice, for the baseline instruction set
 * here and for AVX2 in vis_ConnectFreeScanAvx2.cpp; the processor picks at run time.
 */
#define VIS_FREESCAN vis_Connect_FreeScanBase
#include "vis_ConnectFreeScanBody.h"

int vis_Connect_FreeScanHasAvx2(void)
{
#if defined(TEV_FREESCAN_AVX2)
    static const int has = __builtin_cpu_supports("avx2") ? 1 : 0;
    return has;
#else
    return 0;
#endif
}

#if !defined(TEV_FREESCAN_AVX2)
/* Without an AVX2 build the name stays defined, for callers that ask vis_Connect_FreeScanHasAvx2
 * first; it is never reached. */
void vis_Connect_FreeScanAvx2(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest,
                              vis_ConnectFaceTest general, vis_ConnectGroupWork* w)
{
    vis_Connect_FreeScanBase(c, oper, source, dest, general, w);
}
#endif

int vis_Connect_GroupFreeFaces(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest,
                               vis_ConnectFaceTest general, vis_ConnectGroupWork* w)
{
    if (c->mode != 0 || c->gridfun || c->exactface || !c->nodeelem) return 0;
    if (oper != VIS_CGROUP_FREE && oper != VIS_CGROUP_EVERYONCE) return 0;
#if defined(TEV_FREESCAN_AVX2)
    if (vis_Connect_FreeScanHasAvx2()) {
        vis_Connect_FreeScanAvx2(c, oper, source, dest, general, w);
        return 1;
    }
#endif
    vis_Connect_FreeScanBase(c, oper, source, dest, general, w);
    return 1;
}

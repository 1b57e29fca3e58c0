/* vis_PatLwtInternal: the packets of the neutral file, one group per source file, called by
 * vis_PatLwtWriteModel in file order, and the header and real cards they share. */
#ifndef VIS_PATLWTINTERNAL_H
#define VIS_PATLWTINTERNAL_H

#include "vis_PatLwt.h"

#include <cstdio>

/* Nodes (1), elements (2), frames (5) (vis_PatLwtMesh.cpp). */
void vis_PatLwt_Nodes(vis_PatLwt* pat);
void vis_PatLwt_Elems(vis_PatLwt* pat);
void vis_PatLwt_Frames(vis_PatLwt* pat);
/* Pressures and forces (6, 7), temperatures (10), heat loads (15, 16, 17)
 * (vis_PatLwtLoad.cpp). */
void vis_PatLwt_Pressures(vis_PatLwt* pat);
void vis_PatLwt_Temperatures(vis_PatLwt* pat);
void vis_PatLwt_Heat(vis_PatLwt* pat);
/* Restraints (10, 8), initial temperatures (10), constraints (14), groups (21)
 * (vis_PatLwtCons.cpp). */
void vis_PatLwt_Restraints(vis_PatLwt* pat);
void vis_PatLwt_Initial(vis_PatLwt* pat);
void vis_PatLwt_Constraints(vis_PatLwt* pat);
void vis_PatLwt_Groups(vis_PatLwt* pat);

/* The format's shape code of packet 2 by library shape 0 to 9; 0 for another. */
inline int vis_PatLwt_ShapeCode(int shape)
{
    static const int code[10] = {2, 2, 3, 4, 5, 8, 7, 8, 6, 6};
    return shape >= 0 && shape <= 9 ? code[shape] : 0;
}
/* A packet header: type, id, IV, KC and N1 to N5. */
void vis_PatLwt_Header(FILE* fp, int type, int id, int iv, int kc, int n1 = 0, int n2 = 0, int n3 = 0, int n4 = 0,
                       int n5 = 0);
/* n reals in 16 columns, five to a card; (n + 4) / 5 cards. */
void vis_PatLwt_Reals(FILE* fp, int n, const double* values);
/* The cards a run of n reals takes. */
inline int vis_PatLwt_Cards(int n)
{
    return (n + 4) / 5;
}
/* A packet of one value at a node: header (type, node id, case, 1, 1, n2) and the value. */
void vis_PatLwt_NodeValue(vis_PatLwt* pat, int type, int node, int iv, int n2, double value);

#endif

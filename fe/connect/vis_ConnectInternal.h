/* vis_ConnectInternal: what the source files of vis_Connect share and nothing else sees.
 *
 * vis_Connect is one object spread over several files by concern: storage and definition
 * (vis_ConnectStore.cpp), element, coordinate and extent queries (vis_ConnectQuery.cpp),
 * attributes and part names (vis_ConnectAssoc.cpp), the grid function that stands for a connect
 * (vis_ConnectGridFront.cpp) and the kernel with the adjacency queries (vis_ConnectKernel.cpp).
 */
#ifndef VIS_CONNECTINTERNAL_H
#define VIS_CONNECTINTERNAL_H

#include "vis_Connect.h"

/* Whether the attached front defines slot `code`, and that slot as a function of type T. */
#define GF_SET(c, code) ((c)->gridfun && (c)->gridfun->fun[code])
#define GF_CALL(c, code, T) ((T)(c)->gridfun->fun[code])

/* Copies a code polled from a companion object into ierr when it is not 0; returns it. */
int vis_Connect_Poll(vis_Connect* c, int code);
/* 1 after reporting code 5 under name when c is null, else 0. */
int vis_Connect_Null(const vis_Connect* c, const char* name);
/* Makes the scratch array *array (of *cap entries) hold at least n, with room to spare; 0 after
 * reporting code 4 under name when it cannot (n beyond any list, or a failed allocation). */
int vis_Connect_GrowScratch(vis_Connect* c, const char* name, int** array, int* cap, int n);
/* Makes `scratch` hold at least n entries; 0 on a failed allocation (reported). */
int vis_Connect_ScratchList(vis_Connect* c, int n);
/* Coordinate storage of node id, or null when its chunk does not exist. No checks. */
void* vis_Connect_CoordPtr(const vis_Connect* c, int id);
/* The checks of the node id lists: nix, then every id against numnode. With store the code goes
 * to ierr, without it only the report is made. Returns 0 after a report. */
int vis_Connect_CheckIds(vis_Connect* c, const char* name, int nix, const int* ix, int store);

#endif

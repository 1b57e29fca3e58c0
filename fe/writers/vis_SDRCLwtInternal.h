/* vis_SDRCLwtInternal: the datasets of the universal file, one group per source file, and the
 * small helpers they share. */
#ifndef VIS_SDRCLWTINTERNAL_H
#define VIS_SDRCLWTINTERNAL_H

#include "vis_SDRCLwt.h"
#include "vis_WriterTable.h"

#include <cstdio>

/* Nodes 2411 and elements 2412 (vis_SDRCLwtMesh.cpp). */
void vis_SDRCLwt_Nodes(vis_SDRCLwt* sdrc);
void vis_SDRCLwt_Elems(vis_SDRCLwt* sdrc);
/* Loads 790 and 792, restraints 791, constraints 751 (vis_SDRCLwtCase.cpp). */
void vis_SDRCLwt_Loads(vis_SDRCLwt* sdrc);
void vis_SDRCLwt_Restraints(vis_SDRCLwt* sdrc);
void vis_SDRCLwt_Constraints(vis_SDRCLwt* sdrc);

/* "    -1\n" and the dataset number in six columns. */
void vis_SDRCLwt_Open(FILE* fp, int dataset);
/* "    -1\n". */
void vis_SDRCLwt_Close(FILE* fp);
/* A real as "%25s" (width 25) or "%13s" (width 13) of vsy_RealToExp(v, width, 2, 1, 0). */
void vis_SDRCLwt_Real(FILE* fp, double value, int width);
/* The same text at `out`, no terminator; returns its length (the width, or more for a text that
 * does not fit). `out` holds 40 bytes. */
int vis_SDRCLwt_RealText(double value, int width, char* out);

#endif

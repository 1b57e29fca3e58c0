/* vis_D3DFwtInternal: the sections of the keyword deck, one group per source file, called by
 * vis_D3DFwtWriteModel in deck order. */
#ifndef VIS_D3DFWTINTERNAL_H
#define VIS_D3DFWTINTERNAL_H

#include "vis_D3DFwt.h"

struct vis_SProp;

/* Coordinate systems, nodes, elements (vis_D3DFwtMesh.cpp). */
void vis_D3DFwt_Systems(vis_D3DFwt* d3d);
void vis_D3DFwt_Nodes(vis_D3DFwt* d3d);
void vis_D3DFwt_Elems(vis_D3DFwt* d3d);
/* Parts with their sections, materials, sets (vis_D3DFwtProp.cpp). */
void vis_D3DFwt_Parts(vis_D3DFwt* d3d);
void vis_D3DFwt_Materials(vis_D3DFwt* d3d);
void vis_D3DFwt_Sets(vis_D3DFwt* d3d);
/* Restraints and loads of the first step (vis_D3DFwtCase.cpp). */
void vis_D3DFwt_Restraints(vis_D3DFwt* d3d, struct vis_SProp* step);
void vis_D3DFwt_Loads(vis_D3DFwt* d3d, struct vis_SProp* step);

#endif

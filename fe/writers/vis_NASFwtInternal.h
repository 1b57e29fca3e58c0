/* vis_NASFwtInternal: the sections of the NASTRAN deck, one per source file, called by
 * vis_NASFwtWriteModel in deck order. Each writes to the frame's open stream. */
#ifndef VIS_NASFWTINTERNAL_H
#define VIS_NASFWTINTERNAL_H

#include "vis_ElemTopology.h"
#include "vis_NASFwt.h"

struct vis_EProp;

/* Executive and case control (vis_NASFwtCase.cpp); needs the solution step list. */
void vis_NASFwt_Control(vis_NASFwt* nas);
/* Parameter cards after "BEGIN BULK" (vis_NASFwtCase.cpp). */
void vis_NASFwt_Params(vis_NASFwt* nas);
/* Grid points and coordinate systems (vis_NASFwtGrid.cpp). */
void vis_NASFwt_Grid(vis_NASFwt* nas);
void vis_NASFwt_CoordSys(vis_NASFwt* nas);
/* Elements (vis_NASFwtElem.cpp). */
void vis_NASFwt_Elems(vis_NASFwt* nas);

/* Room for an element's nodes: the largest form plus the pyramid's expansion to eight. */
#define VIS_NASFWT_MAXNODE (VIS_ELEM_MAXNODE + 8)

/* One element as the cards read it. */
typedef struct vis_NASFwt_Elem {
    int index, id, shape, maxi, maxj, maxk;
    int n;                          /* nodes in node[] */
    int node[VIS_NASFWT_MAXNODE];   /* node ids (0 for an absent midside node) */
    int first;                      /* index of the first node, for its system and coordinates */
    int propid, csysid, featype, feaspec, featwod;
    struct vis_EProp* prop;         /* the element's property, or null */
} vis_NASFwt_Elem;

/* Beam, gap, rigid and interface cards (vis_NASFwtLink.cpp). */
void vis_NASFwt_Beam(vis_NASFwt* nas, const vis_NASFwt_Elem* e);
void vis_NASFwt_Gap(vis_NASFwt* nas, const vis_NASFwt_Elem* e);
void vis_NASFwt_Rigid(vis_NASFwt* nas, const vis_NASFwt_Elem* e);
void vis_NASFwt_Interface(vis_NASFwt* nas, const vis_NASFwt_Elem* e);

#endif

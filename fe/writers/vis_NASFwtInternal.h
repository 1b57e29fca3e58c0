/* vis_NASFwtInternal: the sections of the NASTRAN deck, one per source file, called by
 * vis_NASFwtWriteModel in deck order. Each writes to the frame's open stream. */
#ifndef VIS_NASFWTINTERNAL_H
#define VIS_NASFWTINTERNAL_H

#include "vis_ElemTopology.h"
#include "vis_NASFwt.h"
#include "vsy_HashTable.h"

struct vis_EProp;
struct vis_LCase;

/* Executive and case control (vis_NASFwtCase.cpp); needs the solution step list. */
void vis_NASFwt_Control(vis_NASFwt* nas);
/* Parameter cards after "BEGIN BULK" (vis_NASFwtCase.cpp). */
void vis_NASFwt_Params(vis_NASFwt* nas);
/* Grid points and coordinate systems (vis_NASFwtGrid.cpp). */
void vis_NASFwt_Grid(vis_NASFwt* nas);
void vis_NASFwt_CoordSys(vis_NASFwt* nas);
/* Elements (vis_NASFwtElem.cpp). */
void vis_NASFwt_Elems(vis_NASFwt* nas);
/* Element properties (vis_NASFwtProp.cpp, beams in vis_NASFwtBeam.cpp); they record in
 * nas->matclass the class of each material's last user, which the materials
 * (vis_NASFwtMat.cpp) read to choose their cards. */
void vis_NASFwt_Props(vis_NASFwt* nas);
void vis_NASFwt_BeamProp(vis_NASFwt* nas, int id, struct vis_EProp* p);
void vis_NASFwt_Mats(vis_NASFwt* nas);
/* Loads (vis_NASFwtLoad.cpp). Surface loads of case `lid` (vis_NASFwtFace.cpp): tractions
 * and pressures, and heat flux and convection with their surfaces. */
void vis_NASFwt_Loads(vis_NASFwt* nas);
void vis_NASFwt_FaceLoads(vis_NASFwt* nas, int lid, struct vis_LCase* lc);
void vis_NASFwt_HeatLoads(vis_NASFwt* nas, int lid, struct vis_LCase* lc);
/* Initial conditions, restraints and multipoint constraints (vis_NASFwtCons.cpp). */
void vis_NASFwt_Initial(vis_NASFwt* nas);
void vis_NASFwt_Restraints(vis_NASFwt* nas);
void vis_NASFwt_Mpcs(vis_NASFwt* nas);

/* vsy_RealToField(value, width, 1, mode) right-aligned in `width` columns ("%8s", "%16s"). */
void vis_NASFwt_Text(FILE* fp, double value, int width, int mode);
/* A node's `featype` (0: no node, which the load and constraint cards pass over). */
int vis_NASFwt_NodeType(vis_NASFwt* nas, int node);

/* Calls visit(key, object) for each object of a model table in slot order. */
template <class T, class F>
void vis_NASFwt_Each(vsy_HashTable* tab, F visit)
{
    vsy_HashTableInitIter(tab);
    int key = 0;
    void* value = nullptr;
    for (;;) {
        vsy_HashTableNextIter(tab, &key, &value);
        if (!value) break;
        visit(key, static_cast<T*>(value));
    }
}

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

/* vis_ConnectGroupSample: one entity per cell of a regular grid (ElemGroup and NodeGroup oper
 * 20).
 *
 * The bounding box of the mesh is cut into cubes of edge cellsize, trunc((max - min) /
 * cellsize + 1) per axis. Entities are visited in id order, elements by their centroid; the
 * first in a cell takes it, and a later one takes it over when it is strictly closer to the
 * cell's centre, squared distances compared as 32-bit floats; the one it replaces is
 * unselected.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_Group.h"
#include "vsy_Error.h"

#include <cstdint>

typedef struct vis_ConnectGrid {
    double min[3];
    double size;
    int64_t n[3];
    int* cell;   /* chosen id per cell, 0 for none */
    float* dist; /* squared distance of the chosen one to the cell's centre */
} vis_ConnectGrid;

/* The grid over the mesh's extent; 0 after a report when there is none. */
static int vis_Connect_GridMake(vis_Connect* c, const char* name, int enttype, vis_ConnectGrid* g)
{
    double ext[6] = {0, 0, 0, 0, 0, 0};
    if (enttype == SYS_NODE) {
        float e[6] = {0, 0, 0, 0, 0, 0};
        vis_ConnectExtent(c, nullptr, e);
        for (int a = 0; a < 6; ++a) ext[a] = e[a];
    } else {
        vis_ConnectExtentdv(c, nullptr, ext);
    }
    g->size = c->grp.cellsize;
    if (!(g->size > 0.0)) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_OPERATION, "%s", "Cell size not set");
        return 0;
    }
    double total = 1.0;
    for (int a = 0; a < 3; ++a) {
        g->min[a] = ext[a];
        g->n[a] = (int64_t)((ext[a + 3] - ext[a]) / g->size + 1.0);
        total *= (double)g->n[a];
    }
    g->cell = total < 1.0e9 ? (int*)vsy_Malloc(sizeof(int) * (size_t)total) : nullptr;
    g->dist = g->cell ? (float*)vsy_Malloc(sizeof(float) * (size_t)total) : nullptr;
    if (!g->dist) {
        vsy_Free(g->cell);
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "%s", "Malloc vec");
        return 0;
    }
    for (int64_t k = 0; k < (int64_t)total; ++k) g->cell[k] = 0;
    return 1;
}

/* Offers entity id at x to its cell. */
static void vis_Connect_GridOffer(vis_ConnectGrid* g, vis_Group* dest, int id, const double* x)
{
    int64_t ijk[3];
    float d = 0.0f;
    for (int a = 0; a < 3; ++a) {
        int64_t i = (int64_t)((x[a] - g->min[a]) / g->size);
        ijk[a] = i < 0 ? 0 : (i >= g->n[a] ? g->n[a] - 1 : i);
        float delta = (float)x[a] - (float)((ijk[a] + 0.5) * g->size + g->min[a]);
        d += delta * delta;
    }
    int64_t index = (ijk[2] * g->n[1] + ijk[1]) * g->n[0] + ijk[0];
    int old = g->cell[index];
    if (old != 0 && !(d < g->dist[index])) return;
    if (old != 0) vis_GroupSetIndex(dest, old, 0);
    g->cell[index] = id;
    g->dist[index] = d;
    vis_GroupSetIndex(dest, id, 1);
}

void vis_Connect_GroupSample(vis_Connect* c, int enttype, vis_Group* source, const char* nodemark, vis_Group* dest)
{
    const char* name = enttype == SYS_NODE ? "vis_ConnectNodeGroup" : "vis_ConnectElemGroup";
    vis_ConnectGrid g;
    vis_ConnectGroupWork w;
    if (!vis_Connect_GroupWorkAlloc(c, name, &w)) return;
    if (!vis_Connect_GridMake(c, name, enttype, &g)) {
        vis_Connect_GroupWorkFree(&w);
        return;
    }
    int numnode = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &numnode);
    int n = enttype == SYS_NODE ? numnode : c->numelem;
    for (int id = 1; id <= n; ++id) {
        double x[3];
        if (enttype == SYS_NODE) {
            if (!nodemark[id] || !vis_Connect_GroupNodeMask(c, id)) continue;
            vis_ConnectCoordsdv(c, 1, &id, x);
        } else {
            if (!vis_Connect_GroupDefined(c, id) || !vis_Connect_GroupHas(source, id)) continue;
            vis_Connect_GroupCentroid(c, id, x, &w);
        }
        vis_Connect_GridOffer(&g, dest, id, x);
    }
    vsy_Free(g.cell);
    vsy_Free(g.dist);
    vis_Connect_GroupWorkFree(&w);
}

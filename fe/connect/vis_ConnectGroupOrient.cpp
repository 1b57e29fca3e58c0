/* vis_ConnectGroupOrient: shells with flipped elements (ElemGroup oper 17).
 *
 * Each triangle or quadrilateral not yet numbered starts a region and a depth-first walk over
 * the edges shared with exactly one other element. The neighbour's edge that leads back is
 * compared with this element's edge: two consistently oriented faces run a shared edge in
 * opposite directions, so equal first and last nodes mean that one of them is flipped; the
 * neighbour then takes the negative region number and is selected. Each element is judged only
 * against the element it was reached from.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_Group.h"
#include "vsy_Error.h"

static int vis_Connect_IsShell(vis_Connect* c, vis_Group* source, int id)
{
    int shape = -1, i = 0, j = 0, k = 0;
    vis_ConnectTopology(c, id, &shape, &i, &j, &k);
    return (shape == SYS_SHAPE_TRI || shape == SYS_SHAPE_QUAD) && vis_Connect_GroupHas(source, id);
}

/* Numbers the neighbours of element e across its edges and pushes them. */
static void vis_Connect_OrientStep(vis_Connect* c, vis_Group* source, vis_Group* dest, int e, int* region,
                                   int* stack, int* top, vis_ConnectGroupWork* w)
{
    int nedge = 0;
    vis_ConnectElemNum(c, SYS_EDGE, e, &nedge);
    for (int ed = 1; ed <= nedge; ++ed) {
        int num = 0;
        vis_Connect_GroupAdj(c, source, SYS_EDGE, e, ed, &num, w);
        if (num != 1) continue;
        int n = w->elems[0];
        int mine[2], theirs[2];
        if (region[n] || !vis_Connect_IsShell(c, source, n) || !vis_Connect_GroupEdgeEnds(c, e, ed, mine)) continue;
        int back = vis_Connect_GroupFindEdge(c, n, mine[0], mine[1]);
        if (!back || !vis_Connect_GroupEdgeEnds(c, n, back, theirs)) continue;
        int r = region[e] < 0 ? -region[e] : region[e];
        if (theirs[0] == mine[0] && theirs[1] == mine[1]) {
            region[n] = -r;
            vis_GroupSetIndex(dest, n, 1);
        } else {
            region[n] = r;
        }
        stack[(*top)++] = n;
    }
}

void vis_Connect_GroupOrient(vis_Connect* c, vis_Group* source, vis_Group* dest)
{
    vis_ConnectGroupWork w;
    if (!vis_Connect_GroupWorkAlloc(c, "vis_ConnectElemGroup", &w)) return;
    int* region = (int*)vsy_Malloc(sizeof(int) * (size_t)(c->numelem + 1));
    int* stack = (int*)vsy_Malloc(sizeof(int) * (size_t)(c->numelem + 1));
    if (!region || !stack) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectElemGroup", SYS_ERROR_MEMORY, "%s", "Malloc vec");
    } else {
        for (int id = 0; id <= c->numelem; ++id) region[id] = 0;
        int next = 0;
        for (int id = 1; id <= c->numelem; ++id) {
            if (region[id] || !vis_Connect_IsShell(c, source, id)) continue;
            region[id] = ++next;
            int top = 0;
            stack[top++] = id;
            while (top > 0) {
                int e = stack[--top];
                vis_Connect_OrientStep(c, source, dest, e, region, stack, &top, &w);
            }
        }
    }
    vsy_Free(region);
    vsy_Free(stack);
    vis_Connect_GroupWorkFree(&w);
}

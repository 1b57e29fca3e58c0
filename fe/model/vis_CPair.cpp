/* vis_CPair: contact pair parameters and sides; see vis_CPair.h. */
#include "vis_CPair.h"

#include "vis_Connect.h"
#include "vis_ElemTopology.h"
#include "vis_Group.h"
#include "vis_Model.h"
#include "vis_ModelStream.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"

#include <cfloat>
#include <climits>
#include <cstring>

vis_CPair* vis_CPairNew(void)
{
    return (vis_CPair*)vis_Model_NewRecord(sizeof(vis_CPair), "CPair");
}

/* Releases parameters and entities and resets every field but ierr. */
static void vis_CPair_Clear(vis_CPair* cp)
{
    vis_PropRef r = VIS_PROP_REF(cp, vis_CPairTable);
    vis_Prop_Clear(&r);
    vsy_Free(cp->ent[0]);
    vsy_Free(cp->ent[1]);
    int ierr = cp->ierr;
    vis_Connect* connect = cp->connect;
    std::memset(cp, 0, sizeof(*cp));
    cp->ierr = ierr;
    cp->connect = connect;
}

void vis_CPairDelete(vis_CPair* cp)
{
    if (!cp) return;
    vis_CPair_Clear(cp);
    vsy_Free(cp);
}

int vis_CPairError(vis_CPair* cp)
{
    return vis_Model_TakeError(cp ? &cp->ierr : nullptr);
}

void vis_CPairDef(vis_CPair* cp)
{
    if (!vis_Model_IsNull(cp, "vis_CPairDef")) vis_CPair_Clear(cp);
}

VIS_PROP_DEFINE_VALUES(vis_CPair, vis_CPairTable)

void vis_CPairSetType(vis_CPair* cp, int slavekind, int link)
{
    if (vis_Model_IsNull(cp, "vis_CPairSetType")) return;
    cp->slavekind = slavekind;
    cp->link = link;
}

void vis_CPairGetType(vis_CPair* cp, int* slavekind, int* link)
{
    if (vis_Model_IsNull(cp, "vis_CPairGetType")) return;
    if (slavekind) *slavekind = cp->slavekind;
    if (link) *link = cp->link;
}

/* Appends an entity to a side; a face (minno 1) or a node (no 0, minno 0). */
static void vis_CPair_Add(vis_CPair* cp, const char* name, int side, int index, int no, int minno, double weight)
{
    if (vis_Model_IsNull(cp, name)) return;
    if (index < 1 || no < minno) {
        vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_VALUE, "index= %d", index < 1 ? index : no);
        return;
    }
    if (cp->num[side] == cp->cap[side]) {
        int cap = cp->cap[side] < 8 ? 8 : 2 * cp->cap[side];
        vis_CPairEnt* ent = (vis_CPairEnt*)vsy_Realloc(cp->ent[side], sizeof(vis_CPairEnt) * (size_t)cap);
        if (!ent) {
            vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_MEMORY, "Realloc vec");
            return;
        }
        cp->ent[side] = ent;
        cp->cap[side] = cap;
    }
    vis_CPairEnt* e = &cp->ent[side][cp->num[side]++];
    e->index = index;
    e->no = no;
    e->weight = weight;
}

void vis_CPairSetSlaveNodedv(vis_CPair* cp, int node, double weight)
{
    vis_CPair_Add(cp, "vis_CPairSetSlaveNodedv", VIS_CPAIR_SLAVE, node, 0, 0, weight);
}

void vis_CPairSetSlaveElem(vis_CPair* cp, int elem, int face)
{
    vis_CPair_Add(cp, "vis_CPairSetSlaveElem", VIS_CPAIR_SLAVE, elem, face, 1, 1.0);
}

void vis_CPairSetMaster(vis_CPair* cp, int elem, int face)
{
    vis_CPair_Add(cp, "vis_CPairSetMaster", VIS_CPAIR_MASTER, elem, face, 1, 1.0);
}

static int vis_CPair_Side(vis_CPair* cp, const char* name, int side)
{
    if (vis_Model_IsNull(cp, name)) return 0;
    if (side == VIS_CPAIR_SLAVE || side == VIS_CPAIR_MASTER) return 1;
    vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_ENUM, "type= %d", side);
    return 0;
}

void vis_CPairMasterSlaveElemNum(vis_CPair* cp, int side, int* num)
{
    if (vis_CPair_Side(cp, "vis_CPairMasterSlaveElemNum", side)) *num = cp->num[side];
}

void vis_CPairMasterSlaveElem(vis_CPair* cp, int side, int i, int* index, int* no, double* weight)
{
    static const char* name = "vis_CPairMasterSlaveElem";
    if (!vis_CPair_Side(cp, name, side)) return;
    if (i < 1 || i > cp->num[side]) {
        vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_VALUE, "index= %d", i);
        return;
    }
    const vis_CPairEnt* e = &cp->ent[side][i - 1];
    if (index) *index = e->index;
    if (no) *no = e->no;
    if (weight) *weight = e->weight;
}

/* Marks in a group the entities of a side: nodes (child -1, entities of number 0) or element
 * faces or edges (child SYS_FACE or SYS_EDGE, entities of a number above 0). */
static void vis_CPair_Group(vis_CPair* cp, const char* name, int side, int child, vis_Group* group)
{
    int parent = child < 0 ? SYS_NODE : SYS_ELEM;
    if (!vis_Model_TableToGroup(&cp->ierr, name, nullptr, group, parent, child, nullptr)) return;
    vis_GroupClear(group);
    for (int i = 0; i < cp->num[side]; ++i) {
        const vis_CPairEnt* e = &cp->ent[side][i];
        if ((e->no > 0) != (child >= 0) || e->index > group->nument) continue;
        if (child >= 0) vis_GroupSetEntFlag(group, e->index, e->no, 1);
        else vis_GroupSetIndex(group, e->index, 1);
    }
}

void vis_CPairNodeGroup(vis_CPair* cp, vis_Group* group)
{
    if (!vis_Model_IsNull(cp, "vis_CPairNodeGroup"))
        vis_CPair_Group(cp, "vis_CPairNodeGroup", VIS_CPAIR_SLAVE, -1, group);
}

void vis_CPairFaceGroup(vis_CPair* cp, int side, vis_Group* group)
{
    if (vis_CPair_Side(cp, "vis_CPairFaceGroup", side)) vis_CPair_Group(cp, "vis_CPairFaceGroup", side, SYS_FACE, group);
}

void vis_CPairEdgeGroup(vis_CPair* cp, int side, vis_Group* group)
{
    if (vis_CPair_Side(cp, "vis_CPairEdgeGroup", side)) vis_CPair_Group(cp, "vis_CPairEdgeGroup", side, SYS_EDGE, group);
}

void vis_CPairSetObject(vis_CPair* cp, int objecttype, void* object)
{
    if (vis_Model_ObjectType(cp, "vis_CPairSetObject", objecttype, SYS_CONNECT)) cp->connect = (vis_Connect*)object;
}

void vis_CPairGetObject(vis_CPair* cp, int objecttype, void** object)
{
    if (vis_Model_ObjectType(cp, "vis_CPairGetObject", objecttype, SYS_CONNECT)) *object = cp->connect;
}

/* ---- stream form ---- */

#define VIS_CPAIR_STREAMVERSION 1

void vis_CPairWrite(vis_CPair* cp, FILE* stream)
{
    static const char* name = "vis_CPairWrite";
    if (vis_Model_IsNull(cp, name)) return;
    vis_ModelStream s;
    vis_ModelStream_Begin(&s, stream);
    vis_PropRef r = VIS_PROP_REF(cp, vis_CPairTable);
    vis_ModelStream_PutMark(&s, "VCPR");
    vis_ModelStream_PutInt(&s, VIS_CPAIR_STREAMVERSION);
    vis_Prop_PutParams(&r, &s);
    vis_ModelStream_PutInt(&s, cp->slavekind);
    vis_ModelStream_PutInt(&s, cp->link);
    for (int side = 0; side < 2; ++side) {
        vis_ModelStream_PutInt(&s, cp->num[side]);
        for (int i = 0; i < cp->num[side]; ++i) {
            const vis_CPairEnt* e = &cp->ent[side][i];
            vis_ModelStream_PutInt(&s, e->index);
            vis_ModelStream_PutInt(&s, e->no);
            vis_ModelStream_PutDoubles(&s, 1, &e->weight);
        }
    }
    vis_ModelStream_PutEnd(&s);
    vis_ModelStream_Report(&s, &cp->ierr, name);
}

/* Reads the entities of a side into a new array (null for none); null once the stream failed.
 * The array grows with the entities really read, so a corrupt count cannot over-allocate. */
static vis_CPairEnt* vis_CPair_GetSide(vis_ModelStream* s, int side, int* num)
{
    vis_CPairEnt* ent = nullptr;
    int n = 0, cap = 0;
    vis_ModelStream_GetIntIn(s, &n, 0, INT_MAX / 2, "Stream count");
    for (int i = 0; i < n && !s->ierr; ++i) {
        if (i == cap) {
            cap = cap < 8 ? 8 : 2 * cap;
            vis_CPairEnt* grown = (vis_CPairEnt*)vsy_Realloc(ent, sizeof(vis_CPairEnt) * (size_t)cap);
            if (!grown) {
                vis_ModelStream_Fail(s, SYS_ERROR_MEMORY, "Realloc vec");
                break;
            }
            ent = grown;
        }
        vis_ModelStream_GetIntIn(s, &ent[i].index, 1, INT_MAX, "index");
        vis_ModelStream_GetIntIn(s, &ent[i].no, side == VIS_CPAIR_SLAVE ? 0 : 1, INT_MAX, "index");
        vis_ModelStream_GetDouble(s, &ent[i].weight);
    }
    if (s->ierr) {
        vsy_Free(ent);
        return nullptr;
    }
    *num = n;
    return ent;
}

void vis_CPairRead(vis_CPair* cp, FILE* stream)
{
    static const char* name = "vis_CPairRead";
    if (vis_Model_IsNull(cp, name)) return;
    vis_ModelStream s;
    vis_ModelStream_Begin(&s, stream);
    vis_CPair t;
    std::memset(&t, 0, sizeof(t));
    vis_PropRef tr = VIS_PROP_REF(&t, vis_CPairTable);
    vis_ModelStream_GetMark(&s, "VCPR");
    vis_ModelStream_GetVersion(&s, VIS_CPAIR_STREAMVERSION);
    vis_Prop_GetParams(&tr, &s);
    vis_ModelStream_GetInt(&s, &t.slavekind);
    vis_ModelStream_GetInt(&s, &t.link);
    for (int side = 0; side < 2 && !s.ierr; ++side) t.ent[side] = vis_CPair_GetSide(&s, side, &t.num[side]);
    vis_ModelStream_GetEnd(&s);
    t.cap[0] = t.num[0];
    t.cap[1] = t.num[1];
    if (!vis_ModelStream_Report(&s, &cp->ierr, name)) {
        vis_CPair_Clear(&t);
        return;
    }
    vis_Connect* connect = cp->connect;
    int ierr = cp->ierr;
    vis_CPair_Clear(cp);
    *cp = t;
    cp->ierr = ierr;
    cp->connect = connect;
}

/* ---- nearest master face ---- */

static void vis_CPair_Sub(const double* a, const double* b, double* d)
{
    for (int i = 0; i < 3; ++i) d[i] = a[i] - b[i];
}

/* Squared distance from p to the segment a-b. */
static double vis_CPair_SegDist2(const double* p, const double* a, const double* b)
{
    double ab[3], ap[3], d[3];
    vis_CPair_Sub(b, a, ab);
    vis_CPair_Sub(p, a, ap);
    double len2 = vis_Model_Dot(ab, ab), t = len2 > 0.0 ? vis_Model_Dot(ap, ab) / len2 : 0.0;
    t = t < 0.0 ? 0.0 : (t > 1.0 ? 1.0 : t);
    for (int i = 0; i < 3; ++i) d[i] = ap[i] - t * ab[i];
    return vis_Model_Dot(d, d);
}

/* Squared distance from p to the triangle a b c: to its plane when p projects inside it (on
 * the inner side of all three edges), otherwise to the nearest edge. */
static double vis_CPair_TriDist2(const double* p, const double* a, const double* b, const double* c)
{
    const double* v[4] = {a, b, c, a};
    double ab[3], ac[3], n[3], e[3], q[3], s[3];
    vis_CPair_Sub(b, a, ab);
    vis_CPair_Sub(c, a, ac);
    vis_Model_Cross(ab, ac, n);
    double nn = vis_Model_Dot(n, n);
    int inside = nn > 0.0;
    for (int k = 0; k < 3 && inside; ++k) {
        vis_CPair_Sub(v[k + 1], v[k], e);
        vis_CPair_Sub(p, v[k], q);
        vis_Model_Cross(e, q, s);
        inside = vis_Model_Dot(s, n) >= 0.0;
    }
    if (inside) {
        vis_CPair_Sub(p, a, q);
        double h = vis_Model_Dot(q, n);
        return h * h / nn;
    }
    double best = DBL_MAX;
    for (int k = 0; k < 3; ++k) {
        double d = vis_CPair_SegDist2(p, v[k], v[k + 1]);
        if (d < best) best = d;
    }
    return best;
}

/* Squared distance from p to face `no` of an element; -1 when the element is not in the mesh
 * or has no such face of three corners or more. */
static double vis_CPair_FaceDist2(vis_Connect* connect, int numelem, int elem, int no, const double* p)
{
    if (elem < 1 || elem > numelem) return -1.0;
    int shape = -1, maxi = 0, maxj = 0, maxk = 0, nface = 0, n = 0, num = 0;
    int pos[VIS_ELEM_MAXFACENODE], node[VIS_ELEM_MAXFACENODE];
    vis_ConnectTopology(connect, elem, &shape, &maxi, &maxj, &maxk);
    vis_ConnectNumElemNode(connect, elem, &num);
    vis_ElemFaceCount(shape, shape == SYS_SHAPE_POLYGON ? 1 : maxk, &nface);
    if (shape < 0 || no > nface || (shape >= SYS_SHAPE_POLYGON && num > VIS_ELEM_MAXFACENODE)) return -1.0;
    vis_ElemFaceCorners(shape, maxi, maxj, maxk, no - 1, &n, pos);
    if (n < 3) return -1.0;
    for (int k = 0; k < n; ++k) vis_ConnectIndElemNode(connect, elem, pos[k], &node[k]);
    double x[3 * VIS_ELEM_MAXFACENODE], best = DBL_MAX;
    vis_ConnectCoordsdv(connect, n, node, x);
    for (int k = 1; k + 1 < n; ++k) {
        double d = vis_CPair_TriDist2(p, x, x + 3 * k, x + 3 * (k + 1));
        if (d < best) best = d;
    }
    return best;
}

void vis_CPairSlaveNodeMaster(vis_CPair* cp, int node, int* master)
{
    static const char* name = "vis_CPairSlaveNodeMaster";
    if (vis_Model_IsNull(cp, name)) return;
    if (!cp->connect) {
        vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_OPERATION, "Connect object not set");
        return;
    }
    int numnode = 0, numelem = 0, found = 0;
    vis_ConnectGetInteger(cp->connect, VIS_CONNECT_NUMNODE, &numnode);
    vis_ConnectGetInteger(cp->connect, VIS_CONNECT_NUMELEM, &numelem);
    if (node < 1 || node > numnode) {
        vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_VALUE, "index= %d", node);
        return;
    }
    double p[3], best = DBL_MAX;
    vis_ConnectCoordsdv(cp->connect, 1, &node, p);
    for (int i = 0; i < cp->num[VIS_CPAIR_MASTER]; ++i) {
        const vis_CPairEnt* e = &cp->ent[VIS_CPAIR_MASTER][i];
        double d = vis_CPair_FaceDist2(cp->connect, numelem, e->index, e->no, p);
        if (d < 0.0) {
            vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_VALUE, "index= %d", e->index);
            return;
        }
        if (d < best) {
            best = d;
            found = i + 1;
        }
    }
    *master = found;
}

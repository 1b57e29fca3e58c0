/* vis_ElemDat: sparse per-element values; see vis_ElemDat.h. */
#include "vis_ElemDat.h"

#include "vis_ElemGeom.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_Group.h"
#include "vis_Model.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"
#include "vsy_RedPre.h"

typedef struct vis_ElemDatRec {
    int count;
    double values[1]; /* count values */
} vis_ElemDatRec;

vis_ElemDat* vis_ElemDatNew(void)
{
    vis_ElemDat* ed = (vis_ElemDat*)vis_Model_NewRecord(sizeof(vis_ElemDat), "ElemDat");
    if (ed) ed->precision = SYS_PRECISION_FLOAT;
    return ed;
}

void vis_ElemDatDelete(vis_ElemDat* ed)
{
    if (!ed) return;
    vsy_HashTableDeleteValues(ed->tab);
    vsy_Free(ed);
}

int vis_ElemDatError(vis_ElemDat* ed)
{
    return vis_Model_TakeError(ed ? &ed->ierr : nullptr);
}

void vis_ElemDatDef(vis_ElemDat* ed, int nument, int type, int nval)
{
    if (vis_Model_IsNull(ed, "vis_ElemDatDef")) return;
    if (nument < 0) {
        vsy_ErrorRecord(&ed->ierr, "vis_ElemDatDef", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    if (nval < 1) {
        vsy_ErrorRecord(&ed->ierr, "vis_ElemDatDef", SYS_ERROR_VALUE, "nval= %d", nval);
        return;
    }
    vsy_HashTableDeleteValues(ed->tab);
    ed->tab = nullptr;
    ed->nument = nument;
    ed->type = type;
    ed->nval = nval;
}

void vis_ElemDatSetDatadv(vis_ElemDat* ed, int element, int n, const double* values)
{
    static const char* name = "vis_ElemDatSetDatadv";
    if (vis_Model_IsNull(ed, name)) return;
    if (ed->entity != 0) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_OPERATION, "entity= %d", ed->entity);
        return;
    }
    if (element < 1 || element > ed->nument) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_VALUE, "index= %d", element);
        return;
    }
    if (n < 1 || n > ed->nval) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_VALUE, "nval= %d", n);
        return;
    }
    vis_ElemDatRec* rec = (vis_ElemDatRec*)vis_Model_Calloc(1, sizeof(vis_ElemDatRec) + sizeof(double) * (size_t)n);
    if (!rec) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_MEMORY, "index= %d", element);
        return;
    }
    rec->count = n;
    for (int i = 0; i < n; ++i) rec->values[i] = values[i];
    void* old = vis_Model_TableGet(ed->tab, element);
    if (!vis_Model_TablePut(&ed->ierr, name, &ed->tab, element, rec)) {
        vsy_Free(rec);
        return;
    }
    vsy_Free(old);
}

void vis_ElemDatData(vis_ElemDat* ed, int element, int n, double* values)
{
    if (vis_Model_IsNull(ed, "vis_ElemDatData") || ed->entity != 0) return;
    vis_ElemDatRec* rec = (vis_ElemDatRec*)vis_Model_TableGet(ed->tab, element);
    if (!rec) return;
    for (int i = 0; i < n && i < rec->count; ++i) values[i] = rec->values[i];
}

/* Face and edge data: an element's record is its flag word, its value count and the vectors of
 * the flagged faces or edges in ascending order, each node's three in node order. */
typedef struct vis_ElemDatEnt {
    unsigned flags;
    int count;
    double values[1];
} vis_ElemDatEnt;

static int vis_ElemDat_IsEnt(vis_ElemDat* ed, const char* name)
{
    if (ed->entity == 0) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_OPERATION, "entity= %d", ed->entity);
        return 0;
    }
    if (!ed->gf) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
        return 0;
    }
    return 1;
}

/* Faces or edges of an element, and the nodes of one of them, through the mesh. */
static int vis_ElemDat_NumEnt(const vis_ElemDat* ed, int element)
{
    vis_GridFunElemNum_t num = (vis_GridFunElemNum_t)ed->gf->fun[VIS_GRIDFUN_ELEMNUM];
    int n = 0;
    if (num) num(ed->gf->obj, ed->entity, element, &n);
    return n < 0 ? 0 : (n > 32 ? 32 : n);
}

static int vis_ElemDat_EntNodes(const vis_ElemDat* ed, int element, int no, int* nodes)
{
    vis_GridFunElemCon_t con = (vis_GridFunElemCon_t)ed->gf->fun[VIS_GRIDFUN_ELEMCON];
    int n = 0;
    if (con) con(ed->gf->obj, ed->entity, element, no, &n, nodes);
    return n;
}

/* Index of the first value of face or edge `no` in a record with flag word `flags`. */
static int vis_ElemDat_Offset(const vis_ElemDat* ed, int element, unsigned flags, int no)
{
    int at = 0, nodes[VIS_ELEM_MAXNODE];
    for (int k = 1; k < no; ++k)
        if (flags >> (k - 1) & 1u) at += 3 * vis_ElemDat_EntNodes(ed, element, k, nodes);
    return at;
}

static int vis_ElemDat_CheckEnt(vis_ElemDat* ed, const char* name, int element, int no)
{
    if (element < 1 || element > ed->nument) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_VALUE, "index= %d", element);
        return 0;
    }
    if (no < 1 || no > vis_ElemDat_NumEnt(ed, element)) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_VALUE, "no= %d", no);
        return 0;
    }
    return 1;
}

void vis_ElemDatSetEntdv(vis_ElemDat* ed, int element, int no, const double* vectors)
{
    static const char* name = "vis_ElemDatSetEntdv";
    if (vis_Model_IsNull(ed, name) || !vis_ElemDat_IsEnt(ed, name) || !vis_ElemDat_CheckEnt(ed, name, element, no))
        return;
    int nodes[VIS_ELEM_MAXNODE];
    const int add = 3 * vis_ElemDat_EntNodes(ed, element, no, nodes);
    vis_ElemDatEnt* old = (vis_ElemDatEnt*)vis_Model_TableGet(ed->tab, element);
    const unsigned oldflags = old ? old->flags : 0u, bit = 1u << (no - 1);
    const int at = vis_ElemDat_Offset(ed, element, oldflags, no);
    const int had = (oldflags & bit) ? add : 0, count = (old ? old->count : 0) - had + add;
    vis_ElemDatEnt* rec = (vis_ElemDatEnt*)vis_Model_Calloc(1, sizeof(vis_ElemDatEnt) + sizeof(double) * (size_t)count);
    if (!rec) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_MEMORY, "index= %d", element);
        return;
    }
    rec->flags = oldflags | bit;
    rec->count = count;
    for (int i = 0; i < at; ++i) rec->values[i] = old->values[i];
    for (int i = 0; i < add; ++i) rec->values[at + i] = vectors[i];
    for (int i = at + add; i < count; ++i) rec->values[i] = old->values[i - add + had];
    if (!vis_Model_TablePut(&ed->ierr, name, &ed->tab, element, rec)) {
        vsy_Free(rec);
        return;
    }
    vsy_Free(old);
}

int vis_ElemDatEntdv(vis_ElemDat* ed, int element, int no, double* vectors)
{
    static const char* name = "vis_ElemDatEntdv";
    if (vis_Model_IsNull(ed, name) || !vis_ElemDat_IsEnt(ed, name) || !vis_ElemDat_CheckEnt(ed, name, element, no))
        return 0;
    vis_ElemDatEnt* rec = (vis_ElemDatEnt*)vis_Model_TableGet(ed->tab, element);
    if (!rec || !(rec->flags >> (no - 1) & 1u)) return 0;
    int nodes[VIS_ELEM_MAXNODE];
    const int n = 3 * vis_ElemDat_EntNodes(ed, element, no, nodes), at = vis_ElemDat_Offset(ed, element, rec->flags, no);
    for (int i = 0; i < n; ++i) vectors[i] = rec->values[at + i];
    return 1;
}

int vis_ElemDatFlags(vis_ElemDat* ed, int element)
{
    if (vis_Model_IsNull(ed, "vis_ElemDatFlags") || ed->entity == 0) return 0;
    vis_ElemDatEnt* rec = (vis_ElemDatEnt*)vis_Model_TableGet(ed->tab, element);
    return rec ? (int)rec->flags : 0;
}

void vis_ElemDatPre(vis_ElemDat* ed, int precision)
{
    if (vis_Model_IsNull(ed, "vis_ElemDatPre")) return;
    if (precision != SYS_PRECISION_FLOAT && precision != SYS_PRECISION_DOUBLE) {
        vsy_ErrorRecord(&ed->ierr, "vis_ElemDatPre", SYS_ERROR_ENUM, "precision= %d", precision);
        return;
    }
    ed->precision = precision;
}

void vis_ElemDatSetObject(vis_ElemDat* ed, int objecttype, void* object)
{
    if (vis_Model_ObjectType(ed, "vis_ElemDatSetObject", objecttype, SYS_GRIDFUN)) ed->gf = (vis_GridFun*)object;
}

void vis_ElemDatGetObject(vis_ElemDat* ed, int objecttype, void** object)
{
    if (vis_Model_ObjectType(ed, "vis_ElemDatGetObject", objecttype, SYS_GRIDFUN)) *object = ed->gf;
}

void vis_ElemDatSetParami(vis_ElemDat* ed, int type, int value)
{
    static const char* name = "vis_ElemDatSetParami";
    if (vis_Model_IsNull(ed, name)) return;
    if (type != VIS_ELEMDAT_ENTITY) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    if (value != 0 && value != SYS_FACE && value != SYS_EDGE) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_VALUE, "iparam= %d", value);
        return;
    }
    /* Records of one layout cannot be read as the other's: a change drops the data. */
    if (value != ed->entity) {
        vsy_HashTableDeleteValues(ed->tab);
        ed->tab = nullptr;
    }
    ed->entity = value;
}

void vis_ElemDatSetData(vis_ElemDat* ed, int element, int n, const float* values)
{
    if (vis_Model_IsNull(ed, "vis_ElemDatSetData")) return;
    if (n < 1 || n > ed->nval) {
        vsy_ErrorRecord(&ed->ierr, "vis_ElemDatSetData", SYS_ERROR_VALUE, "nval= %d", n);
        return;
    }
    double* v = (double*)vis_Model_Calloc((size_t)n, sizeof(double));
    if (!v) {
        vsy_ErrorRecord(&ed->ierr, "vis_ElemDatSetData", SYS_ERROR_MEMORY, "index= %d", element);
        return;
    }
    vis_Model_ToDouble(n, values, v);
    vis_ElemDatSetDatadv(ed, element, n, v);
    vsy_Free(v);
}

void vis_ElemDatNormal(vis_ElemDat* ed)
{
    static const char* name = "vis_ElemDatNormal";
    if (vis_Model_IsNull(ed, name) || !vis_ElemDat_IsEnt(ed, name)) return;
    if (ed->entity != SYS_FACE) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_OPERATION, "entity= %d", ed->entity);
        return;
    }
    vis_GridFun* gf = ed->gf;
    vis_GridFunGetInteger_t count = (vis_GridFunGetInteger_t)gf->fun[VIS_GRIDFUN_GETINTEGER];
    vis_GridFunTopology_t topo = (vis_GridFunTopology_t)gf->fun[VIS_GRIDFUN_TOPOLOGY];
    vis_GridFunCoords_t coords = (vis_GridFunCoords_t)gf->fun[VIS_GRIDFUN_COORDS];
    int numelem = 0;
    if (count) count(gf->obj, SYS_ELEM, &numelem);
    if (!topo || !coords) return;
    for (int e = 1; e <= numelem && e <= ed->nument; ++e) {
        int shape = -1, maxi = 0, maxj = 0, maxk = 0, nodes[VIS_ELEM_MAXNODE];
        topo(gf->obj, e, &shape, &maxi, &maxj, &maxk);
        if (shape != SYS_SHAPE_TRI && shape != SYS_SHAPE_QUAD && shape != SYS_SHAPE_POLYGON) continue;
        const int n = vis_ElemDat_EntNodes(ed, e, 1, nodes);
        if (n < 3 || n > VIS_ELEM_MAXNODE) continue;
        float x[3 * VIS_ELEM_MAXNODE], normal[3 * VIS_ELEM_MAXNODE];
        double v[3 * VIS_ELEM_MAXNODE];
        coords(gf->obj, n, nodes, x);
        vis_ElemNormal(shape, shape == SYS_SHAPE_POLYGON ? n : maxi, maxj, x, normal);
        vis_Model_ToDouble(3 * n, normal, v);
        vis_ElemDatSetEntdv(ed, e, 1, v);
    }
}

/* Marks a group from the records: element flags, or the entity flags of each record. */
static void vis_ElemDat_Group(vis_ElemDat* ed, const char* name, vis_Group* group, int child)
{
    if (vis_Model_IsNull(ed, name) || vis_Model_IsNull(group, name)) return;
    int nument = 0, parent = 0, gchild = 0;
    vis_GroupInq(group, &nument, &parent, &gchild);
    if (parent != SYS_ELEM) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_ENUM, "parenttype= %d", parent);
        return;
    }
    if (gchild != child || (child != 0 && ed->entity != child)) {
        vsy_ErrorRecord(&ed->ierr, name, SYS_ERROR_ENUM, "childtype= %d", gchild);
        return;
    }
    vsy_HashTableInitIter(ed->tab);
    for (;;) {
        int key = 0;
        void* value = nullptr;
        vsy_HashTableNextIter(ed->tab, &key, &value);
        if (!value) break;
        if (key < 1 || key > nument) continue;
        if (child == 0) {
            int flags = 0;
            vis_GroupGetIndex(group, key, &flags);
            vis_GroupSetIndex(group, key, flags | 1);
            continue;
        }
        const unsigned bits = ((vis_ElemDatEnt*)value)->flags;
        for (int no = 1; no <= 32; ++no)
            if (bits >> (no - 1) & 1u) vis_GroupSetEntFlag(group, key, no, 1);
    }
}

void vis_ElemDatElemGroup(vis_ElemDat* ed, vis_Group* group)
{
    vis_ElemDat_Group(ed, "vis_ElemDatElemGroup", group, 0);
}

void vis_ElemDatFaceGroup(vis_ElemDat* ed, vis_Group* group)
{
    vis_ElemDat_Group(ed, "vis_ElemDatFaceGroup", group, SYS_FACE);
}

void vis_ElemDatEdgeGroup(vis_ElemDat* ed, vis_Group* group)
{
    vis_ElemDat_Group(ed, "vis_ElemDatEdgeGroup", group, SYS_EDGE);
}

void vis_ElemDatWrite(vis_ElemDat* ed, FILE* stream)
{
    if (vis_Model_IsNull(ed, "vis_ElemDatWrite")) return;
    FILE* fp = stream ? stream : stdout;
    for (int e = 1; e <= ed->nument; ++e) {
        void* value = vis_Model_TableGet(ed->tab, e);
        if (!value) continue;
        if (ed->entity == 0) {
            const vis_ElemDatRec* rec = (const vis_ElemDatRec*)value;
            fprintf(fp, "%8d", e);
            for (int i = 0; i < rec->count; ++i) fprintf(fp, " %.6e", rec->values[i]);
            fputc('\n', fp);
            continue;
        }
        const vis_ElemDatEnt* rec = (const vis_ElemDatEnt*)value;
        int at = 0, nodes[VIS_ELEM_MAXNODE];
        for (int no = 1; no <= 32; ++no) {
            if (!(rec->flags >> (no - 1) & 1u)) continue;
            const int n = ed->gf ? 3 * vis_ElemDat_EntNodes(ed, e, no, nodes) : 0;
            fprintf(fp, "%8d %3d", e, no);
            for (int i = 0; i < n && at + i < rec->count; ++i) fprintf(fp, " %.6e", rec->values[at + i]);
            fputc('\n', fp);
            at += n;
        }
    }
}

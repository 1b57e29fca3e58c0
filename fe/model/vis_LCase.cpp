/* vis_LCase: sparse loads by node and element; see vis_LCase.h. */
#include "vis_LCase.h"

#include "vis_Group.h"
#include "vis_Model.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vis_ElemTopology.h"
#include "vsy_HashTable.h"

#include <cstring>

/* Scalars per value of concentrated types 1 to 6. */
static const int vis_LCaseConcWidth[7] = {0, 3, 3, 1, 1, 1, 3};
/* Scalars per corner of distributed types 1 to 6; 0 marks a type that is not used. */
static const int vis_LCaseDistWidth[7] = {0, 3, 1, 0, 0, 1, 2};
#define VIS_LCASE_MAXDISTVAL 12 /* 4 corners of 3 scalars */

typedef struct vis_LCaseDistRec {
    int flags;
    double values[1]; /* per number, corners times scalars */
} vis_LCaseDistRec;

typedef struct vis_LCaseElemRec {
    int n;
    double values[VIS_LCASE_MAXELEMVAL];
} vis_LCaseElemRec;

vis_LCase* vis_LCaseNew(void)
{
    vis_LCase* lc = (vis_LCase*)vis_Model_NewRecord(sizeof(vis_LCase), "LCase");
    if (lc) lc->factor = 1.0;
    return lc;
}

void vis_LCaseClear(vis_LCase* lc)
{
    if (vis_Model_IsNull(lc, "vis_LCaseClear")) return;
    int ierr = lc->ierr;
    vis_TCurve* tcurve = lc->tcurve;
    double factor = lc->factor;
    for (int t = 1; t <= 6; ++t) {
        vsy_HashTableDeleteValues(lc->conc[t]);
        vsy_HashTableDeleteValues(lc->dist[0][t]);
        vsy_HashTableDeleteValues(lc->dist[1][t]);
    }
    for (int t = 1; t <= 3; ++t) vsy_HashTableDeleteValues(lc->elem[t]);
    std::memset(lc, 0, sizeof(*lc));
    lc->ierr = ierr;
    lc->tcurve = tcurve;
    lc->factor = factor;
}

void vis_LCaseDelete(vis_LCase* lc)
{
    if (!lc) return;
    vis_LCaseClear(lc);
    vsy_Free(lc);
}

int vis_LCaseError(vis_LCase* lc)
{
    return vis_Model_TakeError(lc ? &lc->ierr : nullptr);
}

static int vis_LCase_Index(vis_LCase* lc, const char* name, int index)
{
    if (index >= 1) return 1;
    vsy_ErrorRecord(&lc->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
    return 0;
}

static int vis_LCase_Type(vis_LCase* lc, const char* name, int type, int last)
{
    if (type >= 1 && type <= last) return 1;
    vsy_ErrorRecord(&lc->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    return 0;
}

/* ---- concentrated ---- */

void vis_LCaseConcMax(vis_LCase* lc, int type, int* max)
{
    if (vis_Model_IsNull(lc, "vis_LCaseConcMax")) return;
    if (!vis_LCase_Type(lc, "vis_LCaseConcMax", type, VIS_LCASE_FORCEMOMENT)) return;
    if (type == VIS_LCASE_FORCEMOMENT) *max = lc->concmax[1] > lc->concmax[2] ? lc->concmax[1] : lc->concmax[2];
    else *max = lc->concmax[type];
}

void vis_LCaseConcFlag(vis_LCase* lc, int index, int type, int* flag)
{
    static const char* name = "vis_LCaseConcFlag";
    if (vis_Model_IsNull(lc, name)) return;
    if (!vis_LCase_Index(lc, name, index) || !vis_LCase_Type(lc, name, type, VIS_LCASE_FORCEMOMENT)) return;
    if (type == VIS_LCASE_FORCEMOMENT)
        *flag = vis_Model_TableGet(lc->conc[1], index) || vis_Model_TableGet(lc->conc[2], index);
    else
        *flag = vis_Model_TableGet(lc->conc[type], index) != nullptr;
}

void vis_LCaseConcNum(vis_LCase* lc, int type, int* num)
{
    if (vis_Model_IsNull(lc, "vis_LCaseConcNum")) return;
    if (!vis_LCase_Type(lc, "vis_LCaseConcNum", type, VIS_LCASE_FORCEMOMENT)) return;
    if (type != VIS_LCASE_FORCEMOMENT) {
        *num = vis_Model_TableCount(lc->conc[type]);
        return;
    }
    int max = 0, n = 0;
    vis_LCaseConcMax(lc, type, &max);
    for (int i = 1; i <= max; ++i) {
        int flag = 0;
        vis_LCaseConcFlag(lc, i, type, &flag);
        n += flag;
    }
    *num = n;
}

void vis_LCaseConcType(vis_LCase* lc, int index, int* mask)
{
    if (vis_Model_IsNull(lc, "vis_LCaseConcType") || !vis_LCase_Index(lc, "vis_LCaseConcType", index)) return;
    *mask = 0;
    for (int t = 1; t <= 6; ++t)
        if (vis_Model_TableGet(lc->conc[t], index)) *mask |= 1 << (t - 1);
}

void vis_LCaseConcdv(vis_LCase* lc, int index, int type, double* v)
{
    static const char* name = "vis_LCaseConcdv";
    if (vis_Model_IsNull(lc, name)) return;
    if (!vis_LCase_Index(lc, name, index) || !vis_LCase_Type(lc, name, type, 6)) return;
    const double* rec = (const double*)vis_Model_TableGet(lc->conc[type], index);
    for (int i = 0; i < vis_LCaseConcWidth[type]; ++i) v[i] = rec ? rec[i] : 0.0;
}

void vis_LCaseConc(vis_LCase* lc, int index, int type, float* v)
{
    double d[3] = {0.0, 0.0, 0.0};
    vis_LCaseConcdv(lc, index, type, d);
    if (lc && type >= 1 && type <= 6 && index >= 1) vis_Model_ToFloat(vis_LCaseConcWidth[type], d, v);
}

/* Sets (add 0) or accumulates (add 1) a concentrated value. */
static void vis_LCase_ConcPut(vis_LCase* lc, const char* name, int index, int type, const double* v, int add)
{
    if (vis_Model_IsNull(lc, name)) return;
    if (!vis_LCase_Index(lc, name, index) || !vis_LCase_Type(lc, name, type, 6)) return;
    int w = vis_LCaseConcWidth[type];
    double* rec = (double*)vis_Model_TableRecord(&lc->ierr, name, &lc->conc[type], index, sizeof(double) * (size_t)w,
                                                 &lc->concmax[type]);
    if (!rec) return;
    for (int i = 0; i < w; ++i) rec[i] = add ? rec[i] + v[i] : v[i];
}

void vis_LCaseSetConcdv(vis_LCase* lc, int index, int type, const double* v)
{
    vis_LCase_ConcPut(lc, "vis_LCaseSetConcdv", index, type, v, 0);
}

void vis_LCaseAddConcdv(vis_LCase* lc, int index, int type, const double* v)
{
    vis_LCase_ConcPut(lc, "vis_LCaseAddConcdv", index, type, v, 1);
}

void vis_LCaseSetConc(vis_LCase* lc, int index, int type, const float* v)
{
    double d[3] = {0.0, 0.0, 0.0};
    vis_Model_ToDouble((type >= 1 && type <= 6) ? vis_LCaseConcWidth[type] : 0, v, d);
    vis_LCase_ConcPut(lc, "vis_LCaseSetConc", index, type, d, 0);
}

void vis_LCaseAddConc(vis_LCase* lc, int index, int type, const float* v)
{
    double d[3] = {0.0, 0.0, 0.0};
    vis_Model_ToDouble((type >= 1 && type <= 6) ? vis_LCaseConcWidth[type] : 0, v, d);
    vis_LCase_ConcPut(lc, "vis_LCaseAddConc", index, type, d, 1);
}

/* ---- distributed ---- */

/* Checks entity, type and number (no 0: not checked); the slot of the entity or -1. */
static int vis_LCase_DistCheck(vis_LCase* lc, const char* name, int entity, int type, int no)
{
    if (entity != 2 && entity != 3) {
        vsy_ErrorRecord(&lc->ierr, name, SYS_ERROR_ENUM, "enttype= %d", entity);
        return -1;
    }
    if (type < 1 || type > 6 || vis_LCaseDistWidth[type] == 0) {
        vsy_ErrorRecord(&lc->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return -1;
    }
    int maxno = entity == 3 ? 6 : 12;
    if (no != 0 && (no < 1 || no > maxno)) {
        vsy_ErrorRecord(&lc->ierr, name, SYS_ERROR_VALUE, "no= %d", no);
        return -1;
    }
    return entity - 2;
}

/* Scalars of one number: corners (4 on a face, 2 on an edge) times the type's width. */
static int vis_LCase_DistWidth(int ent, int type)
{
    return (ent == 1 ? 4 : 2) * vis_LCaseDistWidth[type];
}

void vis_LCaseDistMax(vis_LCase* lc, int entity, int type, int* max)
{
    if (vis_Model_IsNull(lc, "vis_LCaseDistMax")) return;
    int ent = vis_LCase_DistCheck(lc, "vis_LCaseDistMax", entity, type, 0);
    if (ent >= 0) *max = lc->distmax[ent][type];
}

void vis_LCaseDistFlag(vis_LCase* lc, int entity, int index, int type, int* flags)
{
    static const char* name = "vis_LCaseDistFlag";
    if (vis_Model_IsNull(lc, name) || !vis_LCase_Index(lc, name, index)) return;
    int ent = vis_LCase_DistCheck(lc, name, entity, type, 0);
    if (ent < 0) return;
    const vis_LCaseDistRec* rec = (const vis_LCaseDistRec*)vis_Model_TableGet(lc->dist[ent][type], index);
    *flags = rec ? rec->flags : 0;
}

void vis_LCaseDistdv(vis_LCase* lc, int entity, int index, int no, int type, double* v)
{
    static const char* name = "vis_LCaseDistdv";
    if (vis_Model_IsNull(lc, name) || !vis_LCase_Index(lc, name, index)) return;
    int ent = vis_LCase_DistCheck(lc, name, entity, type, no);
    if (ent < 0) return;
    int w = vis_LCase_DistWidth(ent, type);
    const vis_LCaseDistRec* rec = (const vis_LCaseDistRec*)vis_Model_TableGet(lc->dist[ent][type], index);
    int on = rec && (rec->flags & (1 << (no - 1)));
    for (int i = 0; i < w; ++i) v[i] = on ? rec->values[(no - 1) * w + i] : 0.0;
}

void vis_LCaseDist(vis_LCase* lc, int entity, int index, int no, int type, float* v)
{
    double d[VIS_LCASE_MAXDISTVAL] = {0.0};
    vis_LCaseDistdv(lc, entity, index, no, type, d);
    int ok = lc && index >= 1 && (entity == 2 || entity == 3) && type >= 1 && type <= 6;
    if (ok) vis_Model_ToFloat(vis_LCase_DistWidth(entity - 2, type), d, v);
}

/* Sets, adds, or adds a centre value to every corner (mode 0, 1, 2). */
static void vis_LCase_DistPut(vis_LCase* lc, const char* name, int entity, int index, int no, int type,
                              const double* v, int mode)
{
    if (vis_Model_IsNull(lc, name) || !vis_LCase_Index(lc, name, index)) return;
    int ent = vis_LCase_DistCheck(lc, name, entity, type, no);
    if (ent < 0) return;
    int w = vis_LCase_DistWidth(ent, type), per = vis_LCaseDistWidth[type], nno = ent == 1 ? 6 : 12;
    size_t size = sizeof(vis_LCaseDistRec) + sizeof(double) * (size_t)(nno * w);
    vis_LCaseDistRec* rec = (vis_LCaseDistRec*)vis_Model_TableRecord(&lc->ierr, name, &lc->dist[ent][type], index, size,
                                                                     &lc->distmax[ent][type]);
    if (!rec) return;
    double* dst = &rec->values[(no - 1) * w];
    if (!(rec->flags & (1 << (no - 1)))) std::memset(dst, 0, sizeof(double) * (size_t)w);
    for (int i = 0; i < w; ++i) {
        double add = mode == 2 ? v[i % per] : v[i];
        dst[i] = mode == 0 ? add : dst[i] + add;
    }
    rec->flags |= 1 << (no - 1);
}

void vis_LCaseSetDistdv(vis_LCase* lc, int entity, int index, int no, int type, const double* v)
{
    vis_LCase_DistPut(lc, "vis_LCaseSetDistdv", entity, index, no, type, v, 0);
}

void vis_LCaseAddDistdv(vis_LCase* lc, int entity, int index, int no, int type, const double* v)
{
    vis_LCase_DistPut(lc, "vis_LCaseAddDistdv", entity, index, no, type, v, 1);
}

void vis_LCaseAddDistCorndv(vis_LCase* lc, int entity, int index, int no, int type, const double* v)
{
    vis_LCase_DistPut(lc, "vis_LCaseAddDistCorndv", entity, index, no, type, v, 1);
}

void vis_LCaseAddDistCentdv(vis_LCase* lc, int entity, int index, int no, int type, const double* v)
{
    vis_LCase_DistPut(lc, "vis_LCaseAddDistCentdv", entity, index, no, type, v, 2);
}

/* The float values of a distributed set as doubles (as many as the type needs on a face). */
static void vis_LCase_DistFloats(int entity, int type, const float* v, double* d)
{
    if ((entity == 2 || entity == 3) && type >= 1 && type <= 6)
        vis_Model_ToDouble(vis_LCase_DistWidth(entity - 2, type), v, d);
}

void vis_LCaseSetDist(vis_LCase* lc, int entity, int index, int no, int type, const float* v)
{
    double d[VIS_LCASE_MAXDISTVAL] = {0.0};
    vis_LCase_DistFloats(entity, type, v, d);
    vis_LCase_DistPut(lc, "vis_LCaseSetDist", entity, index, no, type, d, 0);
}

void vis_LCaseAddDist(vis_LCase* lc, int entity, int index, int no, int type, const float* v)
{
    double d[VIS_LCASE_MAXDISTVAL] = {0.0};
    vis_LCase_DistFloats(entity, type, v, d);
    vis_LCase_DistPut(lc, "vis_LCaseAddDist", entity, index, no, type, d, 1);
}

/* ---- element loads ---- */

void vis_LCaseElemMax(vis_LCase* lc, int type, int* max)
{
    if (vis_Model_IsNull(lc, "vis_LCaseElemMax") || !vis_LCase_Type(lc, "vis_LCaseElemMax", type, 3)) return;
    *max = lc->elemmax[type];
}

void vis_LCaseElemFlag(vis_LCase* lc, int index, int type, int* flag)
{
    static const char* name = "vis_LCaseElemFlag";
    if (vis_Model_IsNull(lc, name)) return;
    if (!vis_LCase_Index(lc, name, index) || !vis_LCase_Type(lc, name, type, 3)) return;
    *flag = vis_Model_TableGet(lc->elem[type], index) != nullptr;
}

void vis_LCaseElemdv(vis_LCase* lc, int index, int type, int* n, double* v)
{
    static const char* name = "vis_LCaseElemdv";
    if (vis_Model_IsNull(lc, name)) return;
    if (!vis_LCase_Index(lc, name, index) || !vis_LCase_Type(lc, name, type, 3)) return;
    const vis_LCaseElemRec* rec = (const vis_LCaseElemRec*)vis_Model_TableGet(lc->elem[type], index);
    *n = rec ? rec->n : 0;
    for (int i = 0; i < *n; ++i) v[i] = rec->values[i];
}

void vis_LCaseElem(vis_LCase* lc, int index, int type, int* n, float* v)
{
    double d[VIS_LCASE_MAXELEMVAL];
    int m = -1;
    vis_LCaseElemdv(lc, index, type, &m, d);
    if (m < 0) return;
    *n = m;
    vis_Model_ToFloat(m, d, v);
}

static void vis_LCase_ElemPut(vis_LCase* lc, const char* name, int index, int type, int n, const double* v, int add)
{
    if (vis_Model_IsNull(lc, name)) return;
    if (!vis_LCase_Index(lc, name, index) || !vis_LCase_Type(lc, name, type, 3)) return;
    if (n < 1 || n > VIS_LCASE_MAXELEMVAL) {
        vsy_ErrorRecord(&lc->ierr, name, SYS_ERROR_VALUE, "nix= %d", n);
        return;
    }
    vis_LCaseElemRec* rec = (vis_LCaseElemRec*)vis_Model_TableRecord(&lc->ierr, name, &lc->elem[type], index,
                                                                     sizeof(vis_LCaseElemRec), &lc->elemmax[type]);
    if (!rec) return;
    for (int i = 0; i < n; ++i) rec->values[i] = (add && i < rec->n) ? rec->values[i] + v[i] : v[i];
    if (!add || n > rec->n) rec->n = n;
}

void vis_LCaseSetElemdv(vis_LCase* lc, int index, int type, int n, const double* v)
{
    vis_LCase_ElemPut(lc, "vis_LCaseSetElemdv", index, type, n, v, 0);
}

void vis_LCaseAddElemdv(vis_LCase* lc, int index, int type, int n, const double* v)
{
    vis_LCase_ElemPut(lc, "vis_LCaseAddElemdv", index, type, n, v, 1);
}

void vis_LCaseSetElem(vis_LCase* lc, int index, int type, int n, const float* v)
{
    double d[VIS_LCASE_MAXELEMVAL];
    vis_Model_ToDouble(n >= 0 && n <= VIS_LCASE_MAXELEMVAL ? n : 0, v, d);
    vis_LCase_ElemPut(lc, "vis_LCaseSetElem", index, type, n, d, 0);
}

void vis_LCaseAddElem(vis_LCase* lc, int index, int type, int n, const float* v)
{
    double d[VIS_LCASE_MAXELEMVAL];
    vis_Model_ToDouble(n >= 0 && n <= VIS_LCASE_MAXELEMVAL ? n : 0, v, d);
    vis_LCase_ElemPut(lc, "vis_LCaseAddElem", index, type, n, d, 1);
}

/* ---- groups ---- */

static int vis_LCase_DistWord(const void* rec)
{
    return ((const vis_LCaseDistRec*)rec)->flags;
}

void vis_LCaseNodeGroup(vis_LCase* lc, int type, vis_Group* group)
{
    static const char* name = "vis_LCaseNodeGroup";
    if (vis_Model_IsNull(lc, name) || !vis_LCase_Type(lc, name, type, VIS_LCASE_FORCEMOMENT)) return;
    if (!vis_Model_TableToGroup(&lc->ierr, name, nullptr, group, SYS_NODE, -1, nullptr)) return;
    vis_GroupClear(group);
    for (int t = 1; t <= 6; ++t)
        if (t == type || (type == VIS_LCASE_FORCEMOMENT && t <= 2))
            vis_Model_TableToGroup(&lc->ierr, name, lc->conc[t], group, SYS_NODE, -1, nullptr);
}

void vis_LCaseElemGroup(vis_LCase* lc, int type, vis_Group* group)
{
    static const char* name = "vis_LCaseElemGroup";
    if (vis_Model_IsNull(lc, name) || !vis_LCase_Type(lc, name, type, 3)) return;
    if (!vis_Model_TableToGroup(&lc->ierr, name, nullptr, group, SYS_ELEM, -1, nullptr)) return;
    vis_GroupClear(group);
    vis_Model_TableToGroup(&lc->ierr, name, lc->elem[type], group, SYS_ELEM, -1, nullptr);
}

/* Face or edge group of a distributed type. */
static void vis_LCase_DistGroup(vis_LCase* lc, const char* name, int entity, int type, vis_Group* group)
{
    if (vis_Model_IsNull(lc, name)) return;
    int ent = vis_LCase_DistCheck(lc, name, entity, type, 0);
    if (ent < 0 || !vis_Model_TableToGroup(&lc->ierr, name, nullptr, group, SYS_ELEM, entity, nullptr)) return;
    vis_GroupClear(group);
    vis_Model_TableToGroup(&lc->ierr, name, lc->dist[ent][type], group, SYS_ELEM, entity, vis_LCase_DistWord);
}

void vis_LCaseFaceGroup(vis_LCase* lc, int type, vis_Group* group)
{
    vis_LCase_DistGroup(lc, "vis_LCaseFaceGroup", SYS_FACE, type, group);
}

void vis_LCaseEdgeGroup(vis_LCase* lc, int type, vis_Group* group)
{
    vis_LCase_DistGroup(lc, "vis_LCaseEdgeGroup", SYS_EDGE, type, group);
}

/* ---- body loads ---- */

void vis_LCaseSetAcceldv(vis_LCase* lc, const double* a, const double* w, const double* alpha, const double* centre)
{
    if (vis_Model_IsNull(lc, "vis_LCaseSetAcceldv")) return;
    for (int i = 0; i < 3; ++i) {
        lc->accel[i] = a ? a[i] : 0.0;
        lc->angvel[i] = w ? w[i] : 0.0;
        lc->angacc[i] = alpha ? alpha[i] : 0.0;
        lc->centre[i] = centre ? centre[i] : 0.0;
    }
    lc->hasaccel = 1;
}

void vis_LCaseAccelFlag(vis_LCase* lc, int* flag)
{
    if (vis_Model_IsNull(lc, "vis_LCaseAccelFlag")) return;
    *flag = lc->hasaccel;
}

void vis_LCaseAccel(vis_LCase* lc, double* a, double* w, double* alpha, double* centre)
{
    if (vis_Model_IsNull(lc, "vis_LCaseAccel")) return;
    for (int i = 0; i < 3; ++i) {
        if (a) a[i] = lc->accel[i];
        if (w) w[i] = lc->angvel[i];
        if (alpha) alpha[i] = lc->angacc[i];
        if (centre) centre[i] = lc->centre[i];
    }
}

/* ---- companion curve and parameters ---- */

void vis_LCaseSetObject(vis_LCase* lc, int objecttype, void* object)
{
    if (vis_Model_ObjectType(lc, "vis_LCaseSetObject", objecttype, SYS_TCURVE)) lc->tcurve = (vis_TCurve*)object;
}

void vis_LCaseGetObject(vis_LCase* lc, int objecttype, void** object)
{
    if (vis_Model_ObjectType(lc, "vis_LCaseGetObject", objecttype, SYS_TCURVE)) *object = lc->tcurve;
}

void vis_LCaseSetParamd(vis_LCase* lc, int type, double value)
{
    if (vis_Model_IsNull(lc, "vis_LCaseSetParamd")) return;
    if (vis_LCase_Type(lc, "vis_LCaseSetParamd", type, VIS_LCASE_FACTOR)) lc->factor = value;
}

void vis_LCaseGetParamd(vis_LCase* lc, int type, double* value)
{
    if (vis_Model_IsNull(lc, "vis_LCaseGetParamd")) return;
    if (vis_LCase_Type(lc, "vis_LCaseGetParamd", type, VIS_LCASE_FACTOR)) *value = lc->factor;
}

/* vis_IdTran: ids by index with a reverse map; see vis_IdTran.h. */
#include "vis_IdTran.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_Grow.h"
#include "vsy_IntHash.h"

#include <climits>
#include <cstring>

/* The reverse map is an array while the span of ids is at most this many times the entries. */
#define VIS_IDTRAN_SPANFACTOR 4

static void vis_IdTran_DropMap(vis_IdTran* idt)
{
    vsy_Free(idt->inv);
    idt->inv = nullptr;
    vsy_IntHashDelete(idt->invhash);
    idt->invhash = nullptr;
    idt->built = 0;
}

static void vis_IdTran_Release(vis_IdTran* idt)
{
    vis_IdTran_DropMap(idt);
    vsy_Free(idt->ids);
    vsy_Free(idt->ents);
    idt->ids = idt->ents = nullptr;
    idt->cap = idt->nument = idt->ncount = idt->start = idt->entmin = 0;
    idt->kind = VIS_IDTRAN_EXPLICIT;
    idt->idmin = INT_MAX;
    idt->idmax = INT_MIN;
}

vis_IdTran* vis_IdTranNew(void)
{
    vis_IdTran* idt = (vis_IdTran*)vis_Model_NewRecord(sizeof(vis_IdTran), "IdTran");
    if (idt) vis_IdTran_Release(idt);
    return idt;
}

void vis_IdTranDelete(vis_IdTran* idt)
{
    if (!idt) return;
    vis_IdTran_Release(idt);
    vsy_Free(idt->name);
    vsy_Free(idt);
}

int vis_IdTranError(vis_IdTran* idt)
{
    return vis_Model_TakeError(idt ? &idt->ierr : nullptr);
}

void vis_IdTranDef(vis_IdTran* idt, int nument)
{
    if (vis_Model_IsNull(idt, "vis_IdTranDef")) return;
    if (nument < 0) {
        vsy_ErrorRecord(&idt->ierr, "vis_IdTranDef", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    vis_IdTran_Release(idt);
    idt->nument = nument;
}

void vis_IdTranSetRun(vis_IdTran* idt, int start, int count)
{
    if (vis_Model_IsNull(idt, "vis_IdTranSetRun")) return;
    if (count < 0) {
        vsy_ErrorRecord(&idt->ierr, "vis_IdTranSetRun", SYS_ERROR_VALUE, "nument= %d", count);
        return;
    }
    int nument = idt->nument > count ? idt->nument : count;
    vis_IdTran_Release(idt);
    idt->kind = VIS_IDTRAN_RUN;
    idt->start = start;
    idt->ncount = count;
    idt->nument = nument;
    if (count > 0) {
        idt->idmin = start;
        idt->idmax = start + count - 1;
    }
}

void vis_IdTranSetConstant(vis_IdTran* idt, int nument, int value)
{
    if (vis_Model_IsNull(idt, "vis_IdTranSetConstant")) return;
    if (nument < 0) {
        vsy_ErrorRecord(&idt->ierr, "vis_IdTranSetConstant", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    vis_IdTran_Release(idt);
    idt->kind = VIS_IDTRAN_CONSTANT;
    idt->start = value;
    idt->nument = nument;
    idt->idmin = idt->idmax = value;
}

void vis_IdTranType(vis_IdTran* idt, int* kind)
{
    if (!vis_Model_IsNull(idt, "vis_IdTranType")) *kind = idt->kind;
}

void vis_IdTranNum(vis_IdTran* idt, int* nument)
{
    if (!vis_Model_IsNull(idt, "vis_IdTranNum")) *nument = idt->nument;
}

/* The id at an index in 1..nument, whatever the kind. */
static int vis_IdTran_Id(const vis_IdTran* idt, int index)
{
    if (idt->kind == VIS_IDTRAN_CONSTANT) return idt->start;
    if (idt->kind == VIS_IDTRAN_RUN) return index <= idt->ncount ? idt->start + index - 1 : 0;
    return idt->ids ? idt->ids[index] : 0;
}

/* Grows one array to cap + 1 zeroed entries; 0 on failure. */
static int vis_IdTran_GrowArray(int** array, int oldcap, int cap)
{
    int* a = (int*)vsy_Realloc(*array, sizeof(int) * ((size_t)cap + 1));
    if (!a) return 0;
    if (!*array) oldcap = -1;
    std::memset(a + oldcap + 1, 0, sizeof(int) * (size_t)(cap - oldcap));
    *array = a;
    return 1;
}

/* Makes the content an explicit array with room for index `need`; 0 after a report. */
static int vis_IdTran_Explicit(vis_IdTran* idt, const char* name, int need)
{
    int want = need > idt->nument ? need : idt->nument;
    if (idt->kind == VIS_IDTRAN_EXPLICIT && idt->ids && want <= idt->cap) return 1;
    if (want > VSY_GROW_MAXCAP) {
        vsy_ErrorRecord(&idt->ierr, name, SYS_ERROR_VALUE, "index= %d", want);
        return 0;
    }
    int cap = want > 2 * idt->cap ? want : 2 * idt->cap;
    if (cap > VSY_GROW_MAXCAP) cap = VSY_GROW_MAXCAP;
    int* ids = (int*)vis_Model_Calloc((size_t)cap + 1, sizeof(int));
    if (!ids || (idt->ents && !vis_IdTran_GrowArray(&idt->ents, idt->cap, cap))) {
        vsy_Free(ids);
        vsy_ErrorRecord(&idt->ierr, name, SYS_ERROR_MEMORY, "Realloc vec");
        return 0;
    }
    for (int i = 1; i <= idt->nument; ++i) ids[i] = vis_IdTran_Id(idt, i);
    vsy_Free(idt->ids);
    idt->ids = ids;
    idt->cap = cap;
    idt->kind = VIS_IDTRAN_EXPLICIT;
    return 1;
}

void vis_IdTranSetId(vis_IdTran* idt, int index, int id)
{
    static const char* name = "vis_IdTranSetId";
    if (vis_Model_IsNull(idt, name)) return;
    if (index < 1) {
        vsy_ErrorRecord(&idt->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!vis_IdTran_Explicit(idt, name, index)) return;
    vis_IdTran_DropMap(idt);
    idt->ids[index] = id;
    if (index > idt->nument) idt->nument = index;
    if (id < idt->idmin) idt->idmin = id;
    if (id > idt->idmax) idt->idmax = id;
}

/* Checks an index for a read: 1 for 1..nument, 0 above (the caller writes 0), -1 below 1 after
 * a report that leaves ierr alone. */
static int vis_IdTran_ReadIndex(vis_IdTran* idt, const char* name, int index)
{
    if (index >= 1) return index <= idt->nument;
    char text[VSY_ERROR_TEXTLEN];
    vsy_ErrorFormat(text, "index= %d", index);
    vsy_ErrorMessage(name, SYS_ERROR_VALUE, text);
    return -1;
}

void vis_IdTranGetId(vis_IdTran* idt, int index, int* id)
{
    if (vis_Model_IsNull(idt, "vis_IdTranGetId")) return;
    int ok = vis_IdTran_ReadIndex(idt, "vis_IdTranGetId", index);
    if (ok >= 0) *id = ok ? vis_IdTran_Id(idt, index) : 0;
}

void vis_IdTranGetIds(vis_IdTran* idt, int* ids)
{
    if (vis_Model_IsNull(idt, "vis_IdTranGetIds")) return;
    for (int i = 1; i <= idt->nument; ++i) ids[i - 1] = vis_IdTran_Id(idt, i);
}

void vis_IdTranSetEnt(vis_IdTran* idt, int index, int ent)
{
    static const char* name = "vis_IdTranSetEnt";
    if (vis_Model_IsNull(idt, name)) return;
    if (index < 1) {
        vsy_ErrorRecord(&idt->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!vis_IdTran_Explicit(idt, name, index)) return;
    if (!idt->ents && !vis_IdTran_GrowArray(&idt->ents, -1, idt->cap)) {
        vsy_ErrorRecord(&idt->ierr, name, SYS_ERROR_MEMORY, "Realloc vec");
        return;
    }
    idt->ents[index] = ent;
    if (index > idt->nument) idt->nument = index;
    if (idt->entmin == 0 || ent < idt->entmin) idt->entmin = ent;
}

void vis_IdTranGetEnt(vis_IdTran* idt, int index, int* ent)
{
    if (vis_Model_IsNull(idt, "vis_IdTranGetEnt")) return;
    int ok = vis_IdTran_ReadIndex(idt, "vis_IdTranGetEnt", index);
    if (ok >= 0) *ent = (ok && idt->ents) ? idt->ents[index] : 0;
}

void vis_IdTranGetEnts(vis_IdTran* idt, int* ents)
{
    if (vis_Model_IsNull(idt, "vis_IdTranGetEnts")) return;
    for (int i = 1; i <= idt->nument; ++i) ents[i - 1] = idt->ents ? idt->ents[i] : 0;
}

void vis_IdTranSetEntType(vis_IdTran* idt, int enttype)
{
    if (!vis_Model_IsNull(idt, "vis_IdTranSetEntType")) idt->enttype = enttype;
}

void vis_IdTranGetEntType(vis_IdTran* idt, int* enttype)
{
    if (!vis_Model_IsNull(idt, "vis_IdTranGetEntType")) *enttype = idt->enttype;
}

void vis_IdTranSetName(vis_IdTran* idt, const char* name)
{
    if (vis_Model_IsNull(idt, "vis_IdTranSetName")) return;
    char* copy = nullptr;
    if (name) {
        copy = vis_Model_StrDup(name);
        if (!copy) {
            vsy_ErrorRecord(&idt->ierr, "vis_IdTranSetName", SYS_ERROR_MEMORY, "name= %s", name);
            return;
        }
    }
    vsy_Free(idt->name);
    idt->name = copy;
}

void vis_IdTranGetName(vis_IdTran* idt, char* name)
{
    if (vis_Model_IsNull(idt, "vis_IdTranGetName")) return;
    std::strcpy(name, idt->name ? idt->name : "");
}

void vis_IdTranAllIndex(vis_IdTran* idt, int id, int* n, int* indices)
{
    if (vis_Model_IsNull(idt, "vis_IdTranAllIndex")) return;
    *n = 0;
    for (int i = 1; i <= idt->nument; ++i)
        if (vis_IdTran_Id(idt, i) == id) {
            if (indices) indices[*n] = i;
            ++*n;
        }
}

void vis_IdTranCount(vis_IdTran* idt, int id, int* n)
{
    if (vis_Model_IsNull(idt, "vis_IdTranCount")) return;
    vis_IdTranAllIndex(idt, id, n, nullptr);
}

void vis_IdTranNumIndex(vis_IdTran* idt, int id, int* n)
{
    if (vis_Model_IsNull(idt, "vis_IdTranNumIndex")) return;
    vis_IdTranAllIndex(idt, id, n, nullptr);
}

/* Builds the reverse map of an explicit list; 0 after a report. */
static int vis_IdTran_BuildMap(vis_IdTran* idt)
{
    long span = (long)idt->idmax - idt->idmin + 1;
    if (span <= (long)VIS_IDTRAN_SPANFACTOR * idt->nument + 64) {
        idt->inv = (int*)vis_Model_Calloc((size_t)span, sizeof(int));
        if (!idt->inv) goto failed;
        for (int i = idt->nument; i >= 1; --i)
            if (idt->ids[i] >= idt->idmin && idt->ids[i] <= idt->idmax) idt->inv[idt->ids[i] - idt->idmin] = i;
    } else {
        idt->invhash = vsy_IntHashNew();
        if (!idt->invhash) goto failed;
        vsy_IntHashDef(idt->invhash, idt->nument);
        for (int i = idt->nument; i >= 1; --i) vsy_IntHashInsert(idt->invhash, idt->ids[i], i);
        if (vsy_IntHashError(idt->invhash)) goto failed;
    }
    idt->built = 1;
    return 1;
failed:
    vis_IdTran_DropMap(idt);
    vsy_ErrorRecord(&idt->ierr, "vis_IdTranIndex", SYS_ERROR_MEMORY, "nument= %d", idt->nument);
    return 0;
}

/* The first index of id, 0 when none; -1 when the map could not be built. */
static int vis_IdTran_Find(vis_IdTran* idt, int id)
{
    if (idt->kind == VIS_IDTRAN_CONSTANT) return (idt->nument > 0 && id == idt->start) ? 1 : 0;
    if (idt->kind == VIS_IDTRAN_RUN)
        return (id >= idt->start && (long)id - idt->start < idt->ncount) ? id - idt->start + 1 : 0;
    if (!idt->ids || id < idt->idmin || id > idt->idmax) return 0;
    if (!idt->built && !vis_IdTran_BuildMap(idt)) return -1;
    if (idt->inv) return idt->inv[id - idt->idmin];
    int index = 0;
    vsy_IntHashGet(idt->invhash, id, &index);
    return index;
}

void vis_IdTranIndex(vis_IdTran* idt, int id, int* index)
{
    if (vis_Model_IsNull(idt, "vis_IdTranIndex")) return;
    int found = vis_IdTran_Find(idt, id);
    if (found >= 0) *index = found;
}

void vis_IdTranIndices(vis_IdTran* idt, int n, const int* ids, int* indices)
{
    if (vis_Model_IsNull(idt, "vis_IdTranIndices")) return;
    for (int i = 0; i < n; ++i) {
        int found = vis_IdTran_Find(idt, ids[i]);
        if (found < 0) return;
        indices[i] = found;
    }
}

void vis_IdTranUnique(vis_IdTran* idt)
{
    if (vis_Model_IsNull(idt, "vis_IdTranUnique") || idt->kind == VIS_IDTRAN_RUN) return;
    if (idt->kind == VIS_IDTRAN_CONSTANT || !idt->ids) {
        if (idt->nument > 1) idt->nument = 1; /* one id repeated */
        return;
    }
    int kept = 0;
    for (int i = 1; i <= idt->nument; ++i) {
        int first = 1;
        for (int j = 1; j <= kept && first; ++j) first = idt->ids[j] != idt->ids[i];
        if (!first) continue;
        ++kept;
        idt->ids[kept] = idt->ids[i];
        if (idt->ents) idt->ents[kept] = idt->ents[i];
    }
    idt->nument = kept;
    vis_IdTran_DropMap(idt);
}

void vis_IdTranOrder(vis_IdTran* idt)
{
    if (vis_Model_IsNull(idt, "vis_IdTranOrder") || idt->kind != VIS_IDTRAN_EXPLICIT || !idt->ids) return;
    /* Insertion sort keeps equal ids in their order; lists are group sized. */
    for (int i = 2; i <= idt->nument; ++i) {
        int id = idt->ids[i], ent = idt->ents ? idt->ents[i] : 0, j = i - 1;
        for (; j >= 1 && idt->ids[j] > id; --j) {
            idt->ids[j + 1] = idt->ids[j];
            if (idt->ents) idt->ents[j + 1] = idt->ents[j];
        }
        idt->ids[j + 1] = id;
        if (idt->ents) idt->ents[j + 1] = ent;
    }
    vis_IdTran_DropMap(idt);
}

void vis_IdTranEquId(vis_IdTran* idt, vis_IdTran* other, int* flag)
{
    if (vis_Model_IsNull(idt, "vis_IdTranEquId") || vis_Model_IsNull(other, "vis_IdTranEquId")) return;
    *flag = idt->nument == other->nument;
    for (int i = 1; *flag && i <= idt->nument; ++i) *flag = vis_IdTran_Id(idt, i) == vis_IdTran_Id(other, i);
}

/* vis_ElemDat: sparse per-element values; see vis_ElemDat.h. */
#include "vis_ElemDat.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

typedef struct vis_ElemDatRec {
    int count;
    double values[1]; /* count values */
} vis_ElemDatRec;

vis_ElemDat* vis_ElemDatNew(void)
{
    return (vis_ElemDat*)vis_Model_NewRecord(sizeof(vis_ElemDat), "ElemDat");
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
    if (vis_Model_IsNull(ed, "vis_ElemDatData")) return;
    vis_ElemDatRec* rec = (vis_ElemDatRec*)vis_Model_TableGet(ed->tab, element);
    if (!rec) return;
    for (int i = 0; i < n && i < rec->count; ++i) values[i] = rec->values[i];
}

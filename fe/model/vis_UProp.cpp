/* vis_UProp: user values by negative code; see vis_UProp.h. */
#include "vis_UProp.h"

#include "vis_ModelStream.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"

#include <climits>
#include <cstring>

enum { UP_INT = 0, UP_DOUBLE = 1, UP_STRING = 2, UP_FLOAT = 3, UP_ARRAY = 4 };

int vis_UProp_Block(int code)
{
    if (code >= 0 || code < VIS_UPROP_LOWEST) return -1;
    return (-code - 1) / VIS_UPROP_BLOCK;
}

int vis_UProp_Index(int code)
{
    if (code >= 0 || code < VIS_UPROP_LOWEST) return -1;
    return (-code - 1) % VIS_UPROP_BLOCK;
}

vis_UProp* vis_UPropNew(void)
{
    return (vis_UProp*)vis_Model_NewRecord(sizeof(vis_UProp), "UProp");
}

static void vis_UProp_Clear(vis_UPropSlot* s)
{
    vsy_Free(s->string);
    vsy_Free(s->array);
    std::memset(s, 0, sizeof(*s));
}

void vis_UPropDelete(vis_UProp* up)
{
    if (!up) return;
    for (int i = 0; i < up->num; ++i) vis_UProp_Clear(&up->slots[i]);
    vsy_Free(up->slots);
    vsy_Free(up);
}

int vis_UPropError(vis_UProp* up)
{
    return vis_Model_TakeError(up ? &up->ierr : nullptr);
}

void vis_UPropDef(vis_UProp* up, int num)
{
    if (vis_Model_IsNull(up, "vis_UPropDef")) return;
    if (num < 0) {
        vsy_ErrorRecord(&up->ierr, "vis_UPropDef", SYS_ERROR_VALUE, "nument= %d", num);
        return;
    }
    if (num == up->num) return;
    for (int i = num; i < up->num; ++i) vis_UProp_Clear(&up->slots[i]);
    vis_UPropSlot* slots = (vis_UPropSlot*)vsy_Realloc(up->slots, sizeof(vis_UPropSlot) * (size_t)(num > 0 ? num : 1));
    if (!slots) {
        vsy_ErrorRecord(&up->ierr, "vis_UPropDef", SYS_ERROR_MEMORY, "nument= %d", num);
        if (num < up->num) up->num = num; /* the dropped slots are already cleared */
        return;
    }
    for (int i = up->num; i < num; ++i) std::memset(&slots[i], 0, sizeof(vis_UPropSlot));
    up->slots = slots;
    up->num = num;
}

/* The slot of a code for an operation of `block` (-1: any block), or null after the report. */
static vis_UPropSlot* vis_UProp_Slot(vis_UProp* up, const char* name, int code, int block)
{
    if (vis_Model_IsNull(up, name)) return nullptr;
    int b = vis_UProp_Block(code), index = vis_UProp_Index(code);
    if (b < 0 || index >= up->num) {
        vsy_ErrorRecord(&up->ierr, name, SYS_ERROR_ENUM, "type= %d", code);
        return nullptr;
    }
    int ok = block < 0 || b == block || (block == UP_DOUBLE && b == UP_ARRAY);
    if (!ok) {
        vsy_ErrorRecord(&up->ierr, name, SYS_ERROR_OPERATION, "Improper data type, type= %d", code);
        return nullptr;
    }
    return &up->slots[index];
}

void vis_UPropSetValuei(vis_UProp* up, int code, int value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropSetValuei", code, UP_INT);
    if (!s) return;
    s->ivalue = value;
    s->set |= 1 << UP_INT;
}

void vis_UPropSetValued(vis_UProp* up, int code, double value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropSetValued", code, UP_DOUBLE);
    if (!s) return;
    if (vis_UProp_Block(code) == UP_ARRAY) {
        int one = 1;
        vis_UPropSetArraydv(up, code, 1, &one, &value);
        return;
    }
    s->dvalue = value;
    s->set |= 1 << UP_DOUBLE;
}

void vis_UPropSetValuef(vis_UProp* up, int code, float value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropSetValuef", code, UP_FLOAT);
    if (!s) return;
    s->fvalue = value;
    s->set |= 1 << UP_FLOAT;
}

void vis_UPropSetValuec(vis_UProp* up, int code, const char* value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropSetValuec", code, UP_STRING);
    if (!s) return;
    char* copy = vis_Model_StrDup(value ? value : "");
    if (!copy) {
        vsy_ErrorRecord(&up->ierr, "vis_UPropSetValuec", SYS_ERROR_MEMORY, "type= %d", code);
        return;
    }
    vsy_Free(s->string);
    s->string = copy;
    s->set |= 1 << UP_STRING;
}

void vis_UPropSetArraydv(vis_UProp* up, int code, int ndim, const int* dims, const double* values)
{
    static const char* name = "vis_UPropSetArraydv";
    vis_UPropSlot* s = vis_UProp_Slot(up, name, code, UP_ARRAY);
    if (!s) return;
    long n = 1;
    int ok = ndim >= 1 && ndim <= VIS_UPROP_MAXDIM;
    for (int i = 0; ok && i < ndim; ++i) {
        ok = dims[i] >= 1 && n * dims[i] <= VIS_UPROP_BLOCK;
        if (ok) n *= dims[i];
    }
    if (!ok) {
        vsy_ErrorRecord(&up->ierr, name, SYS_ERROR_VALUE, "nument= %d", ndim);
        return;
    }
    double* array = (double*)vsy_Malloc(sizeof(double) * (size_t)n);
    if (!array) {
        vsy_ErrorRecord(&up->ierr, name, SYS_ERROR_MEMORY, "type= %d", code);
        return;
    }
    std::memcpy(array, values, sizeof(double) * (size_t)n);
    vsy_Free(s->array);
    s->array = array;
    s->ndim = ndim;
    for (int i = 0; i < ndim; ++i) s->dims[i] = dims[i];
    s->set |= 1 << UP_ARRAY;
}

void vis_UPropValueFlag(vis_UProp* up, int code, int* flag)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropValueFlag", code, -1);
    if (s && flag) *flag = (s->set >> vis_UProp_Block(code)) & 1;
}

void vis_UPropValueInteger(vis_UProp* up, int code, int* value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropValueInteger", code, UP_INT);
    if (s && (s->set & (1 << UP_INT))) *value = s->ivalue;
}

static int vis_UProp_Count(const vis_UPropSlot* s)
{
    int n = 1;
    for (int i = 0; i < s->ndim; ++i) n *= s->dims[i];
    return n;
}

void vis_UPropValueDouble(vis_UProp* up, int code, double* value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropValueDouble", code, UP_DOUBLE);
    if (!s) return;
    if (vis_UProp_Block(code) == UP_ARRAY) {
        if (s->set & (1 << UP_ARRAY)) std::memcpy(value, s->array, sizeof(double) * (size_t)vis_UProp_Count(s));
    } else if (s->set & (1 << UP_DOUBLE)) {
        *value = s->dvalue;
    }
}

void vis_UPropValueFloat(vis_UProp* up, int code, float* value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropValueFloat", code, UP_FLOAT);
    if (s && (s->set & (1 << UP_FLOAT))) *value = (float)s->fvalue;
}

void vis_UPropValueString(vis_UProp* up, int code, char* value)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropValueString", code, UP_STRING);
    if (s && (s->set & (1 << UP_STRING))) std::strcpy(value, s->string);
}

void vis_UPropValueDims(vis_UProp* up, int code, int* ndim, int* dims)
{
    vis_UPropSlot* s = vis_UProp_Slot(up, "vis_UPropValueDims", code, UP_ARRAY);
    if (!s || !(s->set & (1 << UP_ARRAY))) return;
    *ndim = s->ndim;
    for (int i = 0; i < s->ndim; ++i) dims[i] = s->dims[i];
}

void vis_UPropSetParami(vis_UProp* up, int type, int value)
{
    static const char* name = "vis_UPropSetParami";
    if (vis_Model_IsNull(up, name)) return;
    if (type != VIS_PROP_UNSET) {
        vsy_ErrorRecord(&up->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    vis_UPropSlot* s = vis_UProp_Slot(up, name, value, -1);
    if (!s) return;
    int block = vis_UProp_Block(value);
    if (block == UP_STRING) {
        vsy_Free(s->string);
        s->string = nullptr;
    } else if (block == UP_ARRAY) {
        vsy_Free(s->array);
        s->array = nullptr;
        s->ndim = 0;
    }
    s->set &= ~(1 << block);
}

/* ---- stream form ---- */

#define VIS_UPROP_STREAMVERSION 1

static void vis_UProp_PutSlot(const vis_UPropSlot* u, vis_ModelStream* s)
{
    if (u->set & (1 << UP_INT)) vis_ModelStream_PutInt(s, u->ivalue);
    if (u->set & (1 << UP_DOUBLE)) vis_ModelStream_PutDoubles(s, 1, &u->dvalue);
    if (u->set & (1 << UP_STRING)) {
        int len = (int)std::strlen(u->string);
        vis_ModelStream_PutInt(s, len);
        vis_ModelStream_PutBytes(s, len, u->string);
    }
    if (u->set & (1 << UP_FLOAT)) vis_ModelStream_PutDoubles(s, 1, &u->fvalue);
    if (u->set & (1 << UP_ARRAY)) {
        vis_ModelStream_PutInt(s, u->ndim);
        vis_ModelStream_PutInts(s, u->ndim, u->dims);
        vis_ModelStream_PutDoubles(s, vis_UProp_Count(u), u->array);
    }
}

void vis_UProp_StreamPut(vis_UProp* up, vis_ModelStream* s)
{
    int nset = 0;
    for (int i = 0; i < up->num; ++i) nset += up->slots[i].set != 0;
    vis_ModelStream_PutMark(s, "VUPR");
    vis_ModelStream_PutInt(s, VIS_UPROP_STREAMVERSION);
    vis_ModelStream_PutInt(s, up->num);
    vis_ModelStream_PutInt(s, nset);
    for (int i = 0; i < up->num; ++i) {
        if (!up->slots[i].set) continue;
        vis_ModelStream_PutInt(s, i);
        vis_ModelStream_PutInt(s, up->slots[i].set);
        vis_UProp_PutSlot(&up->slots[i], s);
    }
    vis_ModelStream_PutEnd(s);
}

/* Reads the array of a slot: ndim 1 to VIS_UPROP_MAXDIM dims of at least 1, product at most
 * one block, as vis_UPropSetArraydv accepts. */
static void vis_UProp_GetArray(vis_UPropSlot* u, vis_ModelStream* s)
{
    long n = 1;
    vis_ModelStream_GetIntIn(s, &u->ndim, 1, VIS_UPROP_MAXDIM, "ndim");
    for (int i = 0; i < u->ndim && !s->ierr; ++i) {
        vis_ModelStream_GetIntIn(s, &u->dims[i], 1, (int)(VIS_UPROP_BLOCK / n), "dims");
        n *= u->dims[i];
    }
    vis_ModelStream_GetDoubles(s, (int)n, &u->array);
}

static void vis_UProp_GetSlot(vis_UPropSlot* u, vis_ModelStream* s)
{
    vis_ModelStream_GetIntIn(s, &u->set, 1, (1 << 5) - 1, "Stream blocks");
    if (u->set & (1 << UP_INT)) vis_ModelStream_GetInt(s, &u->ivalue);
    if (u->set & (1 << UP_DOUBLE)) vis_ModelStream_GetDouble(s, &u->dvalue);
    if (u->set & (1 << UP_STRING)) {
        int len = -1;
        vis_ModelStream_GetIntIn(s, &len, 0, INT_MAX - 1, "Stream length");
        vis_ModelStream_GetBytes(s, len, &u->string);
        if (!s->ierr && (int)std::strlen(u->string) != len) vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "Stream length= %d", len);
    }
    if (u->set & (1 << UP_FLOAT)) vis_ModelStream_GetDouble(s, &u->fvalue);
    if (u->set & (1 << UP_ARRAY)) vis_UProp_GetArray(u, s);
}

/* Grows a loading object to num slots; 0 after recording the failure. */
static int vis_UProp_GrowTo(vis_UProp* up, int num, vis_ModelStream* s)
{
    vis_UPropSlot* slots = (vis_UPropSlot*)vsy_Realloc(up->slots, sizeof(vis_UPropSlot) * (size_t)(num > 0 ? num : 1));
    if (!slots) {
        vis_ModelStream_Fail(s, SYS_ERROR_MEMORY, "Malloc vec");
        return 0;
    }
    std::memset(&slots[up->num], 0, sizeof(vis_UPropSlot) * (size_t)(num - up->num));
    up->slots = slots;
    up->num = num;
    return 1;
}

vis_UProp* vis_UProp_StreamGet(vis_ModelStream* s)
{
    int num = 0, nset = 0, last = -1;
    vis_ModelStream_GetMark(s, "VUPR");
    vis_ModelStream_GetVersion(s, VIS_UPROP_STREAMVERSION);
    vis_ModelStream_GetIntIn(s, &num, 0, VIS_UPROP_BLOCK, "nument");
    vis_ModelStream_GetIntIn(s, &nset, 0, num, "Stream count");
    if (s->ierr) return nullptr;
    vis_UProp* up = vis_UPropNew();
    if (!up) vis_ModelStream_Fail(s, SYS_ERROR_MEMORY, "Creation Failure");
    /* Slots grow only up to the indices really read: num is trusted after the checksum. */
    for (int k = 0; k < nset && !s->ierr; ++k) {
        int index = -1;
        vis_ModelStream_GetIntIn(s, &index, last + 1, num - 1, "index");
        if (s->ierr || !vis_UProp_GrowTo(up, index + 1, s)) break;
        vis_UProp_GetSlot(&up->slots[index], s);
        last = index;
    }
    vis_ModelStream_GetEnd(s);
    if (!s->ierr) vis_UProp_GrowTo(up, num, s);
    if (s->ierr) {
        vis_UPropDelete(up);
        return nullptr;
    }
    return up;
}

void vis_UPropStreamSave(vis_UProp* up, FILE* stream)
{
    if (vis_Model_IsNull(up, "vis_UPropStreamSave")) return;
    vis_ModelStream s;
    vis_ModelStream_Begin(&s, stream);
    vis_UProp_StreamPut(up, &s);
    vis_ModelStream_Report(&s, &up->ierr, "vis_UPropStreamSave");
}

/* Moves the slots of `from` into up, releasing up's old ones and the empty record from. */
static void vis_UProp_Take(vis_UProp* up, vis_UProp* from)
{
    for (int i = 0; i < up->num; ++i) vis_UProp_Clear(&up->slots[i]);
    vsy_Free(up->slots);
    up->slots = from->slots;
    up->num = from->num;
    vsy_Free(from);
}

void vis_UPropStreamLoad(vis_UProp* up, FILE* stream)
{
    if (vis_Model_IsNull(up, "vis_UPropStreamLoad")) return;
    vis_ModelStream s;
    vis_ModelStream_Begin(&s, stream);
    vis_UProp* loaded = s.ierr ? nullptr : vis_UProp_StreamGet(&s);
    if (vis_ModelStream_Report(&s, &up->ierr, "vis_UPropStreamLoad")) vis_UProp_Take(up, loaded);
}

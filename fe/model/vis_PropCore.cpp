/* vis_PropCore: the parameter store of the property family; see vis_PropCore.h. */
#include "vis_PropCore.h"

#include "vis_ModelStream.h"
#include "vis_ModelSupport.h"
#include "vis_UProp.h"
#include "vsy_Error.h"

#include <climits>
#include <cstring>

static const char* vis_Prop_TypeText = "Improper data type, type= %d";

void vis_Prop_Clear(const vis_PropRef* r)
{
    for (int i = 0; i < *r->nslots; ++i) vsy_Free((*r->slots)[i].data);
    vsy_Free(*r->slots);
    *r->slots = nullptr;
    *r->nslots = 0;
    std::memset(r->byte, 0, (size_t)r->table->num);
    vis_UPropDelete(*r->uprop);
    *r->uprop = nullptr;
}

/* The slot of a table parameter, or null while unset. */
static vis_PropSlot* vis_Prop_Slot(const vis_PropRef* r, int code)
{
    int slot = (int)r->byte[code] - 1;
    return slot < 0 ? nullptr : &(*r->slots)[slot];
}

const vis_PropSlot* vis_Prop_SlotOf(const vis_PropRef* r, int code)
{
    const vis_PropSlot* s = vis_Prop_Slot(r, code);
    return (s && s->set) ? s : nullptr;
}

/* The integer value of a count parameter, or -1 while unset. */
static int vis_Prop_IntParam(const vis_PropRef* r, int code)
{
    const vis_PropSlot* s = vis_Prop_SlotOf(r, code);
    return (s && s->count >= 1) ? ((const int*)s->data)[0] : -1;
}

/* Whether a request kind may read or write a parameter of a table data type. */
static int vis_Prop_KindFits(int kind, int datatype)
{
    switch (kind) {
    case VIS_PROPREQ_INT: return datatype == VIS_PROP_INTEGER;
    case VIS_PROPREQ_STRING: return datatype == VIS_PROP_STRING;
    case VIS_PROPREQ_FLOAT:
    case VIS_PROPREQ_DOUBLE: return datatype == VIS_PROP_FLOAT || datatype == VIS_PROP_DOUBLE;
    default: return 1;
    }
}

/* Whether a request kind fits a user value block (0 int, 1 double, 2 string, 3 float, 4 array). */
static int vis_Prop_KindFitsBlock(int kind, int block)
{
    switch (kind) {
    case VIS_PROPREQ_INT: return block == 0;
    case VIS_PROPREQ_STRING: return block == 2;
    case VIS_PROPREQ_FLOAT: return block == 3;
    case VIS_PROPREQ_DOUBLE: return block == 1 || block == 4;
    default: return 1;
    }
}

int vis_Prop_Check(const vis_PropRef* r, const char* name, int code, int kind)
{
    const vis_PropTable* t = r->table;
    if (code < VIS_UPROP_LOWEST || code >= t->num) {
        vsy_ErrorRecord(r->ierr, name, SYS_ERROR_ENUM, t->rangetext, code);
        return 0;
    }
    if (code < 0) {
        int nuser = t->nuser >= 0 ? vis_Prop_IntParam(r, t->nuser) : 0;
        if (vis_UProp_Index(code) >= nuser) {
            vsy_ErrorRecord(r->ierr, name, SYS_ERROR_ENUM, "type= %d", code);
            return 0;
        }
        if (!vis_Prop_KindFitsBlock(kind, vis_UProp_Block(code))) {
            vsy_ErrorRecord(r->ierr, name, SYS_ERROR_OPERATION, vis_Prop_TypeText, code);
            return 0;
        }
        return 1;
    }
    if (!vis_Prop_KindFits(kind, t->rows[code].datatype)) {
        vsy_ErrorRecord(r->ierr, name, SYS_ERROR_OPERATION, vis_Prop_TypeText, code);
        return 0;
    }
    return 1;
}

/* The user values, made to hold the member's current number of slots; null after a report. */
static vis_UProp* vis_Prop_User(const vis_PropRef* r, const char* name, int code)
{
    if (!*r->uprop) *r->uprop = vis_UPropNew();
    vis_UProp* up = *r->uprop;
    if (up) {
        vis_UPropDef(up, vis_Prop_IntParam(r, r->table->nuser));
        if (vis_UPropError(up) == 0) return up;
    }
    vsy_ErrorRecord(r->ierr, name, SYS_ERROR_MEMORY, "type= %d", code);
    return nullptr;
}

/* Stores a scalar user value by the block of its code. */
static void vis_Prop_SetUser(const vis_PropRef* r, const char* name, int code, const int* iv,
                             const double* dv, const char* sv)
{
    vis_UProp* up = vis_Prop_User(r, name, code);
    if (!up) return;
    switch (vis_UProp_Block(code)) {
    case 0: vis_UPropSetValuei(up, code, *iv); break;
    case 2: vis_UPropSetValuec(up, code, sv); break;
    case 3: vis_UPropSetValuef(up, code, (float)*dv); break;
    default: vis_UPropSetValued(up, code, *dv); break;
    }
    int ierr = vis_UPropError(up);
    if (ierr) *r->ierr = ierr;
}

/* Scalars of a vector set of a row: fixed size times locations, or the count parameter's value
 * times locations; -1 while the count parameter is unset. */
static int vis_Prop_FullSize(const vis_PropRef* r, int code)
{
    const vis_PropRow* row = &r->table->rows[code];
    if (row->countparam < 0) return row->count * row->nloc;
    int n = vis_Prop_IntParam(r, row->countparam);
    return n < 0 ? -1 : n * row->nloc;
}

/* The slot of a parameter for writing: appended on the first set; null after a report. */
static vis_PropSlot* vis_Prop_SlotForSet(const vis_PropRef* r, const char* name, int code)
{
    vis_PropSlot* s = vis_Prop_Slot(r, code);
    if (s) return s;
    vis_PropSlot* slots = (vis_PropSlot*)vsy_Realloc(*r->slots, sizeof(vis_PropSlot) * (size_t)(*r->nslots + 1));
    if (!slots) {
        vsy_ErrorRecord(r->ierr, name, SYS_ERROR_MEMORY, "type= %d", code);
        return nullptr;
    }
    *r->slots = slots;
    s = &slots[*r->nslots];
    std::memset(s, 0, sizeof(*s));
    r->byte[code] = (unsigned char)(++*r->nslots);
    return s;
}

/* New data of n scalars of the row's type, filled from the setter's values; null on failure. */
static void* vis_Prop_NewData(int datatype, int n, const int* iv, const double* dv, const char* sv)
{
    size_t width = datatype == VIS_PROP_INTEGER ? sizeof(int) : datatype == VIS_PROP_STRING ? 1 : sizeof(double);
    void* data = vsy_Malloc(width * (size_t)(n > 0 ? n : 1));
    if (!data) return nullptr;
    if (datatype == VIS_PROP_INTEGER) std::memcpy(data, iv, sizeof(int) * (size_t)n);
    else if (datatype != VIS_PROP_STRING) std::memcpy(data, dv, sizeof(double) * (size_t)n);
    else {
        char* text = (char*)data;
        int i = 0;
        for (; sv && sv[i] && i < n - 1; ++i) text[i] = sv[i];
        text[i] = '\0';
    }
    return data;
}

void vis_Prop_Set(const vis_PropRef* r, const char* name, int code, int kind, int n, const int* iv,
                  const double* dv, const char* sv)
{
    if (!vis_Prop_Check(r, name, code, kind)) return;
    if (code < 0) {
        vis_Prop_SetUser(r, name, code, iv, dv, sv);
        return;
    }
    const vis_PropRow* row = &r->table->rows[code];
    if (row->datatype == VIS_PROP_STRING) n = row->count;
    else if (n < 0) n = vis_Prop_FullSize(r, code);
    if (n < 0) {
        vsy_ErrorRecord(r->ierr, name, SYS_ERROR_OPERATION, "Count parameter not set, type= %d", code);
        return;
    }
    void* data = vis_Prop_NewData(row->datatype, n, iv, dv, sv);
    vis_PropSlot* s = data ? vis_Prop_SlotForSet(r, name, code) : nullptr;
    if (!s) {
        if (!data) vsy_ErrorRecord(r->ierr, name, SYS_ERROR_MEMORY, "type= %d", code);
        vsy_Free(data);
        return;
    }
    vsy_Free(s->data);
    s->data = data;
    s->set = 1;
    s->count = n;
    /* A string is one location; a scalar or a run-time counted row one scalar per location. */
    if (row->datatype == VIS_PROP_STRING) s->perloc = n;
    else if (n == 1 || row->count == 0) s->perloc = 1;
    else s->perloc = row->count;
}

void vis_Prop_SetFloats(const vis_PropRef* r, const char* name, int code, const float* values)
{
    if (!vis_Prop_Check(r, name, code, VIS_PROPREQ_FLOAT)) return;
    if (code < 0) {
        double d = values[0];
        vis_Prop_SetUser(r, name, code, nullptr, &d, nullptr);
        return;
    }
    int n = vis_Prop_FullSize(r, code);
    double* dv = (double*)vsy_Malloc(sizeof(double) * (size_t)(n > 0 ? n : 1));
    if (!dv) {
        vsy_ErrorRecord(r->ierr, name, SYS_ERROR_MEMORY, "type= %d", code);
        return;
    }
    for (int i = 0; i < n; ++i) dv[i] = values[i];
    vis_Prop_Set(r, name, code, VIS_PROPREQ_FLOAT, n < 0 ? -1 : n, nullptr, dv, nullptr);
    vsy_Free(dv);
}

/* The user values sized to the member's current number of them, or null when none exist. */
static vis_UProp* vis_Prop_SyncUser(const vis_PropRef* r)
{
    vis_UProp* up = *r->uprop;
    if (!up) return nullptr;
    int n = vis_Prop_IntParam(r, r->table->nuser);
    vis_UPropDef(up, n < 0 ? 0 : n); /* an unset count holds no user values */
    vis_UPropError(up);               /* a shrink cannot fail; a failed growth keeps the old slots */
    return up;
}

/* Reads a user value by the block of its code. */
static void vis_Prop_GetUser(const vis_PropRef* r, int code, int* iv, double* dv, float* fv, char* sv)
{
    vis_UProp* up = vis_Prop_SyncUser(r);
    if (!up) return;
    if (vis_UProp_Index(code) >= up->num) return; /* slots not grown: nothing was set there */
    switch (vis_UProp_Block(code)) {
    case 0: vis_UPropValueInteger(up, code, iv); break;
    case 2: vis_UPropValueString(up, code, sv); break;
    case 3: vis_UPropValueFloat(up, code, fv); break;
    default: vis_UPropValueDouble(up, code, dv); break;
    }
    int ierr = vis_UPropError(up);
    if (ierr) *r->ierr = ierr;
}

void vis_Prop_Get(const vis_PropRef* r, const char* name, int code, int kind, int* iv, double* dv,
                  float* fv, char* sv)
{
    if (!vis_Prop_Check(r, name, code, kind)) return;
    if (code < 0) {
        vis_Prop_GetUser(r, code, iv, dv, fv, sv);
        return;
    }
    const vis_PropSlot* s = vis_Prop_SlotOf(r, code);
    if (!s) return;
    if (kind == VIS_PROPREQ_INT) std::memcpy(iv, s->data, sizeof(int) * (size_t)s->count);
    else if (kind == VIS_PROPREQ_DOUBLE) std::memcpy(dv, s->data, sizeof(double) * (size_t)s->count);
    else if (kind == VIS_PROPREQ_FLOAT) {
        for (int i = 0; i < s->count; ++i) fv[i] = (float)((const double*)s->data)[i];
    } else {
        const char* text = (const char*)s->data;
        int i = 0;
        for (; i < s->count - 1 && text[i]; ++i) sv[i] = text[i];
        sv[i] = '\0';
    }
}

void vis_Prop_Flag(const vis_PropRef* r, const char* name, int code, int* flag)
{
    if (!vis_Prop_Check(r, name, code, VIS_PROPREQ_ANY)) return;
    if (code >= 0) {
        *flag = vis_Prop_SlotOf(r, code) ? 1 : 0;
        return;
    }
    *flag = 0;
    vis_UProp* up = vis_Prop_SyncUser(r);
    if (up && vis_UProp_Index(code) < up->num) vis_UPropValueFlag(up, code, flag);
}

void vis_Prop_SetCodes(const vis_PropRef* r, int* num, int* codes)
{
    int n = 0;
    for (int code = 0; code < r->table->num; ++code)
        if (vis_Prop_SlotOf(r, code)) {
            if (codes) codes[n] = code;
            ++n;
        }
    *num = n;
}

void vis_Prop_Params(const vis_PropRef* r, const char* name, int code, int* datatype, int* count, int* nloc)
{
    if (!vis_Prop_Check(r, name, code, VIS_PROPREQ_ANY)) return;
    static const int blocktype[5] = {VIS_PROP_INTEGER, VIS_PROP_DOUBLE, VIS_PROP_STRING, VIS_PROP_FLOAT,
                                     VIS_PROP_DOUBLE};
    *count = 0;
    *nloc = 0;
    if (code < 0) {
        int flag = 0;
        *datatype = blocktype[vis_UProp_Block(code)];
        vis_UProp* up = vis_Prop_SyncUser(r);
        if (up && vis_UProp_Index(code) < up->num) vis_UPropValueFlag(up, code, &flag);
        *count = *nloc = flag;
        return;
    }
    *datatype = r->table->rows[code].datatype;
    const vis_PropSlot* s = vis_Prop_SlotOf(r, code);
    if (!s) return;
    *count = s->count;
    *nloc = s->perloc > 0 ? s->count / s->perloc : 0;
}

void vis_Prop_Name(const vis_PropRef* r, const char* name, int code, char* out)
{
    if (!vis_Prop_Check(r, name, code, VIS_PROPREQ_ANY)) return;
    std::strcpy(out, code < 0 ? "User value" : r->table->rows[code].name);
}

/* ---- options ---- */

/* Unsets a parameter: a table slot loses its data and stays for a later set. */
static void vis_Prop_Unset(const vis_PropRef* r, const char* name, int code)
{
    if (!vis_Prop_Check(r, name, code, VIS_PROPREQ_ANY)) return;
    if (code < 0) {
        vis_UProp* up = vis_Prop_SyncUser(r);
        if (!up || vis_UProp_Index(code) >= up->num) return;
        vis_UPropSetParami(up, VIS_PROP_UNSET, code);
        int ierr = vis_UPropError(up);
        if (ierr) *r->ierr = ierr;
        return;
    }
    vis_PropSlot* s = vis_Prop_Slot(r, code);
    if (!s) return;
    vsy_Free(s->data);
    std::memset(s, 0, sizeof(*s));
}

void vis_Prop_SetParami(const vis_PropRef* r, const char* name, int type, int value, int (*typeok)(int), int* ptype)
{
    switch (type) {
    case VIS_PROP_TYPE:
        if (typeok(value)) *ptype = value;
        else vsy_ErrorRecord(r->ierr, name, SYS_ERROR_ENUM, "iparam= %d", value);
        break;
    case VIS_PROP_UNSET: vis_Prop_Unset(r, name, value); break;
    default: vsy_ErrorRecord(r->ierr, name, SYS_ERROR_ENUM, "type= %d", type); break;
    }
}

/* ---- stream form ---- */

#define VIS_PROP_STREAMVERSION 1
/* Room for the parameter bytes of the largest table while a stream loads. */
#define VIS_PROP_MAXNUM 256

/* Member numbers of the stream: 1 SProp, 2 EProp, 3 MProp, 4 GProp, 5 RProp, 6 CPair. */
static int vis_Prop_Member(const vis_PropTable* t)
{
    const vis_PropTable* members[6] = {&vis_SPropTable, &vis_EPropTable, &vis_MPropTable,
                                       &vis_GPropTable, &vis_RPropTable, &vis_CPairTable};
    for (int i = 0; i < 6; ++i)
        if (members[i] == t) return i + 1;
    return 0;
}

void vis_Prop_PutParams(const vis_PropRef* r, vis_ModelStream* s)
{
    int n = 0;
    vis_Prop_SetCodes(r, &n, nullptr);
    vis_ModelStream_PutInt(s, n);
    for (int code = 0; code < r->table->num; ++code) {
        const vis_PropSlot* p = vis_Prop_SlotOf(r, code);
        if (!p) continue;
        int datatype = r->table->rows[code].datatype;
        int head[4] = {code, datatype, p->count, p->perloc};
        vis_ModelStream_PutInts(s, 4, head);
        if (datatype == VIS_PROP_INTEGER) vis_ModelStream_PutInts(s, p->count, (const int*)p->data);
        else if (datatype != VIS_PROP_STRING) vis_ModelStream_PutDoubles(s, p->count, (const double*)p->data);
        else {
            int len = (int)std::strlen((const char*)p->data);
            vis_ModelStream_PutInt(s, len);
            vis_ModelStream_PutBytes(s, len, p->data);
        }
    }
}

/* The data of a loading parameter of a row: count scalars, or a text shorter than the row's
 * capacity placed in a buffer of that capacity. Null once the stream has failed. */
static void* vis_Prop_GetData(const vis_PropRow* row, int count, vis_ModelStream* s)
{
    void* data = nullptr;
    if (row->datatype == VIS_PROP_INTEGER) vis_ModelStream_GetInts(s, count, (int**)&data);
    else if (row->datatype != VIS_PROP_STRING) vis_ModelStream_GetDoubles(s, count, (double**)&data);
    else {
        int len = -1;
        char* text = nullptr;
        vis_ModelStream_GetIntIn(s, &len, 0, count - 1, "Stream length");
        vis_ModelStream_GetBytes(s, len, &text);
        if (text && (int)std::strlen(text) != len) vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "Stream length= %d", len);
        data = s->ierr ? nullptr : vsy_Malloc((size_t)count);
        if (data) std::memcpy(data, text, (size_t)len + 1);
        else vis_ModelStream_Fail(s, SYS_ERROR_MEMORY, "Malloc vec");
        vsy_Free(text);
    }
    return data;
}

/* Reads one parameter into slot k of a loading store; codes must ascend past *last. */
static void vis_Prop_GetParam(const vis_PropRef* t, int k, int* last, vis_ModelStream* s)
{
    int code = -1, datatype = 0, count = -1, perloc = 0;
    vis_ModelStream_GetIntIn(s, &code, *last + 1, t->table->num - 1, "type");
    if (s->ierr) return;
    const vis_PropRow* row = &t->table->rows[code];
    int fixed = row->datatype == VIS_PROP_STRING ? row->count : row->count * row->nloc;
    vis_ModelStream_GetIntIn(s, &datatype, row->datatype, row->datatype, "datatype");
    if (row->datatype == VIS_PROP_STRING) vis_ModelStream_GetIntIn(s, &count, fixed, fixed, "nument");
    else vis_ModelStream_GetIntIn(s, &count, row->countparam < 0 ? 1 : 0, row->countparam < 0 ? fixed : INT_MAX, "nument");
    vis_ModelStream_GetIntIn(s, &perloc, 1, count > 1 ? count : 1, "perloc");
    if (!s->ierr && count % perloc != 0) vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "perloc= %d", perloc);
    void* data = s->ierr ? nullptr : vis_Prop_GetData(row, count, s);
    if (!data) return;
    vis_PropSlot* slot = &(*t->slots)[k];
    slot->set = 1;
    slot->count = count;
    slot->perloc = perloc;
    slot->data = data;
    t->byte[code] = (unsigned char)(k + 1);
    *t->nslots = k + 1;
    *last = code;
}

void vis_Prop_GetParams(const vis_PropRef* t, vis_ModelStream* s)
{
    int n = 0, last = -1;
    vis_ModelStream_GetIntIn(s, &n, 0, t->table->num, "Stream count");
    if (s->ierr) return;
    *t->slots = (vis_PropSlot*)vis_Model_Calloc((size_t)(n > 0 ? n : 1), sizeof(vis_PropSlot));
    if (!*t->slots) vis_ModelStream_Fail(s, SYS_ERROR_MEMORY, "Malloc vec");
    for (int k = 0; k < n && !s->ierr; ++k) vis_Prop_GetParam(t, k, &last, s);
}

void vis_Prop_StreamSave(const vis_PropRef* r, const char* name, int type, FILE* stream)
{
    vis_ModelStream s;
    vis_ModelStream_Begin(&s, stream);
    vis_UProp* up = r->table->nuser >= 0 ? vis_Prop_SyncUser(r) : nullptr;
    vis_ModelStream_PutMark(&s, "VPRP");
    vis_ModelStream_PutInt(&s, VIS_PROP_STREAMVERSION);
    vis_ModelStream_PutInt(&s, vis_Prop_Member(r->table));
    vis_ModelStream_PutInt(&s, type);
    vis_Prop_PutParams(r, &s);
    vis_ModelStream_PutInt(&s, up ? 1 : 0);
    vis_ModelStream_PutEnd(&s);
    if (up) vis_UProp_StreamPut(up, &s);
    vis_ModelStream_Report(&s, r->ierr, name);
}

void vis_Prop_Take(const vis_PropRef* r, const vis_PropRef* from)
{
    vis_Prop_Clear(r);
    std::memcpy(r->byte, from->byte, (size_t)r->table->num);
    *r->slots = *from->slots;
    *r->nslots = *from->nslots;
    *r->uprop = *from->uprop;
}

void vis_Prop_StreamLoad(const vis_PropRef* r, const char* name, int (*typeok)(int), int* type, FILE* stream)
{
    vis_ModelStream s;
    vis_ModelStream_Begin(&s, stream);
    int member = vis_Prop_Member(r->table), newtype = 0, user = 0, ierr = 0, nslots = 0;
    unsigned char byte[VIS_PROP_MAXNUM] = {0};
    vis_PropSlot* slots = nullptr;
    vis_UProp* up = nullptr;
    vis_PropRef t = {&ierr, byte, &slots, &nslots, &up, r->table};
    if (r->table->num > VIS_PROP_MAXNUM) vis_ModelStream_Fail(&s, SYS_ERROR_SEVERE, "Table too large");
    vis_ModelStream_GetMark(&s, "VPRP");
    vis_ModelStream_GetVersion(&s, VIS_PROP_STREAMVERSION);
    vis_ModelStream_GetIntIn(&s, &member, member, member, "Stream member");
    vis_ModelStream_GetInt(&s, &newtype);
    if (!s.ierr && !typeok(newtype)) vis_ModelStream_Fail(&s, SYS_ERROR_FORMAT, "type= %d", newtype);
    vis_Prop_GetParams(&t, &s);
    vis_ModelStream_GetIntIn(&s, &user, 0, r->table->nuser >= 0 ? 1 : 0, "Stream user");
    vis_ModelStream_GetEnd(&s);
    if (user && !s.ierr) up = vis_UProp_StreamGet(&s);
    if (!vis_ModelStream_Report(&s, r->ierr, name)) {
        vis_Prop_Clear(&t);
        return;
    }
    vis_Prop_Take(r, &t);
    *type = newtype;
}

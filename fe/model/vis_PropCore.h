/* vis_PropCore: the one implementation of the property family's parameter store.
 *
 * A family member (vis_SProp, vis_EProp, vis_MProp, vis_GProp, vis_RProp, vis_CPair) is a
 * record whose fields begin: ierr, type, one byte per parameter, the slot array, its length,
 * the vis_UProp of its user values. A parameter's byte is 0 while it is unset, otherwise its
 * slot's position plus 1; the first set appends a slot, a later set replaces the slot's data.
 *
 * Reading (every Value operation): a code below -5000000 or not below the table's size is
 * code 2 with the member's range text; a negative code is a user value, whose index must be
 * below the member's "Number of user values" (code 2 "type= %d"); a request of another kind
 * than the parameter's type is code 8 "Improper data type, type= %d". An unset parameter leaves
 * the destination untouched: callers preset their defaults. Integer requests read integer
 * parameters; float and double requests both read float and double parameters (floats are
 * held as doubles); string requests read strings, copying up to the capacity with the end.
 *
 * Setting: a scalar setter stores one scalar (one location); a vector setter stores the row's
 * full size, count times locations, or for a row counted at run time the value of its count
 * parameter times locations (an unset or negative count is code 8 "Count parameter not set,
 * type= %d"). A string is cut to the row's capacity. A failed allocation is code 4 "type= %d"
 * and keeps the old value.
 *
 * Options (SetParami): VIS_PROP_TYPE sets the type as Def would, keeping every parameter (a
 * refused type is code 2 "iparam= %d"); VIS_PROP_UNSET makes the parameter of the code given as
 * value unset again, with the range check of a read; another option is code 2 "type= %d".
 *
 * Stream form (StreamSave, StreamLoad; version 1), records of the codec of vis_ModelStream.h
 * (little-endian 32-bit integers, IEEE doubles, CRC-32 at the end of each record): mark
 * "VPRP"; version; member (1 SProp, 2 EProp, 3 MProp, 4 GProp, 5 RProp); type; the set
 * parameters (their number, then per parameter in ascending code: code, data type, count,
 * scalars per location, and the count integers or doubles, or for a string its length
 * without the end and its bytes); 1 when a record of the user values (vis_UProp.h) follows,
 * else 0; the checksum. Floats are written as the doubles they are held as. Load checks every
 * field against the member's table (code ascending, data type, count within the row's size,
 * string shorter than its capacity), the type as Def does and the checksum before it replaces
 * anything: a stream that is truncated, malformed or of another member is code 12, a read
 * failure code 6, a null stream code 5 "stream", a failed allocation code 4, and the object
 * then keeps all it held. The stream is left where the load stopped.
 * The stream is a stdio FILE the caller opened in binary mode and still owns.
 */
#ifndef VIS_PROPCORE_H
#define VIS_PROPCORE_H

#include "vis_PropTables.h"

#include <cstdio>

#include "vis_UProp.h"

struct vis_ModelStream;

/* Options of SetParami; VIS_PROP_UNSET (2) is shared with vis_UPropSetParami. */
#define VIS_PROP_TYPE 1

typedef struct vis_PropSlot {
    int set;    /* 1 when a value stands in the slot */
    int spare;
    int count;  /* scalars held; for a string its capacity */
    int perloc; /* scalars at one location */
    void* data; /* int, double or char array, owned */
} vis_PropSlot;

/* The fields of a member record that the store works on. */
typedef struct vis_PropRef {
    int* ierr;
    unsigned char* byte;
    vis_PropSlot** slots;
    int* nslots;
    struct vis_UProp** uprop;
    const vis_PropTable* table;
} vis_PropRef;

/* Request kinds. */
#define VIS_PROPREQ_ANY 0
#define VIS_PROPREQ_INT 'i'
#define VIS_PROPREQ_FLOAT 'f'
#define VIS_PROPREQ_DOUBLE 'd'
#define VIS_PROPREQ_STRING 's'

/* Releases every slot's data, the slots and the user values, and marks all parameters unset. */
void vis_Prop_Clear(const vis_PropRef* r);
/* Stores n scalars (-1: the row's full size) of a request kind; exactly one of iv, dv, sv is
 * used by the kind. */
void vis_Prop_Set(const vis_PropRef* r, const char* name, int code, int kind, int n, const int* iv,
                  const double* dv, const char* sv);
/* Reads a parameter into the destination of the kind (iv, dv, fv or sv). */
void vis_Prop_Get(const vis_PropRef* r, const char* name, int code, int kind, int* iv, double* dv,
                  float* fv, char* sv);
void vis_Prop_Flag(const vis_PropRef* r, const char* name, int code, int* flag);
/* Data type of the table (user values: by block), scalars held and locations held (0, 0 when
 * unset). */
void vis_Prop_Params(const vis_PropRef* r, const char* name, int code, int* datatype, int* count, int* nloc);
/* Number of set parameters of the table and, unless codes is null, their codes ascending. */
void vis_Prop_SetCodes(const vis_PropRef* r, int* num, int* codes);
/* The parameter's name; "User value" for a negative code. */
void vis_Prop_Name(const vis_PropRef* r, const char* name, int code, char* out);
/* The slot of a set parameter of the table, or null; the code must have passed a check. */
const vis_PropSlot* vis_Prop_SlotOf(const vis_PropRef* r, int code);
/* Range and type check of a Value operation; 1 when the call may go on. */
int vis_Prop_Check(const vis_PropRef* r, const char* name, int code, int kind);

/* SetParami of a member whose type field is *ptype and whose types typeok accepts. */
void vis_Prop_SetParami(const vis_PropRef* r, const char* name, int type, int value, int (*typeok)(int), int* ptype);
/* The record of a member; the loaded record replaces the parameters and sets *type. */
void vis_Prop_StreamSave(const vis_PropRef* r, const char* name, int type, FILE* stream);
void vis_Prop_StreamLoad(const vis_PropRef* r, const char* name, int (*typeok)(int), int* type, FILE* stream);
/* The parameter section of a record, for objects with records of their own: PutParams writes
 * it; GetParams reads it into an empty store t (to be cleared by the caller on failure). */
void vis_Prop_PutParams(const vis_PropRef* r, struct vis_ModelStream* s);
void vis_Prop_GetParams(const vis_PropRef* t, struct vis_ModelStream* s);
/* Clears r and moves into it the parameters and user values of the store from. */
void vis_Prop_Take(const vis_PropRef* r, const vis_PropRef* from);

/* The reference of a member record p whose table is `tab`. */
#define VIS_PROP_REF(p, tab) {&(p)->ierr, (p)->byte, &(p)->slots, &(p)->nslots, &(p)->uprop, &(tab)}

/* Declarations of the value verbs of member P. */
#define VIS_PROP_DECLARE_VALUES(P)                                                    \
    void P##SetValuei(P* p, int code, int value);                                     \
    void P##SetValueiv(P* p, int code, const int* values);                            \
    void P##SetValuef(P* p, int code, float value);                                   \
    void P##SetValuefv(P* p, int code, const float* values);                          \
    void P##SetValued(P* p, int code, double value);                                  \
    void P##SetValuedv(P* p, int code, const double* values);                         \
    void P##SetValuec(P* p, int code, const char* value);                             \
    void P##SetValueId(P* p, int code, int id);                                       \
    void P##ValueFlag(P* p, int code, int* flag);                                     \
    void P##ValueId(P* p, int code, int* id);                                         \
    void P##ValueParams(P* p, int code, int* datatype, int* count, int* nloc);        \
    void P##ValueName(P* p, int code, char* name);                                    \
    void P##ValueFloat(P* p, int code, float* value);                                 \
    void P##ValueDouble(P* p, int code, double* value);                               \
    void P##ValueString(P* p, int code, char* value);                                 \
    void P##ValueInteger(P* p, int code, int* value);

/* Declarations of the life verbs of member P: New, Delete, Error, Def(type), GetType, and the
 * options and stream form told above: SetParami, StreamSave, StreamLoad. */
#define VIS_PROP_DECLARE_LIFE(P)         \
    P* P##New(void);                     \
    void P##Delete(P* p);                \
    int P##Error(P* p);                  \
    void P##Def(P* p, int type);         \
    void P##GetType(P* p, int* type);    \
    void P##SetParami(P* p, int type, int value); \
    void P##StreamSave(P* p, FILE* stream);       \
    void P##StreamLoad(P* p, FILE* stream);

/* Null check of a member operation: returns from the caller after a code 5 report. */
#define VIS_PROP_ENTER(p, name) \
    if (vis_Model_IsNull(p, name)) return

/* Definitions of the value verbs of member P over table TAB; report names are the verbs'. */
#define VIS_PROP_DEFINE_VALUES(P, TAB)                                                      \
    void P##SetValuei(P* p, int code, int value)                                            \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValuei");                                                  \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Set(&r, #P "SetValuei", code, VIS_PROPREQ_INT, 1, &value, nullptr, nullptr); \
    }                                                                                       \
    void P##SetValueiv(P* p, int code, const int* values)                                   \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValueiv");                                                 \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Set(&r, #P "SetValueiv", code, VIS_PROPREQ_INT, -1, values, nullptr, nullptr); \
    }                                                                                       \
    void P##SetValuef(P* p, int code, float value)                                          \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValuef");                                                  \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        double d = value;                                                                   \
        vis_Prop_Set(&r, #P "SetValuef", code, VIS_PROPREQ_FLOAT, 1, nullptr, &d, nullptr); \
    }                                                                                       \
    void P##SetValuefv(P* p, int code, const float* values)                                 \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValuefv");                                                 \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_SetFloats(&r, #P "SetValuefv", code, values);                              \
    }                                                                                       \
    void P##SetValued(P* p, int code, double value)                                         \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValued");                                                  \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Set(&r, #P "SetValued", code, VIS_PROPREQ_DOUBLE, 1, nullptr, &value, nullptr); \
    }                                                                                       \
    void P##SetValuedv(P* p, int code, const double* values)                                \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValuedv");                                                 \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Set(&r, #P "SetValuedv", code, VIS_PROPREQ_DOUBLE, -1, nullptr, values, nullptr); \
    }                                                                                       \
    void P##SetValuec(P* p, int code, const char* value)                                    \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValuec");                                                  \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Set(&r, #P "SetValuec", code, VIS_PROPREQ_STRING, -1, nullptr, nullptr, value); \
    }                                                                                       \
    void P##SetValueId(P* p, int code, int id)                                              \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "SetValueId");                                                 \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Set(&r, #P "SetValueId", code, VIS_PROPREQ_INT, 1, &id, nullptr, nullptr); \
    }                                                                                       \
    void P##ValueFlag(P* p, int code, int* flag)                                            \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueFlag");                                                  \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Flag(&r, #P "ValueFlag", code, flag);                                      \
    }                                                                                       \
    void P##ValueId(P* p, int code, int* id)                                                \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueId");                                                    \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Get(&r, #P "ValueId", code, VIS_PROPREQ_INT, id, nullptr, nullptr, nullptr); \
    }                                                                                       \
    void P##ValueParams(P* p, int code, int* datatype, int* count, int* nloc)              \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueParams");                                                \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Params(&r, #P "ValueParams", code, datatype, count, nloc);                 \
    }                                                                                       \
    void P##ValueName(P* p, int code, char* name)                                           \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueName");                                                  \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Name(&r, #P "ValueName", code, name);                                      \
    }                                                                                       \
    void P##ValueFloat(P* p, int code, float* value)                                        \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueFloat");                                                 \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Get(&r, #P "ValueFloat", code, VIS_PROPREQ_FLOAT, nullptr, nullptr, value, nullptr); \
    }                                                                                       \
    void P##ValueDouble(P* p, int code, double* value)                                      \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueDouble");                                                \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Get(&r, #P "ValueDouble", code, VIS_PROPREQ_DOUBLE, nullptr, value, nullptr, nullptr); \
    }                                                                                       \
    void P##ValueString(P* p, int code, char* value)                                        \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueString");                                                \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Get(&r, #P "ValueString", code, VIS_PROPREQ_STRING, nullptr, nullptr, nullptr, value); \
    }                                                                                       \
    void P##ValueInteger(P* p, int code, int* value)                                        \
    {                                                                                       \
        VIS_PROP_ENTER(p, #P "ValueInteger");                                               \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                                               \
        vis_Prop_Get(&r, #P "ValueInteger", code, VIS_PROPREQ_INT, value, nullptr, nullptr, nullptr); \
    }

/* Definitions of the life verbs of member P with short name SHORT. Def clears every parameter
 * and sets the type; a type that P##_TypeOk (defined by the member) refuses is code 2
 * "type= %d" and changes nothing. SetParami and StreamLoad check a type with P##_TypeOk too. */
#define VIS_PROP_DEFINE_LIFE(P, TAB, SHORT)                         \
    P* P##New(void) { return (P*)vis_Model_NewRecord(sizeof(P), SHORT); } \
    void P##Delete(P* p)                                            \
    {                                                               \
        if (!p) return;                                             \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                       \
        vis_Prop_Clear(&r);                                         \
        vsy_Free(p);                                                \
    }                                                               \
    int P##Error(P* p) { return vis_Model_TakeError(p ? &p->ierr : nullptr); } \
    void P##Def(P* p, int type)                                     \
    {                                                               \
        VIS_PROP_ENTER(p, #P "Def");                                \
        if (!P##_TypeOk(type)) {                                    \
            vsy_ErrorRecord(&p->ierr, #P "Def", SYS_ERROR_ENUM, "type= %d", type); \
            return;                                                 \
        }                                                           \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                       \
        vis_Prop_Clear(&r);                                         \
        p->type = type;                                             \
    }                                                               \
    void P##GetType(P* p, int* type)                                \
    {                                                               \
        VIS_PROP_ENTER(p, #P "GetType");                            \
        if (type) *type = p->type;                                  \
    }                                                               \
    void P##SetParami(P* p, int type, int value)                    \
    {                                                               \
        VIS_PROP_ENTER(p, #P "SetParami");                          \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                       \
        vis_Prop_SetParami(&r, #P "SetParami", type, value, P##_TypeOk, &p->type); \
    }                                                               \
    void P##StreamSave(P* p, FILE* stream)                          \
    {                                                               \
        VIS_PROP_ENTER(p, #P "StreamSave");                         \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                       \
        vis_Prop_StreamSave(&r, #P "StreamSave", p->type, stream);  \
    }                                                               \
    void P##StreamLoad(P* p, FILE* stream)                          \
    {                                                               \
        VIS_PROP_ENTER(p, #P "StreamLoad");                         \
        vis_PropRef r = VIS_PROP_REF(p, TAB);                       \
        vis_Prop_StreamLoad(&r, #P "StreamLoad", P##_TypeOk, &p->type, stream); \
    }

/* Vector float setter: converts the row's full size to doubles. */
void vis_Prop_SetFloats(const vis_PropRef* r, const char* name, int code, const float* values);

#endif

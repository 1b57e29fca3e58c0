/* vis_ModelSupport: shared mechanics of the model objects; see vis_ModelSupport.h. */
#include "vis_ModelSupport.h"

#include "vis_Group.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

#include <cstring>

void* vis_Model_NewRecord(size_t size, const char* shortname)
{
    void* rec = vsy_Malloc(size);
    if (!rec) {
        vsy_ErrorMessage(shortname, SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(rec, 0, size);
    return rec;
}

void* vis_Model_Calloc(size_t n, size_t size)
{
    void* p = vsy_Malloc(n * size);
    if (p) std::memset(p, 0, n * size);
    return p;
}

int vis_Model_IsNull(const void* obj, const char* name)
{
    if (obj) return 0;
    vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
    return 1;
}

int vis_Model_ObjectType(void* obj, const char* name, int objecttype, int want)
{
    if (vis_Model_IsNull(obj, name)) return 0;
    if (objecttype == want) return 1;
    vsy_ErrorRecord((int*)obj, name, SYS_ERROR_OBJECTTYPE, "objecttype= %d", objecttype);
    return 0;
}

int vis_Model_TakeError(int* ierr)
{
    if (!ierr) return SYS_ERROR_NULLOBJECT;
    int code = *ierr;
    *ierr = 0;
    return code;
}

void* vis_Model_TableGet(vsy_HashTable* tab, int key)
{
    if (!tab) return nullptr;
    void* value = nullptr;
    vsy_HashTableGet(tab, key, &value);
    return value;
}

int vis_Model_TablePut(int* ierr, const char* name, vsy_HashTable** tab, int key, void* value)
{
    if (!*tab) *tab = vsy_HashTableNew();
    if (*tab) {
        vsy_HashTableInsert(*tab, key, value);
        /* A failed growth keeps the entry; only a missing entry is a failure here. */
        vsy_HashTableError(*tab);
        if (vis_Model_TableGet(*tab, key) == value) return 1;
    }
    vsy_ErrorRecord(ierr, name, SYS_ERROR_MEMORY, "index= %d", key);
    return 0;
}

int vis_Model_TableCount(vsy_HashTable* tab)
{
    int n = 0;
    if (tab) vsy_HashTableCount(tab, &n);
    return n;
}

char* vis_Model_StrDup(const char* text)
{
    if (!text) return nullptr;
    size_t n = std::strlen(text) + 1;
    char* copy = (char*)vsy_Malloc(n);
    if (copy) std::memcpy(copy, text, n);
    return copy;
}

void* vis_Model_TableRecord(int* ierr, const char* name, vsy_HashTable** tab, int key, size_t size, int* max)
{
    void* rec = vis_Model_TableGet(*tab, key);
    if (rec) return rec;
    rec = vis_Model_Calloc(1, size);
    if (!rec) {
        vsy_ErrorRecord(ierr, name, SYS_ERROR_MEMORY, "index= %d", key);
        return nullptr;
    }
    if (!vis_Model_TablePut(ierr, name, tab, key, rec)) {
        vsy_Free(rec);
        return nullptr;
    }
    if (max && key > *max) *max = key;
    return rec;
}

void vis_Model_ToDouble(int n, const float* from, double* to)
{
    for (int i = 0; i < n; ++i) to[i] = from[i];
}

void vis_Model_ToFloat(int n, const double* from, float* to)
{
    for (int i = 0; i < n; ++i) to[i] = (float)from[i];
}

void vis_Model_MaskTags(int mask, int* n, int* tags)
{
    *n = 0;
    for (int t = 1; t <= 31; ++t)
        if (mask & (1 << (t - 1))) {
            if (tags) tags[*n] = t;
            ++*n;
        }
}

int vis_Model_TableToGroup(int* ierr, const char* name, vsy_HashTable* tab, vis_Group* group, int parent, int child,
                           int (*word)(const void* record))
{
    if (vis_Model_IsNull(group, name)) return 0;
    if (group->parenttype != parent) {
        vsy_ErrorRecord(ierr, name, SYS_ERROR_ENUM, "parenttype= %d", group->parenttype);
        return 0;
    }
    if (child >= 0 && group->childtype != child) {
        vsy_ErrorRecord(ierr, name, SYS_ERROR_ENUM, "childtype= %d", group->childtype);
        return 0;
    }
    if (!tab) return 1;
    int key;
    void* value;
    vsy_HashTableInitIter(tab);
    for (vsy_HashTableNextIter(tab, &key, &value); value; vsy_HashTableNextIter(tab, &key, &value)) {
        if (key < 1 || key > group->nument) continue;
        int flags = 0;
        vis_GroupGetIndex(group, key, &flags);
        vis_GroupSetIndex(group, key, flags | (word ? word(value) : 1));
    }
    return 1;
}

void vis_Model_Cross(const double* a, const double* b, double* c)
{
    c[0] = a[1] * b[2] - a[2] * b[1];
    c[1] = a[2] * b[0] - a[0] * b[2];
    c[2] = a[0] * b[1] - a[1] * b[0];
}

double vis_Model_Dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/* vsy_PropSet: named integer values; see vsy_PropSet.h. */
#include "vsy_PropSet.h"

#include "vis_ModelSupport.h"
#include "vsy_Dictionary.h"
#include "vsy_Error.h"

vsy_PropSet* vsy_PropSetNew(void)
{
    vsy_PropSet* set = (vsy_PropSet*)vis_Model_NewRecord(sizeof(vsy_PropSet), "PropSet");
    if (!set) return nullptr;
    set->dict = vsy_DictionaryNew();
    if (!set->dict) {
        vsy_Free(set);
        vsy_ErrorMessage("PropSet", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    return set;
}

void vsy_PropSetDelete(vsy_PropSet* set)
{
    if (!set) return;
    const char* name;
    void* value;
    vsy_DictionaryInitIter(set->dict);
    for (vsy_DictionaryNextIter(set->dict, &name, &value); name; vsy_DictionaryNextIter(set->dict, &name, &value))
        vsy_Free(value);
    vsy_DictionaryDelete(set->dict);
    vsy_Free(set);
}

int vsy_PropSetError(vsy_PropSet* set)
{
    return vis_Model_TakeError(set ? &set->ierr : nullptr);
}

void vsy_PropSet_Insert(vsy_PropSet* set, const char* name, int value)
{
    if (vis_Model_IsNull(set, "vsy_PropSet_Insert") || vis_Model_IsNull(name, "vsy_PropSet_Insert")) return;
    void* old = nullptr;
    vsy_DictionaryGet(set->dict, name, &old);
    if (old) {
        vsy_DictionaryRemove(set->dict, name);
        vsy_Free(old);
    }
    vsy_PropSetEntry* e = (vsy_PropSetEntry*)vsy_Malloc(sizeof(vsy_PropSetEntry));
    if (e) {
        e->set = 1;
        e->count = 1;
        e->type = 4;
        e->value = value;
        vsy_DictionaryInsert(set->dict, name, e);
        void* got = nullptr;
        vsy_DictionaryError(set->dict);
        vsy_DictionaryGet(set->dict, name, &got);
        if (got == e) return;
        vsy_Free(e);
    }
    set->ierr = SYS_ERROR_MEMORY;
    vsy_ErrorNumber("vsy_PropSet_Insert", SYS_ERROR_MEMORY);
}

void vsy_PropSetValue(vsy_PropSet* set, const char* name, int* flag, int* value)
{
    if (vis_Model_IsNull(set, "vsy_PropSetValue")) return;
    void* e = nullptr;
    if (name) vsy_DictionaryGet(set->dict, name, &e);
    *flag = e != nullptr;
    if (e) *value = ((const vsy_PropSetEntry*)e)->value;
}

void vsy_PropSetCount(vsy_PropSet* set, int* count)
{
    if (vis_Model_IsNull(set, "vsy_PropSetCount")) return;
    vsy_DictionaryCount(set->dict, count);
}

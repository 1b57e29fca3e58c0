/* vis_WriterTable: walks and look-ups of the model's hash tables and step list, shared by the
 * keyword and neutral writers. */
#ifndef VIS_WRITERTABLE_H
#define VIS_WRITERTABLE_H

#include "vsy_HashTable.h"
#include "vsy_List.h"

/* Calls f(key, object) for every object of a table in ascending key order; nothing for a null
 * table. The table's cursor moves, so one model serves one writer at a time. */
template <class F>
void vis_Writer_Ordered(vsy_HashTable* tab, F f)
{
    if (!tab) return;
    vsy_HashTableInitIterOrder(tab);
    for (;;) {
        int key = 0;
        void* value = nullptr;
        vsy_HashTableNextIter(tab, &key, &value);
        if (!value) return;
        f(key, value);
    }
}

/* The object of a table by key, or null (also for a null table). */
inline void* vis_Writer_Find(vsy_HashTable* tab, int key)
{
    void* value = nullptr;
    if (tab) vsy_HashTableGet(tab, key, &value);
    return value;
}

/* Element `pos` (from 1) of a list, or null (also for a null list). */
inline void* vis_Writer_ListItem(vsy_List* list, int pos)
{
    int num = 0;
    if (!list) return nullptr;
    vsy_ListCount(list, &num);
    if (pos < 1 || pos > num) return nullptr;
    void* value = nullptr;
    vsy_ListRef(list, pos, &value);
    return value;
}

#endif

/* vsy_List: pointers by position; see vsy_List.h. */
#include "vsy_List.h"

#include "vsy_Error.h"

vsy_List* vsy_ListNew(void)
{
    vsy_List* list = (vsy_List*)vsy_Malloc(sizeof(vsy_List));
    if (!list) {
        vsy_ErrorMessage("List", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    list->ierr = 0;
    list->num = 0;
    list->cap = 0;
    list->items = nullptr;
    return list;
}

void vsy_ListDelete(vsy_List* list)
{
    if (!list) return;
    vsy_Free(list->items);
    vsy_Free(list);
}

int vsy_ListError(vsy_List* list)
{
    if (!list) return SYS_ERROR_NULLOBJECT;
    int ierr = list->ierr;
    list->ierr = 0;
    return ierr;
}

/* Makes room for positions up to cap; 0 when the array cannot grow (nothing changed). */
static int vsy_List_Room(vsy_List* list, int cap)
{
    if (cap <= list->cap && list->items) return 1;
    void** items = (void**)vsy_Realloc(list->items, sizeof(void*) * ((size_t)cap + 1));
    if (!items) return 0;
    list->items = items;
    list->cap = cap;
    return 1;
}

void vsy_ListDef(vsy_List* list, int nument)
{
    if (!list) {
        vsy_ErrorNumber("vsy_ListDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (nument < 0) {
        vsy_ErrorRecord(&list->ierr, "vsy_ListDef", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    if (!vsy_List_Room(list, nument)) {
        vsy_ErrorRecord(&list->ierr, "vsy_ListDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    list->num = 0;
}

void vsy_ListAppend(vsy_List* list, void* value)
{
    if (!list) {
        vsy_ErrorNumber("vsy_ListAppend", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (list->num >= list->cap || !list->items) {
        int cap = list->cap < 4 ? 8 : 2 * list->cap;
        if (!vsy_List_Room(list, cap)) {
            vsy_ErrorRecord(&list->ierr, "vsy_ListAppend", SYS_ERROR_MEMORY, "Realloc vec");
            return;
        }
    }
    list->items[++list->num] = value;
}

void vsy_ListSet(vsy_List* list, int index, void* value)
{
    if (!list) {
        vsy_ErrorNumber("vsy_ListSet", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (index < 1 || index > list->num) {
        vsy_ErrorRecord(&list->ierr, "vsy_ListSet", SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    list->items[index] = value;
}

void vsy_ListRef(vsy_List* list, int index, void** value)
{
    if (!value) return;
    *value = (list && index >= 1 && index <= list->num) ? list->items[index] : nullptr;
}

void vsy_ListCount(vsy_List* list, int* num)
{
    if (num) *num = list ? list->num : 0;
}

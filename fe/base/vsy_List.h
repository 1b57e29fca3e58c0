/* vsy_List: an ordered list of pointers addressed by position from 1.
 *
 * The model carries its solution steps in one (table code 2280), which is why this container is
 * built although the other rarely used containers are left out. The list stores pointers only
 * and never releases what they point to. Positions 1 to `num` are in use; `items` holds cap + 1
 * entries, entry 0 reserved. Growth doubles the capacity.
 */
#ifndef VSY_LIST_H
#define VSY_LIST_H

typedef struct vsy_List {
    int ierr;     /* last error, 0 for none */
    int num;      /* positions in use */
    int cap;      /* highest position the array can hold */
    void** items; /* cap + 1 pointers, owned; entry 0 unused */
} vsy_List;

/* Creates an empty list; null with "List" code 4 "Creation Failure". */
vsy_List* vsy_ListNew(void);
/* Releases the array and the record; the pointers held are not touched. */
void vsy_ListDelete(vsy_List* list);
int vsy_ListError(vsy_List* list);
/* Empties the list and makes room for nument positions. Negative nument: code 1
 * "nument= %d"; a failed allocation: code 4 "nument= %d"; both leave the list as it was. */
void vsy_ListDef(vsy_List* list, int nument);
/* Appends a pointer at position num + 1. A failed growth is code 4 "Realloc vec" and appends
 * nothing. */
void vsy_ListAppend(vsy_List* list, void* value);
/* Replaces the pointer at a position from 1 to num; any other: code 1 "index= %d". */
void vsy_ListSet(vsy_List* list, int index, void* value);
/* Writes the pointer at a position, or null for a position not in use (no error). */
void vsy_ListRef(vsy_List* list, int index, void** value);
/* Writes the number of positions in use. */
void vsy_ListCount(vsy_List* list, int* num);

#endif

/* vsy_LinkList: a pool of fixed-size nodes addressed by index.
 *
 * Invariants: nodes 1 to `len` exist; each is on the free chain (inuse 0) or the used chain
 * (inuse 1), both doubly linked through `prev` and `next` with 0 as the end; the payload lies at
 * offset 16 of its node and `stride` always leaves room for it. Growth reallocates, chains the
 * new nodes as free and clears their `inuse`.
 */
#include "vsy_LinkList.h"

#include "vsy_Error.h"

#include <climits>
#include <cstring>

typedef struct vsy_LinkListNode {
    int prev;
    int next;
    int inuse;
} vsy_LinkListNode;

static vsy_LinkListNode* vsy_LinkList_Node(const vsy_LinkList* list, int i)
{
    return (vsy_LinkListNode*)(list->nodes + (size_t)i * (size_t)list->stride);
}

vsy_LinkList* vsy_LinkListNew(void)
{
    vsy_LinkList* list = (vsy_LinkList*)vsy_Malloc(sizeof(vsy_LinkList));
    if (!list) {
        vsy_ErrorMessage("LinkList", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(list, 0, sizeof(vsy_LinkList));
    list->nodes = nullptr;
    return list;
}

void vsy_LinkListDelete(vsy_LinkList* list)
{
    if (!list) return;
    if (list->nodes) vsy_Free(list->nodes);
    vsy_Free(list);
}

int vsy_LinkListError(vsy_LinkList* list)
{
    if (!list) return SYS_ERROR_NULLOBJECT;
    int ierr = list->ierr;
    list->ierr = 0;
    return ierr;
}

void vsy_LinkListInit(vsy_LinkList* list)
{
    if (!list->nodes) return;
    for (int i = 1; i <= list->len; ++i) {
        vsy_LinkListNode* node = vsy_LinkList_Node(list, i);
        node->prev = i - 1;
        node->next = i < list->len ? i + 1 : 0;
        node->inuse = 0;
    }
    list->freehead = list->len > 0 ? 1 : 0;
    list->usedhead = 0;
}

void vsy_LinkListDef(vsy_LinkList* list, int len, int nbytes)
{
    if (!list) {
        vsy_ErrorNumber("vsy_LinkListDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (len < 0 || len > INT_MAX - 2) {
        vsy_ErrorRecord(&list->ierr, "vsy_LinkListDef", SYS_ERROR_VALUE, "len= %d", len);
        return;
    }
    if (nbytes < 0 || nbytes > INT_MAX / 2) {
        vsy_ErrorRecord(&list->ierr, "vsy_LinkListDef", SYS_ERROR_VALUE, "nbytes= %d", nbytes);
        return;
    }
    if (len == 0) len = 16;
    if (list->nodes) vsy_Free(list->nodes);
    list->nbytes = nbytes;
    list->len = len + 1;
    list->words = (nbytes + 11) / 8 + 1;
    /* The payload starts at offset 16; for payloads of 1 to 4 bytes past a multiple of 8 the
     * word count above is one short of that, so it is raised to hold the whole payload. */
    if (8 * list->words < VSY_LINKLIST_PAYLOAD + nbytes) list->words = (VSY_LINKLIST_PAYLOAD + nbytes + 7) / 8;
    list->stride = 8 * list->words;
    list->nodes = (unsigned char*)vsy_Malloc((size_t)(len + 2) * (size_t)list->stride);
    if (!list->nodes) {
        list->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorMessage("vsy_LinkListDef", SYS_ERROR_MEMORY, "Malloc node");
        /* Without nodes the list holds nothing; the next Add defines it again. */
        list->len = 0;
        list->freehead = 0;
        list->usedhead = 0;
        return;
    }
    /* Node 0 is never used; it is cleared so that the array holds no undefined bytes. */
    std::memset(list->nodes, 0, (size_t)list->stride);
    vsy_LinkListInit(list);
}

void vsy_LinkList_Expand(vsy_LinkList* list, int wanted, const char* name)
{
    long long len = list->len;
    long long grown;
    if (wanted <= 0) {
        grown = len + 20000 < 2 * len ? len + 20000 : 2 * len;
    } else {
        grown = len + 20000 > wanted ? len + 20000 : wanted;
    }
    if (grown > INT_MAX - 2) grown = INT_MAX - 2;
    unsigned char* nodes = nullptr;
    if (grown > len) nodes = (unsigned char*)vsy_Realloc(list->nodes, (size_t)(grown + 1) * (size_t)list->stride);
    if (!nodes) {
        list->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorMessage(name, SYS_ERROR_MEMORY, "Realloc node");
        return;
    }
    list->nodes = nodes;
    int first = (int)len + 1;
    int last = (int)grown;
    for (int i = first; i <= last; ++i) {
        vsy_LinkListNode* node = vsy_LinkList_Node(list, i);
        node->prev = i == first ? 0 : i - 1;
        node->next = i < last ? i + 1 : list->freehead;
        node->inuse = 0;
    }
    if (list->freehead) vsy_LinkList_Node(list, list->freehead)->prev = last;
    list->freehead = first;
    list->len = last;
}

void vsy_LinkListAdd(vsy_LinkList* list, int* index, void** payload)
{
    if (index) *index = 0;
    if (payload) *payload = nullptr;
    if (!list) {
        vsy_ErrorNumber("vsy_LinkListAdd", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!list->nodes) {
        vsy_LinkListDef(list, 0, list->nbytes);
        if (!list->nodes) return;
    }
    if (list->freehead == 0) vsy_LinkList_Expand(list, 0, "vsy_LinkListAdd");
    if (list->freehead == 0) return;
    int i = list->freehead;
    vsy_LinkListNode* node = vsy_LinkList_Node(list, i);
    list->freehead = node->next;
    if (list->freehead) vsy_LinkList_Node(list, list->freehead)->prev = 0;
    node->prev = 0;
    node->next = list->usedhead;
    if (list->usedhead) vsy_LinkList_Node(list, list->usedhead)->prev = i;
    list->usedhead = i;
    node->inuse = 1;
    if (index) *index = i;
    if (payload) *payload = (unsigned char*)node + VSY_LINKLIST_PAYLOAD;
}

void vsy_LinkListGet(vsy_LinkList* list, int index, void** payload)
{
    if (!payload) return;
    *payload = nullptr;
    if (!list || !list->nodes || index < 1 || index > list->len) return;
    vsy_LinkListNode* node = vsy_LinkList_Node(list, index);
    if (node->inuse) *payload = (unsigned char*)node + VSY_LINKLIST_PAYLOAD;
}

void vsy_LinkListRemove(vsy_LinkList* list, int index)
{
    if (!list) {
        vsy_ErrorNumber("vsy_LinkListRemove", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!list->nodes || index < 1 || index > list->len || !vsy_LinkList_Node(list, index)->inuse) {
        vsy_ErrorRecord(&list->ierr, "vsy_LinkListRemove", SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    vsy_LinkListNode* node = vsy_LinkList_Node(list, index);
    if (node->prev) vsy_LinkList_Node(list, node->prev)->next = node->next;
    else list->usedhead = node->next;
    if (node->next) vsy_LinkList_Node(list, node->next)->prev = node->prev;
    node->prev = 0;
    node->next = list->freehead;
    if (list->freehead) vsy_LinkList_Node(list, list->freehead)->prev = index;
    list->freehead = index;
    node->inuse = 0;
}

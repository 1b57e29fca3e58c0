/* vsy_ADTree: alternating digital tree over a fixed box; see vsy_ADTree.h.
 *
 * Invariant: every item lies inside the tree box, and the item at a tree node lies inside the
 * cell that the path from the root gives that node; its left subtree holds items whose
 * coordinate along the node's level is below the cell's middle, its right subtree the others.
 * The search prunes a subtree when the query range cannot meet the subtree's cell.
 */
#include "vsy_ADTree.h"

#include "vsy_Error.h"
#include "vsy_IntHash.h"
#include "vsy_LinkList.h"

#include <cstring>

/* One pending subtree of a search, with its cell. */
typedef struct vsy_ADTreeFrame {
    int node;
    int level;
    double lo[6];
    double hi[6];
} vsy_ADTreeFrame;

/* Payload size: three ints and a spare, then dim doubles. */
#define VSY_ADTREE_NBYTES(dim) (16 + 8 * (dim))
#define VSY_ADTREE_HITS0 1000

/* Tree node by index; the list keeps payloads at a fixed offset of each node. */
static vsy_ADTreeNode* vsy_ADTree_Node(const vsy_ADTree* tree, int index)
{
    const vsy_LinkList* list = tree->nodes;
    return (vsy_ADTreeNode*)(list->nodes + (size_t)index * (size_t)list->stride + VSY_LINKLIST_PAYLOAD);
}

vsy_ADTree* vsy_ADTreeNew(void)
{
    vsy_ADTree* tree = (vsy_ADTree*)vsy_Malloc(sizeof(vsy_ADTree));
    if (!tree) {
        vsy_ErrorMessage("ADTree", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(tree, 0, sizeof(vsy_ADTree));
    tree->tol = 0.0001;
    tree->depth = -1;
    tree->nodes = nullptr;
    tree->keys = nullptr;
    tree->hits = nullptr;
    tree->stack = nullptr;
    return tree;
}

void vsy_ADTreeDelete(vsy_ADTree* tree)
{
    if (!tree) return;
    vsy_LinkListDelete(tree->nodes);
    vsy_IntHashDelete(tree->keys);
    vsy_Free(tree->hits);
    vsy_Free(tree->stack);
    vsy_Free(tree);
}

int vsy_ADTreeError(vsy_ADTree* tree)
{
    if (!tree) return SYS_ERROR_NULLOBJECT;
    int ierr = tree->ierr;
    tree->ierr = 0;
    return ierr;
}

void vsy_ADTreeDef(vsy_ADTree* tree, int type, int nument, const double boxmin[3], const double boxmax[3])
{
    if (!tree) {
        vsy_ErrorNumber("vsy_ADTreeDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (nument < 0) {
        vsy_ErrorRecord(&tree->ierr, "vsy_ADTreeDef", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    vsy_LinkListDelete(tree->nodes);
    vsy_IntHashDelete(tree->keys);
    tree->keys = nullptr;
    tree->root = 0;
    tree->count = 0;
    tree->depth = -1;
    tree->numhits = 0;
    tree->hitnext = 0;
    tree->type = 0;
    tree->dim = 0;
    tree->nodes = vsy_LinkListNew();
    if (!tree->nodes) {
        tree->ierr = SYS_ERROR_MEMORY;
        return;
    }
    if (type != VSY_ADTREE_POINT && type != VSY_ADTREE_EXTENT) {
        vsy_ErrorRecord(&tree->ierr, "vsy_ADTreeDef", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    int dim = type == VSY_ADTREE_POINT ? 3 : 6;
    vsy_LinkListDef(tree->nodes, nument, VSY_ADTREE_NBYTES(dim));
    tree->keys = vsy_IntHashNew();
    if (tree->keys) vsy_IntHashDef(tree->keys, nument);
    int code = vsy_LinkListError(tree->nodes);
    if (!code && tree->keys) code = vsy_IntHashError(tree->keys);
    if (!tree->keys || code) {
        tree->ierr = SYS_ERROR_MEMORY;
        return;
    }
    tree->type = type;
    tree->dim = dim;
    for (int i = 0; i < 3; ++i) {
        tree->boxmin[i] = boxmin[i];
        tree->boxmax[i] = boxmax[i];
    }
}

void vsy_DataTableSetParamd(vsy_ADTree* tree, int option, double value)
{
    if (!tree) {
        vsy_ErrorNumber("vsy_DataTableSetParamd", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (option != VSY_ADTREE_TOL) {
        vsy_ErrorRecord(&tree->ierr, "vsy_DataTableSetParamd", SYS_ERROR_ENUM, "type= %d", option);
        return;
    }
    tree->tol = value;
}

/* The checks of an insertion, in the order of the rules; 0 after a report. */
static int vsy_ADTree_Admit(vsy_ADTree* tree, int type, int key, const double* min, const double* max)
{
    const char* name = "vsy_ADTreeInsertExtent";
    if (tree->type != type || !tree->keys) {
        vsy_ErrorRecord(&tree->ierr, name, SYS_ERROR_OPERATION, "%s", "");
        return 0;
    }
    if (key == 0) {
        vsy_ErrorRecord(&tree->ierr, name, SYS_ERROR_VALUE, "key= %d", key);
        return 0;
    }
    int index = 0;
    vsy_IntHashGet(tree->keys, key, &index);
    if (index >= 1) {
        vsy_ErrorRecord(&tree->ierr, name, SYS_ERROR_OPERATION, "Insert existing key= %d", key);
        return 0;
    }
    for (int i = 0; i < 3; ++i) {
        /* Written as "not inside" so that a NaN coordinate is refused as well. */
        if (!(tree->boxmin[i] <= min[i]) || !(max[i] <= tree->boxmax[i])) {
            vsy_ErrorRecord(&tree->ierr, name, SYS_ERROR_OPERATION, "Insert outside bounds, key= %d", key);
            return 0;
        }
    }
    return 1;
}

/* Adds the node of an admitted item and hangs it into the tree. */
static void vsy_ADTree_Place(vsy_ADTree* tree, int key, const double* coords)
{
    int index = 0;
    vsy_LinkListAdd(tree->nodes, &index, nullptr);
    if (index == 0) {
        vsy_LinkListError(tree->nodes);
        tree->ierr = SYS_ERROR_MEMORY;
        return;
    }
    vsy_IntHashInsert(tree->keys, key, index);
    if (vsy_IntHashError(tree->keys)) {
        vsy_LinkListRemove(tree->nodes, index);
        tree->ierr = SYS_ERROR_MEMORY;
        return;
    }
    vsy_ADTreeNode* node = vsy_ADTree_Node(tree, index);
    node->key = key;
    node->left = 0;
    node->right = 0;
    node->spare = 0;
    std::memcpy(node->coords, coords, sizeof(double) * (size_t)tree->dim);
    ++tree->count;
    if (tree->root == 0) {
        tree->root = index;
        tree->depth = 0;
        return;
    }
    vsy_ADTreeNode* root = vsy_ADTree_Node(tree, tree->root);
    if (root->left == tree->root || root->right == tree->root) {
        vsy_ErrorRecord(&tree->ierr, "vsy_ADTree_Insert", SYS_ERROR_OPERATION, "Root cyclic, index= %d", tree->root);
        return;
    }
    double lo[6], hi[6];
    for (int i = 0; i < 6; ++i) {
        lo[i] = tree->boxmin[i % 3];
        hi[i] = tree->boxmax[i % 3];
    }
    vsy_ADTree_Insert(tree, lo, hi, 0, tree->root, index, node->coords);
}

void vsy_ADTree_Insert(vsy_ADTree* tree, double* lo, double* hi, int level, int node, int index,
                       const double* coords)
{
    for (;;) {
        vsy_ADTreeNode* at = vsy_ADTree_Node(tree, node);
        int d = level % tree->dim;
        double mid = (lo[d] + hi[d]) * 0.5;
        int left = mid > coords[d];
        int* link = left ? &at->left : &at->right;
        if (*link == 0) {
            *link = index;
            if (tree->depth < level + 1) tree->depth = level + 1;
            return;
        }
        vsy_ADTreeNode* child = vsy_ADTree_Node(tree, *link);
        if (child->left == *link || child->right == *link) {
            vsy_ErrorRecord(&tree->ierr, "vsy_ADTree_Insert", SYS_ERROR_OPERATION, "Insert cyclic, id= %d", *link);
            return;
        }
        if (left) hi[d] = mid;
        else lo[d] = mid;
        node = *link;
        ++level;
    }
}

void vsy_ADTreeInsertExtent(vsy_ADTree* tree, int key, const double min[3], const double max[3])
{
    if (!tree) {
        vsy_ErrorNumber("vsy_ADTreeInsertExtent", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!vsy_ADTree_Admit(tree, VSY_ADTREE_EXTENT, key, min, max)) return;
    double coords[6] = {min[0], min[1], min[2], max[0], max[1], max[2]};
    vsy_ADTree_Place(tree, key, coords);
}

void vsy_ADTreeInsertPoints(vsy_ADTree* tree, int key, int n, const double* points)
{
    double min[3] = {points[0], points[1], points[2]};
    double max[3] = {points[0], points[1], points[2]};
    for (int p = 1; p < n; ++p) {
        for (int i = 0; i < 3; ++i) {
            double v = points[3 * p + i];
            if (v < min[i]) min[i] = v;
            if (v > max[i]) max[i] = v;
        }
    }
    vsy_ADTreeInsertExtent(tree, key, min, max);
}

void vsy_ADTreeInsertPoint(vsy_ADTree* tree, int key, const double x[3])
{
    if (!tree) {
        vsy_ErrorNumber("vsy_ADTreeInsertExtent", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!vsy_ADTree_Admit(tree, VSY_ADTREE_POINT, key, x, x)) return;
    vsy_ADTree_Place(tree, key, x);
}

/* Appends a key to hits: 1000 entries at first, then doubling. 0 when it cannot grow. */
static int vsy_ADTree_Hit(vsy_ADTree* tree, int key)
{
    if (tree->numhits == tree->hitcap) {
        int cap = tree->hitcap ? 2 * tree->hitcap : VSY_ADTREE_HITS0;
        int* hits = (int*)vsy_Realloc(tree->hits, sizeof(int) * (size_t)cap);
        if (!hits) {
            vsy_ErrorRecord(&tree->ierr, "vsy_ADTreeSearchExtent", SYS_ERROR_MEMORY, "%s", "Realloc vec");
            return 0;
        }
        tree->hits = hits;
        tree->hitcap = cap;
    }
    tree->hits[tree->numhits++] = key;
    return 1;
}

/* Whether all dim coordinates lie in the query range, bounds included; the first component
 * out of range ends the test. */
static int vsy_ADTree_InRange(const vsy_ADTree* tree, const double* coords)
{
    for (int i = 0; i < tree->dim; ++i) {
        if (coords[i] < tree->qmin[i] || coords[i] > tree->qmax[i]) return 0;
    }
    return 1;
}

/* Makes the search stack hold n frames; 0 after a report when it cannot. */
static int vsy_ADTree_Stack(vsy_ADTree* tree, int n)
{
    if (n <= tree->stackcap) return 1;
    void* stack = vsy_Realloc(tree->stack, sizeof(vsy_ADTreeFrame) * (size_t)n);
    if (!stack) {
        vsy_ErrorRecord(&tree->ierr, "vsy_ADTreeSearchExtent", SYS_ERROR_MEMORY, "%s", "Realloc vec");
        return 0;
    }
    tree->stack = stack;
    tree->stackcap = n;
    return 1;
}

/* The query range: for boxes the six-dimensional range of overlap, for points the widened
 * box. */
static void vsy_ADTree_Query(vsy_ADTree* tree, const double* min, const double* max)
{
    for (int i = 0; i < 3; ++i) {
        if (tree->type == VSY_ADTREE_EXTENT) {
            tree->qmin[i] = tree->boxmin[i];
            tree->qmax[i] = max[i] + tree->tol;
            tree->qmin[i + 3] = min[i] - tree->tol;
            tree->qmax[i + 3] = tree->boxmax[i];
        } else {
            tree->qmin[i] = min[i] - tree->tol;
            tree->qmax[i] = max[i] + tree->tol;
        }
    }
}

/* Pushes the children of the frame on top, right below left, so that left is walked first. A
 * child is pushed only where its cell can meet the query (or always with `full`). */
static int vsy_ADTree_Children(vsy_ADTree* tree, int* top, const vsy_ADTreeNode* node)
{
    vsy_ADTreeFrame* stack = (vsy_ADTreeFrame*)tree->stack;
    vsy_ADTreeFrame parent = stack[*top];
    int d = parent.level % tree->dim;
    double mid = (parent.lo[d] + parent.hi[d]) * 0.5;
    int goright = node->right && (tree->full || (parent.hi[d] >= tree->qmin[d] && tree->qmax[d] >= mid));
    int goleft = node->left && (tree->full || (mid >= tree->qmin[d] && tree->qmax[d] >= parent.lo[d]));
    if (!vsy_ADTree_Stack(tree, *top + 2)) return 0;
    stack = (vsy_ADTreeFrame*)tree->stack;
    --*top;
    if (goright) {
        vsy_ADTreeFrame* f = &stack[++*top];
        *f = parent;
        f->node = node->right;
        f->level = parent.level + 1;
        f->lo[d] = mid;
    }
    if (goleft) {
        vsy_ADTreeFrame* f = &stack[++*top];
        *f = parent;
        f->node = node->left;
        f->level = parent.level + 1;
        f->hi[d] = mid;
    }
    return 1;
}

void vsy_ADTreeSearchExtent(vsy_ADTree* tree, const double min[3], const double max[3])
{
    if (!tree) {
        vsy_ErrorNumber("vsy_ADTreeSearchExtent", SYS_ERROR_NULLOBJECT);
        return;
    }
    tree->visited = 0;
    tree->numhits = 0;
    tree->hitnext = 0;
    if (tree->root == 0 || tree->dim == 0) return;
    vsy_ADTree_Query(tree, min, max);
    if (!vsy_ADTree_Stack(tree, tree->depth + 2)) return;
    int top = 0;
    vsy_ADTreeFrame* first = (vsy_ADTreeFrame*)tree->stack;
    first->node = tree->root;
    first->level = 0;
    for (int i = 0; i < 6; ++i) {
        first->lo[i] = tree->boxmin[i % 3];
        first->hi[i] = tree->boxmax[i % 3];
    }
    std::memcpy(tree->lo, first->lo, sizeof tree->lo);
    std::memcpy(tree->hi, first->hi, sizeof tree->hi);
    while (top >= 0) {
        const vsy_ADTreeFrame* f = (vsy_ADTreeFrame*)tree->stack + top;
        const vsy_ADTreeNode* node = vsy_ADTree_Node(tree, f->node);
        ++tree->visited;
        if (vsy_ADTree_InRange(tree, node->coords) && !vsy_ADTree_Hit(tree, node->key)) return;
        if (!vsy_ADTree_Children(tree, &top, node)) return;
    }
}

void vsy_ADTreeNextHit(vsy_ADTree* tree, int* key)
{
    if (!tree) {
        vsy_ErrorNumber("vsy_ADTreeNextHit", SYS_ERROR_NULLOBJECT);
        return;
    }
    *key = tree->hitnext < tree->numhits ? tree->hits[tree->hitnext++] : 0;
}

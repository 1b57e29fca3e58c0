/* vsy_ADTree: an alternating digital tree over a fixed box, for points (type 1) and for
 * axis-aligned boxes (type 2).
 *
 * Each level of the tree halves the current cell along the next coordinate, cycling through
 * the `dim` coordinates (3 for points; 6 for boxes, held as the point of their three minima and
 * three maxima). Every tree node stores one item: an item goes left where the cell's middle is
 * above its coordinate and right otherwise, so equal values go right. Items never move and the
 * tree is never rebalanced.
 *
 * Tree nodes are payloads of a vsy_LinkList: key, left, right (node indices, 0 for none), a
 * spare int, then `dim` doubles, 40 bytes for type 1 and 64 for type 2. `keys` maps a key to
 * its node index.
 *
 * A range query widens the query box by `tol` on every side (0.0001 after New). For boxes it
 * finds every item that overlaps the widened query: item minima from the tree box's minimum to
 * max + tol, item maxima from min - tol to the tree box's maximum. For points, every point in
 * the widened box. Bounds count as inside. The keys found stay in `hits`, in the pre-order of
 * the tree (left before right), and vsy_ADTreeNextHit hands them out one by one.
 *
 * A search walks an explicit stack (kept in the tree) rather than recursing, so that a tree
 * made deep by many equal items cannot exhaust the call stack. A search allocates only when
 * `hits` or that stack must grow.
 *
 * Errors follow the library's conventions: code in `ierr`, report through vsy_ErrorMessage.
 * vsy_ADTreeInsertPoint (type 1) is an addition of this implementation: it is the one way to
 * fill a point tree.
 */
#ifndef VSY_ADTREE_H
#define VSY_ADTREE_H

struct vsy_LinkList;
struct vsy_IntHash;

/* Tree types of vsy_ADTreeDef. */
#define VSY_ADTREE_POINT 1
#define VSY_ADTREE_EXTENT 2
/* Option of vsy_DataTableSetParamd: the search tolerance. */
#define VSY_ADTREE_TOL 1

/* A tree node, the payload of a vsy_LinkList node; only dim coordinates are stored. */
typedef struct vsy_ADTreeNode {
    int key;
    int left;          /* node index, 0 for none */
    int right;
    int spare;         /* keeps the coordinates on 8 bytes */
    double coords[6];
} vsy_ADTreeNode;

typedef struct vsy_ADTree {
    int ierr;       /* last error */
    int root;       /* node index of the root; 0 when empty */
    double tol;     /* search tolerance */
    int full;       /* non-zero: a search visits the whole tree with no pruning */
    int hitnext;    /* cursor over the hits */
    int type;       /* 1 points, 2 extents; 0 before a successful Def */
    int dim;        /* 3 for points, 6 for extents */
    int count;      /* items */
    int depth;      /* deepest level reached, -1 when never used */
    struct vsy_LinkList* nodes; /* tree nodes, owned */
    struct vsy_IntHash* keys;   /* key to node index, owned */
    double boxmin[3];
    double boxmax[3];
    int hitcap;     /* capacity of hits */
    int numhits;    /* hits of the last search */
    int* hits;      /* keys found, owned */
    int visited;    /* tree nodes visited by the last search */
    double qmin[6]; /* query range */
    double qmax[6];
    double lo[6];   /* the cell a search starts from (each stack frame keeps its own) */
    double hi[6];
    /* Bookkeeping of this implementation: the stack of a search. */
    int stackcap;
    void* stack;
} vsy_ADTree;

/* Creates an undefined tree; null after reporting "ADTree" code 4 "Creation Failure". */
vsy_ADTree* vsy_ADTreeNew(void);
/* Releases the nodes, the keys, the hits and the record. */
void vsy_ADTreeDelete(vsy_ADTree* tree);
int vsy_ADTreeError(vsy_ADTree* tree);
/* Destroys the items of an earlier definition and starts over: type 1 or 2 (else error 2
 * "type= %d", after which the tree holds a new undefined list and takes no item), room for
 * nument items to start with (negative: error 1 "nument= %d", nothing changed), and the tree
 * box. count becomes 0 and depth -1. */
void vsy_ADTreeDef(vsy_ADTree* tree, int type, int nument, const double boxmin[3], const double boxmax[3]);
/* Option VSY_ADTREE_TOL sets tol; any other is error 2 "type= %d", reported under the name
 * "vsy_DataTableSetParamd". */
void vsy_DataTableSetParamd(vsy_ADTree* tree, int option, double value);
/* One box under a key. Refused, with nothing changed: a tree not of type 2 (error 8, no text),
 * key 0 (error 1 "key= %d"), a key already in the tree (error 8 "Insert existing key= %d"), a
 * box not inside the tree box (error 8 "Insert outside bounds, key= %d"). */
void vsy_ADTreeInsertExtent(vsy_ADTree* tree, int key, const double min[3], const double max[3]);
/* The bounding box of n points (three doubles each) inserted as one box; with n below 2 the box
 * is the first point. */
void vsy_ADTreeInsertPoints(vsy_ADTree* tree, int key, int n, const double* points);
/* One point of a type 1 tree, with the checks of vsy_ADTreeInsertExtent (a tree not of type 1
 * is error 8). */
void vsy_ADTreeInsertPoint(vsy_ADTree* tree, int key, const double x[3]);
/* Finds the items in range of the box min, max widened by tol and leaves them in `hits`. */
void vsy_ADTreeSearchExtent(vsy_ADTree* tree, const double min[3], const double max[3]);
/* The next key found by the last search; 0 after the last one. */
void vsy_ADTreeNextHit(vsy_ADTree* tree, int* key);

/* Internal: places node `index` with coordinates `coords` below `node` (at `level`) in the cell
 * lo, hi, which it narrows on the way down. Error 8 "Insert cyclic, id= %d" on a corrupted
 * tree. */
void vsy_ADTree_Insert(vsy_ADTree* tree, double* lo, double* hi, int level, int node, int index,
                       const double* coords);

#endif

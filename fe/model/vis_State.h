/* vis_State: one result quantity over all nodes or all elements of a mesh, optionally with a
 * value at each node or each face of an element.
 *
 * Definition. vis_StateDef(state, nument, parenttype, childtype, datatype) fixes the entities
 * (parent SYS_NODE or SYS_ELEM), where an element's values sit (child 0: one value per
 * entity; SYS_NODE: one per element node in the element's node order; 12: one per element
 * face in the face order of the element topology tables) and the data type, a class code that
 * gives the components per value, `datanum`: 0 scalar 1, 1 vector 3, 2 tensor 6 (xx yy zz xy
 * yz zx), 3 general tensor 9 (row by row), 5 element result 8, 9 six dof 6, 11 to 22
 * "Scalars1" to "Scalars12" 1 to 12; no other code is accepted. A child equal to the parent
 * becomes 0. The physical quantities of the data type table (vis_StateDataType) name what a
 * writer's result request asks for; each row there has one of these classes.
 *
 * Storage. vis_StateClear allocates the store in the precision chosen by vis_StatePre before
 * (2 float, the default; 4 double; 3 byte, 9 short and 11 half through a vsy_RedPre, bytes and
 * shorts over the range given by vis_StateExt) and clears every entity. Element states with a
 * child need the vis_GridFun (vis_StateSetObject with SYS_GRIDFUN) for the number of nodes or
 * faces of each element; Clear also checks the grid function's entity count against nument.
 * An entity reads back data only once it was set: vis_StateData leaves the values of an
 * unset entity to the caller and vis_StateDataStat tells which were set.
 *
 * Reports: Def code 1 "nument= %d", code 2 "parenttype= %d, childtype= %d", code 2
 * "datatype= %d"; Clear code 8 "No entities defined", code 5 "GridFun object", code 8 "Entity
 * number mismatch", code 4 "Malloc state"; any data operation before Clear code 8 "Clear not
 * called"; an entity outside 1 to nument code 1 "id= %d"; a child outside the element's code 1
 * "no= %d"; Pre code 2 "precision= %d"; states of different shapes in an operation code 8
 * "State mismatch"; a missing grid function where one is needed code 5 "GridFun object".
 *
 * Derived scalars. vis_StateSetDerive names a qualifier (VIS_STATE_X ... below, numbered in
 * the order of the qualifier table from 1): a component, the magnitude of a vector, the von
 * Mises stress, the principal values or the mean of a tensor. vis_StateOperateUnary with
 * VIS_STATE_DERIVE makes a scalar state of it, and vis_StateExtent reports it.
 *
 * The state is not stored in a model table: the caller keeps it.
 */
#ifndef VIS_STATE_H
#define VIS_STATE_H

#include <cstdio>

struct vis_GridFun;
struct vis_Group;
struct vis_IdTran;
struct vsy_HashTable;
struct vsy_RedPre;

/* Largest number of components per value (Scalars12). */
#define VIS_STATE_MAXCOMP 12

/* The child type of values per element face. */
#define VIS_STATE_FACE 12

/* Qualifiers of derived scalars, numbered in the order of the qualifier table. */
#define VIS_STATE_X 1
#define VIS_STATE_Y 2
#define VIS_STATE_Z 3
#define VIS_STATE_MAG 4
#define VIS_STATE_XX 5
#define VIS_STATE_YY 6
#define VIS_STATE_ZZ 7
#define VIS_STATE_XY 8
#define VIS_STATE_YZ 9
#define VIS_STATE_ZX 10
#define VIS_STATE_VONMISES 11
#define VIS_STATE_MINIMUM 26
#define VIS_STATE_MAXIMUM 27
#define VIS_STATE_INTERMEDIATE 28
#define VIS_STATE_TRESCA 44
#define VIS_STATE_MEAN 46

/* Unary operations: state = op(a). */
#define VIS_STATE_COPY 1
#define VIS_STATE_NEGATE 2
#define VIS_STATE_DERIVE 3 /* the scalar named by a's qualifier */
#define VIS_STATE_SCALE 4  /* a times the parameter (OperateUnarydv) */
#define VIS_STATE_SHIFT 5  /* a plus the parameter (OperateUnarydv) */
/* Binary operations: state = a op b, component by component. */
#define VIS_STATE_ADD 1
#define VIS_STATE_SUBTRACT 2
#define VIS_STATE_MULTIPLY 3
#define VIS_STATE_MIN 4
#define VIS_STATE_MAX 5
#define VIS_STATE_COMBINE 6 /* a plus the parameter times b (OperateBinarydv) */

/* Options of vis_StateSetParami. */
#define VIS_STATE_SECTION 1    /* the shell section of the values */
#define VIS_STATE_LAYPOS 2     /* the layer position */
#define VIS_STATE_LAYERS 3     /* the layer count */
#define VIS_STATE_SYSTEM 4     /* the coordinate system of the values, 0 global */
#define VIS_STATE_DERIVEQUAL 5 /* the qualifier of the derived scalar, as vis_StateSetDerive */

/* Group parameters: the value range a group selection keeps, lo and hi. */
#define VIS_STATE_RANGE 1

typedef struct vis_State {
    int ierr;                  /* last error */
    int precision;             /* store precision: 2, 3, 4, 9 or 11 */
    int nument;                /* entities 1 to nument */
    int parenttype;            /* SYS_NODE or SYS_ELEM */
    int childtype;             /* 0, SYS_NODE or VIS_STATE_FACE */
    int datatype;              /* data type table row */
    int section;               /* shell section the values belong to */
    struct vis_GridFun* gf;    /* the mesh, not owned */
    float* fstore;             /* precision 2 */
    double* dstore;            /* precision 4 */
    unsigned char* rstore;     /* precisions 3, 9, 11, packed by `red` */
    int datanum;               /* components per value */
    long long datacount;       /* values the store holds */
    unsigned char* flags;      /* nument + 1 bytes: 1 where the entity was set */
    /* Beyond the main fields. */
    struct vsy_RedPre* red;    /* packing of the reduced precisions, owned */
    long long* offset;         /* child states: first value of entity i at offset[i], nument + 2 */
    int derive;                /* qualifier of the derived scalar, 0 none */
    int laypos, layers;        /* shell layer position and count of the values */
    double extmin, extmax;     /* range given by vis_StateExt */
    int extset;                /* 1 once vis_StateExt was called */
    double range[2];           /* VIS_STATE_RANGE of group selections */
    int system;                /* coordinate system of the values, 0 global */
    struct vsy_HashTable* coordsys; /* vis_CoordSys by id for vis_StateDirCos, not owned */
} vis_State;

/* Creates an undefined state; null with "State" code 4 "Creation Failure". */
vis_State* vis_StateNew(void);
void vis_StateDelete(vis_State* state);
int vis_StateError(vis_State* state);
/* Precision of the store made by the next vis_StateClear. */
void vis_StatePre(vis_State* state, int precision);
/* Value range of the byte and short precisions. */
void vis_StateExt(vis_State* state, double min, double max);
/* The mesh: objecttype SYS_GRIDFUN only, else code 3 "objecttype= %d". */
void vis_StateSetObject(vis_State* state, int objecttype, void* object);
void vis_StateGetObject(vis_State* state, int objecttype, void** object);
void vis_StateDef(vis_State* state, int nument, int parenttype, int childtype, int datatype);
void vis_StateInq(vis_State* state, int* nument, int* parenttype, int* childtype, int* datatype);
void vis_StateClear(vis_State* state);
/* Components per value. */
void vis_StateDataNum(vis_State* state, int* datanum);
/* Section, layer position and layer count the values belong to; stored and returned only. */
void vis_StateSetDataSect(vis_State* state, int section);
void vis_StateDataSect(vis_State* state, int* section);
void vis_StateSetDataLayPos(vis_State* state, int laypos);
void vis_StateDataLayPos(vis_State* state, int* laypos);
void vis_StateSetDataLayers(vis_State* state, int layers);
void vis_StateDataLayers(vis_State* state, int* layers);
/* The qualifier of the derived scalar: 0 or a VIS_STATE_ qualifier that fits the class (a
 * component or MAG of a vector; components, VONMISES, principal values, TRESCA or MEAN of a
 * tensor; a component of any other class), else code 2 "derive= %d". */
void vis_StateSetDerive(vis_State* state, int derive);

/* Values of entity id: datanum values, or for a child state datanum for each child of the
 * element in order. */
void vis_StateSetData(vis_State* state, int id, const float* values);
void vis_StateSetDatadv(vis_State* state, int id, const double* values);
/* Unsets entity id. */
void vis_StateClearData(vis_State* state, int id);
/* datanum values of each of n entities; a child state gives the mean over the children. An
 * unset entity leaves its values alone. */
void vis_StateData(vis_State* state, int n, const int* ids, float* values);
void vis_StateDatadv(vis_State* state, int n, const int* ids, double* values);
/* 1 for each of n entities that was set, else 0. */
void vis_StateDataStat(vis_State* state, int n, const int* ids, int* stat);
/* Every value of element id (all children), and the value of its child `no` (from 1). */
void vis_StateDataElem(vis_State* state, int id, float* values);
void vis_StateDataElemdv(vis_State* state, int id, double* values);
void vis_StateDataElemEnt(vis_State* state, int id, int no, float* values);
void vis_StateDataElemEntdv(vis_State* state, int id, int no, double* values);
/* Number of children of element id (1 for a state without child). */
void vis_StateElemNum(vis_State* state, int id, int* num);
/* Sum of each component over the set entities (children included). */
void vis_StateSumdv(vis_State* state, double* sum);

/* Range of the derived scalar over the set entities (of the group, when not null): extent[0]
 * the smallest, extent[1] the largest; no set entity gives 0, 0. ExtentLoc also gives the
 * entities where they occur, the first found (0 when none). */
void vis_StateExtent(vis_State* state, struct vis_Group* group, double* extent);
void vis_StateExtentLoc(vis_State* state, struct vis_Group* group, double* extent, int* loc);

void vis_StateOperateUnary(vis_State* state, int oper, vis_State* a);
void vis_StateOperateUnarydv(vis_State* state, int oper, vis_State* a, double param);
void vis_StateOperateBinary(vis_State* state, int oper, vis_State* a, vis_State* b);
void vis_StateOperateBinarydv(vis_State* state, int oper, vis_State* a, vis_State* b, double param);
/* Rotates vectors (v' = R v) and tensors (T' = R T R^t) by the 3x3 matrix R, row by row; six
 * dof values rotate as two vectors. Other classes: code 8 "State mismatch". */
void vis_StateTransform(vis_State* state, const double* rotation);
/* state, a node state, := the mean at each node of the values of `a` (element, element node
 * or node state of the same class) over the elements that hold the node and were set; an
 * element node state `state` takes each node's value from the node state `a`. */
void vis_StateMap(vis_State* state, vis_State* a);
/* A node state: each unset node that is the midside of an element edge whose end nodes are
 * set takes the mean of the end values. */
void vis_StateMidside(vis_State* state);
/* A node position state (data type 0 or any vector): position += factor * displacement. */
void vis_StateDeform(vis_State* state, vis_State* displacement, double factor);
/* The value at natural coordinates rst (r, s and, for solids, t) of element id, interpolated
 * by the element's shape functions from a node state at its nodes or an element node state;
 * 1 when every value it needs was set, else 0 with the values left. Other states: code 8
 * "State mismatch". */
int vis_StateDataElemRST(vis_State* state, int id, const float* rst, float* values);
int vis_StateDataElemRSTdv(vis_State* state, int id, const double* rst, double* values);
/* The topology tuple of element id through the grid function. */
void vis_StateElemType(vis_State* state, int id, int* shape, int* maxi, int* maxj, int* maxk);
/* An element node state := the node state `a` at each element's nodes (vis_StateMap does the
 * same among its other mappings). */
void vis_StateMapElemNode(vis_State* state, vis_State* a);
/* The coordinate system the values are given in (0 global), looked up by vis_StateDirCos in
 * the table of vis_CoordSys by id that vis_StateSetHashTable gives (type SYS_COORDSYS, else
 * code 2 "type= %d"). */
void vis_StateSetSystem(vis_State* state, int system);
void vis_StateSetHashTable(vis_State* state, int type, struct vsy_HashTable* table);
/* The local directions (rows x, y, z) of the values of entity id: the identity in the global
 * system, else the system's directions at the node or the element's centroid; a system not in
 * the table (or no mesh to place the entity) is code 1 "system= %d" with the identity. */
void vis_StateDirCos(vis_State* state, int id, double* tm);
/* Integer parameters VIS_STATE_SECTION to VIS_STATE_DERIVEQUAL; another type is code 2
 * "type= %d". vis_StateSetSection is vis_StateSetDataSect under its other name. */
void vis_StateSetParami(vis_State* state, int type, int value);
void vis_StateSetSection(vis_State* state, int section);
/* Fills idtran with the ids of the set entities in ascending order of their derived scalar
 * (a child state: the mean over the children); equal values keep ascending id. */
void vis_StateSortIdTran(vis_State* state, struct vis_IdTran* idtran);
/* state, an element node vector state, := the gradient of the node scalar state `a` at every
 * node of each solid element, by the shape functions and the inverse Jacobian at the node;
 * elements of other shapes, with an unset node or degenerate stay unset. Other states: code 8
 * "State mismatch". */
void vis_StateDerivative(vis_State* state, vis_State* a);
/* Fills every entity with values known from the mesh: component k is coordinate k % 3 of the
 * node, of the element node, or of the element's centroid. For examples and tests. */
void vis_StateDemo(vis_State* state);
/* Group selection: sets the flag 1 of every entity of a node or element group whose derived
 * scalar lies in the range VIS_STATE_RANGE (a node group from an element node state takes the
 * element's nodes that do). */
void vis_StateSetGroupParamfv(vis_State* state, int type, const float* param);
void vis_StateNodeGroup(vis_State* state, struct vis_Group* group);
void vis_StateElemGroup(vis_State* state, struct vis_Group* group);

/* Native form of a state: type 0 text, 1 binary; code 6 "path= %s" when the file fails,
 * code 12 "path= %s" when Read meets something it did not write. Read defines and fills the
 * state (its grid function must be set for a child state). */
void vis_StateWrite(vis_State* state, int type, const char* path);
void vis_StateRead(vis_State* state, int type, const char* path);
/* Prints the definition and every set entity to the stream (null: standard output). */
void vis_StateList(vis_State* state, FILE* stream);

/* The data type table: keyword, long name, four-letter short name and class of code 0 to 183;
 * 0 and empty texts for a reserved or unknown row. */
int vis_StateDataType(int code, const char** keyword, const char** name, const char** shortname, int* dataclass);
/* Components of a class code; 0 for the matrices and unknown codes. */
int vis_StateClassNum(int dataclass);
/* The keyword and long name of qualifier `no` (from 1); null for an unknown number. */
const char* vis_StateQualifier(int no);

#endif

/* vis_Connect: the finite element mesh: nodes with coordinates, elements with topology and
 * node lists, integer attributes on both, part names and sizes, and the reverse tables of the
 * connectivity kernel (vis_ConnectKernel.h).
 *
 * Numbering. Nodes and elements count from 1; index 0 of every per-entity array is unused.
 * Entity codes SYS_NODE 1, SYS_EDGE 2, SYS_FACE 3, SYS_ELEM 4 (vis_ElemTopology.h). An element
 * is described by its topology tuple shape, maxi, maxj, maxk; shape -1 (byte 255) means not
 * set. A polygon lists its nodes as one closed ring, the first node repeated at the end; a
 * polyhedron lists its faces one after the other, each a closed ring. For both, maxi is the
 * length of that list, maxj the number of edges and maxk the number of faces (1 for a polygon).
 *
 * Building. vis_ConnectNew, optionally vis_ConnectPre (coordinate precision) and
 * vis_ConnectMode (static or dynamic), vis_ConnectDef(numnode, numelem), vis_ConnectExt for the
 * 16-bit precisions, then per element vis_ConnectSetTopology and vis_ConnectSetElemNode, per
 * node vis_ConnectSetCoords or vis_ConnectSetCoordsdv, attributes with the Set/Add/Uni verbs,
 * and finally vis_ConnectKernel. Def with numnode 0 leaves the node count open: it follows the
 * largest node id that an element list or a coordinate names. GenElem and GenNode append
 * entities without moving what exists.
 *
 * Storage (static mode). Element node lists live in chunks of VIS_CONNECT_ELEMCHUNK (65536)
 * elements: element id lies in chunk (id - 1) >> 16 at offset elnodeix[id]. Coordinates live in
 * chunks of coordchunk = 1 << coordshift nodes, three values per node in the order x, y, z; a
 * node's place in its chunk is id - coordchunk * ((id - 1) >> coordshift) - 1. Ids select chunk
 * and place by shifts, never by a search, and a growing mesh never moves an existing chunk of
 * coordinates; a chunk of node lists grows in place (or moves within its 65536 elements) while
 * its elements are being set. Coordinates are stored as float (precision 2), double (4), three
 * 16-bit codes over a per-axis extent (9, one vsy_RedPre per axis), or three half floats (11).
 *
 * Dynamic mode (vis_ConnectMode 1, before Def). Node lists live in the vsy_ChunkList elemlists
 * and the element list of every node in nodelists, which every vis_ConnectSetElemNode keeps
 * current (sorted, each element once); the kernel has nothing to do.
 *
 * Errors. Every failure is reported as the error conventions say. The accessors that take an
 * element or node id (ElemNode, ElemNodePtr, IndElemNode, Topology, ElemNum, ElemCon, ElemCnn,
 * ElemCorn, ElemTopo, Coords, Coordsdv) report a range error with code 1 but leave `ierr`
 * untouched: they are the hot paths, and their callers do not poll. Option errors, setters and
 * the association queries store their code. A size no storage can reach (a node list that
 * would take a chunk past VSY_GROW_MAXCAP entries, an attribute index past the largest array)
 * is code 4 of the object that cannot grow, reported before anything is allocated, with
 * nothing changed; an attribute type that failed on its first value stays absent.
 *
 * A vis_Connect with a vis_GridFun attached (vis_ConnectSetObject with SYS_GRIDFUN) is a thin
 * front: every query whose slot is set calls the slot, without checks of its own, and returns.
 *
 * Concurrency: none. Queries reuse the scratch arrays elnoix, elnoix2 and scratch, so not even
 * reads may run in parallel on one object.
 *
 * Group arguments: a node group given to vis_ConnectExtent or vis_ConnectExtentdv limits the
 * extent to its members; it must be a node group (parent SYS_NODE) of numnode entries, else
 * error 1 through vsy_ErrorNumber (no text) under "vis_ConnectExtent" with the output unwritten.
 * The derived groups and their parameters are in vis_ConnectGroup.h; their slots of the grid
 * function (15 to 18 and 20 to 22) are set by vis_ConnectGridFun.
 *
 * Companion objects, attached with vis_ConnectSetObject and never owned:
 *   - SYS_GRIDFUN, a vis_GridFun: the front above;
 *   - SYS_STATE, a node vis_State of three or more components: vis_ConnectCoords (the float
 *     query) reads the coordinates of the nodes it has set from it, the others from the
 *     arrays; the double query reads the arrays, as before;
 *   - SYS_ELEMNORM, a vis_ElemDat of face data (VIS_ELEMDAT_ENTITY SYS_FACE): for a face that
 *     holds vectors there, vis_ConnectElemFaceNorm returns them instead of computing normals;
 *   - SYS_ELEMTANG, a vis_ElemDat of edge data: the edge tangents.
 * The native forms of vis_ConnectWrite write the faces and edges with vectors of both.
 * The codes of SYS_STATE, SYS_ELEMNORM and SYS_ELEMTANG are this library's own.
 *
 * Departures on purpose from the rules this object follows:
 *   - A kernel that fails releases every table it built, so that a later call starts afresh
 *     rather than returning at once over a half-built table that queries would read.
 *   - The polyhedron index is sized by counting the rings of each list rather than by adding
 *     maxk + 1, so that a list with more rings than its maxk cannot write past the index.
 *   - vis_ConnectError returns the connect's own code first and asks the front's error slot
 *     only when that is 0, so that a failure of the front's own checks is not hidden by it.
 */
#ifndef VIS_CONNECT_H
#define VIS_CONNECT_H

#include <cstdint>

#include "vis_ElemTopology.h"
#include "vis_GridFun.h"

struct vis_Assoc;
struct vis_CHash;
struct vis_Group;
struct vis_State;
struct vis_ElemDat;
struct vsy_HashTable;
struct vsy_ChunkList;
struct vsy_RedPre;

/* Object type codes of vis_ConnectSetObject and vis_ConnectGetObject. */
#define SYS_GRIDFUN 2070
#define SYS_CONNECT 2080
#define SYS_STATE 2410
#define SYS_ELEMNORM 2541
#define SYS_ELEMTANG 2542

/* Attribute types 0 to VIS_CONNECT_MAXASSOC; the ones with a meaning of their own here. */
#define VIS_CONNECT_MAXASSOC 42
#define VIS_ASSOC_ELEMTYPE 0   /* elements: element type; nodes: a mask, 0 skips the node */
#define VIS_ASSOC_PARTFALLBACK 1
#define VIS_ASSOC_PART 2
#define VIS_ASSOC_CSYS 4
#define VIS_ASSOC_USERID 10    /* nodes store id + 1; elements store the id as it is */

/* Options of vis_ConnectGetInteger. */
#define VIS_CONNECT_NUMNODE 1
#define VIS_CONNECT_NUMEDGE 2
#define VIS_CONNECT_NUMFACE 3
#define VIS_CONNECT_NUMELEM 4

/* Options of vis_ConnectSetParami. */
#define VIS_CONNECT_EXACTFACE 1  /* non-zero: a face match must also pass the exact check */
#define VIS_CONNECT_COORDSHIFT 2 /* log2 of the coordinate chunk, 4 to 24, before coordinates */
#define VIS_CONNECT_HEADERFLAG 3 /* word of the native file's second header line */

#define VIS_CONNECT_ELEMSHIFT 16
#define VIS_CONNECT_ELEMCHUNK (1 << VIS_CONNECT_ELEMSHIFT)
#define VIS_CONNECT_COORDSHIFT_DEFAULT 12
/* Longest part name, without its terminator. */
#define VIS_CONNECT_NAMELEN 255

/* Parameters of the derived groups (vis_ConnectGroup.h), set before a group operation. */
typedef struct vis_ConnectGroupParam {
    float angle;       /* feature angle in degrees */
    float cosangle;    /* its cosine, computed in double */
    int signedflag;    /* 0: the direction of normals does not matter */
    int nonmanifold;   /* non-zero: an edge with other than two faces is a feature at once */
    float tolerance;   /* tolerance of the spatial search */
    int assoctype;     /* attribute type 0 to 42 */
    int assocvalue;    /* wanted attribute value */
    int shape;         /* wanted element shape 0 to 9 */
    int dimension;     /* wanted topological dimension 0 to 3 */
    float box[6];      /* minimum x, y, z, then maximum x, y, z */
    float view[16];    /* view matrix by rows; elements 2, 6, 10 are the direction of view */
    int stride;        /* at least 1 */
    int phase;         /* 1 to stride */
    int count;         /* wanted number, at least 0 */
    float curvetol;    /* threshold of the curvature test */
    int curveflag;     /* 0: the full crease test; else only its first steps */
    float cellsize;    /* edge of a sampling cell */
    int seednode;      /* 0 to numnode */
    int seedelem;      /* 0 to numelem */
    int seededge;      /* at least 0 */
    int seedface;      /* at least 0 */
    struct vis_Group* seedgroup; /* the features that stop a region, not owned */
} vis_ConnectGroupParam;

typedef struct vis_Connect {
    int ierr;        /* last error */
    int type;        /* coordinate precision: 2, 4, 9 or 11 */
    int mode;        /* 0 static, 1 dynamic */
    int numelem;     /* elements */
    int numface;     /* faces, for vis_ConnectGetInteger */
    int numedge;     /* edges, for vis_ConnectGetInteger */
    int numnode;     /* nodes; with autonode the largest node id in use */
    int maxelemnode; /* largest node count of any element */
    int maxnodeelem; /* largest element count at any node (kernel; dynamic: high-water mark) */
    int numcoord;    /* nodes that have coordinate storage; higher ids read as zeros */
    int elemalloc;   /* allocated length of the per-element arrays */
    int dimension;   /* 0 until vis_ConnectSetDimension */
    vis_GridFun* gridfun;            /* front table, not owned */
    struct vis_State* state;         /* coordinates held by a node state, not owned */
    struct vis_ElemDat* elemnorm;    /* face normals per element, not owned */
    struct vis_ElemDat* elemtang;    /* edge tangents per element, not owned */
    struct vsy_HashTable* partnames; /* part id to an owned name */
    struct vsy_HashTable* partijk;   /* part id to an owned record of three int32 */
    struct vis_Assoc* nodeassoc[VIS_CONNECT_MAXASSOC + 1];
    struct vis_Assoc* elemassoc[VIS_CONNECT_MAXASSOC + 1];
    struct vis_CHash* edgeassoc[VIS_CONNECT_MAXASSOC + 1];
    struct vis_CHash* faceassoc[VIS_CONNECT_MAXASSOC + 1];
    int* nodeelem;              /* concatenated element lists of all nodes (kernel) */
    int64_t* nodeelempntr;      /* n + 2 entries: start of each node's list */
    int* nodeelemsize;          /* n + 1 entries: length of each node's list */
    short* polyfaceix;          /* polyhedra: face starts within the list, then the end */
    int64_t* polyfacepntr;      /* numelem + 2 entries: first polyfaceix entry per element */
    int headerflag;             /* first word of the native file's second header line */
    unsigned char* shape;       /* element shape, 255 when not set */
    int* maxi;
    int* maxj;
    short* maxk;
    int* chunkcap;              /* capacity of each chunk of node lists */
    int* chunkused;             /* used part of each chunk */
    int64_t elnodecap;          /* total capacity of all chunks */
    int64_t elnodeused;         /* total used */
    int** elnode;               /* chunks of node lists */
    int* elnodeix;              /* offset of an element's list within its chunk */
    int numchunk;               /* chunks in use */
    int* numelemnode;           /* node count per element */
    struct vsy_ChunkList* elemlists; /* dynamic mode: node lists */
    struct vsy_ChunkList* nodelists; /* dynamic mode: element lists of the nodes */
    unsigned short** coordred;  /* coordinate chunks of precisions 9 and 11 */
    float** coordf;             /* coordinate chunks of precision 2 */
    double** coordd;            /* coordinate chunks of precision 4 */
    struct vsy_RedPre* red;     /* the store of precision 11 */
    struct vsy_RedPre* redx;    /* one store per axis, precision 9 */
    struct vsy_RedPre* redy;
    struct vsy_RedPre* redz;
    int elnoixcap;              /* length of elnoix and elnoix2 */
    int* elnoix;                /* scratch: one element's nodes */
    int* elnoix2;               /* second scratch list */
    int* scratch;               /* scratch: lists read from elemlists, corner numbers */
    vis_ConnectGroupParam grp;  /* group parameters */
    int exactface;              /* non-zero: face matches pass the exact check */
    int coordshift;             /* log2 of the coordinate chunk size */
    int coordchunk;             /* coordinate chunk size in nodes */
    /* Bookkeeping of this implementation. */
    int autonode;        /* 1 when Def left the node count open */
    int extset;          /* 1 once vis_ConnectExt gave the extent of precision 9 */
    int numcoordchunk;   /* coordinate chunks allocated (entries of the chunk array) */
    int chunkalloc;      /* entries of elnode, chunkcap and chunkused */
    int scratchcap;      /* length of scratch */
    int* nodescratch;    /* scratch of the node and face merges */
    int nodescratchcap;
    int kernelnode;      /* node count of the kernel tables */
} vis_Connect;

/* Lifecycle. New creates an empty connect (precision 4, static, nothing defined); failure
 * reports "Connect" code 4 "Creation Failure". Delete releases everything the object owns;
 * attached objects (grid function) stay the caller's. Error returns and clears `ierr`. */
vis_Connect* vis_ConnectNew(void);
void vis_ConnectDelete(vis_Connect* connect);
int vis_ConnectError(vis_Connect* connect);

/* Coordinate precision 2, 4, 9 or 11 (else error 2 "type= %d"). Only while no coordinate is
 * stored, else error 8 "Coordinates already set". */
void vis_ConnectPre(vis_Connect* connect, int type);
/* Mode 0 static or 1 dynamic (else error 2 "type= %d"); only before any element is defined,
 * else error 8 "Elements already defined". */
void vis_ConnectMode(vis_Connect* connect, int mode);
/* Gives the counts and allocates the per-element arrays; releases everything an earlier Def or
 * the kernel allocated (attributes, names and the attached objects stay). numnode 0 leaves the
 * node count open. A negative count is error 1 "nument= %d"; a failed allocation error 4
 * "nument= %d" leaves the connect empty. */
void vis_ConnectDef(vis_Connect* connect, int numnode, int numelem);
/* Extent of the coordinates for precision 9: minimum x, y, z, then maximum x, y, z (min above
 * max: error 1 "iparam= %d" with the axis). Ignored by the other precisions. Coordinates stored
 * before are not re-coded: give the extent before the first coordinate (else error 8
 * "Coordinates already set"). */
void vis_ConnectExt(vis_Connect* connect, const float extent[6]);
void vis_ConnectExtdv(vis_Connect* connect, const double extent[6]);
/* Appends n (>= 0, else error 1 "nument= %d") undefined elements or nodes. The new first id is
 * written to *first (may be null). Existing data stays where it is. */
void vis_ConnectGenElem(vis_Connect* connect, int n, int* first);
void vis_ConnectGenNode(vis_Connect* connect, int n, int* first);
/* Makes an element undefined again: shape -1, no nodes. Drops the kernel tables. */
void vis_ConnectDelElem(vis_Connect* connect, int id);
/* Clears a node's coordinates to zeros and its node attributes; drops nothing else. */
void vis_ConnectDelNode(vis_Connect* connect, int id);

/* Companion objects: SYS_GRIDFUN (2070) attaches a front table (null detaches). Any other
 * code: error 3 "objecttype= %d". The object stays the caller's. */
void vis_ConnectSetObject(vis_Connect* connect, int objtype, void* object);
void vis_ConnectGetObject(vis_Connect* connect, int objtype, void** object);
/* Integer options VIS_CONNECT_EXACTFACE, VIS_CONNECT_COORDSHIFT, VIS_CONNECT_HEADERFLAG; any
 * other option error 2 "type= %d", a value out of range error 1 "iparam= %d". */
void vis_ConnectSetParami(vis_Connect* connect, int option, int value);
/* Topological dimension 0 to 3 (else error 1 "iparam= %d"), answered by GetDimension. */
void vis_ConnectSetDimension(vis_Connect* connect, int dimension);

/* Element definition. SetTopology: id 1 to numelem (error 1 "id= %d"), shape 0 to 9 or -1 (error
 * 2 "iparam= %d"), a tuple that describes no element (error 1 "iparam= %d" with maxi). The node
 * count follows from the tuple; a changed count drops the element's node list.
 * SetElemNode: the node list of that count; an element without topology is error 8
 * "Topology not set, id= %d"; a node id below 1, or above numnode when the node count is fixed,
 * error 1 "ix[%d]= %d". Both drop the kernel tables. */
void vis_ConnectSetTopology(vis_Connect* connect, int id, int shape, int maxi, int maxj, int maxk);
void vis_ConnectSetElemNode(vis_Connect* connect, int id, const int* nodes);
/* Coordinates of one node (id >= 1; above a fixed numnode error 1 "id= %d"). Precision 9
 * without an extent: error 8 "Def not called or extent not set"; values outside the extent
 * are error 9 from the store (polled into ierr) and read back as the extent's minimum. */
void vis_ConnectSetCoords(vis_Connect* connect, int id, const float x[3]);
void vis_ConnectSetCoordsdv(vis_Connect* connect, int id, const double x[3]);
/* Part names (at most VIS_CONNECT_NAMELEN characters, else error 1 "len= %d") and sizes of a
 * structured part. A null name removes it. */
void vis_ConnectSetPartName(vis_Connect* connect, int id, const char* name);
void vis_ConnectSetPartIJK(vis_Connect* connect, int id, int i, int j, int k);
/* name needs VIS_CONNECT_NAMELEN + 1 bytes; an empty string when the part has none. */
void vis_ConnectPartName(vis_Connect* connect, int id, char* name);
/* ijk gets the three sizes, zeros when none were set. */
void vis_ConnectPartIJK(vis_Connect* connect, int id, int ijk[3]);

/* Counts and sizes. */
void vis_ConnectGetInteger(vis_Connect* connect, int option, int* value);
void vis_ConnectMaxElemNode(vis_Connect* connect, int* num);
void vis_ConnectGetDimension(vis_Connect* connect, int* dimension);

/* Element access. */
void vis_ConnectTopology(vis_Connect* connect, int id, int* shape, int* maxi, int* maxj, int* maxk);
void vis_ConnectElemNode(vis_Connect* connect, int id, int* num, int* nodes);
/* Direct access to the stored list, valid until the next change of the connect (dynamic mode:
 * until the next query). Through a front: 0 and null, use vis_ConnectElemNode. */
void vis_ConnectElemNodePtr(vis_Connect* connect, int id, int* num, const int** pointer);
/* One node by 0-based position (error 1 "index= %d" without touching ierr). */
void vis_ConnectIndElemNode(vis_Connect* connect, int id, int index, int* node);
void vis_ConnectNumElemNode(vis_Connect* connect, int id, int* num);
/* Node counts of all elements, indexed by id; null before Def. */
void vis_ConnectNumElemNodePtr(vis_Connect* connect, const int** pointer);
/* Number of nodes (SYS_NODE), edges (SYS_EDGE) or faces (SYS_FACE) of an element; other
 * codes give 0. */
void vis_ConnectElemNum(vis_Connect* connect, int enttype, int id, int* num);

/* Coordinates of nix nodes into x, three values each. */
void vis_ConnectCoords(vis_Connect* connect, int nix, const int* ix, float* x);
void vis_ConnectCoordsdv(vis_Connect* connect, int nix, const int* ix, double* x);
/* Bounding box: three minima, three maxima, of the nodes of the node group (all without one).
 * Nodes whose node attribute 0 exists and reads 0 are skipped; with
 * no node the output stays as it was. */
void vis_ConnectExtent(vis_Connect* connect, struct vis_Group* group, float extent[6]);
void vis_ConnectExtentdv(vis_Connect* connect, struct vis_Group* group, double extent[6]);

/* Attributes. Type 0 to 42, else error 2 "type= %d". Node ids are checked as for the
 * coordinates; element ids of vis_ConnectElemAssoc are not checked (the caller's range). */
void vis_ConnectNodeAssoc(vis_Connect* connect, int type, int nix, const int* ix, int* values);
void vis_ConnectElemAssoc(vis_Connect* connect, int type, int nix, const int* ix, int* values);
void vis_ConnectNumNodeAssoc(vis_Connect* connect, int type, int index, int* num);
void vis_ConnectAllNodeAssoc(vis_Connect* connect, int type, int index, int* num, int* values);
void vis_ConnectNumElemAssoc(vis_Connect* connect, int type, int index, int* num);
void vis_ConnectAllElemAssoc(vis_Connect* connect, int type, int index, int* num, int* values);
/* Set gives the index exactly one value, Add appends a value, Uni appends it unless the index
 * has it. Node user ids (type 10) are given as they are; the +1 of their storage is internal.
 * Index from 1 (error 1 "index= %d"). Del removes the whole attribute of the type; Any tells
 * whether it exists. */
void vis_ConnectSetNodeAssoc(vis_Connect* connect, int type, int index, int value);
void vis_ConnectAddNodeAssoc(vis_Connect* connect, int type, int index, int value);
void vis_ConnectUniNodeAssoc(vis_Connect* connect, int type, int index, int value);
void vis_ConnectDelNodeAssoc(vis_Connect* connect, int type);
void vis_ConnectAnyNodeAssoc(vis_Connect* connect, int type, int* flag);
void vis_ConnectSetElemAssoc(vis_Connect* connect, int type, int index, int value);
void vis_ConnectAddElemAssoc(vis_Connect* connect, int type, int index, int value);
void vis_ConnectUniElemAssoc(vis_Connect* connect, int type, int index, int value);
void vis_ConnectDelElemAssoc(vis_Connect* connect, int type);
void vis_ConnectAnyElemAssoc(vis_Connect* connect, int type, int* flag);
/* Values on element edges (enttype SYS_EDGE) and faces (SYS_FACE), keyed by element id and
 * entity number from 1; other enttypes error 2 "enttype= %d". */
void vis_ConnectElemEntAssoc(vis_Connect* connect, int type, int enttype, int id, int no, int* value);
void vis_ConnectSetElemEntAssoc(vis_Connect* connect, int type, int enttype, int id, int no, int value);
void vis_ConnectAddElemEntAssoc(vis_Connect* connect, int type, int enttype, int id, int no, int value);
void vis_ConnectUniElemEntAssoc(vis_Connect* connect, int type, int enttype, int id, int no, int value);
void vis_ConnectNumElemEntAssoc(vis_Connect* connect, int type, int enttype, int id, int no, int* num);
void vis_ConnectAllElemEntAssoc(vis_Connect* connect, int type, int enttype, int id, int no, int* num,
                                int* values);
void vis_ConnectDelElemEntAssoc(vis_Connect* connect, int type, int enttype);
void vis_ConnectAnyElemEntAssoc(vis_Connect* connect, int type, int enttype, int* flag);

/* Fills gf so that it stands for this connect: object pointer and every slot this system
 * implements. */
void vis_ConnectGridFun(vis_Connect* connect, vis_GridFun* gf);

/* Internal operations shared with the kernel. */
/* Grows (or, with a smaller count, shrinks) the per-element arrays to newcount; new elements
 * get shape 255 and zeros. Error 4 under "vis_Connect_ReallocTopology". */
void vis_Connect_ReallocTopology(vis_Connect* connect, int newcount, int* ierr);
/* Resizes chunk of node lists to newsize entries, clearing the new part. Error 4 under
 * "vis_Connect_ReallocElemNode". */
void vis_Connect_ReallocElemNode(vis_Connect* connect, int newsize, int chunk, int* ierr);
/* Makes elnoix and elnoix2 hold at least maxelemnode entries (asked from the front's slot 4
 * when maxelemnode is 0). Returns 0 on a failed allocation (reported). */
int vis_Connect_Scratch(vis_Connect* connect);
/* A buffer of maxelemnode * count * width bytes from vsy_Malloc for callers of node lists. */
void vis_Connect_AllocElem(vis_Connect* connect, int count, int width, void** pointer);
/* The node list of an element without a copy where possible (static mode: chunk memory;
 * dynamic mode: read into `scratch`). No checks; id must be in range. */
const int* vis_Connect_List(vis_Connect* connect, int id, int* num);
/* Releases the kernel tables (after a change of the elements). */
void vis_Connect_DropKernel(vis_Connect* connect);

#endif

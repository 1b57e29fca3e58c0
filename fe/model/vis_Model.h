/* vis_Model: the bag of pointers through which a finite element model travels from whoever
 * built it to whoever reads it (the deck writers).
 *
 * The model stores nothing of its own: four object slots, fourteen hash table slots and one
 * list slot, each addressed by its object-type code below. It owns only its record; the caller
 * keeps every attached object and must clear a slot before deleting what it points to. A slot
 * never set reads as null, which every reader takes as "this content is absent".
 *
 * Hash tables are keyed by the ids the connectivity's associations name: `propid` selects in
 * SYS_EPROP, `matlid` or the property's parameter 0 in SYS_MPROP, `csysid` in SYS_COORDSYS;
 * case ids come from the solution steps of the SYS_SPROP list (positions from 1).
 *
 * vis_ModelWrite is declared in fe/writers/vis_ModelWrite.h: it calls the deck writers, which
 * live above the model.
 */
#ifndef VIS_MODEL_H
#define VIS_MODEL_H

/* Object-type codes, in the order of the record's fields. */
#define SYS_CONNECT 2080     /* object: vis_Connect */
#define SYS_GRIDFUN 2070     /* object: vis_GridFun */
#define SYS_UNITS 2640       /* object: vis_Units */
#define SYS_MODELOBJ4 2674   /* object: stored and returned only */
#define SYS_COORDSYS 2100    /* hash table of vis_CoordSys by id */
#define SYS_RCASE 2330       /* hash table of vis_RCase by case id */
#define SYS_LCASE 2320       /* hash table of vis_LCase by case id */
#define SYS_ICASE 2340       /* hash table of vis_ICase by case id */
#define SYS_MCASE 2550       /* hash table of vis_MCase by case id */
#define SYS_MPROP 2310       /* hash table of vis_MProp by material id */
#define SYS_EPROP 2300       /* hash table of vis_EProp by property id */
#define SYS_TCURVE 2560      /* hash table of vis_TCurve by curve id */
#define SYS_CPAIR 2600       /* hash table of vis_CPair by pair id */
#define SYS_SPROP 2280       /* list (vsy_List) of vis_SProp solution steps */
#define SYS_NODEGROUP 2113   /* hash table of vis_IdTran node lists by group id */
#define SYS_ELEMGROUP 2114   /* hash table of vis_IdTran element lists by group id */
#define SYS_GROUPHASH3 2116  /* hash table: stored and returned only */
#define SYS_ELEMDAT 2540     /* hash table of vis_ElemDat by element data kind */
#define SYS_MODELHASH14 2660 /* hash table: stored and returned only */

/* Element data kinds of SYS_ELEMDAT with a fixed meaning. */
#define VIS_ELEMDAT_THICKNESS 2    /* one value per element node */
#define VIS_ELEMDAT_ORIENTATION 28 /* 3 values: orientation vector of a beam or gap */
#define VIS_ELEMDAT_OFFSETS 37     /* 6 values: beam end offsets, first end then second */

#define VIS_MODEL_NUMOBJ 4
#define VIS_MODEL_NUMHASH 14
#define VIS_MODEL_NUMINT 11

struct vsy_HashTable;
struct vsy_List;

typedef struct vis_Model {
    int ierr;                                   /* last error */
    void* obj[VIS_MODEL_NUMOBJ];                /* 2080, 2070, 2640, 2674; not owned */
    struct vsy_HashTable* hash[9];              /* 2100 ... 2600 in table order; not owned */
    struct vsy_List* sprop;                     /* 2280; not owned */
    struct vsy_HashTable* hash2[5];             /* 2113, 2114, 2116, 2540, 2660; not owned */
    int ints[VIS_MODEL_NUMINT];                 /* read by vis_ModelGetInteger */
} vis_Model;

/* Creates an empty model; null with "Model" code 4 "Creation Failure". */
vis_Model* vis_ModelNew(void);
/* Clears ierr and releases the record only; attached objects stay the caller's. */
void vis_ModelDelete(vis_Model* model);
int vis_ModelError(vis_Model* model);

/* Stores or reads an object slot (2080, 2070, 2640, 2674). Any other code: code 3
 * "objecttype= %d"; a failed set changes nothing, a failed get leaves *object unwritten. */
void vis_ModelSetObject(vis_Model* model, int objecttype, void* object);
void vis_ModelGetObject(vis_Model* model, int objecttype, void** object);
/* Stores or reads one of the fourteen hash table slots. Any other code: code 3 "type= %d". */
void vis_ModelSetHashTable(vis_Model* model, int type, struct vsy_HashTable* table);
void vis_ModelGetHashTable(vis_Model* model, int type, struct vsy_HashTable** table);
/* Stores or reads the list slot; only 2280. Any other code: code 3 "type= %d". */
void vis_ModelSetList(vis_Model* model, int type, struct vsy_List* list);
void vis_ModelGetList(vis_Model* model, int type, struct vsy_List** list);

/* Stores and reads the record's integers by an option from 1 to 11 (the record's order); any
 * other option: code 2 "type= %d". No operation of the model gives them a meaning. */
void vis_ModelSetInteger(vis_Model* model, int type, int value);
void vis_ModelGetInteger(vis_Model* model, int type, int* value);

/* Counts the references of the model that name nothing: element `propid` (association 2) not
 * in SYS_EPROP, element `matlid` (1) or property material (parameter 0) not in SYS_MPROP,
 * node `csysid` (4) not in SYS_COORDSYS, and the case and curve ids of the solution steps
 * (parameters 3, 8, 10, 18, 23) not in their tables. A table that is absent is not checked; a
 * zero id names nothing on purpose. Writers pass over such references without an error, so this
 * is the one place where they show. A model without a connectivity: code 5 "Connect object". */
void vis_ModelCheck(vis_Model* model, int* nbad);

/* Thickness of an element at its nodes: thickness[0..n-1] for the n nodes of the element's
 * form. Element data of kind 2 wins; when its first value is exactly 0.0 (or it is absent), the
 * element's property (association 2 `propid` in SYS_EPROP) gives its parameter 7 evaluated at
 * the nodes, but only for a shell property (type 2). Otherwise zeros, with no error. A model
 * without a connectivity: code 5 "Connect object". A failure of the property's evaluation (a
 * shell property on a solid: "shape= %d") is polled from the property into the model. */
void vis_ModelElemThickness(vis_Model* model, int element, double thickness[]);

#endif

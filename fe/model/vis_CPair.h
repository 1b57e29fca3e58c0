/* vis_CPair: a contact pair: eight numbered parameters held like a property (0 "Property Id",
 * 1 "Adjust distance", 2 "Small sliding option", 3 "Tied option", 4 "Smooth factor", 5 "HCrit
 * factor", 6 "Extension zone factor", 7 "Symmetric contact option"; see vis_PropCore.h), the
 * slave kind (0 element faces, 1 nodes, otherwise element faces with a master), a link flag,
 * and per side (0 slave, 1 master) a list of entities: element and face, or node and weight.
 *
 * Entities keep the order in which they were added and count from 1. Errors: a side other than
 * 0 and 1 code 2 "type= %d"; an entity number outside the list code 1 "index= %d"; an element,
 * face or node below 1 code 1 "index= %d"; a failed allocation code 4 "Realloc vec".
 *
 * Stream form (Write, Read; version 1), one record of the codec of vis_ModelStream.h
 * (little-endian 32-bit integers, IEEE doubles, CRC-32 at the end): mark "VCPR"; version; the
 * parameter section of vis_PropCore.h; slave kind; link flag; then per side, slave first, the
 * number of entities and per entity its index, number and weight (a double); the checksum.
 * The attached mesh is not part of the stream: it is a companion of the caller, and Read keeps
 * the one attached. Read checks every field (indices from 1, face numbers from 1 and on the
 * slave side 0 for a node, the parameters as a property load does) and the checksum before it
 * replaces anything: a truncated or malformed record is code 12, a read or write failure code
 * 6, a null stream code 5 "stream", a failed allocation code 4, and the pair then keeps all it
 * held.
 * The stream is a stdio FILE the caller opened in binary mode and still owns.
 *
 * A pair of plane elements touches along element edges: its entities then hold edge numbers
 * where others hold face numbers, and vis_CPairEdgeGroup reads them so.
 */
#ifndef VIS_CPAIR_H
#define VIS_CPAIR_H

#include "vis_PropCore.h"

#include <cstdio>

struct vis_Group;
struct vis_Connect;

#define VIS_CPAIR_NUM 8
#define VIS_CPAIR_SLAVE 0
#define VIS_CPAIR_MASTER 1

typedef struct vis_CPairEnt {
    int index;     /* element, or node for a node slave */
    int no;        /* face number, 0 for a node */
    double weight; /* weight of a node, 1 for a face */
} vis_CPairEnt;

typedef struct vis_CPair {
    int ierr;                         /* last error */
    int type;                         /* unused by the store */
    unsigned char byte[VIS_CPAIR_NUM];/* per parameter: 0 unset, else slot + 1 */
    vis_PropSlot* slots;              /* owned */
    int nslots;
    struct vis_UProp* uprop;          /* never used: a pair has no user values */
    int slavekind;                    /* 0 element faces, 1 nodes, other faces with master */
    int link;                         /* link flag */
    int num[2];                       /* entities per side */
    int cap[2];
    vis_CPairEnt* ent[2];             /* per side, owned */
    struct vis_Connect* connect;      /* mesh of the pair's entities, not owned, may be null */
} vis_CPair;

/* Creates an empty pair; null with "CPair" code 4 "Creation Failure". */
vis_CPair* vis_CPairNew(void);
void vis_CPairDelete(vis_CPair* cp);
int vis_CPairError(vis_CPair* cp);
/* Clears parameters, kinds and entities; the attached mesh stays. */
void vis_CPairDef(vis_CPair* cp);
VIS_PROP_DECLARE_VALUES(vis_CPair)

void vis_CPairSetType(vis_CPair* cp, int slavekind, int link);
void vis_CPairGetType(vis_CPair* cp, int* slavekind, int* link);
/* Adds a slave node with a weight, a slave element face, a master element face. */
void vis_CPairSetSlaveNodedv(vis_CPair* cp, int node, double weight);
void vis_CPairSetSlaveElem(vis_CPair* cp, int elem, int face);
void vis_CPairSetMaster(vis_CPair* cp, int elem, int face);
/* Entities of a side, and entity i (from 1) of it. */
void vis_CPairMasterSlaveElemNum(vis_CPair* cp, int side, int* num);
void vis_CPairMasterSlaveElem(vis_CPair* cp, int side, int i, int* index, int* no, double* weight);

/* Clears the group and marks the slave nodes (a group of parent 1), or the element faces of a
 * side (parent 4, child 3), up to its count. A group of another kind: code 2 "parenttype= %d" or
 * "childtype= %d". */
void vis_CPairNodeGroup(vis_CPair* cp, struct vis_Group* group);
void vis_CPairFaceGroup(vis_CPair* cp, int side, struct vis_Group* group);
/* The same for the element edges of a side (parent 4, child 2): entity numbers read as edges. */
void vis_CPairEdgeGroup(vis_CPair* cp, int side, struct vis_Group* group);

/* Writes the pair to a binary stream, and replaces the pair by one read from a stream. */
void vis_CPairWrite(vis_CPair* cp, FILE* stream);
void vis_CPairRead(vis_CPair* cp, FILE* stream);

/* Attaches (null: detaches) or reads the mesh the entities refer to; objecttype must be
 * SYS_CONNECT, otherwise code 3 "objecttype= %d" and nothing is set or read. */
void vis_CPairSetObject(vis_CPair* cp, int objecttype, void* object);
void vis_CPairGetObject(vis_CPair* cp, int objecttype, void** object);
/* The master entity (its number from 1 on the master side) nearest to a node of the attached
 * mesh, faces taken as flat fans of triangles over their corners; the first of equals wins,
 * and 0 comes back when the master side is empty. Errors, with *master unwritten: no mesh code
 * 8 "Connect object not set"; a node outside the mesh code 1 "index= %d"; a master entity whose
 * element is outside the mesh or has no face of that number with three corners or more code 1
 * "index= %d" with the element. */
void vis_CPairSlaveNodeMaster(vis_CPair* cp, int node, int* master);

#endif

/* vis_Group: marks entities of a parent type and, per entity, flags of its children (faces or
 * edges of an element, edges of a face).
 *
 * Entity types: 0 none, 1 node, 2 edge, 3 face, 4 element, 5 point, 6 line, 7 surface,
 * 8 volume, 9 coordinate system, 10 dof tag, 11 equation. The store follows the pair asked at
 * Def: a child of none or equal to the parent, 1 bit per entity (bit i & 7 of byte i >> 3,
 * nument / 8 + 1 bytes); element faces and face edges, 8 flags in one byte per entity
 * (nument + 1 bytes); element edges, 16 flags in a 16-bit word (nument * 2 + 2 bytes); any
 * other pair, 32 flags in a 32-bit word per entity. The last store departs on purpose from a
 * chained block store: one word per entity is simpler and no reader needs more than 32 flags.
 * Flag `no` is bit no - 1 of the entity's word.
 */
#ifndef VIS_GROUP_H
#define VIS_GROUP_H

#define VIS_GROUP_OR 1   /* union */
#define VIS_GROUP_AND 2  /* intersection */
#define VIS_GROUP_DIFF 3 /* in the group, not in the other */
#define VIS_GROUP_XOR 4  /* in exactly one of them */

struct vis_IdTran;

typedef struct vis_Group {
    int ierr;           /* last error */
    int nument;         /* entities */
    int numalloc;       /* entities the store holds */
    int parenttype;
    int childtype;
    int nbits;          /* width of a flag word: 1, 8, 16 or 32 */
    int nbitsset;       /* flags in use per entity: 1, 6 or 4 (faces, face edges), 12, 32 */
    unsigned char* store; /* owned */
} vis_Group;

/* Creates a group with vis_GroupDef(group, 0, 4, 0); null with "Group" code 4 "Creation
 * Failure". */
vis_Group* vis_GroupNew(void);
void vis_GroupDelete(vis_Group* group);
int vis_GroupError(vis_Group* group);
/* Releases the store and makes an empty one. A parent outside 1 to 11: code 2
 * "parenttype= %d"; a child outside 0 to 11: code 2 "childtype= %d"; negative nument: code 1
 * "nument= %d"; a failed allocation: code 4 "nument= %d". Errors change nothing. */
void vis_GroupDef(vis_Group* group, int nument, int parenttype, int childtype);
void vis_GroupInq(vis_Group* group, int* nument, int* parenttype, int* childtype);

/* The flag word of an entity. Index below 1: "index= %d" reported, code not stored; above
 * nument: 0. */
void vis_GroupGetIndex(vis_Group* group, int index, int* flags);
/* Replaces the flag word (bits past the width are dropped). Index outside 1 to nument: code 1
 * "index= %d". */
void vis_GroupSetIndex(vis_Group* group, int index, int flags);
/* Number of flags set at an entity and the number of the last one (0 when none). */
void vis_GroupNumEntFlag(vis_Group* group, int index, int* n, int* last);
/* One flag; no outside 1 to the width: code 1 "no= %d". */
void vis_GroupGetEntFlag(vis_Group* group, int index, int no, int* flag);
void vis_GroupSetEntFlag(vis_Group* group, int index, int no, int flag);
/* The number of the nth (from 1) flag set at an entity, 0 when there are fewer. */
void vis_GroupNthEntFlag(vis_Group* group, int index, int nth, int* no);
/* Number of entities with any flag. */
void vis_GroupCount(vis_Group* group, int* num);

void vis_GroupClear(vis_Group* group);
/* Sets every flag in use (1 bit, the faces, the edges) of every entity. */
void vis_GroupAll(vis_Group* group);
/* Combines another group of the same size and store into this one. An operation outside 1 to
 * 4: code 2 "oper= %d"; a group of other size or store: code 1 "nument= %d". */
void vis_GroupBoolean(vis_Group* group, int oper, vis_Group* other);
/* Inverts every flag in use of every entity. */
void vis_GroupComplement(vis_Group* group);
/* Lists the entities with any flag in an id list, ascending: ids are the indices, entity
 * values the flag words, the entity type the parent type. */
void vis_GroupIdTran(vis_Group* group, struct vis_IdTran* idtran);

#endif

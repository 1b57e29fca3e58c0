/* vis_IdTran: a list of ids by index from 1, with optional entity information and a name;
 * the model's node and element groups (tables 2113 and 2114) are such lists.
 *
 * Content kinds: VIS_IDTRAN_RUN, ids start, start + 1, ... for the first ncount indices and 0
 * beyond; VIS_IDTRAN_CONSTANT, every index holds `start`; VIS_IDTRAN_EXPLICIT, an array (an
 * index never set holds 0). Setting one id of a run or a constant turns it into an array.
 * Indices above nument read 0; a read at an index below 1 reports "index= %d" (code 1) without
 * storing the code, like the hot accessors of the connectivity.
 *
 * Reverse lookup (vis_IdTranIndex): a constant answers whether id equals the value (index 1),
 * a run by subtraction, an array first by the bounds idmin..idmax kept while ids are set (an
 * id outside gives 0 without any map), then through a reverse map built at the first query:
 * an array over the span of ids when it is small, a vsy_IntHash otherwise. Any change of an id
 * drops the map. The map holds the first index of each id.
 */
#ifndef VIS_IDTRAN_H
#define VIS_IDTRAN_H

#define VIS_IDTRAN_RUN 0
#define VIS_IDTRAN_EXPLICIT 1
#define VIS_IDTRAN_CONSTANT 3

struct vsy_IntHash;

typedef struct vis_IdTran {
    int ierr;        /* last error */
    int nument;      /* entries */
    int cap;         /* capacity of ids and ents */
    int ncount;      /* entries of a run */
    int entmin;      /* smallest entity value set, 0 before any */
    int kind;        /* VIS_IDTRAN_RUN, VIS_IDTRAN_CONSTANT or VIS_IDTRAN_EXPLICIT */
    int start;       /* first id of a run, value of a constant */
    int* ids;        /* cap + 1 ids, index from 1, owned; null until set */
    int* ents;       /* cap + 1 entity values, owned; null until set */
    int enttype;     /* entity type of the content (1 node, 4 element, ...) */
    char* name;      /* owned, null when unnamed */
    int idmin;       /* bounds of the ids set; INT_MAX and INT_MIN (crossed) when none */
    int idmax;
    int built;       /* 1 while the reverse map is valid */
    int* inv;        /* reverse map over idmin..idmax, owned */
    struct vsy_IntHash* invhash; /* reverse map for a wide span, owned */
} vis_IdTran;

/* Creates an empty explicit list; null with "IdTran" code 4 "Creation Failure". */
vis_IdTran* vis_IdTranNew(void);
void vis_IdTranDelete(vis_IdTran* idt);
int vis_IdTranError(vis_IdTran* idt);
/* Releases the arrays and the map, resets idmin and idmax and makes nument explicit entries of
 * id 0. Negative nument: code 1 "nument= %d". The name and entity type stay. */
void vis_IdTranDef(vis_IdTran* idt, int nument);
/* Makes the list a run of count ids from start (keeping a larger nument, whose entries past
 * the run read 0), or a constant of nument entries. */
void vis_IdTranSetRun(vis_IdTran* idt, int start, int count);
void vis_IdTranSetConstant(vis_IdTran* idt, int nument, int value);
void vis_IdTranType(vis_IdTran* idt, int* kind);
void vis_IdTranNum(vis_IdTran* idt, int* nument);

/* Sets the id at an index from 1; an index above nument extends the list. An index beyond
 * VSY_GROW_MAXCAP: code 1 "index= %d"; a failed growth: code 4 "Realloc vec"; nothing changes. */
void vis_IdTranSetId(vis_IdTran* idt, int index, int id);
void vis_IdTranGetId(vis_IdTran* idt, int index, int* id);
/* All nument ids into ids[0 ..]. */
void vis_IdTranGetIds(vis_IdTran* idt, int* ids);
/* Entity information per index (for example a face number), 0 when never set. */
void vis_IdTranSetEnt(vis_IdTran* idt, int index, int ent);
void vis_IdTranGetEnt(vis_IdTran* idt, int index, int* ent);
void vis_IdTranGetEnts(vis_IdTran* idt, int* ents);
void vis_IdTranSetEntType(vis_IdTran* idt, int enttype);
void vis_IdTranGetEntType(vis_IdTran* idt, int* enttype);
/* Name; an unnamed list reads as an empty text. A failed copy: code 4 "name= %s". */
void vis_IdTranSetName(vis_IdTran* idt, const char* name);
void vis_IdTranGetName(vis_IdTran* idt, char* name);

/* Number of entries holding id, and all of their indices, ascending. */
void vis_IdTranCount(vis_IdTran* idt, int id, int* n);
void vis_IdTranNumIndex(vis_IdTran* idt, int id, int* n);
void vis_IdTranAllIndex(vis_IdTran* idt, int id, int* n, int* indices);
/* The first index holding id, 0 when none. */
void vis_IdTranIndex(vis_IdTran* idt, int id, int* index);
/* vis_IdTranIndex for n ids at once. */
void vis_IdTranIndices(vis_IdTran* idt, int n, const int* ids, int* indices);
/* Keeps the first entry of each id, in order. */
void vis_IdTranUnique(vis_IdTran* idt);
/* Sorts the entries by ascending id (entity values travel with their ids). */
void vis_IdTranOrder(vis_IdTran* idt);
/* 1 when both lists hold the same ids at the same indices. */
void vis_IdTranEquId(vis_IdTran* idt, vis_IdTran* other, int* flag);

#endif

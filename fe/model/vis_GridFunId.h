/* vis_GridFunId: user ids of nodes and elements read through a vis_GridFun, as the writers
 * print them.
 *
 * vis_GridFunIdCheck walks the nodes through slot 6 and the elements through slot 7 for
 * association 10 (`userid`) and marks each id as seen, in a bit vector when the ids' range is
 * at most 32 times their count and in a vsy_IntHash otherwise (the bit vector is only faster);
 * the first repeat sets the flag and ends that walk. A set flag means the ids are not usable and indices are printed
 * instead. Counts come from slot 1 (option 1 nodes, 4 elements). A table without slot 1 or
 * without the association slot is code 5 "GridFun"; a failed allocation is code 4 "Malloc vec"; both
 * set the flags, so that indices are printed.
 */
#ifndef VIS_GRIDFUNID_H
#define VIS_GRIDFUNID_H

struct vis_GridFun;

void vis_GridFunIdCheck(struct vis_GridFun* gf, int* nodeflag, int* elemflag);
/* vis_GridFunIdCheck that also tells whether the node ids and the element ids each equal their
 * indices, so that a writer can skip millions of lookups whose answer it knows. */
void vis_GridFunIdCheckIdentity(struct vis_GridFun* gf, int* nodeflag, int* elemflag, int* nodeident,
                                int* elemident);
/* Node ids of n indices: with the flag set the indices themselves; otherwise the `userid` of
 * every non-zero index, while a zero index leaves its id alone (midside gaps stay 0). */
void vis_GridFunNodeId(struct vis_GridFun* gf, int flag, int n, const int* index, int* id);
/* Element ids of n indices: with the flag clear through slot 7, otherwise the indices. */
void vis_GridFunElemId(struct vis_GridFun* gf, int flag, int n, const int* index, int* id);

#endif

/* vis_Writer: the frame every deck writer shares, and the mesh reads a writer makes through the
 * model's grid function.
 *
 * A writer record begins with a vis_Writer, so that its `ierr` is the record's first field. A
 * WriteModel runs: vis_Writer_Open (the stream, "path= %s" code 6 when it cannot be opened),
 * vis_Writer_Begin (grid function or an own one over the connectivity, "GridFun" code 5 when
 * there is neither; the id check; the counts), the writer's sections, vis_Writer_End (an own grid
 * function deleted, the stream closed). After a "GridFun" failure the stream stays open and the
 * file empty: it is closed by the next WriteModel or by vis_Writer_Release in the writer's Delete.
 * A null model fails as a missing grid function does, with the text "Model".
 *
 * The reads below skip a missing slot silently (zeros, no nodes), as a section skips an item it
 * cannot find.
 */
#ifndef VIS_WRITER_H
#define VIS_WRITER_H

#include <cstdio>

struct vis_Connect;
struct vis_GridFun;
struct vis_Model;

typedef struct vis_Writer {
    int ierr;                    /* last error */
    FILE* fp;                    /* output stream, open during WriteModel */
    struct vis_GridFun* gf;      /* grid function in use */
    int owngf;                   /* 1 when gf was made here and is deleted at the end */
    int numel, numnp;            /* elements and nodes */
    int nodeflag, elemflag;      /* ids not unique: indices are printed instead */
    struct vis_Connect* connect; /* the model's connectivity, or null */
    int nodeident, elemident;    /* ids equal their indices: read no id, print the index */
} vis_Writer;

/* Opens path with mode; 1 on success, else code 6 "path= %s" reported under `name` and 0. */
int vis_Writer_Open(vis_Writer* w, const char* name, const char* path, const char* mode);
/* Reads objects 2070 and 2080, makes an own grid function over the connectivity if needed, runs
 * the id check and reads the counts; 1 on success, else code 5 "GridFun" (or "Model") and 0. */
int vis_Writer_Begin(vis_Writer* w, const char* name, struct vis_Model* model);
/* Deletes an own grid function and closes the stream. */
void vis_Writer_End(vis_Writer* w);
/* Closes a stream left open by a failed WriteModel and an own grid function; for Delete. */
void vis_Writer_Release(vis_Writer* w);
/* A zeroed writer record of `size` bytes, or null after reporting `shortname` with code 4
 * "Creation Failure"; for each writer's New. */
void* vis_Writer_New(size_t size, const char* shortname);
/* The last error of a writer, cleared; 0 for a null writer. For each writer's Error. */
int vis_Writer_TakeError(vis_Writer* w);

/* Writes len bytes of a built line. The library has no threads, so the stream's lock is skipped
 * where the runtime offers that. */
inline void vis_Writer_Put(FILE* fp, const char* text, int len)
{
#if defined(__GLIBC__)
    fwrite_unlocked(text, 1, static_cast<size_t>(len), fp);
#else
    std::fwrite(text, 1, static_cast<size_t>(len), fp);
#endif
}

/* Mesh reads through the grid function. Node and element indices count from 1. */
void vis_Writer_Topology(vis_Writer* w, int elem, int* shape, int* maxi, int* maxj, int* maxk);
/* Element nodes into nodes[], which holds VIS_ELEM_MAXNODE entries at least; *num 0 on a miss
 * and for an element of more nodes than that. */
void vis_Writer_ElemNode(vis_Writer* w, int elem, int* num, int* nodes);
/* Coordinates of one node; zeros without the slot. */
void vis_Writer_Coords(vis_Writer* w, int node, double x[3]);
/* One association value of a node or an element; 0 without the slot. */
int vis_Writer_NodeAssoc(vis_Writer* w, int type, int node);
int vis_Writer_ElemAssoc(vis_Writer* w, int type, int elem);
/* The printed id of a node or element: its `userid`, or the index when ids are not unique. */
int vis_Writer_NodeId(vis_Writer* w, int node);
int vis_Writer_ElemId(vis_Writer* w, int elem);
/* Elements read together by the block reads below. */
#define VIS_WRITER_BLOCK 512
/* One association of the elements first to first + n - 1, n at most VIS_WRITER_BLOCK; zeros
 * without the slot. */
void vis_Writer_ElemAssocs(vis_Writer* w, int type, int first, int n, int* values);
/* The same for nodes. */
void vis_Writer_NodeAssocs(vis_Writer* w, int type, int first, int n, int* values);
/* The printed ids of the elements first to first + n - 1, n at most VIS_WRITER_BLOCK. */
void vis_Writer_ElemIds(vis_Writer* w, int first, int n, int* ids);
/* The printed ids of n node indices in place, n at most VIS_WRITER_BLOCK; an index 0 (an absent
 * midside node) stays 0. */
void vis_Writer_NodeIds(vis_Writer* w, int n, int* nodes);

#endif

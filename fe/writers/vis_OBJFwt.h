/* vis_OBJFwt: the surface of a model as an OBJ file.
 *
 * vis_OBJFwtWriteModel reads only the connectivity and takes the elements of vis_FacetSplit.h
 * (without the STL condition on `maxj`); it uses no property, case or group. The stream is
 * opened with "wb". When no element is taken the file stays empty. Otherwise:
 *   "# vertices\n", then "v %e %e %e\n" for every node in index order, in single precision,
 *   so that vertex numbers are node indices;
 *   "p %d\n" for every node whose association 17 or 33 is set;
 *   "# faces\n", then for each element taken in element order: "l %d %d\n" with the corner
 *   nodes of each of its edges whose edge association 16 or 34 is set; with face normals of
 *   the element in the connectivity (its `elemnorm` data, face 1), "vn %f %f %f\n" per corner
 *   and "f" with " %d//%d" vertex and normal number per corner; else "f" with " %d" per corner;
 *   then "\n". A quadrilateral is one face of four corners.
 * Failures are those of the frame: "path= %s" (code 6) and "GridFun" (code 5).
 */
#ifndef VIS_OBJFWT_H
#define VIS_OBJFWT_H

#include "vis_Writer.h"

struct vis_Model;

typedef struct vis_OBJFwt {
    vis_Writer w; /* frame; its ierr is the record's first field */
    int numvn;    /* normals written so far: the number of the next one less 1 */
} vis_OBJFwt;

/* New: null with "OBJFwt" code 4 "Creation Failure". */
vis_OBJFwt* vis_OBJFwtNew(void);
void vis_OBJFwtDelete(vis_OBJFwt* obj);
int vis_OBJFwtError(vis_OBJFwt* obj);
void vis_OBJFwtWriteModel(vis_OBJFwt* obj, struct vis_Model* model, const char* path);

#endif

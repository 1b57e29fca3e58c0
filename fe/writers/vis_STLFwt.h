/* vis_STLFwt: the surface of a model as STL facets.
 *
 * vis_STLFwtWriteModel reads only the connectivity (through the model's grid function, or an
 * own one over its connectivity) and takes the facets of vis_FacetSplit.h in element order;
 * it uses no property, case or group. The stream is opened with "wb". Failures are those of the
 * frame: "path= %s" (code 6) and "GridFun" (code 5).
 *
 * The field `form` chooses the form: VIS_STLFWT_TEXT (11, set by vis_STLFwtNew and left so by
 * vis_ConnectWrite) or VIS_STLFWT_BINARY (12), which a caller sets in the record.
 *
 * Text: "solid ascii\n"; per facet " facet normal %f %f %f\n", "  outer loop\n", three
 * "   vertex %e %e %e\n", "  endloop\n", " endfacet\n"; then "endsolid\n". The normal is the
 * single precision cross product of the facet's first two edges, scaled to length 1 unless it
 * is 0. Binary: 80 zero bytes, the facet count as a 32-bit integer counted in a first pass,
 * then per facet twelve 32-bit floats (normal, three vertices) and two zero bytes, all in the
 * machine's byte order. A form other than 12 writes text.
 */
#ifndef VIS_STLFWT_H
#define VIS_STLFWT_H

#include "vis_Writer.h"

struct vis_Model;

#define VIS_STLFWT_TEXT 11
#define VIS_STLFWT_BINARY 12

typedef struct vis_STLFwt {
    vis_Writer w; /* frame; its ierr is the record's first field */
    int form;     /* VIS_STLFWT_TEXT or VIS_STLFWT_BINARY */
} vis_STLFwt;

/* New: form 11; null with "STLFwt" code 4 "Creation Failure". */
vis_STLFwt* vis_STLFwtNew(void);
void vis_STLFwtDelete(vis_STLFwt* stl);
int vis_STLFwtError(vis_STLFwt* stl);
void vis_STLFwtWriteModel(vis_STLFwt* stl, struct vis_Model* model, const char* path);

#endif

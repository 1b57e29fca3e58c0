/* vis_ConnectWrite: a vis_Connect written to a file in the form a code selects.
 *
 *   13     ABAQUS input, through vis_ABAFwt and a temporary vis_Model holding the connect
 *   18     NASTRAN bulk data, through vis_NASFwt and a temporary vis_Model holding the connect
 *   22     ANSYS commands, through vis_ANSFwt, likewise
 *   25     LS-DYNA keywords, through vis_D3DFwt, likewise
 *   20     PATRAN neutral file, through vis_PatLwt, likewise
 *   14     SDRC universal file, through vis_SDRCLwt, likewise
 *   11     STL facets in text form, through vis_STLFwt, likewise
 *   41     OBJ surface, through vis_OBJFwt, likewise
 *   -1     native format, text          -2   native format, binary (machine order)
 *   -7     the outer surface as triangles (vis_ConnectWriteSurface.cpp); runs the kernel
 *   -10    `path`.points and `path`.faces (the first three nodes of every element)
 *   -16    summary, appended            -17  listing, appended
 *
 * The native format: three header lines (1, numnode, numelem, precision, the mark 423, 0, 0;
 * headerflag, exactface, six zeros; eight reals), the nodes by index with their coordinates
 * (binary: double for precision 4, float otherwise), the elements with their tuples and node
 * lists, then the end markers of attributes, edge tangents, face normals, part names (each
 * name before its marker) and part sizes.
 *
 * Any other code is code 2 "type= %d". A file that cannot be opened is code 6
 * "pathname= %s"; through a writer that is the writer's own open failure, which it reports as
 * well. Both are stored in the connect's ierr and reported under "vis_ConnectWrite". Nothing
 * else is checked: a full disk goes unnoticed.
 *
 * It lives with the writers, which it calls, rather than with the connectivity they read.
 * The native header's two reals (a tolerance and a group parameter) have no home in the
 * connect and are written as 0.
 */
#ifndef VIS_CONNECTWRITE_H
#define VIS_CONNECTWRITE_H

#include <cstdio>

struct vis_Connect;

#define VIS_CONNECTWRITE_MARK 423

void vis_ConnectWrite(struct vis_Connect* connect, int type, const char* path);

/* The native format in text (binary 0) or binary (1) to an open stream (vis_ConnectWriteNative.cpp). */
void vis_ConnectWrite_Native(struct vis_Connect* connect, FILE* fp, int binary);
/* The surface triangles to an open stream (vis_ConnectWriteSurface.cpp). */
void vis_ConnectWrite_Surface(struct vis_Connect* connect, FILE* fp);

#endif

/* vis_ModelWrite: a whole vis_Model written as the solver deck a code selects, by the same codes
 * as vis_ConnectWrite's writers, without the temporary model that vis_ConnectWrite makes.
 *
 *   18     NASTRAN bulk data, through vis_NASFwt
 *
 * Codes of writers that are not built yet (11, 13, 14, 20, 22, 25, 41) and any other code are
 * code 2 "type= %d". A file that cannot be opened is code 6 "pathname= %s" (the writer reports
 * its own failed open as well). Both are stored in the model's ierr and reported under
 * "vis_ModelWrite". Every other failure is the writer's and reported by it; its code is then
 * the model's too.
 *
 * It lives with the writers, which it calls, rather than with the model they read.
 */
#ifndef VIS_MODELWRITE_H
#define VIS_MODELWRITE_H

struct vis_Model;

void vis_ModelWrite(struct vis_Model* model, int type, const char* path);

#endif

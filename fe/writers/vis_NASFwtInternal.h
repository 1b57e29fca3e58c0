/* vis_NASFwtInternal: the sections of the NASTRAN deck, one per source file, called by
 * vis_NASFwtWriteModel in deck order. Each writes to the frame's open stream. */
#ifndef VIS_NASFWTINTERNAL_H
#define VIS_NASFWTINTERNAL_H

#include "vis_NASFwt.h"

/* Executive and case control (vis_NASFwtCase.cpp); needs the solution step list. */
void vis_NASFwt_Control(vis_NASFwt* nas);
/* Parameter cards after "BEGIN BULK" (vis_NASFwtCase.cpp). */
void vis_NASFwt_Params(vis_NASFwt* nas);
/* Grid points and coordinate systems (vis_NASFwtGrid.cpp). */
void vis_NASFwt_Grid(vis_NASFwt* nas);
void vis_NASFwt_CoordSys(vis_NASFwt* nas);
/* Elements (vis_NASFwtElem.cpp). */
void vis_NASFwt_Elems(vis_NASFwt* nas);

#endif

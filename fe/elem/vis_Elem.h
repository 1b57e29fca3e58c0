/* vis_Elem: the element computation of the finite element half. */
#ifndef VIS_ELEM_H
#define VIS_ELEM_H

#include "vis_ElemTopology.h"
#include "vis_ElemShape.h"
#include "vis_ElemGeom.h"

#endif

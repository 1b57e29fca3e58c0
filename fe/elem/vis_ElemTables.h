/* vis_ElemTables: the constant tables of the fixed shapes 0 to 7, shared by the topology
 * functions and readable by other element code. See vis_ElemTables.cpp for the tables. */
#ifndef VIS_ELEMTABLES_H
#define VIS_ELEMTABLES_H

/* One fixed shape. Faces are rows of four corners, a triangle's fourth entry -1. */
typedef struct vis_ElemShapeDef {
    int numcorner;
    int numedge;
    int numface;
    int dim;
    const double (*natural)[3];  /* natural coordinates of the corners */
    const int (*edges)[2];       /* corner pairs, first corner to second */
    const int (*faces)[4];       /* corners of each face, normal pointing out */
    const int* facesize;         /* corners of each face */
    const int (*faceedges)[4];   /* edges of each face, in the face's order */
    const int (*edgefaces)[2];   /* the faces each edge bounds */
    const int (*lattice)[3];     /* corners on the unit lattice of a Lagrange form */
} vis_ElemShapeDef;

/* Indexed by shape code 0 to 7 (SYS_SHAPE_POINT to SYS_SHAPE_HEX). */
extern const vis_ElemShapeDef vis_ElemShapeDefs[8];

#endif

/* vis_ElemTables: corners, edges and faces of the fixed shapes.
 *
 * Corner numbers are local, from 0. Edges are corner pairs, first corner to second. Face
 * corners run counter-clockwise seen from outside, so that the right-hand normal points out of
 * the element; face 0 comes first, and the edges of a face are listed in the same order as its
 * corners: face edge n joins face corner n to face corner n + 1. The faces of an edge are given
 * in the order of the edge numbers. The lattice rows place the corners of the Lagrange forms on
 * a unit lattice, scaled by the node counts of the element less one.
 */
#include "vis_ElemTables.h"

/* ---- point ---- */
static const double vis_ElemPointNatural[1][3] = {{0, 0, 0}};
static const int vis_ElemPointLattice[1][3] = {{0, 0, 0}};

/* ---- line: one edge, from -1 to 1 ---- */
static const double vis_ElemLineNatural[2][3] = {{-1, 0, 0}, {1, 0, 0}};
static const int vis_ElemLineEdges[1][2] = {{0, 1}};
static const int vis_ElemLineLattice[2][3] = {{0, 0, 0}, {1, 0, 0}};

/* ---- triangle ---- */
static const double vis_ElemTriNatural[3][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
static const int vis_ElemTriEdges[3][2] = {{0, 1}, {1, 2}, {2, 0}};
static const int vis_ElemTriFaces[1][4] = {{0, 1, 2, -1}};
static const int vis_ElemTriFaceSize[1] = {3};
static const int vis_ElemTriFaceEdges[1][4] = {{0, 1, 2, -1}};
static const int vis_ElemTriEdgeFaces[3][2] = {{0, -1}, {0, -1}, {0, -1}};
static const int vis_ElemTriLattice[3][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};

/* ---- quadrilateral ---- */
static const double vis_ElemQuadNatural[4][3] = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
static const int vis_ElemQuadEdges[4][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}};
static const int vis_ElemQuadFaces[1][4] = {{0, 1, 2, 3}};
static const int vis_ElemQuadFaceSize[1] = {4};
static const int vis_ElemQuadFaceEdges[1][4] = {{0, 1, 2, 3}};
static const int vis_ElemQuadEdgeFaces[4][2] = {{0, -1}, {0, -1}, {0, -1}, {0, -1}};
static const int vis_ElemQuadLattice[4][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};

/* ---- tetrahedron ---- */
static const double vis_ElemTetNatural[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
static const int vis_ElemTetEdges[6][2] = {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}};
static const int vis_ElemTetFaces[4][4] = {{0, 2, 1, -1}, {0, 1, 3, -1}, {0, 3, 2, -1},
                                           {1, 2, 3, -1}};
static const int vis_ElemTetFaceSize[4] = {3, 3, 3, 3};
static const int vis_ElemTetFaceEdges[4][4] = {{2, 1, 0, -1}, {0, 4, 3, -1}, {3, 5, 2, -1},
                                               {1, 5, 4, -1}};
static const int vis_ElemTetEdgeFaces[6][2] = {{0, 1}, {0, 3}, {0, 2}, {1, 2}, {3, 1}, {2, 3}};
static const int vis_ElemTetLattice[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

/* ---- pyramid ---- */
static const double vis_ElemPyrNatural[5][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1},
                                                {-1, 1, -1}, {0, 0, 1}};
static const int vis_ElemPyrEdges[8][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0},
                                           {0, 4}, {1, 4}, {2, 4}, {3, 4}};
static const int vis_ElemPyrFaces[5][4] = {{0, 3, 2, 1}, {0, 1, 4, -1}, {1, 2, 4, -1},
                                           {2, 3, 4, -1}, {3, 0, 4, -1}};
static const int vis_ElemPyrFaceSize[5] = {4, 3, 3, 3, 3};
static const int vis_ElemPyrFaceEdges[5][4] = {{3, 2, 1, 0}, {0, 5, 4, -1}, {1, 6, 5, -1},
                                               {2, 7, 6, -1}, {3, 4, 7, -1}};
static const int vis_ElemPyrEdgeFaces[8][2] = {{0, 1}, {0, 2}, {0, 3}, {0, 4},
                                               {1, 4}, {2, 1}, {3, 2}, {4, 3}};
/* The pyramid lattice is sheared: layer l holds a square of side n - l starting at the corner
 * 0 side, so that the apex sits above lattice point 0. The shear is affine, lines stay lines. */
static const int vis_ElemPyrLattice[5][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                             {0, 0, 1}};

/* ---- wedge ---- */
static const double vis_ElemWedNatural[6][3] = {{0, 0, -1}, {1, 0, -1}, {0, 1, -1},
                                                {0, 0, 1},  {1, 0, 1},  {0, 1, 1}};
static const int vis_ElemWedEdges[9][2] = {{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5},
                                           {5, 3}, {0, 3}, {1, 4}, {2, 5}};
static const int vis_ElemWedFaces[5][4] = {{0, 2, 1, -1}, {3, 4, 5, -1}, {0, 1, 4, 3},
                                           {0, 3, 5, 2}, {1, 2, 5, 4}};
static const int vis_ElemWedFaceSize[5] = {3, 3, 4, 4, 4};
static const int vis_ElemWedFaceEdges[5][4] = {{2, 1, 0, -1}, {3, 4, 5, -1}, {0, 7, 3, 6},
                                               {6, 5, 8, 2}, {1, 8, 4, 7}};
static const int vis_ElemWedEdgeFaces[9][2] = {{0, 2}, {0, 4}, {0, 3}, {2, 1}, {4, 1},
                                               {3, 1}, {2, 3}, {4, 2}, {3, 4}};
static const int vis_ElemWedLattice[6][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0},
                                             {0, 0, 1}, {1, 0, 1}, {0, 1, 1}};

/* ---- hexahedron ---- */
static const double vis_ElemHexNatural[8][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1},
                                                {-1, 1, -1},  {-1, -1, 1}, {1, -1, 1},
                                                {1, 1, 1},    {-1, 1, 1}};
static const int vis_ElemHexEdges[12][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                                            {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
static const int vis_ElemHexFaces[6][4] = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                           {3, 7, 6, 2}, {0, 4, 7, 3}, {1, 2, 6, 5}};
static const int vis_ElemHexFaceSize[6] = {4, 4, 4, 4, 4, 4};
static const int vis_ElemHexFaceEdges[6][4] = {{3, 2, 1, 0},  {4, 5, 6, 7}, {0, 9, 4, 8},
                                               {11, 6, 10, 2}, {8, 7, 11, 3}, {1, 10, 5, 9}};
static const int vis_ElemHexEdgeFaces[12][2] = {{0, 2}, {0, 5}, {0, 3}, {0, 4},
                                                {2, 1}, {5, 1}, {3, 1}, {4, 1},
                                                {2, 4}, {5, 2}, {3, 5}, {4, 3}};
static const int vis_ElemHexLattice[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                             {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};

extern const vis_ElemShapeDef vis_ElemShapeDefs[8] = {
    {1, 0, 0, 0, vis_ElemPointNatural, nullptr, nullptr, nullptr, nullptr, nullptr,
     vis_ElemPointLattice},
    {2, 1, 0, 1, vis_ElemLineNatural, vis_ElemLineEdges, nullptr, nullptr, nullptr, nullptr,
     vis_ElemLineLattice},
    {3, 3, 1, 2, vis_ElemTriNatural, vis_ElemTriEdges, vis_ElemTriFaces, vis_ElemTriFaceSize,
     vis_ElemTriFaceEdges, vis_ElemTriEdgeFaces, vis_ElemTriLattice},
    {4, 4, 1, 2, vis_ElemQuadNatural, vis_ElemQuadEdges, vis_ElemQuadFaces, vis_ElemQuadFaceSize,
     vis_ElemQuadFaceEdges, vis_ElemQuadEdgeFaces, vis_ElemQuadLattice},
    {4, 6, 4, 3, vis_ElemTetNatural, vis_ElemTetEdges, vis_ElemTetFaces, vis_ElemTetFaceSize,
     vis_ElemTetFaceEdges, vis_ElemTetEdgeFaces, vis_ElemTetLattice},
    {5, 8, 5, 3, vis_ElemPyrNatural, vis_ElemPyrEdges, vis_ElemPyrFaces, vis_ElemPyrFaceSize,
     vis_ElemPyrFaceEdges, vis_ElemPyrEdgeFaces, vis_ElemPyrLattice},
    {6, 9, 5, 3, vis_ElemWedNatural, vis_ElemWedEdges, vis_ElemWedFaces, vis_ElemWedFaceSize,
     vis_ElemWedFaceEdges, vis_ElemWedEdgeFaces, vis_ElemWedLattice},
    {8, 12, 6, 3, vis_ElemHexNatural, vis_ElemHexEdges, vis_ElemHexFaces, vis_ElemHexFaceSize,
     vis_ElemHexFaceEdges, vis_ElemHexEdgeFaces, vis_ElemHexLattice},
};

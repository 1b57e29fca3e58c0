// The small mixed mesh of the connectivity suites, worked out by hand.
//
// Nodes (x, y, z):
//    1 (0,0,0)    2 (1,0,0)    3 (1,1,0)    4 (0,1,0)     the unit cube, bottom
//    5 (0,0,1)    6 (1,0,1)    7 (1,1,1)    8 (0,1,1)     the unit cube, top
//    9 (2,.5,0)  10 (2,.5,1)  11 (0,0,2)   12 (.5,.5,-1)
//   13..18  mid nodes of the tet's edges 5-6, 6-8, 8-5, 5-11, 6-11, 8-11
//   19..21  mid nodes of the triangle's edges 2-3, 3-9, 9-2
//   22 (0,.5,-.5)  23 (2,2,.5)
//   24 has no coordinates and belongs to no element (numnode 24, coordinates up to 23).
//
// Elements:
//   E1  hexahedron          1 2 3 4 5 6 7 8             the unit cube
//   E2  wedge               2 3 9 6 7 10                on the cube's face x = 1 (2 3 7 6)
//   E3  quadratic tet       5 6 8 11 13..18 (maxi 3)    on three corners of the cube's top
//   E4  pyramid             1 2 3 4 12                  under the cube (base 1 4 3 2)
//   E5  quadrilateral       1 2 6 5                     on the cube's face y = 0
//   E6  quadratic triangle  2 3 9 19 20 21 (maxi 3)     on the wedge's bottom
//   E7  line                9 10                        along the wedge's edge 9-10
//   E8  point               12
//   E9  polygon             1 5 8 4 22 1 (maxi 6, maxj 5 edges, maxk 1 face)
//   E10 polyhedron          a pyramid on the wedge face 3 9 10 7 with apex 23:
//                           3 7 10 9 3 | 3 9 23 3 | 9 10 23 9 | 10 7 23 10 | 7 3 23 7
//                           (maxi 21, maxj 8 edges, maxk 5 faces)
//
// Node rows (elements at each node, ascending):
//    1 {1,4,5,9}   2 {1,2,4,5,6}   3 {1,2,4,6,10}   4 {1,4,9}   5 {1,3,5,9}   6 {1,2,3,5}
//    7 {1,2,10}    8 {1,3,9}       9 {2,6,7,10}     10 {2,7,10} 11 {3}        12 {4,8}
//   13..18 {3}     19..21 {6}      22 {9}           23 {10}     24 {}
// Largest row: 5 (nodes 2 and 3). List lengths sum to 69; distinct entries to 52.
#ifndef CONNECTTESTMESH_H
#define CONNECTTESTMESH_H

#include "vis_Connect.h"

#include <vector>

namespace meshtest {

struct Elem {
    int shape, maxi, maxj, maxk;
    std::vector<int> nodes;
};

inline const std::vector<Elem>& Elems()
{
    static const std::vector<Elem> e = {
        {SYS_SHAPE_HEX, 0, 0, 0, {1, 2, 3, 4, 5, 6, 7, 8}},
        {SYS_SHAPE_WED, 0, 0, 0, {2, 3, 9, 6, 7, 10}},
        {SYS_SHAPE_TET, 3, 0, 0, {5, 6, 8, 11, 13, 14, 15, 16, 17, 18}},
        {SYS_SHAPE_PYR, 0, 0, 0, {1, 2, 3, 4, 12}},
        {SYS_SHAPE_QUAD, 0, 0, 0, {1, 2, 6, 5}},
        {SYS_SHAPE_TRI, 3, 0, 0, {2, 3, 9, 19, 20, 21}},
        {SYS_SHAPE_LINE, 0, 0, 0, {9, 10}},
        {SYS_SHAPE_POINT, 0, 0, 0, {12}},
        {SYS_SHAPE_POLYGON, 6, 5, 1, {1, 5, 8, 4, 22, 1}},
        {SYS_SHAPE_POLYHED, 21, 8, 5, {3, 7, 10, 9, 3, 3, 9, 23, 3, 9, 10, 23, 9, 10, 7, 23, 10, 7, 3, 23, 7}},
    };
    return e;
}

inline const std::vector<std::vector<double>>& Coords()
{
    static const std::vector<std::vector<double>> x = {
        {0, 0, 0},     {1, 0, 0},        {1, 1, 0},       {0, 1, 0},     {0, 0, 1},     {1, 0, 1},
        {1, 1, 1},     {0, 1, 1},        {2, .5, 0},      {2, .5, 1},    {0, 0, 2},     {.5, .5, -1},
        {.5, 0, 1},    {.5, .5, 1},      {0, .5, 1},      {0, 0, 1.5},   {.5, 0, 1.5},  {0, .5, 1.5},
        {1, .5, 0},    {1.5, .75, 0},    {1.5, .25, 0},   {0, .5, -.5},  {2, 2, .5},
    };
    return x;
}

const int kNumNode = 24;
const int kNumElem = 10;

// Builds the mesh in the given mode and precision (extent of precision 9: the mesh's box).
inline void Build(vis_Connect* c, int mode = 0, int precision = 4)
{
    vis_ConnectMode(c, mode);
    vis_ConnectPre(c, precision);
    vis_ConnectDef(c, kNumNode, kNumElem);
    const double ext[6] = {0, 0, -1, 2, 2, 2};
    vis_ConnectExtdv(c, ext);
    for (int id = 1; id <= kNumElem; ++id) {
        const Elem& e = Elems()[id - 1];
        vis_ConnectSetTopology(c, id, e.shape, e.maxi, e.maxj, e.maxk);
        vis_ConnectSetElemNode(c, id, e.nodes.data());
    }
    for (int id = 1; id <= 23; ++id) vis_ConnectSetCoordsdv(c, id, Coords()[id - 1].data());
}

}  // namespace meshtest

#endif

// A full model of a small structure, built through the public calls of the model layer, for
// the model tests and the deck writer tests.
//
// Nodes (x, y, z), user ids 1000 + index:
//    1 (0,0,1)  2 (1,0,1)  3 (2,0,1)  4 (0,1,1)  5 (1,1,1)  6 (2,1,1)   the plate
//    7 (0,0,0)  8 (1,0,0)  9 (1,1,0) 10 (0,1,0)                        under the plate
//   11 (3,0,1) 12 (4,0,1)                                             beam end, spring end
//   Nodes 11 and 12 carry the rotated system 5 (association 4 `csysid`).
// Elements, user ids 2000 + index, associations 0 `featype`, 1 `matlid`, 2 `propid`, 3 `partid`:
//   E1 quad 1 2 5 4      shell  2, material 1, property 10, part 1
//   E2 quad 2 3 6 5      shell  2, material 1, property 10, part 1
//   E3 hex 7 8 9 10 1 2 5 4 solid 1, material 2, property 20, part 2
//   E4 line 3 11         beam   4, material 1, property 30, part 3, end releases (41) kEndRelease
//   E5 line 11 12        spring 9, property 40, part 4
//   E6 point 6           mass  13, property 50, part 5
// Element data: thickness (2) on E2, orientation (28) on E4 and E5, beam offsets (37) on E4.
// Tables: properties 10 to 50, materials 1 (isotropic steel) and 2 (orthotropic), system 5
// (rectangular, turned 30 degrees about z), node group 1, element group 2, load case 100,
// restraint case 200, constraint case 300, initial conditions 400, curve 7, contact pair 8,
// and two solution steps (static, transient) in the list.
#ifndef MODELFIXTURE_H
#define MODELFIXTURE_H

#include "vis_CPair.h"
#include "vis_Connect.h"
#include "vis_CoordSys.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_GridFun.h"
#include "vis_ICase.h"
#include "vis_IdTran.h"
#include "vis_LCase.h"
#include "vis_MCase.h"
#include "vis_MProp.h"
#include "vis_Model.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vis_TCurve.h"
#include "vis_Units.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

namespace modeltest {

constexpr int kNumNode = 12;
constexpr int kNumElem = 6;
constexpr double kCoords[kNumNode][3] = {{0, 0, 1}, {1, 0, 1}, {2, 0, 1}, {0, 1, 1}, {1, 1, 1}, {2, 1, 1},
                                         {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {3, 0, 1}, {4, 0, 1}};
struct ElemRow {
    int shape, featype, matlid, propid, partid, nnode;
    int nodes[8];
};
constexpr ElemRow kElems[kNumElem] = {
    {SYS_SHAPE_QUAD, 2, 1, 10, 1, 4, {1, 2, 5, 4}},
    {SYS_SHAPE_QUAD, 2, 1, 10, 1, 4, {2, 3, 6, 5}},
    {SYS_SHAPE_HEX, 1, 2, 20, 2, 8, {7, 8, 9, 10, 1, 2, 5, 4}},
    {SYS_SHAPE_LINE, 4, 1, 30, 3, 2, {3, 11}},
    {SYS_SHAPE_LINE, 9, 0, 40, 4, 2, {11, 12}},
    {SYS_SHAPE_POINT, 13, 0, 50, 5, 1, {6}},
};
constexpr int kNodeIdBase = 1000;
constexpr int kElemIdBase = 2000;
constexpr int kEndRelease = 0xE00; /* rotations 4 to 6 released at the second end */
constexpr int kCsysId = 5;

/* Property ids, material ids and case ids. */
constexpr int kPropShell = 10, kPropSolid = 20, kPropBeam = 30, kPropSpring = 40, kPropMass = 50;
constexpr int kMatSteel = 1, kMatOrtho = 2;
constexpr int kNodeGroup = 1, kElemGroup = 2;
constexpr int kLoadCase = 100, kRestraintCase = 200, kMpcCase = 300, kInitialCase = 400;
constexpr int kCurve = 7, kPair = 8;

/* Values put in. */
constexpr double kShellThickness[4] = {0.010, 0.010, 0.012, 0.012};
constexpr double kShellNsm = 0.5;
constexpr double kE2Thickness[4] = {0.02, 0.02, 0.02, 0.02};
constexpr double kBeamArea[2] = {0.002, 0.001};
constexpr double kBeamIy[2] = {2.0e-6, 1.0e-6};
constexpr double kBeamIz[2] = {3.0e-6, 1.5e-6};
constexpr double kBeamJ[2] = {4.0e-6, 2.0e-6};
constexpr double kBeamOffY[2] = {0.01, 0.02};
constexpr double kBeamOrient[3] = {0, 1, 0};
constexpr double kSpringOrient[3] = {0, 0, 1};
constexpr double kBeamOffsets[6] = {0, 0.01, 0, 0, 0.02, 0};
constexpr double kSpringK = 1.0e6, kSpringC = 10.0;
constexpr double kMass[3] = {2.0, 2.0, 2.0};
constexpr double kMassInertia[6] = {0.1, 0.2, 0.3, 0.0, 0.0, 0.0};
constexpr double kSteel[7] = {7850.0, 2.1e11, 0.3, 0, 1.2e-5, 0, 20.0}; /* codes 0 to 6, 3 and 5 unset */
constexpr double kOrthoE[3] = {70e9, 60e9, 50e9};
constexpr double kOrthoNu[3] = {0.33, 0.30, 0.31};
constexpr double kOrthoG[3] = {26e9, 25e9, 24e9};
constexpr double kOrthoDensity = 2700.0;
constexpr double kCsysOrigin[3] = {3, 0, 1};
constexpr double kCsysTriad[9] = {0.86602540378443865, 0.5, 0, -0.5, 0.86602540378443865, 0, 0, 0, 1};
constexpr double kForce[3] = {0, 0, -500.0};      /* at node 3 */
constexpr double kMoment[3] = {0, 10.0, 0};       /* at node 11 */
constexpr double kPressure[4] = {1e5, 1e5, 2e5, 2e5}; /* E1 face 1 */
constexpr double kHexPressure[4] = {3e5, 3e5, 3e5, 3e5}; /* E3 face 6 */
constexpr double kGravity[3] = {0, 0, -9.81};
constexpr double kTemperatureBase = 20.0;       /* node i of 1 to 6 gets 20 + i */
constexpr double kPrescribed = 0.001;           /* node 12, tag 3 */
constexpr double kInitialTemp = 15.0;           /* level 1, tag 7, nodes 1 to 6 */
constexpr double kInitialVel = 2.5;             /* level 2, tag 1, node 6 */
constexpr double kCurveX[3] = {0.0, 1.0, 2.0};
constexpr double kCurveY[3] = {0.0, 1.0, 0.5};
constexpr double kCurveFactor = 1.5;
constexpr float kPairAdjust = 0.001f;
constexpr float kPairSmooth = 0.2f;
constexpr double kStep2Factor = 0.5;
constexpr double kStep2Time[3] = {0.0, 0.01, 2.0}; /* initial, step, termination */

/* The model's hash tables the fixture fills, in the order of FullModel::table. */
constexpr int kNumTables = 12;
constexpr int kTableCodes[kNumTables] = {SYS_COORDSYS, SYS_RCASE,     SYS_LCASE,     SYS_ICASE,
                                         SYS_MCASE,    SYS_MPROP,     SYS_EPROP,     SYS_TCURVE,
                                         SYS_CPAIR,    SYS_NODEGROUP, SYS_ELEMGROUP, SYS_ELEMDAT};

struct FullModel {
    vis_Model* model;
    vis_Connect* connect;
    vis_GridFun* gridfun;
    vis_Units* units;
    vis_EProp* eprop[5];     /* 10, 20, 30, 40, 50 */
    vis_MProp* mprop[2];     /* 1, 2 */
    vis_CoordSys* csys;
    vis_IdTran* nodegroup;
    vis_IdTran* elemgroup;
    vis_LCase* lcase;
    vis_RCase* rcase;
    vis_MCase* mcase;
    vis_ICase* icase;
    vis_TCurve* tcurve;
    vis_CPair* cpair;
    vis_SProp* step[2];
    vis_ElemDat* elemdat[3]; /* thickness, orientation, offsets */
    vsy_HashTable* table[12]; /* by kTableCodes */
    vsy_List* steps;
};

/* Builds the whole model into m (every pointer set or null). Returns 1 when every object was
 * made and every object's ierr polled 0; 0 otherwise (the model is then partial, but still
 * safe to destroy). */
int BuildFullModel(FullModel* m);
/* Releases everything BuildFullModel made, in any state of completion. */
void DestroyFullModel(FullModel* m);

}  // namespace modeltest

#endif

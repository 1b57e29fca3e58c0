// The full model of ModelFixture.h, built step by step; each step polls its objects.
#include "ModelFixture.h"

#include <cstring>
#include <initializer_list>

namespace modeltest {

namespace {

/* Polls an object's error through its Error verb: 1 when clean. A null object is a failure. */
template <class T>
int Clean(T* obj, int (*error)(T*))
{
    return obj && error(obj) == 0;
}

int BuildConnect(FullModel* m)
{
    vis_Connect* c = m->connect = vis_ConnectNew();
    if (!c) return 0;
    vis_ConnectDef(c, kNumNode, kNumElem);
    for (int i = 1; i <= kNumNode; ++i) {
        vis_ConnectSetCoordsdv(c, i, kCoords[i - 1]);
        vis_ConnectSetNodeAssoc(c, 10, i, kNodeIdBase + i);
        vis_ConnectSetNodeAssoc(c, 0, i, 1);
        if (i >= 11) vis_ConnectSetNodeAssoc(c, 4, i, kCsysId);
    }
    for (int e = 1; e <= kNumElem; ++e) {
        const ElemRow& s = kElems[e - 1];
        vis_ConnectSetTopology(c, e, s.shape, 0, 0, 0);
        vis_ConnectSetElemNode(c, e, s.nodes);
        vis_ConnectSetElemAssoc(c, 0, e, s.featype);
        if (s.matlid) vis_ConnectSetElemAssoc(c, 1, e, s.matlid);
        vis_ConnectSetElemAssoc(c, 2, e, s.propid);
        vis_ConnectSetElemAssoc(c, 3, e, s.partid);
        vis_ConnectSetElemAssoc(c, 10, e, kElemIdBase + e);
    }
    vis_ConnectSetElemAssoc(c, 41, 4, kEndRelease);
    int ok = Clean(c, vis_ConnectError);
    m->gridfun = vis_GridFunNew();
    if (m->gridfun) vis_ConnectGridFun(c, m->gridfun);
    return ok && Clean(m->gridfun, vis_GridFunError);
}

int BuildElementProperties(FullModel* m)
{
    static const int types[5] = {2, 1, 4, 9, 13};
    int ok = 1;
    for (int i = 0; i < 5; ++i) {
        m->eprop[i] = vis_EPropNew();
        vis_EPropDef(m->eprop[i], types[i]);
    }
    vis_EProp* shell = m->eprop[0];
    vis_EPropSetValuei(shell, 0, kMatSteel);
    vis_EPropSetValuedv(shell, 7, kShellThickness);
    vis_EPropSetValued(shell, 11, kShellNsm);
    vis_EProp* solid = m->eprop[1];
    vis_EPropSetValuei(solid, 0, kMatOrtho);
    vis_EPropSetValuei(solid, 6, 2);
    vis_EProp* beam = m->eprop[2];
    vis_EPropSetValuei(beam, 0, kMatSteel);
    vis_EPropSetValuedv(beam, 14, kBeamArea);
    vis_EPropSetValuedv(beam, 15, kBeamIy);
    vis_EPropSetValuedv(beam, 16, kBeamIz);
    vis_EPropSetValuedv(beam, 18, kBeamJ);
    vis_EPropSetValuedv(beam, 23, kBeamOffY);
    vis_EProp* spring = m->eprop[3];
    vis_EPropSetValued(spring, 47, kSpringK);
    vis_EPropSetValued(spring, 48, kSpringC);
    vis_EPropSetValuei(spring, 49, 1);
    vis_EPropSetValuei(spring, 50, 1);
    vis_EPropSetValuei(spring, 4, kCsysId);
    vis_EProp* mass = m->eprop[4];
    vis_EPropSetValuedv(mass, 51, kMass);
    vis_EPropSetValuedv(mass, 53, kMassInertia);
    for (int i = 0; i < 5; ++i) ok &= Clean(m->eprop[i], vis_EPropError);
    return ok;
}

int BuildMaterials(FullModel* m)
{
    vis_MProp* steel = m->mprop[0] = vis_MPropNew();
    vis_MPropDef(steel, 0);
    for (int code : {0, 1, 2, 4, 6}) vis_MPropSetValued(steel, code, kSteel[code]);
    vis_MProp* ortho = m->mprop[1] = vis_MPropNew();
    vis_MPropDef(ortho, 2);
    vis_MPropSetValued(ortho, 0, kOrthoDensity);
    vis_MPropSetValuedv(ortho, 7, kOrthoE);
    vis_MPropSetValuedv(ortho, 8, kOrthoNu);
    vis_MPropSetValuedv(ortho, 9, kOrthoG);
    return Clean(steel, vis_MPropError) & Clean(ortho, vis_MPropError);
}

int BuildSystemUnitsGroups(FullModel* m)
{
    m->csys = vis_CoordSysNew();
    vis_CoordSysDef(m->csys, VIS_COORDSYS_RECTANGULAR);
    vis_CoordSysSetId(m->csys, kCsysId);
    vis_CoordSysSetName(m->csys, "Rotated 30");
    vis_CoordSysSetOriginTriaddv(m->csys, kCsysOrigin, kCsysTriad);
    m->units = vis_UnitsNew();
    vis_UnitsSetConv(m->units, VIS_UNITS_LENGTH, 3);
    vis_UnitsSetConv(m->units, VIS_UNITS_MASS, 3);
    m->nodegroup = vis_IdTranNew();
    vis_IdTranSetEntType(m->nodegroup, SYS_NODE);
    vis_IdTranSetName(m->nodegroup, "Clamped nodes");
    for (int i = 1; i <= 4; ++i) vis_IdTranSetId(m->nodegroup, i, 6 + i);
    m->elemgroup = vis_IdTranNew();
    vis_IdTranSetEntType(m->elemgroup, SYS_ELEM);
    vis_IdTranSetName(m->elemgroup, "Plate");
    vis_IdTranSetId(m->elemgroup, 1, 1);
    vis_IdTranSetId(m->elemgroup, 2, 2);
    return Clean(m->csys, vis_CoordSysError) & Clean(m->units, vis_UnitsError) &
           Clean(m->nodegroup, vis_IdTranError) & Clean(m->elemgroup, vis_IdTranError);
}

int BuildElementData(FullModel* m)
{
    static const int kinds[3] = {VIS_ELEMDAT_THICKNESS, VIS_ELEMDAT_ORIENTATION, VIS_ELEMDAT_OFFSETS};
    static const int widths[3] = {8, 3, 6};
    for (int i = 0; i < 3; ++i) {
        m->elemdat[i] = vis_ElemDatNew();
        vis_ElemDatDef(m->elemdat[i], kNumElem, kinds[i], widths[i]);
    }
    vis_ElemDatSetDatadv(m->elemdat[0], 2, 4, kE2Thickness);
    vis_ElemDatSetDatadv(m->elemdat[1], 4, 3, kBeamOrient);
    vis_ElemDatSetDatadv(m->elemdat[1], 5, 3, kSpringOrient);
    vis_ElemDatSetDatadv(m->elemdat[2], 4, 6, kBeamOffsets);
    int ok = 1;
    for (int i = 0; i < 3; ++i) ok &= Clean(m->elemdat[i], vis_ElemDatError);
    return ok;
}

int BuildLoads(FullModel* m)
{
    vis_LCase* lc = m->lcase = vis_LCaseNew();
    vis_LCaseSetConcdv(lc, 3, 1, kForce);
    vis_LCaseSetConcdv(lc, 11, 2, kMoment);
    for (int i = 1; i <= 6; ++i) {
        double t = kTemperatureBase + i;
        vis_LCaseSetConcdv(lc, i, 4, &t);
    }
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 1, 2, kPressure);
    vis_LCaseSetDistdv(lc, SYS_FACE, 3, 6, 2, kHexPressure);
    vis_LCaseSetAcceldv(lc, kGravity, nullptr, nullptr, nullptr);
    return Clean(lc, vis_LCaseError);
}

int BuildConstraints(FullModel* m)
{
    vis_RCase* rc = m->rcase = vis_RCaseNew();
    for (int node = 7; node <= 10; ++node)
        for (int tag = 1; tag <= 6; ++tag) vis_RCaseSetSPCdv(rc, node, tag, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 12, 3, 2, kPrescribed);
    vis_MCase* mc = m->mcase = vis_MCaseNew();
    const int nodes[2] = {11, 12}, tags[2] = {3, 3}, tie[2] = {3, 11};
    const double factors[2] = {1.0, -1.0};
    vis_MCaseSetMPCdv(mc, 1, 2, nodes, tags, factors);
    vis_MCaseSetCon(mc, 2, 2, tie);
    vis_ICase* ic = m->icase = vis_ICaseNew();
    for (int node = 1; node <= 6; ++node) vis_ICaseSetSPVdv(ic, node, 1, 7, kInitialTemp);
    vis_ICaseSetSPVdv(ic, 6, 2, 1, kInitialVel);
    return Clean(rc, vis_RCaseError) & Clean(mc, vis_MCaseError) & Clean(ic, vis_ICaseError);
}

int BuildCurveAndPair(FullModel* m)
{
    m->tcurve = vis_TCurveNew();
    vis_TCurveSetPWLineardv(m->tcurve, 3, kCurveX, kCurveY);
    vis_TCurveSetFactord(m->tcurve, kCurveFactor);
    vis_CPair* cp = m->cpair = vis_CPairNew();
    vis_CPairSetValuei(cp, 0, kPropShell);
    vis_CPairSetValuef(cp, 1, kPairAdjust);
    vis_CPairSetValuei(cp, 3, 1);
    vis_CPairSetValuef(cp, 4, kPairSmooth);
    vis_CPairSetType(cp, 0, 0);
    vis_CPairSetSlaveElem(cp, 1, 1);
    vis_CPairSetMaster(cp, 3, 6);
    return Clean(m->tcurve, vis_TCurveError) & Clean(cp, vis_CPairError);
}

int BuildSteps(FullModel* m)
{
    vis_SProp* s1 = m->step[0] = vis_SPropNew();
    vis_SPropDef(s1, 1);
    const int lcid[1] = {kLoadCase}, curve[1] = {kCurve};
    const double one[1] = {1.0}, half[1] = {kStep2Factor};
    vis_SPropSetValuei(s1, 2, 1);
    vis_SPropSetValueiv(s1, 3, lcid);
    vis_SPropSetValuedv(s1, 4, one);
    vis_SPropSetValuei(s1, 8, kRestraintCase);
    vis_SPropSetValuei(s1, 18, kMpcCase);
    vis_SPropSetValuec(s1, 19, "Static step");
    vis_SPropSetValuei(s1, 22, 1);
    vis_SProp* s2 = m->step[1] = vis_SPropNew();
    vis_SPropDef(s2, 4);
    vis_SPropSetValuei(s2, 2, 1);
    vis_SPropSetValueiv(s2, 3, lcid);
    vis_SPropSetValuedv(s2, 4, half);
    vis_SPropSetValueiv(s2, 23, curve);
    vis_SPropSetValuei(s2, 8, kRestraintCase);
    vis_SPropSetValuei(s2, 10, kInitialCase);
    for (int i = 0; i < 3; ++i) vis_SPropSetValued(s2, 5 + i, kStep2Time[i]);
    vis_SPropSetValuec(s2, 19, "Transient step");
    vis_SPropSetValuei(s2, 22, 2);
    m->steps = vsy_ListNew();
    vsy_ListAppend(m->steps, s1);
    vsy_ListAppend(m->steps, s2);
    return Clean(s1, vis_SPropError) & Clean(s2, vis_SPropError) & Clean(m->steps, vsy_ListError);
}

/* Fills table i with one object under key; a missing object leaves it out. */
void Put(FullModel* m, int i, int key, void* object)
{
    if (!m->table[i]) m->table[i] = vsy_HashTableNew();
    if (m->table[i] && object) vsy_HashTableInsert(m->table[i], key, object);
}

int BuildTables(FullModel* m)
{
    static const int propids[5] = {kPropShell, kPropSolid, kPropBeam, kPropSpring, kPropMass};
    Put(m, 0, kCsysId, m->csys);
    Put(m, 1, kRestraintCase, m->rcase);
    Put(m, 2, kLoadCase, m->lcase);
    Put(m, 3, kInitialCase, m->icase);
    Put(m, 4, kMpcCase, m->mcase);
    Put(m, 5, kMatSteel, m->mprop[0]);
    Put(m, 5, kMatOrtho, m->mprop[1]);
    for (int i = 0; i < 5; ++i) Put(m, 6, propids[i], m->eprop[i]);
    Put(m, 7, kCurve, m->tcurve);
    Put(m, 8, kPair, m->cpair);
    Put(m, 9, kNodeGroup, m->nodegroup);
    Put(m, 10, kElemGroup, m->elemgroup);
    Put(m, 11, VIS_ELEMDAT_THICKNESS, m->elemdat[0]);
    Put(m, 11, VIS_ELEMDAT_ORIENTATION, m->elemdat[1]);
    Put(m, 11, VIS_ELEMDAT_OFFSETS, m->elemdat[2]);
    int ok = 1;
    for (int i = 0; i < kNumTables; ++i) ok &= Clean(m->table[i], vsy_HashTableError);
    return ok;
}

int BuildModel(FullModel* m)
{
    vis_Model* model = m->model = vis_ModelNew();
    if (!model) return 0;
    vis_ModelSetObject(model, SYS_CONNECT, m->connect);
    vis_ModelSetObject(model, SYS_GRIDFUN, m->gridfun);
    vis_ModelSetObject(model, SYS_UNITS, m->units);
    for (int i = 0; i < kNumTables; ++i) vis_ModelSetHashTable(model, kTableCodes[i], m->table[i]);
    vis_ModelSetList(model, SYS_SPROP, m->steps);
    return Clean(model, vis_ModelError);
}

}  // namespace

int BuildFullModel(FullModel* m)
{
    std::memset(m, 0, sizeof(*m));
    int ok = BuildConnect(m);
    ok &= BuildElementProperties(m);
    ok &= BuildMaterials(m);
    ok &= BuildSystemUnitsGroups(m);
    ok &= BuildElementData(m);
    ok &= BuildLoads(m);
    ok &= BuildConstraints(m);
    ok &= BuildCurveAndPair(m);
    ok &= BuildSteps(m);
    ok &= BuildTables(m);
    ok &= BuildModel(m);
    return ok;
}

void DestroyFullModel(FullModel* m)
{
    vis_ModelDelete(m->model);
    for (vsy_HashTable* t : m->table) vsy_HashTableDelete(t);
    vsy_ListDelete(m->steps);
    for (vis_SProp* s : m->step) vis_SPropDelete(s);
    vis_CPairDelete(m->cpair);
    vis_TCurveDelete(m->tcurve);
    vis_ICaseDelete(m->icase);
    vis_MCaseDelete(m->mcase);
    vis_RCaseDelete(m->rcase);
    vis_LCaseDelete(m->lcase);
    for (vis_ElemDat* d : m->elemdat) vis_ElemDatDelete(d);
    vis_IdTranDelete(m->elemgroup);
    vis_IdTranDelete(m->nodegroup);
    vis_UnitsDelete(m->units);
    vis_CoordSysDelete(m->csys);
    for (vis_MProp* p : m->mprop) vis_MPropDelete(p);
    for (vis_EProp* p : m->eprop) vis_EPropDelete(p);
    vis_GridFunDelete(m->gridfun);
    vis_ConnectDelete(m->connect);
    std::memset(m, 0, sizeof(*m));
}

}  // namespace modeltest

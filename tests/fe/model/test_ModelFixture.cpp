// The full model fixture: everything put in reads back exactly through the queries the deck
// writers use (model slots, tables by id, property values, case queries), and an allocation
// failure at any step of its construction leaves no leak and no crash.
#include "ModelFixture.h"
#include "vsy_TestSupport.h"

#include <cstring>

using namespace vsytest;
using namespace modeltest;

namespace {

class FixtureTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        ASSERT_EQ(BuildFullModel(&m), 1);
        ExpectNoReport();
    }
    void TearDown() override
    {
        DestroyFullModel(&m);
        ContainerTest::TearDown();
    }
    /* An object of a model table by key, through the model as a writer reaches it. */
    template <class T>
    T* Lookup(int code, int key)
    {
        vsy_HashTable* tab = nullptr;
        vis_ModelGetHashTable(m.model, code, &tab);
        void* obj = nullptr;
        if (tab) vsy_HashTableGet(tab, key, &obj);
        return static_cast<T*>(obj);
    }
    FullModel m;
};

TEST_F(FixtureTest, MeshThroughTheModel)
{
    void* obj = nullptr;
    vis_ModelGetObject(m.model, SYS_CONNECT, &obj);
    vis_Connect* c = static_cast<vis_Connect*>(obj);
    ASSERT_EQ(c, m.connect);
    int numnode = 0, numelem = 0;
    vis_ConnectGetInteger(c, 1, &numnode);
    vis_ConnectGetInteger(c, 4, &numelem);
    EXPECT_EQ(numnode, kNumNode);
    EXPECT_EQ(numelem, kNumElem);
    for (int i = 1; i <= kNumNode; ++i) {
        double x[3];
        int uid = 0;
        vis_ConnectCoordsdv(c, 1, &i, x);
        vis_ConnectNodeAssoc(c, 10, 1, &i, &uid);
        for (int k = 0; k < 3; ++k) EXPECT_EQ(x[k], kCoords[i - 1][k]);
        EXPECT_EQ(uid, kNodeIdBase + i);
    }
    for (int e = 1; e <= kNumElem; ++e) {
        const ElemRow& s = kElems[e - 1];
        int shape = -1, maxi, maxj, maxk, num = 0, nodes[8], v[5];
        vis_ConnectTopology(c, e, &shape, &maxi, &maxj, &maxk);
        vis_ConnectElemNode(c, e, &num, nodes);
        EXPECT_EQ(shape, s.shape);
        ASSERT_EQ(num, s.nnode);
        for (int k = 0; k < num; ++k) EXPECT_EQ(nodes[k], s.nodes[k]);
        for (int type = 0; type < 4; ++type) vis_ConnectElemAssoc(c, type, 1, &e, &v[type]);
        vis_ConnectElemAssoc(c, 10, 1, &e, &v[4]);
        EXPECT_EQ(v[0], s.featype);
        EXPECT_EQ(v[1], s.matlid);
        EXPECT_EQ(v[2], s.propid);
        EXPECT_EQ(v[3], s.partid);
        EXPECT_EQ(v[4], kElemIdBase + e);
    }
    int release = 0, beam = 4, csys = 0, node = 11;
    vis_ConnectElemAssoc(c, 41, 1, &beam, &release);
    vis_ConnectNodeAssoc(c, 4, 1, &node, &csys);
    EXPECT_EQ(release, kEndRelease);
    EXPECT_EQ(csys, kCsysId);
    vis_ModelGetObject(m.model, SYS_GRIDFUN, &obj);
    EXPECT_EQ(obj, m.gridfun);
    vis_ModelGetObject(m.model, SYS_UNITS, &obj);
    int base = 0;
    vis_UnitsGetBase(static_cast<vis_Units*>(obj), VIS_UNITS_LENGTH, &base);
    EXPECT_EQ(base, 3);  // mm
    vis_UnitsGetBase(static_cast<vis_Units*>(obj), VIS_UNITS_MASS, &base);
    EXPECT_EQ(base, 3);  // t
    for (int i = 1; i <= kNumNode; ++i) {
        int featype = 0;
        vis_ConnectNodeAssoc(c, 0, 1, &i, &featype);
        EXPECT_EQ(featype, 1);
    }
}

TEST_F(FixtureTest, EachElementReachesItsPropertyAndMaterial)
{
    for (int e = 1; e <= kNumElem; ++e) {
        int propid = 0;
        vis_ConnectElemAssoc(m.connect, 2, 1, &e, &propid);
        vis_EProp* p = Lookup<vis_EProp>(SYS_EPROP, propid);
        ASSERT_NE(p, nullptr) << e;
        int mid = 0;
        vis_EPropValueInteger(p, 0, &mid);
        EXPECT_EQ(mid, kElems[e - 1].matlid) << e;  // parameter 0 agrees with `matlid`
        if (mid) {
            EXPECT_NE(Lookup<vis_MProp>(SYS_MPROP, mid), nullptr);
        }
    }
    ExpectNoReport();
}

TEST_F(FixtureTest, PropertyValues)
{
    vis_EProp* shell = Lookup<vis_EProp>(SYS_EPROP, kPropShell);
    int type = 0;
    vis_EPropGetType(shell, &type);
    EXPECT_EQ(type, 2);
    double t[4] = {}, nsm = 0;
    vis_EPropValueDouble(shell, 7, t);
    vis_EPropValueDouble(shell, 11, &nsm);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(t[i], kShellThickness[i]);
    EXPECT_EQ(nsm, kShellNsm);
    int rule = 0;
    vis_EPropValueInteger(Lookup<vis_EProp>(SYS_EPROP, kPropSolid), 6, &rule);
    EXPECT_EQ(rule, 2);
    vis_EProp* beam = Lookup<vis_EProp>(SYS_EPROP, kPropBeam);
    const struct {
        int code;
        const double* want;
    } beamvals[] = {{14, kBeamArea}, {15, kBeamIy}, {16, kBeamIz}, {18, kBeamJ}, {23, kBeamOffY}};
    for (const auto& bv : beamvals) {
        double v[2] = {};
        vis_EPropValueDouble(beam, bv.code, v);
        EXPECT_EQ(v[0], bv.want[0]) << bv.code;
        EXPECT_EQ(v[1], bv.want[1]) << bv.code;
    }
    double dz = -7;
    vis_EPropValueDouble(beam, 24, &dz);
    EXPECT_EQ(dz, -7.0);  // never set: the default stays
    vis_EProp* spring = Lookup<vis_EProp>(SYS_EPROP, kPropSpring);
    double k = 0, c = 0;
    int d1 = 0, d2 = 0, cid = 0;
    vis_EPropValueDouble(spring, 47, &k);
    vis_EPropValueDouble(spring, 48, &c);
    vis_EPropValueInteger(spring, 49, &d1);
    vis_EPropValueInteger(spring, 50, &d2);
    vis_EPropValueInteger(spring, 4, &cid);
    EXPECT_EQ(k, kSpringK);
    EXPECT_EQ(c, kSpringC);
    EXPECT_EQ(d1, 1);
    EXPECT_EQ(d2, 1);
    EXPECT_EQ(cid, kCsysId);
    vis_EProp* mass = Lookup<vis_EProp>(SYS_EPROP, kPropMass);
    double mv[3] = {}, inertia[6] = {};
    vis_EPropValueDouble(mass, 51, mv);
    vis_EPropValueDouble(mass, 53, inertia);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(mv[i], kMass[i]);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(inertia[i], kMassInertia[i]);
    vis_MProp* steel = Lookup<vis_MProp>(SYS_MPROP, kMatSteel);
    for (int code : {0, 1, 2, 4, 6}) {
        double v = 0;
        vis_MPropValueDouble(steel, code, &v);
        EXPECT_EQ(v, kSteel[code]) << code;
    }
    int flag = 1;
    vis_MPropValueFlag(steel, 3, &flag);
    EXPECT_EQ(flag, 0);
    vis_MProp* ortho = Lookup<vis_MProp>(SYS_MPROP, kMatOrtho);
    vis_MPropGetType(ortho, &type);
    EXPECT_EQ(type, 2);
    double e3[3], nu3[3], g3[3], rho = 0;
    vis_MPropValueDouble(ortho, 7, e3);
    vis_MPropValueDouble(ortho, 8, nu3);
    vis_MPropValueDouble(ortho, 9, g3);
    vis_MPropValueDouble(ortho, 0, &rho);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(e3[i], kOrthoE[i]);
        EXPECT_EQ(nu3[i], kOrthoNu[i]);
        EXPECT_EQ(g3[i], kOrthoG[i]);
    }
    EXPECT_EQ(rho, kOrthoDensity);
    ExpectNoReport();
}

TEST_F(FixtureTest, ThicknessOffsetsOrientationAndSystem)
{
    double t[4];
    vis_ModelElemThickness(m.model, 1, t);  // no element data: the shell property's corners
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(t[i], kShellThickness[i]);
    vis_ModelElemThickness(m.model, 2, t);  // element data wins
    for (int i = 0; i < 4; ++i) EXPECT_EQ(t[i], kE2Thickness[i]);
    vis_ElemDat* offsets = Lookup<vis_ElemDat>(SYS_ELEMDAT, VIS_ELEMDAT_OFFSETS);
    vis_ElemDat* orient = Lookup<vis_ElemDat>(SYS_ELEMDAT, VIS_ELEMDAT_ORIENTATION);
    double off[6] = {}, o4[3] = {}, o5[3] = {};
    vis_ElemDatData(offsets, 4, 6, off);
    vis_ElemDatData(orient, 4, 3, o4);
    vis_ElemDatData(orient, 5, 3, o5);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(off[i], kBeamOffsets[i]);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(o4[i], kBeamOrient[i]);
        EXPECT_EQ(o5[i], kSpringOrient[i]);
    }
    vis_CoordSys* cs = Lookup<vis_CoordSys>(SYS_COORDSYS, kCsysId);
    double origin[3], triad[9];
    int type = 0;
    vis_CoordSysOriginTriad(cs, origin, triad);
    vis_CoordSysGetType(cs, &type);
    EXPECT_EQ(type, VIS_COORDSYS_RECTANGULAR);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(origin[i], kCsysOrigin[i]);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(triad[i], kCsysTriad[i]);
    char name[32];
    vis_CoordSysGetName(cs, name);
    EXPECT_STREQ(name, "Rotated 30");
    ExpectNoReport();
}

TEST_F(FixtureTest, Groups)
{
    vis_IdTran* nodes = Lookup<vis_IdTran>(SYS_NODEGROUP, kNodeGroup);
    vis_IdTran* elems = Lookup<vis_IdTran>(SYS_ELEMGROUP, kElemGroup);
    int n = 0, ids[4], type = 0;
    char name[32];
    vis_IdTranNum(nodes, &n);
    ASSERT_EQ(n, 4);
    vis_IdTranGetIds(nodes, ids);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(ids[i], 7 + i);
    vis_IdTranGetName(nodes, name);
    EXPECT_STREQ(name, "Clamped nodes");
    vis_IdTranGetEntType(elems, &type);
    EXPECT_EQ(type, SYS_ELEM);
    vis_IdTranNum(elems, &n);
    EXPECT_EQ(n, 2);
    vis_IdTranGetIds(elems, ids);
    EXPECT_EQ(ids[0], 1);
    EXPECT_EQ(ids[1], 2);
    vis_IdTranGetName(elems, name);
    EXPECT_STREQ(name, "Plate");
}

TEST_F(FixtureTest, StepsSelectTheirCases)
{
    vsy_List* list = nullptr;
    vis_ModelGetList(m.model, SYS_SPROP, &list);
    int nstep = 0;
    vsy_ListCount(list, &nstep);
    ASSERT_EQ(nstep, 2);
    void* obj = nullptr;
    vsy_ListRef(list, 1, &obj);
    vis_SProp* s1 = static_cast<vis_SProp*>(obj);
    vsy_ListRef(list, 2, &obj);
    vis_SProp* s2 = static_cast<vis_SProp*>(obj);
    int type = 0, nlc = 0, lcid = 0, rcid = 0, mcid = 0, icid = 0, curve = 0, caseid = 0;
    double factor = 0;
    char title[81];
    vis_SPropGetType(s1, &type);
    EXPECT_EQ(type, 1);
    vis_SPropValueInteger(s1, 2, &nlc);
    vis_SPropValueInteger(s1, 3, &lcid);
    vis_SPropValueDouble(s1, 4, &factor);
    vis_SPropValueInteger(s1, 8, &rcid);
    vis_SPropValueInteger(s1, 18, &mcid);
    vis_SPropValueString(s1, 19, title);
    vis_SPropValueInteger(s1, 22, &caseid);
    EXPECT_EQ(nlc, 1);
    EXPECT_EQ(lcid, kLoadCase);
    EXPECT_EQ(factor, 1.0);
    EXPECT_EQ(rcid, kRestraintCase);
    EXPECT_EQ(mcid, kMpcCase);
    EXPECT_STREQ(title, "Static step");
    EXPECT_EQ(caseid, 1);
    EXPECT_NE(Lookup<vis_LCase>(SYS_LCASE, lcid), nullptr);
    EXPECT_NE(Lookup<vis_RCase>(SYS_RCASE, rcid), nullptr);
    EXPECT_NE(Lookup<vis_MCase>(SYS_MCASE, mcid), nullptr);
    icid = -1;
    vis_SPropValueInteger(s1, 10, &icid);
    EXPECT_EQ(icid, -1);  // the static step has no initial conditions
    vis_SPropGetType(s2, &type);
    EXPECT_EQ(type, 4);
    vis_SPropValueInteger(s2, 10, &icid);
    vis_SPropValueInteger(s2, 23, &curve);
    vis_SPropValueDouble(s2, 4, &factor);
    EXPECT_EQ(icid, kInitialCase);
    EXPECT_EQ(curve, kCurve);
    EXPECT_EQ(factor, kStep2Factor);
    for (int i = 0; i < 3; ++i) {
        double v = -1;
        vis_SPropValueDouble(s2, 5 + i, &v);
        EXPECT_EQ(v, kStep2Time[i]);
    }
    vis_SPropValueString(s2, 19, title);
    vis_SPropValueInteger(s2, 22, &caseid);
    EXPECT_STREQ(title, "Transient step");
    EXPECT_EQ(caseid, 2);
    EXPECT_NE(Lookup<vis_ICase>(SYS_ICASE, icid), nullptr);
    EXPECT_NE(Lookup<vis_TCurve>(SYS_TCURVE, curve), nullptr);
    ExpectNoReport();
}

TEST_F(FixtureTest, LoadCaseValues)
{
    vis_LCase* lc = Lookup<vis_LCase>(SYS_LCASE, kLoadCase);
    double v[4];
    int max = 0, flags = 0, n = 0;
    vis_LCaseConcdv(lc, 3, 1, v);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(v[i], kForce[i]);
    vis_LCaseConcdv(lc, 11, 2, v);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(v[i], kMoment[i]);
    vis_LCaseConcMax(lc, 7, &max);
    EXPECT_EQ(max, 11);
    vis_LCaseConcNum(lc, 4, &n);
    EXPECT_EQ(n, 6);
    for (int i = 1; i <= 6; ++i) {
        vis_LCaseConcdv(lc, i, 4, v);
        EXPECT_EQ(v[0], kTemperatureBase + i);
    }
    vis_LCaseDistFlag(lc, SYS_FACE, 1, 2, &flags);
    EXPECT_EQ(flags, 1);
    vis_LCaseDistdv(lc, SYS_FACE, 1, 1, 2, v);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(v[i], kPressure[i]);
    vis_LCaseDistFlag(lc, SYS_FACE, 3, 2, &flags);
    EXPECT_EQ(flags, 1 << 5);
    vis_LCaseDistdv(lc, SYS_FACE, 3, 6, 2, v);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(v[i], kHexPressure[i]);
    vis_LCaseDistMax(lc, SYS_FACE, 2, &max);
    EXPECT_EQ(max, 3);
    int accel = 0;
    double a[3], w[3], al[3], ctr[3];
    vis_LCaseAccelFlag(lc, &accel);
    vis_LCaseAccel(lc, a, w, al, ctr);
    EXPECT_EQ(accel, 1);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(a[i], kGravity[i]);
    ExpectNoReport();
}

TEST_F(FixtureTest, RestraintConstraintAndInitialCases)
{
    vis_RCase* rc = Lookup<vis_RCase>(SYS_RCASE, kRestraintCase);
    int n = 0, tags[31], type = 0;
    double v = -1;
    for (int node = 7; node <= 10; ++node) {
        vis_RCaseSPCTag(rc, node, &n, tags);
        ASSERT_EQ(n, 6);
        for (int i = 0; i < 6; ++i) EXPECT_EQ(tags[i], i + 1);
    }
    vis_RCaseSPCdv(rc, 12, 3, &type, &v);
    EXPECT_EQ(type, 2);
    EXPECT_EQ(v, kPrescribed);
    vis_MCase* mc = Lookup<vis_MCase>(SYS_MCASE, kMpcCase);
    int nequ = 0, maxterm = 0, nterms = 0, nodes[2], mt[2], ctype = 0, cn = 0;
    double f[2];
    vis_MCaseInq(mc, &nequ, &maxterm, nullptr);
    EXPECT_EQ(nequ, 2);
    EXPECT_EQ(maxterm, 2);
    vis_MCaseMPCdv(mc, 1, &nterms, nodes, mt, f);
    ASSERT_EQ(nterms, 2);
    EXPECT_EQ(nodes[0], 11);
    EXPECT_EQ(nodes[1], 12);
    EXPECT_EQ(mt[0], 3);
    EXPECT_EQ(f[0], 1.0);
    EXPECT_EQ(f[1], -1.0);
    vis_MCaseCon(mc, 2, &ctype, &cn, nodes);
    EXPECT_EQ(ctype, 2);
    EXPECT_EQ(nodes[0], 3);
    EXPECT_EQ(nodes[1], 11);
    vis_ICase* ic = Lookup<vis_ICase>(SYS_ICASE, kInitialCase);
    double vals[31];
    int max = 0;
    vis_ICaseSPVMax(ic, 1, &max);
    EXPECT_EQ(max, 6);
    vis_ICaseSPVdv(ic, 4, 1, &n, tags, vals);
    ASSERT_EQ(n, 1);
    EXPECT_EQ(tags[0], 7);
    EXPECT_EQ(vals[0], kInitialTemp);
    vis_ICaseSPVdv(ic, 6, 2, &n, tags, vals);
    ASSERT_EQ(n, 1);
    EXPECT_EQ(tags[0], 1);
    EXPECT_EQ(vals[0], kInitialVel);
    ExpectNoReport();
}

TEST_F(FixtureTest, CurveAndContactPair)
{
    vis_TCurve* tc = Lookup<vis_TCurve>(SYS_TCURVE, kCurve);
    const int pts[3] = {1, 2, 3};
    double x[3], y[3], factor = 0;
    vis_TCurveIndepdv(tc, 3, pts, x);
    vis_TCurveDepdv(tc, 3, pts, y);
    vis_TCurveGetFactord(tc, &factor);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(x[i], kCurveX[i]);
        EXPECT_EQ(y[i], kCurveY[i]);
    }
    EXPECT_EQ(factor, kCurveFactor);
    vis_CPair* cp = Lookup<vis_CPair>(SYS_CPAIR, kPair);
    int pid = 0, tied = 0, kind = -1, link = -1, num = 0, elem = 0, face = 0;
    float adjust = 0, smooth = 0;
    vis_CPairValueInteger(cp, 0, &pid);
    vis_CPairValueInteger(cp, 3, &tied);
    vis_CPairValueFloat(cp, 1, &adjust);
    vis_CPairValueFloat(cp, 4, &smooth);
    vis_CPairGetType(cp, &kind, &link);
    EXPECT_EQ(pid, kPropShell);
    EXPECT_EQ(tied, 1);
    EXPECT_EQ(adjust, kPairAdjust);
    EXPECT_EQ(smooth, kPairSmooth);
    EXPECT_EQ(kind, 0);
    EXPECT_EQ(link, 0);
    vis_CPairMasterSlaveElemNum(cp, VIS_CPAIR_MASTER, &num);
    ASSERT_EQ(num, 1);
    vis_CPairMasterSlaveElem(cp, VIS_CPAIR_MASTER, 1, &elem, &face, nullptr);
    EXPECT_EQ(elem, 3);
    EXPECT_EQ(face, 6);
    vis_CPairMasterSlaveElem(cp, VIS_CPAIR_SLAVE, 1, &elem, &face, nullptr);
    EXPECT_EQ(elem, 1);
    EXPECT_EQ(face, 1);
    ExpectNoReport();
}

TEST_F(FixtureTest, CheckFindsNoDanglingReferenceUntilOneIsRemoved)
{
    int nbad = -1;
    vis_ModelCheck(m.model, &nbad);
    EXPECT_EQ(nbad, 0);
    vsy_HashTableRemove(m.table[5], kMatOrtho);
    vsy_HashTableRemove(m.table[3], kInitialCase);
    vis_ModelCheck(m.model, &nbad);
    // Element 3's `matlid`, property 20's material and step 2's initial condition case.
    EXPECT_EQ(nbad, 3);
    ExpectNoReport();
}

// Allocation failure injected at every allocation of the construction in turn: the build
// reports failure (or, where a failure is absorbed, still succeeds), never crashes, and
// destroying the partial model frees everything (AddressSanitizer's leak check runs at exit).
class FixtureFailureTest : public ContainerTest {};

TEST_F(FixtureFailureTest, EveryAllocationOfTheConstructionMayFail)
{
    FullModel m;
    CountAllocations();
    ASSERT_EQ(BuildFullModel(&m), 1);
    long total = AllocState().calls;
    RestoreAllocation();
    DestroyFullModel(&m);
    ASSERT_GT(total, 50);
    // One failing allocation, then every allocation from that one on failing.
    for (bool all : {false, true}) {
        long failed = 0;
        for (long nth = 1; nth <= total; ++nth) {
            Reports().clear();
            FailAllocation(nth, all);
            int ok = BuildFullModel(&m);
            RestoreAllocation();
            if (!ok) {
                ++failed;
                EXPECT_FALSE(reports().empty()) << "allocation " << nth << " failed silently";
            }
            DestroyFullModel(&m);
        }
        // Most failures must surface; a failed growth of a hash table is absorbed on purpose.
        EXPECT_GT(failed, total / 2) << (all ? "all from nth" : "nth only");
        if (all) {
            EXPECT_EQ(failed, total);  // nothing can be built once memory has run out
        }
    }
}

}  // namespace

// vis_GridFun: the slot table, and the mixed mesh seen through a front vis_Connect that holds
// nothing but the table: every slot gives the answers of the connect it stands for.
#include "ConnectTestMesh.h"
#include "vis_Connect.h"
#include "vis_ConnectKernel.h"
#include "vis_GridFun.h"
#include "vsy_TestSupport.h"

#include <vector>

using namespace vsytest;

namespace {

class GridFunTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        a = vis_ConnectNew();
        meshtest::Build(a);
        vis_ConnectSetNodeAssoc(a, VIS_ASSOC_USERID, 3, 33);
        vis_ConnectSetElemAssoc(a, VIS_ASSOC_PART, 2, 7);
        vis_ConnectSetElemEntAssoc(a, 5, SYS_FACE, 1, 2, 99);
        vis_ConnectKernel(a);
        gf = vis_GridFunNew();
        vis_ConnectGridFun(a, gf);
        b = vis_ConnectNew();
        vis_ConnectSetObject(b, SYS_GRIDFUN, gf);
        ASSERT_EQ(vis_ConnectError(a), 0);
        ExpectNoReport();
    }
    void TearDown() override
    {
        vis_ConnectDelete(b);
        vis_GridFunDelete(gf);
        vis_ConnectDelete(a);
        ContainerTest::TearDown();
    }
    vis_Connect* a = nullptr;
    vis_Connect* b = nullptr;
    vis_GridFun* gf = nullptr;
};

TEST_F(GridFunTest, SlotCodes)
{
    vis_GridFun* t = vis_GridFunNew();
    vis_GridFunSet(t, 36, nullptr);
    ExpectOnlyReport("vis_GridFunSet", 2, "type= 36");
    EXPECT_EQ(vis_GridFunError(t), 2);
    EXPECT_EQ(vis_GridFunError(t), 0);
    Reports().clear();
    vis_GridFunc f = (vis_GridFunc)1;
    vis_GridFunGet(t, 0, &f);
    ExpectOnlyReport("vis_GridFunGet", 2, "type= 0");
    EXPECT_EQ(f, nullptr);
    vis_GridFunDelete(t);
    // The table over a connect: its object, and every slot but the free ones 23 and 31.
    void* obj = nullptr;
    vis_GridFunGetObj(gf, &obj);
    EXPECT_EQ(obj, a);
    for (int code = 1; code <= VIS_GRIDFUN_MAXSLOT; ++code) {
        bool unset = code == 23 || code == 31;
        EXPECT_EQ(gf->fun[code] == nullptr, unset) << code;
    }
}

TEST_F(GridFunTest, SlotsCalledDirectly)
{
    int v = 0;
    ((vis_GridFunGetInteger_t)gf->fun[VIS_GRIDFUN_GETINTEGER])(gf->obj, VIS_CONNECT_NUMELEM, &v);
    EXPECT_EQ(v, 10);
    int num = 0, nodes[32];
    ((vis_GridFunElemNode_t)gf->fun[VIS_GRIDFUN_ELEMNODE])(gf->obj, 4, &num, nodes);
    EXPECT_EQ(std::vector<int>(nodes, nodes + num), (std::vector<int>{1, 2, 3, 4, 12}));
    EXPECT_EQ(((vis_GridFunError_t)gf->fun[VIS_GRIDFUN_ERROR])(gf->obj), 0);
}

// Every query of the front against the connect itself, over every element, entity and node.
TEST_F(GridFunTest, FrontGivesTheSameAnswersForEverySlot)
{
    for (int opt = 0; opt <= 5; ++opt) {
        int va = -1, vb = -2;
        vis_ConnectGetInteger(a, opt, &va);
        vis_ConnectGetInteger(b, opt, &vb);
        EXPECT_EQ(va, vb) << opt;
    }
    int ma = 0, mb = 0;
    vis_ConnectMaxElemNode(a, &ma);
    vis_ConnectMaxElemNode(b, &mb);
    EXPECT_EQ(ma, mb);
    vis_ConnectMaxNodeElem(a, &ma);
    vis_ConnectMaxNodeElem(b, &mb);
    EXPECT_EQ(ma, mb);
    vis_ConnectGetDimension(a, &ma);
    vis_ConnectGetDimension(b, &mb);
    EXPECT_EQ(ma, mb);
    const int *pa = nullptr, *pb = nullptr;
    vis_ConnectNumElemNodePtr(a, &pa);
    vis_ConnectNumElemNodePtr(b, &pb);
    EXPECT_EQ(pa, pb);
    float fa[6], fb[6];
    vis_ConnectExtent(a, nullptr, fa);
    vis_ConnectExtent(b, nullptr, fb);
    for (int k = 0; k < 6; ++k) EXPECT_EQ(fa[k], fb[k]);
    double da[6], db[6];
    vis_ConnectExtentdv(a, nullptr, da);
    vis_ConnectExtentdv(b, nullptr, db);
    for (int k = 0; k < 6; ++k) EXPECT_EQ(da[k], db[k]);

    std::vector<int> xa(64), xb(64);
    for (int id = 1; id <= meshtest::kNumElem; ++id) {
        int ta[4], tb[4];
        vis_ConnectTopology(a, id, &ta[0], &ta[1], &ta[2], &ta[3]);
        vis_ConnectTopology(b, id, &tb[0], &tb[1], &tb[2], &tb[3]);
        for (int k = 0; k < 4; ++k) EXPECT_EQ(ta[k], tb[k]);
        int na = -1, nb = -2;
        vis_ConnectElemNode(a, id, &na, xa.data());
        vis_ConnectElemNode(b, id, &nb, xb.data());
        ASSERT_EQ(na, nb);
        for (int k = 0; k < na; ++k) EXPECT_EQ(xa[k], xb[k]);
        vis_ConnectNumElemNode(a, id, &na);
        vis_ConnectNumElemNode(b, id, &nb);
        EXPECT_EQ(na, nb);
        int ia = -1, ib = -2;
        vis_ConnectIndElemNode(b, id, na - 1, &ib);
        EXPECT_EQ(ib, xa[na - 1]);
        const int* p = (const int*)1;
        vis_ConnectElemNodePtr(b, id, &nb, &p);
        EXPECT_EQ(nb, 0);
        EXPECT_EQ(p, nullptr);
        vis_ConnectElemAssoc(a, VIS_ASSOC_PART, 1, &id, &ia);
        vis_ConnectElemAssoc(b, VIS_ASSOC_PART, 1, &id, &ib);
        EXPECT_EQ(ia, ib);
        for (int ent = SYS_NODE; ent <= SYS_ELEM; ++ent) {
            vis_ConnectElemNum(a, ent, id, &na);
            vis_ConnectElemNum(b, ent, id, &nb);
            EXPECT_EQ(na, nb);
            int count = ent == SYS_ELEM ? 1 : na;
            for (int no = 1; no <= count; ++no) {
                typedef void (*Q)(vis_Connect*, int, int, int, int*, int*);
                Q qs[4] = {vis_ConnectElemCon, vis_ConnectElemCnn, vis_ConnectElemCorn, vis_ConnectElemAdj};
                for (Q q : qs) {
                    q(a, ent, id, no, &na, xa.data());
                    q(b, ent, id, no, &nb, xb.data());
                    ASSERT_EQ(na, nb) << id << " " << ent << " " << no;
                    for (int k = 0; k < na; ++k) EXPECT_EQ(xa[k], xb[k]);
                }
                int sa[3] = {0, 0, 0}, sb[3] = {1, 1, 1};
                vis_ConnectElemTopo(a, ent, id, no, &sa[0], &sa[1], &sa[2]);
                vis_ConnectElemTopo(b, ent, id, no, &sb[0], &sb[1], &sb[2]);
                for (int k = 0; k < 3; ++k) {
                    EXPECT_EQ(sa[k], sb[k]);
                }
                if (ent == SYS_FACE || ent == SYS_EDGE) {
                    vis_ConnectElemEntAssoc(a, 5, ent, id, no, &ia);
                    vis_ConnectElemEntAssoc(b, 5, ent, id, no, &ib);
                    EXPECT_EQ(ia, ib);
                }
            }
        }
    }
    for (int id = 1; id <= meshtest::kNumNode; ++id) {
        int na = -1, nb = -2;
        vis_ConnectNodeElem(a, id, &na, xa.data());
        vis_ConnectNodeElem(b, id, &nb, xb.data());
        ASSERT_EQ(na, nb);
        for (int k = 0; k < na; ++k) EXPECT_EQ(xa[k], xb[k]);
        vis_ConnectNumNodeElem(a, id, &na);
        vis_ConnectNumNodeElem(b, id, &nb);
        EXPECT_EQ(na, nb);
        vis_ConnectNodeNode(a, id, &na, xa.data());
        vis_ConnectNodeNode(b, id, &nb, xb.data());
        ASSERT_EQ(na, nb);
        for (int k = 0; k < na; ++k) EXPECT_EQ(xa[k], xb[k]);
        int pair[2] = {id, 3};
        vis_ConnectNodeElemCommon(a, 2, pair, &na, xa.data());
        vis_ConnectNodeElemCommon(b, 2, pair, &nb, xb.data());
        ASSERT_EQ(na, nb);
        for (int k = 0; k < na; ++k) EXPECT_EQ(xa[k], xb[k]);
        float ca[3], cb[3];
        vis_ConnectCoords(a, 1, &id, ca);
        vis_ConnectCoords(b, 1, &id, cb);
        for (int k = 0; k < 3; ++k) EXPECT_EQ(ca[k], cb[k]);
        double cda[3], cdb[3];
        vis_ConnectCoordsdv(a, 1, &id, cda);
        vis_ConnectCoordsdv(b, 1, &id, cdb);
        for (int k = 0; k < 3; ++k) EXPECT_EQ(cda[k], cdb[k]);
        int ia = -1, ib = -2;
        vis_ConnectNodeAssoc(a, VIS_ASSOC_USERID, 1, &id, &ia);
        vis_ConnectNodeAssoc(b, VIS_ASSOC_USERID, 1, &id, &ib);
        EXPECT_EQ(ia, ib);
    }
    ExpectNoReport();
    // The front's error poll reads the connect's.
    int bad = 0, n = 0;
    vis_ConnectNodeAssoc(a, 44, 1, &bad, &n);
    Reports().clear();
    EXPECT_EQ(vis_ConnectError(b), 2);
    EXPECT_EQ(vis_ConnectError(a), 0);
    // The front's own code comes first, and the slot is asked only when it is 0: a failed check
    // of the front (a bad option, code 2) and one of the connect behind it (a dimension out of
    // range, code 1) are each seen by one poll, the front's own first.
    vis_ConnectSetParami(b, 99, 0);
    vis_ConnectSetDimension(a, 7);
    Reports().clear();
    EXPECT_EQ(vis_ConnectError(b), 2);
    EXPECT_EQ(vis_ConnectError(b), 1);
    EXPECT_EQ(vis_ConnectError(b), 0);
}

}  // namespace

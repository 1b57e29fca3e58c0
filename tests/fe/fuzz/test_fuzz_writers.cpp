// Seeded random drivers of the deck writers: random meshes (ids repeated, negative or zero,
// every shape code with random tuples, node lists with bad entries, random associations and
// coordinates that include infinities and NaN), random model tables, options, paths and failing
// allocations, written by every writer of this branch. Nothing may crash or touch memory out
// of bounds (the sanitizer builds run these), and every code a writer's poll gives must come
// with its report.
#include "FuzzSupport.h"
#include "vis_ABAFwt.h"
#include "vis_ANSFwt.h"
#include "vis_Connect.h"
#include "vis_D3DFwt.h"
#include "vis_ConnectWrite.h"
#include "vis_CoordSys.h"
#include "vis_IdTran.h"
#include "vis_LCase.h"
#include "vis_MCase.h"
#include "vis_Model.h"
#include "vis_NASFwt.h"
#include "vis_OBJFwt.h"
#include "vis_PatLwt.h"
#include "vis_RCase.h"
#include "vis_SDRCLwt.h"
#include "vis_STLFwt.h"
#include "vis_State.h"
#include "vis_Units.h"
#include "vsy_HashTable.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <vector>

using namespace vsytest;
using namespace fuzztest;

namespace {

double Coord(Rng& rng)
{
    switch (rng.below(40)) {
    case 0: return std::numeric_limits<double>::infinity();
    case 1: return std::numeric_limits<double>::quiet_NaN();
    case 2: return 1e300;
    case 3: return -1e-300;
    default: return (rng.below(2001) - 1000) / 64.0;
    }
}

int Id(Rng& rng)
{
    return rng.below(10) == 0 ? -rng.below(5) : rng.below(40);
}

// A random connectivity: the calls that refuse their arguments report and change nothing.
vis_Connect* Mesh(Rng& rng)
{
    vis_Connect* c = vis_ConnectNew();
    const int nn = rng.below(30), ne = rng.below(30);
    vis_ConnectDef(c, nn, ne);
    for (int n = 1; n <= nn; ++n) {
        const double x[3] = {Coord(rng), Coord(rng), Coord(rng)};
        vis_ConnectSetCoordsdv(c, n, x);
        vis_ConnectSetNodeAssoc(c, 10, n, Id(rng));
        vis_ConnectSetNodeAssoc(c, 0, n, rng.below(3));
        if (rng.below(4) == 0) vis_ConnectSetNodeAssoc(c, 4, n, rng.below(4));
        if (rng.below(5) == 0) vis_ConnectSetNodeAssoc(c, rng.below(2) ? 17 : 33, n, 1);
    }
    for (int e = 1; e <= ne; ++e) {
        const int shape = rng.below(11) - 1;
        const int maxi = rng.below(6), maxj = rng.below(5) | (rng.below(4) == 0 ? rng.below(16) << 16 : 0);
        vis_ConnectSetTopology(c, e, shape, maxi, maxj, rng.below(3));
        int num = 0;
        vis_ConnectNumElemNode(c, e, &num);
        std::vector<int> nodes(static_cast<size_t>(num > 0 ? num : 1));
        for (int& v : nodes) v = rng.below(12) == 0 ? nn + 1 + rng.below(3) : 1 + rng.below(nn > 0 ? nn : 1);
        if (num > 0) vis_ConnectSetElemNode(c, e, nodes.data());
        const int assoc[][2] = {{0, 16}, {1, 4}, {2, 50}, {10, 40}, {12, 40}, {25, 4}, {41, 4096}, {4, 4}};
        for (const auto& a : assoc)
            if (rng.below(5) != 0) vis_ConnectSetElemAssoc(c, a[0], e, rng.below(a[1]) - (a[0] == 10 ? 3 : 0));
        if (rng.below(4) == 0) vis_ConnectSetElemEntAssoc(c, rng.below(2) ? 16 : 34, SYS_EDGE, e, 1 + rng.below(4), 1);
    }
    return c;
}

// Random model tables; their objects are released by the returned function.
std::function<void()> Tables(Rng& rng, vis_Model* model, int nn, int ne)
{
    std::vector<std::function<void()>> drop;
    auto table = [&](int code) {
        vsy_HashTable* t = vsy_HashTableNew();
        vis_ModelSetHashTable(model, code, t);
        drop.push_back([t] { vsy_HashTableDelete(t); });
        return t;
    };
    if (rng.below(2)) {
        vis_LCase* lc = vis_LCaseNew();
        for (int k = 0; k < 6; ++k) {
            // Up to three scalars at each of four corners (a traction on a face).
            double v[12];
            for (double& x : v) x = Coord(rng);
            vis_LCaseSetConcdv(lc, 1 + rng.below(nn + 3), 1 + rng.below(6), v);
            vis_LCaseSetDistdv(lc, rng.below(2) ? SYS_FACE : SYS_EDGE, 1 + rng.below(ne + 3), 1 + rng.below(6), 1 + rng.below(6), v);
        }
        vsy_HashTableInsert(table(SYS_LCASE), rng.below(5) + 1, lc);
        drop.push_back([lc] { vis_LCaseDelete(lc); });
    }
    if (rng.below(2)) {
        vis_RCase* rc = vis_RCaseNew();
        for (int k = 0; k < 6; ++k) vis_RCaseSetSPCdv(rc, 1 + rng.below(nn + 3), 1 + rng.below(8), 1 + rng.below(2), Coord(rng));
        vsy_HashTableInsert(table(SYS_RCASE), rng.below(5) + 1, rc);
        drop.push_back([rc] { vis_RCaseDelete(rc); });
    }
    if (rng.below(2)) {
        vis_MCase* mc = vis_MCaseNew();
        const int nodes[3] = {rng.below(nn + 3), 1 + rng.below(nn + 3), -1}, tags[3] = {1, 1 + rng.below(6), 3};
        const double f[3] = {1.0, Coord(rng), -1.0};
        vis_MCaseSetMPCdv(mc, 1 + rng.below(3), 1 + rng.below(3), nodes, tags, f);
        vsy_HashTableInsert(table(SYS_MCASE), rng.below(5) + 1, mc);
        drop.push_back([mc] { vis_MCaseDelete(mc); });
    }
    if (rng.below(2)) {
        vis_CoordSys* cs = vis_CoordSysNew();
        vis_CoordSysDef(cs, rng.below(6));
        vsy_HashTableInsert(table(SYS_COORDSYS), rng.below(4), cs);
        drop.push_back([cs] { vis_CoordSysDelete(cs); });
    }
    for (int code : {SYS_NODEGROUP, SYS_ELEMGROUP}) {
        if (!rng.below(2)) continue;
        vis_IdTran* g = vis_IdTranNew();
        for (int i = 1; i <= 5; ++i) vis_IdTranSetId(g, i, rng.below(nn + ne + 4) - 2);
        if (rng.below(2)) vis_IdTranSetName(g, "group.name");
        vsy_HashTableInsert(table(code), rng.below(4) + 1, g);
        drop.push_back([g] { vis_IdTranDelete(g); });
    }
    if (rng.below(2)) {
        vis_Units* u = vis_UnitsNew();
        vis_UnitsSetConv(u, 1 + rng.below(6), rng.below(8));
        vis_ModelSetObject(model, SYS_UNITS, u);
        drop.push_back([u] { vis_UnitsDelete(u); });
    }
    return [drop] {
        for (const auto& d : drop) d();
    };
}

class WriterFuzz : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        // Memory-backed scratch where there is one: the drivers open thousands of small files.
        char shm[] = "/dev/shm/tev_fuzz_XXXXXX", tmp[] = "/tmp/tev_fuzz_XXXXXX";
        const char* d = mkdtemp(shm);
        if (!d) d = mkdtemp(tmp);
        dir = d ? d : "/tmp";
    }
    void TearDown() override
    {
        for (const char* f : {"a", "a.points", "a.faces"}) std::remove((dir + "/" + f).c_str());
        rmdir(dir.c_str());
        ContainerTest::TearDown();
    }
    // Runs one writer: a bad path now and then, a null model now and then.
    template <class W>
    void Run(Rng& rng, vis_Model* model, W* (*make)(), void (*write)(W*, vis_Model*, const char*), int (*error)(W*),
             void (*drop)(W*), const char* what, const std::function<void(W*)>& options = nullptr)
    {
        W* w = make();
        if (!w) return;
        if (options) options(w);
        const std::string path = rng.below(15) == 0 ? dir + "/missing/a" : dir + "/a";
        const size_t before = Reports().size();
        write(w, rng.below(20) == 0 ? nullptr : model, path.c_str());
        ExpectReported(error(w), before, what);
        drop(w);
    }
    std::string dir;
};

TEST_F(WriterFuzz, RandomModelsThroughEveryWriter)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vis_Connect* c = Mesh(rng);
        vis_Model* model = vis_ModelNew();
        if (rng.below(12) != 0) vis_ModelSetObject(model, SYS_CONNECT, c);
        int nn = 0, ne = 0;
        vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &nn);
        vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &ne);
        const std::function<void()> drop = Tables(rng, model, nn, ne);
        // Now and then the memory runs out part way through.
        if (rng.below(6) == 0) FailAllocation(1 + rng.below(30), rng.below(2) == 0);
        Run<vis_NASFwt>(rng, model, vis_NASFwtNew, vis_NASFwtWriteModel, vis_NASFwtError, vis_NASFwtDelete, "NASFwt");
        Run<vis_ABAFwt>(rng, model, vis_ABAFwtNew, vis_ABAFwtWriteModel, vis_ABAFwtError, vis_ABAFwtDelete, "ABAFwt");
        Run<vis_SDRCLwt>(rng, model, vis_SDRCLwtNew, vis_SDRCLwtWriteModel, vis_SDRCLwtError, vis_SDRCLwtDelete, "SDRCLwt",
                         [&rng](vis_SDRCLwt* w) { w->nodes = rng.below(2), w->elems = rng.below(2); });
        Run<vis_STLFwt>(rng, model, vis_STLFwtNew, vis_STLFwtWriteModel, vis_STLFwtError, vis_STLFwtDelete, "STLFwt",
                        [&rng](vis_STLFwt* w) { w->form = 10 + rng.below(4); });
        Run<vis_OBJFwt>(rng, model, vis_OBJFwtNew, vis_OBJFwtWriteModel, vis_OBJFwtError, vis_OBJFwtDelete, "OBJFwt");
        Run<vis_ANSFwt>(rng, model, vis_ANSFwtNew, vis_ANSFwtWriteModel, vis_ANSFwtError, vis_ANSFwtDelete, "ANSFwt",
                        [&rng](vis_ANSFwt* w) { vis_ANSFwtSetParami(w, VIS_ANSFWT_BLOCKS, rng.below(2)); });
        Run<vis_D3DFwt>(rng, model, vis_D3DFwtNew, vis_D3DFwtWriteModel, vis_D3DFwtError, vis_D3DFwtDelete, "D3DFwt");
        Run<vis_PatLwt>(rng, model, vis_PatLwtNew, vis_PatLwtWriteModel, vis_PatLwtError, vis_PatLwtDelete, "PatLwt");
        const int codes[] = {11, 13, 14, 18, 20, 22, 25, 41, -1, -2, -10, -16, -17, 0, -7};
        vis_ConnectError(c);  // codes the mesh building and the writers' queries left, each reported then
        const size_t before = Reports().size();
        vis_ConnectWrite(c, codes[rng.below(15)], (dir + "/a").c_str());
        ExpectReported(vis_ConnectError(c), before, "vis_ConnectWrite");
        RestoreAllocation();
        drop();
        vis_ModelDelete(model);
        vis_ConnectDelete(c);
    }
}

TEST_F(WriterFuzz, RandomStatesAsResultDatasets)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vis_Connect* c = Mesh(rng);
        vis_GridFun* gf = vis_GridFunNew();
        vis_ConnectGridFun(c, gf);
        vis_State* state = vis_StateNew();
        int nn = 0, ne = 0;
        vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &nn);
        vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &ne);
        const int parent = rng.below(2) ? SYS_NODE : SYS_ELEM;
        const int types[] = {0, 1, 2, 3, 5, 9, 11, 22, 4};
        if (rng.below(3)) vis_StateSetObject(state, SYS_GRIDFUN, gf);
        vis_StatePre(state, rng.below(2) ? 2 : 4);
        vis_StateDef(state, parent == SYS_NODE ? nn : ne, parent, rng.below(4) == 0 ? SYS_NODE : 0, types[rng.below(9)]);
        if (rng.below(8)) vis_StateClear(state);
        int datanum = 0;
        vis_StateDataNum(state, &datanum);
        std::vector<double> v(static_cast<size_t>(datanum > 0 ? datanum : 1) * 64);
        for (double& x : v) x = Coord(rng);
        for (int k = 0; k < 5; ++k) vis_StateSetDatadv(state, rng.below(nn + ne + 2), v.data());
        vis_SDRCLwt* w = vis_SDRCLwtNew();
        const size_t before = Reports().size();
        vis_SDRCLwtWriteState(w, rng.below(15) == 0 ? nullptr : state, (dir + "/a").c_str());
        ExpectReported(vis_SDRCLwtError(w), before, "vis_SDRCLwtWriteState");
        vis_SDRCLwtDelete(w);
        vis_NASFwt* nas = vis_NASFwtNew();
        size_t mark = Reports().size();
        vis_NASFwtWriteState(nas, rng.below(15) == 0 ? nullptr : state, (dir + "/b").c_str());
        ExpectReported(vis_NASFwtError(nas), mark, "vis_NASFwtWriteState");
        vis_NASFwtDelete(nas);
        vis_PatLwt* pat = vis_PatLwtNew();
        vis_Model* model = vis_ModelNew();
        if (rng.below(2)) vis_ModelSetObject(model, SYS_CONNECT, c);
        mark = Reports().size();
        vis_PatLwtWriteState(pat, model, rng.below(15) == 0 ? nullptr : state, (dir + "/c").c_str());
        ExpectReported(vis_PatLwtError(pat), mark, "vis_PatLwtWriteState");
        vis_PatLwtDelete(pat);
        vis_ModelDelete(model);
        vis_StateDelete(state);
        vis_GridFunDelete(gf);
        vis_ConnectDelete(c);
    }
}

}  // namespace

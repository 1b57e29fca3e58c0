// A real solver runs decks written by vis_ABAFwt: CalculiX ("ccx") solves a cantilever of
// quadratic hexahedra built as a vis_Model, and its tip deflection is checked against beam
// theory; a second deck with a pressure step and a thermal step runs to its end. The tests
// need the program "ccx" on the PATH and are skipped with the reason when it is missing.
#include "ABAFwtTestSupport.h"
#include "vis_EProp.h"
#include "vis_ICase.h"
#include "vis_LCase.h"
#include "vis_MProp.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <map>

using namespace nastest;
using namespace abatest;

namespace {

constexpr double kE = 210000.0, kNu = 0.3;   /* steel in N and mm */

bool HaveSolver()
{
    return std::system("command -v ccx > /dev/null 2>&1") == 0;
}

/* A box [0, L] x [0, b] x [0, h] of nx * ny * nz twenty-node hexahedra. Nodes lie on the grid
 * of half an element, except at points with two or three odd half indices (face and cell
 * centres). Node and element ids are their indices. */
struct Beam {
    int nx, ny, nz;
    double L, b, h;
    std::vector<MeshNode> nodes;
    std::vector<MeshElem> elems;
    std::map<long, int> index;  /* half-grid point to node index */

    static long Key(int i, int j, int k) { return (static_cast<long>(i) * 1000 + j) * 1000 + k; }

    void Build()
    {
        for (int k = 0; k <= 2 * nz; ++k)
            for (int j = 0; j <= 2 * ny; ++j)
                for (int i = 0; i <= 2 * nx; ++i) {
                    if ((i % 2) + (j % 2) + (k % 2) >= 2) continue;
                    const int id = static_cast<int>(nodes.size()) + 1;
                    nodes.push_back({{L * i / (2 * nx), b * j / (2 * ny), h * k / (2 * nz)}, id, 1, 0});
                    index[Key(i, j, k)] = id;
                }
        /* Corner offsets in the library's (and the deck's) order, then the edges' midpoints in
         * edge order: bottom 0-1 1-2 2-3 3-0, top 4-5 5-6 6-7 7-4, vertical 0-4 1-5 2-6 3-7. */
        static const int c[8][3] = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}, {0, 0, 2}, {2, 0, 2}, {2, 2, 2}, {0, 2, 2}};
        static const int edge[12][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
        for (int ek = 0; ek < nz; ++ek)
            for (int ej = 0; ej < ny; ++ej)
                for (int ei = 0; ei < nx; ++ei) {
                    MeshElem e{SYS_SHAPE_HEX, 3, 0, 1, 1, static_cast<int>(elems.size()) + 1, {}};
                    for (const auto& o : c) e.nodes.push_back(index[Key(2 * ei + o[0], 2 * ej + o[1], 2 * ek + o[2])]);
                    for (const auto& g : edge) {
                        const int* a = c[g[0]];
                        const int* z = c[g[1]];
                        e.nodes.push_back(index[Key(2 * ei + (a[0] + z[0]) / 2, 2 * ej + (a[1] + z[1]) / 2, 2 * ek + (a[2] + z[2]) / 2)]);
                    }
                    elems.push_back(e);
                }
    }
};

/* The model of a beam: property 1 (solid, material 1), an isotropic steel with expansion,
 * restraint case 1 clamping x = 0, and the steps given by the test. Owns what it makes. */
struct BeamModel {
    vis_Connect* connect = nullptr;
    vis_Model* model = vis_ModelNew();
    vis_EProp* prop = vis_EPropNew();
    vis_MProp* mat = vis_MPropNew();
    vis_RCase* rc = vis_RCaseNew();
    vis_LCase* lc[2] = {vis_LCaseNew(), vis_LCaseNew()};
    vis_ICase* ic = vis_ICaseNew();
    vis_SProp* step[2] = {vis_SPropNew(), vis_SPropNew()};
    vsy_HashTable *eprops = vsy_HashTableNew(), *mprops = vsy_HashTableNew(), *rcases = vsy_HashTableNew();
    vsy_HashTable *lcases = vsy_HashTableNew(), *icases = vsy_HashTableNew();
    vsy_List* steps = vsy_ListNew();

    explicit BeamModel(const Beam& beam)
    {
        connect = BuildMesh(beam.nodes, beam.elems);
        vis_ModelSetObject(model, SYS_CONNECT, connect);
        vis_EPropDef(prop, 1);
        vis_EPropSetValuei(prop, 0, 1);
        vis_MPropDef(mat, 0);
        vis_MPropSetValued(mat, 1, kE);
        vis_MPropSetValued(mat, 2, kNu);
        vis_MPropSetValued(mat, 4, 1.2e-5);
        for (size_t i = 0; i < beam.nodes.size(); ++i)
            if (beam.nodes[i].x[0] == 0.0)
                for (int tag = 1; tag <= 3; ++tag) vis_RCaseSetSPCdv(rc, static_cast<int>(i) + 1, tag, 1, 0.0);
        vsy_HashTableInsert(eprops, 1, prop);
        vsy_HashTableInsert(mprops, 1, mat);
        vsy_HashTableInsert(rcases, 1, rc);
        vsy_HashTableInsert(lcases, 1, lc[0]);
        vsy_HashTableInsert(lcases, 2, lc[1]);
        vsy_HashTableInsert(icases, 1, ic);
        vis_ModelSetHashTable(model, SYS_EPROP, eprops);
        vis_ModelSetHashTable(model, SYS_MPROP, mprops);
        vis_ModelSetHashTable(model, SYS_RCASE, rcases);
        vis_ModelSetHashTable(model, SYS_LCASE, lcases);
        vis_ModelSetHashTable(model, SYS_ICASE, icases);
        vis_ModelSetList(model, SYS_SPROP, steps);
    }
    /* A static step with load case `load`, the clamp, and displacements filed each increment. */
    void Static(int n, int load)
    {
        vis_SProp* s = step[n];
        vis_SPropDef(s, 1);
        const int ids[1] = {load}, filed[1] = {1};
        const double one[1] = {1.0};
        vis_SPropSetValuei(s, 2, 1);
        vis_SPropSetValueiv(s, 3, ids);
        vis_SPropSetValuedv(s, 4, one);
        vis_SPropSetValuei(s, 8, 1);
        vis_SPropSetValuei(s, 26, 1);
        vis_SPropSetValuei(s, 30, 1);
        vis_SPropSetValueiv(s, 31, filed);
        vsy_ListAppend(steps, s);
    }
    ~BeamModel()
    {
        vis_ModelDelete(model);
        vsy_ListDelete(steps);
        for (vsy_HashTable* t : {eprops, mprops, rcases, lcases, icases}) vsy_HashTableDelete(t);
        for (vis_SProp* s : step) vis_SPropDelete(s);
        for (vis_LCase* l : lc) vis_LCaseDelete(l);
        vis_ICaseDelete(ic);
        vis_RCaseDelete(rc);
        vis_MPropDelete(mat);
        vis_EPropDelete(prop);
        vis_ConnectDelete(connect);
    }
};

class ABAFwtCalculixTest : public WriterTest {
protected:
    /* Writes the deck as job.inp in the scratch directory, runs "ccx -i job" there, and returns
     * the exit status; the solver's output goes to job.log. */
    int Solve(vis_Model* model)
    {
        File("job.inp");
        for (const char* ext : {".frd", ".dat", ".sta", ".cvg", ".12d", ".log", ".equ", "_main.inp"}) File(std::string("job") + ext);
        File("spooles.out");
        WriteAba(model, dir + "/job.inp");
        const std::string cmd = "cd '" + dir + "' && OMP_NUM_THREADS=1 ccx -i job > job.log 2>&1";
        const int status = std::system(cmd.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    /* The last displacement block of job.frd: node id to (ux, uy, uz). Records " -1" carry the
     * node in columns 4 to 13 and three values of twelve columns behind it. */
    std::map<int, std::vector<double>> Displacements()
    {
        std::map<int, std::vector<double>> out;
        FILE* fp = std::fopen((dir + "/job.frd").c_str(), "r");
        if (!fp) return out;
        char line[256];
        bool disp = false;
        while (std::fgets(line, sizeof line, fp)) {
            const std::string s(line);
            if (s.rfind(" -4  DISP", 0) == 0) disp = true, out.clear();
            else if (s.rfind(" -4", 0) == 0) disp = false;
            else if (disp && s.rfind(" -1", 0) == 0 && s.size() >= 49)
                out[std::atoi(s.substr(3, 10).c_str())] = {std::atof(s.substr(13, 12).c_str()),
                                                           std::atof(s.substr(25, 12).c_str()),
                                                           std::atof(s.substr(37, 12).c_str())};
        }
        std::fclose(fp);
        return out;
    }
};

TEST_F(ABAFwtCalculixTest, CantileverTipDeflection)
{
    if (!HaveSolver()) GTEST_SKIP() << "CalculiX (ccx) is not installed: the solver test cannot run";
    /* 40 x 2 x 2 elements of 0.5 mm: L = 20, b = h = 1. */
    Beam beam{40, 2, 2, 20.0, 1.0, 1.0, {}, {}, {}};
    beam.Build();
    BeamModel m(beam);
    /* P = 1 N downwards, shared equally by the nodes of the tip face. */
    std::vector<int> tip;
    for (size_t i = 0; i < beam.nodes.size(); ++i)
        if (beam.nodes[i].x[0] == beam.L) tip.push_back(static_cast<int>(i) + 1);
    const double P = 1.0;
    for (int node : tip) {
        const double f[3] = {0.0, 0.0, -P / tip.size()};
        vis_LCaseSetConcdv(m.lc[0], node, 1, f);
    }
    m.Static(0, 1);
    ASSERT_EQ(Solve(m.model), 0) << ReadFile(dir + "/job.log");
    const auto u = Displacements();
    ASSERT_FALSE(u.empty()) << ReadFile(dir + "/job.log");
    double sum = 0.0;
    for (int node : tip) {
        ASSERT_TRUE(u.count(node));
        sum += u.at(node)[2];
    }
    /* Beam theory: w = P L^3 / (3 E I) with I = b h^3 / 12 = 1/12 mm^4:
     * 8000 / (3 * 210000 / 12) = 8000 / 52500 = 0.152381 mm, downwards. */
    const double theory = P * 8000.0 / (3.0 * kE / 12.0);
    const double mean = -sum / tip.size();
    EXPECT_NEAR(mean, theory, 0.02 * theory) << "tip deflection " << mean << " against " << theory;
}

TEST_F(ABAFwtCalculixTest, PressureAndThermalStepsRunToTheEnd)
{
    if (!HaveSolver()) GTEST_SKIP() << "CalculiX (ccx) is not installed: the solver test cannot run";
    Beam beam{10, 2, 2, 10.0, 1.0, 1.0, {}, {}, {}};
    beam.Build();
    BeamModel m(beam);
    /* Step 1: 0.1 MPa on the top face (face 2 of each top element). Step 2: every node at 100
     * degrees, from an initial 0 set by the first step's initial condition case. */
    for (size_t e = 0; e < beam.elems.size(); ++e)
        if (e >= beam.elems.size() - 20) {
            const double p[4] = {0.1, 0.1, 0.1, 0.1};
            vis_LCaseSetDistdv(m.lc[0], SYS_FACE, static_cast<int>(e) + 1, 2, 2, p);
        }
    for (size_t i = 1; i <= beam.nodes.size(); ++i) {
        const double t = 100.0;
        vis_LCaseSetConcdv(m.lc[1], static_cast<int>(i), 4, &t);
        vis_ICaseSetSPVdv(m.ic, static_cast<int>(i), 1, 7, 0.0);
    }
    m.Static(0, 1);
    m.Static(1, 2);
    vis_SPropSetValuei(m.step[0], 10, 1);
    const int status = Solve(m.model);
    const std::string log = ReadFile(dir + "/job.log");
    EXPECT_EQ(status, 0) << log;
    EXPECT_NE(log.find("Job finished"), std::string::npos) << log;
    EXPECT_EQ(log.find("ERROR"), std::string::npos) << log;
    /* The free end rises under heat: a uniform expansion of 1.2e-5 * 100 along 10 mm moves
     * the tip by 0.012 mm in x; the last block is the thermal step's. */
    const auto u = Displacements();
    ASSERT_TRUE(u.count(static_cast<int>(beam.nodes.size())));
    EXPECT_NEAR(u.at(static_cast<int>(beam.nodes.size()))[0], 0.012, 0.002);
}

}  // namespace

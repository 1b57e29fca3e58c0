// vis_NASFwt: executive and case control, parameter cards and coordinate systems, in golden
// decks written from the card rules.
#include "NASFwtTestSupport.h"
#include "vis_CoordSys.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_LCase.h"
#include "vis_SProp.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

using namespace nastest;
using namespace vsytest;

namespace {

const std::string kParams =
    "PARAM,POST,-1\nPARAM,PATVER,3.0\nPARAM,K6ROT,100.0\nPARAM,MAXRATIO,1.E+8\nPARAM,GRDPNT,0\n"
    "PARAM,AUTOSPC,YES\n";
// One grid point at the origin, id 1: see the grid card rule in test_vis_NASFwt.cpp.
const std::string kGrid = "$          Grid points\nGRID*   " + I16(1) + I16(0) + " 0.0000000000E+0 0.0000000000E+0\n" +
                          "*        0.0000000000E+0" + I16(0) + "\n";

// Result codes filed (parameters 30, 31) and printed (32, 33) by a step.
void SetRequests(vis_SProp* step, std::vector<int> filed, std::vector<int> printed)
{
    vis_SPropSetValuei(step, 30, static_cast<int>(filed.size()));
    vis_SPropSetValueiv(step, 31, filed.data());
    vis_SPropSetValuei(step, 32, static_cast<int>(printed.size()));
    vis_SPropSetValueiv(step, 33, printed.data());
}

class NASFwtCaseTest : public WriterTest {
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        connect = BuildMesh({{{0, 0, 0}, 1, 1, 0}}, {});
        model = vis_ModelNew();
        vis_ModelSetObject(model, SYS_CONNECT, connect);
        steps = vsy_ListNew();
        vis_ModelSetList(model, SYS_SPROP, steps);
    }
    void TearDown() override
    {
        for (vis_SProp* s : sprops) vis_SPropDelete(s);
        for (vis_LCase* l : lcases) vis_LCaseDelete(l);
        if (lcase) vsy_HashTableDelete(lcase);
        if (csys) vis_CoordSysDelete(csys);
        if (coordsys) vsy_HashTableDelete(coordsys);
        vsy_ListDelete(steps);
        vis_ModelDelete(model);
        vis_ConnectDelete(connect);
        WriterTest::TearDown();
    }
    vis_SProp* AddStep(int type)
    {
        vis_SProp* s = vis_SPropNew();
        vis_SPropDef(s, type);
        sprops.push_back(s);
        vsy_ListAppend(steps, s);
        return s;
    }
    void AddLoadCase(int id, bool temperature)
    {
        if (!lcase) {
            lcase = vsy_HashTableNew();
            vis_ModelSetHashTable(model, SYS_LCASE, lcase);
        }
        vis_LCase* l = vis_LCaseNew();
        lcases.push_back(l);
        const double t = 100.0, f[3] = {1.0, 0.0, 0.0};
        if (temperature) vis_LCaseSetConcdv(l, 1, 4, &t);
        else vis_LCaseSetConcdv(l, 1, 1, f);
        vsy_HashTableInsert(lcase, id, l);
    }
    vis_Connect* connect = nullptr;
    vis_Model* model = nullptr;
    vsy_List* steps = nullptr;
    std::vector<vis_SProp*> sprops;
    std::vector<vis_LCase*> lcases;
    vsy_HashTable* lcase = nullptr;
    vsy_HashTable* coordsys = nullptr;
    vis_CoordSys* csys = nullptr;
};

// A static step followed by a buckling step, with requests, texts, loads, a temperature case
// and a rectangular system; the path has a dot in a directory name.
TEST_F(NASFwtCaseTest, StaticThenBuckling)
{
    vis_SProp* s1 = AddStep(1);
    vis_SPropSetValuei(s1, 22, 1);
    vis_SPropSetValuec(s1, 19, "Plate");
    vis_SPropSetValuei(s1, 8, 200);
    vis_SPropSetValuei(s1, 2, 2);
    const int loads[2] = {100, 101};
    vis_SPropSetValueiv(s1, 3, loads);
    SetRequests(s1, {1, 35}, {1, 51});
    vis_SProp* s2 = AddStep(3);
    vis_SPropSetValuei(s2, 22, 2);
    vis_SPropSetValuei(s2, 1, 5);
    AddLoadCase(100, false);
    AddLoadCase(101, true);
    coordsys = vsy_HashTableNew();
    csys = vis_CoordSysNew();
    const double origin[3] = {1, 2, 3};
    const double triad[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    vis_CoordSysSetOriginTriaddv(csys, origin, triad);
    vsy_HashTableInsert(coordsys, 5, csys);
    vis_ModelSetHashTable(model, SYS_COORDSYS, coordsys);
    ASSERT_TRUE(Reports().empty());

    Dir("v1.2");
    const std::string path = File("v1.2/deck.bdf");
    const std::string stem = dir + "/v1";  // cut at the first '.', the directory's
    std::string want = "ASSIGN,OUTPUT='" + stem + ".op2',UNIT=12\nID,NASTRAN," + stem + "\n";
    want += "SOL 105\n";  // static first step, buckling second: one buckling run
    want += "TIME 10000\nCEND\nECHO = NONE\n";
    want += "SUBCASE = 1\n";
    want += "OUTPUT\n";
    want += "DISPLACEMENT(PLOT,PRINT) = ALL\n";  // code 1 filed and printed
    want += "STRESS(PLOT,CORNER) = ALL\n";       // code 35 filed only
    want += "ESE(PRINT) = ALL\n";                // 98 absent: 51, printed only
    want += "TITLE = Plate\nSPC = 200\n";
    want += "LOAD = 100\nTEMP = 101\n";  // case 101 has concentrated temperatures
    want += "METHOD = 1\n";              // deck kind 3
    want += "SUBCASE = 2\nMETHOD = 2\n";  // no request counts: no OUTPUT
    want += "BEGIN BULK\n" + kParams;
    // Buckling step: case id, lower and upper bound unset (0: "0." in seven columns and a
    // blank), number of eigenvalues.
    want += "EIGRL   " + I8(2) + "     0.      0. " + I8(5) + "\n";
    want += kGrid + "$          Elements\n";
    // System 5: origin (1,2,3); B = origin + z row = (1,2,4); C = origin + x row = (1,3,3).
    // Large fields: 1.0 is fixed "1.00000000000000" trimmed to "1.", in 15 columns and a blank.
    auto L = [](const char* t) { return R(t, 15) + " "; };
    want += "$          Coordinate systems\n";
    want += "CORD2R* " + I16(5) + I16(0) + L("1.") + L("2.") + "\n";
    want += "*       " + L("3.") + L("1.") + L("2.") + L("4.") + "\n";
    want += "*       " + L("1.") + L("3.") + L("3.") + "\n";
    // Load cases in slot order of an 11-slot table: 101 has its home at 101 * 2654435761 mod 11
    // = 9, 100 at 10. Case 101: one temperature (one node, far below the hundred a default
    // needs), 100. in seven columns and a blank. Case 100: force (1,0,0) at node 1, length 1.
    // and direction 1. 0. 0.
    want += "$          Loads\n";
    want += "TEMP    " + I8(101) + I8(1) + "   100. \n";
    want += "FORCE   " + I8(100) + I8(1) + I8(0) + "     1.      1.      0.      0. \n";
    want += "ENDDATA\n";
    EXPECT_EQ(Write(model, path), want);
    ExpectNoReport();
}

// A nonlinear static step: SOL 106, NLPARM in case control and as a card with "YES".
TEST_F(NASFwtCaseTest, NonlinearStatic)
{
    vis_SProp* s = AddStep(1);
    vis_SPropSetValuei(s, 22, 7);
    vis_SPropSetValuei(s, 16, 1);
    vis_SPropSetValued(s, 6, 0.1);
    vis_SPropSetValued(s, 7, 1.0);
    vis_SPropSetValuei(s, 26, 1);
    const std::string path = File("nl.bdf");
    std::string want = "ASSIGN,OUTPUT='" + dir + "/nl.op2',UNIT=12\nID,NASTRAN," + dir + "/nl\n";
    want += "SOL 106\nTIME 10000\nCEND\nECHO = NONE\nSUBCASE = 1\nNLPARM = 7\n";
    // Increments: 1.0 / 0.1 is 10.0 in doubles; less 1e-6, truncated: 9. Save frequency set:
    // "%40c" with a blank is forty blanks, then "%8s" with YES.
    want += "BEGIN BULK\n" + kParams + "NLPARM  " + I8(7) + I8(9) + std::string(40, ' ') + "     YES\n";
    want += kGrid + "$          Elements\nENDDATA\n";
    EXPECT_EQ(Write(model, path), want);
    ExpectNoReport();
}

// A thermal static step: SOL 153, ANALYSIS = HEAT and the thermal request lines.
TEST_F(NASFwtCaseTest, ThermalRequests)
{
    vis_SProp* s = AddStep(1);
    vis_SPropSetValuei(s, 0, 2);
    SetRequests(s, {15, 119}, {6, 81});
    const std::string path = File("heat.bdf");
    std::string want = "ASSIGN,OUTPUT='" + dir + "/heat.op2',UNIT=12\nID,NASTRAN," + dir + "/heat\n";
    want += "SOL 153\nTIME 10000\nCEND\nANALYSIS = HEAT\nECHO = NONE\nSUBCASE = 1\nOUTPUT\n";
    // THERMAL and FLUX say PLOT whatever was asked (FLUX is printed only); OLOAD filed only;
    // SPCFORCES printed only.
    want += "THERMAL(PLOT) = ALL\nFLUX(PLOT) = ALL\nOLOAD(PLOT) = ALL\nSPCFORCES(PRINT) = ALL\n";
    want += "BEGIN BULK\n" + kParams + kGrid + "$          Elements\nENDDATA\n";
    EXPECT_EQ(Write(model, path), want);
    ExpectNoReport();
}

}  // namespace

namespace {

// A model with a grid function and no connectivity: no grid points, no elements and no bulk
// delimiters, but case control and coordinate systems.
TEST_F(NASFwtCaseTest, GridFunctionWithoutConnectivity)
{
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(connect, gf);
    vis_ModelSetObject(model, SYS_CONNECT, nullptr);
    vis_ModelSetObject(model, SYS_GRIDFUN, gf);
    AddStep(2);  // eigenvalue: SOL 103, METHOD with case id 0 (unset)
    coordsys = vsy_HashTableNew();
    csys = vis_CoordSysNew();
    vis_CoordSysDef(csys, VIS_COORDSYS_CYLINDRICAL);
    vsy_HashTableInsert(coordsys, 8, csys);
    vis_ModelSetHashTable(model, SYS_COORDSYS, coordsys);
    const std::string path = File("nobulk.dat");
    std::string want = "ASSIGN,OUTPUT='" + dir + "/nobulk.op2',UNIT=12\nID,NASTRAN," + dir + "/nobulk\n";
    want += "SOL 103\nTIME 10000\nCEND\nECHO = NONE\nSUBCASE = 1\nMETHOD = 0\n";
    // System 8, cylindrical, at the global origin with the global axes: origin (0,0,0),
    // B = (0,0,1), C = (1,0,0); "0." and "1." in fifteen columns and a blank.
    auto L = [](const char* t) { return R(t, 15) + " "; };
    want += "$          Coordinate systems\n";
    want += "CORD2C* " + I16(8) + I16(0) + L("0.") + L("0.") + "\n";
    want += "*       " + L("0.") + L("0.") + L("0.") + L("1.") + "\n";
    want += "*       " + L("1.") + L("0.") + L("0.") + "\n";
    EXPECT_EQ(Write(model, path), want);
    ExpectNoReport();
    vis_ModelSetObject(model, SYS_GRIDFUN, nullptr);
    vis_GridFunDelete(gf);
}

}  // namespace

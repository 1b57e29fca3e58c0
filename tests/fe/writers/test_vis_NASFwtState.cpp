// vis_NASFwtWriteState: a node state as punch records, written by hand from the layout rule
// (72 columns of content and the line number in eight), and the states it refuses.
#include "NASFwtTestSupport.h"
#include "vis_GridFun.h"
#include "vis_State.h"

using namespace nastest;
using namespace vsytest;

namespace {

// Content padded with blanks to 72 columns, then "%8d" of the line number.
std::string Line(const std::string& content, int n)
{
    return content + std::string(72 - content.size(), ' ') + I8(n) + "\n";
}

class NASFwtStateTest : public WriterTest {
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        // Three nodes with user ids 101 to 103 and one triangle.
        c = BuildMesh({{{0, 0, 0}, 101, 1, 0}, {{1, 0, 0}, 102, 1, 0}, {{0, 1, 0}, 103, 1, 0}},
                      {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}}});
        gf = vis_GridFunNew();
        vis_ConnectGridFun(c, gf);
        nas = vis_NASFwtNew();
        s = vis_StateNew();
        vis_StateSetObject(s, SYS_GRIDFUN, gf);
    }
    void TearDown() override
    {
        vis_StateDelete(s);
        vis_NASFwtDelete(nas);
        vis_GridFunDelete(gf);
        vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
    vis_GridFun* gf = nullptr;
    vis_NASFwt* nas = nullptr;
    vis_State* s = nullptr;
};

std::string Head()
{
    return Line("$TITLE   =", 1) + Line("$SUBTITLE=", 2) + Line("$LABEL   =", 3) + Line("$DISPLACEMENTS", 4) +
           Line("$REAL OUTPUT", 5) + Line("$SUBCASE ID =           1", 6);  // "%12d" of case 1
}

TEST_F(NASFwtStateTest, NodeVectorsAsDisplacements)
{
    vis_StateDef(s, 3, SYS_NODE, 0, 1);
    vis_StateClear(s);
    const double a[3] = {0.5, -2.0, 1e-7}, b[3] = {1, 2, 3};
    vis_StateSetDatadv(s, 1, a);
    vis_StateSetDatadv(s, 3, b);  // node 2 is unset: no record
    const std::string path = File("disp.pch");
    vis_NASFwtWriteState(nas, s, path.c_str());
    EXPECT_EQ(vis_NASFwtError(nas), 0);
    // "%10d" id, "       G", then "%18.6E" each: 0.5 is "5.000000E-01" after six blanks,
    // -2 "-2.000000E+00" after five; a continuation of zeros for components 4 to 6.
    const std::string zeros = "      0.000000E+00      0.000000E+00      0.000000E+00";
    std::string want = Head();
    want += Line("       101       G      5.000000E-01     -2.000000E+00      1.000000E-07", 7);
    want += Line("-CONT-            " + zeros, 8);
    want += Line("       103       G      1.000000E+00      2.000000E+00      3.000000E+00", 9);
    want += Line("-CONT-            " + zeros, 10);
    EXPECT_EQ(ReadFile(path), want);
    ExpectNoReport();
}

TEST_F(NASFwtStateTest, SixDofAndScalars)
{
    vis_StateDef(s, 3, SYS_NODE, 0, 9);  // six dof: translations, then rotations
    vis_StateClear(s);
    const double v[6] = {1, 0, 0, 0, 0, -0.25};
    vis_StateSetDatadv(s, 2, v);
    const std::string path = File("six.pch");
    vis_NASFwtWriteState(nas, s, path.c_str());
    std::string want = Head();
    want += Line("       102       G      1.000000E+00      0.000000E+00      0.000000E+00", 7);
    want += Line("-CONT-                  0.000000E+00      0.000000E+00     -2.500000E-01", 8);
    EXPECT_EQ(ReadFile(path), want);
    // A temperature: the first component, the rest 0.
    vis_StateDef(s, 3, SYS_NODE, 0, 0);
    vis_StateClear(s);
    const double t = 293.15;
    vis_StateSetDatadv(s, 3, &t);
    vis_NASFwtWriteState(nas, s, path.c_str());
    want = Head();
    want += Line("       103       G      2.931500E+02      0.000000E+00      0.000000E+00", 7);
    want += Line("-CONT-                  0.000000E+00      0.000000E+00      0.000000E+00", 8);
    EXPECT_EQ(ReadFile(path), want);
    ExpectNoReport();
}

TEST_F(NASFwtStateTest, RefusedStates)
{
    const std::string path = File("refused.pch");
    vis_StateDef(s, 3, SYS_NODE, 0, 1);
    vis_NASFwtWriteState(nas, s, path.c_str());  // never cleared
    ExpectOnlyReport("vis_NASFwtWriteState", SYS_ERROR_OPERATION, "Clear not called");
    Reports().clear();
    vis_StateDef(s, 1, SYS_ELEM, 0, 2);  // element tensors: no punch record here
    vis_StateClear(s);
    vis_NASFwtWriteState(nas, s, path.c_str());
    ExpectOnlyReport("vis_NASFwtWriteState", SYS_ERROR_ENUM, "parenttype= 4, datatype= 2");
    EXPECT_EQ(vis_NASFwtError(nas), SYS_ERROR_ENUM);
    EXPECT_EQ(ReadFile(path), "(missing)");
    Reports().clear();
    vis_StateDef(s, 3, SYS_NODE, 0, 1);
    vis_StateClear(s);
    const std::string bad = dir + "/missing/x.pch";
    vis_NASFwtWriteState(nas, s, bad.c_str());
    ExpectOnlyReport("vis_NASFwtWriteState", SYS_ERROR_FILE, "path= " + bad);
}

}  // namespace

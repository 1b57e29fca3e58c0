// vis_PatLwtWriteState: nodal and element results files of a state, written by hand from the
// form the writer's header gives.
#include "PatLwtTestSupport.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_State.h"

using namespace nastest;
using namespace vsytest;
using namespace pattest;

namespace {

// Values are vsy_RealToExp(v, 13, 2, 1, 0): "%23.15E" cut after six decimals, two exponent
// digits, a blank or the sign first (E() below adds the blank).

class PatLwtStateTest : public CardTest {
protected:
    void TearDown() override
    {
        if (state) vis_StateDelete(state);
        if (gf) vis_GridFunDelete(gf);
        CardTest::TearDown();
    }
    void Make(int nument, int parent, int child, int datatype)
    {
        state = vis_StateNew();
        if (child) {
            gf = vis_GridFunNew();
            vis_ConnectGridFun(connect, gf);
            vis_StateSetObject(state, SYS_GRIDFUN, gf);
        }
        vis_StateDef(state, nument, parent, child, datatype);
        vis_StateClear(state);
    }
    std::string Write()
    {
        const std::string path = File("state.res");
        vis_PatLwt* pat = vis_PatLwtNew();
        vis_PatLwtWriteState(pat, model, state, path.c_str());
        error = vis_PatLwtError(pat);
        vis_PatLwtDelete(pat);
        return ReadFile(path);
    }
    vis_State* state = nullptr;
    vis_GridFun* gf = nullptr;
    int error = 0;
};

// Three nodes, ids 101 to 103; node 3 of featype 0. A line (id 11) and a triangle (id 12).
vis_Connect* Mesh()
{
    return BuildMesh({{{0, 0, 0}, 101, 1, 0}, {{1, 0, 0}, 102, 1, 0}, {{1, 1, 0}, 103, 0, 0}},
                     {{SYS_SHAPE_LINE, 0, 0, 4, 1, 11, {1, 2}}, {SYS_SHAPE_TRI, 0, 0, 2, 1, 12, {1, 2, 3}}});
}

TEST_F(PatLwtStateTest, NodalVectors)
{
    // Node 1 (1, -2.5, 0); node 2 unset; node 3 set but of featype 0: one node written.
    Use(Mesh());
    Make(3, SYS_NODE, 0, 1);
    const double a[3] = {1, -2.5, 0}, b[3] = {7, 7, 7};
    vis_StateSetDatadv(state, 1, a);
    vis_StateSetDatadv(state, 3, b);
    // "%9d%9d%15.6E%9d%9d": 1 node, largest id 101, 0.0 as "0.000000E+00" in 15 columns, 0,
    // three components.
    const std::string want = "Nodal results\n" + R("1", 9) + R("101", 9) + R("0.000000E+00", 15) + R("0", 9) + R("3", 9) +
                             "\ndatatype= 1\n\n" + I8(101) + E("1.000000E+00") + E("-2.500000E+00") + E("0.000000E+00") + "\n";
    EXPECT_EQ(Write(), want);
    EXPECT_EQ(error, 0);
}

TEST_F(PatLwtStateTest, SevenComponentsWrapAfterFive)
{
    // "Scalars7" (class 17): values 1 to 7 at node 2; five on the first line, two on the next
    // after eight blanks.
    Use(Mesh());
    Make(3, SYS_NODE, 0, 17);
    const double v[7] = {1, 2, 3, 4, 5, 6, 7};
    vis_StateSetDatadv(state, 2, v);
    std::string want = "Nodal results\n" + R("1", 9) + R("102", 9) + R("0.000000E+00", 15) + R("0", 9) + R("7", 9) +
                       "\ndatatype= 17\n\n" + I8(102);
    for (int i = 1; i <= 7; ++i) want += (i == 6 ? "\n" + std::string(8, ' ') : "") + E(std::to_string(i) + ".000000E+00");
    EXPECT_EQ(Write(), want + "\n");
}

TEST_F(PatLwtStateTest, ElementNodeValues)
{
    // A scalar per element node; the triangle (shape code 3) holds 1, 2, 3, the line is unset.
    Use(Mesh());
    Make(2, SYS_ELEM, SYS_NODE, 0);
    const double v[3] = {1, 2, 3};
    vis_StateSetDatadv(state, 2, v);
    const std::string want = "Element results\ndatatype= 0\n\n" + I8(12) + I8(3) + "\n" + E("1.000000E+00") +
                             E("2.000000E+00") + E("3.000000E+00") + "\n";
    EXPECT_EQ(Write(), want);
    EXPECT_EQ(error, 0);
}

TEST_F(PatLwtStateTest, MismatchAndNullState)
{
    Use(Mesh());
    Make(5, SYS_NODE, 0, 0);
    EXPECT_EQ(Write(), "");
    EXPECT_EQ(error, 8);
    ExpectOnlyReport("vis_PatLwtWriteState", 8, "State mismatch");
    Reports().clear();
    vis_PatLwt* pat = vis_PatLwtNew();
    vis_PatLwtWriteState(pat, model, nullptr, File("null.res").c_str());
    ExpectOnlyReport("vis_PatLwtWriteState", 5, "State");
    EXPECT_EQ(vis_PatLwtError(pat), 5);
    vis_PatLwtDelete(pat);
    EXPECT_EQ(ReadFile(dir + "/null.res"), "(missing)");
}

} // namespace

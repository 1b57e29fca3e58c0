// vis_SDRCLwtWriteState: node and element states as dataset 2414, written by hand from the
// record layout in the writer's notes; the states it refuses.
#include "SDRCLwtTestSupport.h"
#include "vis_State.h"

using namespace nastest;
using namespace sdrctest;
using namespace vsytest;

namespace {

class SDRCLwtStateTest : public WriterTest {
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        // Three nodes with ids 11 to 13, two triangles with ids 21 and 22.
        c = BuildMesh({{{0, 0, 0}, 11, 1, 0}, {{1, 0, 0}, 12, 1, 0}, {{0, 1, 0}, 13, 1, 0}},
                      {{SYS_SHAPE_TRI, 0, 0, 2, 1, 21, {1, 2, 3}}, {SYS_SHAPE_TRI, 0, 0, 2, 1, 22, {1, 3, 2}}});
        gf = vis_GridFunNew();
        vis_ConnectGridFun(c, gf);
        w = vis_SDRCLwtNew();
        state = vis_StateNew();
    }
    void TearDown() override
    {
        vis_StateDelete(state);
        vis_SDRCLwtDelete(w);
        vis_GridFunDelete(gf);
        vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    void Define(int nument, int parent, int child, int datatype)
    {
        vis_StateSetObject(state, SYS_GRIDFUN, gf);
        vis_StateDef(state, nument, parent, child, datatype);
        vis_StateClear(state);
    }
    vis_Connect* c = nullptr;
    vis_GridFun* gf = nullptr;
    vis_SDRCLwt* w = nullptr;
    vis_State* state = nullptr;
};

// The header up to the first entity: label 1, name, location, five identification lines, the
// six integers with characteristic `ch` and `ndv` values, ten integers and twelve reals of 0.
std::string Header(int location, int ch, int ndv)
{
    std::string s = Open(2414) + I10s({1}) + "vis_State\n" + I10s({location});
    for (int i = 0; i < 5; ++i) s += "NONE\n";
    s += I10s({1, 1, ch, 1, 4, ndv}) + I10s({0, 0, 0, 0, 0, 0, 0, 0}) + I10s({0, 0});
    const std::string z = E13("0", 0);
    for (int line = 0; line < 2; ++line) s += z + z + z + z + z + z + "\n";
    return s;
}

TEST_F(SDRCLwtStateTest, NodeVectors)
{
    // A vector state (class 1, characteristic 2, three values) set at nodes 1 and 3 only.
    Define(3, SYS_NODE, 0, 1);
    const float a[3] = {1, 2, 3}, b[3] = {-0.5f, 0, 4};
    vis_StateSetData(state, 1, a);
    vis_StateSetData(state, 3, b);
    const std::string path = File("d.unv");
    vis_SDRCLwtWriteState(w, state, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(vis_SDRCLwtError(w), 0);
    const std::string want = Header(1, 2, 3) + I10s({11}) + E13("1", 0) + E13("2", 0) + E13("3", 0) + "\n" +
                             I10s({13}) + E13("-5", -1) + E13("0", 0) + E13("4", 0) + "\n" + kFence;
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(SDRCLwtStateTest, ElementTensorsInTheFormatsOrder)
{
    // A tensor state (class 2) of element 2: stored xx yy zz xy yz zx = 1 2 3 4 5 6, written
    // xx xy yy xz yz zz = 1 4 2 6 5 3, after the element id and its six values.
    Define(2, SYS_ELEM, 0, 2);
    const double t[6] = {1, 2, 3, 4, 5, 6};
    vis_StateSetDatadv(state, 2, t);
    const std::string path = File("s.unv");
    vis_SDRCLwtWriteState(w, state, path.c_str());
    ExpectNoReport();
    const std::string want = Header(2, 4, 6) + I10s({22, 6}) + E13("1", 0) + E13("4", 0) + E13("2", 0) + E13("6", 0) +
                             E13("5", 0) + E13("3", 0) + "\n" + kFence;
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(SDRCLwtStateTest, ScalarsOfTwelveComponentsWrapAfterSix)
{
    // "Scalars12" (class 22, characteristic 0): twelve values, two lines of six; node 2.
    Define(3, SYS_NODE, 0, 22);
    double v[12];
    for (int i = 0; i < 12; ++i) v[i] = i + 1;
    vis_StateSetDatadv(state, 2, v);
    const std::string path = File("m.unv");
    vis_SDRCLwtWriteState(w, state, path.c_str());
    std::string values;
    for (int i = 1; i <= 12; ++i) values += (i < 10 ? E13(std::to_string(i), 0) : E13("1." + std::to_string(i - 10), 1)) + (i % 6 == 0 ? "\n" : "");
    EXPECT_EQ(ReadFile(path), Header(1, 0, 12) + I10s({12}) + values + kFence);
}

TEST_F(SDRCLwtStateTest, RefusedStates)
{
    const std::string path = File("r.unv");
    vis_SDRCLwtWriteState(w, nullptr, path.c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteState", 5, "State");
    EXPECT_EQ(vis_SDRCLwtError(w), 5);
    // Never defined, then an element node state: code 8, and no file.
    Reports().clear();
    vis_SDRCLwtWriteState(w, state, path.c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteState", 8, "State type");
    Reports().clear();
    Define(2, SYS_ELEM, SYS_NODE, 0);
    vis_SDRCLwtWriteState(w, state, path.c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteState", 8, "State type");
    EXPECT_EQ(vis_SDRCLwtError(w), 8);
    EXPECT_EQ(ReadFile(path), "(missing)");
    // A path that cannot be opened.
    Reports().clear();
    Define(3, SYS_NODE, 0, 0);
    const std::string bad = dir + "/missing/x.unv";
    vis_SDRCLwtWriteState(w, state, bad.c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteState", 6, "path= " + bad);
    Reports().clear();
    vis_SDRCLwtWriteState(nullptr, state, path.c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteState", 5, "SDRCLwt");
}

}  // namespace

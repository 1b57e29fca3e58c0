// vis_ElemDat face and edge data: vectors at the nodes of chosen faces and edges, computed
// normals of plane elements, groups of what holds data, the listing and the reports.
#include "vis_Connect.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_Group.h"
#include "vis_Model.h"
#include "vsy_TestSupport.h"

#include <cstdio>
#include <string>
#include <vector>

using namespace vsytest;

namespace {

// A unit hexahedron (nodes 1 to 8) and beside it the quadrilateral (2 9 10 3) and the triangle
// (9 11 10), both counterclockwise seen from +z.
class ElemDatTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        c = vis_ConnectNew();
        vis_ConnectDef(c, 11, 3);
        const double x[11][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1},
                                 {1, 1, 1}, {0, 1, 1}, {2, 0, 0}, {2, 1, 0}, {3, 0, 0}};
        for (int i = 0; i < 11; ++i) vis_ConnectSetCoordsdv(c, i + 1, x[i]);
        const int hex[8] = {1, 2, 3, 4, 5, 6, 7, 8}, quad[4] = {2, 9, 10, 3}, tri[3] = {9, 11, 10};
        vis_ConnectSetTopology(c, 1, SYS_SHAPE_HEX, 0, 0, 0);
        vis_ConnectSetElemNode(c, 1, hex);
        vis_ConnectSetTopology(c, 2, SYS_SHAPE_QUAD, 0, 0, 0);
        vis_ConnectSetElemNode(c, 2, quad);
        vis_ConnectSetTopology(c, 3, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(c, 3, tri);
        gf = vis_GridFunNew();
        vis_ConnectGridFun(c, gf);
        ed = vis_ElemDatNew();
        vis_ElemDatDef(ed, 3, 0, 1);
    }
    void TearDown() override
    {
        vis_ElemDatDelete(ed);
        vis_GridFunDelete(gf);
        vis_ConnectDelete(c);
        ContainerTest::TearDown();
    }
    void Faces()
    {
        vis_ElemDatSetObject(ed, SYS_GRIDFUN, gf);
        vis_ElemDatSetParami(ed, VIS_ELEMDAT_ENTITY, SYS_FACE);
    }
    vis_Connect* c = nullptr;
    vis_GridFun* gf = nullptr;
    vis_ElemDat* ed = nullptr;
};

TEST_F(ElemDatTest, FaceVectorsKeptByFace)
{
    Faces();
    // Faces 3 and 1 of the hexahedron, four nodes each: twelve values, face 3 first set.
    std::vector<double> f3(12), f1(12), f3b(12);
    for (int i = 0; i < 12; ++i) f3[i] = 30 + i, f1[i] = 10 + i, f3b[i] = -i;
    vis_ElemDatSetEntdv(ed, 1, 3, f3.data());
    vis_ElemDatSetEntdv(ed, 1, 1, f1.data());
    EXPECT_EQ(vis_ElemDatFlags(ed, 1), 0x5);  // bits 0 and 2: faces 1 and 3
    std::vector<double> got(12, 0.0);
    EXPECT_EQ(vis_ElemDatEntdv(ed, 1, 3, got.data()), 1);
    EXPECT_EQ(got, f3);
    // Replacing face 1, which lies before face 3 in the record, keeps face 3.
    vis_ElemDatSetEntdv(ed, 1, 1, f3b.data());
    vis_ElemDatEntdv(ed, 1, 1, got.data());
    EXPECT_EQ(got, f3b);
    vis_ElemDatEntdv(ed, 1, 3, got.data());
    EXPECT_EQ(got, f3);
    EXPECT_EQ(vis_ElemDatEntdv(ed, 1, 2, got.data()), 0);  // face 2 holds nothing
    EXPECT_EQ(vis_ElemDatFlags(ed, 2), 0);
    ExpectNoReport();
}

TEST_F(ElemDatTest, NormalsOfPlaneElements)
{
    Faces();
    vis_ElemDatNormal(ed);
    // Both plane elements lie in z = 0, counterclockwise from +z: (0 0 1) at every node. The
    // hexahedron is a solid: none of its faces gets a normal.
    std::vector<double> quad(12, 0.0), tri(9, 0.0);
    EXPECT_EQ(vis_ElemDatEntdv(ed, 2, 1, quad.data()), 1);
    EXPECT_EQ(vis_ElemDatEntdv(ed, 3, 1, tri.data()), 1);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(quad[3 * k + 2], 1.0) << "node " << k;
    for (int k = 0; k < 3; ++k) EXPECT_EQ(tri[3 * k + 2], 1.0) << "node " << k;
    EXPECT_EQ(quad[0], 0.0);
    EXPECT_EQ(vis_ElemDatFlags(ed, 1), 0);
    ExpectNoReport();
}

TEST_F(ElemDatTest, EdgeTangentsAndGroups)
{
    vis_ElemDatSetObject(ed, SYS_GRIDFUN, gf);
    vis_ElemDatSetParami(ed, VIS_ELEMDAT_ENTITY, SYS_EDGE);
    // Edge 12 of the hexahedron, two nodes: six values.
    const double t[6] = {0, 0, 1, 0, 0, 1};
    vis_ElemDatSetEntdv(ed, 1, 12, t);
    EXPECT_EQ(vis_ElemDatFlags(ed, 1), 1 << 11);
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, 3, SYS_ELEM, SYS_EDGE);
    vis_ElemDatEdgeGroup(ed, g);
    int flag = 0;
    vis_GroupGetEntFlag(g, 1, 12, &flag);
    EXPECT_EQ(flag, 1);
    vis_GroupGetEntFlag(g, 1, 11, &flag);
    EXPECT_EQ(flag, 0);
    // A face group does not take edge data.
    vis_ElemDatFaceGroup(ed, g);
    ExpectOnlyReport("vis_ElemDatFaceGroup", SYS_ERROR_ENUM, "childtype= 2");
    vis_GroupDelete(g);
}

TEST_F(ElemDatTest, Listing)
{
    Faces();
    const double v[9] = {0.5, 0, 0, 0, 0.5, 0, 0, 0, 0.5};
    vis_ElemDatSetEntdv(ed, 3, 1, v);
    char path[] = "/tmp/tev_elemdat_XXXXXX";
    const int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    FILE* fp = fdopen(fd, "w+");
    vis_ElemDatWrite(ed, fp);
    std::rewind(fp);
    std::string text;
    for (int ch; (ch = std::fgetc(fp)) != EOF;) text.push_back(static_cast<char>(ch));
    std::fclose(fp);
    std::remove(path);
    // "%8d %3d" element and face, then each value " %.6e".
    std::string want = "       3   1";
    for (double x : v) want += x == 0.5 ? " 5.000000e-01" : " 0.000000e+00";
    EXPECT_EQ(text, want + "\n");
}

TEST_F(ElemDatTest, Reports)
{
    vis_ElemDatSetParami(ed, VIS_ELEMDAT_ENTITY, SYS_FACE);
    const double v[12] = {};
    vis_ElemDatSetEntdv(ed, 1, 1, v);
    ExpectOnlyReport("vis_ElemDatSetEntdv", SYS_ERROR_NULLOBJECT, "GridFun object");
    Reports().clear();
    vis_ElemDatSetObject(ed, SYS_GRIDFUN, gf);
    vis_ElemDatSetEntdv(ed, 1, 7, v);  // a hexahedron has six faces
    ExpectOnlyReport("vis_ElemDatSetEntdv", SYS_ERROR_VALUE, "no= 7");
    Reports().clear();
    vis_ElemDatSetEntdv(ed, 4, 1, v);
    ExpectOnlyReport("vis_ElemDatSetEntdv", SYS_ERROR_VALUE, "index= 4");
    Reports().clear();
    vis_ElemDatSetDatadv(ed, 1, 1, v);  // plain values do not mix with face data
    ExpectOnlyReport("vis_ElemDatSetDatadv", SYS_ERROR_OPERATION, "entity= 3");
    Reports().clear();
    vis_ElemDatSetParami(ed, 5, 0);
    ExpectOnlyReport("vis_ElemDatSetParami", SYS_ERROR_ENUM, "type= 5");
    Reports().clear();
    vis_ElemDatSetParami(ed, VIS_ELEMDAT_ENTITY, SYS_ELEM);
    ExpectOnlyReport("vis_ElemDatSetParami", SYS_ERROR_VALUE, "iparam= 4");
    Reports().clear();
    vis_ElemDatPre(ed, 3);
    ExpectOnlyReport("vis_ElemDatPre", SYS_ERROR_ENUM, "precision= 3");
    Reports().clear();
    vis_ElemDatSetObject(ed, SYS_CONNECT, c);
    ExpectOnlyReport("vis_ElemDatSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= 2080");
}

TEST_F(ElemDatTest, FloatValuesPerElement)
{
    vis_ElemDatDef(ed, 3, 2, 4);
    const float t[4] = {0.25f, 0.5f, 0.75f, 1.0f};
    vis_ElemDatSetData(ed, 2, 4, t);
    double got[4] = {};
    vis_ElemDatData(ed, 2, 4, got);
    EXPECT_EQ(got[3], 1.0);
    EXPECT_EQ(got[0], 0.25);
    vis_ElemDatSetData(ed, 2, 5, t);
    ExpectOnlyReport("vis_ElemDatSetData", SYS_ERROR_VALUE, "nval= 5");
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, 3, SYS_ELEM, 0);
    vis_ElemDatElemGroup(ed, g);
    int count = 0;
    vis_GroupCount(g, &count);
    EXPECT_EQ(count, 1);
    vis_GroupDelete(g);
}

}  // namespace

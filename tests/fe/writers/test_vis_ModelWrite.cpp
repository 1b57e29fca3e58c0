// vis_ModelWrite: the codes it refuses, the NASTRAN deck of a whole model and a path that cannot
// be opened.
#include "NASFwtTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_ModelWrite.h"

#include <string>

using namespace nastest;
using namespace vsytest;

namespace {

class ModelWriteTest : public WriterTest {
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        // One triangle whose nodes and element carry a featype, so that both get cards.
        c = BuildMesh({{{0, 0, 0}, 11, 1, 0}, {{1, 0, 0}, 12, 1, 0}, {{1, 1, 0}, 13, 1, 0}},
                      {{SYS_SHAPE_TRI, 0, 0, 2, 7, 21, {1, 2, 3}}});
        model = vis_ModelNew();
        vis_ModelSetObject(model, SYS_CONNECT, c);
    }
    void TearDown() override
    {
        vis_ModelDelete(model);
        vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
    vis_Model* model = nullptr;
};

TEST_F(ModelWriteTest, CodesWithoutAWriterAreRefused)
{
    // Unknown codes, the writers not built yet, and the library's own forms, which belong to
    // vis_ConnectWrite.
    for (int type : {0, 5, 11, 13, 14, 20, 22, 25, 41, -1, -2}) {
        Reports().clear();
        const std::string path = File("refused" + std::to_string(type));
        vis_ModelWrite(model, type, path.c_str());
        ExpectOnlyReport("vis_ModelWrite", 2, "type= " + std::to_string(type));
        EXPECT_EQ(vis_ModelError(model), 2);
        EXPECT_EQ(ReadFile(path), "(missing)");  // not even created
    }
}

// The model's deck is the one vis_ConnectWrite makes of the same mesh through its temporary
// model; that deck's bytes are derived card by card in test_vis_ConnectWrite's NastranRoad.
TEST_F(ModelWriteTest, NastranDeckOfTheWholeModel)
{
    const std::string path = File("model.bdf"), viaConnect = File("connect.bdf");
    vis_ModelWrite(model, 18, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(vis_ModelError(model), 0);
    vis_ConnectWrite(c, 18, viaConnect.c_str());
    const std::string deck = ReadFile(path);
    EXPECT_EQ(deck, ReadFile(viaConnect));
    EXPECT_EQ(deck.rfind("BEGIN BULK\n", 0), 0u);
    EXPECT_NE(deck.find("CTRIA3  "), std::string::npos);
}

TEST_F(ModelWriteTest, APathThatCannotBeOpenedIsReportedByTheWriterAndTheModel)
{
    const std::string bad = dir + "/missing/deck.bdf";
    vis_ModelWrite(model, 18, bad.c_str());
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].name, "vis_NASFwtWriteModel");
    EXPECT_EQ(Reports()[1].name, "vis_ModelWrite");
    EXPECT_EQ(Reports()[1].code, 6);
    EXPECT_EQ(Reports()[1].text, "pathname= " + bad);
    EXPECT_EQ(vis_ModelError(model), 6);
}

TEST_F(ModelWriteTest, ANullModelIsReported)
{
    vis_ModelWrite(nullptr, 18, File("null.bdf").c_str());
    ExpectOnlyReport("vis_ModelWrite", 5, "Model");
}

}  // namespace

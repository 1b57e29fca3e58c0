// Face loads spread to nodes and the analysis model built from a meshed box: sums and shares
// worked out from the box's faces, the deck the model writes, and the refusals.
#include "AnalysisTestSupport.h"
#include "TevAnalysisModel.h"
#include "TevFaceLoad.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"
#include "vis_ABAFwt.h"
#include "vis_Model.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

using analysistest::FaceAt;

class AnalysisModelTest : public ::testing::Test {
protected:
    // A 100 x 10 x 10 box in quadratic tetrahedra of size 5; its end faces x = 0 and x = 100.
    void SetUp() override
    {
        box = BRepPrimAPI_MakeBox(100.0, 10.0, 10.0).Shape();
        std::string error;
        mesh = TevVolumeMesher::Mesh(box, {5.0, 2}, &error);
        ASSERT_TRUE(mesh) << error;
        root = FaceAt(box, 0, 0.0);
        tip = FaceAt(box, 0, 100.0);
        ASSERT_GT(root, 0);
        ASSERT_GT(tip, 0);
    }
    static std::array<double, 3> Sum(const TevFaceLoad::Forces& forces)
    {
        std::array<double, 3> s = {0.0, 0.0, 0.0};
        for (const auto& f : forces)
            for (int d = 0; d < 3; ++d) s[d] += f.second[d];
        return s;
    }
    TopoDS_Shape box;
    std::unique_ptr<TevVolumeMesh> mesh;
    int root = 0, tip = 0;
};

TEST_F(AnalysisModelTest, TotalForceAddsUpAndLeavesQuadraticCornersFree)
{
    const TevFaceLoad::Forces f = TevFaceLoad::TotalForce(*mesh, tip, {0.0, 0.0, -1000.0});
    const auto s = Sum(f);
    EXPECT_NEAR(s[0], 0.0, 1e-9);
    EXPECT_NEAR(s[1], 0.0, 1e-9);
    EXPECT_NEAR(s[2], -1000.0, 1e-9);
    // A quadratic triangle's corner shape functions integrate to zero over it.
    for (const auto& t : mesh->FaceTriangles(tip))
        for (int k = 0; k < 3; ++k) EXPECT_EQ(f.count(t[k]), 0u) << "corner " << t[k];
    EXPECT_NEAR(TevFaceLoad::Area(*mesh, tip), 100.0, 1e-9);
}

TEST_F(AnalysisModelTest, PressurePushesAgainstTheOutwardNormal)
{
    // The face x = 100 faces +x; 2 over 10 * 10 pushes with 200 towards -x.
    const auto s = Sum(TevFaceLoad::Pressure(*mesh, tip, 2.0));
    EXPECT_NEAR(s[0], -200.0, 1e-9);
    EXPECT_NEAR(s[1], 0.0, 1e-9);
    EXPECT_NEAR(s[2], 0.0, 1e-9);
}

TEST(TevFaceLoad, LinearTrianglesShareEquallyAmongCorners)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
    auto mesh = TevVolumeMesher::Mesh(box, {5.0, 1}, nullptr);
    ASSERT_TRUE(mesh);
    const int top = FaceAt(box, 2, 10.0);
    const TevFaceLoad::Forces f = TevFaceLoad::TotalForce(*mesh, top, {300.0, 0.0, 0.0});
    // Traction 300 / 100 = 3 per unit area; a triangle of area A gives 3 A / 3 = A to each corner,
    // so each node gets the area of its triangles and the forces add up to 300.
    std::map<int, double> expected;
    for (const auto& t : mesh->FaceTriangles(top)) {
        const auto a = analysistest::At(mesh->Volume(), t[0]), b = analysistest::At(mesh->Volume(), t[1]),
                   c = analysistest::At(mesh->Volume(), t[2]);
        const double area = 0.5 * std::fabs((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]));
        for (int k = 0; k < 3; ++k) expected[t[k]] += area;
    }
    ASSERT_EQ(f.size(), expected.size());
    for (const auto& e : expected) EXPECT_NEAR(f.at(e.first)[0], e.second, 1e-9) << "node " << e.first;
}

TEST_F(AnalysisModelTest, BuildNeedsAFixedFaceAndALoad)
{
    TevAnalysisModel model(*mesh);
    std::string error;
    EXPECT_EQ(model.Build(&error), nullptr);
    EXPECT_EQ(error, "No fixed face: pick a face to clamp");
    ASSERT_TRUE(model.SetFixedFace(root, &error));
    EXPECT_EQ(model.Build(&error), nullptr);
    EXPECT_EQ(error, "No load: pick a face to load");
    EXPECT_FALSE(model.SetForce(7, {0.0, 0.0, 1.0}, &error));
    EXPECT_EQ(error, "The mesh has no face 7");
    EXPECT_FALSE(model.SetFixedFace(0, &error));
    EXPECT_EQ(model.FixedFace(), root);
    EXPECT_FALSE(model.SetMaterial({-1.0, 0.3, 0.0}, &error));
    EXPECT_FALSE(model.SetMaterial({1.0, 0.5, 0.0}, &error));
    EXPECT_EQ(model.GetMaterial().young, 210000.0);
    ASSERT_TRUE(model.SetPressure(tip, 1.0, &error));
    EXPECT_NE(model.Build(&error), nullptr);
}

// Lines of the deck that follow `keyword` up to the next keyword line.
std::vector<std::string> Section(const std::string& deck, const std::string& keyword)
{
    std::istringstream in(deck);
    std::vector<std::string> out;
    std::string line;
    bool open = false;
    while (std::getline(in, line)) {
        if (line.rfind("**", 0) == 0) continue;  // comment lines
        if (!line.empty() && line[0] == '*') open = line.rfind(keyword, 0) == 0;
        else if (open) out.push_back(line);
    }
    return out;
}

TEST_F(AnalysisModelTest, DeckClampsTheRootAndLoadsTheTip)
{
    TevAnalysisModel model(*mesh);
    ASSERT_TRUE(model.SetMaterial({70000.0, 0.33, 2.7e-9}, nullptr));
    ASSERT_TRUE(model.SetFixedFace(root, nullptr));
    ASSERT_TRUE(model.SetForce(tip, {0.0, 0.0, -1000.0}, nullptr));
    vis_Model* m = model.Build(nullptr);
    ASSERT_NE(m, nullptr);
    // Build again: the old objects go, the new model writes the same deck.
    m = model.Build(nullptr);
    QTemporaryDir dir;
    const std::string path = dir.path().toStdString() + "/job.inp";
    vis_ABAFwt* aba = vis_ABAFwtNew();
    vis_ABAFwtWriteModel(aba, m, path.c_str());
    ASSERT_EQ(vis_ABAFwtError(aba), 0);
    vis_ABAFwtDelete(aba);
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    const std::string deck = text.str();
    // One line "node, 1, 3, 0." for each node of the root face, one force line per midpoint node
    // of the tip face (the corners carry nothing, and only z is not zero), and the material as
    // given.
    EXPECT_EQ(Section(deck, "*BOUNDARY").size(), mesh->FaceNodes(root).size());
    EXPECT_EQ(Section(deck, "*CLOAD").size(), TevFaceLoad::TotalForce(*mesh, tip, {0.0, 0.0, -1000.0}).size());
    EXPECT_NE(deck.find("C3D10"), std::string::npos);
    const auto elastic = Section(deck, "*ELASTIC");
    ASSERT_EQ(elastic.size(), 1u);
    EXPECT_NE(elastic[0].find("70000"), std::string::npos) << elastic[0];
    EXPECT_NE(elastic[0].find(".33"), std::string::npos) << elastic[0];
    EXPECT_NE(deck.find("*NODE FILE"), std::string::npos);
    EXPECT_NE(deck.find("*EL FILE"), std::string::npos);
}

}  // namespace

// The regular polygon operation driven by real mouse events and its edge number dialog answered
// by typing: the polygon, its red band turned about the centre, the refused 0, Cancel, the
// start-over without a prompt, and Escape.
#include "DrawOrthPolygonOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"

#include <cmath>

using tevtest::Lines;

namespace {

class DrawOrthPolygonOpTest : public tevtest::PlanarOpTest
{
protected:
    // The distinct points of the band, at the tolerance of its float coordinates.
    static std::vector<gp_Pnt> BandPoints(vtkActor* band)
    {
        std::vector<gp_Pnt> out;
        vtkDataSet* data = Data(band);
        for (vtkIdType i = 0; i < data->GetNumberOfPoints(); ++i) {
            const double* q = data->GetPoint(i);
            const gp_Pnt p(q[0], q[1], q[2]);
            bool seen = false;
            for (const gp_Pnt& o : out) seen = seen || o.IsEqual(p, 1e-4);
            if (!seen) out.push_back(p);
        }
        return out;
    }
    static bool Near(const std::vector<gp_Pnt>& points, const gp_Pnt& p, double tol)
    {
        for (const gp_Pnt& o : points)
            if (o.IsEqual(p, tol)) return true;
        return false;
    }
};

TEST_F(DrawOrthPolygonOpTest, CentreEdgeNumberAndVertexMakeTheHexagon)
{
    tevtest::PromptLog log;
    DrawOrthPolygonOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Equilateral polygon : Input center point:"}));
    Move(gp_Pnt(0, 0, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);
    tevtest::PolygonDialogSeen dialog;
    tevtest::AnswerPolygonDialog("6", true, &dialog);
    Click(gp_Pnt(0, 0, 0));
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(DrawOpTestPeer::EdgeNumber(op), 6);
    EXPECT_EQ(log.lines, (Lines{"Equilateral polygon : Input center point:", "Equilateral polygon : Input egde number:",
                                "Equilateral polygon : Input second point:"}));
    Move(gp_Pnt(20, 0, 0));
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(band));
    ExpectColour(band, 1.0, 0.2, 0.2);
    std::vector<gp_Pnt> pts = BandPoints(band);
    EXPECT_EQ(pts.size(), 6u);
    for (const gp_Pnt& p : pts) EXPECT_NEAR(p.Distance(gp_Pnt(0, 0, 0)), 20.0, 1e-4);
    EXPECT_TRUE(All().empty());

    log.Clear();
    Click(gp_Pnt(20, 0, 0));
    // Done without a word, and without a prompt for the next centre.
    EXPECT_TRUE(log.lines.empty());
    EXPECT_TRUE(NothingLeft(op));
    ASSERT_EQ(All().size(), 1u);
    const TopoDS_Shape hexagon = All()[0];
    EXPECT_EQ(hexagon.ShapeType(), TopAbs_WIRE);
    EXPECT_EQ(Count(hexagon, TopAbs_EDGE), 6);
    ASSERT_EQ(Count(hexagon, TopAbs_VERTEX), 6);
    for (const gp_Pnt& v : Vertices(hexagon)) EXPECT_NEAR(v.Distance(gp_Pnt(0, 0, 0)), 20.0, 1e-9);
    EXPECT_TRUE(HasVertex(hexagon, gp_Pnt(20, 0, 0)));
    EXPECT_TRUE(HasVertex(hexagon, gp_Pnt(-20, 0, 0), 1e-9));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);

    // It starts over: the next click is a centre and asks for the number again.
    EXPECT_EQ(Current(), &op);
    tevtest::PolygonDialogSeen again;
    tevtest::AnswerPolygonDialog("4", true, &again);
    Click(gp_Pnt(-40, -40, 0));
    EXPECT_TRUE(again.shown);
    Click(gp_Pnt(-30, -40, 0));
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(Count(All()[1], TopAbs_EDGE), 4);
    EXPECT_TRUE(HasVertex(All()[1], gp_Pnt(-40, -30, 0), 1e-9));
    EXPECT_EQ(op.GetPointList().size(), 4u);
}

TEST_F(DrawOrthPolygonOpTest, ThreeEdgesPutTheBandPointsAtAbout0And120And240Degrees)
{
    DrawOrthPolygonOp op;
    Start(&op);
    tevtest::PolygonDialogSeen dialog;
    tevtest::AnswerPolygonDialog("3", true, &dialog);
    Click(gp_Pnt(10, 10, 0));
    ASSERT_EQ(DrawOpTestPeer::EdgeNumber(op), 3);
    Move(gp_Pnt(40, 10, 0));
    std::vector<gp_Pnt> pts = BandPoints(DrawOpTestPeer::TempActor2(op));
    ASSERT_EQ(pts.size(), 3u);
    const double r = 30.0;
    for (double deg : {0.0, 120.0, 240.0}) {
        const double a = deg * M_PI / 180.0;
        EXPECT_TRUE(Near(pts, gp_Pnt(10 + r * std::cos(a), 10 + r * std::sin(a), 0), 1e-4)) << deg;
    }
    Click(gp_Pnt(40, 10, 0));
    ASSERT_EQ(All().size(), 1u);
    EXPECT_EQ(Count(All()[0], TopAbs_EDGE), 3);
}

TEST_F(DrawOrthPolygonOpTest, ZeroEdgesIsRefusedAndLeavesNothingToClose)
{
    tevtest::PromptLog log;
    DrawOrthPolygonOp op;
    Start(&op);
    tevtest::PolygonDialogSeen dialog;
    tevtest::AnswerPolygonDialog("0", true, &dialog);
    tevtest::BoxSeen box;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
    Click(gp_Pnt(0, 0, 0));
    EXPECT_TRUE(dialog.shown);
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Error");
    EXPECT_EQ(box.text, "edge number error input");
    EXPECT_EQ(DrawOpTestPeer::EdgeNumber(op), 0);
    EXPECT_EQ(log.lines, (Lines{"Equilateral polygon : Input center point:", "Equilateral polygon : Input egde number:"}));
    // Still waiting for the vertex. The band's polygon of no points cannot be built: the
    // construction raises (the failure policy of TevBasicViewer.h), the viewer reports it in
    // the form "<operation class> : <failure text>", shows no band, and the operation stays.
    log.Clear();
    Move(gp_Pnt(20, 0, 0));
    EXPECT_EQ(log.lines, (Lines{"DrawOrthPolygonOp : BRep_API: command not done"}));
    EXPECT_EQ(log.levels, (std::vector<int>{2}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), &op);
    log.Clear();
    Click(gp_Pnt(20, 0, 0));
    // The creator refuses a polygon of 0 edges with a fault line of its own.
    EXPECT_TRUE(All().empty());
    ASSERT_EQ(log.levels.size(), 1u);
    EXPECT_EQ(log.levels[0], 2);
    EXPECT_TRUE(NothingLeft(op));
}

TEST_F(DrawOrthPolygonOpTest, AfterCancelTheNextClickTakesTheVertexWithTheNumberHeldBefore)
{
    DrawOrthPolygonOp op;
    Start(&op);
    tevtest::PolygonDialogSeen first;
    tevtest::AnswerPolygonDialog("5", true, &first);
    Click(gp_Pnt(0, 0, 0));
    Click(gp_Pnt(0, 20, 0));
    ASSERT_EQ(All().size(), 1u);

    tevtest::PromptLog log;
    tevtest::PolygonDialogSeen cancelled;
    tevtest::AnswerPolygonDialog("9", false, &cancelled);
    Click(gp_Pnt(40, 40, 0));
    EXPECT_TRUE(cancelled.shown);
    EXPECT_EQ(log.lines, (Lines{"Equilateral polygon : Input egde number:"}));
    EXPECT_EQ(DrawOpTestPeer::EdgeNumber(op), 5);
    Click(gp_Pnt(40, 50, 0));
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(Count(All()[1], TopAbs_EDGE), 5);
    EXPECT_TRUE(HasVertex(All()[1], gp_Pnt(40, 50, 0), 1e-9));
}

TEST_F(DrawOrthPolygonOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    DrawOrthPolygonOp op;
    Start(&op);
    tevtest::PolygonDialogSeen dialog;
    tevtest::AnswerPolygonDialog("6", true, &dialog);
    Click(gp_Pnt(0, 0, 0));
    Move(gp_Pnt(20, 0, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Equilateral polygon : Cancel:"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace

// The sphere operation driven by real mouse events: the default whole sphere and the start-over,
// the angles typed into its dialog with their inclusive limits, the refused angles, Cancel and
// Escape.
#include "SolidOpTest.h"

using tevtest::Lines;

namespace {

class DrawSphereOpTest : public tevtest::SolidOpTest
{
protected:
    // Centre (-50, -40) and rim (-20, -40): radius 30.
    const gp_Pnt centre{-50, -40, 0};
    const gp_Pnt rim{-20, -40, 0};
    const std::vector<gp_Pnt> onCircle{gp_Pnt(-50, -10, 0), gp_Pnt(-80, -40, 0)};

    void AnswerAngles(const char* a1, const char* a2, const char* a3, bool ok = true)
    {
        Answer("sphereParaInputdlg", {{"lineEdit_Angle1", a1}, {"lineEdit_Angle2", a2}, {"lineEdit_Angle3", a3}}, ok);
    }
};

TEST_F(DrawSphereOpTest, WithTheDefaultAnglesTwoClicksMakeTheWholeSphereAndItStartsOver)
{
    tevtest::PromptLog log;
    DrawSphereOp op;
    Start(&op);
    EXPECT_EQ(SolidOpTestPeer::Angles(op), (std::array<double, 3>{-90.0, 90.0, 360.0}));
    Move(centre);
    // Before the first click the snapped point is kept as the centre.
    EXPECT_TRUE(SolidOpTestPeer::Point1(op).IsEqual(centre, 1e-9));
    Click(centre);
    Move(rim);
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    EXPECT_TRUE(BandShownAt(onCircle, Band::Red));
    Click(rim);
    // No dialog, no further prompt: 4 / 3 * pi * 30^3 = 36000 pi, the cube of side 60 about
    // the centre.
    EXPECT_EQ(log.lines, (Lines{"Sphere : Input center point"}));
    ExpectOneSolid(0, 36000.0 * M_PI, gp_Pnt(-80, -70, -30), gp_Pnt(-20, -10, 30));
    EXPECT_EQ(Current(), &op);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{false, false}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
    // The next two clicks make the next sphere: radius 10 about (50, -50), 4000 / 3 pi.
    Click(gp_Pnt(50, -50, 0));
    Click(gp_Pnt(50, -40, 0));
    ExpectOneSolid(1, 4000.0 * M_PI / 3.0, gp_Pnt(40, -60, -10), gp_Pnt(60, -40, 10));
}

// The upper latitude 90 and the lower 0 are the limits of their ranges and pass: the upper
// half, swept a quarter turn from the world X axis towards Y.
TEST_F(DrawSphereOpTest, WithParameterInputTheTypedAnglesMakeAPartOfTheSphere)
{
    DrawSphereOp op(true);
    Start(&op);
    Click(centre);
    AnswerAngles("0", "90", "90");
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(SolidOpTestPeer::Angles(op), (std::array<double, 3>{0.0, 90.0, 90.0}));
    // A quarter of the upper half: 36000 pi / 8 = 4500 pi, in the octant above the centre.
    ExpectOneSolid(0, 4500.0 * M_PI, gp_Pnt(-50, -40, 0), gp_Pnt(-20, -10, 30));
    EXPECT_EQ(Current(), &op);
}

// The lower limit -90 of the first angle passes as well: the lower half, whole turn.
TEST_F(DrawSphereOpTest, TheLowerLimitOfTheFirstAngleAndTheLowerOfTheSecondPass)
{
    DrawSphereOp op(true);
    Start(&op);
    Click(centre);
    AnswerAngles("-90", "0", "360");
    Click(rim);
    // Half of 36000 pi below the centre.
    ExpectOneSolid(0, 18000.0 * M_PI, gp_Pnt(-80, -70, -30), gp_Pnt(-20, -10, 0));
}

TEST_F(DrawSphereOpTest, AFirstAngleAboveZeroIsRefusedAndANewSphereCanFollow)
{
    DrawSphereOp op(true);
    Start(&op);
    Click(centre);
    Move(rim);
    const tevtest::DocState before = Doc();
    AnswerAngles("10", "90", "360");
    const tevtest::BoxSeen box = ClickWithBox(rim);
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "");
    EXPECT_EQ(box.text, "Invalid angle1 parameter, arrange is (-90, 0) ");
    EXPECT_TRUE(Doc() == before);
    EXPECT_EQ(Current(), &op);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{false, false}));
    EXPECT_TRUE(NothingLeft(op));
    Click(centre);
    AnswerAngles("-90", "90", "360");
    Click(rim);
    ExpectOneSolid(0, 36000.0 * M_PI, gp_Pnt(-80, -70, -30), gp_Pnt(-20, -10, 30));
}

TEST_F(DrawSphereOpTest, ASecondAngleAboveNinetyIsRefused)
{
    DrawSphereOp op(true);
    Start(&op);
    Click(centre);
    const tevtest::DocState before = Doc();
    AnswerAngles("-90", "95", "360");
    const tevtest::BoxSeen box = ClickWithBox(rim);
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "");
    EXPECT_EQ(box.text, "Invalid angle2 parameter, arrange is (0, 90) ");
    EXPECT_TRUE(Doc() == before);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{false, false}));
}

TEST_F(DrawSphereOpTest, CancelMakesNoSphereAndStartsOver)
{
    DrawSphereOp op(true);
    Start(&op);
    Click(centre);
    Move(rim);
    AnswerAngles("0", "90", "90", false);
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    EXPECT_EQ(SolidOpTestPeer::Angles(op), (std::array<double, 3>{-90.0, 90.0, 360.0}));
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{false, false}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), &op);
}

TEST_F(DrawSphereOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    DrawSphereOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Sphere : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
}

}  // namespace

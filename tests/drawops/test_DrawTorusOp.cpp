// The torus operation driven by real mouse events, with its sweep radius (and angles) typed into
// its dialog: the torus in the XY plane whatever the clicks' z, a quarter, the inert state
// after it, the radius checks with the transaction they leave open, Cancel, Escape and a failure
// inside the creation.
#include "SolidOpTest.h"

using tevtest::Lines;

namespace {

class DrawTorusOpTest : public tevtest::SolidOpTest
{
protected:
    // Centre (-50, -40) and rim (-20, -40): major radius 30.
    const gp_Pnt centre{-50, -40, 0};
    const gp_Pnt rim{-20, -40, 0};
    const std::vector<gp_Pnt> onCircle{gp_Pnt(-50, -10, 0), gp_Pnt(-80, -40, 0)};

    void AnswerTorus(const char* sweep, bool ok = true, const char* angle3 = nullptr)
    {
        std::vector<tevtest::FieldText> fields{{"lineEdit_SweepRadius", sweep}};
        if (angle3) fields.push_back({"lineEdit_Angle3", angle3});
        Answer("torusParaInputDlg", fields, ok);
    }
    // A click that must open no dialog: an answer is armed, and found unused afterwards.
    void ClickWithoutDialog(const gp_Pnt& p)
    {
        AnswerTorus("5");
        Click(p);
        QTest::qWait(60);
        EXPECT_FALSE(dialog.shown);
    }
};

TEST_F(DrawTorusOpTest, CentreRimAndSweepRadiusMakeTheTorusAndTheOperationGoesInert)
{
    tevtest::PromptLog log;
    DrawTorusOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    EXPECT_TRUE(BandShownAt(onCircle, Band::Red));
    AnswerTorus("5");
    Click(rim);
    EXPECT_FALSE(dialog.fieldEnabled["lineEdit_Angle1"]);
    EXPECT_FALSE(dialog.fieldEnabled["lineEdit_Angle3"]);
    EXPECT_EQ(log.lines, (Lines{"Torus : Input center point"}));
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::SweepRadius(op), 5.0);
    EXPECT_EQ(SolidOpTestPeer::Angles(op), (std::array<double, 3>{-180.0, 180.0, 360.0}));
    // 2 pi^2 R r^2 = 2 pi^2 * 30 * 25 = 1500 pi^2, within 35 of the centre in x and y, 5 in z.
    ExpectOneSolid(0, 1500.0 * M_PI * M_PI, gp_Pnt(-85, -75, -5), gp_Pnt(-15, -5, 5));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
    // It stays, takes no more clicks, and leaves on Escape without a word.
    EXPECT_EQ(Current(), &op);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, true}));
    ClickWithoutDialog(gp_Pnt(50, -50, 0));
    EXPECT_EQ(All().size(), 1u);
    log.Clear();
    Escape();
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(Current(), nullptr);
}

// On the XZ plane the clicks have different z: the centre is (-50, 0, 20) dropped to z = 0, and
// the major radius is the distance in x and y only, 30 rather than the 50 of the 3D distance.
TEST_F(DrawTorusOpTest, ClicksAtDifferentHeightsMakeTheTorusAtZeroWithTheirDistanceInXY)
{
    viewer->EnableXZPlane();
    viewer->SetXZ();
    viewer->UpdateViewer();
    QTest::qWait(20);
    DrawTorusOp op;
    Start(&op);
    Click(gp_Pnt(-50, 0, 20));
    AnswerTorus("5");
    Click(gp_Pnt(-20, 0, 60));
    ExpectOneSolid(0, 1500.0 * M_PI * M_PI, gp_Pnt(-85, -35, -5), gp_Pnt(-15, 35, 5));
}

TEST_F(DrawTorusOpTest, WithParameterInputTheTypedSweepMakesAQuarter)
{
    DrawTorusOp op(true);
    Start(&op);
    Click(centre);
    AnswerTorus("5", true, "90");
    Click(rim);
    EXPECT_TRUE(dialog.fieldEnabled["lineEdit_Angle3"]);
    EXPECT_EQ(SolidOpTestPeer::Angles(op), (std::array<double, 3>{-180.0, 180.0, 90.0}));
    // A quarter of 1500 pi^2 from the world X axis towards Y: its end faces lie in the planes
    // y = -40 and x = -50, so it spans from the centre to 35 beyond it in x and y.
    ExpectOneSolid(0, 375.0 * M_PI * M_PI, gp_Pnt(-50, -40, -5), gp_Pnt(-15, -5, 5));
}

TEST_F(DrawTorusOpTest, ASweepRadiusOfZeroIsRefusedAndLeavesTheOperationInert)
{
    DrawTorusOp op;
    Start(&op);
    Click(centre);
    const tevtest::DocState before = Doc();
    AnswerTorus("0");
    const tevtest::BoxSeen box = ClickWithBox(rim);
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Error");
    EXPECT_EQ(box.text, "Radius error input");
    EXPECT_TRUE(Doc() == before);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, true}));
    ClickWithoutDialog(rim);
    EXPECT_TRUE(Doc() == before);
    EXPECT_EQ(Current(), &op);
}

TEST_F(DrawTorusOpTest, ASweepRadiusEqualToTheMajorRadiusPasses)
{
    tevtest::PromptLog log;
    DrawTorusOp op;
    Start(&op);
    Click(centre);
    AnswerTorus("30");
    Click(rim);
    // No box of the operation: the creation is asked for and its bracket closed.
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    // A torus whose tube touches the axis: 2 pi^2 * 30 * 30^2 = 54000 pi^2.
    ExpectOneSolid(0, 54000.0 * M_PI * M_PI, gp_Pnt(-110, -100, -30), gp_Pnt(10, 20, 30));
}

TEST_F(DrawTorusOpTest, ASweepRadiusAboveTheMajorRadiusLeavesTheTransactionOpen)
{
    DrawTorusOp op;
    Start(&op);
    Click(centre);
    AnswerTorus("31");
    const tevtest::BoxSeen box = ClickWithBox(rim);
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Title");
    EXPECT_EQ(box.text, "DrawTorusOp radius error");
    EXPECT_TRUE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, true}));
    // The next event commits the empty change as it stands: nothing to undo.
    Move(rim);
    EXPECT_TRUE(Doc() == tevtest::DocState());
}

TEST_F(DrawTorusOpTest, CancelTakesTheBandAwayAndLeavesTheOperationInert)
{
    DrawTorusOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    AnswerTorus("5", false);
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, true}));
    ClickWithoutDialog(rim);
    EXPECT_TRUE(All().empty());
    Escape();
    EXPECT_EQ(Current(), nullptr);
}

// The second click sets its flag before the dialog; a step that fails inside the creation
// (simulated by turning the creator's refusal of a sweep of 0 degrees into a raise) gives it
// back, so the operation waits for another rim point instead of going inert.
TEST_F(DrawTorusOpTest, AFailureInsideTheCreationKeepsTheDocumentAndTheStep)
{
    DrawTorusOp op(true);
    Start(&op);
    Click(centre);
    tevtest::PromptLog log;
    {
        tevtest::RaiseOnFault raise("CreateTorous");
        AnswerTorus("5", true, "0");
        Click(rim);
    }
    ASSERT_FALSE(Faults(log).empty());
    EXPECT_EQ(Faults(log).back(), "DrawTorusOp : injected failure");
    EXPECT_TRUE(Doc() == tevtest::DocState());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    EXPECT_TRUE(NothingLeft(op));
    AnswerTorus("5", true, "360");
    Click(rim);
    ExpectOneSolid(0, 1500.0 * M_PI * M_PI, gp_Pnt(-85, -75, -5), gp_Pnt(-15, -5, 5));
}

}  // namespace

// The wedge operation driven by real mouse events, with its parameters typed into the
// WedgeInputDlg: the default ramp and a tapered top, the green axis-aligned band, the refused
// height, Cancel and Escape.
#include "SolidOpTest.h"

using tevtest::Lines;

namespace {

class DrawWedgeOpTest : public tevtest::SolidOpTest
{
protected:
    const gp_Pnt base{-60, -50, 0};
    const gp_Pnt corner{-20, -30, 0};
    // The band with its cursor at (-25, -25), away from the grid points and so unsnapped: its
    // top side then runs off the grid lines. Its sides along X show in the band's green (the
    // lit lines along Y show dark), at these points of the top and the bottom side.
    const gp_Pnt offGrid{-25, -25, 0};
    const std::vector<gp_Pnt> onBand{gp_Pnt(-45, -25, 0), gp_Pnt(-40, -50, 0)};
};

TEST_F(DrawWedgeOpTest, BaseCornerAndHeightMakeTheRampAndEndTheOperation)
{
    tevtest::PromptLog log;
    DrawWedgeOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Wedge : Input base point:"}));
    Click(base);
    EXPECT_EQ(log.lines.back(), "Wedge : Input Corner point:");
    Move(corner);
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    ExpectColour(band, 0.0, 0.9, 0.2);
    // The rectangle of the two points in world X and Y at the base's height.
    vtkDataSet* quad = Data(band);
    ASSERT_EQ(quad->GetNumberOfPoints(), 4);
    const gp_Pnt corners[4] = {base, gp_Pnt(-20, -50, 0), corner, gp_Pnt(-60, -30, 0)};
    for (int i = 0; i < 4; ++i) {
        const double* q = quad->GetPoint(i);
        EXPECT_TRUE(gp_Pnt(q[0], q[1], q[2]).IsEqual(corners[i], 1e-4)) << i;
    }
    Move(offGrid);
    EXPECT_TRUE(BandShownAt(onBand, Band::Green));

    log.Clear();
    Answer("WedgeInputDlg", {{"lineEdit_Height", "12"}});
    Click(corner);
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(log.lines, (Lines{"Wedge: Done"}));
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Height(op), 12.0);
    EXPECT_EQ(SolidOpTestPeer::WedgeParam(op), (std::array<double, 4>{0.0, 0.0, 1.0, 0.0}));
    // The default top is the base's edge at y = -50, lifted by 12: a triangular prism of
    // 40 * 20 * 12 / 2 = 4800 over the rectangle of the clicks.
    ExpectOneSolid(0, 4800.0, gp_Pnt(-60, -50, 0), gp_Pnt(-20, -30, 12));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onBand, Band::Green));
}

TEST_F(DrawWedgeOpTest, TheFourTopValuesReachTheCreatorInOrder)
{
    DrawWedgeOp op;
    Start(&op);
    Click(base);
    Answer("WedgeInputDlg", {{"lineEdit_Height", "12"},
                             {"lineEdit_TopXMin", "0.25"},
                             {"lineEdit_TopYMin", "0.25"},
                             {"lineEdit_TopXMax", "0.75"},
                             {"lineEdit_TopYMax", "0.75"}});
    Click(corner);
    EXPECT_EQ(SolidOpTestPeer::WedgeParam(op), (std::array<double, 4>{0.25, 0.25, 0.75, 0.75}));
    // A frustum of a pyramid: base 40 x 20, top (0.5 * 40) x (0.5 * 20) = 20 x 10 centred over
    // it, height 12: 12 / 3 * (800 + 200 + sqrt(800 * 200)) = 4 * 1400 = 5600.
    ExpectOneSolid(0, 5600.0, gp_Pnt(-60, -50, 0), gp_Pnt(-20, -30, 12));
}

TEST_F(DrawWedgeOpTest, AHeightOfZeroIsRefusedAndTheNextCornerAsksAgain)
{
    DrawWedgeOp op;
    Start(&op);
    Click(base);
    Answer("WedgeInputDlg", {{"lineEdit_Height", "0"}});
    ExpectHeightRefusedAt(corner);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    Answer("WedgeInputDlg", {{"lineEdit_Height", "12"}});
    Click(corner);
    ExpectOneSolid(0, 4800.0, gp_Pnt(-60, -50, 0), gp_Pnt(-20, -30, 12));
}

TEST_F(DrawWedgeOpTest, CancelTakesTheBandAwayAndTheNextCornerAsksAgain)
{
    DrawWedgeOp op;
    Start(&op);
    Click(base);
    Move(corner);
    Answer("WedgeInputDlg", {}, false);
    Click(corner);
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    // The dialog's defaults this time: height 10, the ramp over 30 x 20: 30 * 20 * 10 / 2.
    Answer("WedgeInputDlg", {});
    Click(gp_Pnt(-30, -30, 0));
    ExpectOneSolid(0, 3000.0, gp_Pnt(-60, -50, 0), gp_Pnt(-30, -30, 10));
}

TEST_F(DrawWedgeOpTest, EscapeCancelsSilentlyAndLeavesNothingBehind)
{
    DrawWedgeOp op;
    Start(&op);
    Click(base);
    Move(corner);
    tevtest::PromptLog log;
    Escape();
    EXPECT_TRUE(log.lines.empty());
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
}

}  // namespace

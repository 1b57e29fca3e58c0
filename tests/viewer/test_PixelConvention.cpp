// One pixel convention on any screen: the same click script gives the same world points and the
// same picked shapes at every device pixel ratio. The suite runs twice (tests/viewer/CMakeLists):
// as it is, and in a process with QT_SCALE_FACTOR=2, where each widget pixel is two device pixels.
#include "BoxShapeParaCreator.h"
#include "DrawLineOp.h"
#include "PlanarOpTest.h"

#include <QSignalSpy>

#include <cmath>

using tevtest::Lines;
using tevtest::WorldToWidget;

namespace {

class PixelConventionTest : public tevtest::PlanarOpTest
{
protected:
    void SetUp() override
    {
        PlanarOpTest::SetUp();
        // The box of the picks: from (20, 20, 0), 20 x 20 x 10.
        ShapeDocMgr::GetInstance()->StartTransaction();
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(20, 20, 0), gp_Dir(0, 0, 1)), 20, 20, 10);
        ShapeDocMgr::GetInstance()->EndTransaction();
        viewer->RefreshViewer();
        QTest::qWait(30);
    }
    // The ratio this process runs at: the one QT_SCALE_FACTOR asks for, 1 without it.
    static double ExpectedRatio()
    {
        const QByteArray factor = qgetenv("QT_SCALE_FACTOR");
        return factor.isEmpty() ? 1.0 : factor.toDouble();
    }
    // A click `dx`, `dy` widget pixels away from where `p` is drawn.
    void ClickNear(const gp_Pnt& p, int dx, int dy)
    {
        QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, WorldToWidget(viewer.get(), p) + QPoint(dx, dy));
    }
    std::vector<const TopoDS_Shape*>& Sel() { return SelectionMgr::GetInstance()->GetshapeList(); }
};

TEST_F(PixelConventionTest, TheProcessRunsAtTheRequestedRatio)
{
    EXPECT_DOUBLE_EQ(viewer->devicePixelRatioF(), ExpectedRatio());
}

TEST_F(PixelConventionTest, ClicksNearGridPointsSnapToThemAtAnyRatio)
{
    // Each click is 4 widget pixels beside a grid point (plus at most half a pixel of rounding
    // on each axis, from drawing position to widget pixel): at most 4.53 pixels as the user sees
    // them, inside the 5-pixel grid radius at any ratio. At ratio 2 that is 8 device pixels give
    // or take one, inside the radius only because the radius is scaled to 10 device pixels. The
    // line therefore joins the two grid points exactly.
    DrawLineOp line;
    Start(&line);
    ClickNear(gp_Pnt(-30, -20, 0), 4, 0);
    ClickNear(gp_Pnt(-30, 30, 0), 0, 4);
    ASSERT_EQ(All().size(), 2u);
    gp_Pnt a, b;
    Ends(All()[1], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-30, -20, 0), 1e-9)) << a.X() << " " << a.Y() << " " << a.Z();
    EXPECT_TRUE(b.IsEqual(gp_Pnt(-30, 30, 0), 1e-9)) << b.X() << " " << b.Y() << " " << b.Z();
}

TEST_F(PixelConventionTest, AClickPicksTheShapeItLandsOn)
{
    ClickNear(gp_Pnt(30, 30, 10), 0, 0);
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_TRUE(Sel()[0]->IsSame(All()[0]));
    // Away from the box nothing is under the cursor: the selection is cleared.
    ClickNear(gp_Pnt(-30, -30, 0), 0, 0);
    EXPECT_TRUE(Sel().empty());
}

TEST_F(PixelConventionTest, ARubberBandAroundTheBoxSelectsIt)
{
    const QPoint from = WorldToWidget(viewer.get(), gp_Pnt(15, 15, 10));
    const QPoint to = WorldToWidget(viewer.get(), gp_Pnt(45, 45, 10));
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, from);
    tevtest::MouseMove(viewer.get(), to, Qt::LeftButton);
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, to);
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_TRUE(Sel()[0]->IsSame(All()[0]));
    // A band beside the box holds nothing of it: the selection is cleared.
    const QPoint clearFrom = WorldToWidget(viewer.get(), gp_Pnt(-40, -40, 0));
    const QPoint clearTo = WorldToWidget(viewer.get(), gp_Pnt(-10, -10, 0));
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, clearFrom);
    tevtest::MouseMove(viewer.get(), clearTo, Qt::LeftButton);
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, clearTo);
    EXPECT_TRUE(Sel().empty());
}

TEST_F(PixelConventionTest, TheStatusBarShowsDevicePixelsFromTheBottom)
{
    // At widget pixel (100, 50) of a widget h pixels high, with ratio r: x = 100 r, and the row
    // from the bottom, the bottom row being 1, is h r - 50 r.
    QSignalSpy status(viewer.get(), &TevBasicViewer::m_signal_StatusBar);
    tevtest::MouseMove(viewer.get(), QPoint(100, 50));
    ASSERT_EQ(status.count(), 1);
    const double r = ExpectedRatio();
    const int x = static_cast<int>(std::lround(100 * r));
    const int y = static_cast<int>(std::lround(viewer->height() * r - 50 * r));
    EXPECT_TRUE(status.back().at(0).toString().startsWith(QString("Screen Coordinate:(%1,%2)   ").arg(x).arg(y)))
        << status.back().at(0).toString().toStdString();
}

}  // namespace

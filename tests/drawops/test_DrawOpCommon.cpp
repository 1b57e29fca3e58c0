// The shared operation base: rubber-band actors, their removal, the default entries and the
// prompt path.
#include "BoxShapeParaCreator.h"
#include "DrawerOutput.h"
#include "DrawOpTestPeer.h"
#include "GuiTestSupport.h"
#include "RecordingOp.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewerTestPeer.h"
#include "ViewerFixture.h"

#include <QSignalSpy>
#include <vtkArcSource.h>
#include <vtkDataSet.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkUnstructuredGrid.h>

#include <cmath>

using tevtest::ViewerTest;

namespace {

bool InRenderer(TevBasicViewer* viewer, vtkActor* actor)
{
    return actor && viewer->GetDefaultRender()->HasViewProp(actor);
}

vtkDataSet* InputOf(vtkActor* actor)
{
    actor->GetMapper()->Update();
    return actor->GetMapper()->GetInput();
}

class DrawOpCommonTest : public ViewerTest
{
};

TEST_F(DrawOpCommonTest, DefaultsOfANewOperation)
{
    DrawOpCommon op;
    EXPECT_FALSE(op.IsActionFinished());
    EXPECT_TRUE(op.GetPointList().empty());
    EXPECT_TRUE(op.GetStatusString().isEmpty());
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);
    double p[3] = {0, 0, 0};
    EXPECT_FALSE(op.LButtonDown(viewer.get(), p));
    EXPECT_FALSE(op.LButtonUp(viewer.get(), p));
    EXPECT_FALSE(op.LButtonDoubleClick(viewer.get(), p));
    EXPECT_FALSE(op.RButtonDown(viewer.get(), p));
    EXPECT_FALSE(op.RButtonUp(viewer.get(), p));
    EXPECT_FALSE(op.MovePoint(viewer.get(), p));
    EXPECT_FALSE(op.KeyDown(viewer.get(), Qt::Key_Escape));
    QString status("status");
    op.SetStatusString(status);
    EXPECT_EQ(op.GetStatusString(), "status");
    op.SetPointList({gp_Pnt(1, 2, 3)});
    ASSERT_EQ(op.GetPointList().size(), 1u);
    EXPECT_EQ(op.GetPointList()[0].Y(), 2.0);
}

TEST_F(DrawOpCommonTest, TempLineIsOneRedWireframeCell)
{
    RecordingOp op;
    double a[3] = {0, 0, 0}, b[3] = {10, 5, 0};
    op.ShowLine(viewer.get(), a, b);
    vtkActor* actor = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(InRenderer(viewer.get(), actor));
    vtkDataSet* data = InputOf(actor);
    ASSERT_EQ(data->GetNumberOfPoints(), 2);
    ASSERT_EQ(data->GetNumberOfCells(), 1);
    EXPECT_EQ(data->GetCellType(0), VTK_LINE);
    EXPECT_EQ(data->GetPoint(1)[0], 10.0);
    EXPECT_EQ(data->GetPoint(1)[1], 5.0);
    vtkProperty* prop = actor->GetProperty();
    EXPECT_DOUBLE_EQ(prop->GetOpacity(), 0.8);
    EXPECT_EQ(prop->GetRepresentation(), VTK_WIREFRAME);
    EXPECT_DOUBLE_EQ(prop->GetColor()[0], 1.0);
    EXPECT_DOUBLE_EQ(prop->GetColor()[1], 0.2);
    EXPECT_DOUBLE_EQ(prop->GetColor()[2], 0.2);
    // A second line replaces the first.
    double c[3] = {0, 10, 0};
    op.ShowLine(viewer.get(), a, c);
    EXPECT_FALSE(InRenderer(viewer.get(), actor));
    EXPECT_TRUE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
}

TEST_F(DrawOpCommonTest, TempLineOfZeroLengthRemovesTheOldOneAndShowsNone)
{
    RecordingOp op;
    double a[3] = {1, 1, 0}, b[3] = {4, 1, 0};
    op.ShowLine(viewer.get(), a, b);
    vtkActor* old = DrawOpTestPeer::TempActor(op);
    op.ShowLine(viewer.get(), a, a);
    EXPECT_FALSE(InRenderer(viewer.get(), old));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), old);  // the field keeps the old actor
}

TEST_F(DrawOpCommonTest, TempTriangleTestsOnlyTheFirstTwoPoints)
{
    RecordingOp op;
    double a[3] = {0, 0, 0}, b[3] = {4, 0, 0}, c[3] = {0, 3, 0};
    op.ShowTriangle(viewer.get(), a, b, c);
    ASSERT_TRUE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
    vtkDataSet* data = InputOf(DrawOpTestPeer::TempActor(op));
    EXPECT_EQ(data->GetCellType(0), VTK_TRIANGLE);
    EXPECT_EQ(data->GetNumberOfPoints(), 3);
    // p1 == p3 is drawn; p1 == p2 is not.
    op.ShowTriangle(viewer.get(), a, b, a);
    EXPECT_TRUE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
    op.ShowTriangle(viewer.get(), a, a, c);
    EXPECT_FALSE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
}

TEST_F(DrawOpCommonTest, TempCircleIsAFullCircleThroughTheRim)
{
    RecordingOp op;
    double center[3] = {5, 5, 0}, rim[3] = {8, 9, 0};
    int updates = 0;
    QObject::connect(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated, [&updates] { ++updates; });
    op.ShowCircle(viewer.get(), center, rim);
    EXPECT_EQ(updates, 1);  // the circle redraws through UpdateViewer
    vtkActor* actor = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(InRenderer(viewer.get(), actor));
    vtkDataSet* data = InputOf(actor);
    ASSERT_EQ(data->GetNumberOfPoints(), 65);  // resolution 64
    for (vtkIdType i = 0; i < data->GetNumberOfPoints(); ++i) {
        const double* p = data->GetPoint(i);
        EXPECT_NEAR(std::hypot(p[0] - 5, p[1] - 5), 5.0, 1e-5);
        EXPECT_NEAR(p[2], 0.0, 1e-9);
    }
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetOpacity(), 0.6);
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetLineWidth(), 1.0);
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetColor()[1], 0.2);
}

TEST_F(DrawOpCommonTest, FinishAndCancelRemoveBothTempActors)
{
    RecordingOp op;
    double a[3] = {0, 0, 0}, b[3] = {4, 0, 0};
    op.ShowLine(viewer.get(), a, b);
    op.ShowCircle(viewer.get(), a, b);
    op.DrawOpCommon::FinishCurrentOp(viewer.get());
    EXPECT_FALSE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
    EXPECT_FALSE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor2(op)));

    DrawOpCommon plain;
    DrawOpMgr::GetInstance()->StartOp(&plain, viewer.get());
    op.ShowLine(viewer.get(), a, b);
    op.ShowCircle(viewer.get(), a, b);
    op.DrawOpCommon::ActionCancelled(viewer.get());
    EXPECT_FALSE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
    EXPECT_FALSE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor2(op)));
}

TEST_F(DrawOpCommonTest, MoveExactlyOnTheFirstPointShowsNoRubberBand)
{
    RecordingOp op;
    op.rubberBand = true;
    DrawOpMgr::GetInstance()->StartOp(&op, viewer.get());
    const QPoint first(200, 200);
    QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, first);
    tevtest::MouseMove(viewer.get(), QPoint(300, 260));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(InRenderer(viewer.get(), band));
    tevtest::MouseMove(viewer.get(), first);
    EXPECT_FALSE(InRenderer(viewer.get(), band));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), band);
    // Escape takes everything away.
    tevtest::MouseMove(viewer.get(), QPoint(320, 100));
    ASSERT_TRUE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    EXPECT_FALSE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(op)));
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), nullptr);
}

TEST_F(DrawOpCommonTest, CreationBracketIsOneUndoStepAndRefreshesThePicture)
{
    ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
    doc->NewDocument();
    viewer->RefreshViewer();
    QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
    RecordingOp::CreateInTransaction(viewer.get(), [] {
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 10, 20, 30);
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(50, 0, 0), gp_Dir(0, 0, 1)), 1, 2, 3);
    });
    EXPECT_FALSE(doc->HasOpenTransaction());
    EXPECT_EQ(ShapeLabelMgr::GetInstance()->GetAllShapes().size(), 2u);
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 2u);
    EXPECT_EQ(updated.count(), 1);
    EXPECT_EQ(doc->GetAvailableUndos(), 1);
    ASSERT_TRUE(doc->Undo());
    EXPECT_TRUE(ShapeLabelMgr::GetInstance()->GetAllShapes().empty());
}

TEST_F(DrawOpCommonTest, PromptGoesOutAtLevelZero)
{
    int level = -1;
    QString text;
    QMetaObject::Connection c = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                                 [&](int l, QString t) { level = l, text = t; });
    DrawOpCommon::Prompt("Line : Pick First Point ");
    QObject::disconnect(c);
    EXPECT_EQ(level, 0);
    EXPECT_EQ(text, "Line : Pick First Point ");
}

}  // namespace

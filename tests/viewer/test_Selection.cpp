// Selection on a shown viewer with boxes made by the real creator: point picks at each level,
// Ctrl, overlapping solids, the Tab cursor, the rubber band and the highlight actors.
#include "BoxShapeParaCreator.h"
#include "DrawOpCommon.h"
#include "GuiTestSupport.h"
#include "SelectionMgr.h"
#include "SelectionScene.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewerTestPeer.h"
#include "TriangleFaceShapeParaCreator.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRep_Tool.hxx>
#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>
#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapePicker.hxx>
#include <QSignalSpy>
#include <QTextCodec>
#include <BRepPrimAPI_MakeBox.hxx>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <vtkCamera.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <string>

using tevtest::DocumentViewerTest;
using tevtest::WorldToWidget;

namespace {

class SelectionTest : public tevtest::SelectionSceneTest
{
protected:
    bool Holds(const TopoDS_Shape& shape)
    {
        for (const TopoDS_Shape* s : Sel())
            if (s->IsSame(shape)) return true;
        return false;
    }

    bool RenderedHas(vtkActor* a) { return a && viewer->GetDefaultRender()->HasViewProp(a); }
};

TEST_F(SelectionTest, ClickOnABoxAtBodyLevelSelectsThatShape)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(30, 0, 0, 10, 10, 10);
    Show();
    QSignalSpy sel(viewer.get(), &TevBasicViewer::m_signal_SelChange);
    QSignalSpy status(viewer.get(), &TevBasicViewer::m_signal_StatusBar);
    Click(gp_Pnt(35, 5, 10));
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_TRUE(Sel()[0]->IsSame(All()[1]));
    EXPECT_EQ(Sel()[0]->ShapeType(), TopAbs_SOLID);
    EXPECT_EQ(sel.count(), 2);  // the clear, then the added shape
    ASSERT_GE(status.count(), 1);
    EXPECT_EQ(status.back().at(0).toString(), QString::fromUtf8("选中 1 个对象"));
    ASSERT_EQ(TevBasicViewerTestPeer::SelectionActors(*viewer).size(), 1u);
    vtkActor* hl = TevBasicViewerTestPeer::SelectionActors(*viewer)[0];
    EXPECT_TRUE(RenderedHas(hl));
    EXPECT_DOUBLE_EQ(hl->GetProperty()->GetOpacity(), 0.5);
    EXPECT_DOUBLE_EQ(hl->GetProperty()->GetColor()[2], 0.4);
    EXPECT_FALSE(hl->GetPickable());
}

// The count text is built from UTF-8, so it reads the same whatever the process's locale is. The
// test runs once more in a process started with LANG=C and no codec set (tests/viewer/CMakeLists),
// and its second half gives the process a Latin-1 locale codec, under which reading the text as
// local 8-bit would garble it.
TEST_F(SelectionTest, TheCountTextReadsTheSameInAnyLocale)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(30, 0, 0, 10, 10, 10);
    Show();
    QSignalSpy status(viewer.get(), &TevBasicViewer::m_signal_StatusBar);
    Click(gp_Pnt(5, 5, 10));
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_GE(status.count(), 1);
    EXPECT_EQ(status.back().at(0).toString(), QString::fromUtf8("选中 1 个对象"));

    QTextCodec* before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    // The precondition that makes this half mean something: local 8-bit reading now differs.
    EXPECT_NE(QString::fromLocal8Bit("选中"), QString::fromUtf8("选中"));
    // Ctrl adds the second box: the count follows.
    HoldCtrl(true);
    Click(gp_Pnt(35, 5, 10), Qt::ControlModifier);
    HoldCtrl(false);
    QTextCodec::setCodecForLocale(before);
    ASSERT_EQ(Sel().size(), 2u);
    EXPECT_EQ(status.back().at(0).toString(), QString::fromUtf8("选中 2 个对象"));
}

TEST_F(SelectionTest, FaceLevelTakesTheFaceUnderTheCursor)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    viewer->m_Slot_SetSelectionFace();
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 2);
    Click(gp_Pnt(3, 7, 10));
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_EQ(Sel()[0]->ShapeType(), TopAbs_FACE);
    // Seen from +Z the face under the cursor is the top face z = 10, and it spans the point.
    BRepAdaptor_Surface surf(TopoDS::Face(*Sel()[0]));
    ASSERT_EQ(surf.GetType(), GeomAbs_Plane);
    EXPECT_NEAR(surf.Plane().Location().Z(), 10.0, 1e-9);
    EXPECT_NEAR(std::abs(surf.Plane().Axis().Direction().Z()), 1.0, 1e-9);
    Bnd_Box box;
    BRepBndLib::Add(*Sel()[0], box);
    EXPECT_FALSE(box.IsOut(gp_Pnt(3, 7, 10)));
}

TEST_F(SelectionTest, EdgeLevelTakesAnEdge)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    viewer->m_Slot_SetSelectionEdge();
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 1);
    Click(gp_Pnt(5, 10, 10));  // on the top edge y = 10
    ASSERT_GE(Sel().size(), 1u);
    for (const TopoDS_Shape* s : Sel()) {
        ASSERT_EQ(s->ShapeType(), TopAbs_EDGE);
        // An edge along y = 10: both its vertices lie there.
        TopoDS_Vertex v0, v1;
        TopExp::Vertices(TopoDS::Edge(*s), v0, v1);
        EXPECT_NEAR(BRep_Tool::Pnt(v0).Y(), 10.0, 1e-9);
        EXPECT_NEAR(BRep_Tool::Pnt(v1).Y(), 10.0, 1e-9);
    }
}

TEST_F(SelectionTest, AShapeThatIsOneFaceIsPickedAtEveryLevel)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0), gp_Pnt(0, 40, 0)});
    ShapeDocMgr::GetInstance()->EndTransaction();
    Show();
    Click(gp_Pnt(10, 10, 0));
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_EQ(Sel()[0]->ShapeType(), TopAbs_FACE);
    viewer->m_Slot_SetSelectionFace();
    Click(gp_Pnt(10, 10, 0));
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_EQ(Sel()[0]->ShapeType(), TopAbs_FACE);
    EXPECT_TRUE(Sel()[0]->IsSame(All()[0]));
    viewer->m_Slot_SetSelectionEdge();
    Click(gp_Pnt(20, 0, 0));
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_EQ(Sel()[0]->ShapeType(), TopAbs_EDGE);
}

TEST_F(SelectionTest, EmptySpaceClearsWithoutCtrlAndChangesNothingWithIt)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(30, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_EQ(TevBasicViewerTestPeer::SelectionActors(*viewer).size(), 1u);
    vtkActor* hl = TevBasicViewerTestPeer::SelectionActors(*viewer)[0];
    HoldCtrl(true);
    Click(gp_Pnt(20, 30, 10));
    EXPECT_EQ(Sel().size(), 1u);
    HoldCtrl(false);
    QSignalSpy status(viewer.get(), &TevBasicViewer::m_signal_StatusBar);
    QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_TRUE(Sel().empty());
    EXPECT_FALSE(RenderedHas(hl));
    // An emptied list leaves the status line as it was.
    EXPECT_EQ(status.count(), 0);
}

TEST_F(SelectionTest, CtrlAddsAndASecondClickDoesNotRemove)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(30, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    HoldCtrl(true);
    Click(gp_Pnt(35, 5, 10));
    Click(gp_Pnt(5, 5, 10));
    HoldCtrl(false);
    ASSERT_EQ(Sel().size(), 2u);
    EXPECT_TRUE(Sel()[0]->IsSame(All()[0]));
    EXPECT_TRUE(Sel()[1]->IsSame(All()[1]));
    // The second display of two shapes: the highlight vector grows until RemoveHighLihgt.
    EXPECT_EQ(TevBasicViewerTestPeer::SelectionActors(*viewer).size(), 1u + 2u + 2u);
}

TEST_F(SelectionTest, TwoOverlappingSolidsUnderOneClickAreBothSelectedAndTabCycles)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(5, 5, -5, 10, 10, 10);
    Show();
    Click(gp_Pnt(7, 7, 10));
    ASSERT_EQ(Sel().size(), 2u);
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelIndex(*viewer), 0);
    QTest::keyClick(viewer.get(), Qt::Key_Tab);
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelIndex(*viewer), 1);
    vtkActor* first = TevBasicViewerTestPeer::CurrentSelActor(*viewer);
    EXPECT_TRUE(RenderedHas(first));
    QTest::keyClick(viewer.get(), Qt::Key_Tab);
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelIndex(*viewer), 2);
    EXPECT_FALSE(RenderedHas(first));
    EXPECT_TRUE(RenderedHas(TevBasicViewerTestPeer::CurrentSelActor(*viewer)));
    QTest::keyClick(viewer.get(), Qt::Key_Tab);
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelIndex(*viewer), 1);
}

TEST_F(SelectionTest, TabWithAnEmptyListOnlyRemovesTheCursorActor)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    QTest::keyClick(viewer.get(), Qt::Key_Tab);
    vtkActor* cursor = TevBasicViewerTestPeer::CurrentSelActor(*viewer);
    ASSERT_TRUE(RenderedHas(cursor));
    SelectionMgr::GetInstance()->ClearSelList();
    QTest::keyClick(viewer.get(), Qt::Key_Tab);
    EXPECT_FALSE(RenderedHas(cursor));
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelIndex(*viewer), 1);
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelActor(*viewer), cursor);
}

TEST_F(SelectionTest, RubberBandAroundTwoOfThreeSelectsExactlyThose)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(20, 0, 0, 10, 10, 10);
    Box(40, 0, 0, 10, 10, 10);
    Show();
    // From below right of the second to above left of the first: corners in any order.
    const QPoint a = WorldToWidget(viewer.get(), gp_Pnt(33, -3, 10));
    const QPoint b = WorldToWidget(viewer.get(), gp_Pnt(-3, 13, 10));
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, a);
    tevtest::MouseMove(viewer.get(), b, Qt::LeftButton);
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, b);
    ASSERT_TRUE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
    // Pickers are visited in the order of their map's keys, so the two come in either order.
    ASSERT_EQ(Sel().size(), 2u);
    EXPECT_TRUE(Holds(All()[0]));
    EXPECT_TRUE(Holds(All()[1]));
    EXPECT_FALSE(Holds(All()[2]));
    // With Ctrl a band adds the third.
    HoldCtrl(true);
    const QPoint c = WorldToWidget(viewer.get(), gp_Pnt(37, -3, 10));
    const QPoint d = WorldToWidget(viewer.get(), gp_Pnt(53, 13, 10));
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::ControlModifier, c);
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::ControlModifier, d);
    HoldCtrl(false);
    ASSERT_EQ(Sel().size(), 3u);
    EXPECT_TRUE(Holds(All()[2]));
}

TEST_F(SelectionTest, AStraightDragIsAPointPickAtTheRelease)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(30, 0, 0, 10, 10, 10);
    Show();
    // A horizontal band over both boxes would be a rectangle; a straight drag picks the point
    // under the release only.
    const QPoint from = WorldToWidget(viewer.get(), gp_Pnt(-5, 5, 10));
    const QPoint to = WorldToWidget(viewer.get(), gp_Pnt(35, 5, 10));
    ASSERT_EQ(from.y(), to.y());
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, from);
    tevtest::MouseMove(viewer.get(), to, Qt::LeftButton);
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_FALSE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_TRUE(Sel()[0]->IsSame(All()[1]));
    // The same drag with a vertical component is a band, which holds neither box whole.
    const QPoint below(to.x(), to.y() + 3);
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_TRUE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
    EXPECT_TRUE(Sel().empty());
}

TEST_F(SelectionTest, LevelSlotsSetThePickerModesAndARebuildTurnsAllThreeOnAgain)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    auto modesOf = [this]() {
        const auto& entry = *TevBasicViewerTestPeer::PickerByShape(*viewer).begin();
        IVtk_SelectionModeList list = entry.second->GetSelectionModes(opencascade::handle<IVtk_IShape>(entry.first));
        std::vector<int> modes(list.begin(), list.end());
        std::sort(modes.begin(), modes.end());
        return modes;
    };
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 4);
    EXPECT_EQ(modesOf(), (std::vector<int>{SM_Edge, SM_Face, SM_Solid}));
    viewer->m_Slot_SetSelectionEdge();
    EXPECT_EQ(modesOf(), (std::vector<int>{SM_Edge}));
    viewer->m_Slot_SetSelectionFace();
    EXPECT_EQ(modesOf(), (std::vector<int>{SM_Face}));
    viewer->m_Slot_SetSelectionBody();
    EXPECT_EQ(modesOf(), (std::vector<int>{SM_Shape}));
    viewer->m_Slot_SetSelectionEdge();
    viewer->RefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 1);
    EXPECT_EQ(modesOf(), (std::vector<int>{SM_Edge, SM_Face, SM_Solid}));
}

TEST_F(SelectionTest, HiddenShapesAreNotPicked)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    TopoDS_Shape box = All()[0];
    viewer->SetShapeVisibility(&box, false);
    Click(gp_Pnt(5, 5, 10));
    EXPECT_TRUE(Sel().empty());
}

TEST_F(SelectionTest, SelectionByNameAddsWithoutClearing)
{
    Box(0, 0, 0, 10, 10, 10);
    Box(30, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    TopoDS_Shape second = All()[1];
    QSignalSpy sel(viewer.get(), &TevBasicViewer::m_signal_SelChange);
    viewer->SelectionUpdate(ShapeLabelMgr::GetInstance()->GetShapeName(&second));
    ASSERT_EQ(Sel().size(), 2u);
    EXPECT_TRUE(Sel()[1]->IsSame(second));
    EXPECT_EQ(TevBasicViewerTestPeer::CurrentSelIndex(*viewer), 1);
    EXPECT_EQ(sel.count(), 1);
    viewer->SelectionUpdate(QString("no such name"));
    EXPECT_EQ(Sel().size(), 2u);
}

TEST_F(SelectionTest, SelectionSurvivesRefreshAndIsClearedByUpdateRefresh)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    ASSERT_EQ(Sel().size(), 1u);
    viewer->RefreshViewer();
    ASSERT_EQ(Sel().size(), 1u);
    // The entry points into the previous picture, which is still alive.
    EXPECT_EQ(Sel()[0]->ShapeType(), TopAbs_SOLID);
    viewer->ProcessHighLightedObj();
    EXPECT_EQ(TevBasicViewerTestPeer::SelectionActors(*viewer).size(), 1u);
    viewer->UpdateRefreshViewer();
    EXPECT_TRUE(Sel().empty());
}

TEST_F(SelectionTest, EscapeWithoutOperationClearsTheSelectionAndHighlights)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    vtkActor* hl = TevBasicViewerTestPeer::SelectionActors(*viewer).at(0);
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    EXPECT_TRUE(Sel().empty());
    EXPECT_FALSE(RenderedHas(hl));
}

TEST_F(SelectionTest, EscapeDuringAnOperationKeepsTheSelection)
{
    Box(0, 0, 0, 10, 10, 10);
    Show();
    Click(gp_Pnt(5, 5, 10));
    ASSERT_EQ(Sel().size(), 1u);
    DrawOpCommon op;
    DrawOpMgr::GetInstance()->StartOp(&op, viewer.get());
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), nullptr);
    EXPECT_EQ(Sel().size(), 1u);
    EXPECT_EQ(TevBasicViewerTestPeer::SelectionActors(*viewer).size(), 1u);
}

TEST(SelectionMgrList, OneEntryPerTShapeAndTheRemovalSkip)
{
    SelectionMgr* mgr = SelectionMgr::GetInstance();
    mgr->ClearSelList();
    TopoDS_Shape a = BRepPrimAPI_MakeBox(1, 1, 1).Shape();
    TopoDS_Shape moved = a.Moved(TopLoc_Location(gp_Trsf()));
    TopoDS_Shape reversed = a.Reversed();
    TopoDS_Shape b = BRepPrimAPI_MakeBox(2, 2, 2).Shape();
    mgr->AddToSelectionList(&a);
    mgr->AddToSelectionList(&moved);
    mgr->AddToSelectionList(&reversed);
    mgr->AddToSelectionList(&b);
    ASSERT_EQ(mgr->GetshapeList().size(), 2u);
    // Removal compares pointers and skips the entry that moves into the gap.
    mgr->GetshapeList() = {&a, &a, &b};
    mgr->RemoveFromeSelectionList(&a);
    ASSERT_EQ(mgr->GetshapeList().size(), 2u);
    EXPECT_EQ(mgr->GetshapeList()[0], &a);
    EXPECT_EQ(mgr->GetshapeList()[1], &b);
    mgr->RemoveFromeSelectionList(&moved);  // same TShape, other pointer: stays
    EXPECT_EQ(mgr->GetshapeList().size(), 2u);
    const size_t capacity = mgr->GetshapeList().capacity();
    mgr->ClearSelList();
    EXPECT_TRUE(mgr->GetshapeList().empty());
    EXPECT_EQ(mgr->GetshapeList().capacity(), capacity);
}

}  // namespace

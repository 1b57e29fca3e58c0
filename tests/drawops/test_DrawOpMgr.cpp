// The operation stack on a real viewer: starting, ending, cancelling, finish-and-pop, and the
// routing of mouse events.
#include "DrawOpMgr.h"
#include "DrawOpTestPeer.h"
#include "RecordingOp.h"
#include "ViewerFixture.h"

#include <vtkRenderer.h>

#include <string>
#include <vector>

using tevtest::ViewerTest;
using Names = std::vector<std::string>;

namespace {

bool InRenderer(TevBasicViewer* viewer, vtkActor* actor)
{
    return actor && viewer->GetDefaultRender()->HasViewProp(actor);
}

class DrawOpMgrTest : public ViewerTest
{
protected:
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    double pt[3] = {1.0, 2.0, 3.0};
};

TEST_F(DrawOpMgrTest, SingletonAndEmptyStack)
{
    EXPECT_EQ(mgr, DrawOpMgr::GetInstance());
    EXPECT_EQ(mgr->GetCurrentOp(), nullptr);
    EXPECT_FALSE(mgr->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnLButtonUp, pt));
    EXPECT_TRUE(DrawOpTestPeer::OpStack(*mgr).empty());
}

TEST_F(DrawOpMgrTest, DispatchesEachTypeToItsEntry)
{
    RecordingOp op;
    mgr->StartOp(&op, viewer.get());
    for (int type = 1; type <= 6; ++type)
        EXPECT_TRUE(mgr->ProcessMouseEvent(viewer.get(), static_cast<DrawOpMgr::EnMouseEventType>(type), pt));
    EXPECT_EQ(op.Names(), (Names{"InitAction", "MovePoint", "LButtonDown", "LButtonUp", "LButtonDoubleClick",
                                 "RButtonDown", "RButtonUp"}));
    for (size_t i = 1; i < op.calls.size(); ++i) {
        EXPECT_EQ(op.calls[i].type, static_cast<int>(i));
        EXPECT_EQ(op.calls[i].point[0], 1.0);
        EXPECT_EQ(op.calls[i].point[2], 3.0);
    }
    op.returnValue = false;
    EXPECT_FALSE(mgr->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnMouseMove, pt));
}

TEST_F(DrawOpMgrTest, TypesOutsideOneToSixAreIgnored)
{
    RecordingOp op;
    mgr->StartOp(&op, viewer.get());
    EXPECT_FALSE(mgr->ProcessMouseEvent(viewer.get(), static_cast<DrawOpMgr::EnMouseEventType>(0), pt));
    EXPECT_FALSE(mgr->ProcessMouseEvent(viewer.get(), static_cast<DrawOpMgr::EnMouseEventType>(7), pt));
    EXPECT_EQ(op.Names(), (Names{"InitAction"}));
}

TEST_F(DrawOpMgrTest, StartOpDropsTheRunningOperationSilently)
{
    RecordingOp first("first");
    RecordingOp second("second");
    mgr->StartOp(&first, viewer.get());
    double a[3] = {0, 0, 0}, b[3] = {10, 0, 0};
    first.ShowLine(viewer.get(), a, b);
    ASSERT_TRUE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(first)));
    mgr->StartOp(&second, viewer.get());
    EXPECT_EQ(first.Names(), (Names{"InitAction"}));  // no ActionCancelled, no FinishCurrentOp
    EXPECT_TRUE(InRenderer(viewer.get(), DrawOpTestPeer::TempActor(first)));
    EXPECT_EQ(mgr->GetCurrentOp(), &second);
    EXPECT_EQ(DrawOpTestPeer::OpStack(*mgr).size(), 1u);
    viewer->RemoveTempRenderActor(DrawOpTestPeer::TempActor(first));
}

TEST_F(DrawOpMgrTest, EscapeOnTheOnlyOperation)
{
    RecordingOp op;
    mgr->StartOp(&op, viewer.get());
    mgr->ProcessKeyDown(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(op.Names(), (Names{"InitAction", "ActionCancelled", "FinishCurrentOp"}));
    EXPECT_EQ(mgr->GetCurrentOp(), nullptr);
}

TEST_F(DrawOpMgrTest, OtherKeysAreIgnored)
{
    RecordingOp op;
    mgr->StartOp(&op, viewer.get());
    for (int key : {int(Qt::Key_Return), int(Qt::Key_Enter), int(Qt::Key_A), int(Qt::Key_Tab)})
        mgr->ProcessKeyDown(viewer.get(), key);
    mgr->ProcessKeyUp(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(op.Names(), (Names{"InitAction"}));
    EXPECT_EQ(mgr->GetCurrentOp(), &op);
}

TEST_F(DrawOpMgrTest, EscapeDuringAChildReportsToTheParentAsAfterOK)
{
    std::vector<std::string> log;
    RecordingOp parent("parent"), child("child");
    parent.sharedLog = child.sharedLog = &log;
    mgr->StartOp(&parent, viewer.get());
    mgr->StartChildOp(&child, viewer.get());
    log.clear();
    mgr->ProcessKeyDown(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(log, (Names{"child:ActionCancelled", "child:FinishCurrentOp", "parent:ChildActionFinished"}));
    EXPECT_EQ(mgr->GetCurrentOp(), &parent);
}

TEST_F(DrawOpMgrTest, EscapeDuringAChildEndsAParentThatIsFinished)
{
    std::vector<std::string> log;
    RecordingOp parent("parent"), child("child");
    parent.sharedLog = child.sharedLog = &log;
    parent.finishOnChild = true;
    mgr->StartOp(&parent, viewer.get());
    mgr->StartChildOp(&child, viewer.get());
    log.clear();
    mgr->ProcessKeyDown(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(log, (Names{"child:ActionCancelled", "child:FinishCurrentOp", "parent:ChildActionFinished",
                          "parent:FinishCurrentOp"}));
    EXPECT_EQ(mgr->GetCurrentOp(), nullptr);
}

TEST_F(DrawOpMgrTest, EndOpNullDoesNothing)
{
    RecordingOp op;
    mgr->StartOp(&op, viewer.get());
    mgr->EndOp(nullptr, viewer.get());
    mgr->EndCurrentOp(nullptr, viewer.get());
    EXPECT_EQ(op.Names(), (Names{"InitAction"}));
    EXPECT_EQ(mgr->GetCurrentOp(), &op);
}

TEST_F(DrawOpMgrTest, EndOpWithAnOperationThatIsNotTheTopStillPopsTheTop)
{
    RecordingOp parent("parent"), child("child");
    mgr->StartOp(&parent, viewer.get());
    mgr->StartChildOp(&child, viewer.get());
    mgr->EndOp(&parent, viewer.get());
    // The passed operation is finished, the top is removed, the remaining one hears of a child.
    EXPECT_EQ(parent.Names(), (Names{"InitAction", "FinishCurrentOp", "ChildActionFinished"}));
    EXPECT_EQ(child.Names(), (Names{"InitAction"}));
    EXPECT_EQ(mgr->GetCurrentOp(), &parent);
}

TEST_F(DrawOpMgrTest, EndOpLetsFinishedParentsFollow)
{
    std::vector<std::string> log;
    RecordingOp grand("grand"), parent("parent"), child("child");
    grand.sharedLog = parent.sharedLog = child.sharedLog = &log;
    parent.finishOnChild = true;
    mgr->StartOp(&grand, viewer.get());
    mgr->StartChildOp(&parent, viewer.get());
    mgr->StartChildOp(&child, viewer.get());
    log.clear();
    mgr->EndOp(&child, viewer.get());
    EXPECT_EQ(log, (Names{"child:FinishCurrentOp", "parent:ChildActionFinished", "parent:FinishCurrentOp",
                          "grand:ChildActionFinished"}));
    EXPECT_EQ(mgr->GetCurrentOp(), &grand);
}

TEST_F(DrawOpMgrTest, SecondEndOpAfterAChildFinishesTheParentWhateverItSays)
{
    RecordingOp parent("parent"), child("child");
    mgr->StartOp(&parent, viewer.get());
    mgr->StartChildOp(&child, viewer.get());
    mgr->EndOp(mgr->GetCurrentOp(), viewer.get());
    ASSERT_EQ(mgr->GetCurrentOp(), &parent);
    EXPECT_FALSE(parent.IsActionFinished());
    mgr->EndOp(mgr->GetCurrentOp(), viewer.get());
    EXPECT_EQ(mgr->GetCurrentOp(), nullptr);
    EXPECT_EQ(parent.CountOf("FinishCurrentOp"), 1);
}

TEST_F(DrawOpMgrTest, EndCurrentOpTellsNoParent)
{
    RecordingOp parent("parent"), child("child");
    mgr->StartOp(&parent, viewer.get());
    mgr->StartChildOp(&child, viewer.get());
    mgr->EndCurrentOp(&child, viewer.get());
    EXPECT_EQ(child.Names(), (Names{"InitAction", "FinishCurrentOp"}));
    EXPECT_EQ(parent.Names(), (Names{"InitAction"}));
    EXPECT_EQ(mgr->GetCurrentOp(), &parent);
}

TEST_F(DrawOpMgrTest, StartOpTestsTheChildThatInitActionStarted)
{
    std::vector<std::string> log;
    RecordingOp parent("parent"), child("child");
    parent.sharedLog = child.sharedLog = &log;
    parent.childToStart = &child;
    child.finishOnInit = true;  // a child that is done at once
    mgr->StartOp(&parent, viewer.get());
    // The child's own start finishes and pops it. The parent's start then tests the cached
    // current operation, still the finished child, and runs finish-and-pop on it once more:
    // the child is finished twice and the remaining top, the parent, is popped without a word.
    EXPECT_EQ(log, (Names{"parent:InitAction", "child:InitAction", "child:FinishCurrentOp",
                          "parent:ChildActionFinished", "child:FinishCurrentOp"}));
    EXPECT_EQ(mgr->GetCurrentOp(), nullptr);
}

TEST_F(DrawOpMgrTest, StartOpOfAnOperationFinishedAtOnce)
{
    RecordingOp op;
    op.finishOnInit = true;
    mgr->StartOp(&op, viewer.get());
    EXPECT_EQ(op.Names(), (Names{"InitAction", "FinishCurrentOp"}));
    EXPECT_EQ(mgr->GetCurrentOp(), nullptr);
}

TEST_F(DrawOpMgrTest, OutputString)
{
    mgr->SetOutputString("Snap Grid:1.00000, 2.00000, 0.00000");
    EXPECT_EQ(mgr->GetOutputString(), "Snap Grid:1.00000, 2.00000, 0.00000");
}

}  // namespace

// The right-button menu opened by real right clicks on a shown viewer and read back before it
// is closed or answered: its entries, the level actions and "Set As WorkPlane", "Confirm" with a
// running operation and a picking child, and the three Booleans on solids selected by clicks.
#include "GuiTestSupport.h"
#include "LineShapeParaCreator.h"
#include "PickPointGeneral.h"
#include "PromptLog.h"
#include "RecordingOp.h"
#include "SelectionScene.h"
#include "TevBasicViewerTestPeer.h"

#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <gp_Pln.hxx>

#include <string>
#include <vector>

using tevtest::MenuEntrySeen;
using tevtest::MenuSeen;

namespace {

class ContextMenuTest : public tevtest::SelectionSceneTest
{
protected:
    // Opens the menu with a right press and release in an empty corner and answers it along
    // `path`, or closes it when `path` is empty; returns what it showed.
    MenuSeen Menu(const QStringList& path = QStringList(), bool* triggered = nullptr)
    {
        EXPECT_TRUE(tevtest::ActivateAndWait(viewer.get()));
        MenuSeen seen;
        tevtest::MenuAnswer answer(path, &seen);
        QTest::mouseClick(viewer.get(), Qt::RightButton, Qt::NoModifier, QPoint(8, 8));
        EXPECT_TRUE(seen.shown);
        if (triggered) *triggered = answer.Triggered();
        return seen;
    }

    // The entry of the top menu with this text.
    static MenuEntrySeen Entry(const MenuSeen& seen, const QString& text)
    {
        for (const MenuEntrySeen& e : seen.entries)
            if (!e.separator && e.text == text) return e;
        ADD_FAILURE() << "no entry " << text.toStdString();
        return MenuEntrySeen();
    }

    IDrawOp* Current() { return DrawOpMgr::GetInstance()->GetCurrentOp(); }
};

// Captures the messages Qt reports while it lives.
class QtMessages
{
public:
    QtMessages() { m_previous = qInstallMessageHandler(&QtMessages::Record); }
    ~QtMessages() { qInstallMessageHandler(m_previous); }
    static std::vector<QString>& Lines()
    {
        static std::vector<QString> lines;
        return lines;
    }

private:
    static void Record(QtMsgType, const QMessageLogContext&, const QString& text) { Lines().push_back(text); }
    QtMessageHandler m_previous;
};

TEST_F(ContextMenuTest, ARightClickShowsTheEntriesInOrder)
{
    const MenuSeen seen = Menu();
    // "Set Mesh Size" is not shown, "Set Material" is shown grey, "Set As WorkPlane" is grey
    // until the face level is chosen, and the body level is checked at the start.
    EXPECT_EQ(tevtest::DescribeMenu(seen.entries),
              (QStringList{"Confirm", "---", "Set As WorkPlane (disabled)", "---", "Select Level: Edge [ ]",
                           "Select Level: Face [ ]", "Select Level: Body [x]", "---", "Set Material (disabled)", "---",
                           "Display Level: Wireframe [ ]", "Display Level: Face [ ]", "Display Level: Point [ ]", "---",
                           "Boolean operation >", "  Unite", "  Subtract", "  Intersect"}));
    // Rebuilt at each showing: the same entries again, not twice as many.
    EXPECT_EQ(tevtest::DescribeMenu(Menu().entries), tevtest::DescribeMenu(seen.entries));
}

TEST_F(ContextMenuTest, TheTwoFeaturesToComeAreConnectedToSlotsThatDoNotExist)
{
    std::vector<QString> lines;
    {
        QtMessages capture;
        QtMessages::Lines().clear();
        TevBasicViewer other;
        other.InitViewer();
        lines = QtMessages::Lines();
    }
    std::vector<QString> refused;
    for (const QString& line : lines)
        if (line.contains("No such slot")) refused.push_back(line);
    ASSERT_EQ(refused.size(), 2u);
    EXPECT_TRUE(refused[0].contains("TevBasicViewer::m_Slot_AssignMaterial()")) << refused[0].toStdString();
    EXPECT_TRUE(refused[1].contains("TevBasicViewer::m_Slot_AssignMeshSize()")) << refused[1].toStdString();
}

TEST_F(ContextMenuTest, SetAsWorkPlaneFollowsTheFaceLevelAndMakesTheClickedFaceThePlane)
{
    Box(0, 0, 0, 40, 40, 10);
    Show();
    MenuSeen seen = Menu({"Select Level: Face"});
    EXPECT_FALSE(Entry(seen, "Set As WorkPlane").enabled);
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 2);

    Click(gp_Pnt(20, 20, 10));
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_EQ(Sel()[0]->ShapeType(), TopAbs_FACE);
    tevtest::BoxSeen box;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
    seen = Menu({"Set As WorkPlane"});
    EXPECT_TRUE(Entry(seen, "Set As WorkPlane").enabled);
    EXPECT_TRUE(Entry(seen, "Select Level: Face").checked);
    EXPECT_FALSE(Entry(seen, "Select Level: Body").checked);
    EXPECT_EQ(box.text, "Set Face as work plane");
    // The top face lies in z = 10.
    EXPECT_NEAR(viewer->GetCurrentPlane()->Pln().Distance(gp_Pnt(3, -4, 10)), 0.0, 1e-9);

    seen = Menu({"Select Level: Edge"});
    EXPECT_TRUE(Entry(seen, "Set As WorkPlane").enabled);
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 1);
    seen = Menu({"Select Level: Body"});
    EXPECT_FALSE(Entry(seen, "Set As WorkPlane").enabled);
    EXPECT_TRUE(Entry(seen, "Select Level: Edge").checked);
    EXPECT_FALSE(Entry(seen, "Select Level: Face").checked);
    EXPECT_EQ(TevBasicViewerTestPeer::SelectLevel(*viewer), 3);
    seen = Menu();
    EXPECT_FALSE(Entry(seen, "Set As WorkPlane").enabled);
    EXPECT_TRUE(Entry(seen, "Select Level: Body").checked);
    EXPECT_FALSE(Entry(seen, "Select Level: Edge").checked);
}

TEST_F(ContextMenuTest, ConfirmEndsTheRunningOperation)
{
    RecordingOp op;
    DrawOpMgr::GetInstance()->StartOp(&op, viewer.get());
    Menu({"Confirm"});
    EXPECT_EQ(op.CountOf("FinishCurrentOp"), 1);
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(ContextMenuTest, ConfirmEndsAPickingChildAndOnceConnectedTwiceItsParentAsWell)
{
    tevtest::PromptLog log;
    RecordingOp parent;
    PickPointGeneral pick;
    parent.childToStart = &pick;
    DrawOpMgr::GetInstance()->StartOp(&parent, viewer.get());
    ASSERT_EQ(Current(), &pick);
    // First showing: one connection, one run. The child leaves, the parent hears of it and stays.
    Menu({"Confirm"});
    EXPECT_EQ(Current(), &parent);
    EXPECT_EQ(parent.CountOf("ChildActionFinished"), 1);
    EXPECT_EQ(parent.CountOf("FinishCurrentOp"), 0);
    EXPECT_EQ(log.lines.back(), "Pick Done:");

    // Second showing: "Confirm" is connected once more, so one trigger runs the slot twice. The
    // first run ends the child again, the second the parent, whatever its finished flag says.
    DrawOpMgr::GetInstance()->StartOp(&parent, viewer.get());
    ASSERT_EQ(Current(), &pick);
    Menu({"Confirm"});
    EXPECT_EQ(parent.CountOf("ChildActionFinished"), 2);
    EXPECT_EQ(parent.CountOf("FinishCurrentOp"), 1);
    EXPECT_EQ(Current(), nullptr);
    // Third showing, three runs on an empty stack: nothing happens.
    Menu({"Confirm"});
    EXPECT_EQ(parent.CountOf("FinishCurrentOp"), 1);
}

// Two solids that overlap, selected by clicks. A = [0, 40] x [0, 40] x [0, 40], 64000;
// B = [20, 80] x [20, 80] x [0, 20], 72000; their common part is [20, 40] x [20, 40] x [0, 20],
// 8000. In the XY view (10, 10) is on A alone and (60, 60) on B alone.
class BooleanMenuTest : public ContextMenuTest
{
protected:
    void SetUp() override
    {
        ContextMenuTest::SetUp();
        Box(0, 0, 0, 40, 40, 40);
        Box(20, 20, 0, 60, 60, 20);
        m_A = All()[0];
        m_B = All()[1];
    }

    // Clicks the points in order, all but the first with Ctrl held.
    void SelectInOrder(const std::vector<gp_Pnt>& points)
    {
        Show();
        Click(points[0]);
        HoldCtrl(true);
        for (size_t i = 1; i < points.size(); ++i) Click(points[i], Qt::ControlModifier);
        HoldCtrl(false);
        ASSERT_EQ(Sel().size(), points.size());
    }

    static double Volume(const TopoDS_Shape& s)
    {
        GProp_GProps props;
        BRepGProp::VolumeProperties(s, props);
        return props.Mass();
    }

    // The Boolean chosen from the menu leaves one result of `volume` in place of A and B and
    // keeps the selection; one undo brings A and B back exactly.
    void ExpectResultAndUndo(double volume, size_t others = 0)
    {
        const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();
        std::vector<TopoDS_Shape> all = All();
        ASSERT_EQ(all.size(), others + 1);
        EXPECT_NEAR(Volume(all.back()), volume, 1e-6);
        EXPECT_EQ(all.back().ShapeType(), TopAbs_SOLID);
        EXPECT_EQ(Sel().size(), m_selected);
        ASSERT_TRUE(ShapeDocMgr::GetInstance()->Undo());
        EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos - 1);
        all = All();
        ASSERT_EQ(all.size(), others + 2);
        EXPECT_TRUE(all[0].IsEqual(m_A));
        EXPECT_TRUE(all[1].IsEqual(m_B));
        viewer->RefreshViewer();
    }

    void Choose(const char* command, size_t selected)
    {
        m_selected = selected;
        // A loaded X server may close the popup before the choice reaches it; nothing has run
        // then, so the choice is made again from a new showing.
        bool triggered = false;
        for (int attempt = 0; attempt < 3 && !triggered; ++attempt) Menu({"Boolean operation", command}, &triggered);
        EXPECT_TRUE(triggered) << command;
    }

    TopoDS_Shape m_A, m_B;
    size_t m_selected = 0;
};

const gp_Pnt kOnA(10, 10, 40);
const gp_Pnt kOnB(60, 60, 20);

TEST_F(BooleanMenuTest, UniteMakesOneSolidOfBoth)
{
    SelectInOrder({kOnA, kOnB});
    Choose("Unite", 2);
    // 64000 + 72000 - 8000.
    ExpectResultAndUndo(128000.0);
}

TEST_F(BooleanMenuTest, SubtractTakesTheSecondClickedFromTheFirst)
{
    SelectInOrder({kOnA, kOnB});
    Choose("Subtract", 2);
    ExpectResultAndUndo(64000.0 - 8000.0);
    SelectInOrder({kOnB, kOnA});
    Choose("Subtract", 2);
    ExpectResultAndUndo(72000.0 - 8000.0);
}

TEST_F(BooleanMenuTest, IntersectKeepsTheCommonPart)
{
    SelectInOrder({kOnA, kOnB});
    Choose("Intersect", 2);
    ExpectResultAndUndo(8000.0);
}

TEST_F(BooleanMenuTest, SubtractIgnoresAThirdSelectedShape)
{
    // C = [-60, -40] x [-60, -40] x [0, 20], apart from both.
    Box(-60, -60, 0, 20, 20, 20);
    const TopoDS_Shape c = All()[2];
    SelectInOrder({kOnA, kOnB, gp_Pnt(-50, -50, 20)});
    Choose("Subtract", 3);
    ASSERT_EQ(All().size(), 2u);
    EXPECT_TRUE(All()[0].IsEqual(c));
    EXPECT_NEAR(Volume(All()[1]), 56000.0, 1e-6);
}

TEST_F(BooleanMenuTest, FewerThanTwoSelectedShowTheMessageAndChangeNothing)
{
    SelectInOrder({kOnA});
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();
    for (const char* command : {"Unite", "Subtract", "Intersect"}) {
        tevtest::BoxSeen box;
        tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
        Choose(command, 1);
        EXPECT_TRUE(box.shown) << command;
        EXPECT_EQ(box.title, "Title");
        EXPECT_EQ(box.text, "Shape number is too less");
        ASSERT_EQ(All().size(), 2u);
        EXPECT_TRUE(All()[0].IsEqual(m_A));
        EXPECT_TRUE(All()[1].IsEqual(m_B));
        EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
        EXPECT_EQ(Sel().size(), 1u);
    }
}

TEST_F(BooleanMenuTest, ABooleanTheKernelCannotDoIsReportedAndChangesNothing)
{
    // An edge through A along y = 30, z = 20, from x = -10 to 95, past B's x = 80: (90, 30) is on
    // the edge alone.
    ShapeDocMgr::GetInstance()->StartTransaction();
    gp_Pnt from(-10, 30, 20), to(95, 30, 20);
    LineShapeParaCreator().CreateLine(from, to);
    ShapeDocMgr::GetInstance()->EndTransaction();
    const std::vector<TopoDS_Shape> before = All();
    ASSERT_EQ(before.size(), 3u);
    SelectInOrder({kOnA, gp_Pnt(90, 30, 20)});
    ASSERT_EQ(Sel()[1]->ShapeType(), TopAbs_EDGE);
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();

    tevtest::PromptLog log;
    Choose("Unite", 2);
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.levels[0], 2);
    EXPECT_EQ(log.lines[0], "Unite : the geometry kernel cannot combine these shapes");
    const std::vector<TopoDS_Shape> after = All();
    ASSERT_EQ(after.size(), before.size());
    for (size_t i = 0; i < after.size(); ++i) EXPECT_TRUE(after[i].IsEqual(before[i])) << i;
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
}

}  // namespace

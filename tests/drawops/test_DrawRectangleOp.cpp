// The rectangle operation driven by real mouse events: two corners, the thick red band, signed
// sides, the z of the first corner on a tilted work plane, start-over and Escape.
#include "DrawRectangleOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"
#include "TriangleFaceShapeParaCreator.h"

#include <vtkCamera.h>

using tevtest::Lines;

namespace {

class DrawRectangleOpTest : public tevtest::PlanarOpTest
{
protected:
    // The signed side `name` ("DX" or "DY") the creator kept on the shape's label.
    static double Side(const TopoDS_Shape& s, const char* name)
    {
        ShapeParameter p;
        EXPECT_TRUE(BaseShapeParaCreator::GetShapeParameter(LabelOf(s), QString::fromLatin1(name), p));
        return p.values.empty() ? 0.0 : p.values[0];
    }
};

TEST_F(DrawRectangleOpTest, TwoCornersMakeTheRectangle)
{
    tevtest::PromptLog log;
    DrawRectangleOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Rectangle : Input first corner point:"}));
    Move(gp_Pnt(-20, -10, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    Click(gp_Pnt(-20, -10, 0));
    EXPECT_EQ(log.lines, (Lines{"Rectangle : Input first corner point:", "Rectangle : Input second corner point:"}));
    Move(gp_Pnt(30, 20, 0));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    ExpectColour(band, 1.0, 0.2, 0.2);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetOpacity(), 0.8);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetLineWidth(), 3.0);
    EXPECT_EQ(band->GetProperty()->GetRepresentation(), VTK_WIREFRAME);
    vtkDataSet* data = Data(band);
    ASSERT_EQ(data->GetNumberOfPoints(), 4);
    ASSERT_EQ(data->GetNumberOfCells(), 1);
    const double corners[4][2] = {{-20, -10}, {30, -10}, {30, 20}, {-20, 20}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_DOUBLE_EQ(data->GetPoint(i)[0], corners[i][0]);
        EXPECT_DOUBLE_EQ(data->GetPoint(i)[1], corners[i][1]);
        EXPECT_DOUBLE_EQ(data->GetPoint(i)[2], 0.0);
    }
    EXPECT_TRUE(All().empty());

    Click(gp_Pnt(30, 20, 0));
    // The repeat prompt has no blank before its first colon.
    EXPECT_EQ(log.lines, (Lines{"Rectangle : Input first corner point:", "Rectangle : Input second corner point:",
                                "Rectangle: Done", "Rectangle: Input first corner point:"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    EXPECT_TRUE(NothingLeft(op));
    ASSERT_EQ(All().size(), 1u);
    const TopoDS_Shape rect = All()[0];
    EXPECT_EQ(rect.ShapeType(), TopAbs_WIRE);
    EXPECT_EQ(Count(rect, TopAbs_EDGE), 4);
    ASSERT_EQ(Count(rect, TopAbs_VERTEX), 4);
    for (const auto& c : corners) EXPECT_TRUE(HasVertex(rect, gp_Pnt(c[0], c[1], 0)));
    EXPECT_DOUBLE_EQ(Side(rect, "DX"), 50.0);
    EXPECT_DOUBLE_EQ(Side(rect, "DY"), 30.0);
    // One undo step, although the transaction is opened ahead of the bracket too.
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    EXPECT_TRUE(op.GetPointList().empty());

    // It starts over.
    EXPECT_EQ(Current(), &op);
    Click(gp_Pnt(40, 40, 0));
    Click(gp_Pnt(60, 50, 0));
    ASSERT_EQ(All().size(), 2u);
    EXPECT_TRUE(HasVertex(All()[1], gp_Pnt(60, 50, 0)));
    EXPECT_TRUE(HasVertex(All()[1], gp_Pnt(40, 40, 0)));
}

TEST_F(DrawRectangleOpTest, DraggedTowardsNegativeXTheCreatorGetsANegativeWidth)
{
    DrawRectangleOp op;
    Start(&op);
    Click(gp_Pnt(30, 20, 0));
    Move(gp_Pnt(-20, 40, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    Click(gp_Pnt(-20, 40, 0));
    ASSERT_EQ(All().size(), 1u);
    EXPECT_DOUBLE_EQ(Side(All()[0], "DX"), -50.0);
    EXPECT_DOUBLE_EQ(Side(All()[0], "DY"), 20.0);
    for (const gp_Pnt& c : {gp_Pnt(30, 20, 0), gp_Pnt(-20, 20, 0), gp_Pnt(-20, 40, 0), gp_Pnt(30, 40, 0)})
        EXPECT_TRUE(HasVertex(All()[0], c));
}

TEST_F(DrawRectangleOpTest, OnATiltedWorkPlaneTheZDifferenceIsLost)
{
    // A face on the plane z = y / 2, made the work plane.
    TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(-100, -100, -50), gp_Pnt(100, -100, -50), gp_Pnt(0, 100, 50)});
    viewer->RefreshViewer();
    viewer->SetXY();
    viewer->UpdateViewer();
    // The shape is a face itself: the body level selects it.
    Click(gp_Pnt(0, 0, 0));
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList().size(), 1u);
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList()[0]->ShapeType(), TopAbs_FACE);
    tevtest::BoxSeen seen;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &seen);
    viewer->m_Slot_SetFaceAsWorkPlane();
    ASSERT_NEAR(viewer->GetCurrentPlane()->Pln().Distance(gp_Pnt(0, 20, 10)), 0.0, 1e-9);
    SelectionMgr::GetInstance()->ClearSelList();
    // No snapping: the picked points are the clicked pixels on the tilted plane.
    TevPreference* pref = TevPreference::GetInstance();
    pref->snapGrid = pref->snapEndPoint = pref->snapMiddle = pref->snapOnLine = false;

    DrawRectangleOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 5));
    Move(gp_Pnt(40, 50, 25));
    vtkDataSet* data = Data(DrawOpTestPeer::TempActor(op));
    ASSERT_EQ(data->GetNumberOfPoints(), 4);
    const double z0 = data->GetPoint(0)[2];
    const double pixel = 1.5 * 2.0 * viewer->GetDefaultRender()->GetActiveCamera()->GetParallelScale() / viewer->height();
    EXPECT_NEAR(z0, 5.0, pixel);
    for (int i = 1; i < 4; ++i) EXPECT_DOUBLE_EQ(data->GetPoint(i)[2], z0);
    Click(gp_Pnt(40, 50, 25));
    std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 2u);
    const TopoDS_Shape rect = all[1];
    ASSERT_EQ(Count(rect, TopAbs_VERTEX), 4);
    // The whole rectangle lies at the height of the first corner, though the second corner was
    // picked about 20 higher.
    std::vector<gp_Pnt> v = Vertices(rect);
    for (const gp_Pnt& p : v) EXPECT_DOUBLE_EQ(p.Z(), v[0].Z());
    EXPECT_NEAR(v[0].Z(), 5.0, pixel);
    EXPECT_NEAR(Side(rect, "DX"), 30.0, 2 * pixel);
    EXPECT_NEAR(Side(rect, "DY"), 40.0, 2 * pixel);
}

TEST_F(DrawRectangleOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    tevtest::PromptLog log;
    DrawRectangleOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Move(gp_Pnt(20, 20, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    log.Clear();
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Rectangle : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace

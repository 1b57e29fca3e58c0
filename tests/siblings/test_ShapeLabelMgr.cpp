// The shape registry: stable order, names, lookup by shape.
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <TopoDS.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp_Pnt.hxx>
#include <gtest/gtest.h>

namespace {

class ShapeLabelMgrTest : public ::testing::Test
{
protected:
    void SetUp() override { ShapeDocMgr::GetInstance()->NewDocument(); }
    ShapeLabelMgr* reg = ShapeLabelMgr::GetInstance();
    opencascade::handle<TDocStd_Document> doc() { return ShapeDocMgr::GetInstance()->GetDoc(); }
};

TEST_F(ShapeLabelMgrTest, AllShapesInTheOrderTheyWereAdded)
{
    TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 2, 3).Shape();
    TopoDS_Shape edge = BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Shape();
    TopoDS_Shape sphere = BRepPrimAPI_MakeSphere(2).Shape();
    reg->AddNewShapeToDoc(doc(), box);
    reg->AddNewShapeToDoc(doc(), edge);
    reg->AddNewShapeToDoc(doc(), sphere);
    std::vector<TopoDS_Shape> all = reg->GetAllShapes();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_TRUE(all[0].IsSame(box));
    EXPECT_TRUE(all[1].IsSame(edge));
    EXPECT_TRUE(all[2].IsSame(sphere));
    // A second call gives the same order.
    std::vector<TopoDS_Shape> again = reg->GetAllShapes();
    for (size_t i = 0; i < all.size(); ++i) EXPECT_TRUE(all[i].IsSame(again[i]));
}

TEST_F(ShapeLabelMgrTest, DefaultNamesAreTypeAndLabelTag)
{
    TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 2, 3).Shape();
    TopoDS_Shape edge = BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Shape();
    reg->AddNewShapeToDoc(doc(), box);
    reg->AddNewShapeToDoc(doc(), edge);
    TDF_Label boxLabel = reg->FindLabel(box);
    TDF_Label edgeLabel = reg->FindLabel(edge);
    ASSERT_FALSE(boxLabel.IsNull());
    ASSERT_FALSE(edgeLabel.IsNull());
    EXPECT_EQ(reg->GetShapeName(&box), QString("Solid_%1").arg(boxLabel.Tag()));
    EXPECT_EQ(reg->GetShapeName(&edge), QString("Edge_%1").arg(edgeLabel.Tag()));
    EXPECT_NE(reg->GetShapeName(&box), reg->GetShapeName(&edge));
}

TEST_F(ShapeLabelMgrTest, AddShapeToDocUsesThePrefixAndReturnsTheLabel)
{
    TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 2, 3).Shape();
    TDF_Label label = reg->AddShapeToDoc(doc(), box, QString::fromUtf8("Box"));
    ASSERT_FALSE(label.IsNull());
    EXPECT_TRUE(XCAFDoc_ShapeTool::GetShape(label).IsSame(box));
    EXPECT_EQ(reg->GetShapeName(&box), QString("Box_%1").arg(label.Tag()));
    TDF_Label found;
    ASSERT_TRUE(ShapeDocMgr::GetInstance()->GetShapeTool()->FindShape(box, found, Standard_False));
    EXPECT_EQ(found, label);
}

TEST_F(ShapeLabelMgrTest, UnknownAndNullShapes)
{
    TopoDS_Shape stranger = BRepPrimAPI_MakeBox(1, 1, 1).Shape();
    EXPECT_TRUE(reg->GetShapeName(&stranger).isEmpty());
    EXPECT_TRUE(reg->GetShapeName(nullptr).isEmpty());
    TopoDS_Shape null;
    EXPECT_TRUE(reg->AddShapeToDoc(doc(), null, "X").IsNull());
    reg->AddNewShapeToDoc(doc(), null);
    EXPECT_TRUE(reg->GetAllShapes().empty());
    EXPECT_TRUE(reg->AddShapeToDoc(opencascade::handle<TDocStd_Document>(), stranger, "X").IsNull());
}

TEST_F(ShapeLabelMgrTest, TypeNames)
{
    EXPECT_EQ(ShapeLabelMgr::ShapeTypeName(BRepPrimAPI_MakeBox(1, 1, 1).Shape()), "Solid");
    EXPECT_EQ(ShapeLabelMgr::ShapeTypeName(BRepPrimAPI_MakeBox(1, 1, 1).TopFace()), "Face");
    EXPECT_EQ(ShapeLabelMgr::ShapeTypeName(TopoDS_Shape()), "Shape");
}

}  // namespace

namespace {

size_t AddBoxInTransaction(double dx)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(ShapeDocMgr::GetInstance()->GetDoc(),
                                                   BRepPrimAPI_MakeBox(dx, 1, 1).Shape());
    ShapeDocMgr::GetInstance()->EndTransaction();
    return ShapeLabelMgr::GetInstance()->GetAllShapes().size();
}

}  // namespace

// The list is kept between calls, yet every change through the managers shows at once: a
// transaction, an undo, a shape tool taken outside a transaction, a kept document handle.
TEST_F(ShapeLabelMgrTest, TheKeptListFollowsEveryChangeTheManagersSee)
{
    EXPECT_EQ(AddBoxInTransaction(1), 1u);
    EXPECT_EQ(AddBoxInTransaction(2), 2u);
    ShapeDocMgr::GetInstance()->Undo();
    EXPECT_EQ(reg->GetAllShapes().size(), 1u);

    // Outside a transaction, through the shape tool: the access itself makes the list unsure.
    TopoDS_Shape sphere = BRepPrimAPI_MakeSphere(2).Shape();
    ShapeDocMgr::GetInstance()->GetShapeTool()->AddShape(sphere, Standard_False, Standard_False);
    std::vector<TopoDS_Shape> all = reg->GetAllShapes();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_TRUE(all[1].IsSame(sphere));

    // A document handle kept from earlier and AddShapeToDoc outside a transaction.
    opencascade::handle<TDocStd_Document> kept = doc();
    ShapeDocMgr::GetInstance()->StartTransaction();
    ShapeDocMgr::GetInstance()->EndTransaction();
    reg->GetAllShapes();
    reg->AddShapeToDoc(kept, BRepPrimAPI_MakeBox(3, 1, 1).Shape(), "Kept");
    EXPECT_EQ(reg->GetAllShapes().size(), 3u);

    // GetAllShapes and the form with labels agree, in order.
    std::vector<TopoDS_Shape> shapes;
    std::vector<TDF_Label> labels;
    reg->GetAllShapes(shapes, labels);
    ASSERT_EQ(shapes.size(), 3u);
    ASSERT_EQ(labels.size(), 3u);
    for (size_t i = 0; i < shapes.size(); ++i) EXPECT_TRUE(reg->FindLabel(shapes[i]) == labels[i]);
}

// Deliberate limit of the kept list: a change made through a handle kept from before, outside a
// transaction and without MarkChanged, is seen only after ReadAgain (every viewer rebuild calls
// it) or the manager's next change.
TEST_F(ShapeLabelMgrTest, AChangeBehindTheManagersBacksShowsAfterReadAgainOrMarkChanged)
{
    AddBoxInTransaction(1);
    opencascade::handle<XCAFDoc_ShapeTool> tool = ShapeDocMgr::GetInstance()->GetShapeTool();
    ShapeDocMgr::GetInstance()->StartTransaction();
    ShapeDocMgr::GetInstance()->EndTransaction();
    EXPECT_EQ(reg->GetAllShapes().size(), 1u);
    tool->AddShape(BRepPrimAPI_MakeSphere(1).Shape(), Standard_False, Standard_False);
    EXPECT_EQ(reg->GetAllShapes().size(), 1u);
    reg->ReadAgain();
    EXPECT_EQ(reg->GetAllShapes().size(), 2u);
    tool->AddShape(BRepPrimAPI_MakeSphere(2).Shape(), Standard_False, Standard_False);
    ShapeDocMgr::GetInstance()->MarkChanged();
    EXPECT_EQ(reg->GetAllShapes().size(), 3u);
}

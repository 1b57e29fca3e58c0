// The Boolean operations: the expected volumes, the document holding the result instead of the
// operands, one undo step that restores the operands exactly, and one clear message with an
// unchanged document for each Boolean that cannot be made.
#include "SiblingTestSupport.h"

#include "GeometryOp.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <TDF_Label.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <gp_Pnt.hxx>

using namespace sibtest;

namespace {

class Booleans : public SiblingTest
{
protected:
    // A = 10 x 10 x 10 at the origin (1000), B = 10 x 10 x 20 at (5, 5, 5) (2000); they share
    // the cube [5, 10]^3 (125). Each is added in a transaction of its own.
    void SetUp() override
    {
        SiblingTest::SetUp();
        m_A = Add(BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape());
        m_B = Add(BRepPrimAPI_MakeBox(gp_Pnt(5, 5, 5), 10.0, 10.0, 20.0).Shape());
        m_NameA = Name(m_A);
        m_NameB = Name(m_B);
        // A is red and half transparent, B hidden: the result takes A's look.
        BaseShapeParaCreator::SetCommonAttribute(Label(m_A), true, 0.5, gp_Pnt(1.0, 0.0, 0.0));
        BaseShapeParaCreator::SetVisibility(Label(m_B), false);
        m_UndosBefore = Doc()->GetAvailableUndos();
    }

    TopoDS_Shape Add(const TopoDS_Shape& shape)
    {
        Doc()->StartTransaction();
        ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(Doc()->GetDoc(), shape);
        Doc()->EndTransaction();
        return shape;
    }

    static TDF_Label Label(const TopoDS_Shape& s) { return ShapeLabelMgr::GetInstance()->FindLabel(s); }
    static QString Name(TopoDS_Shape s) { return ShapeLabelMgr::GetInstance()->GetShapeName(&s); }

    // The document holds exactly the result, named "<kind>_<tag>", with A's attributes.
    void ExpectOnlyResult(const TopoDS_Shape& result, const char* kind, double volume)
    {
        EXPECT_TRUE(m_Lines.empty()) << (m_Lines.empty() ? std::string() : m_Lines[0].second.toStdString());
        ASSERT_FALSE(result.IsNull());
        EXPECT_TRUE(IsValid(result));
        EXPECT_NEAR(Volume(result), volume, 1e-6);
        std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
        ASSERT_EQ(all.size(), 1u);
        EXPECT_TRUE(all[0].IsSame(result));
        EXPECT_TRUE(Label(m_A).IsNull());
        EXPECT_TRUE(Label(m_B).IsNull());
        TDF_Label label = Label(result);
        ASSERT_FALSE(label.IsNull());
        EXPECT_EQ(Name(result), QString("%1_%2").arg(kind).arg(label.Tag()));
        EXPECT_EQ(BaseShapeParaCreator::GetShapeKind(label), QString(kind));
        bool visible = false;
        double opacity = 0.0;
        gp_Pnt colour;
        BaseShapeParaCreator().GetCommonAttribute(label, visible, opacity, colour);
        EXPECT_TRUE(visible);
        EXPECT_EQ(opacity, 0.5);
        EXPECT_EQ(colour.X(), 1.0);
        EXPECT_EQ(colour.Y(), 0.0);
        EXPECT_EQ(Doc()->GetAvailableUndos(), m_UndosBefore + 1);
        EXPECT_FALSE(Doc()->HasOpenTransaction());
    }

    // The operands are back exactly: same shapes in the same order, names and attributes.
    void ExpectOperandsRestored()
    {
        std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
        ASSERT_EQ(all.size(), 2u);
        EXPECT_TRUE(all[0].IsSame(m_A));
        EXPECT_TRUE(all[1].IsSame(m_B));
        EXPECT_TRUE(all[0].IsEqual(m_A));
        EXPECT_EQ(Name(m_A), m_NameA);
        EXPECT_EQ(Name(m_B), m_NameB);
        bool visible = false;
        double opacity = 0.0;
        gp_Pnt colour;
        TDF_Label a = Label(m_A), b = Label(m_B);
        BaseShapeParaCreator().GetCommonAttribute(a, visible, opacity, colour);
        EXPECT_TRUE(visible);
        EXPECT_EQ(opacity, 0.5);
        EXPECT_EQ(colour.X(), 1.0);
        BaseShapeParaCreator().GetCommonAttribute(b, visible, opacity, colour);
        EXPECT_FALSE(visible);
        EXPECT_EQ(opacity, 1.0);
        EXPECT_NEAR(Volume(all[0]), 1000.0, 1e-6);
        EXPECT_NEAR(Volume(all[1]), 2000.0, 1e-6);
    }

    // One undo takes the whole Boolean back, one redo does it again.
    void ExpectUndoRedo(const TopoDS_Shape& result)
    {
        ASSERT_TRUE(Doc()->Undo());
        ExpectOperandsRestored();
        EXPECT_TRUE(Label(result).IsNull());
        ASSERT_TRUE(Doc()->Redo());
        std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
        ASSERT_EQ(all.size(), 1u);
        EXPECT_TRUE(all[0].IsSame(result));
        EXPECT_TRUE(Label(m_A).IsNull());
    }

    // A refused Boolean: one level-2 line, the document as it was, its history intact.
    void ExpectRefused(const QString& message)
    {
        ASSERT_EQ(m_Lines.size(), 1u) << (m_Lines.empty() ? std::string() : m_Lines.back().second.toStdString());
        EXPECT_EQ(m_Lines[0].first, 2);
        EXPECT_EQ(m_Lines[0].second, message);
        ExpectOperandsRestored();
        EXPECT_EQ(Doc()->GetAvailableUndos(), m_UndosBefore);
        EXPECT_FALSE(Doc()->HasOpenTransaction());
        // Undo and redo still run through the history: the last change was B's visibility.
        ASSERT_TRUE(Doc()->Undo());
        bool visible = false;
        double opacity = 0.0;
        gp_Pnt colour;
        TDF_Label b = Label(m_B);
        BaseShapeParaCreator().GetCommonAttribute(b, visible, opacity, colour);
        EXPECT_TRUE(visible);
        ASSERT_TRUE(Doc()->Redo());
        ExpectOperandsRestored();
    }

    TopoDS_Shape m_A, m_B;
    QString m_NameA, m_NameB;
    int m_UndosBefore = 0;
};

TEST_F(Booleans, UniteMakesOneShapeOfBoth)
{
    std::vector<const TopoDS_Shape*> list{&m_A, &m_B};
    ASSERT_TRUE(GeometryOp::PerformUnite(list));
    std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
    ASSERT_EQ(all.size(), 1u);
    ExpectOnlyResult(all[0], "Unite", 2875.0);
    EXPECT_EQ(all[0].ShapeType(), TopAbs_SOLID);
    // Each box keeps its 3 free faces and 3 faces notched by the other: 12.
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(all[0], TopAbs_FACE, faces);
    EXPECT_EQ(faces.Extent(), 12);
    ShapeParameter p;
    ASSERT_TRUE(BaseShapeParaCreator::GetShapeParameter(Label(all[0]), "Operands", p));
    EXPECT_EQ(p.text, m_NameA + ", " + m_NameB);
    ExpectUndoRedo(all[0]);
}

TEST_F(Booleans, UniteMergesFacesOnOnePlane)
{
    // A and a box shifted along X make one 15 x 10 x 10 box: its faces are merged to 6.
    TopoDS_Shape c = Add(BRepPrimAPI_MakeBox(gp_Pnt(5, 0, 0), 10.0, 10.0, 10.0).Shape());
    std::vector<const TopoDS_Shape*> list{&m_A, &c};
    ASSERT_TRUE(GeometryOp::PerformUnite(list));
    std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
    ASSERT_EQ(all.size(), 2u);  // B stays
    EXPECT_TRUE(all[0].IsSame(m_B));
    EXPECT_NEAR(Volume(all[1]), 1500.0, 1e-6);
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(all[1], TopAbs_FACE, faces);
    EXPECT_EQ(faces.Extent(), 6);
}

TEST_F(Booleans, UniteOfThreeAndARepeatedSelection)
{
    TopoDS_Shape c = Add(BRepPrimAPI_MakeBox(gp_Pnt(20, 0, 0), 5.0, 5.0, 5.0).Shape());  // apart from A and B
    std::vector<const TopoDS_Shape*> list{&m_A, &m_B, &c, &m_A};
    ASSERT_TRUE(GeometryOp::PerformUnite(list));
    EXPECT_TRUE(m_Lines.empty());
    std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
    ASSERT_EQ(all.size(), 1u);
    EXPECT_NEAR(Volume(all[0]), 2875.0 + 125.0, 1e-6);
    ASSERT_TRUE(Doc()->Undo());
    EXPECT_EQ(Count(), 3u);
}

TEST_F(Booleans, SubtractOrderMatters)
{
    TopoDS_Shape aMinusB = GeometryOp::PerformSubtract(m_A, m_B);
    ExpectOnlyResult(aMinusB, "Subtract", 875.0);
    ShapeParameter p;
    ASSERT_TRUE(BaseShapeParaCreator::GetShapeParameter(Label(aMinusB), "Tool", p));
    EXPECT_EQ(p.text, m_NameB);
    ExpectUndoRedo(aMinusB);
    ASSERT_TRUE(Doc()->Undo());
    ExpectOperandsRestored();

    // Now the other way round; B is the object, so the result takes B's look.
    BaseShapeParaCreator::SetCommonAttribute(Label(m_B), true, 0.5, gp_Pnt(1.0, 0.0, 0.0));
    TopoDS_Shape bMinusA = GeometryOp::PerformSubtract(m_B, m_A);
    ASSERT_FALSE(bMinusA.IsNull());
    EXPECT_NEAR(Volume(bMinusA), 1875.0, 1e-6);
    EXPECT_EQ(Count(), 1u);
}

TEST_F(Booleans, IntersectKeepsTheCommonPart)
{
    TopoDS_Shape common = GeometryOp::PerformIneersect(m_A, m_B);
    ExpectOnlyResult(common, "Intersect", 125.0);
    EXPECT_EQ(common.ShapeType(), TopAbs_SOLID);
    std::vector<double> b = Bounds(common);
    EXPECT_NEAR(b[0], 5.0, 1e-7);
    EXPECT_NEAR(b[5], 10.0, 1e-7);
    ExpectUndoRedo(common);
}

TEST_F(Booleans, UniteNeedsTwoShapes)
{
    std::vector<const TopoDS_Shape*> one{&m_A};
    EXPECT_FALSE(GeometryOp::PerformUnite(one));
    ExpectRefused("Unite : at least two different shapes are needed");
}

TEST_F(Booleans, UniteOfAShapeWithItselfIsRefused)
{
    std::vector<const TopoDS_Shape*> same{&m_A, &m_A};
    EXPECT_FALSE(GeometryOp::PerformUnite(same));
    ExpectRefused("Unite : at least two different shapes are needed");
}

TEST_F(Booleans, SubtractOfAShapeFromItselfIsRefused)
{
    EXPECT_TRUE(GeometryOp::PerformSubtract(m_A, m_A).IsNull());
    ExpectRefused("Subtract : the two operands are the same shape");
}

TEST_F(Booleans, OperandsOutsideTheDocumentAreRefused)
{
    TopoDS_Shape stranger = BRepPrimAPI_MakeBox(3.0, 3.0, 3.0).Shape();
    EXPECT_TRUE(GeometryOp::PerformIneersect(m_A, stranger).IsNull());
    ExpectRefused("Intersect : an operand is not a whole shape of the document");
}

TEST_F(Booleans, NullOperandIsRefused)
{
    TopoDS_Shape null;
    EXPECT_TRUE(GeometryOp::PerformSubtract(m_A, null).IsNull());
    ExpectRefused("Subtract : an operand is an empty shape");
}

TEST_F(Booleans, DisjointIntersectIsRefused)
{
    TopoDS_Shape far = Add(BRepPrimAPI_MakeBox(gp_Pnt(100, 0, 0), 1.0, 1.0, 1.0).Shape());
    const size_t count = Count();
    const int undos = Doc()->GetAvailableUndos();
    EXPECT_TRUE(GeometryOp::PerformIneersect(m_A, far).IsNull());
    ASSERT_EQ(m_Lines.size(), 1u);
    EXPECT_EQ(m_Lines[0].first, 2);
    EXPECT_EQ(m_Lines[0].second, "Intersect : the shapes have no common part");
    EXPECT_EQ(Count(), count);
    EXPECT_EQ(Doc()->GetAvailableUndos(), undos);
    ASSERT_TRUE(Doc()->Undo());
    EXPECT_EQ(Count(), count - 1);
    ASSERT_TRUE(Doc()->Redo());
    EXPECT_EQ(Count(), count);
}

TEST_F(Booleans, SubtractThatLeavesNothingIsRefused)
{
    TopoDS_Shape inner = Add(BRepPrimAPI_MakeBox(gp_Pnt(1, 1, 1), 2.0, 2.0, 2.0).Shape());
    const size_t count = Count();
    EXPECT_TRUE(GeometryOp::PerformSubtract(inner, m_A).IsNull());
    ASSERT_EQ(m_Lines.size(), 1u);
    EXPECT_EQ(m_Lines[0].second, "Subtract : the result is empty");
    EXPECT_EQ(Count(), count);
    EXPECT_FALSE(Label(inner).IsNull());
}

TEST_F(Booleans, KernelFailureIsRefused)
{
    // A solid and an edge cannot be fused: the kernel reports it.
    TopoDS_Shape edge = Add(BRepBuilderAPI_MakeEdge(gp_Pnt(-5, 5, 5), gp_Pnt(20, 5, 5)).Edge());
    const size_t count = Count();
    std::vector<const TopoDS_Shape*> list{&m_A, &edge};
    EXPECT_FALSE(GeometryOp::PerformUnite(list));
    ASSERT_EQ(m_Lines.size(), 1u);
    EXPECT_EQ(m_Lines[0].first, 2);
    EXPECT_EQ(m_Lines[0].second, "Unite : the geometry kernel cannot combine these shapes");
    EXPECT_EQ(Count(), count);
    ASSERT_TRUE(Doc()->Undo());
    EXPECT_EQ(Count(), count - 1);
    ASSERT_TRUE(Doc()->Redo());
    EXPECT_EQ(Count(), count);
}

}  // namespace

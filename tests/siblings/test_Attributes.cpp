// Common attributes and parameters on shape labels: defaults, setters, clamping, undo.
#include "SiblingTestSupport.h"

#include "BoxShapeParaCreator.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp.hxx>

using namespace sibtest;

namespace {

class Attributes : public SiblingTest
{
protected:
    static void Read(const TDF_Label& label, bool& visible, double& opacity, gp_Pnt& colour)
    {
        TDF_Label l = label;
        BaseShapeParaCreator().GetCommonAttribute(l, visible, opacity, colour);
    }
};

TEST_F(Attributes, AddNewShapeToDocGivesTheDefaults)
{
    TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 1, 1).Shape();
    ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(Doc()->GetDoc(), box);
    TDF_Label label = ShapeLabelMgr::GetInstance()->FindLabel(box);
    ASSERT_FALSE(label.IsNull());
    EXPECT_TRUE(BaseShapeParaCreator::HasCommonAttribute(label));
    bool visible = false;
    double opacity = 0.0;
    gp_Pnt colour;
    Read(label, visible, opacity, colour);
    EXPECT_TRUE(visible);
    EXPECT_EQ(opacity, 1.0);
    EXPECT_EQ(colour.X(), 0.27);
    EXPECT_EQ(colour.Y(), 0.51);
    EXPECT_EQ(colour.Z(), 0.71);
    // No creator made it: no kind and no parameters.
    EXPECT_TRUE(BaseShapeParaCreator::GetShapeKind(label).isEmpty());
    EXPECT_TRUE(BaseShapeParaCreator::GetShapeParameters(label).empty());
}

TEST_F(Attributes, NullAndBareLabelsReadAsDefaults)
{
    bool visible = false;
    double opacity = 0.0;
    gp_Pnt colour(9, 9, 9);
    Read(TDF_Label(), visible, opacity, colour);
    EXPECT_TRUE(visible);
    EXPECT_EQ(opacity, 1.0);
    EXPECT_EQ(colour.X(), 0.27);
    // A label that XCAF made without our attributes.
    TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 1, 1).Shape();
    TDF_Label bare = Doc()->GetShapeTool()->AddShape(box, Standard_False, Standard_False);
    EXPECT_FALSE(BaseShapeParaCreator::HasCommonAttribute(bare));
    visible = false;
    Read(bare, visible, opacity, colour);
    EXPECT_TRUE(visible);
    EXPECT_EQ(colour.Z(), 0.71);
    // Setters do nothing with a null label.
    BaseShapeParaCreator::SetCommonAttribute(TDF_Label(), false, 0.2, gp_Pnt(1, 1, 1));
    EXPECT_EQ(Doc()->GetAvailableUndos(), 0);
}

TEST_F(Attributes, SettersWriteClampAndUndo)
{
    TDF_Label label = BoxShapeParaCreator().CreateBox(gp_Ax2(), 1.0, 2.0, 3.0);
    ASSERT_FALSE(label.IsNull());
    const int undos = Doc()->GetAvailableUndos();
    BaseShapeParaCreator::SetCommonAttribute(label, false, 0.25, gp_Pnt(0.1, 0.2, 0.3));
    bool visible = true;
    double opacity = 0.0;
    gp_Pnt colour;
    Read(label, visible, opacity, colour);
    EXPECT_FALSE(visible);
    EXPECT_EQ(opacity, 0.25);
    EXPECT_EQ(colour.X(), 0.1);
    EXPECT_EQ(colour.Y(), 0.2);
    EXPECT_EQ(colour.Z(), 0.3);
    // Without a bracket of the caller each setter is an undo step of its own.
    EXPECT_EQ(Doc()->GetAvailableUndos(), undos + 1);

    BaseShapeParaCreator::SetOpacity(label, 7.0);
    BaseShapeParaCreator::SetColour(label, gp_Pnt(-1.0, 0.5, 2.0));
    BaseShapeParaCreator::SetVisibility(label, true);
    Read(label, visible, opacity, colour);
    EXPECT_TRUE(visible);
    EXPECT_EQ(opacity, 1.0);
    EXPECT_EQ(colour.X(), 0.0);
    EXPECT_EQ(colour.Y(), 0.5);
    EXPECT_EQ(colour.Z(), 1.0);
    EXPECT_EQ(Doc()->GetAvailableUndos(), undos + 4);

    ASSERT_TRUE(Doc()->Undo());
    ASSERT_TRUE(Doc()->Undo());
    ASSERT_TRUE(Doc()->Undo());
    Read(label, visible, opacity, colour);
    EXPECT_FALSE(visible);
    EXPECT_EQ(opacity, 0.25);
    EXPECT_EQ(colour.X(), 0.1);
    ASSERT_TRUE(Doc()->Undo());
    Read(label, visible, opacity, colour);
    EXPECT_TRUE(visible);
    EXPECT_EQ(opacity, 1.0);
    EXPECT_EQ(colour.Z(), 0.71);
    ASSERT_TRUE(Doc()->Redo());
    Read(label, visible, opacity, colour);
    EXPECT_EQ(opacity, 0.25);
}

TEST_F(Attributes, SettersInsideABracketJoinIt)
{
    TDF_Label label = BoxShapeParaCreator().CreateBox(gp_Ax2(), 1.0, 2.0, 3.0);
    const int undos = Doc()->GetAvailableUndos();
    Doc()->StartTransaction();
    BaseShapeParaCreator::SetOpacity(label, 0.4);
    BaseShapeParaCreator::SetVisibility(label, false);
    Doc()->EndTransaction();
    EXPECT_EQ(Doc()->GetAvailableUndos(), undos + 1);
    ASSERT_TRUE(Doc()->Undo());
    bool visible = false;
    double opacity = 0.0;
    gp_Pnt colour;
    Read(label, visible, opacity, colour);
    EXPECT_TRUE(visible);
    EXPECT_EQ(opacity, 1.0);
}

TEST_F(Attributes, ParametersKeepTheirOrderAndTexts)
{
    TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 1, 1).Shape();
    ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(Doc()->GetDoc(), box);
    TDF_Label label = ShapeLabelMgr::GetInstance()->FindLabel(box);
    BaseShapeParaCreator::SetShapeParameters(
        label, "Custom",
        {ShapeParameter{"Zeta", {3.0}, QString()}, ShapeParameter{"Alpha", {1.0, 2.0, 3.0}, QString()},
         ShapeParameter{"Source", {}, QString::fromUtf8("Kante_7 \xc3\xa4")}, ShapeParameter{"@Hidden", {1.0}, QString()}});
    EXPECT_EQ(BaseShapeParaCreator::GetShapeKind(label), "Custom");
    std::vector<ShapeParameter> params = BaseShapeParaCreator::GetShapeParameters(label);
    ASSERT_EQ(params.size(), 3u);
    EXPECT_EQ(params[0].name, "Zeta");
    EXPECT_EQ(params[0].values, (std::vector<double>{3.0}));
    EXPECT_EQ(params[1].name, "Alpha");
    EXPECT_EQ(params[1].values, (std::vector<double>{1.0, 2.0, 3.0}));
    EXPECT_EQ(params[2].name, "Source");
    EXPECT_TRUE(params[2].values.empty());
    EXPECT_EQ(params[2].text, QString::fromUtf8("Kante_7 \xc3\xa4"));
    ShapeParameter p;
    EXPECT_FALSE(BaseShapeParaCreator::GetShapeParameter(label, "Missing", p));
    EXPECT_FALSE(BaseShapeParaCreator::GetShapeParameter(label, "@Kind", p));
}

}  // namespace

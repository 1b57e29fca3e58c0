// Shared helpers of the sibling tests: a fresh document per test, the level-2 lines that
// DrawerOutput emits, and measures of shapes.
#ifndef SIBLINGTESTSUPPORT_H
#define SIBLINGTESTSUPPORT_H

#include "BaseShapeParaCreator.h"
#include "DrawerOutput.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <BRepBndLib.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace sibtest {

inline double Length(const TopoDS_Shape& s)
{
    GProp_GProps p;
    BRepGProp::LinearProperties(s, p);
    return p.Mass();
}

inline double Area(const TopoDS_Shape& s)
{
    GProp_GProps p;
    BRepGProp::SurfaceProperties(s, p);
    return p.Mass();
}

inline double Volume(const TopoDS_Shape& s)
{
    GProp_GProps p;
    BRepGProp::VolumeProperties(s, p);
    return p.Mass();
}

// xmin, ymin, zmin, xmax, ymax, zmax of the exact bounding box.
inline std::vector<double> Bounds(const TopoDS_Shape& s)
{
    Bnd_Box box;
    BRepBndLib::AddOptimal(s, box, Standard_False, Standard_False);
    double b[6];
    box.Get(b[0], b[1], b[2], b[3], b[4], b[5]);
    return std::vector<double>(b, b + 6);
}

inline bool IsValid(const TopoDS_Shape& s)
{
    return !s.IsNull() && BRepCheck_Analyzer(s).IsValid();
}

inline size_t Count()
{
    return ShapeLabelMgr::GetInstance()->GetAllShapes().size();
}

inline ShapeDocMgr* Doc()
{
    return ShapeDocMgr::GetInstance();
}

// Fresh document, and every DrawerOutput line of the test collected.
class SiblingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Doc()->NewDocument();
        m_Connection = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                        [this](int level, QString text) { m_Lines.emplace_back(level, text); });
    }
    void TearDown() override { QObject::disconnect(m_Connection); }

    // A box registered in its own transaction: the document then has one shape and one undo.
    TopoDS_Shape AddReferenceBox()
    {
        TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape();
        Doc()->StartTransaction();
        ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(Doc()->GetDoc(), box);
        Doc()->EndTransaction();
        return box;
    }

    // The checks of a rejected input: one level-2 line with exactly `message`, a null label,
    // the document as before, and undo and redo still working on the reference box.
    void ExpectRejected(const TDF_Label& label, const QString& message, size_t countBefore, int undosBefore)
    {
        EXPECT_TRUE(label.IsNull());
        ASSERT_EQ(m_Lines.size(), 1u) << (m_Lines.empty() ? std::string() : m_Lines.back().second.toStdString());
        EXPECT_EQ(m_Lines[0].first, 2);
        EXPECT_EQ(m_Lines[0].second, message);
        EXPECT_EQ(Count(), countBefore);
        EXPECT_FALSE(Doc()->HasOpenTransaction());
        EXPECT_EQ(Doc()->GetAvailableUndos(), undosBefore);
        ASSERT_TRUE(Doc()->Undo());
        EXPECT_EQ(Count(), countBefore - 1);
        ASSERT_TRUE(Doc()->Redo());
        EXPECT_EQ(Count(), countBefore);
    }

    // The checks of a new shape: in the document, found again, named "<kind>_<tag>", with the
    // default attributes and its kind, and no message. Returns the shape.
    TopoDS_Shape ExpectRegistered(const TDF_Label& label, const char* kind)
    {
        EXPECT_TRUE(m_Lines.empty()) << (m_Lines.empty() ? std::string() : m_Lines[0].second.toStdString());
        if (label.IsNull()) {
            ADD_FAILURE() << "null label for " << kind;
            return TopoDS_Shape();
        }
        TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
        EXPECT_FALSE(shape.IsNull());
        TDF_Label found;
        EXPECT_TRUE(Doc()->GetShapeTool()->FindShape(shape, found, Standard_False));
        EXPECT_EQ(found, label);
        bool listed = false;
        for (const TopoDS_Shape& s : ShapeLabelMgr::GetInstance()->GetAllShapes()) listed = listed || s.IsSame(shape);
        EXPECT_TRUE(listed);
        EXPECT_EQ(ShapeLabelMgr::GetInstance()->GetShapeName(&shape), QString("%1_%2").arg(kind).arg(label.Tag()));
        EXPECT_TRUE(BaseShapeParaCreator::HasCommonAttribute(label));
        bool visible = false;
        double opacity = 0.0;
        gp_Pnt colour;
        TDF_Label l = label;
        BaseShapeParaCreator().GetCommonAttribute(l, visible, opacity, colour);
        EXPECT_TRUE(visible);
        EXPECT_EQ(opacity, 1.0);
        EXPECT_EQ(colour.X(), 0.27);
        EXPECT_EQ(colour.Y(), 0.51);
        EXPECT_EQ(colour.Z(), 0.71);
        EXPECT_EQ(BaseShapeParaCreator::GetShapeKind(label), QString(kind));
        EXPECT_TRUE(IsValid(shape));
        return shape;
    }

    std::vector<std::pair<int, QString>> m_Lines;

private:
    QMetaObject::Connection m_Connection;
};

}  // namespace sibtest

#endif

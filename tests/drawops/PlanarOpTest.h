// The fixture of the planar curve operation tests: a shown viewer in the XY view with an empty
// document, clicks and moves at world points by real mouse events, and measures of the shapes
// the document gained.
#ifndef PLANAROPTEST_H
#define PLANAROPTEST_H

#include "GuiTestSupport.h"
#include "DrawOpTestPeer.h"
#include "PolygonNumInputDlg.h"
#include "PromptLog.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevPreference.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepGProp.hxx>
#include <BRep_Tool.hxx>
#include <GProp_GProps.hxx>
#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>
#include <vtkDataSet.h>
#include <vtkMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <memory>
#include <vector>

namespace tevtest {

using Lines = std::vector<QString>;

class PlanarOpTest : public ViewerTest
{
protected:
    void SetUp() override
    {
        ViewerTest::SetUp();
        ShapeDocMgr::GetInstance()->NewDocument();
        SelectionMgr::GetInstance()->ClearSelList();
        TevPreference::GetInstance()->Reset();
        viewer->RefreshViewer();
    }
    void TearDown() override
    {
        SelectionMgr::GetInstance()->ClearSelList();
        TevPreference::GetInstance()->Reset();
        ViewerTest::TearDown();
    }

    void Start(IDrawOp* op) { DrawOpMgr::GetInstance()->StartOp(op, viewer.get()); }
    void Click(const gp_Pnt& p)
    {
        QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, WorldToWidget(viewer.get(), p));
    }
    void Move(const gp_Pnt& p) { MouseMove(viewer.get(), WorldToWidget(viewer.get(), p)); }
    void Escape() { QTest::keyClick(viewer.get(), Qt::Key_Escape); }

    bool Shown(vtkActor* a) { return a && viewer->GetDefaultRender()->HasViewProp(a); }
    // Neither rubber band of `op` is left in the renderer.
    bool NothingLeft(DrawOpCommon& op) { return !Shown(DrawOpTestPeer::TempActor(op)) && !Shown(DrawOpTestPeer::TempActor2(op)); }
    std::vector<TopoDS_Shape> All() { return ShapeLabelMgr::GetInstance()->GetAllShapes(); }
    IDrawOp* Current() { return DrawOpMgr::GetInstance()->GetCurrentOp(); }

    // The data an actor draws, brought up to date.
    static vtkDataSet* Data(vtkActor* a)
    {
        a->GetMapper()->Update();
        return a->GetMapper()->GetInput();
    }
    static void ExpectColour(vtkActor* a, double r, double g, double b)
    {
        const double* c = a->GetProperty()->GetColor();
        EXPECT_DOUBLE_EQ(c[0], r);
        EXPECT_DOUBLE_EQ(c[1], g);
        EXPECT_DOUBLE_EQ(c[2], b);
    }

    static void Ends(const TopoDS_Shape& edge, gp_Pnt& a, gp_Pnt& b)
    {
        TopoDS_Vertex v0, v1;
        TopExp::Vertices(TopoDS::Edge(edge), v0, v1);
        a = BRep_Tool::Pnt(v0);
        b = BRep_Tool::Pnt(v1);
    }
    static int Count(const TopoDS_Shape& s, TopAbs_ShapeEnum type)
    {
        TopTools_IndexedMapOfShape map;
        TopExp::MapShapes(s, type, map);
        return map.Extent();
    }
    static std::vector<gp_Pnt> Vertices(const TopoDS_Shape& s)
    {
        TopTools_IndexedMapOfShape map;
        TopExp::MapShapes(s, TopAbs_VERTEX, map);
        std::vector<gp_Pnt> out;
        for (int i = 1; i <= map.Extent(); ++i) out.push_back(BRep_Tool::Pnt(TopoDS::Vertex(map(i))));
        return out;
    }
    static bool HasVertex(const TopoDS_Shape& s, const gp_Pnt& p, double tol = 1e-9)
    {
        for (const gp_Pnt& v : Vertices(s))
            if (v.IsEqual(p, tol)) return true;
        return false;
    }
    static double Area(const TopoDS_Shape& s)
    {
        GProp_GProps props;
        BRepGProp::SurfaceProperties(s, props);
        return props.Mass();
    }

    // The label of a shape of the document.
    static TDF_Label LabelOf(const TopoDS_Shape& s)
    {
        return ShapeDocMgr::GetInstance()->GetShapeTool()->FindShape(s, Standard_False);
    }
};

// What the polygon dialog showed before it was answered.
using PolygonDialogSeen = DialogSeen;

// Answers the next PolygonNumInputDlg: types `text` as its edge number and clicks OK, or clicks
// Cancel when `ok` is false. Call before the click that opens it.
inline void AnswerPolygonDialog(const QString& text, bool ok, PolygonDialogSeen* seen)
{
    std::vector<FieldText> fields;
    if (ok) fields.push_back({QString::fromLatin1("lineEdit_EdgeNumber"), text});
    AnswerNextDialog("PolygonNumInputDlg", fields, ok, seen);
}

}  // namespace tevtest

#endif

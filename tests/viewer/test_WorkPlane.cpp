// The work plane: principal planes with their grids, and a selected planar face as the plane.
#include "BoxShapeParaCreator.h"
#include "DrawerOutput.h"
#include "GeoGridDrawer.h"
#include "GuiTestSupport.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <GeomLib_IsPlanarSurface.hxx>
#include <Geom_Line.hxx>
#include <Geom_SurfaceOfRevolution.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Pln.hxx>
#include <vtkCamera.h>
#include <vtkDataSet.h>
#include <vtkMapper.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>

using tevtest::DocumentViewerTest;

namespace {

class WorkPlaneTest : public DocumentViewerTest
{
protected:

    // Runs the slot with every message box answered; returns their texts in order.
    std::vector<QString> SetFaceAsWorkPlane(int boxes)
    {
        std::vector<tevtest::BoxSeen> seen;
        tevtest::AnswerMessageBoxes(boxes, QMessageBox::Ok, &seen);
        viewer->m_Slot_SetFaceAsWorkPlane();
        QTest::qWait(30);
        std::vector<QString> texts;
        for (const auto& b : seen) {
            EXPECT_EQ(b.title, "Title");
            texts.push_back(b.text);
        }
        return texts;
    }

    gp_Pln Plane() { return viewer->GetCurrentPlane()->Pln(); }

    // Visibility of the three grid actors of the viewer's grid, by the order they were added.
    std::vector<int> GridVisibility()
    {
        std::vector<int> v;
        vtkPropCollection* props = viewer->GetDefaultRender()->GetViewProps();
        props->InitTraversal();
        while (vtkProp* p = props->GetNextProp())
            if (vtkActor* a = vtkActor::SafeDownCast(p))
                if (a->GetMapper() && a->GetMapper()->GetInput() && a->GetMapper()->GetInput()->IsA("vtkRectilinearGrid"))
                    v.push_back(a->GetVisibility());
        return v;
    }
};

TEST_F(WorkPlaneTest, TheXYPlaneAndItsGridComeFirst)
{
    ASSERT_NE(viewer->GetGrid(), nullptr);
    EXPECT_EQ(GridVisibility(), (std::vector<int>{1, 0, 0}));
    std::vector<gp_Pnt> pts = viewer->GetCurrentPlanePoints();
    ASSERT_EQ(pts.size(), 441u);
    for (const gp_Pnt& p : pts) EXPECT_EQ(p.Z(), 0.0);
    EXPECT_TRUE(Plane().Axis().Direction().IsParallel(gp_Dir(0, 0, 1), 1e-12));
    EXPECT_TRUE(Plane().Location().IsEqual(gp_Pnt(0, 0, 0), 0));
}

TEST_F(WorkPlaneTest, EnablingAPlaneSwitchesGridAndPoints)
{
    viewer->EnableYZPlane();
    EXPECT_EQ(GridVisibility(), (std::vector<int>{0, 0, 1}));
    std::vector<gp_Pnt> pts = viewer->GetCurrentPlanePoints();
    ASSERT_EQ(pts.size(), 441u);
    for (const gp_Pnt& p : pts) EXPECT_EQ(p.X(), 0.0);
    EXPECT_TRUE(Plane().Axis().Direction().IsParallel(gp_Dir(1, 0, 0), 1e-12));
    viewer->EnableXZPlane();
    EXPECT_EQ(GridVisibility(), (std::vector<int>{0, 1, 0}));
    for (const gp_Pnt& p : viewer->GetCurrentPlanePoints()) EXPECT_EQ(p.Y(), 0.0);
    viewer->EnableXYPlane();
    EXPECT_EQ(GridVisibility(), (std::vector<int>{1, 0, 0}));
    // The returned list is a copy.
    pts.clear();
    EXPECT_EQ(viewer->GetCurrentPlanePoints().size(), 441u);
}

TEST_F(WorkPlaneTest, EnablingAPlaneDoesNotMoveTheCamera)
{
    vtkCamera* cam = viewer->GetDefaultRender()->GetActiveCamera();
    double before[3], after[3];
    cam->GetPosition(before);
    viewer->EnableXZPlane();
    cam->GetPosition(after);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(before[i], after[i]);
}

TEST_F(WorkPlaneTest, ASelectedBoxFaceBecomesThePlane)
{
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 10, 10, 7);
    viewer->RefreshViewer();
    viewer->SetXY();
    viewer->UpdateViewer();
    viewer->m_Slot_SetSelectionFace();
    QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, tevtest::WorldToWidget(viewer.get(), gp_Pnt(5, 5, 7)));
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList().size(), 1u);
    EXPECT_EQ(SetFaceAsWorkPlane(1), (std::vector<QString>{"Set Face as work plane"}));
    // The top face z = 7: a point of it lies on the plane, the normals are parallel.
    EXPECT_NEAR(Plane().Distance(gp_Pnt(3, 4, 7)), 0.0, 1e-9);
    EXPECT_TRUE(Plane().Axis().Direction().IsParallel(gp_Dir(0, 0, 1), 1e-9));
    // The grid stays that of the XY plane.
    EXPECT_EQ(GridVisibility(), (std::vector<int>{1, 0, 0}));
    EXPECT_EQ(viewer->GetCurrentPlanePoints().size(), 441u);
    viewer->EnableXYPlane();
    EXPECT_NEAR(Plane().Distance(gp_Pnt(3, 4, 7)), 7.0, 1e-9);
}

TEST_F(WorkPlaneTest, WithTwoFacesSelectedTheFirstIsUsed)
{
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 10, 10, 7);
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(30, 0, 0), gp_Dir(0, 0, 1)), 10, 10, 3);
    std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
    TopoDS_Shape top2 = BRepPrimAPI_MakeBox(gp_Pnt(30, 0, 0), 10, 10, 3).TopFace();
    TopoDS_Shape top1 = BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), 10, 10, 7).TopFace();
    SelectionMgr::GetInstance()->AddToSelectionList(&top2);
    SelectionMgr::GetInstance()->AddToSelectionList(&top1);
    EXPECT_EQ(SetFaceAsWorkPlane(1).size(), 1u);
    EXPECT_NEAR(Plane().Distance(gp_Pnt(35, 5, 3)), 0.0, 1e-9);
}

TEST_F(WorkPlaneTest, EachRefusalShowsItsTextAndKeepsThePlane)
{
    const gp_Pln before = Plane();
    auto unchanged = [&]() {
        EXPECT_TRUE(Plane().Axis().Direction().IsEqual(before.Axis().Direction(), 1e-12));
        EXPECT_TRUE(Plane().Location().IsEqual(before.Location(), 1e-12));
    };
    EXPECT_EQ(SetFaceAsWorkPlane(2), (std::vector<QString>{"Set Face as work plane", "Shape number is too less"}));
    unchanged();

    TopoDS_Shape solid = BRepPrimAPI_MakeBox(10, 10, 10).Shape();
    SelectionMgr::GetInstance()->AddToSelectionList(&solid);
    EXPECT_EQ(SetFaceAsWorkPlane(2), (std::vector<QString>{"Set Face as work plane", "Select Face first"}));
    unchanged();

    SelectionMgr::GetInstance()->ClearSelList();
    TopoDS_Shape cylinder = BRepPrimAPI_MakeCylinder(5, 10).Shape();
    TopoDS_Shape side;
    for (TopExp_Explorer e(cylinder, TopAbs_FACE); e.More() && side.IsNull(); e.Next())
        if (BRepAdaptor_Surface(TopoDS::Face(e.Current())).GetType() == GeomAbs_Cylinder) side = e.Current();
    ASSERT_FALSE(side.IsNull());
    SelectionMgr::GetInstance()->AddToSelectionList(&side);
    EXPECT_EQ(SetFaceAsWorkPlane(2),
              (std::vector<QString>{"Set Face as work plane", "Please select Planar Face as work plane"}));
    unchanged();
}

TEST_F(WorkPlaneTest, APlanarSurfaceDegenerateAtItsParametersKeepsThePlane)
{
    // A disc swept by a segment from the axis: S(1, 0) is the centre again, like S(0, 0).
    opencascade::handle<Geom_Line> radius = new Geom_Line(gp_Pnt(0, 0, 5), gp_Dir(1, 0, 0));
    opencascade::handle<Geom_SurfaceOfRevolution> sweep =
        new Geom_SurfaceOfRevolution(radius, gp_Ax1(gp_Pnt(0, 0, 5), gp_Dir(0, 0, 1)));
    ASSERT_TRUE(sweep->Value(1, 0).IsEqual(sweep->Value(0, 0), 1e-12));
    TopoDS_Shape face = BRepBuilderAPI_MakeFace(sweep, 0, 2 * M_PI, 0, 10, 1e-7).Shape();
    ASSERT_FALSE(face.IsNull());
    ASSERT_TRUE(GeomLib_IsPlanarSurface(sweep, 1e-7).IsPlanar());
    SelectionMgr::GetInstance()->AddToSelectionList(&face);
    std::vector<std::pair<int, QString>> lines;
    QMetaObject::Connection c = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                                 [&lines](int l, QString t) { lines.emplace_back(l, t); });
    const gp_Pln before = Plane();
    EXPECT_EQ(SetFaceAsWorkPlane(1).size(), 1u);
    QObject::disconnect(c);
    EXPECT_TRUE(Plane().Location().IsEqual(before.Location(), 1e-12));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].first, 2);
    EXPECT_TRUE(lines[0].second.startsWith("Set Face as work plane : "));
}

TEST(WorkPlaneBare, AMeshViewHasNoPlaneAndNoGrid)
{
    auto bare = tevtest::MakeShownViewer("CAE-TevViewer");
    EXPECT_EQ(bare->GetGrid(), nullptr);
    EXPECT_TRUE(bare->GetCurrentPlane().IsNull());
    EXPECT_TRUE(bare->GetCurrentPlanePoints().empty());
}

}  // namespace

// The picture of the document: rebuilds, the actor maps, per-shape colour, opacity and
// visibility, the display slots, and what the rendered image shows.
#include "BaseShapeParaCreator.h"
#include "BoxShapeParaCreator.h"
#include "DrawerOutput.h"
#include "GuiTestSupport.h"
#include "RenderTypeMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "ShapeRenderTool.h"
#include "TevBasicViewerTestPeer.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <QSignalSpy>
#include <vtkProperty.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>

using tevtest::ViewerTest;

namespace {

class ShapeDisplayTest : public ViewerTest
{
protected:
    void SetUp() override
    {
        ViewerTest::SetUp();
        ShapeDocMgr::GetInstance()->NewDocument();
    }

    static TDF_Label Box(double x, double dx)
    {
        ShapeDocMgr::GetInstance()->StartTransaction();
        TDF_Label label = BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(x, 0, 0), gp_Dir(0, 0, 1)), dx, 10, 10);
        ShapeDocMgr::GetInstance()->EndTransaction();
        return label;
    }

    int PropCount() { return viewer->GetDefaultRender()->GetViewProps()->GetNumberOfItems(); }
    bool Rendered(vtkActor* a) { return a && viewer->GetDefaultRender()->HasViewProp(a); }
    TopoDS_Shape Nth(size_t i) { return ShapeLabelMgr::GetInstance()->GetAllShapes().at(i); }
};

TEST_F(ShapeDisplayTest, EmptyDocumentIsAValidPicture)
{
    const int before = PropCount();
    QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
    viewer->RefreshViewer();
    EXPECT_EQ(PropCount(), before);
    EXPECT_TRUE(TevBasicViewerTestPeer::ActorByShape(*viewer).empty());
    EXPECT_TRUE(TevBasicViewerTestPeer::PickerByShape(*viewer).empty());
    EXPECT_EQ(updated.count(), 1);
}

TEST_F(ShapeDisplayTest, RefreshWithTwoShapesHoldsTwoActorsWhileTheHistoryGrows)
{
    Box(0, 10);
    Box(20, 10);
    const int fixed = PropCount();
    viewer->RefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 2u);
    EXPECT_EQ(TevBasicViewerTestPeer::PickerByShape(*viewer).size(), 2u);
    EXPECT_EQ(PropCount(), fixed + 2);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeActors(*viewer).size(), 2u);
    viewer->RefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 2u);
    EXPECT_EQ(PropCount(), fixed + 2);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeActors(*viewer).size(), 4u);
    for (const auto& entry : TevBasicViewerTestPeer::ActorByShape(*viewer)) EXPECT_TRUE(Rendered(entry.second));
    // Same keys in both maps.
    auto a = TevBasicViewerTestPeer::ActorByShape(*viewer).begin();
    for (const auto& p : TevBasicViewerTestPeer::PickerByShape(*viewer)) EXPECT_EQ(p.first, (a++)->first);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).size(), 2u);
}

TEST_F(ShapeDisplayTest, ActorDefaultsWithoutALabel)
{
    TopoDS_Shape stranger = BRepPrimAPI_MakeBox(1, 2, 3).Shape();
    vtkSmartPointer<vtkActor> actor = ShapeRenderTool::CreateActorForShape(stranger);
    vtkProperty* prop = actor->GetProperty();
    EXPECT_DOUBLE_EQ(prop->GetLineWidth(), 2.0);
    EXPECT_TRUE(prop->GetLighting());
    EXPECT_FALSE(prop->GetEdgeVisibility());
    EXPECT_EQ(prop->GetInterpolation(), VTK_GOURAUD);
    EXPECT_DOUBLE_EQ(prop->GetColor()[0], 0.8);
    EXPECT_DOUBLE_EQ(prop->GetColor()[1], 0.0);
    EXPECT_DOUBLE_EQ(prop->GetColor()[2], 0.8);
    EXPECT_TRUE(actor->GetVisibility());
}

TEST_F(ShapeDisplayTest, LabelAttributesSurviveARebuildAndActorOnlyChangesDoNot)
{
    TDF_Label label = Box(0, 10);
    BaseShapeParaCreator().SetCommonAttribute(label, true, 0.25, gp_Pnt(0.0, 0.0, 1.0));
    viewer->RefreshViewer();
    TopoDS_Shape box = Nth(0);
    EXPECT_DOUBLE_EQ(viewer->GetShapeOpacity(&box), 0.25);
    vtkActor* actor = TevBasicViewerTestPeer::ActorByShape(*viewer).begin()->second;
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetColor()[2], 1.0);

    gp_Pnt red(1.0, 0.0, 0.0);
    viewer->SetShapeColor(&box, red);
    viewer->SetShapeOpacity(&box, 0.9);
    viewer->SetShapeVisibility(&box, false);
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetColor()[0], 1.0);
    EXPECT_DOUBLE_EQ(viewer->GetShapeOpacity(&box), 0.9);
    EXPECT_FALSE(viewer->GetShapeVisiblity(&box));
    viewer->RefreshViewer();
    actor = TevBasicViewerTestPeer::ActorByShape(*viewer).begin()->second;
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetColor()[0], 0.0);
    EXPECT_DOUBLE_EQ(actor->GetProperty()->GetColor()[2], 1.0);
    EXPECT_DOUBLE_EQ(viewer->GetShapeOpacity(&box), 0.25);
    EXPECT_TRUE(viewer->GetShapeVisiblity(&box));

    // Hidden on the label: hidden after every rebuild.
    BaseShapeParaCreator().SetCommonAttribute(label, false, 0.25, gp_Pnt(0.0, 0.0, 1.0));
    viewer->RefreshViewer();
    EXPECT_FALSE(viewer->GetShapeVisiblity(&box));
}

TEST_F(ShapeDisplayTest, TheRenderedImageShowsTheLabelColour)
{
    TDF_Label label = Box(0, 10);
    BaseShapeParaCreator().SetCommonAttribute(label, true, 1.0, gp_Pnt(0.0, 0.0, 1.0));
    viewer->RefreshViewer();
    viewer->SetXY();
    viewer->UpdateViewer();
    const QPoint centre = tevtest::WorldToWidget(viewer.get(), gp_Pnt(5, 5, 10));
    QImage img = tevtest::GrabRendered(viewer.get());
    const double ratio = img.width() / double(viewer->width());
    QColor c = img.pixelColor(int(centre.x() * ratio), int(centre.y() * ratio));
    // Lit blue: no red or green, a strong blue.
    EXPECT_LT(c.red(), 40);
    EXPECT_LT(c.green(), 40);
    EXPECT_GT(c.blue(), 120);
    // An actor-only colour is gone after the rebuild: the pixel turns blue again.
    TopoDS_Shape box = Nth(0);
    gp_Pnt green(0.0, 1.0, 0.0);
    viewer->SetShapeColor(&box, green);
    viewer->UpdateViewer();
    c = tevtest::GrabRendered(viewer.get()).pixelColor(int(centre.x() * ratio), int(centre.y() * ratio));
    EXPECT_GT(c.green(), 120);
    viewer->RefreshViewer();
    c = tevtest::GrabRendered(viewer.get()).pixelColor(int(centre.x() * ratio), int(centre.y() * ratio));
    EXPECT_LT(c.green(), 40);
    EXPECT_GT(c.blue(), 120);
}

TEST_F(ShapeDisplayTest, UnknownShapesGetTheMessageAndAnEmptyEntry)
{
    std::vector<std::pair<int, QString>> lines;
    QMetaObject::Connection c = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                                 [&lines](int l, QString t) { lines.emplace_back(l, t); });
    TopoDS_Shape stranger = BRepPrimAPI_MakeBox(1, 2, 3).Shape();
    const size_t before = TevBasicViewerTestPeer::ActorByTShapeCount(*viewer);
    EXPECT_DOUBLE_EQ(viewer->GetShapeOpacity(&stranger), 1.0);
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByTShapeCount(*viewer), before + 1);
    gp_Pnt rgb(1, 0, 0);
    viewer->SetShapeColor(&stranger, rgb);
    viewer->SetShapeOpacity(&stranger, 0.5);
    viewer->SetShapeVisibility(&stranger, true);
    EXPECT_FALSE(viewer->GetShapeVisiblity(&stranger));
    QObject::disconnect(c);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], std::make_pair(2, QString("SetShapeOpacity actor NULL")));
    EXPECT_EQ(lines[1], std::make_pair(2, QString("SetShapeOpacity actor NULL")));
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByTShapeCount(*viewer), before + 1);
}

TEST_F(ShapeDisplayTest, DisplaySlotsChangeEveryActorEverMadeAndARebuildReturnsToSurface)
{
    viewer->m_Slot_DisplayByWireFrame();  // empty list: nothing to do
    Box(0, 10);
    viewer->RefreshViewer();
    viewer->RefreshViewer();
    viewer->m_Slot_DisplayByWireFrame();
    for (const auto& a : TevBasicViewerTestPeer::ShapeActors(*viewer)) EXPECT_EQ(a->GetProperty()->GetRepresentation(), VTK_WIREFRAME);
    viewer->m_Slot_DisplayByPoint();
    for (const auto& a : TevBasicViewerTestPeer::ShapeActors(*viewer)) EXPECT_EQ(a->GetProperty()->GetRepresentation(), VTK_POINTS);
    viewer->m_Slot_DisplayBySurface();
    for (const auto& a : TevBasicViewerTestPeer::ShapeActors(*viewer)) EXPECT_EQ(a->GetProperty()->GetRepresentation(), VTK_SURFACE);
    viewer->m_Slot_DisplayByWireFrame();
    viewer->RefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).begin()->second->GetProperty()->GetRepresentation(), VTK_SURFACE);
}

TEST_F(ShapeDisplayTest, RemoveAllViewShapesKeepsTheFixedActors)
{
    const int fixed = PropCount();
    Box(0, 10);
    viewer->RefreshViewer();
    ASSERT_EQ(PropCount(), fixed + 1);
    viewer->RemoveAllViewShapes();
    EXPECT_EQ(PropCount(), fixed);
    EXPECT_TRUE(TevBasicViewerTestPeer::ActorByShape(*viewer).empty());
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeActors(*viewer).size(), 1u);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).size(), 1u);
}

TEST_F(ShapeDisplayTest, UndoThenRefreshShowsTheDocumentAsItIs)
{
    Box(0, 10);
    Box(20, 10);
    viewer->RefreshViewer();
    ASSERT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 2u);
    ASSERT_TRUE(ShapeDocMgr::GetInstance()->Undo());
    viewer->UpdateRefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 1u);
}

TEST(RenderTypeMgrPreset, HighlightLookRaisesSizes)
{
    auto actor = vtkSmartPointer<vtkActor>::New();
    actor->GetProperty()->SetLineWidth(2.0);
    actor->GetProperty()->SetPointSize(3.0);
    RenderTypeMgr().InitLCActorProp(actor);
    vtkProperty* p = actor->GetProperty();
    EXPECT_FALSE(actor->GetPickable());
    EXPECT_TRUE(actor->GetVisibility());
    EXPECT_DOUBLE_EQ(p->GetColor()[0], 0.8);
    EXPECT_DOUBLE_EQ(p->GetColor()[1], 0.0);
    EXPECT_DOUBLE_EQ(p->GetColor()[2], 0.4);
    EXPECT_DOUBLE_EQ(p->GetOpacity(), 0.5);
    EXPECT_DOUBLE_EQ(p->GetPointSize(), 5.0);
    EXPECT_DOUBLE_EQ(p->GetLineWidth(), 8.0);
    EXPECT_FALSE(p->GetLighting());
}

}  // namespace

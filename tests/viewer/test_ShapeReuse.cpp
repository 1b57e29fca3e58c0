// Rebuilds that keep what is unchanged: a shape still in the document keeps its actor, picker and
// IVtkOCC_Shape; a new or changed shape (undo, redo, a Boolean) gets new ones; what a rebuild
// drops is freed, and the name map forgets names that neither the document nor the selection
// still holds. Also the point pick culled by the shapes' boxes against the exhaustive pick.
#include "BaseShapeParaCreator.h"
#include "BoxShapeParaCreator.h"
#include "GeometryOp.h"
#include "LineShapeParaCreator.h"
#include "SelectionMgr.h"
#include "ShapeBounds.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewerTestPeer.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapePicker.hxx>
#include <TDataStd_Name.hxx>
#include <vtkAlgorithm.h>
#include <vtkCamera.h>
#include <vtkMapper.h>
#include <vtkPropCollection.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkWeakPointer.h>

#include <algorithm>
#include <random>

using tevtest::DocumentViewerTest;
using tevtest::WorldToWidget;

namespace {

class ShapeReuseTest : public DocumentViewerTest
{
protected:
    void TearDown() override
    {
        ShapeBounds::EnableCulling(true);
        DocumentViewerTest::TearDown();
    }

    static void Box(double x, double y, double side = 10)
    {
        ShapeDocMgr::GetInstance()->StartTransaction();
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(x, y, 0), gp_Dir(0, 0, 1)), side, side, side);
        ShapeDocMgr::GetInstance()->EndTransaction();
    }

    std::vector<TopoDS_Shape> All() { return ShapeLabelMgr::GetInstance()->GetAllShapes(); }
    std::vector<const TopoDS_Shape*>& Sel() { return SelectionMgr::GetInstance()->GetshapeList(); }
    int PropCount() { return viewer->GetDefaultRender()->GetViewProps()->GetNumberOfItems(); }

    // The IVtkOCC_Shape the picture holds for `shape` (same TShape and location), or null.
    IVtkOCC_Shape* OccOf(const TopoDS_Shape& shape)
    {
        for (const auto& entry : TevBasicViewerTestPeer::ActorByShape(*viewer))
            if (entry.first->GetShape().IsSame(shape)) return entry.first;
        return nullptr;
    }
    vtkActor* ActorOf(const TopoDS_Shape& shape)
    {
        IVtkOCC_Shape* occ = OccOf(shape);
        return occ ? TevBasicViewerTestPeer::ActorByShape(*viewer).at(occ).GetPointer() : nullptr;
    }
    IVtkTools_ShapePicker* PickerOf(const TopoDS_Shape& shape)
    {
        IVtkOCC_Shape* occ = OccOf(shape);
        return occ ? TevBasicViewerTestPeer::PickerByShape(*viewer).at(occ).GetPointer() : nullptr;
    }

    void Show()
    {
        viewer->RefreshViewer();
        viewer->SetXY();
        viewer->UpdateViewer();
        QTest::qWait(30);
    }
    void Click(const gp_Pnt& p)
    {
        QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, WorldToWidget(viewer.get(), p));
    }
};

// Everything a retired shape's picture was made of, watched without keeping it alive; the
// IVtkOCC_Shape is held here, so that its count of other holders can be read.
struct Watched {
    Watched(vtkActor* actor, IVtkTools_ShapePicker* picker, IVtkOCC_Shape* occ)
        : actor(actor), mapper(actor->GetMapper()), source(actor->GetMapper()->GetInputAlgorithm()), picker(picker),
          occ(occ)
    {
    }
    vtkWeakPointer<vtkActor> actor;
    vtkWeakPointer<vtkMapper> mapper;
    vtkWeakPointer<vtkAlgorithm> source;
    vtkWeakPointer<IVtkTools_ShapePicker> picker;
    IVtkOCC_Shape::Handle occ;
};

TEST_F(ShapeReuseTest, AnUnchangedShapeKeepsItsActorPickerAndShapeAndOnlyTheNewOneIsBuilt)
{
    Box(0, 0);
    viewer->RefreshViewer();
    const TopoDS_Shape first = All()[0];
    vtkActor* actor = ActorOf(first);
    IVtkTools_ShapePicker* picker = PickerOf(first);
    IVtkOCC_Shape* occ = OccOf(first);
    ASSERT_TRUE(actor && picker && occ);
    const int props = PropCount();

    Box(30, 0);
    viewer->RefreshViewer();
    EXPECT_EQ(ActorOf(first), actor);
    EXPECT_EQ(PickerOf(first), picker);
    EXPECT_EQ(OccOf(first), occ);
    const TopoDS_Shape second = All()[1];
    ASSERT_NE(ActorOf(second), nullptr);
    EXPECT_NE(ActorOf(second), actor);
    // One actor more in the renderer; the history holds 1 from the first build and 2 from the
    // second, the kept actor appended again.
    EXPECT_EQ(PropCount(), props + 1);
    ASSERT_EQ(TevBasicViewerTestPeer::ShapeActors(*viewer).size(), 3u);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeActors(*viewer)[1].GetPointer(), actor);
    // The box of the first shape, found at its place in the list and, by the shape alone, from
    // any other place: the box of a 10 x 10 x 10 box at the origin, give or take tolerances.
    for (size_t position : {0, 1, 7}) {
        const Bnd_Box* box = viewer->FindShapeBox(first, position);
        ASSERT_NE(box, nullptr) << position;
        double x0, y0, z0, x1, y1, z1;
        box->Get(x0, y0, z0, x1, y1, z1);
        EXPECT_NEAR(x0, 0.0, 1e-5);
        EXPECT_NEAR(x1, 10.0, 1e-5);
        EXPECT_NEAR(z1, 10.0, 1e-5);
    }
}

TEST_F(ShapeReuseTest, UndoRetiresTheShapeAndFreesItsPictureAndRedoBuildsANewOne)
{
    Box(0, 0);
    Box(30, 0);
    viewer->RefreshViewer();
    const TopoDS_Shape second = All()[1];
    Watched old(ActorOf(second), PickerOf(second), OccOf(second));
    const int props = PropCount();

    ASSERT_TRUE(ShapeDocMgr::GetInstance()->Undo());
    viewer->RefreshViewer();
    ASSERT_EQ(All().size(), 1u);
    EXPECT_EQ(PropCount(), props - 1);
    EXPECT_FALSE(viewer->GetDefaultRender()->HasViewProp(old.actor));
    // The actor object stays in the history, but without mapper; mapper, data source and
    // picker are gone, and only this test still holds the IVtkOCC_Shape.
    ASSERT_NE(old.actor, nullptr);
    EXPECT_EQ(old.actor->GetMapper(), nullptr);
    EXPECT_EQ(old.mapper, nullptr);
    EXPECT_EQ(old.source, nullptr);
    EXPECT_EQ(old.picker, nullptr);
    EXPECT_EQ(old.occ->GetRefCount(), 1);
    EXPECT_TRUE(old.occ->GetSelectableObject().IsNull());
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).size(), 1u);
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByTShapeCount(*viewer), 1u);

    ASSERT_TRUE(ShapeDocMgr::GetInstance()->Redo());
    viewer->RefreshViewer();
    ASSERT_EQ(All().size(), 2u);
    vtkActor* again = ActorOf(All()[1]);
    ASSERT_NE(again, nullptr);
    EXPECT_NE(again, old.actor.GetPointer());
    EXPECT_NE(again->GetMapper(), nullptr);
    EXPECT_EQ(PropCount(), props);
}

TEST_F(ShapeReuseTest, ABooleanReplacesItsOperandsPicturesByANewOne)
{
    Box(0, 0);
    Box(5, 5);
    Box(60, 0);
    viewer->RefreshViewer();
    std::vector<TopoDS_Shape> shapes = All();
    vtkActor* untouched = ActorOf(shapes[2]);
    Watched a(ActorOf(shapes[0]), PickerOf(shapes[0]), OccOf(shapes[0]));
    Watched b(ActorOf(shapes[1]), PickerOf(shapes[1]), OccOf(shapes[1]));

    std::vector<const TopoDS_Shape*> operands = {&shapes[0], &shapes[1]};
    ASSERT_TRUE(GeometryOp::PerformUnite(operands));
    viewer->RefreshViewer();
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(ActorOf(shapes[2]), untouched);
    for (Watched* w : {&a, &b}) {
        EXPECT_EQ(w->mapper, nullptr);
        EXPECT_EQ(w->picker, nullptr);
        EXPECT_EQ(w->occ->GetRefCount(), 1);
    }
    for (const TopoDS_Shape& s : All()) EXPECT_NE(ActorOf(s), nullptr);
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 2u);
}

TEST_F(ShapeReuseTest, ASelectedShapeOutlivesItsRetirementUntilTheSelectionLetsGo)
{
    Box(0, 0);
    Box(30, 0);
    Show();
    TopoDS_Shape second = All()[1];
    const QString name = ShapeLabelMgr::GetInstance()->GetShapeName(&second);
    Click(gp_Pnt(35, 5, 10));
    ASSERT_EQ(Sel().size(), 1u);
    Watched old(ActorOf(second), PickerOf(second), OccOf(second));

    ASSERT_TRUE(ShapeDocMgr::GetInstance()->Undo());
    viewer->RefreshViewer();
    // Still selected: the name stays and the shape it points to can still be read.
    ASSERT_EQ(Sel().size(), 1u);
    EXPECT_EQ(Sel()[0]->ShapeType(), TopAbs_SOLID);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).count(name), 1u);
    EXPECT_EQ(old.mapper, nullptr);
    EXPECT_EQ(old.picker, nullptr);
    EXPECT_GT(old.occ->GetRefCount(), 1);

    Click(gp_Pnt(20, 5, 0));  // empty space between the two places: the selection is cleared
    ASSERT_TRUE(Sel().empty());
    viewer->RefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).count(name), 0u);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).size(), 1u);
    EXPECT_EQ(old.occ->GetRefCount(), 1);
}

TEST_F(ShapeReuseTest, ARenamedShapeLeavesOnlyItsNewName)
{
    Box(0, 0);
    viewer->RefreshViewer();
    TopoDS_Shape box = All()[0];
    const QString before = ShapeLabelMgr::GetInstance()->GetShapeName(&box);
    TDataStd_Name::Set(ShapeLabelMgr::GetInstance()->FindLabel(box), "Renamed");
    viewer->RefreshViewer();
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).count(before), 0u);
    ASSERT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).count("Renamed"), 1u);
    EXPECT_EQ(TevBasicViewerTestPeer::ShapeByName(*viewer).at("Renamed"), OccOf(box));
}

TEST_F(ShapeReuseTest, RemoveAllViewShapesThenARebuildMakesEverythingNew)
{
    Box(0, 0);
    viewer->RefreshViewer();
    const TopoDS_Shape box = All()[0];
    Watched old(ActorOf(box), PickerOf(box), OccOf(box));
    viewer->RemoveAllViewShapes();
    EXPECT_EQ(old.mapper, nullptr);
    EXPECT_EQ(viewer->FindShapeBox(box, 0), nullptr);
    viewer->RefreshViewer();
    ASSERT_NE(ActorOf(box), nullptr);
    EXPECT_NE(ActorOf(box), old.actor.GetPointer());
}

// Clicks at many places of a random drawing, at body and at face level, with and without the
// culling of pickers by the shapes' boxes: the selection is the same list in the same order.
TEST_F(ShapeReuseTest, ThePointPickCulledByBoxesSelectsWhatTheExhaustivePickSelects)
{
    std::mt19937 rng(7);
    auto u = [&rng](double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(rng); };
    std::vector<gp_Pnt> targets;
    for (int i = 0; i < 30; ++i) {
        const gp_Pnt a(u(-80, 80), u(-60, 60), 0);
        if (i % 3 == 0) {
            Box(a.X(), a.Y(), u(4, 25));  // overlapping boxes are common
            targets.push_back(gp_Pnt(a.X() + 2, a.Y() + 2, 0));
        } else {
            // Every other line along an axis: its box is flat across the line.
            gp_Pnt s = a, e(a.X() + u(-40, 40), i % 2 ? a.Y() : a.Y() + u(-40, 40), 0);
            ShapeDocMgr::GetInstance()->StartTransaction();
            LineShapeParaCreator().CreateLine(s, e);
            ShapeDocMgr::GetInstance()->EndTransaction();
            targets.push_back(gp_Pnt((s.X() + e.X()) / 2, (s.Y() + e.Y()) / 2, 0));
        }
    }
    Show();
    for (int i = 0; i < 10; ++i) targets.push_back(gp_Pnt(u(-100, 100), u(-80, 80), 0));

    size_t picked = 0;
    for (bool faceLevel : {false, true}) {
        if (faceLevel) viewer->m_Slot_SetSelectionFace();
        for (const gp_Pnt& t : targets) {
            // On the target and a pixel or two beside it, where an edge is still picked though
            // the click is outside the box of a line along an axis.
            for (const QPoint& offset : {QPoint(0, 0), QPoint(2, 0), QPoint(0, 2), QPoint(-1, -2)}) {
                const QPoint at = WorldToWidget(viewer.get(), t) + offset;
                ShapeBounds::EnableCulling(false);
                QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, at);
                const std::vector<const TopoDS_Shape*> all = Sel();
                ShapeBounds::EnableCulling(true);
                QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, at);
                EXPECT_EQ(Sel(), all) << at.x() << ", " << at.y();
                picked += all.size();
            }
        }
    }
    // Most clicks land on something; the comparison is not between two empty lists.
    EXPECT_GT(picked, targets.size());
}

}  // namespace

namespace {

// What a picture is, as the host and the selection can tell: names, shapes and looks.
struct PictureSummary {
    std::vector<QString> names;
    size_t pickers = 0, actors = 0, tshapes = 0;
    std::vector<std::vector<double>> looks;  // per name: r, g, b, opacity, visibility
};

PictureSummary Summarise(const TevBasicViewer& v)
{
    PictureSummary s;
    const auto& byName = TevBasicViewerTestPeer::ShapeByName(v);
    const auto& actors = TevBasicViewerTestPeer::ActorByShape(v);
    for (const auto& entry : byName) {
        s.names.push_back(entry.first);
        vtkActor* actor = actors.at(entry.second);
        const double* c = actor->GetProperty()->GetColor();
        s.looks.push_back({c[0], c[1], c[2], actor->GetProperty()->GetOpacity(), double(actor->GetVisibility())});
    }
    s.pickers = TevBasicViewerTestPeer::PickerByShape(v).size();
    s.actors = actors.size();
    s.tshapes = TevBasicViewerTestPeer::ActorByTShapeCount(v);
    return s;
}

}  // namespace

// A refresh after a click that only added shapes takes a short way (the shapes already shown
// stay as they are); a second viewer over the same document is made to rebuild fully each time.
// After every step both pictures agree: the same names, maps and looks, with label changes made
// between the steps (outside any transaction, through a kept label) picked up by both.
TEST_F(ShapeReuseTest, AddingShapesByClicksLeavesThePictureAFullRebuildWouldMake)
{
    auto full = tevtest::MakeShownViewer();
    size_t growth = 0;
    for (int step = 0; step < 6; ++step) {
        Box(step * 20.0, 0);
        if (step == 2) {
            // A colour kept on the label of a shape already shown.
            TDF_Label first = ShapeLabelMgr::GetInstance()->FindLabel(All()[0]);
            BaseShapeParaCreator().SetCommonAttribute(first, true, 0.5, gp_Pnt(0.0, 1.0, 0.0));
        }
        if (step == 4) TDataStd_Name::Set(ShapeLabelMgr::GetInstance()->FindLabel(All()[1]), "Renamed");
        viewer->RefreshViewer();
        TevBasicViewerTestPeer::ForceFullRebuild(*full);
        full->RefreshViewer();

        const PictureSummary quick = Summarise(*viewer), whole = Summarise(*full);
        EXPECT_EQ(quick.names, whole.names) << "step " << step;
        EXPECT_EQ(quick.looks, whole.looks) << "step " << step;
        EXPECT_EQ(quick.pickers, size_t(step + 1));
        EXPECT_EQ(quick.actors, whole.actors);
        EXPECT_EQ(quick.tshapes, whole.tshapes);
        // Every refresh appends all the shapes' actors again: 1 + 2 + ... + (step + 1).
        growth += step + 1;
        EXPECT_EQ(TevBasicViewerTestPeer::ShapeActors(*viewer).size(), growth);
    }
    const PictureSummary last = Summarise(*viewer);
    ASSERT_EQ(last.names.size(), 6u);
    EXPECT_EQ(std::count(last.names.begin(), last.names.end(), QString("Renamed")), 1);
    // The first box's label colour, green at opacity 0.5 (set at step 2), is on its actor.
    vtkActor* first = ActorOf(All()[0]);
    EXPECT_DOUBLE_EQ(first->GetProperty()->GetColor()[1], 1.0);
    EXPECT_DOUBLE_EQ(first->GetProperty()->GetOpacity(), 0.5);
}

// The clipping range a redraw sets from the bounds it keeps for the shape actors is the one the
// renderer computes by asking every prop, after a rebuild, a hidden shape and a turned camera.
TEST_F(ShapeReuseTest, TheClippingRangeIsTheOneTheRendererComputesFromEveryProp)
{
    for (int i = 0; i < 4; ++i) Box(i * 30.0, i * 5.0, 10 + i);
    Show();
    vtkRenderer* renderer = viewer->GetDefaultRender();
    auto expectVtkRange = [renderer](const char* when) {
        double kept[2];
        renderer->GetActiveCamera()->GetClippingRange(kept);
        renderer->ResetCameraClippingRange();
        const double* own = renderer->GetActiveCamera()->GetClippingRange();
        EXPECT_DOUBLE_EQ(kept[0], own[0]) << when;
        EXPECT_DOUBLE_EQ(kept[1], own[1]) << when;
    };
    expectVtkRange("after the rebuild");

    TopoDS_Shape last = All()[3];
    viewer->SetShapeVisibility(&last, false);
    viewer->UpdateViewer();
    expectVtkRange("with the last box hidden");

    renderer->GetActiveCamera()->Azimuth(40);
    renderer->GetActiveCamera()->Elevation(25);
    viewer->UpdateViewer();
    expectVtkRange("after the camera turned");

    // The range really depends on the boxes: a far box moves the far plane.
    double before[2];
    renderer->GetActiveCamera()->GetClippingRange(before);
    Box(-400, -400, 10);
    viewer->RefreshViewer();
    expectVtkRange("with a far box");
    EXPECT_NE(renderer->GetActiveCamera()->GetClippingRange()[1], before[1]);
}

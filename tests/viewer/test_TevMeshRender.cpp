// The mesh display: a surface mesh of a vis_Connect drawn in a shown viewer, its polydata read
// back, its pixels looked at, and the NASTRAN file written beside it on every display.
#include "TevMeshRender.h"
#include "ViewerFixture.h"
#include "GuiTestSupport.h"
#include "ViewerPixels.h"
#include "vis_Connect.h"
#include "vis_ElemTopology.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkCellArray.h>
#include <vtkIdList.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <cmath>
#include <cstdlib>
#include <set>
#include <vector>

namespace {

struct Element {
    int shape;
    std::vector<int> nodes;
};

vis_Connect* Mesh(const std::vector<std::vector<double>>& coords, const std::vector<Element>& elems)
{
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, static_cast<int>(coords.size()), static_cast<int>(elems.size()));
    for (size_t i = 0; i < coords.size(); ++i) vis_ConnectSetCoordsdv(c, static_cast<int>(i + 1), coords[i].data());
    for (size_t i = 0; i < elems.size(); ++i) {
        vis_ConnectSetTopology(c, static_cast<int>(i + 1), elems[i].shape, 0, 0, 0);
        vis_ConnectSetElemNode(c, static_cast<int>(i + 1), elems[i].nodes.data());
    }
    return c;
}

// A mesh view as a host makes one: named "CAE-TevViewer", which keeps axes and grid out.
class MeshRenderTest : public tevtest::ViewerTest
{
protected:
    std::string ViewerName() const override { return "CAE-TevViewer"; }
    void SetUp() override
    {
        ViewerTest::SetUp();
        viewer->SetViewerType(VIEW_TYPE_MESH);
        // A mesh is displayed into a window that is up: its first resizes and paints, late on a
        // loaded display, set up the camera that the display then resets.
        tevtest::ActivateAndWait(viewer.get());
        QTest::qWait(100);
        // The deck goes to the current directory: a scratch one for each test.
        ASSERT_TRUE(scratch.isValid());
        previous = QDir::currentPath();
        QDir::setCurrent(scratch.path());
    }
    void TearDown() override
    {
        QDir::setCurrent(previous);
        if (mesh) vis_ConnectDelete(mesh);
        ViewerTest::TearDown();
    }
    std::set<vtkActor*> Actors()
    {
        std::set<vtkActor*> all;
        vtkActorCollection* actors = viewer->GetDefaultRender()->GetActors();
        actors->InitTraversal();
        while (vtkActor* a = actors->GetNextActor()) all.insert(a);
        return all;
    }
    // The one actor the call added.
    vtkActor* Added(const std::set<vtkActor*>& before)
    {
        vtkActor* added = nullptr;
        for (vtkActor* a : Actors())
            if (!before.count(a)) {
                EXPECT_EQ(added, nullptr) << "more than one actor added";
                added = a;
            }
        return added;
    }
    static QByteArray Deck()
    {
        QFile f("DisplayCAD-connect.bdf");
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(missing)");
    }

    QTemporaryDir scratch;
    QString previous;
    vis_Connect* mesh = nullptr;
};

// The unit square split along its diagonal: (1 2 3) and (1 3 4), in the plane z = 0.
TEST_F(MeshRenderTest, TwoTrianglesAreFivePointsAndTwoPolygonsWithEdgesAndTheDeckIsWritten)
{
    mesh = Mesh({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}},
                {{SYS_SHAPE_TRI, {1, 2, 3}}, {SYS_SHAPE_TRI, {1, 3, 4}}});
    const std::set<vtkActor*> before = Actors();
    TevMeshRender().DisplayMesh(mesh, viewer->GetDefaultRender());
    vtkActor* actor = Added(before);
    ASSERT_NE(actor, nullptr);
    auto* data = vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput());
    ASSERT_NE(data, nullptr);
    // Node ids are point ids: 4 nodes fill points 1 to 4 beside the unset point 0.
    EXPECT_EQ(data->GetNumberOfPoints(), 5);
    EXPECT_EQ(data->GetNumberOfPolys(), 2);
    double p[3];
    data->GetPoint(3, p);
    EXPECT_DOUBLE_EQ(p[0], 10.0);
    EXPECT_DOUBLE_EQ(p[1], 10.0);
    auto cell = vtkSmartPointer<vtkIdList>::New();
    data->GetPolys()->GetCellAtId(1, cell);
    ASSERT_EQ(cell->GetNumberOfIds(), 3);
    EXPECT_EQ(cell->GetId(0), 1);
    EXPECT_EQ(cell->GetId(1), 3);
    EXPECT_EQ(cell->GetId(2), 4);
    EXPECT_TRUE(actor->GetProperty()->GetEdgeVisibility());
    EXPECT_EQ(actor->GetProperty()->GetRepresentation(), VTK_SURFACE);

    // After ResetCamera the square fills the middle of the view: the centre pixel of each
    // triangle is the lit white of the mesh (red close to blue), not the blue of the background
    // (red far below blue). The picture reaches the screen through Qt's paint, so the check is
    // repeated for a while until a frame shows it.
    bool drawn = false;
    QString seen;
    for (int attempt = 0; attempt < 40 && !drawn; ++attempt) {
        viewer->UpdateViewer();
        QTest::qWait(25);
        const QImage img = tevtest::GrabRendered(viewer.get());
        const double ratio = img.width() / double(viewer->width());
        drawn = true;
        seen.clear();
        for (const gp_Pnt& centre : {gp_Pnt(20.0 / 3, 10.0 / 3, 0), gp_Pnt(10.0 / 3, 20.0 / 3, 0)}) {
            const QPoint at = tevtest::WorldToWidget(viewer.get(), centre);
            const QColor c = img.pixelColor(int(at.x() * ratio), int(at.y() * ratio));
            seen += QString(" (%1 %2 %3)").arg(c.red()).arg(c.green()).arg(c.blue());
            drawn = drawn && c.red() > 100 && std::abs(c.red() - c.blue()) < 40;
        }
    }
    EXPECT_TRUE(drawn) << "centre pixels" << seen.toStdString();
    // The deck of the mesh is beside it; plain nodes and elements give a deck without cards.
    EXPECT_TRUE(Deck().startsWith("BEGIN BULK\n"));
    EXPECT_TRUE(Deck().endsWith("ENDDATA\n"));
}

TEST_F(MeshRenderTest, AnEmptyMeshGivesAnActorWithoutCellsAndStillWritesTheDeck)
{
    mesh = Mesh({}, {});
    const std::set<vtkActor*> before = Actors();
    TevMeshRender().DisplayMesh(mesh, viewer->GetDefaultRender());
    vtkActor* actor = Added(before);
    ASSERT_NE(actor, nullptr);
    auto* data = vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput());
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->GetNumberOfCells(), 0);
    EXPECT_NE(Deck(), QByteArray("(missing)"));
}

TEST_F(MeshRenderTest, WithArrowOnlyTheArrowIsShownAndTheDeckIsWritten)
{
    mesh = Mesh({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, {{SYS_SHAPE_QUAD, {1, 2, 3, 4}}});
    const std::set<vtkActor*> before = Actors();
    TevMeshRender().DisplayMeshWithArrow(mesh, viewer->GetDefaultRender());
    vtkActor* arrow = Added(before);
    ASSERT_NE(arrow, nullptr);
    // vtkArrowSource spans x from 0 to 1 and its tip is a six-sided cone of radius 0.1 with a
    // corner on +y; scaled by 20 and left along +x (no normals to orient it): x from 0 to 20,
    // y up to 0.1 * 20 = 2, z up to 2 * sin(60 deg) = sqrt(3).
    const double* b = arrow->GetBounds();
    EXPECT_NEAR(b[0], 0.0, 1e-6);
    EXPECT_NEAR(b[1], 20.0, 1e-6);
    EXPECT_NEAR(b[3], 2.0, 1e-6);
    EXPECT_NEAR(b[5], std::sqrt(3.0), 1e-6);
    EXPECT_NE(Deck(), QByteArray("(missing)"));
}

// Point 0 belongs to no node; it repeats node 1, so it adds nothing to the picture's extent
// (here the mesh lies far from the origin, which a zero point 0 would drag into the bounds).
TEST_F(MeshRenderTest, PointZeroRepeatsNodeOne)
{
    mesh = Mesh({{100, 200, 300}, {110, 200, 300}, {110, 210, 300}}, {{SYS_SHAPE_TRI, {1, 2, 3}}});
    const std::set<vtkActor*> before = Actors();
    TevMeshRender().DisplayMesh(mesh, viewer->GetDefaultRender());
    vtkActor* actor = Added(before);
    ASSERT_NE(actor, nullptr);
    auto* data = vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput());
    double p[3];
    data->GetPoint(0, p);
    EXPECT_DOUBLE_EQ(p[0], 100.0);
    EXPECT_DOUBLE_EQ(p[1], 200.0);
    EXPECT_DOUBLE_EQ(p[2], 300.0);
    const double* b = data->GetBounds();
    EXPECT_DOUBLE_EQ(b[0], 100.0);
    EXPECT_DOUBLE_EQ(b[1], 110.0);
    EXPECT_DOUBLE_EQ(b[4], 300.0);
}

// An element of more nodes than the display is meant for goes in whole, never past a buffer.
TEST_F(MeshRenderTest, AnEightNodeElementGoesInWithItsWholeNodeList)
{
    mesh = Mesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}},
                {{SYS_SHAPE_HEX, {1, 2, 3, 4, 5, 6, 7, 8}}});
    const std::set<vtkActor*> before = Actors();
    TevMeshRender().DisplayMesh(mesh, viewer->GetDefaultRender());
    vtkActor* actor = Added(before);
    ASSERT_NE(actor, nullptr);
    auto* data = vtkPolyData::SafeDownCast(actor->GetMapper()->GetInput());
    auto cell = vtkSmartPointer<vtkIdList>::New();
    data->GetPolys()->GetCellAtId(0, cell);
    EXPECT_EQ(cell->GetNumberOfIds(), 8);
    EXPECT_EQ(cell->GetId(7), 8);
}

}  // namespace

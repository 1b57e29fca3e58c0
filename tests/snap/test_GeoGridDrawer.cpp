// The grid of the principal planes: point lists, drawn extents, actors.
#include "GeoGridDrawer.h"
#include "ViewerFixture.h"

#include <vtkDataArray.h>
#include <vtkDataSetMapper.h>
#include <vtkProperty.h>
#include <vtkPropCollection.h>
#include <vtkRectilinearGrid.h>
#include <vtkRenderer.h>

#include <algorithm>

using tevtest::ViewerTest;

namespace {

class GeoGridDrawerTest : public ViewerTest
{
protected:
    vtkRectilinearGrid* GridOf(vtkActor* actor)
    {
        return vtkRectilinearGrid::SafeDownCast(actor->GetMapper()->GetInput());
    }
    int PropCount() { return viewer->GetDefaultRender()->GetViewProps()->GetNumberOfItems(); }
};

TEST_F(GeoGridDrawerTest, XYListHas441PointsInItsOrder)
{
    GeoGridDrawer grid;
    grid.PerformXYDraw(viewer.get());
    const std::vector<gp_Pnt>& pts = grid.GetXOYGridAllPt();
    ASSERT_EQ(pts.size(), 441u);
    EXPECT_TRUE(pts[0].IsEqual(gp_Pnt(-100, -100, 0), 0));
    EXPECT_TRUE(pts[1].IsEqual(gp_Pnt(-100, -90, 0), 0));
    EXPECT_TRUE(pts[21].IsEqual(gp_Pnt(-90, -100, 0), 0));
    EXPECT_TRUE(pts[440].IsEqual(gp_Pnt(100, 100, 0), 0));
    EXPECT_TRUE(grid.GetXOZGridAllPt().empty());
    EXPECT_TRUE(grid.GetYOZGridAllPt().empty());
}

TEST_F(GeoGridDrawerTest, XZAndYZListsLieInTheirPlanes)
{
    GeoGridDrawer grid;
    grid.PerformXZDraw(viewer.get());
    grid.PerformYZDraw(viewer.get());
    ASSERT_EQ(grid.GetXOZGridAllPt().size(), 441u);
    ASSERT_EQ(grid.GetYOZGridAllPt().size(), 441u);
    EXPECT_TRUE(grid.GetXOZGridAllPt()[1].IsEqual(gp_Pnt(-100, 0, -90), 0));
    EXPECT_TRUE(grid.GetYOZGridAllPt()[1].IsEqual(gp_Pnt(0, -100, -90), 0));
    for (const gp_Pnt& p : grid.GetXOZGridAllPt()) EXPECT_EQ(p.Y(), 0.0);
    for (const gp_Pnt& p : grid.GetYOZGridAllPt()) EXPECT_EQ(p.X(), 0.0);
}

TEST_F(GeoGridDrawerTest, DrawnLinesStopAt90WhileSnapPointsRunTo100)
{
    GeoGridDrawer grid;
    vtkSmartPointer<vtkActor> actor = grid.PerformXYDraw(viewer.get());
    vtkRectilinearGrid* rg = GridOf(actor);
    ASSERT_NE(rg, nullptr);
    int dims[3];
    rg->GetDimensions(dims);
    EXPECT_EQ(dims[0], 20);
    EXPECT_EQ(dims[1], 20);
    EXPECT_EQ(dims[2], 1);
    EXPECT_EQ(rg->GetXCoordinates()->GetNumberOfTuples(), 21);
    EXPECT_EQ(rg->GetZCoordinates()->GetNumberOfTuples(), 21);
    // The drawn grid is 20 x 20 points: from -100 to 90 on each axis.
    ASSERT_EQ(rg->GetNumberOfPoints(), 400);
    double lo[3] = {1e9, 1e9, 1e9}, hi[3] = {-1e9, -1e9, -1e9};
    for (vtkIdType i = 0; i < rg->GetNumberOfPoints(); ++i) {
        const double* q = rg->GetPoint(i);
        for (int k = 0; k < 3; ++k) lo[k] = std::min(lo[k], q[k]), hi[k] = std::max(hi[k], q[k]);
    }
    EXPECT_EQ(lo[0], -100.0);
    EXPECT_EQ(hi[0], 90.0);
    EXPECT_EQ(lo[1], -100.0);
    EXPECT_EQ(hi[1], 90.0);
    EXPECT_EQ(lo[2], 0.0);
    EXPECT_EQ(hi[2], 0.0);
    EXPECT_TRUE(grid.GetXOYGridAllPt().back().IsEqual(gp_Pnt(100, 100, 0), 0));
    vtkProperty* p = actor->GetProperty();
    EXPECT_EQ(p->GetColor()[1], 0.4);
    EXPECT_EQ(p->GetRepresentation(), VTK_WIREFRAME);
    EXPECT_FALSE(p->GetLighting());
    EXPECT_TRUE(viewer->GetDefaultRender()->HasViewProp(actor));
}

TEST_F(GeoGridDrawerTest, XZAndYZDimensions)
{
    GeoGridDrawer grid;
    int dims[3];
    GridOf(grid.PerformXZDraw(viewer.get()))->GetDimensions(dims);
    EXPECT_EQ(dims[0], 20);
    EXPECT_EQ(dims[1], 1);
    EXPECT_EQ(dims[2], 20);
    GridOf(grid.PerformYZDraw(viewer.get()))->GetDimensions(dims);
    EXPECT_EQ(dims[0], 1);
    EXPECT_EQ(dims[1], 20);
    EXPECT_EQ(dims[2], 20);
}

TEST_F(GeoGridDrawerTest, YZReplacesTheXZActorAndBothStayInTheRenderer)
{
    GeoGridDrawer grid;
    const int before = PropCount();
    vtkSmartPointer<vtkActor> xz = grid.PerformXZDraw(viewer.get());
    vtkSmartPointer<vtkActor> yz = grid.PerformYZDraw(viewer.get());
    EXPECT_NE(xz, yz);
    EXPECT_EQ(PropCount(), before + 2);
    EXPECT_TRUE(viewer->GetDefaultRender()->HasViewProp(xz));
    EXPECT_TRUE(viewer->GetDefaultRender()->HasViewProp(yz));
}

TEST_F(GeoGridDrawerTest, PerformDrawAfterTheViewerGridDoublesTheListsAndAddsThreeActors)
{
    GeoGridDrawer* grid = viewer->GetGrid();
    ASSERT_NE(grid, nullptr);
    ASSERT_EQ(grid->GetXOYGridAllPt().size(), 441u);
    const int before = PropCount();
    grid->PerformDraw(viewer.get());
    EXPECT_EQ(grid->GetXOYGridAllPt().size(), 882u);
    EXPECT_EQ(grid->GetXOZGridAllPt().size(), 882u);
    EXPECT_EQ(grid->GetYOZGridAllPt().size(), 882u);
    EXPECT_EQ(PropCount(), before + 3);
}

TEST_F(GeoGridDrawerTest, CopiesShareActorsAndCopyLists)
{
    GeoGridDrawer grid;
    grid.PerformXYDraw(viewer.get());
    GeoGridDrawer copy(grid);
    EXPECT_EQ(copy.GetXOYGridAllPt().size(), 441u);
    copy.GetXOYGridAllPt().clear();
    EXPECT_EQ(grid.GetXOYGridAllPt().size(), 441u);
}

}  // namespace

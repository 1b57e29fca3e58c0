// The point picker: projection on the work plane, the snap that replaces the point, the ring
// and the status text.
#include "DrawOpMgr.h"
#include "LineShapeParaCreator.h"
#include "PickerMgr.h"
#include "ShapeDocMgr.h"
#include "SnapScene.h"
#include "TevPreference.h"

#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkPropCollection.h>

#include <cmath>

namespace {

class PickerMgrTest : public tevtest::SnapDocumentTest
{
protected:
    gp_Pnt Pick(double x, double y, double z)
    {
        return PickerMgr::GetInstance()->GetPickPoint(viewer.get(), gp_Pnt(x, y, z));
    }
    static void Line(gp_Pnt a, gp_Pnt b) { LineShapeParaCreator().CreateLine(a, b); }
    QString Status() { return DrawOpMgr::GetInstance()->GetOutputString(); }
    int PropCount() { return viewer->GetDefaultRender()->GetViewProps()->GetNumberOfItems(); }
};

TEST_F(PickerMgrTest, AGridHitReturnsTheGridPointAndItsText)
{
    const gp_Pnt p = Pick(12, 11, 200);  // a point of the near plane above (12, 11)
    EXPECT_TRUE(p.IsEqual(gp_Pnt(10, 10, 0), 0));
    EXPECT_EQ(Status(), "Snap Grid:10.00000, 10.00000, 0.00000");
}

TEST_F(PickerMgrTest, EachKindHasItsText)
{
    Line(gp_Pnt(-45, 35, 0), gp_Pnt(-5, 35, 0));
    TevPreference::GetInstance()->snapGrid = false;
    Pick(-25, 36, 100);
    // The on-line hit of the shape comes before its middle.
    EXPECT_EQ(Status(), "Snap Point on Line:-25.00000, 35.00000, 0.00000");
    TevPreference::GetInstance()->snapOnLine = false;
    Pick(-25, 36, 100);
    EXPECT_EQ(Status(), "Snap Middle:-25.00000, 35.00000, 0.00000");
    Pick(-44, 36, 100);
    EXPECT_EQ(Status(), "Snap End Point:-45.00000, 35.00000, 0.00000");
}

TEST_F(PickerMgrTest, NoHitGivesThePlanePointRemovesTheRingAndKeepsTheText)
{
    Pick(12, 11, 200);
    vtkActor* ring = nullptr;
    {
        vtkPropCollection* props = viewer->GetDefaultRender()->GetViewProps();
        ring = vtkActor::SafeDownCast(props->GetItemAsObject(props->GetNumberOfItems() - 1));
    }
    ASSERT_NE(ring, nullptr);
    const int withRing = PropCount();
    const gp_Pnt p = Pick(25, 25, 200);
    EXPECT_TRUE(p.IsEqual(gp_Pnt(25, 25, 0), 1e-9));
    EXPECT_EQ(PropCount(), withRing - 1);
    EXPECT_FALSE(viewer->GetDefaultRender()->HasViewProp(ring));
    EXPECT_EQ(Status(), "Snap Grid:10.00000, 10.00000, 0.00000");
}

TEST_F(PickerMgrTest, TheRingIsAddedOnceAndHasItsFixedRadius)
{
    const int before = PropCount();
    Pick(12, 11, 200);
    Pick(21, 19, 200);
    EXPECT_EQ(PropCount(), before + 1);
    vtkPropCollection* props = viewer->GetDefaultRender()->GetViewProps();
    vtkActor* ring = vtkActor::SafeDownCast(props->GetItemAsObject(props->GetNumberOfItems() - 1));
    ASSERT_NE(ring, nullptr);
    ring->GetMapper()->Update();
    vtkDataSet* data = ring->GetMapper()->GetInput();
    ASSERT_EQ(data->GetNumberOfPoints(), 65);
    for (vtkIdType i = 0; i < data->GetNumberOfPoints(); ++i) {
        const double* q = data->GetPoint(i);
        EXPECT_NEAR(std::hypot(q[0] - 20, q[1] - 20), std::sqrt(18.0), 1e-5);
    }
    EXPECT_FALSE(ring->GetPickable());
}

TEST_F(PickerMgrTest, PointsAreProjectedOnTheCurrentPlaneAlongTheView)
{
    TevPreference::GetInstance()->snapGrid = false;
    EXPECT_TRUE(Pick(3, 7, 200).IsEqual(gp_Pnt(3, 7, 0), 1e-9));
    viewer->EnableXZPlane();
    // Looking down -Z at the XZ plane: the view is parallel to it, the point stays.
    EXPECT_TRUE(Pick(3, 7, 200).IsEqual(gp_Pnt(3, 7, 200), 1e-9));
    EXPECT_TRUE(PickerMgr::GetInstance()->CalculatePointOnPlane(viewer.get(), gp_Pnt(3, 7, 200))
                    .IsEqual(gp_Pnt(3, 7, 200), 1e-9));
}

TEST_F(PickerMgrTest, ParallelViewStillSnaps)
{
    viewer->EnableXZPlane();
    // Seen along -Z, the XZ grid points (10, 0, z) all lie on the pixel of (10, 0): the first of
    // them in list order wins.
    const gp_Pnt p = Pick(10, 0, 0);
    EXPECT_TRUE(p.IsEqual(gp_Pnt(10, 0, -100), 0));
    EXPECT_EQ(Status(), "Snap Grid:10.00000, 0.00000, -100.00000");
}

TEST_F(PickerMgrTest, PickOffPlaneKeepsTheRawPointButFiltersHitsToThePlane)
{
    TevPreference::GetInstance()->pickOffPlane = true;
    TevPreference::GetInstance()->snapGrid = false;
    EXPECT_TRUE(Pick(3, 7, 200).IsEqual(gp_Pnt(3, 7, 200), 1e-9));
    Line(gp_Pnt(-45, 35, 10), gp_Pnt(-25, 35, 10));
    // The vertex at z = 10 is under the cursor but off the plane.
    EXPECT_TRUE(Pick(-45, 35, 200).IsEqual(gp_Pnt(-45, 35, 200), 1e-9));
    TevPreference::GetInstance()->snapGrid = true;
    EXPECT_TRUE(Pick(-29, 31, 200).IsEqual(gp_Pnt(-30, 30, 0), 0));
}

}  // namespace

// The drawn result of a cantilever: a box clamped at x = 0 bent by a known displacement field,
// drawn by TevResultRender in a shown viewer. The pixels at the clamped end and at the tip have
// the colours of the colour bar's two ends.
#include "GuiTestSupport.h"
#include "TevResultRender.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"
#include "vis_Connect.h"
#include "vis_ElemTopology.h"
#include "vis_State.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <gtest/gtest.h>

#include <cmath>

namespace {

const double L = 100.0;

// The beam's deflection curve w(x) = -x^2 (3 L - x) / (2 L^3): 0 at the clamp, -1 at the tip.
double W(double x)
{
    return -x * x * (3.0 * L - x) / (2.0 * L * L * L);
}

// Node states of the field: displacement (0, 0, w(x)) and a zero stress.
void Field(const TevVolumeMesh& mesh, vis_State* u, vis_State* s)
{
    const int n = mesh.NodeCount();
    vis_StateDef(u, n, SYS_NODE, 0, 1);
    vis_StateDef(s, n, SYS_NODE, 0, 2);
    vis_StateClear(u);
    vis_StateClear(s);
    const double zero[6] = {0, 0, 0, 0, 0, 0};
    for (int id = 1; id <= n; ++id) {
        double x[3];
        vis_ConnectCoordsdv(mesh.Volume(), 1, &id, x);
        const double v[3] = {0.0, 0.0, W(x[0])};
        vis_StateSetDatadv(u, id, v);
        vis_StateSetDatadv(s, id, zero);
    }
}

QColor TableColour(vtkLookupTable* table, double value)
{
    double rgb[3];
    table->GetColor(value, rgb);
    return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
}

void ExpectNear(const QColor& a, const QColor& b, const char* where)
{
    EXPECT_NEAR(a.red(), b.red(), 24) << where;
    EXPECT_NEAR(a.green(), b.green(), 24) << where;
    EXPECT_NEAR(a.blue(), b.blue(), 24) << where;
}

TEST(TevResultRender, ClampedEndAndTipShowTheColourBarEnds)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(L, 10.0, 10.0).Shape();
    std::string error;
    auto mesh = TevVolumeMesher::Mesh(box, {2.5, 1}, &error);
    ASSERT_TRUE(mesh) << error;
    vis_State* u = vis_StateNew();
    vis_State* s = vis_StateNew();
    Field(*mesh, u, s);
    auto viewer = tevtest::MakeShownViewer("CAE-TevViewer");
    TevResultRender result;
    const double scale = 5.0;
    ASSERT_TRUE(result.Show(*mesh, u, s, TevResultRender::Quantity::Displacement, scale, viewer->GetDefaultRender(), &error)) << error;
    // The magnitude runs from 0 at the clamp to 1 at the tip.
    EXPECT_NEAR(result.Minimum(), 0.0, 1e-12);
    EXPECT_NEAR(result.Maximum(), 1.0, 1e-12);
    EXPECT_EQ(result.Bar()->GetLookupTable(), result.Table());
    viewer->SetXZ();
    viewer->UpdateViewer();
    QImage image = tevtest::GrabRendered(viewer.get());
    const double ratio = image.width() / double(viewer->width());
    // Points of the front face y = 0 half way up, one element from each end, where they are
    // drawn after the deformation (z moved by scale * w(x)).
    auto colourAt = [&](double x) {
        const QPoint p = tevtest::WorldToWidget(viewer.get(), gp_Pnt(x, 0.0, 5.0 + scale * W(x)));
        return image.pixelColor(int(p.x() * ratio), int(p.y() * ratio));
    };
    // The bar's ends: the table's colours of its smallest and largest values (blue, red). At
    // x = 1, |w| = 299 / 2e6 = 0.00015, table entry 0 of 256; at x = 99, |w| = 9801 * 201 / 2e6
    // = 0.985, entry 252, of hue 0.667 * 3 / 255 = 0.008 from red: green 0.047 * 255 = 12.
    const double* range = result.Table()->GetRange();
    ExpectNear(colourAt(1.0), TableColour(result.Table(), range[0]), "clamped end");
    ExpectNear(colourAt(99.0), TableColour(result.Table(), range[1]), "tip");
    EXPECT_GT(TableColour(result.Table(), range[0]).blue(), 200);
    EXPECT_GT(TableColour(result.Table(), range[1]).red(), 200);
    result.Clear();
    vis_StateDelete(u);
    vis_StateDelete(s);
}

TEST(TevResultRender, RefusesResultsOfAnotherMesh)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
    auto mesh = TevVolumeMesher::Mesh(box, {5.0, 1}, nullptr);
    ASSERT_TRUE(mesh);
    vis_State* u = vis_StateNew();
    vis_StateDef(u, mesh->NodeCount() + 1, SYS_NODE, 0, 1);
    vis_StateClear(u);
    auto viewer = tevtest::MakeShownViewer("CAE-TevViewer");
    TevResultRender result;
    std::string error;
    EXPECT_FALSE(result.Show(*mesh, u, nullptr, TevResultRender::Quantity::Displacement, 1.0, viewer->GetDefaultRender(), &error));
    EXPECT_EQ(error, "There are no results of this mesh to show: solve first");
    EXPECT_FALSE(result.Show(*mesh, nullptr, nullptr, TevResultRender::Quantity::VonMises, 1.0, viewer->GetDefaultRender(), &error));
    vis_StateDelete(u);
}

}  // namespace

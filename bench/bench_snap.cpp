// Times one snap query (the point picker's call on each mouse move of a drawing operation) and
// one point pick (the selection step of a left click) with 10, 100, 1,000 and 10,000 boxes in
// the document, shown whole in the window as after a rebuild, and prints how the cost grows.
// Columns: the culled snap query with all kinds and without the on-line kind, the exhaustive
// query, the culled and the exhaustive point pick, the exhaustive query per shape in
// microseconds, the document's shape list alone, and whether culled and exhaustive agreed.
// Needs a display:
//   xvfb-run -a build/bench/bench_snap [shape counts...]
#include "BenchSupport.h"
#include "BoxShapeParaCreator.h"
#include "BrepSnapMgr.h"
#include "SelectionMgr.h"
#include "ShapeBounds.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"
#include "TevPreference.h"

#include <QApplication>
#include <QSurfaceFormat>
#include <QVTKOpenGLNativeWidget.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

// Reaches the protected point pick of the widget without a mouse event around it.
class BenchViewer : public TevBasicViewer
{
public:
    // The selection step of a left release at display position (x, y).
    void PointPick(int x, int y)
    {
        GetInteractor()->SetEventPosition(x, y);
        OnLButtonDownMultiPicker(nullptr);
    }
};

const double kPitch = 8.0;  // boxes of 5 x 5 x 5 on a square lattice of this pitch

int Side(int count)
{
    int side = 1;
    while (side * side < count) ++side;
    return side;
}

void FillDocument(int count)
{
    ShapeDocMgr::GetInstance()->NewDocument();
    const int side = Side(count);
    for (int i = 0; i < count; ++i)
        BoxShapeParaCreator().CreateBox(
            gp_Ax2(gp_Pnt((i % side) * kPitch, (i / side) * kPitch, 0), gp_Dir(0, 0, 1)), 5, 5, 5);
}

// Median milliseconds of `repeats` runs of `run`, in CPU time of this thread: the machine may be
// shared, and waiting for a core is not the query's cost.
double MedianMs(int repeats, const std::function<void()>& run)
{
    std::vector<double> times;
    for (int r = 0; r < repeats; ++r) {
        const double start = bench::ThreadCpuMs();
        run();
        times.push_back(bench::ThreadCpuMs() - start);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// One overload-C query at `p`, as the point picker makes it; returns the hits.
std::vector<sSnapResult> SnapQuery(TevBasicViewer* viewer, double p[3])
{
    BrepSnapMgr snap;
    snap.InitGridData(viewer->GetCurrentPlanePoints());
    std::vector<sSnapResult> results;
    snap.PerformSnap(p, gp_Dir(0, 0, -1), results, 10.0, viewer);
    return results;
}

void Display(vtkRenderer* r, double x, double y, double z, int out[2])
{
    r->SetWorldPoint(x, y, z, 1.0);
    r->WorldToDisplay();
    out[0] = static_cast<int>(r->GetDisplayPoint()[0]);
    out[1] = static_cast<int>(r->GetDisplayPoint()[1]);
}

struct Row {
    double shapeList, snapAll, snapNoLine, snapExhaustive, pick, pickExhaustive;
    bool sameHits, samePick;
};

Row Measure(BenchViewer* viewer, int count)
{
    // Near the middle of the lattice: between two boxes, and over the top of one.
    const int side = Side(count);
    const double mid = ((side - 1) / 2) * kPitch;
    double between[3] = {mid + 6.5, mid + 6.5, 0.0};
    int top[2];
    Display(viewer->GetDefaultRender(), mid + 2.5, mid + 2.5, 5.0, top);
    const int repeats = count >= 10000 ? 5 : count >= 1000 ? 20 : 100;
    const int slow = count >= 10000 ? 1 : count >= 1000 ? 3 : 20;
    std::vector<const TopoDS_Shape*>& sel = SelectionMgr::GetInstance()->GetshapeList();

    Row row;
    // The document's shape list, which every query reads whatever it culls.
    row.shapeList = MedianMs(repeats, [&] { ShapeLabelMgr::GetInstance()->GetAllShapes(); });
    TevPreference::GetInstance()->Reset();
    row.snapAll = MedianMs(repeats, [&] { SnapQuery(viewer, between); });
    const std::vector<sSnapResult> culled = SnapQuery(viewer, between);
    row.pick = MedianMs(repeats, [&] { viewer->PointPick(top[0], top[1]); });
    const std::vector<const TopoDS_Shape*> picked = sel;

    ShapeBounds::EnableCulling(false);
    row.snapExhaustive = MedianMs(slow, [&] { SnapQuery(viewer, between); });
    const std::vector<sSnapResult> all = SnapQuery(viewer, between);
    row.pickExhaustive = MedianMs(slow, [&] { viewer->PointPick(top[0], top[1]); });
    row.samePick = sel == picked && !picked.empty();
    ShapeBounds::EnableCulling(true);

    row.sameHits = all.size() == culled.size() && !all.empty();
    for (size_t i = 0; row.sameHits && i < all.size(); ++i)
        row.sameHits = all[i].type == culled[i].type && all[i].point.IsEqual(culled[i].point, 0.0) &&
                       all[i].distance == culled[i].distance;

    TevPreference::GetInstance()->snapOnLine = false;
    row.snapNoLine = MedianMs(repeats, [&] { SnapQuery(viewer, between); });
    TevPreference::GetInstance()->Reset();
    SelectionMgr::GetInstance()->ClearSelList();
    return row;
}

}  // namespace

int main(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    BenchViewer viewer;
    bench::ShowViewer(viewer, "bench_snap");

    std::printf("CPU milliseconds per query (median); culled by the shapes' boxes unless marked exhaustive.\n");
    std::printf("%8s %10s %12s %12s %10s %12s %12s %12s %6s %6s\n", "shapes", "snap", "snap no-line", "exhaustive",
                "pick", "exhaustive", "us/shape", "shape list", "hits", "pick");
    // Sizes may be given on the command line; by default all four.
    std::vector<int> sizes = {10, 100, 1000, 10000};
    if (argc > 1) sizes.clear();
    for (int i = 1; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
    for (int count : sizes) {
        FillDocument(count);
        viewer.RefreshViewer();
        viewer.GetDefaultRender()->ResetCamera();  // the whole drawing in view
        viewer.GetRenderWindow()->Render();
        const Row row = Measure(&viewer, count);
        std::printf("%8d %10.3f %12.3f %12.3f %10.3f %12.3f %12.2f %12.3f %6s %6s\n", count, row.snapAll,
                    row.snapNoLine, row.snapExhaustive, row.pick, row.pickExhaustive,
                    1000.0 * row.snapExhaustive / count, row.shapeList, row.sameHits ? "same" : "DIFF",
                    row.samePick ? "same" : "DIFF");
        std::fflush(stdout);
    }
    return 0;
}

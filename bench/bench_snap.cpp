// Times one snap query (the point picker's call on each mouse move of a drawing operation) with
// 10, 100 and 1000 boxes in the document, and prints how the cost grows. Needs a display:
//   xvfb-run -a build/bench/bench_snap
#include "BoxShapeParaCreator.h"
#include "BrepSnapMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"
#include "TevPreference.h"

#include <QApplication>
#include <QSurfaceFormat>
#include <QTest>
#include <QVTKOpenGLNativeWidget.h>

#include <chrono>
#include <cstdio>

// Boxes of 5 x 5 x 5 on a square lattice of pitch 8 in the XY plane.
static void FillDocument(int count)
{
    ShapeDocMgr::GetInstance()->NewDocument();
    int side = 1;
    while (side * side < count) ++side;
    for (int i = 0; i < count; ++i)
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt((i % side) * 8.0, (i / side) * 8.0, 0), gp_Dir(0, 0, 1)), 5, 5, 5);
}

// Mean milliseconds of one overload-C query at a point between the boxes.
static double TimeQuery(TevBasicViewer* viewer, int repeats)
{
    const auto start = std::chrono::steady_clock::now();
    for (int r = 0; r < repeats; ++r) {
        BrepSnapMgr snap;
        snap.InitGridData(viewer->GetCurrentPlanePoints());
        std::vector<sSnapResult> results;
        double p[3] = {6.5, 6.5, 0.0};
        snap.PerformSnap(p, gp_Dir(0, 0, -1), results, 10.0, viewer);
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / repeats;
}

int main(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    TevBasicViewer viewer;
    viewer.InitViewer();
    viewer.resize(800, 600);
    viewer.show();
    if (!QTest::qWaitForWindowExposed(&viewer)) std::fprintf(stderr, "bench_snap: the window was not shown\n");

    std::printf("%8s %14s %14s %14s %14s\n", "shapes", "all kinds ms", "per shape us", "no on-line ms", "per shape us");
    double previous = 0.0;
    for (int count : {10, 100, 1000}) {
        FillDocument(count);
        const int repeats = count >= 1000 ? 3 : 20;
        TevPreference::GetInstance()->Reset();
        const double all = TimeQuery(&viewer, repeats);
        TevPreference::GetInstance()->snapOnLine = false;
        const double noLine = TimeQuery(&viewer, repeats);
        std::printf("%8d %14.3f %14.2f %14.3f %14.2f", count, all, 1000.0 * all / count, noLine, 1000.0 * noLine / count);
        if (previous > 0) std::printf("   x%.1f over the previous size", all / previous);
        std::printf("\n");
        previous = all;
    }
    return 0;
}

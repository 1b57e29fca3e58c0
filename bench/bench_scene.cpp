// Draws short lines one after another through the same path as a click of the line operation
// (the creator inside a transaction, then RefreshViewer) up to 100, 1,000 and 5,000 shapes, and
// prints the resident memory per shape and the time of the step that adds the last shape (wall
// and CPU time of this thread, and the median wall time of the last 11 steps).
// Needs a display:
//   xvfb-run -a build/bench/bench_scene [largest count]
//
// The picture is rendered every 50 steps and at each report, so that every actor has built its
// tessellation and graphics buffers when memory is read.
//
// Under Mesa's software renderer with its rasterizer threads (the default under Xvfb), what it
// keeps of the frames it drew (a few KB for each shape drawn) is part of the resident memory
// read after a render, and whether a report finds one such frame more or less than the start of
// its window depends on the renderer's rotation of frames; LP_NUM_THREADS=0 (rasterizing in the
// calling thread) leaves it out. So, unless LP_NUM_THREADS is set, the bench runs twice: as
// started, then in a child process with LP_NUM_THREADS=0, and prints both tables.
#include "BenchSupport.h"
#include "LineShapeParaCreator.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <QApplication>
#include <QSurfaceFormat>
#include <QVTKOpenGLNativeWidget.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// Resident memory after the allocator gave its free pages back (malloc_trim): what the program
// holds, without the slack that depends on the order of earlier frees.
double ResidentKb()
{
    malloc_trim(0);
    long pages = 0, resident = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(f);
    }
    return resident * (sysconf(_SC_PAGESIZE) / 1024.0);
}

double WallMs()
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

struct Step {
    double wall, cpu;
};

// One click's work: the i-th line, 3 units long, on a lattice of pitch 5.
Step AddLine(TevBasicViewer* viewer, int i)
{
    const double x = (i % 100) * 5.0, y = (i / 100) * 5.0;
    gp_Pnt a(x, y, 0), b(x + 3.0, y + 1.0, 0);
    const double wall = WallMs(), cpu = bench::ThreadCpuMs();
    ShapeDocMgr::GetInstance()->StartTransaction();
    LineShapeParaCreator().CreateLine(a, b);
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
    return {WallMs() - wall, bench::ThreadCpuMs() - cpu};
}

void Render(TevBasicViewer* viewer)
{
    viewer->GetDefaultRender()->ResetCamera();
    viewer->GetRenderWindow()->Render();
}

}  // namespace

// Runs this program again with Mesa rasterizing in the calling thread, and waits for it.
void RunWithoutRasterizerThreads(char** argv)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        setenv("LP_NUM_THREADS", "0", 1);
        execv("/proc/self/exe", argv);
        std::perror("bench_scene: exec");
        _exit(1);
    }
    int status = 0;
    if (child > 0) waitpid(child, &status, 0);
}

int main(int argc, char** argv)
{
    const bool threaded = std::getenv("LP_NUM_THREADS") == nullptr;
    if (!threaded) std::printf("\nMesa rasterizing in the calling thread (LP_NUM_THREADS=%s):\n", std::getenv("LP_NUM_THREADS"));
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    TevBasicViewer viewer;
    bench::ShowViewer(viewer, "bench_scene");
    ShapeDocMgr::GetInstance()->NewDocument();
    viewer.RefreshViewer();
    Render(&viewer);

    const int largest = argc > 1 ? std::atoi(argv[1]) : 5000;
    std::vector<int> reports;
    for (int n : {100, 1000, 5000})
        if (n <= largest) reports.push_back(n);

    // Memory per shape is read over the last fifth of the steps up to each report: a narrower
    // window mostly shows when the allocator happened to grow or give back a large block.
    // Every rebuild appends each shape's actor to the viewer's actor list again (8 bytes per
    // shape in the document), so that list alone adds 8 x n bytes to the step that adds the n-th
    // shape; the last columns split it off.
    std::printf("%7s %10s %11s %14s %12s %12s %10s %12s %10s\n", "shapes", "RSS MB", "KB/shape", "KB/shape last",
                "actor list", "the rest", "last ms", "last cpu ms", "median ms");
    const double base = ResidentKb();
    double windowStart = base;
    std::vector<double> recent;
    for (int i = 1; i <= reports.back(); ++i) {
        const Step step = AddLine(&viewer, i - 1);
        recent.push_back(step.wall);
        if (recent.size() > 11) recent.erase(recent.begin());
        const bool report = std::find(reports.begin(), reports.end(), i) != reports.end();
        const bool windowOpens = std::find_if(reports.begin(), reports.end(), [i](int n) {
                                     return i == n - n / 5;
                                 }) != reports.end();
        if (i % 50 == 0 || report || windowOpens) Render(&viewer);
        if (windowOpens) windowStart = ResidentKb();
        if (!report) continue;
        const double rss = ResidentKb();
        std::vector<double> sorted = recent;
        std::sort(sorted.begin(), sorted.end());
        const int first = i - i / 5 + 1, steps = i / 5;
        // Steps first..i append first + ... + i actors: (first + i) * steps / 2 entries of 8 bytes.
        const double listKb = (first + i) * 0.5 * 8.0 / 1024.0;
        const double lastKb = (rss - windowStart) / steps;
        std::printf("%7d %10.1f %11.1f %14.1f %12.1f %12.1f %10.2f %12.2f %10.2f\n", i, rss / 1024.0,
                    (rss - base) / i, lastKb, listKb, lastKb - listKb, step.wall, step.cpu, sorted[sorted.size() / 2]);
        std::fflush(stdout);
    }
    if (threaded) RunWithoutRasterizerThreads(argv);
    return 0;
}

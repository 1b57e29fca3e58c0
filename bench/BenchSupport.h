// Shared by the viewer benchmarks: the window shown as the user sees it, and a clock that counts
// only this thread's work, since the machine may be busy with other things.
#ifndef BENCHSUPPORT_H
#define BENCHSUPPORT_H

#include "TevBasicViewer.h"

#include <QTest>

#include <cstdio>
#include <ctime>

namespace bench {

// Initialises and shows `viewer` at 800 x 600 and waits until it is drawn.
inline void ShowViewer(TevBasicViewer& viewer, const char* name)
{
    viewer.InitViewer();
    viewer.resize(800, 600);
    viewer.show();
    if (!QTest::qWaitForWindowExposed(&viewer)) std::fprintf(stderr, "%s: the window was not shown\n", name);
}

inline double ThreadCpuMs()
{
    timespec t;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec * 1e-6;
}

}  // namespace bench

#endif

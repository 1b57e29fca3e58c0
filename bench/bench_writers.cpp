// Writer benchmark: the NASTRAN deck, the ABAQUS deck and the native text and binary forms (vis_ConnectWrite -1,
// -2) of structured hexahedral and tetrahedral meshes of about 10^4, 10^5 and 10^6 elements,
// each timed on the wall clock with its bytes and MB/s, beside
// the floor of the C library: formatting the same coordinates with snprintf("%23.15E") alone
// into a buffer, as the deck's grid cards need them, with no file and no element.
//
// Nodes lie on a grid of spacing 0.1 (reals with full 17-digit expansions); every node is a
// grid point and every element a solid. The tetrahedral mesh splits each cell into six.
// Run: bench_writers [largest n]. Build in Release for meaningful numbers. The deck goes to
// /tmp/bench_writers.bdf and is removed.
#include "vis_ABAFwt.h"
#include "vis_Connect.h"
#include "vis_ConnectWrite.h"
#include "vis_Model.h"
#include "vis_NASFwt.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>

namespace {

using Clock = std::chrono::steady_clock;

double Ms(Clock::time_point t0)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - t0).count();
}

int Node(int n, int i, int j, int k)
{
    return 1 + i + (n + 1) * (j + (n + 1) * k);
}

/* The six tetrahedra of a cell around its diagonal from corner 0 to corner 6. */
const int kTets[6][4] = {{0, 1, 2, 6}, {0, 2, 3, 6}, {0, 3, 7, 6}, {0, 7, 4, 6}, {0, 4, 5, 6}, {0, 5, 1, 6}};

vis_Connect* BuildMesh(int n, bool tets)
{
    const int nn = (n + 1) * (n + 1) * (n + 1), ncell = n * n * n, ne = tets ? 6 * ncell : ncell;
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, nn, ne);
    for (int k = 0; k <= n; ++k)
        for (int j = 0; j <= n; ++j)
            for (int i = 0; i <= n; ++i) {
                const double x[3] = {0.1 * i, 0.1 * j, 0.1 * k};
                const int id = Node(n, i, j, k);
                vis_ConnectSetCoordsdv(c, id, x);
                vis_ConnectSetNodeAssoc(c, 0, id, 1);
            }
    int e = 0;
    for (int cell = 0; cell < ncell; ++cell) {
        const int i = cell % n, j = (cell / n) % n, k = cell / (n * n);
        const int v[8] = {Node(n, i, j, k),         Node(n, i + 1, j, k),         Node(n, i + 1, j + 1, k),
                          Node(n, i, j + 1, k),     Node(n, i, j, k + 1),         Node(n, i + 1, j, k + 1),
                          Node(n, i + 1, j + 1, k + 1), Node(n, i, j + 1, k + 1)};
        if (!tets) {
            vis_ConnectSetTopology(c, ++e, SYS_SHAPE_HEX, 0, 0, 0);
            vis_ConnectSetElemNode(c, e, v);
            vis_ConnectSetElemAssoc(c, 0, e, 1);
            continue;
        }
        for (const int* t : kTets) {
            const int nodes[4] = {v[t[0]], v[t[1]], v[t[2]], v[t[3]]};
            vis_ConnectSetTopology(c, ++e, SYS_SHAPE_TET, 0, 0, 0);
            vis_ConnectSetElemNode(c, e, nodes);
            vis_ConnectSetElemAssoc(c, 0, e, 1);
        }
    }
    return c;
}

/* The C library's floor: three "%23.15E" conversions per node. */
double SnprintfFloor(int n)
{
    char buf[40];
    volatile char sink = 0;
    const Clock::time_point t0 = Clock::now();
    for (int k = 0; k <= n; ++k)
        for (int j = 0; j <= n; ++j)
            for (int i = 0; i <= n; ++i) {
                const double x[3] = {0.1 * i, 0.1 * j, 0.1 * k};
                for (double v : x) {
                    std::snprintf(buf, sizeof buf, "%23.15E", v);
                    sink = sink + buf[19];
                }
            }
    return Ms(t0);
}

/* The ABAQUS deck of the same model: time, bytes and MB/s. Its coordinates are the same
 * "%23.15E" conversions as the NASTRAN grid cards, so the snprintf floor is shared. */
void Abaqus(vis_Model* model)
{
    const char* path = "/tmp/bench_writers.inp";
    vis_ABAFwt* aba = vis_ABAFwtNew();
    const Clock::time_point t0 = Clock::now();
    vis_ABAFwtWriteModel(aba, model, path);
    const double ms = Ms(t0);
    const int err = vis_ABAFwtError(aba);
    vis_ABAFwtDelete(aba);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    std::printf("      %-8s %9.1f ms %11lld B %8.1f MB/s%s\n", "abaqus", ms, (long long)st.st_size,
                st.st_size / 1048576.0 / (ms / 1000.0), err ? "  (write failed)" : "");
}

/* One vis_ConnectWrite form: time, bytes and MB/s. */
void Form(vis_Connect* c, int type, const char* label)
{
    const char* path = "/tmp/bench_writers.out";
    const Clock::time_point t0 = Clock::now();
    vis_ConnectWrite(c, type, path);
    const double ms = Ms(t0);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    std::printf("      %-8s %9.1f ms %11lld B %8.1f MB/s\n", label, ms, (long long)st.st_size,
                st.st_size / 1048576.0 / (ms / 1000.0));
}

void Run(const char* kind, int n, bool tets)
{
    vis_Connect* c = BuildMesh(n, tets);
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    vis_NASFwt* nas = vis_NASFwtNew();
    const char* path = "/tmp/bench_writers.bdf";
    const Clock::time_point t0 = Clock::now();
    vis_NASFwtWriteModel(nas, model, path);
    const double ms = Ms(t0);
    const int err = vis_NASFwtError(nas);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    const double floor = SnprintfFloor(n);
    int ne = 0, nn = 0;
    vis_ConnectGetInteger(c, 4, &ne);
    vis_ConnectGetInteger(c, 1, &nn);
    std::printf("%-5s %9d elems %9d nodes  nastran %9.1f ms %11lld B %8.1f MB/s  snprintf floor %9.1f ms%s\n", kind,
                ne, nn, ms, (long long)st.st_size, st.st_size / 1048576.0 / (ms / 1000.0), floor,
                err ? "  (write failed)" : "");
    Abaqus(model);
    Form(c, -1, "text");
    Form(c, -2, "binary");
    std::fflush(stdout);
    vis_NASFwtDelete(nas);
    vis_ModelDelete(model);
    vis_ConnectDelete(c);
}

}  // namespace

int main(int argc, char** argv)
{
    const int nmax = argc > 1 ? std::atoi(argv[1]) : 100;
    const int hex[3] = {22, 47, 100};  /* 10648, 103823, 10^6 */
    const int tet[3] = {12, 26, 55};   /* 6 n^3: 10368, 105456, 998250 */
    for (int i = 0; i < 3; ++i)
        if (hex[i] <= nmax) Run("hex", hex[i], false);
    for (int i = 0; i < 3; ++i)
        if (tet[i] <= nmax) Run("tet", tet[i], true);
    return 0;
}

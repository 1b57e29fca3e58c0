// Result state benchmark: a state of 10^6 node vectors and one of 10^6 hexahedra with a
// scalar at each of their 8 nodes, in float and double: the time to set and to read every
// value, and the memory per value, from the process's resident size and from the stores.
// Run: bench_state [n] for n^3 cells (default 100). Build in Release for meaningful numbers.
#include "vis_Connect.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_Model.h"
#include "vis_State.h"
#include "vsy_RedPre.h"

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double Ms(Clock::time_point t0)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - t0).count();
}

/* Resident bytes of the process, after returning freed memory to the system. */
double ResidentBytes()
{
    malloc_trim(0);
    long pages = 0, resident = 0;
    FILE* fp = std::fopen("/proc/self/statm", "r");
    if (fp && std::fscanf(fp, "%ld %ld", &pages, &resident) != 2) resident = 0;
    if (fp) std::fclose(fp);
    return static_cast<double>(resident) * 4096.0;
}

int Node(int n, int i, int j, int k)
{
    return 1 + i + (n + 1) * (j + (n + 1) * k);
}

vis_Connect* Hexahedra(int n)
{
    const int nn = (n + 1) * (n + 1) * (n + 1), ne = n * n * n;
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, nn, ne);
    for (int e = 0; e < ne; ++e) {
        const int i = e % n, j = (e / n) % n, k = e / (n * n);
        const int v[8] = {Node(n, i, j, k),         Node(n, i + 1, j, k),         Node(n, i + 1, j + 1, k),
                          Node(n, i, j + 1, k),     Node(n, i, j, k + 1),         Node(n, i + 1, j, k + 1),
                          Node(n, i + 1, j + 1, k + 1), Node(n, i, j + 1, k + 1)};
        vis_ConnectSetTopology(c, e + 1, SYS_SHAPE_HEX, 0, 0, 0);
        vis_ConnectSetElemNode(c, e + 1, v);
    }
    return c;
}

/* One state: define, clear, set every entity, read every entity; times and memory. */
void Run(const char* label, vis_GridFun* gf, int nument, int parent, int child, int datatype, int precision, int perent)
{
    const double before = ResidentBytes();
    vis_State* s = vis_StateNew();
    vis_StateSetObject(s, SYS_GRIDFUN, gf);
    vis_StatePre(s, precision);
    vis_StateDef(s, nument, parent, child, datatype);
    vis_StateClear(s);
    std::vector<double> v(static_cast<size_t>(perent));
    Clock::time_point t0 = Clock::now();
    for (int id = 1; id <= nument; ++id) {
        for (int i = 0; i < perent; ++i) v[static_cast<size_t>(i)] = id + 0.125 * i;
        vis_StateSetDatadv(s, id, v.data());
    }
    const double set = Ms(t0);
    const double after = ResidentBytes();
    double sum = 0.0;
    t0 = Clock::now();
    for (int id = 1; id <= nument; ++id) {
        if (child) vis_StateDataElemdv(s, id, v.data());
        else vis_StateDatadv(s, 1, &id, v.data());
        sum += v[0];
    }
    const double get = Ms(t0);
    const double values = static_cast<double>(nument) * perent;
    std::printf("%-34s %9.0f values  set %7.1f ms  get %7.1f ms  %6.2f B/value resident  (check %.0f)%s\n", label,
                values, set, get, (after - before) / values, sum, vis_StateError(s) ? "  (failed)" : "");
    vis_StateDelete(s);
}

}  // namespace

int main(int argc, char** argv)
{
    const int n = argc > 1 ? std::atoi(argv[1]) : 100;
    vis_Connect* c = Hexahedra(n);
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(c, gf);
    const int nn = (n + 1) * (n + 1) * (n + 1), ne = n * n * n;
    Run("node vectors, float", gf, nn, SYS_NODE, 0, 1, SYS_PRECISION_FLOAT, 3);
    Run("node vectors, double", gf, nn, SYS_NODE, 0, 1, SYS_PRECISION_DOUBLE, 3);
    Run("element node scalars x8, float", gf, ne, SYS_ELEM, SYS_NODE, 0, SYS_PRECISION_FLOAT, 8);
    Run("element node scalars x8, double", gf, ne, SYS_ELEM, SYS_NODE, 0, SYS_PRECISION_DOUBLE, 8);
    vis_GridFunDelete(gf);
    vis_ConnectDelete(c);
    return 0;
}

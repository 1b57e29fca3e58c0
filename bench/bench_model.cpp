// Model benchmark: a structured hexahedral mesh of n^3 elements (n = 100 by default, 10^6
// elements) in 10 parts of n/10 layers each, one element property and one material per part,
// and a pressure on all six faces of every element of the top layer.
//
// Phases, each timed on the wall clock with the bytes it leaves allocated through the library's
// memory slots (a counting allocator) and the growth of the resident size:
//   attach   per element the `propid` and `matlid` associations, the properties, materials,
//            their tables and the model slots
//   pressure the load case: one face record per loaded element, six faces each
//   read     per element: `propid` -> property -> parameter 0 (material id) -> material ->
//            Young's modulus, as a writer reads them
// Run: bench_model [n]. Build in Release for meaningful numbers.
#include "vis_Connect.h"
#include "vis_EProp.h"
#include "vis_LCase.h"
#include "vis_MProp.h"
#include "vis_Model.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/* Counting allocator: every block carries its size in a 16-byte header. */
long long g_live = 0;

void* CountMalloc(size_t n)
{
    char* p = (char*)std::malloc(n + 16);
    if (!p) return nullptr;
    *(size_t*)p = n;
    g_live += (long long)n;
    return p + 16;
}

void CountFree(void* q)
{
    if (!q) return;
    char* p = (char*)q - 16;
    g_live -= (long long)*(size_t*)p;
    std::free(p);
}

void* CountRealloc(void* q, size_t n)
{
    if (!q) return CountMalloc(n);
    char* p = (char*)q - 16;
    size_t old = *(size_t*)p;
    char* r = (char*)std::realloc(p, n + 16);
    if (!r) return nullptr;
    *(size_t*)r = n;
    g_live += (long long)n - (long long)old;
    return r + 16;
}

long RssKb()
{
    FILE* f = std::fopen("/proc/self/status", "r");
    if (!f) return 0;
    char line[256];
    long v = 0;
    while (std::fgets(line, sizeof line, f))
        if (std::strncmp(line, "VmRSS:", 6) == 0) v = std::atol(line + 7);
    std::fclose(f);
    return v;
}

struct Phase {
    std::chrono::steady_clock::time_point t0;
    long long live0;
    long rss0;
    void Start()
    {
        live0 = g_live;
        rss0 = RssKb();
        t0 = std::chrono::steady_clock::now();
    }
    void Stop(const char* name, long count, const char* per)
    {
        double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
        long long bytes = g_live - live0;
        long rss = RssKb() - rss0;
        std::printf("%-9s %9ld %-6s %9.2f ms %8.1f ns/%s  allocated %9.2f MB (%6.1f B/%s)  rss %+8.2f MB\n", name,
                    count, per, ms, ms * 1e6 / count, per, bytes / 1048576.0, (double)bytes / count, per, rss / 1024.0);
        std::fflush(stdout);
    }
};

int Node(int n, int i, int j, int k)
{
    return 1 + i + (n + 1) * (j + (n + 1) * k);
}

vis_Connect* BuildMesh(int n)
{
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, (n + 1) * (n + 1) * (n + 1), n * n * n);
    for (int k = 0; k <= n; ++k)
        for (int j = 0; j <= n; ++j)
            for (int i = 0; i <= n; ++i) {
                double x[3] = {(double)i, (double)j, (double)k};
                vis_ConnectSetCoordsdv(c, Node(n, i, j, k), x);
            }
    for (int e = 0; e < n * n * n; ++e) {
        int i = e % n, j = (e / n) % n, k = e / (n * n);
        int nodes[8] = {Node(n, i, j, k),         Node(n, i + 1, j, k),         Node(n, i + 1, j + 1, k),
                        Node(n, i, j + 1, k),     Node(n, i, j, k + 1),         Node(n, i + 1, j, k + 1),
                        Node(n, i + 1, j + 1, k + 1), Node(n, i, j + 1, k + 1)};
        vis_ConnectSetTopology(c, e + 1, SYS_SHAPE_HEX, 0, 0, 0);
        vis_ConnectSetElemNode(c, e + 1, nodes);
    }
    return c;
}

}  // namespace

int main(int argc, char** argv)
{
    int n = argc > 1 ? std::atoi(argv[1]) : 100;
    if (n < 10) n = 10;
    const int nparts = 10, ne = n * n * n, perpart = n * n * ((n + nparts - 1) / nparts);
    vsy_SetMemoryFunctions(CountMalloc, CountRealloc, CountFree);
    std::printf("%d x %d x %d hexahedra, %d parts\n", n, n, n, nparts);
    vis_Connect* c = BuildMesh(n);
    std::printf("mesh      %9d elems  allocated %9.2f MB\n", ne, g_live / 1048576.0);

    Phase p;
    p.Start();
    vis_Model* model = vis_ModelNew();
    vsy_HashTable* eprops = vsy_HashTableNew();
    vsy_HashTable* mprops = vsy_HashTableNew();
    vis_EProp* ep[nparts];
    vis_MProp* mp[nparts];
    for (int part = 1; part <= nparts; ++part) {
        ep[part - 1] = vis_EPropNew();
        vis_EPropDef(ep[part - 1], 1);
        vis_EPropSetValuei(ep[part - 1], 0, part);
        vsy_HashTableInsert(eprops, part, ep[part - 1]);
        mp[part - 1] = vis_MPropNew();
        vis_MPropDef(mp[part - 1], 0);
        vis_MPropSetValued(mp[part - 1], 1, 2.0e11 + part);
        vis_MPropSetValued(mp[part - 1], 2, 0.3);
        vsy_HashTableInsert(mprops, part, mp[part - 1]);
    }
    for (int e = 1; e <= ne; ++e) {
        int part = (e - 1) / perpart + 1;
        vis_ConnectSetElemAssoc(c, 2, e, part);
        vis_ConnectSetElemAssoc(c, 1, e, part);
    }
    vis_ModelSetObject(model, SYS_CONNECT, c);
    vis_ModelSetHashTable(model, SYS_EPROP, eprops);
    vis_ModelSetHashTable(model, SYS_MPROP, mprops);
    p.Stop("attach", ne, "elem");

    p.Start();
    vis_LCase* lc = vis_LCaseNew();
    const double pressure[4] = {1.0e5, 1.0e5, 1.0e5, 1.0e5};
    int ntop = 0;
    for (int e = ne - n * n + 1; e <= ne; ++e, ++ntop)
        for (int face = 1; face <= 6; ++face) vis_LCaseSetDistdv(lc, SYS_FACE, e, face, 2, pressure);
    vsy_HashTable* lcases = vsy_HashTableNew();
    vsy_HashTableInsert(lcases, 1, lc);
    vis_ModelSetHashTable(model, SYS_LCASE, lcases);
    p.Stop("pressure", ntop, "elem");

    p.Start();
    double sum = 0.0;
    long missing = 0;
    for (int e = 1; e <= ne; ++e) {
        vsy_HashTable* tab = nullptr;
        vis_ModelGetHashTable(model, SYS_EPROP, &tab);
        int propid = 0, mid = 0;
        vis_ConnectElemAssoc(c, 2, 1, &e, &propid);
        void* obj = nullptr;
        vsy_HashTableGet(tab, propid, &obj);
        vis_EPropValueInteger((vis_EProp*)obj, 0, &mid);
        vis_ModelGetHashTable(model, SYS_MPROP, &tab);
        obj = nullptr;
        vsy_HashTableGet(tab, mid, &obj);
        double young = 0.0;
        if (obj) vis_MPropValueDouble((vis_MProp*)obj, 1, &young);
        else ++missing;
        sum += young;
    }
    p.Stop("read", ne, "elem");
    int flags = 0;
    vis_LCaseDistFlag(lc, SYS_FACE, ne, 2, &flags);
    std::printf("check: mean E %.6g, %ld without material, top element face flags 0x%x\n", sum / ne, missing, flags);

    vis_ModelDelete(model);
    vsy_HashTableDelete(lcases);
    vis_LCaseDelete(lc);
    for (int i = 0; i < nparts; ++i) {
        vis_EPropDelete(ep[i]);
        vis_MPropDelete(mp[i]);
    }
    vsy_HashTableDelete(eprops);
    vsy_HashTableDelete(mprops);
    vis_ConnectDelete(c);
    std::printf("left allocated after deleting everything: %lld bytes\n", g_live);
    return 0;
}

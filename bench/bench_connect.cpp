// Connectivity benchmark: structured hexahedral meshes of 10^4, 10^5 and 10^6 elements.
//
// For vis_Connect: time and peak memory to define the mesh (nodes, topology, node lists), to
// run the kernel, and to query the face neighbours of every element (six vis_ConnectElemAdj
// calls each). For VTK, on the identical vtkUnstructuredGrid: building the grid, its static
// cell links (vtkStaticCellLinks), face neighbours from those links, and the outer surface (vtkGeometryFilter, then vtkDataSetSurfaceFilter).
//
// Each size and each library runs in a child process of its own, so that peaks do not mix.
// Peak memory of a phase: the growth of VmHWM during the phase, after resetting the peak to
// the current resident size (/proc/self/clear_refs, "5"). Run: bench_connect [max elements].
//
// The free faces of the mesh (vis_ConnectFaceGroup oper 1) stand beside VTK's surface filters,
// the face counts of both printed. Last, vsy_ADTree range queries over 10^5 random boxes
// against a brute-force scan of the same boxes, with the hits of both compared.
#include "vis_Connect.h"
#include "vis_ConnectGroup.h"
#include "vis_ConnectGroupInternal.h"
#include "vis_ConnectKernel.h"
#include "vis_Group.h"
#include "vsy_ADTree.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#ifdef TEV_BENCH_VTK
#include <vtkCellArray.h>
#include <vtkDataSetSurfaceFilter.h>
#include <vtkGeometryFilter.h>
#include <vtkIdList.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSMPTools.h>
#include <vtkStaticCellLinks.h>
#include <vtkUnstructuredGrid.h>
#endif

namespace {

long StatusKb(const char* key)
{
    FILE* f = std::fopen("/proc/self/status", "r");
    if (!f) return 0;
    char line[256];
    long v = 0;
    size_t n = std::strlen(key);
    while (std::fgets(line, sizeof line, f))
        if (std::strncmp(line, key, n) == 0) v = std::atol(line + n + 1);
    std::fclose(f);
    return v;
}

void ResetPeak()
{
    FILE* f = std::fopen("/proc/self/clear_refs", "w");
    if (f) {
        std::fputs("5", f);
        std::fclose(f);
    }
}

struct Phase {
    std::chrono::steady_clock::time_point t0;
    long rss0;
    void Start()
    {
        ResetPeak();
        rss0 = StatusKb("VmRSS:");
        t0 = std::chrono::steady_clock::now();
    }
    double Stop(const char* lib, const char* name, long nelem, long check)
    {
        double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
        long peak = StatusKb("VmHWM:") - rss0;
        long kept = StatusKb("VmRSS:") - rss0;
        std::printf("%-4s %-28s %8ld elems %10.2f ms %9.1f ns/elem  peak %8.2f MB (%6.1f B/elem)  kept %8.2f MB\n", lib,
                    name, nelem, ms, ms * 1e6 / nelem, peak / 1024.0, peak * 1024.0 / nelem, kept / 1024.0);
        if (check) std::printf("     (neighbour pairs found: %ld)\n", check);
        std::fflush(stdout);
        return ms;
    }
};

struct Grid {
    int nx, ny, nz;
    long NumElem() const { return (long)nx * ny * nz; }
    long NumNode() const { return (long)(nx + 1) * (ny + 1) * (nz + 1); }
    long NumFree() const { return 2L * ((long)nx * ny + (long)ny * nz + (long)nx * nz); }
    int Node(int i, int j, int k) const { return 1 + i + (nx + 1) * (j + (ny + 1) * k); }
    void Hex(int e, int* n) const
    {
        int i = e % nx, j = (e / nx) % ny, k = e / (nx * ny);
        n[0] = Node(i, j, k);
        n[1] = Node(i + 1, j, k);
        n[2] = Node(i + 1, j + 1, k);
        n[3] = Node(i, j + 1, k);
        n[4] = Node(i, j, k + 1);
        n[5] = Node(i + 1, j, k + 1);
        n[6] = Node(i + 1, j + 1, k + 1);
        n[7] = Node(i, j + 1, k + 1);
    }
};

// Flags set in a face group of nument elements.
long FlagCount(vis_Group* faces, long nument)
{
    long total = 0;
    for (int e = 1; e <= nument; ++e) {
        int nf = 0, last = 0;
        vis_GroupNumEntFlag(faces, e, &nf, &last);
        total += nf;
    }
    return total;
}

void RunConnect(const Grid& g)
{
    Phase p;
    long ne = g.NumElem();
    p.Start();
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, (int)g.NumNode(), (int)ne);
    for (int k = 0; k <= g.nz; ++k)
        for (int j = 0; j <= g.ny; ++j)
            for (int i = 0; i <= g.nx; ++i) {
                double x[3] = {(double)i, (double)j, (double)k};
                vis_ConnectSetCoordsdv(c, g.Node(i, j, k), x);
            }
    int n[8];
    for (int e = 0; e < ne; ++e) {
        g.Hex(e, n);
        vis_ConnectSetTopology(c, e + 1, SYS_SHAPE_HEX, 0, 0, 0);
        vis_ConnectSetElemNode(c, e + 1, n);
    }
    p.Stop("vis", "define mesh", ne, 0);

    p.Start();
    vis_ConnectKernel(c);
    double kernel = p.Stop("vis", "kernel (node->elem)", ne, 0);
    if (vis_ConnectError(c)) std::printf("kernel error\n");

    p.Start();
    long total = 0;
    int adj[64], num;
    for (int e = 1; e <= ne; ++e)
        for (int f = 1; f <= 6; ++f) {
            vis_ConnectElemAdj(c, SYS_FACE, e, f, &num, adj);
            total += num;
        }
    p.Stop("vis", "face neighbours (6/elem)", ne, total);
    long want = 2L * ((long)(g.nx - 1) * g.ny * g.nz + (long)g.nx * (g.ny - 1) * g.nz + (long)g.nx * g.ny * (g.nz - 1));
    if (total != want) std::printf("vis  neighbour count %ld, expected %ld\n", total, want);

    p.Start();
    vis_Group* faces = vis_GroupNew();
    vis_GroupDef(faces, (int)ne, SYS_ELEM, SYS_FACE);
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, faces);
    double scan = p.Stop("vis", "free faces (FaceGroup 1)", ne, 0);
    std::printf("     (free faces: %ld, expected %ld; %s scan; with the kernel %.2f ms)\n", FlagCount(faces, ne),
                g.NumFree(), vis_Connect_FreeScanHasAvx2() ? "AVX2" : "baseline", kernel + scan);
    // The baseline build of the scan, which processors without AVX2 run.
    vis_GroupClear(faces);
    p.Start();
    vis_Connect_FreeScanBase(c, VIS_CGROUP_FREE, nullptr, faces, nullptr, nullptr);
    p.Stop("vis", "free faces, baseline scan", ne, 0);
    std::printf("     (free faces: %ld)\n", FlagCount(faces, ne));
    vis_GroupDelete(faces);
    vis_ConnectDelete(c);
}

#ifdef TEV_BENCH_VTK
void RunVtk(const Grid& g)
{
    Phase p;
    long ne = g.NumElem();
    p.Start();
    vtkNew<vtkUnstructuredGrid> ug;
    {
        vtkNew<vtkPoints> pts;
        pts->SetDataTypeToDouble();
        pts->SetNumberOfPoints(g.NumNode());
        for (int k = 0; k <= g.nz; ++k)
            for (int j = 0; j <= g.ny; ++j)
                for (int i = 0; i <= g.nx; ++i) pts->SetPoint(g.Node(i, j, k) - 1, i, j, k);
        vtkNew<vtkIdTypeArray> offsets, conn;
        offsets->SetNumberOfValues(ne + 1);
        conn->SetNumberOfValues(8 * ne);
        int n[8];
        for (long e = 0; e < ne; ++e) {
            g.Hex((int)e, n);
            offsets->SetValue(e, 8 * e);
            for (int a = 0; a < 8; ++a) conn->SetValue(8 * e + a, n[a] - 1);
        }
        offsets->SetValue(ne, 8 * ne);
        vtkNew<vtkCellArray> cells;
        cells->SetData(offsets, conn);
        ug->SetPoints(pts);
        ug->SetCells(VTK_HEXAHEDRON, cells);
    }
    p.Stop("vtk", "define vtkUnstructuredGrid", ne, 0);

    p.Start();
    vtkNew<vtkStaticCellLinks> links;
    links->BuildLinks(ug);
    p.Stop("vtk", "vtkStaticCellLinks", ne, 0);

    // Face neighbours from the links: candidates of the first corner looked up at the others.
    static const int faces[6][4] = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                    {3, 7, 6, 2}, {0, 4, 7, 3}, {1, 2, 6, 5}};
    p.Start();
    long total = 0;
    for (vtkIdType e = 0; e < ne; ++e) {
        const vtkIdType* pts;
        vtkIdType npts;
        ug->GetCellPoints(e, npts, pts);
        for (int f = 0; f < 6; ++f) {
            const vtkIdType* row[4];
            vtkIdType len[4];
            for (int a = 0; a < 4; ++a) {
                vtkIdType pid = pts[faces[f][a]];
                row[a] = links->GetCells(pid);
                len[a] = links->GetNcells(pid);
            }
            // The threaded build does not promise sorted rows: look each candidate up.
            for (vtkIdType i = 0; i < len[0]; ++i) {
                vtkIdType c = row[0][i];
                if (c == e) continue;
                bool all = true;
                for (int a = 1; a < 4 && all; ++a) {
                    bool found = false;
                    for (vtkIdType j = 0; j < len[a] && !found; ++j) found = row[a][j] == c;
                    all = found;
                }
                if (all) ++total;
            }
        }
    }
    p.Stop("vtk", "face neighbours from links", ne, total);

    long nsurf = 0;
    p.Start();
    {
        vtkNew<vtkGeometryFilter> geo;
        geo->SetInputData(ug);
        geo->Update();
        nsurf = geo->GetOutput()->GetNumberOfCells();
    }
    p.Stop("vtk", "vtkGeometryFilter surface", ne, 0);
    std::printf("     (surface faces: %ld)\n", nsurf);
    p.Start();
    {
        vtkNew<vtkDataSetSurfaceFilter> surf;
        surf->SetInputData(ug);
        surf->Update();
        nsurf = surf->GetOutput()->GetNumberOfCells();
    }
    p.Stop("vtk", "vtkDataSetSurfaceFilter", ne, 0);
    std::printf("     (surface faces: %ld)\n", nsurf);
}
#endif

// Boxes of random corners in [0, 100]^3 and edges up to 2, the query boxes likewise up to 5.
void RandomBox(unsigned long long* s, double size, double* lo, double* hi)
{
    for (int a = 0; a < 3; ++a) {
        *s = *s * 6364136223846793005ULL + 1442695040888963407ULL;
        lo[a] = (double)((*s >> 33) % 9000) / 100.0;
        *s = *s * 6364136223846793005ULL + 1442695040888963407ULL;
        hi[a] = lo[a] + size * (double)((*s >> 33) % 1000) / 1000.0;
    }
}

// vsy_ADTree range queries against a scan of every box, at 10^5 boxes.
void RunADTree()
{
    const int nbox = 100000, nquery = 2000;
    std::vector<double> box(6 * (size_t)nbox);
    unsigned long long s = 23;
    for (int b = 0; b < nbox; ++b) RandomBox(&s, 2.0, &box[6 * b], &box[6 * b + 3]);
    std::vector<double> query(6 * (size_t)nquery);
    for (int q = 0; q < nquery; ++q) RandomBox(&s, 5.0, &query[6 * q], &query[6 * q + 3]);
    const double lo[3] = {0, 0, 0}, hi[3] = {100, 100, 100}, tol = 0.0001;

    Phase p;
    p.Start();
    vsy_ADTree* tree = vsy_ADTreeNew();
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, nbox, lo, hi);
    for (int b = 0; b < nbox; ++b) vsy_ADTreeInsertExtent(tree, b + 1, &box[6 * b], &box[6 * b + 3]);
    p.Stop("adt", "insert 10^5 boxes", nbox, 0);
    p.Start();
    long hits = 0, visited = 0;
    for (int q = 0; q < nquery; ++q) {
        vsy_ADTreeSearchExtent(tree, &query[6 * q], &query[6 * q + 3]);
        hits += tree->numhits;
        visited += tree->visited;
    }
    p.Stop("adt", "2000 range queries", nquery, 0);
    std::printf("     (hits: %ld; tree nodes visited per query: %.0f of %d, depth %d)\n", hits, (double)visited / nquery,
                nbox, tree->depth);
    vsy_ADTreeDelete(tree);

    p.Start();
    long brute = 0;
    for (int q = 0; q < nquery; ++q) {
        const double* qb = &query[6 * q];
        for (int b = 0; b < nbox; ++b) {
            const double* bb = &box[6 * b];
            bool in = true;
            for (int a = 0; a < 3 && in; ++a) in = bb[a] <= qb[3 + a] + tol && bb[3 + a] >= qb[a] - tol;
            brute += in;
        }
    }
    p.Stop("scan", "2000 brute-force queries", nquery, 0);
    std::printf("     (hits: %ld)\n", brute);
    if (brute != hits) std::printf("adt  hit count %ld differs from the scan's %ld\n", hits, brute);
}

template <class F>
void InChild(F f)
{
    std::fflush(stdout);
    pid_t pid = fork();
    if (pid == 0) {
        f();
        std::fflush(stdout);
        _exit(0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
}

}  // namespace

int main(int argc, char** argv)
{
    long maxelem = argc > 1 ? std::atol(argv[1]) : 1000000;
#ifdef TEV_BENCH_VTK
    std::printf("VTK SMP backend %s, %d threads\n", vtkSMPTools::GetBackend(), vtkSMPTools::GetEstimatedNumberOfThreads());
#else
    std::printf("VTK not found at configure time: vis_Connect only\n");
#endif
    const Grid grids[3] = {{100, 100, 1}, {100, 100, 10}, {100, 100, 100}};
    for (const Grid& g : grids) {
        if (g.NumElem() > maxelem) break;
        std::printf("\n%dx%dx%d hexahedra, %ld nodes\n", g.nx, g.ny, g.nz, g.NumNode());
        InChild([&] { RunConnect(g); });
#ifdef TEV_BENCH_VTK
        InChild([&] { RunVtk(g); });
#endif
    }
    std::printf("\nvsy_ADTree, 10^5 boxes\n");
    InChild(RunADTree);
    return 0;
}

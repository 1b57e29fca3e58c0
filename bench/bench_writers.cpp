// Writer benchmark: the NASTRAN deck, the ABAQUS, LS-DYNA and PATRAN decks, the ANSYS command
// file, the universal file and the native text and binary forms (vis_ConnectWrite -1, -2) of
// structured hexahedral and tetrahedral meshes of about 10^4, 10^5 and 10^6 elements, each timed
// on the wall clock with its bytes and MB/s, beside the floor of the C library: formatting the
// same coordinates with snprintf alone into a buffer ("%23.15E" as the deck's grid cards need
// them, "%16.9E" as the command file's node lines), with no file and no element.
//
// Nodes lie on a grid of spacing 0.1 (reals with full 17-digit expansions); every node is a
// grid point and every element a solid. The tetrahedral mesh splits each cell into six.
// Then the deck of cards beside the mesh-only deck of the largest hexahedral mesh: one solid
// property and one material on every element, a pressure on the top face of every element of
// the top layer (n^2 PLOAD4) and every bottom node fixed in six dofs (n+1 squared SPC); the
// cards' share, the difference of both, may not pass the mesh-only time.
// The surface writers (STL text and binary, OBJ) take a shell mesh of m x m quadrilaterals,
// about 10^4, 10^5 and 10^6 of them (m 100, 316, 1000), since a solid mesh has no facets.
// Run: bench_writers [largest n]. Build in Release for meaningful numbers. The decks go to
// bench_writers.<pid>.* in /dev/shm (else /tmp) and are removed. Processor times stand beside
// the wall times: on a shared machine they vary less.
#include "vis_ABAFwt.h"
#include "vis_Connect.h"
#include "vis_ConnectWrite.h"
#include "vis_D3DFwt.h"
#include "vis_EProp.h"
#include "vis_LCase.h"
#include "vis_MProp.h"
#include "vis_ANSFwt.h"
#include "vis_Model.h"
#include "vis_NASFwt.h"
#include "vis_PatLwt.h"
#include "vis_OBJFwt.h"
#include "vis_SDRCLwt.h"
#include "vis_STLFwt.h"
#include "vis_RCase.h"
#include "vsy_HashTable.h"

#include <chrono>
#include <ctime>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

double Ms(Clock::time_point t0)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - t0).count();
}

/* A scratch file of this process (benchmarks run side by side must not remove each other's),
 * in memory where the system has /dev/shm: the disk's writeback of earlier decks would
 * otherwise land in later timings. */
std::string ScratchPath(const char* ext)
{
    struct stat st {};
    const char* dir = stat("/dev/shm", &st) == 0 && S_ISDIR(st.st_mode) ? "/dev/shm" : "/tmp";
    return std::string(dir) + "/bench_writers." + std::to_string(getpid()) + "." + ext;
}

/* Processor time of this process in ms, user and system: on a shared machine it moves less
 * than the wall clock with what else runs. */
double CpuMs()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
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

/* The C library's floor: three conversions per node in `format` ("%23.15E" for the grid cards,
 * "%16.9E" for the command file's node lines); wall and processor ms. */
double SnprintfFloor(int n, const char* format, double* cpu)
{
    char buf[40];
    volatile char sink = 0;
    const Clock::time_point t0 = Clock::now();
    const double c0 = CpuMs();
    for (int k = 0; k <= n; ++k)
        for (int j = 0; j <= n; ++j)
            for (int i = 0; i <= n; ++i) {
                const double x[3] = {0.1 * i, 0.1 * j, 0.1 * k};
                for (double v : x) {
                    std::snprintf(buf, sizeof buf, format, v);
                    sink = sink + buf[12];
                }
            }
    *cpu = CpuMs() - c0;
    return Ms(t0);
}

/* A further deck or file of the model by writer W, with its options set first: time, bytes
 * and MB/s. */
template <class W>
void Timed(const char* label, vis_Model* model, W* (*make)(), void (*write)(W*, vis_Model*, const char*),
           int (*error)(W*), void (*drop)(W*), void (*options)(W*) = nullptr)
{
    const std::string out = ScratchPath(label);
    const char* path = out.c_str();
    W* w = make();
    if (options) options(w);
    const Clock::time_point t0 = Clock::now();
    const double c0 = CpuMs();
    write(w, model, path);
    const double ms = Ms(t0), cpu = CpuMs() - c0;
    const int err = error(w);
    drop(w);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    std::printf("      %-8s %9.1f ms (cpu %7.1f) %11lld B %8.1f MB/s%s\n", label, ms, cpu, (long long)st.st_size,
                st.st_size / 1048576.0 / (ms / 1000.0), err ? "  (write failed)" : "");
}

/* A shell mesh of m x m quadrilaterals on a gently curved sheet, every element a shell. */
vis_Connect* ShellMesh(int m)
{
    const int nn = (m + 1) * (m + 1), ne = m * m;
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, nn, ne);
    for (int j = 0; j <= m; ++j)
        for (int i = 0; i <= m; ++i) {
            const double x[3] = {0.1 * i, 0.1 * j, 0.001 * i * j / m};
            const int id = 1 + i + (m + 1) * j;
            vis_ConnectSetCoordsdv(c, id, x);
            vis_ConnectSetNodeAssoc(c, 0, id, 1);
        }
    for (int e = 1, j = 0; j < m; ++j)
        for (int i = 0; i < m; ++i, ++e) {
            const int a = 1 + i + (m + 1) * j, v[4] = {a, a + 1, a + m + 2, a + m + 1};
            vis_ConnectSetTopology(c, e, SYS_SHAPE_QUAD, 0, 0, 0);
            vis_ConnectSetElemNode(c, e, v);
            vis_ConnectSetElemAssoc(c, 0, e, 2);
        }
    return c;
}

void RunFacets(int m)
{
    vis_Connect* c = ShellMesh(m);
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    std::printf("shell %9d elems %9d nodes\n", m * m, (m + 1) * (m + 1));
    Timed<vis_STLFwt>("stl", model, vis_STLFwtNew, vis_STLFwtWriteModel, vis_STLFwtError, vis_STLFwtDelete);
    Timed<vis_STLFwt>("stl-bin", model, vis_STLFwtNew, vis_STLFwtWriteModel, vis_STLFwtError, vis_STLFwtDelete,
                      [](vis_STLFwt* w) { w->form = VIS_STLFWT_BINARY; });
    Timed<vis_OBJFwt>("obj", model, vis_OBJFwtNew, vis_OBJFwtWriteModel, vis_OBJFwtError, vis_OBJFwtDelete);
    Timed<vis_SDRCLwt>("unv", model, vis_SDRCLwtNew, vis_SDRCLwtWriteModel, vis_SDRCLwtError, vis_SDRCLwtDelete);
    std::fflush(stdout);
    vis_ModelDelete(model);
    vis_ConnectDelete(c);
}

/* One vis_ConnectWrite form: time, bytes and MB/s. */
void Form(vis_Connect* c, int type, const char* label)
{
    const std::string out = ScratchPath("out");
    const char* path = out.c_str();
    const Clock::time_point t0 = Clock::now();
    vis_ConnectWrite(c, type, path);
    const double ms = Ms(t0);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    std::printf("      %-8s %9.1f ms %11lld B %8.1f MB/s\n", label, ms, (long long)st.st_size,
                st.st_size / 1048576.0 / (ms / 1000.0));
}

/* The ANSYS command file of the same mesh, beside its floor: the "%16.9E" conversions of its
 * node lines alone. */
void Ansys(vis_Connect* c, int n)
{
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    vis_ANSFwt* ans = vis_ANSFwtNew();
    const std::string file = ScratchPath("ans");
    const Clock::time_point t0 = Clock::now();
    const double c0 = CpuMs();
    vis_ANSFwtWriteModel(ans, model, file.c_str());
    const double ms = Ms(t0), cpu = CpuMs() - c0;
    const int err = vis_ANSFwtError(ans);
    struct stat st {};
    stat(file.c_str(), &st);
    std::remove(file.c_str());
    double floorcpu = 0;
    const double floor = SnprintfFloor(n, "%16.9E", &floorcpu);
    std::printf("      %-8s %9.1f ms (cpu %7.1f) %11lld B %8.1f MB/s  %%16.9E floor %9.1f ms (cpu %7.1f)%s\n", "ansys",
                ms, cpu, (long long)st.st_size, st.st_size / 1048576.0 / (ms / 1000.0), floor, floorcpu,
                err ? "  (write failed)" : "");
    vis_ANSFwtDelete(ans);
    vis_ModelDelete(model);
}

void Run(const char* kind, int n, bool tets)
{
    vis_Connect* c = BuildMesh(n, tets);
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    vis_NASFwt* nas = vis_NASFwtNew();
    const std::string deck = ScratchPath("bdf");
    const char* path = deck.c_str();
    const Clock::time_point t0 = Clock::now();
    const double c0 = CpuMs();
    vis_NASFwtWriteModel(nas, model, path);
    const double ms = Ms(t0), cpu = CpuMs() - c0;
    const int err = vis_NASFwtError(nas);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    double floorcpu = 0;
    const double floor = SnprintfFloor(n, "%23.15E", &floorcpu);
    int ne = 0, nn = 0;
    vis_ConnectGetInteger(c, 4, &ne);
    vis_ConnectGetInteger(c, 1, &nn);
    std::printf("%-5s %9d elems %9d nodes  nastran %9.1f ms (cpu %7.1f) %11lld B %8.1f MB/s  snprintf floor %9.1f ms "
                "(cpu %7.1f)%s\n",
                kind, ne, nn, ms, cpu, (long long)st.st_size, st.st_size / 1048576.0 / (ms / 1000.0), floor, floorcpu,
                err ? "  (write failed)" : "");
    Timed<vis_ABAFwt>("abaqus", model, vis_ABAFwtNew, vis_ABAFwtWriteModel, vis_ABAFwtError, vis_ABAFwtDelete);
    Timed<vis_D3DFwt>("ls-dyna", model, vis_D3DFwtNew, vis_D3DFwtWriteModel, vis_D3DFwtError, vis_D3DFwtDelete);
    Timed<vis_PatLwt>("patran", model, vis_PatLwtNew, vis_PatLwtWriteModel, vis_PatLwtError, vis_PatLwtDelete);
    Timed<vis_SDRCLwt>("unv", model, vis_SDRCLwtNew, vis_SDRCLwtWriteModel, vis_SDRCLwtError, vis_SDRCLwtDelete);
    Form(c, -1, "text");
    Form(c, -2, "binary");
    Ansys(c, n);
    std::fflush(stdout);
    vis_NASFwtDelete(nas);
    vis_ModelDelete(model);
    vis_ConnectDelete(c);
}

/* One NASTRAN deck of the model: time and bytes. */
double Deck(vis_Model* model, long long* bytes)
{
    vis_NASFwt* nas = vis_NASFwtNew();
    const std::string deck = ScratchPath("bdf");
    const char* path = deck.c_str();
    const Clock::time_point t0 = Clock::now();
    vis_NASFwtWriteModel(nas, model, path);
    const double ms = Ms(t0);
    if (vis_NASFwtError(nas)) std::printf("  (write failed)\n");
    vis_NASFwtDelete(nas);
    struct stat st {};
    stat(path, &st);
    std::remove(path);
    *bytes = (long long)st.st_size;
    return ms;
}

/* The hexahedral mesh of n^3 cells with its cards, beside the mesh-only deck. */
void RunCards(int n)
{
    vis_Connect* c = BuildMesh(n, false);
    const int ncell = n * n * n;
    for (int e = 1; e <= ncell; ++e) vis_ConnectSetElemAssoc(c, 2, e, 1);
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    long long meshbytes = 0, bytes = 0;
    const double mesh = Deck(model, &meshbytes);

    vis_EProp* prop = vis_EPropNew();
    vis_EPropDef(prop, 1);
    vis_EPropSetValuei(prop, 0, 1);
    vis_MProp* mat = vis_MPropNew();
    vis_MPropDef(mat, 0);
    vis_MPropSetValued(mat, 1, 2.1e11);
    vis_MPropSetValued(mat, 2, 0.3);
    vis_MPropSetValued(mat, 0, 7850.0);
    vis_LCase* lc = vis_LCaseNew();
    const double p[4] = {1e5, 1e5, 1e5, 1e5};
    for (int cell = n * n * (n - 1); cell < ncell; ++cell) vis_LCaseSetDistdv(lc, SYS_FACE, cell + 1, 2, 2, p);
    vis_RCase* rc = vis_RCaseNew();
    for (int j = 0; j <= n; ++j)
        for (int i = 0; i <= n; ++i)
            for (int tag = 1; tag <= 6; ++tag) vis_RCaseSetSPCdv(rc, Node(n, i, j, 0), tag, 1, 0.0);
    vsy_HashTable* tabs[4];
    const int codes[4] = {SYS_EPROP, SYS_MPROP, SYS_LCASE, SYS_RCASE};
    void* objects[4] = {prop, mat, lc, rc};
    for (int i = 0; i < 4; ++i) {
        tabs[i] = vsy_HashTableNew();
        vsy_HashTableInsert(tabs[i], 1, objects[i]);
        vis_ModelSetHashTable(model, codes[i], tabs[i]);
    }
    const double full = Deck(model, &bytes);
    std::printf("cards %9d elems  mesh only %9.1f ms %11lld B  with cards %9.1f ms %11lld B  cards %8.1f ms (%.0f%% of the mesh)\n",
                ncell, mesh, meshbytes, full, bytes, full - mesh, 100.0 * (full - mesh) / mesh);
    std::fflush(stdout);
    for (vsy_HashTable* t : tabs) vsy_HashTableDelete(t);
    vis_RCaseDelete(rc);
    vis_LCaseDelete(lc);
    vis_MPropDelete(mat);
    vis_EPropDelete(prop);
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
    const int shell[3] = {100, 316, 1000}; /* m^2 quadrilaterals: 10^4, 99856, 10^6 */
    for (int i = 0; i < 3; ++i)
        if (hex[i] <= nmax) RunFacets(shell[i]);
    for (int i = 2; i >= 0; --i)
        if (hex[i] <= nmax) {
            RunCards(hex[i]);
            break;
        }
    return 0;
}

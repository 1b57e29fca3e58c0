// Points per second of the element shape functions: each unrolled closed form beside the generic
// forward-derivative evaluator for the same tuple, in float and double, for values only (mode 1)
// and for values with derivatives (mode 0). Three ways are timed, one call per point:
//   closed   the closed-form dispatch itself (vis_ElemShapeClosed)
//   generic  the generic evaluator itself (vis_ElemShapeGeneric): the fair partner of closed
//   entry    the public entry (vis_ElemShape2D / 3D), which takes the closed form after one
//            more call; lines have no public entry and are timed through the closed dispatch
// Every run walks 1024 fixed points inside the element; the counter ns_per_point is the CPU
// time of one call (printed with its SI prefix).
#include "vis_Elem.h"
#include "vis_ElemShapeClosed.h"
#include "vis_ElemShapeGeneric.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

struct Form {
    const char* name;
    int shape, maxi, maxj, maxk;
};

const Form kForms[] = {
    {"line2", SYS_SHAPE_LINE, 0, 0, 0}, {"line3", SYS_SHAPE_LINE, 3, 0, 0},
    {"tri3", SYS_SHAPE_TRI, 0, 0, 0},   {"tri6", SYS_SHAPE_TRI, 3, 0, 0},
    {"tri6lag", SYS_SHAPE_TRI, 3, 3, 0}, {"quad4", SYS_SHAPE_QUAD, 0, 0, 0},
    {"quad8", SYS_SHAPE_QUAD, 3, 0, 0}, {"quad9", SYS_SHAPE_QUAD, 3, 3, 0},
    {"quad12", SYS_SHAPE_QUAD, 4, 0, 0}, {"tet4", SYS_SHAPE_TET, 0, 0, 0},
    {"tet10", SYS_SHAPE_TET, 3, 0, 0},  {"tet10lag", SYS_SHAPE_TET, 3, 3, 3},
    {"pyr5", SYS_SHAPE_PYR, 0, 0, 0},   {"pyr13", SYS_SHAPE_PYR, 3, 0, 0},
    {"pyr14", SYS_SHAPE_PYR, 3, 3, 3},  {"wed6", SYS_SHAPE_WED, 0, 0, 0},
    {"wed15", SYS_SHAPE_WED, 3, 0, 0},  {"wed18", SYS_SHAPE_WED, 3, 3, 3},
    {"hex8", SYS_SHAPE_HEX, 0, 0, 0},   {"hex20", SYS_SHAPE_HEX, 3, 0, 0},
    {"hex27", SYS_SHAPE_HEX, 3, 3, 3},  {"hex32", SYS_SHAPE_HEX, 4, 0, 0},
};

const int kPoints = 1024;

// Points inside the natural domain of the shape, three coordinates each (xorshift, fixed seed).
template <class T>
std::vector<T> Points(int shape)
{
    std::vector<T> x(3 * kPoints);
    uint32_t seed = 2463534242u;
    auto u = [&seed]() {
        seed ^= seed << 13;
        seed ^= seed >> 17;
        seed ^= seed << 5;
        return (seed & 0xFFFFFF) / 16777215.0;
    };
    for (int p = 0; p < kPoints; p++) {
        double a = u(), b = u(), c = u();
        double q[3];
        switch (shape) {
        case SYS_SHAPE_TRI:
        case SYS_SHAPE_WED:
            if (a + b > 1) a = 1 - a, b = 1 - b;
            q[0] = a, q[1] = b, q[2] = 2 * c - 1;
            break;
        case SYS_SHAPE_TET:
            while (a + b + c > 1) a *= 0.7, b *= 0.7, c *= 0.7;
            q[0] = a, q[1] = b, q[2] = c;
            break;
        case SYS_SHAPE_PYR: {
            double t = -1 + 1.9 * c, w = (1 - t) / 2;
            q[0] = w * (2 * a - 1), q[1] = w * (2 * b - 1), q[2] = t;
            break;
        }
        default: q[0] = 2 * a - 1, q[1] = 2 * b - 1, q[2] = 2 * c - 1;
        }
        for (int k = 0; k < 3; k++) x[3 * p + k] = (T)q[k];
    }
    return x;
}

enum Path { PATH_CLOSED, PATH_GENERIC, PATH_ENTRY };

int Dim(int shape)
{
    return shape == SYS_SHAPE_LINE ? 1 : shape <= SYS_SHAPE_QUAD ? 2 : 3;
}

void Call(Path path, const Form& f, int mode, const float* x, float* N, float* dN)
{
    if (path == PATH_GENERIC) vis_ElemShapeGeneric(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
    else if (path == PATH_CLOSED || f.shape == SYS_SHAPE_LINE)
        vis_ElemShapeClosed(mode, f.shape, f.maxi, f.maxj, f.maxk, Dim(f.shape), x, N, dN);
    else if (f.shape <= SYS_SHAPE_QUAD) vis_ElemShape2D(mode, f.shape, f.maxi, f.maxj, x, N, dN);
    else vis_ElemShape3D(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
}

void Call(Path path, const Form& f, int mode, const double* x, double* N, double* dN)
{
    if (path == PATH_GENERIC) vis_ElemShapeGenericdv(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
    else if (path == PATH_CLOSED || f.shape == SYS_SHAPE_LINE)
        vis_ElemShapeCloseddv(mode, f.shape, f.maxi, f.maxj, f.maxk, Dim(f.shape), x, N, dN);
    else if (f.shape <= SYS_SHAPE_QUAD) vis_ElemShape2Ddv(mode, f.shape, f.maxi, f.maxj, x, N, dN);
    else vis_ElemShape3Ddv(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
}

template <class T>
void BM_Shape(benchmark::State& state, Form f, int mode, Path path)
{
    const std::vector<T> x = Points<T>(f.shape);
    T N[VIS_ELEM_MAXNODE], dN[3 * VIS_ELEM_MAXNODE];
    for (auto _ : state) {
        for (int p = 0; p < kPoints; p++) {
            Call(path, f, mode, &x[3 * p], N, dN);
            benchmark::DoNotOptimize(N);
            benchmark::DoNotOptimize(dN);
            benchmark::ClobberMemory();
        }
    }
    const double points = static_cast<double>(state.iterations()) * kPoints;
    state.SetItemsProcessed(static_cast<int64_t>(points));
    state.counters["ns_per_point"] =
        benchmark::Counter(points, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

template <class T>
void Register(const Form& f, const char* precision)
{
    const struct {
        int mode;
        const char* name;
    } modes[] = {{VIS_SHAPE_FUNC, "values"}, {VIS_SHAPE_ALL, "values+derivs"}};
    const struct {
        Path path;
        const char* name;
    } paths[] = {{PATH_CLOSED, "closed"}, {PATH_GENERIC, "generic"}, {PATH_ENTRY, "entry"}};
    for (const auto& m : modes)
        for (const auto& w : paths) {
            if (w.path == PATH_ENTRY && f.shape == SYS_SHAPE_LINE) continue;
            std::string name = std::string(f.name) + "/" + precision + "/" + m.name + "/" + w.name;
            benchmark::RegisterBenchmark(name.c_str(), BM_Shape<T>, f, m.mode, w.path);
        }
}

}  // namespace

int main(int argc, char** argv)
{
    for (const Form& f : kForms) {
        Register<float>(f, "float");
        Register<double>(f, "double");
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// bench_analysis: where the time of an analysis goes. A 100 x 10 x 10 box is meshed into
// quadratic tetrahedra by gmsh (about 10^3 and 10^4 elements; 10^5 with --large, which took 7
// minutes, 97% of it in the solver, and 5 GB of memory on the 2-core development machine), clamped at one end and loaded at the other; then the
// model is built, written as an input deck, solved by CalculiX (ccx, one thread) and its
// results read back. Each stage's wall time is printed, with the solver's share; the solver
// runs as a child process, so wall time is what the user waits.
//   bench_analysis [--large]
#include "TevAnalysisModel.h"
#include "TevFrdReader.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"
#include "vis_ABAFwt.h"
#include "vis_State.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

int FaceAtX(const TopoDS_Shape& shape, double x)
{
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(shape, TopAbs_FACE, faces);
    for (int i = 1; i <= faces.Extent(); ++i) {
        GProp_GProps props;
        BRepGProp::SurfaceProperties(faces(i), props);
        if (std::fabs(props.CentreOfMass().X() - x) < 1e-9) return i;
    }
    return 0;
}

// One run at element size `size`; false when a stage failed.
bool Run(double size)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(100.0, 10.0, 10.0).Shape();
    QElapsedTimer clock;
    clock.start();
    std::string error;
    auto mesh = TevVolumeMesher::Mesh(box, {size, 2}, &error);
    const double meshMs = clock.nsecsElapsed() * 1e-6;
    if (!mesh) return std::fprintf(stderr, "mesh: %s\n", error.c_str()), false;
    clock.restart();
    TevAnalysisModel model(*mesh);
    model.SetFixedFace(FaceAtX(box, 0.0), nullptr);
    model.SetForce(FaceAtX(box, 100.0), {0.0, 0.0, -100.0}, nullptr);
    vis_Model* m = model.Build(&error);
    const double buildMs = clock.nsecsElapsed() * 1e-6;
    QTemporaryDir dir;
    clock.restart();
    vis_ABAFwt* aba = vis_ABAFwtNew();
    vis_ABAFwtWriteModel(aba, m, (dir.path() + "/job.inp").toLocal8Bit().constData());
    const int ierr = vis_ABAFwtError(aba);
    vis_ABAFwtDelete(aba);
    const double writeMs = clock.nsecsElapsed() * 1e-6;
    if (ierr) return std::fprintf(stderr, "write: error %d\n", ierr), false;
    clock.restart();
    QProcess ccx;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("OMP_NUM_THREADS", "1");
    ccx.setProcessEnvironment(env);
    ccx.setWorkingDirectory(dir.path());
    ccx.setProcessChannelMode(QProcess::MergedChannels);
    ccx.start("ccx", {"-i", "job"});
    if (!ccx.waitForFinished(-1) || ccx.exitCode() != 0) return std::fprintf(stderr, "solve failed\n"), false;
    const double solveMs = clock.nsecsElapsed() * 1e-6;
    clock.restart();
    vis_State* u = vis_StateNew();
    vis_State* s = vis_StateNew();
    const bool read = TevFrdReader::Read((dir.path() + "/job.frd").toStdString(), mesh->NodeCount(), u, s, &error);
    const double readMs = clock.nsecsElapsed() * 1e-6;
    vis_StateDelete(u);
    vis_StateDelete(s);
    if (!read) return std::fprintf(stderr, "read: %s\n", error.c_str()), false;
    const double total = meshMs + buildMs + writeMs + solveMs + readMs;
    std::printf("%6.2f %8d %8d %9.1f %8.1f %8.1f %9.1f %8.1f %9.1f %5.1f%%\n", size, mesh->ElementCount(),
                mesh->NodeCount(), meshMs, buildMs, writeMs, solveMs, readMs, total, 100.0 * solveMs / total);
    std::fflush(stdout);
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (QStandardPaths::findExecutable("ccx").isEmpty()) {
        std::printf("bench_analysis: CalculiX (ccx) is not installed; nothing measured\n");
        return 0;
    }
    const bool large = argc > 1 && std::strcmp(argv[1], "--large") == 0;
    std::printf("  size    tets    nodes   mesh ms build ms write ms  solve ms  read ms  total ms solve\n");
    bool ok = Run(4.4) && Run(1.6);
    if (large) ok = Run(0.75) && ok;
    return ok ? 0 : 1;
}

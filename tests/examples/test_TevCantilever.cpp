// A drawn box meshed in quadratic tetrahedra, clamped at one end and loaded at the other by a
// total transverse force, solved by CalculiX: the tip deflection agrees with beam theory.
// Skipped with the reason when the program "ccx" is missing.
#include "AnalysisTestSupport.h"
#include "TevAnalysisModel.h"
#include "TevCalculixJob.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"
#include "vis_State.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

bool HaveSolver()
{
    return std::system("command -v ccx > /dev/null 2>&1") == 0;
}

TEST(TevCantilever, TipDeflectionFollowsBeamTheory)
{
    if (!HaveSolver()) GTEST_SKIP() << "CalculiX (ccx) is not installed: the solve cannot run";
    analysistest::EnsureEventLoop();
    // L = 100, b = h = 10, E = 210000, nu = 0.3, P = 100 downwards at x = 100.
    const double L = 100.0, b = 10.0, h = 10.0, E = 210000.0, P = 100.0;
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(L, b, h).Shape();
    std::string error;
    auto mesh = TevVolumeMesher::Mesh(box, {2.5, 2}, &error);
    ASSERT_TRUE(mesh) << error;
    TevAnalysisModel model(*mesh);
    ASSERT_TRUE(model.SetMaterial({E, 0.3, 7.85e-9}, &error)) << error;
    ASSERT_TRUE(model.SetFixedFace(analysistest::FaceAt(box, 0, 0.0), &error)) << error;
    const int tip = analysistest::FaceAt(box, 0, L);
    ASSERT_TRUE(model.SetForce(tip, {0.0, 0.0, -P}, &error)) << error;
    QTemporaryDir dir;
    TevCalculixJob job;
    bool ok = false;
    QString message;
    QObject::connect(&job, &TevCalculixJob::m_signal_Finished, [&](bool done, const QString& text) { ok = done, message = text; });
    QString reason;
    ASSERT_TRUE(job.Start(model.Build(&error), mesh->NodeCount(), dir.path(), &reason)) << reason.toStdString();
    ASSERT_TRUE(job.WaitForFinished(240000));
    ASSERT_TRUE(ok) << message.toStdString() << "\n" << job.Log().toStdString();
    // Mean vertical displacement of the tip face's nodes.
    const std::vector<int> nodes = mesh->FaceNodes(tip);
    std::vector<double> u(3 * nodes.size());
    vis_StateDatadv(job.Displacement(), static_cast<int>(nodes.size()), nodes.data(), u.data());
    double sum = 0.0;
    for (size_t i = 0; i < nodes.size(); ++i) sum += u[3 * i + 2];
    const double mean = -sum / nodes.size();
    // w = P L^3 / (3 E I), I = b h^3 / 12 = 833.33: 1e8 / (3 * 210000 * 833.33) = 0.190476.
    const double theory = P * L * L * L / (3.0 * E * b * h * h * h / 12.0);
    EXPECT_NEAR(mean, theory, 0.03 * theory) << "tip deflection " << mean << " against " << theory;
    // The stresses came back too: at the root's top fibre the bending stress is about
    // M c / I = 100 * 100 * 5 / 833.33 = 60, far above zero.
    double extent[2];
    vis_StateSetDerive(job.Stress(), VIS_STATE_VONMISES);
    vis_StateExtent(job.Stress(), nullptr, extent);
    EXPECT_GT(extent[1], 30.0);
}

}  // namespace

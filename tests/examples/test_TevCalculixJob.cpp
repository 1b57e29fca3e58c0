// The solver job's failures, with stand-in programs instead of the solver: a path that does
// not exist, a program that fails, one that prints an error and exits 0, one that never ends
// (cancelled). Each ends with its message, and the model and the last results stay usable.
#include "AnalysisTestSupport.h"
#include "TevAnalysisModel.h"
#include "TevCalculixJob.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

class CalculixJobTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        analysistest::EnsureEventLoop();
        const TopoDS_Shape box = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
        mesh = TevVolumeMesher::Mesh(box, {10.0, 1}, nullptr);
        ASSERT_TRUE(mesh);
        model = std::make_unique<TevAnalysisModel>(*mesh);
        ASSERT_TRUE(model->SetFixedFace(analysistest::FaceAt(box, 0, 0.0), nullptr));
        ASSERT_TRUE(model->SetPressure(analysistest::FaceAt(box, 0, 10.0), 1.0, nullptr));
        QObject::connect(&job, &TevCalculixJob::m_signal_Finished, [this](bool ok, const QString& message) {
            ++finished;
            lastOk = ok;
            lastMessage = message;
        });
        QObject::connect(&job, &TevCalculixJob::m_signal_Output, [this](const QString& line) { lines << line; });
    }
    // A stand-in solver: a shell script of `body`.
    QString Script(const QString& name, const QString& body)
    {
        const QString path = dir.path() + "/" + name;
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.write(("#!/bin/sh\n" + body + "\n").toUtf8());
        f.close();
        f.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    // Runs the job to its end with the solver `program`.
    void Run(const QString& program)
    {
        job.SetSolver(program);
        QString error;
        ASSERT_TRUE(job.Start(model->Build(nullptr), mesh->NodeCount(), dir.path() + "/run", &error)) << error.toStdString();
        ASSERT_TRUE(job.WaitForFinished(20000));
    }
    QTemporaryDir dir;
    std::unique_ptr<TevVolumeMesh> mesh;
    std::unique_ptr<TevAnalysisModel> model;
    TevCalculixJob job;
    int finished = 0;
    bool lastOk = true;
    QString lastMessage;
    QStringList lines;
};

TEST_F(CalculixJobTest, MissingSolverIsReported)
{
    Run(dir.path() + "/no-such-solver");
    EXPECT_EQ(finished, 1);
    EXPECT_FALSE(lastOk);
    EXPECT_EQ(lastMessage, "The solver could not be started: " + dir.path() + "/no-such-solver");
    EXPECT_EQ(job.Displacement(), nullptr);
    // The deck was written and the model is still there to solve again.
    EXPECT_TRUE(QFile::exists(dir.path() + "/run/job.inp"));
    EXPECT_NE(model->Build(nullptr), nullptr);
}

TEST_F(CalculixJobTest, FailingSolverGivesItsExitCodeAndStreamsItsOutput)
{
    Run(Script("fails", "echo starting; echo \"asked for $1 $2\"; exit 3"));
    EXPECT_FALSE(lastOk);
    EXPECT_EQ(lastMessage, "The solver failed (exit code 3)");
    EXPECT_EQ(lines, QStringList({"starting", "asked for -i job"}));
}

TEST_F(CalculixJobTest, AnErrorLineFailsTheSolveEvenWithExitCodeZero)
{
    Run(Script("errs", "echo ' *ERROR reading *STEP: no load'; echo done; exit 0"));
    EXPECT_FALSE(lastOk);
    EXPECT_EQ(lastMessage, "The solver stopped with an error: *ERROR reading *STEP: no load");
}

TEST_F(CalculixJobTest, ASolverWithoutResultsIsReported)
{
    Run(Script("quiet", "exit 0"));
    EXPECT_FALSE(lastOk);
    EXPECT_EQ(lastMessage, "Cannot read the results file " + dir.path() + "/run/job.frd");
    EXPECT_EQ(job.Displacement(), nullptr);
}

TEST_F(CalculixJobTest, CancelStopsTheSolverAndASecondStartWaitsForIt)
{
    job.SetSolver(Script("slow", "echo waiting; exec sleep 30"));
    ASSERT_TRUE(job.Start(model->Build(nullptr), mesh->NodeCount(), dir.path() + "/run", nullptr));
    QString error;
    EXPECT_FALSE(job.Start(model->Build(nullptr), mesh->NodeCount(), dir.path() + "/run", &error));
    EXPECT_EQ(error, "A solve is running already");
    QTimer::singleShot(300, [this] { job.Cancel(); });
    ASSERT_TRUE(job.WaitForFinished(20000));
    EXPECT_EQ(finished, 1);
    EXPECT_FALSE(lastOk);
    EXPECT_EQ(lastMessage, "Solve cancelled");
    EXPECT_FALSE(job.IsRunning());
}

}  // namespace

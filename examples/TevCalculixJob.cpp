#include "TevCalculixJob.h"

#include "TevFrdReader.h"
#include "vis_ABAFwt.h"
#include "vis_State.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcessEnvironment>
#include <QTimer>

TevCalculixJob::TevCalculixJob(QObject* parent) : QObject(parent)
{
}

TevCalculixJob::~TevCalculixJob()
{
    if (m_process) {
        m_process->disconnect(this);
        m_process->kill();
        m_process->waitForFinished(5000);
        delete m_process;
    }
    vis_StateDelete(m_displacement);
    vis_StateDelete(m_stress);
}

bool TevCalculixJob::Start(vis_Model* model, int numnode, const QString& dir, QString* error)
{
    QString reason;
    if (m_process) reason = "A solve is running already";
    else if (!model || numnode < 1) reason = "There is no model to solve";
    else if (!QDir().mkpath(dir)) reason = "Cannot make the folder " + dir;
    if (reason.isEmpty()) {
        for (const char* ext : {".inp", ".frd", ".dat", ".sta", ".cvg"}) QFile::remove(dir + "/job" + ext);
        vis_ABAFwt* aba = vis_ABAFwtNew();
        vis_ABAFwtWriteModel(aba, model, QString(dir + "/job.inp").toLocal8Bit().constData());
        if (vis_ABAFwtError(aba) != 0) reason = "Cannot write the input file " + dir + "/job.inp";
        vis_ABAFwtDelete(aba);
    }
    if (!reason.isEmpty()) {
        if (error) *error = reason;
        return false;
    }
    m_dir = dir;
    m_numnode = numnode;
    m_log.clear();
    m_pending.clear();
    m_cancelled = false;
    m_process = new QProcess(this);
    m_process->setWorkingDirectory(dir);
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("OMP_NUM_THREADS", "1");
    m_process->setProcessEnvironment(env);
    connect(m_process, &QProcess::readyRead, this, &TevCalculixJob::ReadOutput);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &TevCalculixJob::Done);
    connect(m_process, &QProcess::errorOccurred, this, &TevCalculixJob::Failed);
    m_process->start(m_solver, {"-i", "job"});
    return true;
}

void TevCalculixJob::Cancel()
{
    if (!m_process) return;
    m_cancelled = true;
    m_process->kill();
}

bool TevCalculixJob::WaitForFinished(int msecs)
{
    if (!m_process) return true;
    QEventLoop loop;
    connect(this, &TevCalculixJob::m_signal_Finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(msecs, &loop, &QEventLoop::quit);
    if (m_process) loop.exec();
    return m_process == nullptr;
}

void TevCalculixJob::ReadOutput()
{
    m_pending += QString::fromLocal8Bit(m_process->readAll());
    int end;
    while ((end = m_pending.indexOf('\n')) >= 0) {
        const QString line = m_pending.left(end);
        m_pending.remove(0, end + 1);
        m_log += line + '\n';
        emit m_signal_Output(line);
    }
}

void TevCalculixJob::Failed(QProcess::ProcessError error)
{
    // Only a program that never started ends here; a crash or kill also ends in Done.
    if (error == QProcess::FailedToStart) Finish(false, "The solver could not be started: " + m_solver);
}

void TevCalculixJob::Done(int exitCode, QProcess::ExitStatus status)
{
    ReadOutput();
    if (!m_pending.isEmpty()) m_log += m_pending, emit m_signal_Output(m_pending);
    if (m_cancelled) return Finish(false, "Solve cancelled");
    const int mark = m_log.indexOf("*ERROR");
    if (mark >= 0) return Finish(false, "The solver stopped with an error: " + m_log.mid(mark).section('\n', 0, 0).trimmed());
    if (status != QProcess::NormalExit || exitCode != 0)
        return Finish(false, QString("The solver failed (exit code %1)").arg(exitCode));
    const QString failure = ReadResults();
    Finish(failure.isEmpty(), failure.isEmpty() ? QString("Solved: results of %1 nodes read").arg(m_numnode) : failure);
}

void TevCalculixJob::ClearResults()
{
    vis_StateDelete(m_displacement);
    vis_StateDelete(m_stress);
    m_displacement = nullptr;
    m_stress = nullptr;
}

QString TevCalculixJob::ReadResults()
{
    vis_State* u = vis_StateNew();
    vis_State* s = vis_StateNew();
    std::string error;
    if (!TevFrdReader::Read(QString(m_dir + "/job.frd").toLocal8Bit().constData(), m_numnode, u, s, &error)) {
        vis_StateDelete(u);
        vis_StateDelete(s);
        return QString::fromStdString(error);
    }
    ClearResults();
    m_displacement = u;
    m_stress = s;
    return QString();
}

void TevCalculixJob::Finish(bool ok, const QString& message)
{
    if (!m_process) return;
    m_process->disconnect(this);
    m_process->deleteLater();
    m_process = nullptr;
    emit m_signal_Finished(ok, message);
}

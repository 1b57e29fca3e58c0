// TevCalculixJob: one solve of a vis_Model by CalculiX as a child process.
//
// Start writes the model with vis_ABAFwt as "<dir>/job.inp" and runs "<solver> -i job" in
// <dir> (one solver thread); what the solver prints goes out line by line through
// m_signal_Output. When it ends, the job reads "<dir>/job.frd" into a node displacement state
// and a node stress state (TevFrdReader) and reports through m_signal_Finished: success, or
// the reason in one clear sentence: the solver could not be started, it stopped with an error
// (it may exit 0 after an error, so its output is searched for "*ERROR"), it left no results,
// or the user cancelled. A failed or cancelled job leaves the model and the last results as
// they were.
#ifndef TEVCALCULIXJOB_H
#define TEVCALCULIXJOB_H

#include <QObject>
#include <QProcess>
#include <QString>

struct vis_Model;
struct vis_State;

class TevCalculixJob : public QObject
{
    Q_OBJECT

public:
    explicit TevCalculixJob(QObject* parent = nullptr);
    ~TevCalculixJob() override;

    // The solver program: a name on the PATH or a path; "ccx" unless set.
    void SetSolver(const QString& program) { m_solver = program; }
    QString Solver() const { return m_solver; }

    // Writes the deck and starts the solver for a mesh of `numnode` nodes. False with the
    // reason (and no signal) when a job is running or the deck cannot be written; when the
    // program cannot be started the job ends at once with m_signal_Finished(false, ...).
    bool Start(vis_Model* model, int numnode, const QString& dir, QString* error);
    // Stops a running solver; the job ends with "Solve cancelled".
    void Cancel();
    bool IsRunning() const { return m_process != nullptr; }
    // Blocks until the running job ends (scripts and tests); false when it did not end within
    // `msecs`.
    bool WaitForFinished(int msecs);

    // Results of the last successful solve, or null; they stay the job's.
    vis_State* Displacement() const { return m_displacement; }
    vis_State* Stress() const { return m_stress; }
    // Drops the results (a new mesh makes them meaningless).
    void ClearResults();
    // Everything the solver printed in the last job.
    const QString& Log() const { return m_log; }

signals:
    void m_signal_Output(const QString& line);
    void m_signal_Finished(bool ok, const QString& message);

private:
    void ReadOutput();
    void Done(int exitCode, QProcess::ExitStatus status);
    void Failed(QProcess::ProcessError error);
    void Finish(bool ok, const QString& message);
    QString ReadResults();

    QString m_solver = "ccx";
    QString m_dir;
    QString m_log;
    QString m_pending;  // output after the last full line
    int m_numnode = 0;
    bool m_cancelled = false;
    QProcess* m_process = nullptr;
    vis_State* m_displacement = nullptr;
    vis_State* m_stress = nullptr;
};

#endif

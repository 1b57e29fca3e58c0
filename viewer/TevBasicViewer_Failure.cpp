// TevBasicViewer: the failure boundary. Every event entry of the widget (mouse, key, wheel and
// paint through event(), and the slots a menu or a host calls) runs its work through RunOpStep
// or RunGuarded, so that no OpenCASCADE or standard failure unwinds through Qt's event loop.
#include "TevBasicViewer.h"

#include "DrawOpMgr.h"
#include "DrawerOutput.h"
#include "IDrawOp.h"
#include "ShapeDocMgr.h"

#include <Standard_Failure.hxx>

#include <exception>
#include <typeinfo>
#if defined(__GNUC__)
#include <cxxabi.h>
#include <cstdlib>
#endif

// The class name of an operation as written in the source ("DrawCircleOp").
static QString OperationName(const IDrawOp* op)
{
    const char* raw = typeid(*op).name();
#if defined(__GNUC__)
    int status = 0;
    char* plain = abi::__cxa_demangle(raw, nullptr, nullptr, &status);
    if (status == 0 && plain) {
        const QString name = QString::fromLatin1(plain);
        std::free(plain);
        return name;
    }
#endif
    QString name = QString::fromLatin1(raw);
    if (name.startsWith("class ")) name.remove(0, 6);
    return name;
}

// The message of a failure, or its type when it has none.
static QString FailureText(const Standard_Failure& failure)
{
    const char* what = failure.GetMessageString();
    if (what && *what) return QString::fromUtf8(what);
    return QString::fromLatin1(failure.DynamicType()->Name());
}

// A change that an earlier step left open (an error path of an operation) is committed as it
// stands, so that aborting after a failure takes back only what the failing step opened.
static void CommitLeftoverTransaction()
{
    ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
    if (doc->HasOpenTransaction()) doc->EndTransaction();
}

bool TevBasicViewer::Attempt(const std::function<void()>& body, QString& failure)
{
    try {
        body();
        return true;
    } catch (const Standard_Failure& e) {
        failure = FailureText(e);
    } catch (const std::exception& e) {
        failure = QString::fromUtf8(e.what());
    }
    return false;
}

void TevBasicViewer::RunOpStep(const std::function<void()>& step)
{
    CommitLeftoverTransaction();
    IDrawOp* op = DrawOpMgr::GetInstance()->GetCurrentOp();
    if (op) op->BeginStep();
    QString failure;
    if (Attempt(step, failure)) return;
    RecoverFromFailure(op, op ? OperationName(op) : QString::fromLatin1("TevBasicViewer"), failure);
}

void TevBasicViewer::RunGuarded(const char* entry, const std::function<void()>& body)
{
    CommitLeftoverTransaction();
    QString failure;
    if (Attempt(body, failure)) return;
    RecoverFromFailure(nullptr, QString::fromLatin1(entry), failure);
}

void TevBasicViewer::RecoverFromFailure(IDrawOp* op, const QString& name, const QString& failure)
{
    ShapeDocMgr::GetInstance()->AbortTransaction();
    // An operation that is still on top stays there, in the step it was in.
    if (op && DrawOpMgr::GetInstance()->GetCurrentOp() == op) op->StepFailed(this);
    DrawerOutput::GetInstance()->EmitMessage(2, name + " : " + failure);
    update();
}

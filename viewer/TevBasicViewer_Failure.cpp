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
    IDrawOp* op = DrawOpMgr::GetInstance()->GetCurrentOp();
    if (op) op->BeginStep();
    RunInBoundary(op, op ? QString() : QString::fromLatin1("TevBasicViewer"), step);
}

void TevBasicViewer::RunGuarded(const char* entry, const std::function<void()>& body)
{
    RunInBoundary(nullptr, QString::fromLatin1(entry), body);
}

void TevBasicViewer::RunInBoundary(IDrawOp* op, const QString& entry, const std::function<void()>& body)
{
    ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
    // At the outermost entry, a change that an earlier step left open (an error path of an
    // operation) is committed as it stands, so that an abort takes back only this event's
    // change. Entries nested in the event (a paint while a step runs a dialog) leave open what
    // the step around them opened, and do not abort it either.
    if (m_boundaryDepth == 0 && doc->HasOpenTransaction()) doc->EndTransaction();
    const bool openBefore = doc->HasOpenTransaction();
    ++m_boundaryDepth;
    QString failure;
    const bool done = Attempt(body, failure);
    --m_boundaryDepth;
    if (done) return;
    if (!openBefore) doc->AbortTransaction();
    // An operation that is still on top stays there, in the step it was in.
    if (op && DrawOpMgr::GetInstance()->GetCurrentOp() == op) op->StepFailed(this);
    const QString name = op ? OperationName(op) : entry;
    DrawerOutput::GetInstance()->EmitMessage(2, name + " : " + failure);
    update();
}

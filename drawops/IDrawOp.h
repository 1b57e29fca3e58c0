// IDrawOp: the protocol of a mouse-driven drawing operation.
//
// DrawOpMgr keeps running operations on a stack and hands each viewer event to the top one.
// World points arrive on the near clipping plane under the cursor; the operation projects and
// snaps them itself. The host owns the operation object: the manager only holds its pointer.
//
// Failures. Operations keep no exception handlers: an OpenCASCADE failure raised by a step
// leaves the operation, and the viewer's event boundary recovers (TevBasicViewer.h). So that the
// operation stays in the step it was in, a step makes every call that can raise before it
// changes its step flags; what it appended on the way, and what it showed, are taken back by
// StepFailed.
#ifndef IDRAWOP_H
#define IDRAWOP_H

class TevBasicViewer;

class IDrawOp
{
public:
    virtual ~IDrawOp() {}
    // Called once when the operation becomes active: first prompt, step flags cleared.
    virtual void InitAction(TevBasicViewer* viewer) = 0;
    // Escape: takes the operation's temporary actors away before it leaves the stack.
    virtual void ActionCancelled(TevBasicViewer* viewer) = 0;
    virtual bool LButtonDown(TevBasicViewer* viewer, const double point[3]) = 0;
    virtual bool LButtonUp(TevBasicViewer* viewer, const double point[3]) = 0;
    virtual bool LButtonDoubleClick(TevBasicViewer* viewer, const double point[3]) = 0;
    virtual bool RButtonDown(TevBasicViewer* viewer, const double point[3]) = 0;
    virtual bool RButtonUp(TevBasicViewer* viewer, const double point[3]) = 0;
    virtual bool MovePoint(TevBasicViewer* viewer, const double point[3]) = 0;
    virtual bool KeyDown(TevBasicViewer* viewer, int key) = 0;
    // A child operation this one started has left the stack.
    virtual void ChildActionFinished(TevBasicViewer* viewer) = 0;
    virtual bool IsActionFinished() = 0;
    // The operation leaves the stack: its temporary display is removed.
    virtual void FinishCurrentOp(TevBasicViewer* viewer) = 0;
    // The viewer hands the operation an event: what follows until the next BeginStep is one step.
    virtual void BeginStep() = 0;
    // The current step raised a failure: take away the step's temporary display and snap ring,
    // and what the step appended to the operation's points.
    virtual void StepFailed(TevBasicViewer* viewer) = 0;
};

#endif

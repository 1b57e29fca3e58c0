// DrawOpMgr: the stack of running drawing operations and the router of viewer events to its top.
//
// The back of m_OpStack is the active operation; the ones below are its parents, which hear of
// a finished child through ChildActionFinished. The manager holds plain pointers and frees
// nothing: operations belong to whoever created them.
#ifndef DRAWOPMGR_H
#define DRAWOPMGR_H

#include <QString>

#include <vector>

class IDrawOp;
class TevBasicViewer;

class DrawOpMgr
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class DrawOpTestPeer;
public:
    enum EnMouseEventType {
        EnMouseMove = 1,
        EnLButtonDown = 2,
        EnLButtonUp = 3,
        EnLButtonDoubleClick = 4,
        EnRButtonDown = 5,
        EnRButtonUp = 6
    };

    static DrawOpMgr* GetInstance();

    // Replaces the whole stack with `op` and initialises it. What was running is dropped as it
    // stands: no ActionCancelled, no FinishCurrentOp, its temporary actors stay.
    void StartOp(IDrawOp* op, TevBasicViewer* viewer);
    // Pushes `op` above the running operation and initialises it.
    void StartChildOp(IDrawOp* op, TevBasicViewer* viewer);
    // Finishes and pops the top operation (whichever `op` is, if not null), then lets each
    // parent that reports itself finished follow. Null `op` does nothing.
    void EndOp(IDrawOp* op, TevBasicViewer* viewer);
    // Finishes `op` and pops the top without telling any parent.
    void EndCurrentOp(IDrawOp* op, TevBasicViewer* viewer);
    // The top of the stack, or null.
    IDrawOp* GetCurrentOp();
    // Hands a viewer event to the top operation; false with no operation or a type outside 1-6.
    bool ProcessMouseEvent(TevBasicViewer* viewer, EnMouseEventType type, double* worldPoint);
    // Escape cancels the top operation; every other key is ignored.
    void ProcessKeyDown(TevBasicViewer* viewer, int key);
    void ProcessKeyUp(TevBasicViewer* viewer, int key);

    QString GetOutputString();
    void SetOutputString(QString text);

private:
    DrawOpMgr();
    // The common tail of StartOp, StartChildOp and ProcessKeyDown, applied to m_CurrentOp.
    void FinishAndPop(TevBasicViewer* viewer);
    void RefreshCurrentOp();

    static DrawOpMgr* m_Instance;

    IDrawOp* m_CurrentOp;  // cached top; refreshed by the event entries and the starts only
    std::vector<IDrawOp*> m_OpStack;
    QString m_OutputString;
};

#endif

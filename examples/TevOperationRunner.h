// TevOperationRunner: the host's side of DrawOpMgr. The library holds plain pointers to the
// operations and frees nothing, so the host owns them: the runner makes an operation from its
// catalogue row, ends whatever was running first, and frees operations once none can be on
// DrawOpMgr's stack any more.
//
// Starting an operation ends the running one the way the user would, by Escape (a key event for
// the viewer's own handler), up to four times for operations
// that wait on picking children. The library's StartOp alone would drop the running operation
// and leave its rubber bands in the picture.
#ifndef TEVOPERATIONRUNNER_H
#define TEVOPERATIONRUNNER_H

#include "IDrawOp.h"

#include <memory>
#include <vector>

class TevBasicViewer;
struct TevDrawOpEntry;

class TevOperationRunner
{
public:
    explicit TevOperationRunner(TevBasicViewer* viewer) : m_viewer(viewer) {}
    // Takes every operation off DrawOpMgr's stack without calling them (an operation's finish
    // may do work or open a box) before the operations are freed.
    ~TevOperationRunner();
    TevOperationRunner(const TevOperationRunner&) = delete;
    TevOperationRunner& operator=(const TevOperationRunner&) = delete;

    // Ends the running operation, then makes and starts the row's operation.
    void Start(const TevDrawOpEntry& entry);
    // Escape to the viewer until no operation runs (at most four times). True when none runs.
    bool EndRunning();
    // One Escape key press, handed to the viewer's own event handler: it ends the running
    // operation, or clears the selection when none runs. The key does not go through the
    // application, whose shortcut map would give it to the window's Escape action again.
    void PressEscape();
    // Whether DrawOpMgr has an operation on its stack.
    static bool IsRunning();

private:
    // Frees the operations made before, when DrawOpMgr's stack is empty.
    void ReleaseIdle();

    TevBasicViewer* m_viewer;
    std::vector<std::unique_ptr<IDrawOp>> m_ops;
};

#endif

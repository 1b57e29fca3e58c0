#include "DrawOpMgr.h"

#include "IDrawOp.h"

#include <Qt>

DrawOpMgr* DrawOpMgr::m_Instance = nullptr;

DrawOpMgr* DrawOpMgr::GetInstance()
{
    if (!m_Instance) m_Instance = new DrawOpMgr();
    return m_Instance;
}

DrawOpMgr::DrawOpMgr() : m_CurrentOp(nullptr) {}

void DrawOpMgr::RefreshCurrentOp()
{
    m_CurrentOp = m_OpStack.empty() ? nullptr : m_OpStack.back();
}

void DrawOpMgr::FinishAndPop(TevBasicViewer* viewer)
{
    if (!m_CurrentOp) return;
    m_CurrentOp->FinishCurrentOp(viewer);
    if (!m_OpStack.empty()) m_OpStack.pop_back();
    if (m_OpStack.empty()) return;
    IDrawOp* parent = m_OpStack.back();
    parent->ChildActionFinished(viewer);
    if (parent->IsActionFinished()) EndOp(parent, viewer);
}

void DrawOpMgr::StartOp(IDrawOp* op, TevBasicViewer* viewer)
{
    m_OpStack.clear();
    StartChildOp(op, viewer);
}

void DrawOpMgr::StartChildOp(IDrawOp* op, TevBasicViewer* viewer)
{
    m_OpStack.push_back(op);
    RefreshCurrentOp();
    m_CurrentOp->InitAction(viewer);
    // Re-read the cached pointer: a child started by InitAction replaced it, and it stays on
    // that child even when the child has already been finished and popped.
    if (m_CurrentOp->IsActionFinished()) FinishAndPop(viewer);
}

void DrawOpMgr::EndOp(IDrawOp* op, TevBasicViewer* viewer)
{
    while (op) {
        op->FinishCurrentOp(viewer);
        // The back is removed whichever operation was passed.
        if (!m_OpStack.empty()) m_OpStack.pop_back();
        if (m_OpStack.empty() || !m_OpStack.back()) return;
        IDrawOp* parent = m_OpStack.back();
        parent->ChildActionFinished(viewer);
        if (!parent->IsActionFinished()) return;
        op = parent;
    }
}

void DrawOpMgr::EndCurrentOp(IDrawOp* op, TevBasicViewer* viewer)
{
    if (!op) return;
    op->FinishCurrentOp(viewer);
    if (!m_OpStack.empty()) m_OpStack.pop_back();
}

IDrawOp* DrawOpMgr::GetCurrentOp()
{
    return m_OpStack.empty() ? nullptr : m_OpStack.back();
}

bool DrawOpMgr::ProcessMouseEvent(TevBasicViewer* viewer, EnMouseEventType type, double* worldPoint)
{
    RefreshCurrentOp();
    if (!m_CurrentOp) return false;
    switch (type) {
    case EnMouseMove: return m_CurrentOp->MovePoint(viewer, worldPoint);
    case EnLButtonDown: return m_CurrentOp->LButtonDown(viewer, worldPoint);
    case EnLButtonUp: return m_CurrentOp->LButtonUp(viewer, worldPoint);
    case EnLButtonDoubleClick: return m_CurrentOp->LButtonDoubleClick(viewer, worldPoint);
    case EnRButtonDown: return m_CurrentOp->RButtonDown(viewer, worldPoint);
    case EnRButtonUp: return m_CurrentOp->RButtonUp(viewer, worldPoint);
    }
    return false;
}

void DrawOpMgr::ProcessKeyDown(TevBasicViewer* viewer, int key)
{
    RefreshCurrentOp();
    if (!m_CurrentOp || key != Qt::Key_Escape) return;
    // A cancelled child still reports to its parent as if it had ended normally: the parent
    // goes on with whatever the child collected.
    m_CurrentOp->ActionCancelled(viewer);
    FinishAndPop(viewer);
}

void DrawOpMgr::ProcessKeyUp(TevBasicViewer*, int) {}

QString DrawOpMgr::GetOutputString()
{
    return m_OutputString;
}

void DrawOpMgr::SetOutputString(QString text)
{
    m_OutputString = text;
}

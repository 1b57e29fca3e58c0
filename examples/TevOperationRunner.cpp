#include "TevOperationRunner.h"

#include "DrawOpCommon.h"
#include "DrawOpMgr.h"
#include "IDrawOp.h"
#include "TevBasicViewer.h"
#include "TevDrawOpCatalog.h"

#include <QKeyEvent>

// StartOp drops the whole stack without calling the operations on it; the placeholder it then
// holds does nothing when it is ended, unlike an operation whose finish does its work.
TevOperationRunner::~TevOperationRunner()
{
    static DrawOpCommon placeholder;
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    mgr->StartOp(&placeholder, m_viewer);
    mgr->EndCurrentOp(&placeholder, m_viewer);
}

bool TevOperationRunner::IsRunning()
{
    return DrawOpMgr::GetInstance()->GetCurrentOp() != nullptr;
}

bool TevOperationRunner::EndRunning()
{
    for (int i = 0; i < 4 && IsRunning(); ++i) PressEscape();
    ReleaseIdle();
    return !IsRunning();
}

void TevOperationRunner::PressEscape()
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    static_cast<QObject*>(m_viewer)->event(&escape);
}

void TevOperationRunner::ReleaseIdle()
{
    if (!IsRunning()) m_ops.clear();
}

void TevOperationRunner::Start(const TevDrawOpEntry& entry)
{
    EndRunning();
    m_ops.push_back(entry.make());
    DrawOpMgr::GetInstance()->StartOp(m_ops.back().get(), m_viewer);
    m_viewer->setFocus(Qt::OtherFocusReason);
}

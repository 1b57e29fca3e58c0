#include "TevOperationRunner.h"

#include "DrawOpMgr.h"
#include "IDrawOp.h"
#include "TevBasicViewer.h"
#include "TevDrawOpCatalog.h"

#include <QApplication>
#include <QKeyEvent>

TevOperationRunner::~TevOperationRunner()
{
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    // EndCurrentOp finishes and pops without telling a parent; bounded like EndRunning.
    for (int i = 0; i < 8 && mgr->GetCurrentOp(); ++i) mgr->EndCurrentOp(mgr->GetCurrentOp(), m_viewer);
}

bool TevOperationRunner::IsRunning()
{
    return DrawOpMgr::GetInstance()->GetCurrentOp() != nullptr;
}

bool TevOperationRunner::EndRunning()
{
    for (int i = 0; i < 4 && IsRunning(); ++i) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(m_viewer, &escape);
    }
    ReleaseIdle();
    return !IsRunning();
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

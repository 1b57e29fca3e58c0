#include "ShapeDocMgr.h"

#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>

ShapeDocMgr* ShapeDocMgr::m_Instance = nullptr;

static const int kDefaultUndoLimit = 100;

ShapeDocMgr* ShapeDocMgr::GetInstance()
{
    if (!m_Instance) m_Instance = new ShapeDocMgr();
    return m_Instance;
}

ShapeDocMgr::ShapeDocMgr()
{
    m_App = XCAFApp_Application::GetApplication();
    NewDocument();
}

void ShapeDocMgr::NewDocument()
{
    int limit = kDefaultUndoLimit;
    if (!m_Doc.IsNull()) {
        limit = m_Doc->GetUndoLimit();
        if (m_Doc->HasOpenCommand()) m_Doc->AbortCommand();
        m_App->Close(m_Doc);
        m_Doc.Nullify();
    }
    m_App->NewDocument("MDTV-XCAF", m_Doc);
    m_Doc->SetUndoLimit(limit);
    // Creates the shape tool's label now, outside any transaction, so that undoing the first
    // change never takes the tool itself away.
    XCAFDoc_DocumentTool::ShapeTool(m_Doc->Main());
    m_untracked = false;
    ++m_revision;
}

bool ShapeDocMgr::RevisionIsCurrent() const
{
    return !m_untracked && !m_Doc->HasOpenCommand();
}

void ShapeDocMgr::NoteUntrackedAccess()
{
    if (!m_Doc->HasOpenCommand()) m_untracked = true;
}

void ShapeDocMgr::StartTransaction()
{
    EndTransaction();
    // Whatever happened since an untracked access counts as one change.
    if (m_untracked) ++m_revision;
    m_untracked = false;
    m_Doc->NewCommand();
}

void ShapeDocMgr::EndTransaction()
{
    // CommitCommand is false for a transaction that changed nothing.
    if (m_Doc->HasOpenCommand() && m_Doc->CommitCommand()) ++m_revision;
}

void ShapeDocMgr::AbortTransaction()
{
    if (!m_Doc->HasOpenCommand()) return;
    m_Doc->AbortCommand();
    ++m_revision;
}

bool ShapeDocMgr::HasOpenTransaction() const
{
    return m_Doc->HasOpenCommand();
}

bool ShapeDocMgr::Undo()
{
    EndTransaction();
    if (!m_Doc->Undo()) return false;
    ++m_revision;
    return true;
}

bool ShapeDocMgr::Redo()
{
    EndTransaction();
    if (!m_Doc->Redo()) return false;
    ++m_revision;
    return true;
}

int ShapeDocMgr::GetAvailableUndos() const
{
    return m_Doc->GetAvailableUndos();
}

int ShapeDocMgr::GetAvailableRedos() const
{
    return m_Doc->GetAvailableRedos();
}

void ShapeDocMgr::SetUndoLimit(int limit)
{
    m_Doc->SetUndoLimit(limit < 0 ? 0 : limit);
}

int ShapeDocMgr::GetUndoLimit() const
{
    return m_Doc->GetUndoLimit();
}

opencascade::handle<TDocStd_Document> ShapeDocMgr::GetDoc()
{
    NoteUntrackedAccess();
    return m_Doc;
}

opencascade::handle<XCAFDoc_ShapeTool> ShapeDocMgr::GetShapeTool()
{
    NoteUntrackedAccess();
    return GetShapeToolToRead();
}

opencascade::handle<XCAFDoc_ShapeTool> ShapeDocMgr::GetShapeToolToRead() const
{
    return XCAFDoc_DocumentTool::ShapeTool(m_Doc->Main());
}

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
}

void ShapeDocMgr::StartTransaction()
{
    if (m_Doc->HasOpenCommand()) m_Doc->CommitCommand();
    m_Doc->NewCommand();
}

void ShapeDocMgr::EndTransaction()
{
    if (m_Doc->HasOpenCommand()) m_Doc->CommitCommand();
}

void ShapeDocMgr::AbortTransaction()
{
    if (m_Doc->HasOpenCommand()) m_Doc->AbortCommand();
}

bool ShapeDocMgr::HasOpenTransaction() const
{
    return m_Doc->HasOpenCommand();
}

bool ShapeDocMgr::Undo()
{
    EndTransaction();
    return m_Doc->Undo();
}

bool ShapeDocMgr::Redo()
{
    EndTransaction();
    return m_Doc->Redo();
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
    return m_Doc;
}

opencascade::handle<XCAFDoc_ShapeTool> ShapeDocMgr::GetShapeTool()
{
    return XCAFDoc_DocumentTool::ShapeTool(m_Doc->Main());
}

#include "ShapeDocMgr.h"

#include <BinXCAFDrivers.hxx>
#include <FSD_BinaryFile.hxx>
#include <QFile>
#include <TCollection_ExtendedString.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XmlXCAFDrivers.hxx>

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
    // The storage formats of the document files; without them Save and Open find no driver.
    BinXCAFDrivers::DefineFormat(m_App);
    XmlXCAFDrivers::DefineFormat(m_App);
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

static bool IsXmlPath(const QString& path)
{
    return path.endsWith(".xml", Qt::CaseInsensitive);
}

static TCollection_ExtendedString ToExtended(const QString& text)
{
    return TCollection_ExtendedString(text.toUtf8().constData(), Standard_True);
}

bool ShapeDocMgr::SaveDocument(const QString& path, QString* error)
{
    EndTransaction();
    m_Doc->ChangeStorageFormat(IsXmlPath(path) ? "XmlXCAF" : "BinXCAF");
    const PCDM_StoreStatus status = m_App->SaveAs(m_Doc, ToExtended(path));
    if (status == PCDM_SS_OK) return true;
    if (error) *error = QString("cannot save %1 (store status %2)").arg(path).arg(static_cast<int>(status));
    return false;
}

// Whether the file begins as a document of its form does: the binary form with its magic
// number, the XML form with a <document> root element near the top. OCCT's binary reader does
// not survive a file without its header (it reads a null header), and its XML reader takes any
// well-formed XML for an empty document, so the check comes first.
static bool HasDocumentMark(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    if (!IsXmlPath(path)) {
        const QByteArray magic(FSD_BinaryFile::MagicNumber());
        return file.read(magic.size()) == magic;
    }
    const QByteArray head = file.read(1024);
    return head.startsWith("<?xml") && head.contains("<document");
}

bool ShapeDocMgr::OpenDocument(const QString& path, QString* error)
{
    EndTransaction();
    if (!HasDocumentMark(path)) {
        if (error) *error = QString("cannot open %1: not a document file").arg(path);
        return false;
    }
    const int limit = m_Doc->GetUndoLimit();
    // The application keeps one document per file: reading a file that the current document was
    // saved to needs the current document closed first.
    if (m_App->IsInSession(ToExtended(path)) > 0) {
        m_App->Close(m_Doc);
        m_Doc.Nullify();
    }
    opencascade::handle<TDocStd_Document> doc;
    const PCDM_ReaderStatus status = m_App->Open(ToExtended(path), doc);
    if (status != PCDM_RS_OK || doc.IsNull()) {
        if (error) *error = QString("cannot open %1 (reader status %2)").arg(path).arg(static_cast<int>(status));
        if (m_Doc.IsNull()) {
            NewDocument();
            m_Doc->SetUndoLimit(limit);
        }
        return false;
    }
    if (!m_Doc.IsNull()) m_App->Close(m_Doc);
    Adopt(doc, limit);
    return true;
}

void ShapeDocMgr::Adopt(const opencascade::handle<TDocStd_Document>& doc, int undoLimit)
{
    m_Doc = doc;
    m_Doc->SetUndoLimit(undoLimit);
    XCAFDoc_DocumentTool::ShapeTool(m_Doc->Main());
    m_untracked = false;
    ++m_revision;
}

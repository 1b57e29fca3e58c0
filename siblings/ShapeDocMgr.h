// ShapeDocMgr: owner of the one modelling document, an XCAF document whose shape tool keeps
// every shape the user made, and of its undo history.
//
// A change of the document is bracketed by StartTransaction and EndTransaction; one bracket is
// one undo step. A caller that left a transaction open (an error path) does not lose its change:
// the next StartTransaction commits it first, so the history always stays consistent.
//
// Readers that keep what they read between calls (ShapeLabelMgr's shape list, read by a snap
// query on every mouse move) ask Revision() whether the document changed. The revision moves with
// every change the manager sees. A change made outside a transaction is not seen: GetDoc() and
// GetShapeTool() called while no transaction is open therefore leave the revision not current
// until the next transaction starts, and code that changes the document through a handle kept
// from earlier calls MarkChanged().
#ifndef SHAPEDOCMGR_H
#define SHAPEDOCMGR_H

#include <QString>
#include <Standard_Handle.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFDoc_ShapeTool.hxx>

class TDocStd_Application;

class ShapeDocMgr
{
public:
    static ShapeDocMgr* GetInstance();

    // Opens an undoable change; commits a transaction that is still open first.
    void StartTransaction();
    // Commits the open change as one undo step. Without an open transaction it does nothing.
    void EndTransaction();
    // Drops the open change and restores the document as it was at StartTransaction.
    void AbortTransaction();
    bool HasOpenTransaction() const;

    // Undoes or redoes one whole transaction; false when there is none to undo or redo. An open
    // transaction is committed first, so the step undone is the caller's latest change.
    bool Undo();
    bool Redo();
    int GetAvailableUndos() const;
    int GetAvailableRedos() const;
    // The number of transactions kept for undo (100 by default).
    void SetUndoLimit(int limit);
    int GetUndoLimit() const;

    // The document and its shape tool, to read or to change.
    opencascade::handle<TDocStd_Document> GetDoc();
    opencascade::handle<XCAFDoc_ShapeTool> GetShapeTool();
    // The same for code that only reads: these never count as a possible change.
    opencascade::handle<TDocStd_Document> GetDocToRead() const { return m_Doc; }
    opencascade::handle<XCAFDoc_ShapeTool> GetShapeToolToRead() const;

    // A number that moves on with every change the manager sees: a transaction committed with
    // a change, an abort, an undo, a redo, a new document, MarkChanged().
    unsigned long Revision() const { return m_revision; }
    // Whether the document can have changed only with the revision moving: false inside an open
    // transaction and after an access that may have been an untracked change.
    bool RevisionIsCurrent() const;
    // Says that the document was changed outside a transaction through a kept handle.
    void MarkChanged() { ++m_revision; }

    // Closes the current document and starts an empty one with an empty history.
    void NewDocument();

    // Files of the document: OCAF's XML form when the path ends in ".xml" (any case), else its
    // binary form. Save commits an open transaction first and writes the whole document; the
    // document itself is unchanged. Open replaces the document by the file's, with an empty
    // history; when the file cannot be read the current document stays as it was, except when
    // it is the very file being opened again (the application holds one document per path),
    // which is then read back from its last save or, failing that, replaced by an empty one.
    // Both return false with a reason in `error` (may be null) on failure.
    bool SaveDocument(const QString& path, QString* error = nullptr);
    bool OpenDocument(const QString& path, QString* error = nullptr);

private:
    ShapeDocMgr();
    // GetDoc or GetShapeTool outside a transaction: perhaps a change the revision cannot see.
    void NoteUntrackedAccess();
    // Makes `doc` the current document with an empty history and the undo limit kept.
    void Adopt(const opencascade::handle<TDocStd_Document>& doc, int undoLimit);

    static ShapeDocMgr* m_Instance;
    opencascade::handle<TDocStd_Application> m_App;
    opencascade::handle<TDocStd_Document> m_Doc;
    unsigned long m_revision = 0;
    bool m_untracked = false;
};

#endif

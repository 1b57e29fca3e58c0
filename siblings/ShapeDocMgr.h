// ShapeDocMgr: owner of the one modelling document, an XCAF document whose shape tool keeps
// every shape the user made, and of its undo history.
//
// A change of the document is bracketed by StartTransaction and EndTransaction; one bracket is
// one undo step. A caller that left a transaction open (an error path) does not lose its change:
// the next StartTransaction commits it first, so the history always stays consistent.
#ifndef SHAPEDOCMGR_H
#define SHAPEDOCMGR_H

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

    opencascade::handle<TDocStd_Document> GetDoc();
    opencascade::handle<XCAFDoc_ShapeTool> GetShapeTool();

    // Closes the current document and starts an empty one with an empty history.
    void NewDocument();

private:
    ShapeDocMgr();

    static ShapeDocMgr* m_Instance;
    opencascade::handle<TDocStd_Application> m_App;
    opencascade::handle<TDocStd_Document> m_Doc;
};

#endif

// SelectionMgr: the current selection, a list of shapes in pick order.
//
// The list does not own its shapes: an entry points at the shape inside an IVtkOCC_Shape of the
// viewer's picture, or at one of its sub-shapes. The viewer keeps those objects alive while
// entries point into them, also across a RefreshViewer.
#ifndef SELECTIONMGR_H
#define SELECTIONMGR_H

#include <TopoDS_Shape.hxx>

#include <vector>

class SelectionMgr
{
public:
    static SelectionMgr* GetInstance();

    // Appends `shape` unless an entry with the same TShape is there already, so a shape is in
    // the list once whatever its location or orientation.
    void AddToSelectionList(const TopoDS_Shape* shape);
    // Removes the entries that are this very pointer. An entry that directly follows a removed
    // one is not looked at in the same pass.
    void RemoveFromeSelectionList(const TopoDS_Shape* shape);
    // Empties the list; its capacity stays.
    void ClearSelList();
    std::vector<const TopoDS_Shape*>& GetshapeList();

private:
    SelectionMgr() = default;
    static SelectionMgr* m_SelectInstace;
    std::vector<const TopoDS_Shape*> m_shapeList;
};

#endif

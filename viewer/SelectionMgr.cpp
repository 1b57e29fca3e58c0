#include "SelectionMgr.h"

SelectionMgr* SelectionMgr::m_SelectInstace = nullptr;

SelectionMgr* SelectionMgr::GetInstance()
{
    if (!m_SelectInstace) m_SelectInstace = new SelectionMgr();
    return m_SelectInstace;
}

void SelectionMgr::AddToSelectionList(const TopoDS_Shape* shape)
{
    for (const TopoDS_Shape* entry : m_shapeList)
        if (entry->TShape() == shape->TShape()) return;
    m_shapeList.push_back(shape);
}

void SelectionMgr::RemoveFromeSelectionList(const TopoDS_Shape* shape)
{
    // Erasing closes the gap and the scan steps on past the entry that moved into it.
    for (size_t i = 0; i < m_shapeList.size(); ++i)
        if (m_shapeList[i] == shape) m_shapeList.erase(m_shapeList.begin() + static_cast<long>(i));
}

void SelectionMgr::ClearSelList()
{
    m_shapeList.clear();
}

std::vector<const TopoDS_Shape*>& SelectionMgr::GetshapeList()
{
    return m_shapeList;
}

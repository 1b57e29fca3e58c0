#include "ShapeViewCache.h"

#include <IVtkTools_ShapePicker.hxx>
#include <TopTools_OrientedShapeMapHasher.hxx>
#include <vtkActor.h>

#include <climits>

size_t ShapeViewCache::Hash::operator()(const TopoDS_Shape& s) const
{
    return static_cast<size_t>(TopTools_OrientedShapeMapHasher::HashCode(s, INT_MAX));
}

ShapeViewCache::~ShapeViewCache()
{
    for (auto& item : m_byShape) Release(item.second);
}

void ShapeViewCache::Add(Entry entry)
{
    const IVtkOCC_Shape* occ = entry.occ.get();
    auto it = m_byShape.emplace(entry.shape, std::move(entry));
    m_byOcc[occ] = &it->second;
}

bool ShapeViewCache::Take(const TopoDS_Shape& shape, Entry& out)
{
    auto it = m_byShape.find(shape);
    if (it == m_byShape.end()) return false;
    out = std::move(it->second);
    m_byOcc.erase(out.occ.get());
    m_byShape.erase(it);
    return true;
}

std::vector<ShapeViewCache::Entry> ShapeViewCache::TakeAll()
{
    std::vector<Entry> all;
    all.reserve(m_byShape.size());
    for (auto& item : m_byShape) all.push_back(std::move(item.second));
    m_byShape.clear();
    m_byOcc.clear();
    return all;
}

const Bnd_Box* ShapeViewCache::BoxOf(const TopoDS_Shape& shape) const
{
    auto it = m_byShape.find(shape);
    return it == m_byShape.end() ? nullptr : &it->second.box;
}

const Bnd_Box* ShapeViewCache::BoxOf(const IVtkOCC_Shape* occ) const
{
    auto it = m_byOcc.find(occ);
    return it == m_byOcc.end() ? nullptr : &it->second->box;
}

void ShapeViewCache::Release(Entry& entry)
{
    entry.picker = nullptr;
    if (!entry.occ.IsNull()) entry.occ->SetSelectableObject(nullptr);
}

#include "ShapeViewCache.h"

#include "DisplayProjection.h"

#include <IVtkTools_ShapePicker.hxx>
#include <TopTools_OrientedShapeMapHasher.hxx>
#include <vtkActor.h>

#include <algorithm>
#include <climits>
#include <functional>

size_t ShapeViewCache::Hash::operator()(const TopoDS_Shape& s) const
{
    return static_cast<size_t>(TopTools_OrientedShapeMapHasher::HashCode(s, INT_MAX));
}

void ShapeViewCache::Add(Entry entry)
{
    const IVtkOCC_Shape* occ = entry.occ.get();
    m_ordered.emplace_back(entry.shape, entry.box);
    auto it = m_byShape.emplace(entry.shape, std::move(entry));
    m_byOcc[occ] = &it->second;
    m_packedStale = true;
}

bool ShapeViewCache::Take(const TopoDS_Shape& shape, Entry& out)
{
    auto it = m_byShape.find(shape);
    if (it == m_byShape.end()) return false;
    out = std::move(it->second);
    m_byOcc.erase(out.occ.get());
    m_byShape.erase(it);
    m_packedStale = true;
    return true;
}

std::vector<ShapeViewCache::Entry> ShapeViewCache::TakeAll()
{
    std::vector<Entry> all;
    all.reserve(m_byShape.size());
    for (auto& item : m_byShape) all.push_back(std::move(item.second));
    m_byShape.clear();
    m_byOcc.clear();
    m_ordered.clear();
    m_packedStale = true;
    return all;
}

const Bnd_Box* ShapeViewCache::BoxOf(const TopoDS_Shape& shape) const
{
    auto it = m_byShape.find(shape);
    return it == m_byShape.end() ? nullptr : &it->second.box;
}

const Bnd_Box* ShapeViewCache::BoxAt(size_t position, const TopoDS_Shape& shape) const
{
    if (position < m_ordered.size() && m_ordered[position].first.IsEqual(shape)) return &m_ordered[position].second;
    return BoxOf(shape);
}

const Bnd_Box* ShapeViewCache::BoxOf(const IVtkOCC_Shape* occ) const
{
    auto it = m_byOcc.find(occ);
    return it == m_byOcc.end() ? nullptr : &it->second->box;
}

std::vector<const IVtkOCC_Shape*> ShapeViewCache::Reaching(const DisplayProjection& projection, double x, double y,
                                                           double radius) const
{
    if (m_packedStale) {
        m_packed.clear();
        for (const auto& item : m_byOcc) m_packed.emplace_back(item.first, item.second->box);
        m_packedStale = false;
    }
    std::vector<const IVtkOCC_Shape*> found;
    for (const auto& item : m_packed)
        if (projection.MayReach(item.second, x, y, radius)) found.push_back(item.first);
    std::sort(found.begin(), found.end(), std::less<const IVtkOCC_Shape*>());
    return found;
}

void ShapeViewCache::Unlink(const IVtkOCC_Shape::Handle& occ)
{
    if (!occ.IsNull()) occ->SetSelectableObject(nullptr);
}

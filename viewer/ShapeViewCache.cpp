#include "ShapeViewCache.h"

#include "DisplayProjection.h"
#include "ShapeLabelMgr.h"

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
    m_ordered.push_back({entry.shape, entry.box, entry.actor.GetPointer(), TDF_Label(), TDF_Label(), 0, {}, {}});
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
    if (position < m_ordered.size() && m_ordered[position].shape.IsEqual(shape)) return &m_ordered[position].box;
    return BoxOf(shape);
}

void ShapeViewCache::StampOrder(const std::vector<TDF_Label>& labels, size_t first)
{
    for (size_t i = first; i < m_ordered.size() && i < labels.size(); ++i) {
        m_ordered[i].label = labels[i];
        m_ordered[i].source = ShapeLabelMgr::GetInstance()->FindLabel(m_ordered[i].shape);
        m_ordered[i].name = ShapeLabelMgr::GetLabelName(m_ordered[i].source);
        Restamp(i, ShapeActorLook::Read(m_ordered[i].source));
    }
}

void ShapeViewCache::Restamp(size_t position, const ShapeActorLook& look)
{
    m_ordered[position].look = look;
    m_ordered[position].stamp = m_ordered[position].actor->GetMTime();
}

size_t ShapeViewCache::KeptPrefix(const std::vector<TopoDS_Shape>& shapes, const std::vector<TDF_Label>& labels) const
{
    const size_t n = std::min({m_ordered.size(), shapes.size(), labels.size()});
    size_t i = 0;
    for (; i < n; ++i) {
        const Placed& placed = m_ordered[i];
        if (placed.label.IsNull() || labels[i] != placed.label || !placed.shape.IsEqual(shapes[i])) break;
        if (placed.actor->GetMTime() != placed.stamp) break;
    }
    return i;
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

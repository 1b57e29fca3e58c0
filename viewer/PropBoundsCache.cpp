#include "PropBoundsCache.h"

#include <vtkActor.h>
#include <vtkCommand.h>
#include <vtkMapper.h>
#include <vtkMath.h>
#include <vtkProp.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <iterator>

static bool StaticActor(vtkProp* prop)
{
    vtkActor* actor = vtkActor::SafeDownCast(prop);
    return actor && actor->GetMapper() && actor->GetMapper()->GetStatic();
}

const double* PropBoundsCache::BoundsOf(vtkProp* prop)
{
    if (!StaticActor(prop)) return prop->GetBounds();
    const vtkMTimeType time = prop->GetMTime();
    auto it = m_known.find(prop);
    if (it == m_known.end() || it->second.time != time) {
        const double* bounds = prop->GetBounds();
        if (!bounds) return nullptr;
        Known known{time, {}, m_pass};
        std::copy(bounds, bounds + 6, known.bounds);
        it = m_known.insert_or_assign(prop, known).first;
    }
    it->second.pass = m_pass;
    return it->second.bounds;
}

bool PropBoundsCache::VisibleBounds(vtkRenderer* renderer, double bounds[6])
{
    ++m_pass;
    vtkMath::UninitializeBounds(bounds);
    bool any = false;
    vtkPropCollection* props = renderer->GetViewProps();
    vtkCollectionSimpleIterator pit;
    props->InitTraversal(pit);
    while (vtkProp* prop = props->GetNextProp(pit)) {
        if (!prop->GetVisibility() || !prop->GetUseBounds()) continue;
        const double* b = BoundsOf(prop);
        if (!b || !vtkMath::AreBoundsInitialized(b)) continue;
        if (!any) std::copy(b, b + 6, bounds);
        for (int i = 0; i < 6; i += 2) {
            bounds[i] = std::min(bounds[i], b[i]);
            bounds[i + 1] = std::max(bounds[i + 1], b[i + 1]);
        }
        any = true;
    }
    // Props that left the renderer (or died) are forgotten once they are most of the table.
    if (m_known.size() > 64 && m_known.size() > 2 * static_cast<size_t>(props->GetNumberOfItems())) {
        for (auto it = m_known.begin(); it != m_known.end();)
            it = it->second.pass == m_pass ? std::next(it) : m_known.erase(it);
    }
    return any;
}

void PropBoundsCache::ResetClippingRange(vtkRenderer* renderer)
{
    double bounds[6];
    if (VisibleBounds(renderer, bounds)) renderer->ResetCameraClippingRange(bounds);
    // As vtkRenderer does, for compositing code that listens.
    renderer->InvokeEvent(vtkCommand::ResetCameraClippingRangeEvent, renderer);
}

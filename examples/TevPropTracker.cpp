#include "TevPropTracker.h"

#include <vtkPropCollection.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <vector>

TevPropTracker::TevPropTracker() : m_props(vtkSmartPointer<vtkPropCollection>::New())
{
}

TevPropTracker::~TevPropTracker() = default;

void TevPropTracker::Replace(vtkRenderer* renderer, const std::function<void()>& draw)
{
    m_props->InitTraversal();
    while (vtkProp* prop = m_props->GetNextProp()) renderer->RemoveViewProp(prop);
    m_props->RemoveAllItems();
    std::vector<vtkProp*> old;
    vtkPropCollection* props = renderer->GetViewProps();
    props->InitTraversal();
    while (vtkProp* prop = props->GetNextProp()) old.push_back(prop);
    draw();
    props = renderer->GetViewProps();
    props->InitTraversal();
    while (vtkProp* prop = props->GetNextProp())
        if (std::find(old.begin(), old.end(), prop) == old.end()) m_props->AddItem(prop);
}

void TevPropTracker::SetVisibility(bool visible)
{
    m_props->InitTraversal();
    while (vtkProp* prop = m_props->GetNextProp()) prop->SetVisibility(visible);
}

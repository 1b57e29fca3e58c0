// TevPropTracker: the props one drawing call added to a renderer, so that the next call can
// take them away first. TevMeshRender only adds actors; the ones it added are found by
// comparing the renderer's props before and after the call.
#ifndef TEVPROPTRACKER_H
#define TEVPROPTRACKER_H

#include <vtkSmartPointer.h>

#include <functional>

class vtkPropCollection;
class vtkRenderer;

class TevPropTracker
{
public:
    TevPropTracker();
    ~TevPropTracker();

    // Removes the props of the last call from `renderer`, runs `draw` and keeps what it added.
    void Replace(vtkRenderer* renderer, const std::function<void()>& draw);
    // Shows or hides the props of the last call.
    void SetVisibility(bool visible);

private:
    vtkSmartPointer<vtkPropCollection> m_props;
};

#endif

// RenderTypeMgr: property presets offered to hosts for actors of their own.
#ifndef RENDERTYPEMGR_H
#define RENDERTYPEMGR_H

#include <vtkActor.h>
#include <vtkSmartPointer.h>

class RenderTypeMgr
{
public:
    // The highlight look: not pickable, visible, colour (0.8, 0.0, 0.4), opacity 0.5, point
    // size raised by 2 and line width by 6 over the current values, no lighting.
    void InitLCActorProp(vtkSmartPointer<vtkActor> actor);
    // The same look with the line width raised by `lineWidthStep`.
    static void ApplyHighlightLook(vtkActor* actor, double lineWidthStep);
};

#endif

// PropBoundsCache: the bounds of a renderer's visible props, as vtkRenderer computes them for
// its clipping range, without asking each shape actor again on every redraw.
//
// An actor whose mapper is static (the viewer's shape actors: their data never changes under
// them) keeps the bounds read last time while its modification time stays the same; anything
// that moves, hides or changes such an actor changes that time. Every other prop is asked each
// time. In a picture of thousands of shapes this turns the clipping range of a redraw from a
// walk through every actor's pipeline into a read of one number per actor.
#ifndef PROPBOUNDSCACHE_H
#define PROPBOUNDSCACHE_H

#include <vtkType.h>

#include <unordered_map>

class vtkProp;
class vtkRenderer;

class PropBoundsCache
{
public:
    // The union of the bounds of the renderer's visible props that use bounds; false when no
    // prop has valid bounds (the renderer then keeps its clipping range).
    bool VisibleBounds(vtkRenderer* renderer, double bounds[6]);

    // vtkRenderer::ResetCameraClippingRange() with the bounds above.
    void ResetClippingRange(vtkRenderer* renderer);

private:
    struct Known {
        vtkMTimeType time;
        double bounds[6];
        unsigned long pass;
    };
    const double* BoundsOf(vtkProp* prop);

    std::unordered_map<vtkProp*, Known> m_known;
    unsigned long m_pass = 0;
};

#endif

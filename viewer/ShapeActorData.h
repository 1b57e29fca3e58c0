// ShapeActorData: the data behind a shape actor of the picture, made once and then kept on its
// own. A shape never changes under its actor (a changed shape gets a new actor), so after the
// bridge's data source has meshed it, the mapper is given a compact copy of that output and the
// source with its IVtkOCC_Shape, its own copy of the mesh and its pipeline requests is let go.
//
// Deliberate departures from the plain actor of ShapeRenderTool, for memory and draw calls:
//   - the bridge draws every vertex of the shape as a point cell; the copy keeps only the
//     vertices that bound no edge, since an edge is drawn where the others are (the picture
//     changes at most at the pixels of those vertices, and not at all in the point display);
//   - the mapper's input algorithm is a trivial producer, not the bridge's data source, so
//     IVtkTools_ShapeObject finds no shape behind such an actor (the viewer's picks go through
//     its own pickers and never ask);
//   - the cell attributes (sub-shape ids and mesh kinds, read only by the bridge's own filters)
//     are left out.
#ifndef SHAPEACTORDATA_H
#define SHAPEACTORDATA_H

#include <vtkSmartPointer.h>

class vtkActor;
class vtkPolyData;
class vtkShaderProperty;

class ShapeActorData
{
public:
    // Runs the actor's data source once and hands the mapper the compact copy through a trivial
    // producer; both run on the plain streaming executive, the mapper is made static and the
    // actor takes the shared shader property. Does nothing to an actor whose mapper has no
    // input algorithm giving a vtkPolyData.
    static void Freeze(vtkActor* actor);
    // A copy of `data` that shares its points, point attributes and cell arrays, without the
    // cells of vertices that bound an edge and without cell attributes, cut to its size.
    static vtkSmartPointer<vtkPolyData> Compact(vtkPolyData* data);
    // The shader property that every frozen actor shares: it never holds a replacement.
    static vtkShaderProperty* SharedShaderProperty();
};

#endif

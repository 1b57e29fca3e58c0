// TevMeshRender: a finite element surface mesh held in a vis_Connect turned into a VTK actor in
// a given renderer, usually a viewer's GetDefaultRender(). Each display first writes the mesh as
// NASTRAN bulk data to "DisplayCAD-connect.bdf" in the current directory; that file is part of
// the behaviour, and its result is not looked at.
//
// Node ids are the VTK point ids (point 0, which no cell uses, repeats node 1), and every element goes in as one
// polygon in its own node order: the display is meant for triangles and quadrilaterals. An
// element of more than four nodes goes in with its whole node list rather than past the end of
// a four-entry buffer. Each call adds new actors; nothing removes an earlier mesh. The closing
// render goes through the renderer's window rather than the renderer's own Render, which would
// draw outside the window's frame.
#ifndef TEVMESHRENDER_H
#define TEVMESHRENDER_H

struct vis_Connect;
class vtkRenderer;

class TevMeshRender
{
public:
    // The mesh as polygons with their edges shown, added to `renderer`, then the camera reset
    // and a render.
    void DisplayMesh(vis_Connect* connect, vtkRenderer* renderer);
    // Deliberately different: the mesh is read as triangles of each element's first three
    // nodes and its actor is made but not added; only an arrow glyph at the origin, scaled by
    // 20, is shown. The glyph orients by normals, which its point has none of, so the arrow lies
    // along +x; the (-1, -1, -1) vector the point carries is not used. The vector array is given
    // its three components (a one-component array would only make VTK warn); the arrow is the
    // same.
    void DisplayMeshWithArrow(vis_Connect* connect, vtkRenderer* renderer);
};

#endif

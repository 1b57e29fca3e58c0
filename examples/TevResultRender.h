// TevResultRender: a solved volume mesh drawn deformed and coloured by a node result, with a
// colour bar.
//
// The boundary triangles of the mesh (corners only) are drawn with their nodes moved by
// `scale` times the displacement, coloured per node by the displacement magnitude or the von
// Mises stress (derived from the states through vis_StateOperateUnary), through a table of 256
// colours from blue at the smallest value to red at the largest. The surface is drawn unlit,
// so that every pixel shows a colour of the table, and a vtkScalarBarActor shows the table at
// the right of the view. Each Show replaces what the last one added; the renderer is the
// caller's and must outlive the object, or Clear must be called first.
#ifndef TEVRESULTRENDER_H
#define TEVRESULTRENDER_H

#include <vtkActor.h>
#include <vtkLookupTable.h>
#include <vtkScalarBarActor.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

class TevVolumeMesh;
class vtkRenderer;
struct vis_State;

class TevResultRender
{
public:
    enum class Quantity { Displacement, VonMises };

    TevResultRender();
    ~TevResultRender();

    // Draws the result into `renderer` (it is not rendered here). False with the reason when a
    // state is missing or not over the mesh's nodes; what was shown stays.
    bool Show(const TevVolumeMesh& mesh, vis_State* displacement, vis_State* stress, Quantity quantity,
              double scale, vtkRenderer* renderer, std::string* error);
    // Removes what Show added.
    void Clear();

    // The value of each node (index = node number - 1) of the quantity; empty when the state
    // is missing or of another size.
    static std::vector<double> NodeValues(int numnode, vis_State* displacement, vis_State* stress, Quantity quantity);

    vtkActor* Surface() const { return m_surface; }
    vtkScalarBarActor* Bar() const { return m_bar; }
    vtkLookupTable* Table() const { return m_table; }
    double Minimum() const { return m_range[0]; }
    double Maximum() const { return m_range[1]; }

private:
    vtkRenderer* m_renderer = nullptr;
    vtkSmartPointer<vtkActor> m_surface;
    vtkSmartPointer<vtkScalarBarActor> m_bar;
    vtkSmartPointer<vtkLookupTable> m_table;
    double m_range[2] = {0.0, 0.0};
};

#endif

// GeoGridDrawer: the grid of the three principal planes and the grid points that the snap
// engine offers.
//
// The grid is fixed: coordinates -100 to 100 in steps of 10 on each in-plane axis (21 values,
// 441 points per plane). The drawn rectilinear grid has 20 lines per axis, so its lines stop at
// 90 while the point lists, and so the snap targets, run to 100. The lists are appended to on
// every Perform call and never cleared.
#ifndef GEOGRIDDRAWER_H
#define GEOGRIDDRAWER_H

#include <gp_Pnt.hxx>
#include <vtkActor.h>
#include <vtkSmartPointer.h>

#include <vector>

class TevBasicViewer;

class GeoGridDrawer
{
public:
    GeoGridDrawer();
    ~GeoGridDrawer();

    // Each builds one plane's grid actor, adds it to the viewer's renderer, redraws and returns
    // it; the caller decides on its visibility. PerformYZDraw stores its actor in m_xzActor.
    vtkSmartPointer<vtkActor> PerformXYDraw(TevBasicViewer* viewer);
    vtkSmartPointer<vtkActor> PerformXZDraw(TevBasicViewer* viewer);
    vtkSmartPointer<vtkActor> PerformYZDraw(TevBasicViewer* viewer);
    // The three in the order XY, XZ, YZ; the actors are dropped.
    void PerformDraw(TevBasicViewer* viewer);

    std::vector<gp_Pnt>& GetXOYGridAllPt() { return m_xoyPoints; }
    std::vector<gp_Pnt>& GetXOZGridAllPt() { return m_xozPoints; }
    std::vector<gp_Pnt>& GetYOZGridAllPt() { return m_yozPoints; }

private:
    // One plane: `a` and `b` are the in-plane world axes (0 x, 1 y, 2 z) in the order the
    // points are listed, the third axis gets zeros and dimension 1.
    vtkSmartPointer<vtkActor> PerformPlaneDraw(TevBasicViewer* viewer, int a, int b, std::vector<gp_Pnt>& points);

    vtkSmartPointer<vtkActor> m_xyActor;
    vtkSmartPointer<vtkActor> m_xzActor;
    vtkSmartPointer<vtkActor> m_yzActor;  // never set
    std::vector<gp_Pnt> m_xozPoints;
    std::vector<gp_Pnt> m_xoyPoints;
    std::vector<gp_Pnt> m_yozPoints;
};

#endif

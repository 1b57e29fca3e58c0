#include "FreeCurveBand.h"

#include "ShapeRenderTool.h"
#include "TevBasicViewer.h"

#include <ShapeBuild_Edge.hxx>
#include <TopLoc_Location.hxx>
#include <vtkRenderer.h>

// A cursor this close to a listed point would give the curve a repeated point.
static const double kSamePoint = 1e-5;

opencascade::handle<TColgp_HArray1OfPnt> FreeCurveBand::Points(const std::vector<gp_Pnt>& listed, const gp_Pnt& cursor)
{
    const int n = static_cast<int>(listed.size());
    if (n < 2) return nullptr;
    for (const gp_Pnt& p : listed)
        if (p.Distance(cursor) <= kSamePoint) return nullptr;
    opencascade::handle<TColgp_HArray1OfPnt> points = new TColgp_HArray1OfPnt(1, n + 1);
    for (int i = 0; i < n; ++i) points->SetValue(i + 1, listed[i]);
    points->SetValue(n + 1, cursor);
    return points;
}

TopoDS_Edge FreeCurveBand::Edge(const opencascade::handle<Geom_Curve>& curve)
{
    TopoDS_Edge edge;
    ShapeBuild_Edge().MakeEdge(edge, curve, TopLoc_Location());
    return edge;
}

void FreeCurveBand::Show(TevBasicViewer* viewer, vtkSmartPointer<vtkActor>& band, TopoDS_Shape& shape)
{
    vtkRenderer* renderer = viewer->GetDefaultRender();
    renderer->RemoveActor(band);
    band = ShapeRenderTool::CreateActorForShape(shape);
    renderer->AddActor(band);
    viewer->RefreshViewer();
}

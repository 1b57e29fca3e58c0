#include "TevResultRender.h"

#include "TevVolumeMesh.h"
#include "vis_Connect.h"
#include "vis_ElemTopology.h"
#include "vis_State.h"

#include <vtkActor.h>
#include <vtkCellArray.h>
#include <vtkDoubleArray.h>
#include <vtkLookupTable.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkScalarBarActor.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <numeric>

namespace {

// True when `state` holds `datanum` components per node over `numnode` nodes.
bool OverNodes(vis_State* state, int numnode, int datanum)
{
    if (!state) return false;
    int nument = 0, parent = 0, child = 0, datatype = 0, num = 0;
    vis_StateInq(state, &nument, &parent, &child, &datatype);
    vis_StateDataNum(state, &num);
    return nument == numnode && parent == SYS_NODE && child == 0 && num == datanum;
}

std::vector<int> Ids(int numnode)
{
    std::vector<int> ids(numnode);
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

vtkSmartPointer<vtkPolyData> Deformed(const TevVolumeMesh& mesh, vis_State* displacement, double scale,
                                      const std::vector<double>& values)
{
    const int n = mesh.NodeCount();
    const std::vector<int> ids = Ids(n);
    std::vector<double> x(3 * n), u(3 * n, 0.0);
    vis_ConnectCoordsdv(mesh.Volume(), n, ids.data(), x.data());
    vis_StateDatadv(displacement, n, ids.data(), u.data());
    auto points = vtkSmartPointer<vtkPoints>::New();
    points->SetDataTypeToDouble();
    points->SetNumberOfPoints(n);
    auto scalars = vtkSmartPointer<vtkDoubleArray>::New();
    scalars->SetNumberOfValues(n);
    for (int i = 0; i < n; ++i) {
        points->SetPoint(i, x[3 * i] + scale * u[3 * i], x[3 * i + 1] + scale * u[3 * i + 1], x[3 * i + 2] + scale * u[3 * i + 2]);
        scalars->SetValue(i, values[i]);
    }
    auto cells = vtkSmartPointer<vtkCellArray>::New();
    for (int f = 1; f <= mesh.FaceCount(); ++f)
        for (const auto& t : mesh.FaceTriangles(f)) {
            const vtkIdType tri[3] = {t[0] - 1, t[1] - 1, t[2] - 1};
            cells->InsertNextCell(3, tri);
        }
    auto poly = vtkSmartPointer<vtkPolyData>::New();
    poly->SetPoints(points);
    poly->SetPolys(cells);
    poly->GetPointData()->SetScalars(scalars);
    return poly;
}

}  // namespace

TevResultRender::TevResultRender() = default;

TevResultRender::~TevResultRender()
{
    Clear();
}

std::vector<double> TevResultRender::NodeValues(int numnode, vis_State* displacement, vis_State* stress, Quantity quantity)
{
    vis_State* source = quantity == Quantity::Displacement ? displacement : stress;
    if (!OverNodes(source, numnode, quantity == Quantity::Displacement ? 3 : 6)) return {};
    vis_StateSetDerive(source, quantity == Quantity::Displacement ? VIS_STATE_MAG : VIS_STATE_VONMISES);
    vis_State* scalar = vis_StateNew();
    vis_StateOperateUnary(scalar, VIS_STATE_DERIVE, source);
    const std::vector<int> ids = Ids(numnode);
    std::vector<double> values(numnode, 0.0);
    std::vector<int> set(numnode, 0);
    vis_StateDataStat(scalar, numnode, ids.data(), set.data());
    for (int i = 0; i < numnode; ++i)
        if (set[i]) vis_StateDatadv(scalar, 1, &ids[i], &values[i]);
    vis_StateDelete(scalar);
    return values;
}

bool TevResultRender::Show(const TevVolumeMesh& mesh, vis_State* displacement, vis_State* stress, Quantity quantity,
                           double scale, vtkRenderer* renderer, std::string* error)
{
    const std::vector<double> values = NodeValues(mesh.NodeCount(), displacement, stress, quantity);
    if (values.empty() || !OverNodes(displacement, mesh.NodeCount(), 3) || !renderer) {
        if (error) *error = "There are no results of this mesh to show: solve first";
        return false;
    }
    Clear();
    m_range[0] = *std::min_element(values.begin(), values.end());
    m_range[1] = *std::max_element(values.begin(), values.end());
    m_table = vtkSmartPointer<vtkLookupTable>::New();
    m_table->SetNumberOfTableValues(256);
    m_table->SetHueRange(0.667, 0.0);
    m_table->SetTableRange(m_range[0], m_range[1] > m_range[0] ? m_range[1] : m_range[0] + 1.0);
    m_table->Build();
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputData(Deformed(mesh, displacement, scale, values));
    mapper->SetLookupTable(m_table);
    mapper->SetScalarRange(m_table->GetTableRange());
    mapper->ScalarVisibilityOn();
    mapper->SetColorModeToMapScalars();
    m_surface = vtkSmartPointer<vtkActor>::New();
    m_surface->SetMapper(mapper);
    m_surface->GetProperty()->LightingOff();
    m_bar = vtkSmartPointer<vtkScalarBarActor>::New();
    m_bar->SetLookupTable(m_table);
    m_bar->SetTitle(quantity == Quantity::Displacement ? "Displacement" : "von Mises");
    m_bar->SetNumberOfLabels(5);
    /* Room between the title and the top label, which would otherwise overlap. */
    m_bar->SetVerticalTitleSeparation(10);
    m_bar->SetPosition(0.88, 0.08);
    m_bar->SetWidth(0.1);
    m_bar->SetHeight(0.78);
    m_renderer = renderer;
    renderer->AddActor(m_surface);
    renderer->AddViewProp(m_bar);
    return true;
}

void TevResultRender::Clear()
{
    if (!m_renderer) return;
    m_renderer->RemoveActor(m_surface);
    m_renderer->RemoveViewProp(m_bar);
    m_renderer = nullptr;
}

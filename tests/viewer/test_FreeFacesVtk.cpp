// The free faces of vis_ConnectFaceGroup against VTK's vtkDataSetSurfaceFilter on the same
// mesh: the two face sets, each face as its sorted node ids, must be equal.
#include "GroupTestMesh.h"
#include "vis_Connect.h"
#include "vis_ConnectGroup.h"
#include "vis_Group.h"

#include <gtest/gtest.h>
#include <vtkCellArray.h>
#include <vtkDataSetSurfaceFilter.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <set>
#include <vector>

namespace {

using FaceSet = std::set<std::vector<int>>;

// A block of 3 x 2 x 2 unit hexahedra whose column at the origin (elements 1 and 7) is cut
// into wedges along the diagonal from corner n0 to n2 (and n4 to n6 on top), so that the mesh
// stays conforming: the wedges' triangles meet each other or the outside only.
void WedgeBlock(vis_Connect* c)
{
    grouptest::Block(c, 3, 2, 2);
    int first = 0;
    vis_ConnectGenElem(c, 2, &first);
    const int split[2] = {1, 7};
    for (int k = 0; k < 2; ++k) {
        int n[8], num = 0;
        vis_ConnectElemNode(c, split[k], &num, n);
        const int a[6] = {n[0], n[1], n[2], n[4], n[5], n[6]};
        const int b[6] = {n[0], n[2], n[3], n[4], n[6], n[7]};
        vis_ConnectSetTopology(c, split[k], SYS_SHAPE_WED, 0, 0, 0);
        vis_ConnectSetElemNode(c, split[k], a);
        vis_ConnectSetTopology(c, first + k, SYS_SHAPE_WED, 0, 0, 0);
        vis_ConnectSetElemNode(c, first + k, b);
    }
    vis_ConnectKernel(c);
}

FaceSet ConnectFreeFaces(vis_Connect* c)
{
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, c->numelem, SYS_ELEM, SYS_FACE);
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, g);
    FaceSet out;
    for (int id = 1; id <= c->numelem; ++id)
        for (int no = 1; no <= 6; ++no) {
            int flag = 0, num = 0, nodes[16];
            vis_GroupGetEntFlag(g, id, no, &flag);
            if (!flag) continue;
            vis_ConnectElemCon(c, SYS_FACE, id, no, &num, nodes);
            std::vector<int> face(nodes, nodes + num);
            std::sort(face.begin(), face.end());
            out.insert(face);
        }
    vis_GroupDelete(g);
    return out;
}

FaceSet VtkFreeFaces(vis_Connect* c)
{
    int numnode = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &numnode);
    vtkNew<vtkPoints> pts;
    pts->SetNumberOfPoints(numnode);
    for (int n = 1; n <= numnode; ++n) {
        double x[3];
        vis_ConnectCoordsdv(c, 1, &n, x);
        pts->SetPoint(n - 1, x);
    }
    vtkNew<vtkUnstructuredGrid> ug;
    ug->SetPoints(pts);
    for (int id = 1; id <= c->numelem; ++id) {
        int shape = -1, i = 0, j = 0, k = 0, num = 0, nodes[8];
        vis_ConnectTopology(c, id, &shape, &i, &j, &k);
        vis_ConnectElemNode(c, id, &num, nodes);
        vtkIdType ids[8];
        for (int a = 0; a < num; ++a) ids[a] = nodes[a] - 1;
        ug->InsertNextCell(shape == SYS_SHAPE_HEX ? VTK_HEXAHEDRON : VTK_WEDGE, num, ids);
    }
    vtkNew<vtkDataSetSurfaceFilter> surf;
    surf->SetInputData(ug);
    surf->PassThroughPointIdsOn();
    surf->Update();
    vtkPolyData* out = surf->GetOutput();
    vtkDataArray* orig = out->GetPointData()->GetArray(surf->GetOriginalPointIdsName());
    FaceSet faces;
    if (!orig) return faces;
    for (vtkIdType cell = 0; cell < out->GetNumberOfCells(); ++cell) {
        vtkNew<vtkIdList> ids;
        out->GetCellPoints(cell, ids);
        std::vector<int> face;
        for (vtkIdType a = 0; a < ids->GetNumberOfIds(); ++a)
            face.push_back(static_cast<int>(orig->GetTuple1(ids->GetId(a))) + 1);
        std::sort(face.begin(), face.end());
        faces.insert(face);
    }
    return faces;
}

TEST(FreeFacesVtkTest, SameFaceSetAsTheSurfaceFilter)
{
    // By hand: the 3 x 2 x 2 block has 2 (3 * 2 + 2 * 2 + 3 * 2) = 32 free faces; cutting the
    // corner column into wedges splits its bottom face (z = 0) and its top face (z = 2) into
    // two triangles each and keeps its faces on x = 0 and y = 0 as quadrilaterals of one wedge
    // each; the triangles between the two layers meet each other: 32 + 2 = 34.
    vis_Connect* c = vis_ConnectNew();
    WedgeBlock(c);
    ASSERT_EQ(vis_ConnectError(c), 0);
    FaceSet mine = ConnectFreeFaces(c);
    FaceSet theirs = VtkFreeFaces(c);
    EXPECT_EQ(mine.size(), 34u);
    EXPECT_EQ(mine, theirs);
    vis_ConnectDelete(c);
}

}  // namespace

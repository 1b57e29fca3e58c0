// The data behind the shape actors: a compact copy of the bridge's output, without the bridge's
// source behind it, without the cells of vertices that bound an edge, drawn the same.
#include "BoxShapeParaCreator.h"
#include "CylinderShapeParaCreator.h"
#include "GuiTestSupport.h"
#include "LineShapeParaCreator.h"
#include "ShapeActorData.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewerTestPeer.h"
#include "ViewerFixture.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <IVtkOCC_Shape.hxx>
#include <IVtkTools_ShapeDataSource.hxx>
#include <IVtkTools_ShapeObject.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedDataMapOfShapeListOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <vtkCamera.h>
#include <vtkCoordinate.h>
#include <vtkRenderWindow.h>
#include <vtkCellData.h>
#include <vtkExecutive.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkRenderer.h>
#include <vtkTrivialProducer.h>

#include <algorithm>
#include <cmath>

using tevtest::DocumentViewerTest;

namespace {

// The bridge's own output for `shape`, as a plain actor of ShapeRenderTool draws it.
vtkSmartPointer<IVtkTools_ShapeDataSource> BridgeSource(const TopoDS_Shape& shape)
{
    IVtkOCC_Shape::Handle occ = new IVtkOCC_Shape(shape);
    occ->SetId(0);
    auto source = vtkSmartPointer<IVtkTools_ShapeDataSource>::New();
    source->SetShape(occ);
    source->Update();
    return source;
}

vtkPolyData* Output(IVtkTools_ShapeDataSource* source)
{
    return vtkPolyData::SafeDownCast(source->GetOutputDataObject(0));
}

TopoDS_Shape Line(double x0, double y0, double x1, double y1)
{
    return BRepBuilderAPI_MakeEdge(gp_Pnt(x0, y0, 0), gp_Pnt(x1, y1, 0)).Edge();
}

TEST(ShapeActorDataTest, TheCopyOfABoxKeepsItsPointsEdgesAndFacesButNotItsCornerVertices)
{
    auto source = BridgeSource(BRepPrimAPI_MakeBox(10, 20, 30).Shape());
    vtkPolyData* made = Output(source);
    // The bridge draws the 8 corners as vertex cells beside the 12 edges and the faces.
    ASSERT_EQ(made->GetNumberOfVerts(), 8);
    ASSERT_GE(made->GetNumberOfLines(), 12);
    ASSERT_GT(made->GetNumberOfPolys(), 0);

    vtkSmartPointer<vtkPolyData> kept = ShapeActorData::Compact(made);
    EXPECT_EQ(kept->GetNumberOfVerts(), 0);  // every corner bounds an edge
    EXPECT_EQ(kept->GetNumberOfLines(), made->GetNumberOfLines());
    EXPECT_EQ(kept->GetNumberOfPolys(), made->GetNumberOfPolys());
    EXPECT_EQ(kept->GetNumberOfStrips(), 0);
    EXPECT_EQ(kept->GetNumberOfPoints(), made->GetNumberOfPoints());
    // Shared, not copied: the points and the cells of faces and edges.
    EXPECT_EQ(kept->GetPoints(), made->GetPoints());
    EXPECT_EQ(kept->GetPolys(), made->GetPolys());
    EXPECT_EQ(kept->GetLines(), made->GetLines());
    EXPECT_EQ(kept->GetCellData()->GetNumberOfArrays(), 0);
    double a[6], b[6];
    made->GetBounds(a);
    kept->GetBounds(b);
    for (int i = 0; i < 6; ++i) EXPECT_DOUBLE_EQ(a[i], b[i]) << i;
}

TEST(ShapeActorDataTest, AVertexOfNoEdgeKeepsItsCellAndTheVerticesOfAnEdgeLoseTheirs)
{
    // A compound of a lone vertex and an edge: 3 vertex cells, of which only the lone vertex's
    // stays, at its own point (7, 8, 9).
    TopoDS_Compound both;
    BRep_Builder builder;
    builder.MakeCompound(both);
    builder.Add(both, BRepBuilderAPI_MakeVertex(gp_Pnt(7, 8, 9)).Vertex());
    builder.Add(both, Line(0, 0, 5, 0));
    auto source = BridgeSource(both);
    vtkPolyData* made = Output(source);
    ASSERT_EQ(made->GetNumberOfVerts(), 3);

    vtkSmartPointer<vtkPolyData> kept = ShapeActorData::Compact(made);
    ASSERT_EQ(kept->GetNumberOfVerts(), 1);
    EXPECT_EQ(kept->GetNumberOfLines(), 1);
    vtkIdType size = 0;
    const vtkIdType* ids = nullptr;
    kept->GetVerts()->GetCellAtId(0, size, ids);
    ASSERT_EQ(size, 1);
    double p[3];
    kept->GetPoint(ids[0], p);
    EXPECT_DOUBLE_EQ(p[0], 7.0);
    EXPECT_DOUBLE_EQ(p[1], 8.0);
    EXPECT_DOUBLE_EQ(p[2], 9.0);
}

class ShapeActorDataViewerTest : public DocumentViewerTest
{
protected:
    static void InTransaction(const std::function<void()>& change)
    {
        ShapeDocMgr::GetInstance()->StartTransaction();
        change();
        ShapeDocMgr::GetInstance()->EndTransaction();
    }

    // Two lines, a box, a cylinder and a lone vertex, seen at a slant.
    void DrawScene()
    {
        InTransaction([] {
            gp_Pnt a(-40, -30, 0), b(-5, 25, 0), c(30, -35, 5), d(45, 20, 5);
            LineShapeParaCreator().CreateLine(a, b);
            LineShapeParaCreator().CreateLine(c, d);
        });
        InTransaction([] { BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 20, 15, 10); });
        InTransaction([] {
            CylinderShapeParaCreator().CreateCylinder(gp_Pnt(-25, 10, 0), gp_Dir(0, 0, 1), 8, 20, 2 * M_PI);
        });
        InTransaction([] {
            ShapeLabelMgr::GetInstance()->AddShapeToDoc(ShapeDocMgr::GetInstance()->GetDoc(),
                                                        BRepBuilderAPI_MakeVertex(gp_Pnt(10, -25, 0)).Vertex(),
                                                        "Vertex");
        });
        viewer->RefreshViewer();
        vtkRenderer* renderer = viewer->GetDefaultRender();
        renderer->GetActiveCamera()->Azimuth(30);
        renderer->GetActiveCamera()->Elevation(35);
        renderer->ResetCamera();
        viewer->UpdateViewer();
    }

    // The picture in surface, wireframe and point display, back in surface display after.
    std::vector<QImage> Pictures()
    {
        std::vector<QImage> shots;
        viewer->m_Slot_DisplayBySurface();
        shots.push_back(Shot());
        viewer->m_Slot_DisplayByWireFrame();
        shots.push_back(Shot());
        viewer->m_Slot_DisplayByPoint();
        shots.push_back(Shot());
        viewer->m_Slot_DisplayBySurface();
        return shots;
    }

    QImage Shot()
    {
        viewer->UpdateViewer();
        return tevtest::GrabRendered(viewer.get());
    }

    // Where the vertices of the shapes' edges are drawn, in image pixels (rows from the top).
    std::vector<QPoint> EdgeVertexPixels()
    {
        std::vector<QPoint> pixels;
        auto coord = vtkSmartPointer<vtkCoordinate>::New();
        coord->SetCoordinateSystemToWorld();
        const int height = viewer->GetRenderWindow()->GetSize()[1];
        for (const TopoDS_Shape& shape : ShapeLabelMgr::GetInstance()->GetAllShapes()) {
            TopTools_IndexedDataMapOfShapeListOfShape edgesOf;
            TopExp::MapShapesAndAncestors(shape, TopAbs_VERTEX, TopAbs_EDGE, edgesOf);
            for (int i = 1; i <= edgesOf.Extent(); ++i) {
                if (edgesOf(i).IsEmpty()) continue;
                const gp_Pnt p = BRep_Tool::Pnt(TopoDS::Vertex(edgesOf.FindKey(i)));
                coord->SetValue(p.X(), p.Y(), p.Z());
                const double* d = coord->GetComputedDoubleDisplayValue(viewer->GetDefaultRender());
                pixels.emplace_back(int(std::floor(d[0])), height - 1 - int(std::floor(d[1])));
            }
        }
        return pixels;
    }

    // Puts the bridge's own full output back behind every shape actor.
    void UseBridgeSources()
    {
        for (const auto& entry : TevBasicViewerTestPeer::ActorByShape(*viewer)) {
            vtkMapper* mapper = entry.second->GetMapper();
            mapper->StaticOff();
            mapper->SetInputConnection(BridgeSource(entry.first->GetShape())->GetOutputPort());
        }
    }
};

TEST_F(ShapeActorDataViewerTest, AShapeActorHoldsItsCopyWithoutTheBridgeSourceAndSharesItsShaderProperty)
{
    DrawScene();
    const auto& actors = TevBasicViewerTestPeer::ActorByShape(*viewer);
    ASSERT_EQ(actors.size(), 5u);
    for (const auto& entry : actors) {
        vtkMapper* mapper = entry.second->GetMapper();
        ASSERT_NE(mapper, nullptr);
        EXPECT_TRUE(mapper->GetStatic());
        EXPECT_TRUE(vtkTrivialProducer::SafeDownCast(mapper->GetInputAlgorithm()) != nullptr);
        EXPECT_TRUE(IVtkTools_ShapeObject::GetOccShape(entry.second).IsNull());
        // Both ends run on the plain streaming pipeline, not the composite-data one.
        EXPECT_FALSE(mapper->GetExecutive()->IsA("vtkCompositeDataPipeline"));
        EXPECT_TRUE(mapper->GetExecutive()->IsA("vtkStreamingDemandDrivenPipeline"));
        EXPECT_FALSE(mapper->GetInputAlgorithm()->GetExecutive()->IsA("vtkCompositeDataPipeline"));
        EXPECT_EQ(entry.second->GetShaderProperty(), ShapeActorData::SharedShaderProperty());
        vtkPolyData* data = vtkPolyData::SafeDownCast(mapper->GetInput());
        ASSERT_NE(data, nullptr);
        // Only the lone vertex keeps a vertex cell.
        const bool lone = entry.first->GetShape().ShapeType() == TopAbs_VERTEX;
        EXPECT_EQ(data->GetNumberOfVerts(), lone ? 1 : 0);
    }
}

// The bridge draws every vertex of an edge as a point of its own, under or beside the edge's
// end; without those points the picture changes only at the pixels of such vertices (within a
// pixel of where a vertex is drawn), and not at all in the point display, which draws every
// point anyway.
TEST_F(ShapeActorDataViewerTest, ThePictureDiffersFromTheBridgesFullOutputOnlyAtTheVerticesOfEdges)
{
    DrawScene();
    const std::vector<QImage> kept = Pictures();
    const std::vector<QPoint> vertices = EdgeVertexPixels();
    UseBridgeSources();
    const std::vector<QImage> full = Pictures();
    ASSERT_EQ(kept.size(), full.size());
    const QColor background = kept[0].pixelColor(0, 0);
    for (size_t i = 0; i < kept.size(); ++i) {
        ASSERT_EQ(kept[i].size(), full[i].size());
        int differ = 0, drawn = 0, away = 0;
        for (int y = 0; y < kept[i].height(); ++y)
            for (int x = 0; x < kept[i].width(); ++x) {
                if (full[i].pixelColor(x, y) != background) ++drawn;
                if (kept[i].pixel(x, y) == full[i].pixel(x, y)) continue;
                ++differ;
                const bool nearVertex = std::any_of(vertices.begin(), vertices.end(), [x, y](const QPoint& v) {
                    return std::abs(v.x() - x) <= 1 && std::abs(v.y() - y) <= 1;
                });
                if (!nearVertex) ++away;
            }
        EXPECT_EQ(away, 0) << "display " << i;
        // A vertex changes at most the 3 x 3 pixels around it.
        EXPECT_LE(differ, int(vertices.size()) * 9) << "display " << i;
        if (i == 2) {
            EXPECT_EQ(differ, 0) << "the point display";
        }
        // The comparison is between pictures of something: the shapes, the grid and the axes.
        EXPECT_GT(drawn, 1000) << "display " << i;
    }
}

}  // namespace

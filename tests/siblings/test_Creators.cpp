// The parametric creators: each shape's type, validity and measure against the analytic value
// of its arguments, its registration in the document, and one clear message for each input a
// creator cannot use, with the document unchanged and its history intact.
#include "SiblingTestSupport.h"

#include "ArcShapeParaCreator.h"
#include "BSplineShapeParaCreator.h"
#include "BezierShapeParaCreator.h"
#include "BoxShapeParaCreator.h"
#include "CircleShapeParaCreator.h"
#include "ConeShapeParaCreator.h"
#include "CylinderShapeParaCreator.h"
#include "EllipseShapeParaCreator.h"
#include "ExtrudeLoopParaCreator.h"
#include "ExtrudeShapeParaCreator.h"
#include "LineShapeParaCreator.h"
#include "OrthPolygonShapeParaCreator.h"
#include "PipeShapeParaCreator.h"
#include "RectangleShapeParaCreator.h"
#include "RevolveShapeParaCreator.h"
#include "SphereShapeParaCreator.h"
#include "TorousShapeParaCreator.h"
#include "TriangleFaceShapeParaCreator.h"
#include "TruncatedConeShapeParaCreator.h"
#include "WedgeShapeParaCreator.h"

#include <BRepAdaptor_Curve.hxx>
#include <GCPnts_AbscissaPoint.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepExtrema_DistShapeShape.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRep_Tool.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <gp.hxx>
#include <gp_Circ.hxx>

#include <cmath>
#include <functional>

using namespace sibtest;

namespace {

const double kTol = 1e-6;

int CountOf(const TopoDS_Shape& s, TopAbs_ShapeEnum type)
{
    TopTools_IndexedMapOfShape map;
    TopExp::MapShapes(s, type, map);
    return map.Extent();
}

// Arc length by adaptive integration to 1e-10: LinearProperties integrates with a fixed number
// of Gauss points, too coarse for an ellipse to be compared with an exact value.
double CurveLength(const TopoDS_Shape& s)
{
    double sum = 0.0;
    for (TopExp_Explorer e(s, TopAbs_EDGE); e.More(); e.Next())
        sum += GCPnts_AbscissaPoint::Length(BRepAdaptor_Curve(TopoDS::Edge(e.Current())), 1e-10);
    return sum;
}

double DistanceToShape(const gp_Pnt& p, const TopoDS_Shape& s)
{
    BRepExtrema_DistShapeShape dist(BRepBuilderAPI_MakeVertex(p).Vertex(), s);
    return dist.Value();
}

std::vector<double> Values(const TDF_Label& label, const char* name)
{
    ShapeParameter p;
    if (!BaseShapeParaCreator::GetShapeParameter(label, name, p)) return {};
    return p.values;
}

// Arc length of a curve given by its derivative, by composite Simpson over [0, 1].
double IntegrateSpeed(const std::function<gp_Vec(double)>& derivative, int n = 20000)
{
    double sum = 0.0;
    const double h = 1.0 / n;
    for (int i = 0; i <= n; ++i) {
        const double w = (i == 0 || i == n) ? 1.0 : (i % 2 ? 4.0 : 2.0);
        sum += w * derivative(i * h).Magnitude();
    }
    return sum * h / 3.0;
}

class Creators : public SiblingTest
{
protected:
    // Runs `create` on a fresh document holding one reference box, inside a caller's bracket,
    // and checks the rejection.
    void Reject(const std::function<TDF_Label()>& create, const QString& message)
    {
        SCOPED_TRACE(message.toStdString());
        Doc()->NewDocument();
        AddReferenceBox();
        m_Lines.clear();
        Doc()->StartTransaction();
        const TDF_Label label = create();
        Doc()->EndTransaction();
        ExpectRejected(label, message, 1, 1);
        m_Lines.clear();
    }
};

// ---- curves --------------------------------------------------------------------------------

TEST_F(Creators, LineIsAnEdgeOfTheDistance)
{
    gp_Pnt a(1, 2, 3), b(4, 6, 15);
    TopoDS_Shape s = ExpectRegistered(LineShapeParaCreator().CreateLine(a, b), "Line");
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    EXPECT_NEAR(Length(s), 13.0, kTol);
    TopoDS_Vertex v1, v2;
    TopExp::Vertices(TopoDS::Edge(s), v1, v2);
    EXPECT_LT(BRep_Tool::Pnt(v1).Distance(a), kTol);
    EXPECT_LT(BRep_Tool::Pnt(v2).Distance(b), kTol);
    TDF_Label label = ShapeLabelMgr::GetInstance()->FindLabel(s);
    EXPECT_EQ(Values(label, "Start"), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(Values(label, "End"), (std::vector<double>{4, 6, 15}));
    EXPECT_EQ(Values(label, "Length"), (std::vector<double>{13.0}));
}

TEST_F(Creators, LineRejectsCoincidentPoints)
{
    Reject([] { gp_Pnt a(1, 1, 1), b(1, 1, 1); return LineShapeParaCreator().CreateLine(a, b); },
           "CreateLine : the start and end points coincide");
}

TEST_F(Creators, ArcRunsFromFirstThroughSecondToThird)
{
    // A half circle of radius 10 from (10,0,0) through (0,10,0) to (-10,0,0).
    TDF_Label label = ArcShapeParaCreator().CreateArc(gp_Pnt(10, 0, 0), gp_Pnt(0, 10, 0), gp_Pnt(-10, 0, 0));
    TopoDS_Shape s = ExpectRegistered(label, "Arc");
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    EXPECT_NEAR(Length(s), 10.0 * M_PI, kTol);
    EXPECT_LT(DistanceToShape(gp_Pnt(0, 10, 0), s), kTol);
    EXPECT_NEAR(DistanceToShape(gp_Pnt(0, -10, 0), s), 10.0 * std::sqrt(2.0), kTol);
    EXPECT_NEAR(Values(label, "Radius").at(0), 10.0, kTol);
    std::vector<double> c = Values(label, "Center");
    ASSERT_EQ(c.size(), 3u);
    EXPECT_NEAR(c[0], 0.0, kTol);
    EXPECT_NEAR(c[1], 0.0, kTol);
}

TEST_F(Creators, ArcTakesTheShortWayWhenTheMiddlePointSaysSo)
{
    // Quarter circle: from (10,0,0) through the point at 45 degrees to (0,10,0).
    const double r = 10.0 / std::sqrt(2.0);
    TDF_Label label = ArcShapeParaCreator().CreateArc(gp_Pnt(10, 0, 0), gp_Pnt(r, r, 0), gp_Pnt(0, 10, 0));
    EXPECT_NEAR(Length(ExpectRegistered(label, "Arc")), 5.0 * M_PI, kTol);
}

TEST_F(Creators, ArcRejectsCollinearAndCoincidentPoints)
{
    Reject([] { return ArcShapeParaCreator().CreateArc(gp_Pnt(0, 0, 0), gp_Pnt(1, 1, 1), gp_Pnt(2, 2, 2)); },
           "CreateArc : the three points are collinear");
    Reject([] { return ArcShapeParaCreator().CreateArc(gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 0), gp_Pnt(2, 2, 2)); },
           "CreateArc : two of the three points coincide");
}

TEST_F(Creators, CircleLiesInTheXYPlaneAroundItsCentre)
{
    TDF_Label label = CircleShapeParaCreator().CreateCircle(gp_Pnt(1, 2, 3), 5.0);
    TopoDS_Shape s = ExpectRegistered(label, "Circle");
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    EXPECT_NEAR(Length(s), 10.0 * M_PI, kTol);
    EXPECT_TRUE(BRep_Tool::IsClosed(s));
    std::vector<double> b = Bounds(s);
    EXPECT_NEAR(b[0], -4.0, kTol);
    EXPECT_NEAR(b[3], 6.0, kTol);
    EXPECT_NEAR(b[1], -3.0, kTol);
    EXPECT_NEAR(b[4], 7.0, kTol);
    EXPECT_NEAR(b[2], 3.0, kTol);
    EXPECT_NEAR(b[5], 3.0, kTol);
    EXPECT_EQ(Values(label, "Radius"), (std::vector<double>{5.0}));
}

TEST_F(Creators, CircleRejectsRadiusZeroAndNegative)
{
    Reject([] { return CircleShapeParaCreator().CreateCircle(gp_Pnt(0, 0, 0), 0.0); },
           "CreateCircle : the radius must be greater than 0");
    Reject([] { return CircleShapeParaCreator().CreateCircle(gp_Pnt(0, 0, 0), -2.0); },
           "CreateCircle : the radius must be greater than 0");
}

TEST_F(Creators, EllipseHasTheRadiiOfItsAxisPoints)
{
    // Major semi-axis 10 along X, minor 4: the second point is 4 away from the first axis.
    TDF_Label label = EllipseShapeParaCreator().CreateEllipse(gp_Pnt(10, 0, 0), gp_Pnt(3, 4, 0), gp_Pnt(0, 0, 0));
    TopoDS_Shape s = ExpectRegistered(label, "Ellipse");
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    EXPECT_NEAR(Values(label, "MajorRadius").at(0), 10.0, kTol);
    EXPECT_NEAR(Values(label, "MinorRadius").at(0), 4.0, kTol);
    const double perimeter =
        IntegrateSpeed([](double t) { return gp_Vec(-10.0 * std::sin(2 * M_PI * t), 4.0 * std::cos(2 * M_PI * t), 0) * (2 * M_PI); });
    EXPECT_NEAR(CurveLength(s), perimeter, 1e-6);
    EXPECT_NEAR(Length(s), perimeter, 0.01 * perimeter);
    std::vector<double> b = Bounds(s);
    EXPECT_NEAR(b[0], -10.0, kTol);
    EXPECT_NEAR(b[4], 4.0, kTol);
}

TEST_F(Creators, EllipseTakesTheFartherPointAsMajorAxisEnd)
{
    // The second point is farther from the first axis (5) than the first point from the
    // centre (2): it becomes the end of the major axis.
    TDF_Label label = EllipseShapeParaCreator().CreateEllipse(gp_Pnt(2, 0, 0), gp_Pnt(1, 5, 0), gp_Pnt(0, 0, 0));
    ExpectRegistered(label, "Ellipse");
    EXPECT_NEAR(Values(label, "MajorRadius").at(0), std::sqrt(26.0), kTol);
    EXPECT_NEAR(Values(label, "MinorRadius").at(0), 10.0 / std::sqrt(26.0), kTol);
}

TEST_F(Creators, EllipseRejectsDegenerateAxes)
{
    Reject([] { return EllipseShapeParaCreator().CreateEllipse(gp_Pnt(1, 1, 0), gp_Pnt(3, 4, 0), gp_Pnt(1, 1, 0)); },
           "CreateEllipse : the first axis point coincides with the centre");
    Reject([] { return EllipseShapeParaCreator().CreateEllipse(gp_Pnt(10, 0, 0), gp_Pnt(-3, 0, 0), gp_Pnt(0, 0, 0)); },
           "CreateEllipse : the second axis point lies on the first axis");
}

TEST_F(Creators, RectangleWithNegativeSizesLiesOnTheirSide)
{
    TDF_Label label = RectangleShapeParaCreator().CreateRectangle(gp_Pnt(1, 1, 2), -4.0, 3.0);
    TopoDS_Shape s = ExpectRegistered(label, "Rectangle");
    ASSERT_EQ(s.ShapeType(), TopAbs_WIRE);
    EXPECT_TRUE(BRep_Tool::IsClosed(s));
    EXPECT_EQ(CountOf(s, TopAbs_EDGE), 4);
    EXPECT_NEAR(Length(s), 14.0, kTol);
    EXPECT_NEAR(Area(BRepBuilderAPI_MakeFace(TopoDS::Wire(s)).Face()), 12.0, kTol);
    std::vector<double> b = Bounds(s);
    EXPECT_NEAR(b[0], -3.0, kTol);
    EXPECT_NEAR(b[3], 1.0, kTol);
    EXPECT_NEAR(b[1], 1.0, kTol);
    EXPECT_NEAR(b[4], 4.0, kTol);
    EXPECT_NEAR(b[2], 2.0, kTol);
    EXPECT_NEAR(b[5], 2.0, kTol);
    EXPECT_EQ(Values(label, "DX"), (std::vector<double>{-4.0}));

    TopoDS_Shape both = ExpectRegistered(RectangleShapeParaCreator().CreateRectangle(gp_Pnt(0, 0, 0), -2.0, -5.0), "Rectangle");
    EXPECT_NEAR(Length(both), 14.0, kTol);
    EXPECT_NEAR(Bounds(both)[1], -5.0, kTol);
}

TEST_F(Creators, RectangleRejectsZeroSize)
{
    Reject([] { return RectangleShapeParaCreator().CreateRectangle(gp_Pnt(0, 0, 0), 5.0, 0.0); },
           "CreateRectangle : the width and the height must not be 0");
}

TEST_F(Creators, RegularPolygonHasEqualEdgesOnItsCircle)
{
    TDF_Label label = OrthPolygonShapeParaCreator().CreateOrthPolygon(gp_Pnt(0, 0, 0), gp_Pnt(2, 0, 0), 6);
    TopoDS_Shape s = ExpectRegistered(label, "Polygon");
    ASSERT_EQ(s.ShapeType(), TopAbs_WIRE);
    EXPECT_TRUE(BRep_Tool::IsClosed(s));
    EXPECT_EQ(CountOf(s, TopAbs_EDGE), 6);
    EXPECT_NEAR(Length(s), 12.0, kTol);  // a hexagon's side is its radius
    for (TopExp_Explorer e(s, TopAbs_VERTEX); e.More(); e.Next())
        EXPECT_NEAR(BRep_Tool::Pnt(TopoDS::Vertex(e.Current())).Distance(gp::Origin()), 2.0, kTol);
    EXPECT_EQ(Values(label, "EdgeNumber"), (std::vector<double>{6.0}));

    // Square about (1,1,0) whose vertex is 3 higher: it lies at the vertex's height.
    TopoDS_Shape sq = ExpectRegistered(OrthPolygonShapeParaCreator().CreateOrthPolygon(gp_Pnt(1, 1, 0), gp_Pnt(4, 1, 3), 4), "Polygon");
    EXPECT_NEAR(Length(sq), 4 * 2 * 3.0 * std::sin(M_PI / 4), kTol);
    EXPECT_NEAR(Bounds(sq)[2], 3.0, kTol);
}

TEST_F(Creators, RegularPolygonRejectsBadEdgeNumbersAndRadius)
{
    Reject([] { return OrthPolygonShapeParaCreator().CreateOrthPolygon(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0), -5); },
           "CreateOrthPolygon : the number of edges must be between 3 and 1000, not -5");
    Reject([] { return OrthPolygonShapeParaCreator().CreateOrthPolygon(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0), 0); },
           "CreateOrthPolygon : the number of edges must be between 3 and 1000, not 0");
    Reject([] { return OrthPolygonShapeParaCreator().CreateOrthPolygon(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0), 2); },
           "CreateOrthPolygon : the number of edges must be between 3 and 1000, not 2");
    Reject([] { return OrthPolygonShapeParaCreator().CreateOrthPolygon(gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 5), 5); },
           "CreateOrthPolygon : the vertex lies on the axis through the centre");
}

TEST_F(Creators, TriangleIsAPlanarFace)
{
    TDF_Label label =
        TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(0, 0, 1), gp_Pnt(4, 0, 1), gp_Pnt(0, 3, 1)});
    TopoDS_Shape s = ExpectRegistered(label, "Triangle");
    ASSERT_EQ(s.ShapeType(), TopAbs_FACE);
    EXPECT_NEAR(Area(s), 6.0, kTol);
    EXPECT_EQ(CountOf(s, TopAbs_EDGE), 3);
    EXPECT_EQ(Values(label, "Point3"), (std::vector<double>{0, 3, 1}));
}

TEST_F(Creators, TriangleRejectsWrongCountsCollinearAndCoincidentPoints)
{
    Reject([] { return TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)}); },
           "CreateTriangle : a triangle needs 3 points, not 2");
    Reject([] { return TriangleFaceShapeParaCreator().CreateTriangle({}); },
           "CreateTriangle : a triangle needs 3 points, not 0");
    Reject([] { return TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(0, 0, 0), gp_Pnt(1, 1, 0), gp_Pnt(3, 3, 0)}); },
           "CreateTriangle : the three points are collinear");
    Reject([] { return TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 0), gp_Pnt(3, 3, 0)}); },
           "CreateTriangle : two of the three points coincide");
}

TEST_F(Creators, BezierOfTwoPointsIsStraight)
{
    TopoDS_Shape s = ExpectRegistered(BezierShapeParaCreator().CreateBeizer({gp_Pnt(0, 0, 0), gp_Pnt(3, 4, 0)}), "Bezier");
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    EXPECT_NEAR(Length(s), 5.0, kTol);
}

TEST_F(Creators, BezierHasTheLengthOfItsPolynomial)
{
    // Cubic with poles P0..P3; its derivative is 3 * sum of B2_i(t) * (P(i+1) - P(i)).
    const gp_Pnt p[4] = {gp_Pnt(0, 0, 0), gp_Pnt(1, 3, 0), gp_Pnt(4, 3, 2), gp_Pnt(6, 0, 0)};
    TDF_Label label = BezierShapeParaCreator().CreateBeizer({p[0], p[1], p[2], p[3]});
    TopoDS_Shape s = ExpectRegistered(label, "Bezier");
    const double expected = IntegrateSpeed([&p](double t) {
        const gp_Vec d0(p[0], p[1]), d1(p[1], p[2]), d2(p[2], p[3]);
        return (d0 * ((1 - t) * (1 - t)) + d1 * (2 * t * (1 - t)) + d2 * (t * t)) * 3.0;
    });
    EXPECT_NEAR(CurveLength(s), expected, 1e-7);
    EXPECT_NEAR(Length(s), expected, 1e-5);
    EXPECT_LT(DistanceToShape(p[0], s), kTol);
    EXPECT_LT(DistanceToShape(p[3], s), kTol);
    EXPECT_EQ(Values(label, "Poles").size(), 12u);
}

TEST_F(Creators, BezierDropsRepeatedClicks)
{
    // The same point clicked twice in a row counts once: poles (0,0,0), (5,0,0), (10,0,0).
    TDF_Label label = BezierShapeParaCreator().CreateBeizer(
        {gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 0), gp_Pnt(5, 0, 0), gp_Pnt(5, 0, 0), gp_Pnt(10, 0, 0)});
    TopoDS_Shape s = ExpectRegistered(label, "Bezier");
    EXPECT_NEAR(Length(s), 10.0, kTol);
    EXPECT_EQ(Values(label, "Poles"), (std::vector<double>{0, 0, 0, 5, 0, 0, 10, 0, 0}));
    // A curve that returns to its start is a closed edge.
    TopoDS_Shape loop = ExpectRegistered(
        BezierShapeParaCreator().CreateBeizer({gp_Pnt(0, 0, 0), gp_Pnt(4, 0, 0), gp_Pnt(4, 4, 0), gp_Pnt(0, 0, 0)}), "Bezier");
    EXPECT_TRUE(BRep_Tool::IsClosed(loop));
}

TEST_F(Creators, BezierRejectsTooFewAndTooManyPoints)
{
    Reject([] { return BezierShapeParaCreator().CreateBeizer({}); },
           "CreateBeizer : a Bezier curve needs at least 2 distinct points, 0 given");
    Reject([] { return BezierShapeParaCreator().CreateBeizer({gp_Pnt(1, 2, 3)}); },
           "CreateBeizer : a Bezier curve needs at least 2 distinct points, 1 given");
    Reject([] { return BezierShapeParaCreator().CreateBeizer({gp_Pnt(1, 2, 3), gp_Pnt(1, 2, 3), gp_Pnt(1, 2, 3)}); },
           "CreateBeizer : a Bezier curve needs at least 2 distinct points, 1 given");
    std::vector<gp_Pnt> many;
    for (int i = 0; i < 27; ++i) many.emplace_back(i, (i % 2) * 1.0, 0);
    Reject([&many] { return BezierShapeParaCreator().CreateBeizer(many); },
           "CreateBeizer : a Bezier curve takes at most 26 points, 27 given");
}

TEST_F(Creators, SplinePassesThroughEveryPoint)
{
    const std::vector<gp_Pnt> pts = {gp_Pnt(0, 0, 0), gp_Pnt(2, 3, 0), gp_Pnt(5, 1, 1), gp_Pnt(7, 4, 2)};
    TDF_Label label = BSplineShapeParaCreator().CreateSpline(pts, false);
    TopoDS_Shape s = ExpectRegistered(label, "BSpline");
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    for (const gp_Pnt& p : pts) EXPECT_LT(DistanceToShape(p, s), 1e-6);
    EXPECT_FALSE(BRep_Tool::IsClosed(s));
    EXPECT_EQ(Values(label, "Closed"), (std::vector<double>{0.0}));
    // Evenly spaced points on a line: the spline is the segment.
    TopoDS_Shape line = ExpectRegistered(
        BSplineShapeParaCreator().CreateSpline({gp_Pnt(0, 0, 0), gp_Pnt(1, 1, 1), gp_Pnt(2, 2, 2), gp_Pnt(3, 3, 3)}, false),
        "BSpline");
    EXPECT_NEAR(Length(line), 3.0 * std::sqrt(3.0), kTol);
}

TEST_F(Creators, SplineSkipsRepeatedPointsAndCanClose)
{
    TopoDS_Shape s = ExpectRegistered(
        BSplineShapeParaCreator().CreateSpline({gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 0), gp_Pnt(4, 0, 0), gp_Pnt(8, 0, 0), gp_Pnt(8, 0, 0)}, false),
        "BSpline");
    EXPECT_NEAR(Length(s), 8.0, kTol);
    TDF_Label label = BSplineShapeParaCreator().CreateSpline(
        {gp_Pnt(1, 0, 0), gp_Pnt(0, 1, 0), gp_Pnt(-1, 0, 0), gp_Pnt(0, -1, 0), gp_Pnt(1, 0, 0)}, true);
    TopoDS_Shape closed = ExpectRegistered(label, "BSpline");
    EXPECT_TRUE(BRep_Tool::IsClosed(closed));
    EXPECT_EQ(Values(label, "Points").size(), 12u);  // the repeated first point is not kept
    EXPECT_LT(DistanceToShape(gp_Pnt(-1, 0, 0), closed), 1e-6);
}

TEST_F(Creators, SplineRejectsTooFewDistinctPoints)
{
    Reject([] { return BSplineShapeParaCreator().CreateSpline({}, false); },
           "CreateSpline : a open spline needs at least 2 distinct points, 0 given");
    Reject([] { return BSplineShapeParaCreator().CreateSpline({gp_Pnt(1, 1, 1), gp_Pnt(1, 1, 1)}, false); },
           "CreateSpline : a open spline needs at least 2 distinct points, 1 given");
    Reject([] { return BSplineShapeParaCreator().CreateSpline({gp_Pnt(0, 0, 0), gp_Pnt(1, 1, 1)}, true); },
           "CreateSpline : a closed spline needs at least 3 distinct points, 2 given");
}

// ---- solids --------------------------------------------------------------------------------

TEST_F(Creators, BoxHasItsVolumeAndPlacement)
{
    TDF_Label label = BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(1, 2, 3), gp::DZ(), gp::DX()), 10.0, 20.0, 30.0);
    TopoDS_Shape s = ExpectRegistered(label, "Box");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 6000.0, 1e-6);
    EXPECT_NEAR(Area(s), 2 * (200.0 + 600.0 + 300.0), 1e-6);
    std::vector<double> b = Bounds(s);
    EXPECT_NEAR(b[0], 1.0, kTol);
    EXPECT_NEAR(b[4], 22.0, kTol);
    EXPECT_NEAR(b[5], 33.0, kTol);
    std::vector<ShapeParameter> params = BaseShapeParaCreator::GetShapeParameters(label);
    ASSERT_EQ(params.size(), 6u);
    EXPECT_EQ(params[0].name, "Origin");
    EXPECT_EQ(params[3].name, "DX");
    EXPECT_EQ(params[5].name, "Height");
    EXPECT_EQ(params[5].values, (std::vector<double>{30.0}));
}

TEST_F(Creators, BoxFollowsATurnedPlacementAndNegativeSizes)
{
    // Placement turned 90 degrees about Z: its X is world Y.
    TopoDS_Shape turned = ExpectRegistered(
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp::Origin(), gp::DZ(), gp::DY()), 10.0, 2.0, 1.0), "Box");
    std::vector<double> b = Bounds(turned);
    EXPECT_NEAR(b[4], 10.0, kTol);
    EXPECT_NEAR(b[0], -2.0, kTol);
    // A negative height builds the box below its base.
    TopoDS_Shape below = ExpectRegistered(
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp::Origin(), gp::DZ(), gp::DX()), -2.0, 3.0, -4.0), "Box");
    EXPECT_NEAR(Volume(below), 24.0, 1e-9);
    b = Bounds(below);
    EXPECT_NEAR(b[0], -2.0, kTol);
    EXPECT_NEAR(b[3], 0.0, kTol);
    EXPECT_NEAR(b[2], -4.0, kTol);
    EXPECT_NEAR(b[5], 0.0, kTol);
}

TEST_F(Creators, BoxRejectsAZeroSize)
{
    Reject([] { return BoxShapeParaCreator().CreateBox(gp_Ax2(), 10.0, 0.0, 5.0); },
           "CreateBox : the sizes must not be 0 (dx 10, dy 0, height 5)");
}

TEST_F(Creators, WedgeVolumeIsThePrismatoidFormula)
{
    // Default ramp: top edge over the base's edge at Y = 0, half of the box.
    TDF_Label label = WedgeShapeParaCreator().CreateWedge(gp_Pnt(0, 0, 0), gp::DZ(), 10, 20, 30, 0, 0, 1, 0);
    TopoDS_Shape s = ExpectRegistered(label, "Wedge");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 3000.0, 1e-6);
    std::vector<double> b = Bounds(s);
    EXPECT_NEAR(b[0], 0.0, kTol);
    EXPECT_NEAR(b[3], 10.0, kTol);
    EXPECT_NEAR(b[1], 0.0, kTol);
    EXPECT_NEAR(b[4], 20.0, kTol);
    EXPECT_NEAR(b[2], 0.0, kTol);
    EXPECT_NEAR(b[5], 30.0, kTol);
    // The top edge runs along X at Y = 0, Z = 30.
    EXPECT_LT(DistanceToShape(gp_Pnt(5, 0, 30), s), kTol);
    EXPECT_NEAR(DistanceToShape(gp_Pnt(5, 20, 30), s), 30.0 * 20.0 / std::sqrt(30.0 * 30.0 + 20.0 * 20.0), 1e-6);

    // Top face [2.5, 7.5] x [5, 15] at the base point (1, 1, 1): V = h/6 (A0 + 4 Am + A1).
    TopoDS_Shape frustum = ExpectRegistered(
        WedgeShapeParaCreator().CreateWedge(gp_Pnt(1, 1, 1), gp::DZ(), 10, 20, 30, 0.25, 0.25, 0.75, 0.75), "Wedge");
    EXPECT_NEAR(Volume(frustum), 30.0 / 6.0 * (200.0 + 4 * 7.5 * 15.0 + 50.0), 1e-6);
    // A top reduced to a point is a pyramid: a third of the box.
    TopoDS_Shape pyramid = ExpectRegistered(
        WedgeShapeParaCreator().CreateWedge(gp_Pnt(0, 0, 0), gp::DZ(), 6, 6, 6, 0.5, 0.5, 0.5, 0.5), "Wedge");
    EXPECT_NEAR(Volume(pyramid), 72.0, 1e-6);
}

TEST_F(Creators, WedgeRejectsZeroSizesAndCrossedTop)
{
    Reject([] { return WedgeShapeParaCreator().CreateWedge(gp_Pnt(0, 0, 0), gp::DZ(), 10, 20, 0, 0, 0, 1, 0); },
           "CreateWedge : dx, dy and the height must be greater than 0 (dx 10, dy 20, height 0)");
    Reject([] { return WedgeShapeParaCreator().CreateWedge(gp_Pnt(0, 0, 0), gp::DZ(), 0, 20, 5, 0, 0, 1, 0); },
           "CreateWedge : dx, dy and the height must be greater than 0 (dx 0, dy 20, height 5)");
    Reject([] { return WedgeShapeParaCreator().CreateWedge(gp_Pnt(0, 0, 0), gp::DZ(), 10, 20, 5, 0.8, 0, 0.2, 0); },
           "CreateWedge : the top face needs X min <= X max and Y min <= Y max");
}

TEST_F(Creators, CylinderFullAndSector)
{
    TDF_Label label = CylinderShapeParaCreator().CreateCylinder(gp_Pnt(1, 1, 1), gp::DZ(), 2.0, 5.0, 360.0);
    TopoDS_Shape s = ExpectRegistered(label, "Cylinder");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 20.0 * M_PI, 1e-6);
    EXPECT_NEAR(Bounds(s)[5], 6.0, kTol);
    TopoDS_Shape quarter = ExpectRegistered(CylinderShapeParaCreator().CreateCylinder(gp_Pnt(0, 0, 0), gp::DZ(), 2.0, 5.0, 90.0), "Cylinder");
    EXPECT_NEAR(Volume(quarter), 5.0 * M_PI, 1e-6);
    // The sector starts at +X and turns towards +Y.
    std::vector<double> b = Bounds(quarter);
    EXPECT_NEAR(b[0], 0.0, kTol);
    EXPECT_NEAR(b[1], 0.0, kTol);
    EXPECT_NEAR(b[3], 2.0, kTol);
    EXPECT_NEAR(b[4], 2.0, kTol);
    TopoDS_Shape below = ExpectRegistered(CylinderShapeParaCreator().CreateCylinder(gp_Pnt(0, 0, 0), gp::DZ(), 1.0, -3.0, 360.0), "Cylinder");
    EXPECT_NEAR(Volume(below), 3.0 * M_PI, 1e-6);
    EXPECT_NEAR(Bounds(below)[2], -3.0, kTol);
}

TEST_F(Creators, CylinderRejectsZeroRadiusHeightAndAngle)
{
    Reject([] { return CylinderShapeParaCreator().CreateCylinder(gp_Pnt(0, 0, 0), gp::DZ(), 0.0, 5.0, 360.0); },
           "CreateCylinder : the radius must be greater than 0");
    Reject([] { return CylinderShapeParaCreator().CreateCylinder(gp_Pnt(0, 0, 0), gp::DZ(), 1.0, 0.0, 360.0); },
           "CreateCylinder : the height must not be 0");
    Reject([] { return CylinderShapeParaCreator().CreateCylinder(gp_Pnt(0, 0, 0), gp::DZ(), 1.0, 2.0, 0.0); },
           "CreateCylinder : the angle must be greater than 0 and at most 360 degrees, not 0");
    Reject([] { return CylinderShapeParaCreator().CreateCylinder(gp_Pnt(0, 0, 0), gp::DZ(), 1.0, 2.0, 400.0); },
           "CreateCylinder : the angle must be greater than 0 and at most 360 degrees, not 400");
}

TEST_F(Creators, ConeFullAndHalf)
{
    gp_Dir z = gp::DZ();
    double r = 3.0, h = 4.0, a = 360.0;
    TopoDS_Shape s = ExpectRegistered(ConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), z, r, h, a), "Cone");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 12.0 * M_PI, 1e-6);
    EXPECT_LT(DistanceToShape(gp_Pnt(0, 0, 4), s), kTol);  // the apex
    a = 180.0;
    TopoDS_Shape half = ExpectRegistered(ConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), z, r, h, a), "Cone");
    EXPECT_NEAR(Volume(half), 6.0 * M_PI, 1e-6);
}

TEST_F(Creators, ConeRejectsRadiusZeroAfterASecondClickOnTheFirst)
{
    Reject([] { gp_Dir z = gp::DZ(); double r = 0.0, h = 4.0, a = 360.0;
                return ConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), z, r, h, a); },
           "CreateCone : the radius must be greater than 0");
    Reject([] { gp_Dir z = gp::DZ(); double r = 1.0, h = 0.0, a = 360.0;
                return ConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), z, r, h, a); },
           "CreateCone : the height must not be 0");
}

TEST_F(Creators, TruncatedConeIsAFrustum)
{
    double r1 = 3.0, r2 = 1.0, h = 6.0, a = 360.0;
    TopoDS_Shape s = ExpectRegistered(TruncatedConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 2), r1, r2, h, a), "TruncatedCone");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), M_PI * 6.0 * (9.0 + 3.0 + 1.0) / 3.0, 1e-6);
    EXPECT_NEAR(Bounds(s)[5], 8.0, kTol);
    // Equal radii make a cylinder, a top radius of 0 a pointed cone.
    r2 = 3.0;
    EXPECT_NEAR(Volume(ExpectRegistered(TruncatedConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), r1, r2, h, a), "TruncatedCone")),
                M_PI * 9.0 * 6.0, 1e-6);
    r2 = 0.0;
    a = 90.0;
    EXPECT_NEAR(Volume(ExpectRegistered(TruncatedConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), r1, r2, h, a), "TruncatedCone")),
                M_PI * 9.0 * 6.0 / 3.0 / 4.0, 1e-6);
}

TEST_F(Creators, TruncatedConeRejectsZeroBottomRadiusAndNegativeTop)
{
    Reject([] { double r1 = 0.0, r2 = 1.0, h = 2.0, a = 360.0;
                return TruncatedConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), r1, r2, h, a); },
           "CreateCone : the bottom radius must be greater than 0");
    Reject([] { double r1 = 2.0, r2 = -1.0, h = 2.0, a = 360.0;
                return TruncatedConeShapeParaCreator().CreateCone(gp_Pnt(0, 0, 0), r1, r2, h, a); },
           "CreateCone : the top radius must not be negative");
}

TEST_F(Creators, SphereFullHalfAndZone)
{
    TDF_Label label = SphereShapeParaCreator().CreateSphere(gp_Pnt(1, 2, 3), 2.0, -90.0, 90.0, 360.0);
    TopoDS_Shape s = ExpectRegistered(label, "Sphere");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 4.0 / 3.0 * M_PI * 8.0, 1e-6);
    EXPECT_NEAR(Area(s), 4.0 * M_PI * 4.0, 1e-6);
    EXPECT_EQ(Values(label, "Angle1"), (std::vector<double>{-90.0}));
    TopoDS_Shape lower = ExpectRegistered(SphereShapeParaCreator().CreateSphere(gp_Pnt(0, 0, 0), 2.0, -90.0, 0.0, 360.0), "Sphere");
    EXPECT_NEAR(Volume(lower), 2.0 / 3.0 * M_PI * 8.0, 1e-6);
    EXPECT_NEAR(Bounds(lower)[5], 0.0, kTol);
    // Zone between latitudes 0 and 30 degrees over half a turn.
    const double r = 3.0, z2 = r * std::sin(M_PI / 6);
    const double zone = M_PI * (r * r * z2 - z2 * z2 * z2 / 3.0) * 0.5;
    TopoDS_Shape part = ExpectRegistered(SphereShapeParaCreator().CreateSphere(gp_Pnt(0, 0, 0), r, 0.0, 30.0, 180.0), "Sphere");
    EXPECT_NEAR(Volume(part), zone, 1e-6);
}

TEST_F(Creators, SphereRejectsRadiusZeroAndBadAngles)
{
    Reject([] { return SphereShapeParaCreator().CreateSphere(gp_Pnt(0, 0, 0), 0.0, -90.0, 90.0, 360.0); },
           "CreateSphere : the radius must be greater than 0");
    Reject([] { return SphereShapeParaCreator().CreateSphere(gp_Pnt(0, 0, 0), 1.0, 10.0, 10.0, 360.0); },
           "CreateSphere : the latitudes must satisfy -90 <= angle1 < angle2 <= 90, not 10, 10");
    Reject([] { return SphereShapeParaCreator().CreateSphere(gp_Pnt(0, 0, 0), 1.0, -90.0, 90.0, 0.0); },
           "CreateSphere : the angle must be greater than 0 and at most 360 degrees, not 0");
}

TEST_F(Creators, TorusAnglesAreDegrees)
{
    double R = 5.0, r = 1.0, a1 = -180.0, a2 = 180.0, a3 = 360.0;
    TDF_Label label = TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3);
    TopoDS_Shape s = ExpectRegistered(label, "Torus");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 2.0 * M_PI * M_PI * R * r * r, 1e-6);
    EXPECT_NEAR(Area(s), 4.0 * M_PI * M_PI * R * r, 1e-6);
    std::vector<double> b = Bounds(s);
    EXPECT_NEAR(b[3], 6.0, kTol);
    EXPECT_NEAR(b[5], 1.0, kTol);
    a3 = 90.0;
    EXPECT_NEAR(Volume(ExpectRegistered(TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3), "Torus")),
                0.25 * 2.0 * M_PI * M_PI * R * r * r, 1e-6);
    // Section angles from -90 to 90 degrees keep the outer half of the tube's circle; like the
    // latitudes of a sphere, the solid reaches from that arc to the axis between the planes
    // z = -r and z = r: V = pi * integral of (R + sqrt(r^2 - z^2))^2 dz over [-r, r].
    a1 = -90.0;
    a2 = 90.0;
    a3 = 360.0;
    TopoDS_Shape outer = ExpectRegistered(TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3), "Torus");
    EXPECT_NEAR(Volume(outer), M_PI * ((R * R + r * r) * 2.0 * r - 2.0 * r * r * r / 3.0 + 2.0 * R * M_PI * r * r / 2.0), 1e-6);
}

TEST_F(Creators, TorusRejectsBadRadiiAndAngles)
{
    Reject([] { double R = 2.0, r = 3.0, a1 = -180, a2 = 180, a3 = 360;
                return TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3); },
           "CreateTorous : the sweep radius 3 is greater than the major radius 2");
    Reject([] { double R = 0.0, r = 0.0, a1 = -180, a2 = 180, a3 = 360;
                return TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3); },
           "CreateTorous : the major radius must be greater than 0");
    Reject([] { double R = 2.0, r = 0.0, a1 = -180, a2 = 180, a3 = 360;
                return TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3); },
           "CreateTorous : the sweep radius must be greater than 0");
    Reject([] { double R = 2.0, r = 1.0, a1 = 90, a2 = 0, a3 = 360;
                return TorousShapeParaCreator().CreateTorous(gp_Pnt(0, 0, 0), R, r, a1, a2, a3); },
           "CreateTorous : the section angles must satisfy angle1 < angle2 <= angle1 + 360, not 90, 0");
}

// ---- sweeps --------------------------------------------------------------------------------

TopoDS_Face RectangleFace(const gp_Pnt& a, const gp_Pnt& b, const gp_Pnt& c, const gp_Pnt& d)
{
    return BRepBuilderAPI_MakeFace(BRepBuilderAPI_MakePolygon(a, b, c, d, Standard_True).Wire()).Face();
}

TEST_F(Creators, ExtrudeMakesAPrismOfTheShape)
{
    TopoDS_Face square = RectangleFace(gp_Pnt(0, 0, 0), gp_Pnt(2, 0, 0), gp_Pnt(2, 3, 0), gp_Pnt(0, 3, 0));
    gp_Vec dir(0, 0, 2);  // not a unit vector: the height alone gives the length
    double h = 5.0;
    TDF_Label label = ExtrudeShapeParaCreator().CreateExtrude(square, dir, h);
    TopoDS_Shape s = ExpectRegistered(label, "Extrude");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 30.0, 1e-9);
    EXPECT_NEAR(Bounds(s)[5], 5.0, kTol);
    EXPECT_EQ(Values(label, "Direction"), (std::vector<double>{0, 0, 1}));
    h = -5.0;
    TopoDS_Shape down = ExpectRegistered(ExtrudeShapeParaCreator().CreateExtrude(square, dir, h), "Extrude");
    EXPECT_NEAR(Volume(down), 30.0, 1e-9);
    EXPECT_NEAR(Bounds(down)[2], -5.0, kTol);
    // An edge gives a face.
    TopoDS_Shape edge = BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(4, 0, 0)).Edge();
    gp_Vec y(0, 1, 0);
    h = 2.5;
    TopoDS_Shape face = ExpectRegistered(ExtrudeShapeParaCreator().CreateExtrude(edge, y, h), "Extrude");
    ASSERT_EQ(face.ShapeType(), TopAbs_FACE);
    EXPECT_NEAR(Area(face), 10.0, 1e-9);
}

TEST_F(Creators, ExtrudeKeepsTheSourceAndNamesIt)
{
    TDF_Label source = TriangleFaceShapeParaCreator().CreateTriangle({gp_Pnt(0, 0, 0), gp_Pnt(4, 0, 0), gp_Pnt(0, 3, 0)});
    ASSERT_FALSE(source.IsNull());
    TopoDS_Shape triangle = XCAFDoc_ShapeTool::GetShape(source);
    gp_Vec z(0, 0, 1);
    double h = 2.0;
    TDF_Label label = ExtrudeShapeParaCreator().CreateExtrude(triangle, z, h);
    EXPECT_NEAR(Volume(ExpectRegistered(label, "Extrude")), 12.0, 1e-9);
    EXPECT_EQ(Count(), 2u);
    ShapeParameter p;
    ASSERT_TRUE(BaseShapeParaCreator::GetShapeParameter(label, "Source", p));
    EXPECT_EQ(p.text, QString("Triangle_%1").arg(source.Tag()));
}

TEST_F(Creators, ExtrudeRejectsSolidsZeroHeightAndZeroDirection)
{
    Reject([] { gp_Vec z(0, 0, 1); double h = 2.0;
                return ExtrudeShapeParaCreator().CreateExtrude(BRepPrimAPI_MakeBox(1, 1, 1).Shape(), z, h); },
           "CreateExtrude : a solid cannot be extruded");
    Reject([] { gp_Vec z(0, 0, 1); double h = 0.0;
                return ExtrudeShapeParaCreator().CreateExtrude(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Edge(), z, h); },
           "CreateExtrude : the height must not be 0");
    Reject([] { gp_Vec zero(0, 0, 0); double h = 1.0;
                return ExtrudeShapeParaCreator().CreateExtrude(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Edge(), zero, h); },
           "CreateExtrude : the direction is a zero vector");
    Reject([] { gp_Vec z(0, 0, 1); double h = 1.0; return ExtrudeShapeParaCreator().CreateExtrude(TopoDS_Shape(), z, h); },
           "CreateExtrude : there is no shape to extrude");
}

TEST_F(Creators, ExtrudeByLoopMakesASolid)
{
    TopoDS_Face square = RectangleFace(gp_Pnt(0, 0, 0), gp_Pnt(2, 0, 0), gp_Pnt(2, 3, 0), gp_Pnt(0, 3, 0));
    TDF_Label label = ExtrudeLoopParaCreator().CreateExtrudeByLoop(square, gp_Dir(0, 0, 1), 4.0);
    TopoDS_Shape s = ExpectRegistered(label, "Extrude");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 24.0, 1e-9);
    TopoDS_Shape down = ExpectRegistered(ExtrudeLoopParaCreator().CreateExtrudeByLoop(square, gp_Dir(0, 0, 1), -1.0), "Extrude");
    EXPECT_NEAR(Bounds(down)[2], -1.0, kTol);
}

TEST_F(Creators, ExtrudeByLoopRejectsNullFaceAndZeroHeight)
{
    Reject([] { return ExtrudeLoopParaCreator().CreateExtrudeByLoop(TopoDS_Face(), gp_Dir(0, 0, 1), 4.0); },
           "CreateExtrudeByLoop : there is no face to extrude");
    Reject([] { return ExtrudeLoopParaCreator().CreateExtrudeByLoop(
                    RectangleFace(gp_Pnt(0, 0, 0), gp_Pnt(2, 0, 0), gp_Pnt(2, 3, 0), gp_Pnt(0, 3, 0)), gp_Dir(0, 0, 1), 0.0); },
           "CreateExtrudeByLoop : the height must not be 0");
}

TEST_F(Creators, RevolveFollowsPappus)
{
    // The square [1,2] x [0,1] in the XZ plane about the Z axis: a ring of volume 3 pi per turn.
    TopoDS_Face square = RectangleFace(gp_Pnt(1, 0, 0), gp_Pnt(2, 0, 0), gp_Pnt(2, 0, 1), gp_Pnt(1, 0, 1));
    TDF_Label label = RevolveShapeParaCreator().CreateRevolve(square, gp::Origin(), gp::DZ(), 360.0);
    TopoDS_Shape s = ExpectRegistered(label, "Revolve");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 3.0 * M_PI, 1e-6);
    TopoDS_Shape quarter = ExpectRegistered(RevolveShapeParaCreator().CreateRevolve(square, gp::Origin(), gp::DZ(), 90.0), "Revolve");
    EXPECT_NEAR(Volume(quarter), 0.75 * M_PI, 1e-6);
    EXPECT_NEAR(Bounds(quarter)[4], 2.0, kTol);  // turned towards +Y
    TopoDS_Shape back = ExpectRegistered(RevolveShapeParaCreator().CreateRevolve(square, gp::Origin(), gp::DZ(), -90.0), "Revolve");
    EXPECT_NEAR(Volume(back), 0.75 * M_PI, 1e-6);
    EXPECT_NEAR(Bounds(back)[1], -2.0, kTol);  // turned towards -Y
    // A segment parallel to the axis sweeps a cylinder's side.
    TopoDS_Shape segment = BRepBuilderAPI_MakeEdge(gp_Pnt(1, 0, 0), gp_Pnt(1, 0, 2)).Edge();
    TopoDS_Shape side = ExpectRegistered(RevolveShapeParaCreator().CreateRevolve(segment, gp::Origin(), gp::DZ(), 360.0), "Revolve");
    EXPECT_NEAR(Area(side), 4.0 * M_PI, 1e-6);
}

TEST_F(Creators, RevolveRejectsSolidsAndBadAngles)
{
    Reject([] { return RevolveShapeParaCreator().CreateRevolve(BRepPrimAPI_MakeBox(1, 1, 1).Shape(), gp::Origin(), gp::DZ(), 90.0); },
           "CreateRevolve : a solid cannot be revolved");
    Reject([] { return RevolveShapeParaCreator().CreateRevolve(BRepBuilderAPI_MakeEdge(gp_Pnt(1, 0, 0), gp_Pnt(2, 0, 0)).Edge(),
                                                               gp::Origin(), gp::DZ(), 0.0); },
           "CreateRevolve : the angle must not be 0 and at most 360 degrees, not 0");
    Reject([] { return RevolveShapeParaCreator().CreateRevolve(TopoDS_Shape(), gp::Origin(), gp::DZ(), 90.0); },
           "CreateRevolve : there is no shape to revolve");
}

TEST_F(Creators, PipeSweepsTheProfileAlongThePath)
{
    TopoDS_Wire path = BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 10)).Edge()).Wire();
    TopoDS_Shape disc = BRepBuilderAPI_MakeFace(
        BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(gp::Origin(), gp::DZ()), 1.0)).Edge()).Wire()).Face();
    TDF_Label label = PipeShapeParaCreator().CreatePipe(path, disc);
    TopoDS_Shape s = ExpectRegistered(label, "Pipe");
    ASSERT_EQ(s.ShapeType(), TopAbs_SOLID);
    EXPECT_NEAR(Volume(s), 10.0 * M_PI, 1e-5);
    EXPECT_EQ(Values(label, "PathLength"), (std::vector<double>{10.0}));
}

TEST_F(Creators, PipeRejectsMissingPathAndSolidProfile)
{
    Reject([] { TopoDS_Wire path; TopoDS_Shape edge = BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Edge();
                return PipeShapeParaCreator().CreatePipe(path, edge); },
           "CreatePipe : there is no path");
    Reject([] { TopoDS_Wire path = BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 10)).Edge()).Wire();
                TopoDS_Shape box = BRepPrimAPI_MakeBox(1, 1, 1).Shape();
                return PipeShapeParaCreator().CreatePipe(path, box); },
           "CreatePipe : a solid cannot be swept");
}

// ---- document behaviour ---------------------------------------------------------------------

TEST_F(Creators, ACreatorWithoutBracketMakesItsOwnUndoStep)
{
    ASSERT_FALSE(Doc()->HasOpenTransaction());
    TDF_Label label = CircleShapeParaCreator().CreateCircle(gp_Pnt(0, 0, 0), 1.0);
    ExpectRegistered(label, "Circle");
    EXPECT_FALSE(Doc()->HasOpenTransaction());
    EXPECT_EQ(Doc()->GetAvailableUndos(), 1);
    ASSERT_TRUE(Doc()->Undo());
    EXPECT_EQ(Count(), 0u);
    ASSERT_TRUE(Doc()->Redo());
    ASSERT_EQ(Count(), 1u);
    // The redone shape keeps its name, attributes and parameters.
    TopoDS_Shape s = ShapeLabelMgr::GetInstance()->GetAllShapes()[0];
    TDF_Label again = ShapeLabelMgr::GetInstance()->FindLabel(s);
    EXPECT_EQ(again, label);
    EXPECT_EQ(ShapeLabelMgr::GetInstance()->GetShapeName(&s), QString("Circle_%1").arg(label.Tag()));
    EXPECT_TRUE(BaseShapeParaCreator::HasCommonAttribute(again));
    EXPECT_EQ(Values(again, "Radius"), (std::vector<double>{1.0}));
}

TEST_F(Creators, SeveralCreatorsInOneBracketAreOneUndoStep)
{
    Doc()->StartTransaction();
    gp_Pnt a(0, 0, 0), b(1, 0, 0), c(1, 1, 0);
    LineShapeParaCreator().CreateLine(a, b);
    LineShapeParaCreator().CreateLine(b, c);
    LineShapeParaCreator().CreateLine(c, a);
    Doc()->EndTransaction();
    EXPECT_EQ(Count(), 3u);
    EXPECT_EQ(Doc()->GetAvailableUndos(), 1);
    ASSERT_TRUE(Doc()->Undo());
    EXPECT_EQ(Count(), 0u);
}

TEST_F(Creators, NamesAreUniqueAndStable)
{
    TDF_Label l1 = SphereShapeParaCreator().CreateSphere(gp_Pnt(0, 0, 0), 1.0, -90, 90, 360);
    TDF_Label l2 = SphereShapeParaCreator().CreateSphere(gp_Pnt(5, 0, 0), 1.0, -90, 90, 360);
    TopoDS_Shape s1 = XCAFDoc_ShapeTool::GetShape(l1), s2 = XCAFDoc_ShapeTool::GetShape(l2);
    EXPECT_NE(ShapeLabelMgr::GetInstance()->GetShapeName(&s1), ShapeLabelMgr::GetInstance()->GetShapeName(&s2));
    std::vector<TopoDS_Shape> all = ShapeLabelMgr::GetInstance()->GetAllShapes();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_TRUE(all[0].IsSame(s1));
    EXPECT_TRUE(all[1].IsSame(s2));
}

}  // namespace

#include "OrthPolygonShapeParaCreator.h"

#include <BRepBuilderAPI_MakePolygon.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>
#include <gp.hxx>
#include <gp_Ax1.hxx>
#include <gp_Lin.hxx>
#include <gp_Trsf.hxx>

static const int kMaxEdges = 1000;

TDF_Label OrthPolygonShapeParaCreator::CreateOrthPolygon(gp_Pnt centre, gp_Pnt vertex, int edgeNumber)
{
    static const char* const op = "CreateOrthPolygon";
    return Guarded(op, [&]() -> TDF_Label {
        if (edgeNumber < 3 || edgeNumber > kMaxEdges)
            return Fail(op, QObject::tr("the number of edges must be between 3 and %1, not %2")
                                .arg(kMaxEdges)
                                .arg(edgeNumber));
        const gp_Ax1 axis(centre, gp::DZ());
        const double radius = gp_Lin(axis).Distance(vertex);
        if (!(radius > Precision::Confusion()))
            return Fail(op, QObject::tr("the vertex lies on the axis through the centre"));
        BRepBuilderAPI_MakePolygon polygon;
        const double step = 2.0 * M_PI / edgeNumber;
        for (int i = 0; i < edgeNumber; ++i) {
            gp_Trsf rotation;
            rotation.SetRotation(axis, i * step);
            polygon.Add(vertex.Transformed(rotation));
        }
        polygon.Close();
        if (!polygon.IsDone() || !IsValidResult(polygon.Shape())) return Fail(op, QObject::tr("no polygon can be made"));
        return RegisterShape(polygon.Wire(), "Polygon",
                             {Param("Center", centre), Param("Vertex", vertex),
                              Param("EdgeNumber", static_cast<double>(edgeNumber)), Param("Radius", radius)});
    });
}

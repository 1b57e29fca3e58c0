#include "LineShapeParaCreator.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <Precision.hxx>
#include <QObject>

#include <cmath>

TDF_Label LineShapeParaCreator::CreateLine(gp_Pnt& start, gp_Pnt& end)
{
    static const char* const op = "CreateLine";
    return Guarded(op, [&]() -> TDF_Label {
        const double length = start.Distance(end);
        if (!(length > Precision::Confusion()))
            return Fail(op, QObject::tr("the start and end points coincide"));
        BRepBuilderAPI_MakeEdge edge(start, end);
        if (!edge.IsDone() || !IsValidResult(edge.Shape()))
            return Fail(op, QObject::tr("no edge can be made between the two points"));
        return RegisterShape(edge.Edge(), "Line", {Param("Start", start), Param("End", end), Param("Length", length)});
    });
}

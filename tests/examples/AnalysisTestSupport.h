// Helpers of the analysis tests: the face of a drawn box by its position, the node coordinates
// of a mesh, and an event loop for the solver's child process.
#ifndef ANALYSISTESTSUPPORT_H
#define ANALYSISTESTSUPPORT_H

#include "vis_Connect.h"

#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <QCoreApplication>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Shape.hxx>

#include <array>
#include <cmath>

namespace analysistest {

// Face number (from 1, TopExp::MapShapes order) of the face of `shape` whose centre of mass has
// coordinate `axis` (0 x, 1 y, 2 z) equal to `v`; 0 when there is none.
inline int FaceAt(const TopoDS_Shape& shape, int axis, double v)
{
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(shape, TopAbs_FACE, faces);
    for (int i = 1; i <= faces.Extent(); ++i) {
        GProp_GProps props;
        BRepGProp::SurfaceProperties(faces(i), props);
        if (std::fabs(props.CentreOfMass().Coord(axis + 1) - v) < 1e-9) return i;
    }
    return 0;
}

inline std::array<double, 3> At(vis_Connect* c, int node)
{
    std::array<double, 3> x{};
    vis_ConnectCoordsdv(c, 1, &node, x.data());
    return x;
}

// The process's QCoreApplication, made on first use: QProcess needs an event loop.
inline void EnsureEventLoop()
{
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QCoreApplication(argc, argv);
}

}  // namespace analysistest

#endif

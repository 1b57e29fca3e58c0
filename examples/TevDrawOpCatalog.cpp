#include "TevDrawOpCatalog.h"

#include "DrawArcOp.h"
#include "DrawBSplineOp.h"
#include "DrawBezierOp.h"
#include "DrawBoxOp.h"
#include "DrawCircleByCenterRadiusOp.h"
#include "DrawCircleOp.h"
#include "DrawConeOp.h"
#include "DrawCylinderOp.h"
#include "DrawEdgeOp.h"
#include "DrawEllipseOp.h"
#include "DrawExtrudeByLoopOp.h"
#include "DrawExtrudeOp.h"
#include "DrawLineOp.h"
#include "DrawLoftOp.h"
#include "DrawOrthPolygonOp.h"
#include "DrawPipeOp.h"
#include "DrawRectangleOp.h"
#include "DrawRevolveOp.h"
#include "DrawSphereOp.h"
#include "DrawTorusOp.h"
#include "DrawTriangleFaceOp.h"
#include "DrawTruncatedConeOp.h"
#include "DrawWedgeOp.h"

#include <QStringList>

template <class Op>
static std::function<std::unique_ptr<IDrawOp>()> Maker()
{
    return [] { return std::unique_ptr<IDrawOp>(new Op()); };
}

static std::vector<TevDrawOpEntry> MakeEntries()
{
    const QString curves = "Curves", solids = "Solids", sweeps = "Sweeps";
    return {
        {"actionLine", "Line", "Line: click the start, then the end; repeats until Escape", curves, "/", Maker<DrawLineOp>()},
        {"actionArc", "Arc", "Arc: click both ends, then a point on the arc", curves, "(", Maker<DrawArcOp>()},
        {"actionCircle3P", "Circle by 3 points", "Circle through three clicked points", curves, "O3", Maker<DrawCircleOp>()},
        {"actionCircle", "Circle", "Circle: click the centre, then a point on the rim", curves, "O", Maker<DrawCircleByCenterRadiusOp>()},
        {"actionEllipse", "Ellipse", "Ellipse: click the centre and the two axis points", curves, "E", Maker<DrawEllipseOp>()},
        {"actionRectangle", "Rectangle", "Rectangle: click two opposite corners", curves, "[]", Maker<DrawRectangleOp>()},
        {"actionPolygon", "Regular polygon", "Regular polygon: click the centre, give the number of edges, click a vertex", curves, "P", Maker<DrawOrthPolygonOp>()},
        {"actionTriangle", "Triangle face", "Planar triangle face from three clicks", curves, "T", Maker<DrawTriangleFaceOp>()},
        {"actionBezier", "Bezier curve", "Bezier curve: click the poles, double click to end", curves, "Bz", Maker<DrawBezierOp>()},
        {"actionBSpline", "B-spline curve", "B-spline through the clicked points, double click to end", curves, "Bs", Maker<DrawBSplineOp>()},
        {"actionEdge", "Edge", "Straight edge from two clicks, kept outside the undo history", curves, "e", Maker<DrawEdgeOp>()},
        {"actionBox", "Box", "Box: click a base corner, the opposite corner, then type the height", solids, "B", Maker<DrawBoxOp>()},
        {"actionWedge", "Wedge", "Wedge: click a base corner and the opposite corner, then give its parameters", solids, "W", Maker<DrawWedgeOp>()},
        {"actionCylinder", "Cylinder", "Cylinder: click the bottom centre and a rim point, then type the height", solids, "Cy", Maker<DrawCylinderOp>()},
        {"actionCone", "Cone", "Cone: click the bottom centre and a rim point, then type the height", solids, "Co", Maker<DrawConeOp>()},
        {"actionTruncatedCone", "Truncated cone", "Truncated cone: click the bottom centre and rim, then give height and top radius", solids, "Tc", Maker<DrawTruncatedConeOp>()},
        {"actionSphere", "Sphere", "Sphere: click the centre, then a point on the surface", solids, "S", Maker<DrawSphereOp>()},
        {"actionTorus", "Torus", "Torus: click the centre and the major radius, then give the sweep radius", solids, "To", Maker<DrawTorusOp>()},
        {"actionExtrude", "Extrude", "Extrude: select shapes, Confirm, then give height and direction", sweeps, "Ex", Maker<DrawExtrudeOp>()},
        {"actionExtrudeLoop", "Extrude closed loop", "Select the edges of a closed loop, then Confirm to extrude the face they bound", sweeps, "El", Maker<DrawExtrudeByLoopOp>()},
        {"actionRevolve", "Revolve", "Select a shape first, then give the axis and angle", sweeps, "R", Maker<DrawRevolveOp>()},
        {"actionPipe", "Pipe", "Pipe: select the path edge and Confirm, then the profile and Confirm", sweeps, "Pi", Maker<DrawPipeOp>()},
        {"actionLoft", "Loft edge", "A straight edge from two clicks under the loft prompts", sweeps, "L", Maker<DrawLoftOp>()},
    };
}

const std::vector<TevDrawOpEntry>& TevDrawOpCatalog::Entries()
{
    static const std::vector<TevDrawOpEntry> entries = MakeEntries();
    return entries;
}

QStringList TevDrawOpCatalog::Groups()
{
    return {"Curves", "Solids", "Sweeps"};
}

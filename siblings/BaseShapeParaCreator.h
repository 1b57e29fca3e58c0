// BaseShapeParaCreator: the base of every parametric creator, and the keeper of the attributes
// that a shape label carries in the document.
//
// Common attributes. Each shape label holds whether the shape is shown, its opacity (0 to 1)
// and its colour (red, green, blue from 0 to 1, carried as the X, Y, Z of a gp_Pnt). They are
// OCAF attributes of the label itself, so they undo and redo with the document. A label that
// has none reads as visible, opaque and of the default colour.
//
// Parameters. A creator also keeps on the label what the shape was made from: the kind of shape
// ("Box", "Sphere", ...) and a list of named parameters in the order the creator gave them, so
// that a host can show and edit them.
//
// Creators. A creator is a small object made on the stack for one call. Its Create... call
// builds the shape, registers it in ShapeDocMgr's document under the name "<Kind>_<tag>" and
// returns the new label. Input it cannot use gives one level-2 line through DrawerOutput, no
// shape, an unchanged document and a null label; no exception leaves a creator. A creator that
// runs without an open transaction brackets its own change, so every creation can be undone.
#ifndef BASESHAPEPARACREATOR_H
#define BASESHAPEPARACREATOR_H

#include <QString>
#include <TDF_Label.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Ax2.hxx>
#include <gp_Dir.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

#include <functional>
#include <vector>

// One named parameter of a shape: one value, the x y z of a point or a direction, or a flat
// list of points; or, for the name of another shape, a text.
struct ShapeParameter {
    QString name;
    std::vector<double> values;
    QString text;
};

class BaseShapeParaCreator
{
public:
    BaseShapeParaCreator();
    virtual ~BaseShapeParaCreator();

    // Reads the common attributes of `label`. A null label, or one without attributes, gives
    // the defaults: visible, opacity 1.0, DefaultColour().
    void GetCommonAttribute(TDF_Label& label, bool& visible, double& opacity, gp_Pnt& colour);

    // Writes the common attributes of `label`. Opacity and colour components are clamped to
    // 0..1. Without an open transaction the change is bracketed as one undo step of its own.
    static void SetCommonAttribute(const TDF_Label& label, bool visible, double opacity, const gp_Pnt& colour);
    static void SetVisibility(const TDF_Label& label, bool visible);
    static void SetOpacity(const TDF_Label& label, double opacity);
    static void SetColour(const TDF_Label& label, const gp_Pnt& colour);
    // Gives a new label the default common attributes as part of the change that creates it:
    // no bracket of its own (ShapeLabelMgr::AddShapeToDoc uses it).
    static void InitCommonAttribute(const TDF_Label& label);
    // True when the label carries all three common attributes.
    static bool HasCommonAttribute(const TDF_Label& label);

    // The defaults given to every new shape.
    static bool DefaultVisibility() { return true; }
    static double DefaultOpacity() { return 1.0; }
    static gp_Pnt DefaultColour() { return gp_Pnt(0.27, 0.51, 0.71); }

    // The kind of shape kept on the label ("Box", ...), empty when the label has none.
    static QString GetShapeKind(const TDF_Label& label);
    // The parameters kept on the label, in the order the creator stored them.
    static std::vector<ShapeParameter> GetShapeParameters(const TDF_Label& label);
    // One parameter by name; false when the label has no such parameter.
    static bool GetShapeParameter(const TDF_Label& label, const QString& name, ShapeParameter& parameter);

    // Stores kind and parameters on a label; the creators and GeometryOp use it.
    static void SetShapeParameters(const TDF_Label& label, const QString& kind,
                                   const std::vector<ShapeParameter>& parameters);

protected:
    // Registers `shape` in ShapeDocMgr's document as "<kind>_<tag>" with the default common
    // attributes and the parameters; returns its label.
    TDF_Label RegisterShape(const TopoDS_Shape& shape, const QString& kind,
                            const std::vector<ShapeParameter>& parameters);
    // Emits "<operation> : <reason>" at level 2 and returns a null label.
    TDF_Label Fail(const char* operation, const QString& reason);
    // Runs `build`; a Standard_Failure or std::exception thrown inside becomes one level-2 line
    // and a null label.
    TDF_Label Guarded(const char* operation, const std::function<TDF_Label()>& build);
    // Checks the result of a kernel algorithm: not null and valid for BRepCheck_Analyzer.
    static bool IsValidResult(const TopoDS_Shape& shape);

    // Axes at `origin` with main direction `dir`; the X direction is the world X axis projected
    // on the plane normal to `dir` (the world Y axis when `dir` is parallel to world X).
    static gp_Ax2 MakeAxes(const gp_Pnt& origin, const gp_Dir& dir);

    static ShapeParameter Param(const QString& name, double value);
    static ShapeParameter Param(const QString& name, const gp_Pnt& point);
    static ShapeParameter Param(const QString& name, const gp_Dir& dir);
    static ShapeParameter Param(const QString& name, const std::vector<gp_Pnt>& points);
    static ShapeParameter TextParam(const QString& name, const QString& text);
};

#endif

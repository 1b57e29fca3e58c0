#include "GeometryOp.h"

#include "BaseShapeParaCreator.h"
#include "DrawerOutput.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <BRepAlgoAPI_BooleanOperation.hxx>
#include <BRepAlgoAPI_Common.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <QObject>
#include <ShapeUpgrade_UnifySameDomain.hxx>
#include <Standard_Failure.hxx>
#include <TDF_Label.hxx>
#include <TopTools_ListOfShape.hxx>
#include <TopoDS_Iterator.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <exception>

namespace {

enum class BoolKind { Unite, Subtract, Intersect };

const char* OperationName(BoolKind kind)
{
    switch (kind) {
    case BoolKind::Unite: return "Unite";
    case BoolKind::Subtract: return "Subtract";
    case BoolKind::Intersect: return "Intersect";
    }
    return "";
}

void Report(BoolKind kind, const QString& reason)
{
    const QByteArray text = QString("%1 : %2").arg(QString::fromLatin1(OperationName(kind)), reason).toLocal8Bit();
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(2, "%s", text.constData());
}

// True when the shape holds nothing at all (an empty compound is what an empty Boolean gives).
bool IsEmptyShape(const TopoDS_Shape& shape)
{
    if (shape.IsNull()) return true;
    if (shape.ShapeType() != TopAbs_COMPOUND) return false;
    for (TopoDS_Iterator it(shape); it.More(); it.Next())
        if (!IsEmptyShape(it.Value())) return false;
    return true;
}

// A compound of exactly one shape stands for that shape.
TopoDS_Shape Unwrap(const TopoDS_Shape& shape)
{
    if (shape.IsNull() || shape.ShapeType() != TopAbs_COMPOUND) return shape;
    TopoDS_Iterator it(shape);
    if (!it.More()) return shape;
    TopoDS_Shape first = it.Value();
    it.Next();
    return it.More() ? shape : Unwrap(first);
}

// Runs the Boolean on shapes already checked, and cleans the result: faces and edges that the
// operation split on one surface or curve are merged again.
TopoDS_Shape Compute(BoolKind kind, const std::vector<TopoDS_Shape>& operands, QString& error)
{
    TopTools_ListOfShape arguments, tools;
    arguments.Append(operands[0]);
    for (size_t i = 1; i < operands.size(); ++i) tools.Append(operands[i]);
    BRepAlgoAPI_Fuse fuse;
    BRepAlgoAPI_Cut cut;
    BRepAlgoAPI_Common common;
    BRepAlgoAPI_BooleanOperation* algo = &fuse;
    if (kind == BoolKind::Subtract) algo = &cut;
    if (kind == BoolKind::Intersect) algo = &common;
    algo->SetArguments(arguments);
    algo->SetTools(tools);
    algo->SetRunParallel(Standard_False);
    algo->Build();
    if (!algo->IsDone() || algo->HasErrors()) {
        error = QObject::tr("the geometry kernel cannot combine these shapes");
        return TopoDS_Shape();
    }
    TopoDS_Shape result = algo->Shape();
    if (IsEmptyShape(result)) {
        error = kind == BoolKind::Intersect ? QObject::tr("the shapes have no common part")
                                            : QObject::tr("the result is empty");
        return TopoDS_Shape();
    }
    try {
        ShapeUpgrade_UnifySameDomain unify(result, Standard_True, Standard_True, Standard_True);
        unify.Build();
        const TopoDS_Shape unified = unify.Shape();
        if (!unified.IsNull() && BRepCheck_Analyzer(unified).IsValid()) result = unified;
    } catch (const Standard_Failure&) {
        // The raw result stays: merging is a cosmetic step.
    }
    result = Unwrap(result);
    if (!BRepCheck_Analyzer(result).IsValid()) {
        error = QObject::tr("the result is not a valid shape");
        return TopoDS_Shape();
    }
    return result;
}

// The whole operation: checks, Boolean, then one transaction that adds the result and removes
// the operands. Nothing in the document changes before the result is known to be good.
TopoDS_Shape Perform(BoolKind kind, const std::vector<const TopoDS_Shape*>& input)
{
    try {
        ShapeDocMgr* docMgr = ShapeDocMgr::GetInstance();
        opencascade::handle<XCAFDoc_ShapeTool> tool = docMgr->GetShapeTool();
        std::vector<TopoDS_Shape> operands;
        std::vector<TDF_Label> labels;
        for (const TopoDS_Shape* shape : input) {
            if (!shape || shape->IsNull()) {
                Report(kind, QObject::tr("an operand is an empty shape"));
                return TopoDS_Shape();
            }
            TDF_Label label;
            if (!tool->FindShape(*shape, label, Standard_False) || label.IsNull()) {
                Report(kind, QObject::tr("an operand is not a whole shape of the document"));
                return TopoDS_Shape();
            }
            bool repeated = false;
            for (const TDF_Label& l : labels) repeated = repeated || l == label;
            if (repeated) {
                if (kind != BoolKind::Unite) {
                    Report(kind, QObject::tr("the two operands are the same shape"));
                    return TopoDS_Shape();
                }
                continue;  // a shape selected twice takes part once
            }
            labels.push_back(label);
            operands.push_back(XCAFDoc_ShapeTool::GetShape(label));
        }
        if (operands.size() < 2) {
            Report(kind, QObject::tr("at least two different shapes are needed"));
            return TopoDS_Shape();
        }

        QString error;
        const TopoDS_Shape result = Compute(kind, operands, error);
        if (result.IsNull()) {
            Report(kind, error);
            return TopoDS_Shape();
        }

        // The result looks like the first operand and records what it was made of.
        bool visible = true;
        double opacity = 1.0;
        gp_Pnt colour;
        BaseShapeParaCreator().GetCommonAttribute(labels[0], visible, opacity, colour);
        std::vector<ShapeParameter> params;
        if (kind == BoolKind::Unite) {
            QStringList names;
            for (TopoDS_Shape& s : operands) names << ShapeLabelMgr::GetInstance()->GetShapeName(&s);
            params.push_back(ShapeParameter{"Operands", {}, names.join(", ")});
        } else {
            params.push_back(ShapeParameter{"Object", {}, ShapeLabelMgr::GetInstance()->GetShapeName(&operands[0])});
            params.push_back(ShapeParameter{"Tool", {}, ShapeLabelMgr::GetInstance()->GetShapeName(&operands[1])});
        }

        docMgr->StartTransaction();
        try {
            TDF_Label label = ShapeLabelMgr::GetInstance()->AddShapeToDoc(docMgr->GetDoc(), result,
                                                                          QString::fromLatin1(OperationName(kind)));
            BaseShapeParaCreator::SetCommonAttribute(label, visible, opacity, colour);
            BaseShapeParaCreator::SetShapeParameters(label, QString::fromLatin1(OperationName(kind)), params);
            for (const TDF_Label& l : labels) tool->RemoveShape(l, Standard_True);
        } catch (...) {
            docMgr->AbortTransaction();
            throw;
        }
        docMgr->EndTransaction();
        return result;
    } catch (const Standard_Failure& failure) {
        const char* what = failure.GetMessageString();
        Report(kind, QObject::tr("the geometry kernel failed (%1)%2")
                         .arg(failure.DynamicType()->Name())
                         .arg(what && *what ? QString(": ") + QString::fromLocal8Bit(what) : QString()));
    } catch (const std::exception& e) {
        Report(kind, QObject::tr("failed: %1").arg(QString::fromLocal8Bit(e.what())));
    }
    return TopoDS_Shape();
}

}  // namespace

bool GeometryOp::PerformUnite(std::vector<const TopoDS_Shape*>& shapes)
{
    return !Perform(BoolKind::Unite, shapes).IsNull();
}

TopoDS_Shape GeometryOp::PerformSubtract(TopoDS_Shape& object, TopoDS_Shape& tool)
{
    return Perform(BoolKind::Subtract, {&object, &tool});
}

TopoDS_Shape GeometryOp::PerformIneersect(TopoDS_Shape& object, TopoDS_Shape& tool)
{
    return Perform(BoolKind::Intersect, {&object, &tool});
}

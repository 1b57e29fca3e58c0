#include "BaseShapeParaCreator.h"

#include "DrawerOutput.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <BRepCheck_Analyzer.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <Standard_GUID.hxx>
#include <TColStd_HArray1OfReal.hxx>
#include <TCollection_ExtendedString.hxx>
#include <TDataStd_Integer.hxx>
#include <TDataStd_NamedData.hxx>
#include <TDataStd_Real.hxx>
#include <TDataStd_RealArray.hxx>
#include <TDocStd_Document.hxx>

#include <algorithm>
#include <exception>

namespace {

// The identifiers of the three common attributes on a shape label. They are the label's own
// TDataStd attributes, distinct from any that OCAF or XCAF put there.
const Standard_GUID& VisibilityID()
{
    static const Standard_GUID id("5d0b3c6e-2a41-4f7e-9c1a-7e3b9a10c001");
    return id;
}
const Standard_GUID& OpacityID()
{
    static const Standard_GUID id("5d0b3c6e-2a41-4f7e-9c1a-7e3b9a10c002");
    return id;
}
const Standard_GUID& ColourID()
{
    static const Standard_GUID id("5d0b3c6e-2a41-4f7e-9c1a-7e3b9a10c003");
    return id;
}

// Keys of the parameter store that are not parameters. Parameter names never start with '@'.
const char* const kKindKey = "@Kind";
const char* const kOrderKey = "@Order";

TCollection_ExtendedString ToExt(const QString& text)
{
    return TCollection_ExtendedString(text.toUtf8().constData(), Standard_True);
}

QString FromExt(const TCollection_ExtendedString& text)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.ToExtString()), text.Length());
}

double Clamp01(double v)
{
    if (!(v >= 0.0)) return 0.0;  // also NaN
    return v > 1.0 ? 1.0 : v;
}

// Opens a transaction on the label's document when none is open and commits it at the end of
// the scope, so that a change made outside any bracket still is one undo step.
class OwnTransaction
{
public:
    explicit OwnTransaction(const TDF_Label& label)
    {
        if (label.IsNull()) return;
        m_Doc = TDocStd_Document::Get(label);
        if (m_Doc.IsNull() || m_Doc->HasOpenCommand()) {
            m_Doc.Nullify();
            return;
        }
        m_Doc->NewCommand();
    }
    ~OwnTransaction()
    {
        if (m_Doc.IsNull() || !m_Doc->HasOpenCommand()) return;
        if (std::uncaught_exceptions() > 0) m_Doc->AbortCommand();
        else m_Doc->CommitCommand();
    }
    OwnTransaction(const OwnTransaction&) = delete;
    OwnTransaction& operator=(const OwnTransaction&) = delete;

private:
    opencascade::handle<TDocStd_Document> m_Doc;
};

void WriteVisibility(const TDF_Label& label, bool visible)
{
    TDataStd_Integer::Set(label, VisibilityID(), visible ? 1 : 0);
}

void WriteOpacity(const TDF_Label& label, double opacity)
{
    TDataStd_Real::Set(label, OpacityID(), Clamp01(opacity));
}

void WriteColour(const TDF_Label& label, const gp_Pnt& colour)
{
    opencascade::handle<TDataStd_RealArray> array = TDataStd_RealArray::Set(label, ColourID(), 1, 3);
    array->SetValue(1, Clamp01(colour.X()));
    array->SetValue(2, Clamp01(colour.Y()));
    array->SetValue(3, Clamp01(colour.Z()));
}

}  // namespace

BaseShapeParaCreator::BaseShapeParaCreator() = default;

BaseShapeParaCreator::~BaseShapeParaCreator() = default;

void BaseShapeParaCreator::GetCommonAttribute(TDF_Label& label, bool& visible, double& opacity, gp_Pnt& colour)
{
    visible = DefaultVisibility();
    opacity = DefaultOpacity();
    colour = DefaultColour();
    if (label.IsNull()) return;
    opencascade::handle<TDataStd_Integer> vis;
    if (label.FindAttribute(VisibilityID(), vis)) visible = vis->Get() != 0;
    opencascade::handle<TDataStd_Real> op;
    if (label.FindAttribute(OpacityID(), op)) opacity = op->Get();
    opencascade::handle<TDataStd_RealArray> rgb;
    if (label.FindAttribute(ColourID(), rgb) && rgb->Length() == 3)
        colour.SetCoord(rgb->Value(rgb->Lower()), rgb->Value(rgb->Lower() + 1), rgb->Value(rgb->Lower() + 2));
}

void BaseShapeParaCreator::SetCommonAttribute(const TDF_Label& label, bool visible, double opacity,
                                              const gp_Pnt& colour)
{
    if (label.IsNull()) return;
    OwnTransaction bracket(label);
    WriteVisibility(label, visible);
    WriteOpacity(label, opacity);
    WriteColour(label, colour);
}

void BaseShapeParaCreator::SetVisibility(const TDF_Label& label, bool visible)
{
    if (label.IsNull()) return;
    OwnTransaction bracket(label);
    WriteVisibility(label, visible);
}

void BaseShapeParaCreator::SetOpacity(const TDF_Label& label, double opacity)
{
    if (label.IsNull()) return;
    OwnTransaction bracket(label);
    WriteOpacity(label, opacity);
}

void BaseShapeParaCreator::SetColour(const TDF_Label& label, const gp_Pnt& colour)
{
    if (label.IsNull()) return;
    OwnTransaction bracket(label);
    WriteColour(label, colour);
}

void BaseShapeParaCreator::InitCommonAttribute(const TDF_Label& label)
{
    if (label.IsNull()) return;
    WriteVisibility(label, DefaultVisibility());
    WriteOpacity(label, DefaultOpacity());
    WriteColour(label, DefaultColour());
}

bool BaseShapeParaCreator::HasCommonAttribute(const TDF_Label& label)
{
    if (label.IsNull()) return false;
    return label.IsAttribute(VisibilityID()) && label.IsAttribute(OpacityID()) && label.IsAttribute(ColourID());
}

QString BaseShapeParaCreator::GetShapeKind(const TDF_Label& label)
{
    opencascade::handle<TDataStd_NamedData> data;
    if (label.IsNull() || !label.FindAttribute(TDataStd_NamedData::GetID(), data)) return QString();
    if (!data->HasString(kKindKey)) return QString();
    return FromExt(data->GetString(kKindKey));
}

std::vector<ShapeParameter> BaseShapeParaCreator::GetShapeParameters(const TDF_Label& label)
{
    std::vector<ShapeParameter> parameters;
    opencascade::handle<TDataStd_NamedData> data;
    if (label.IsNull() || !label.FindAttribute(TDataStd_NamedData::GetID(), data)) return parameters;
    if (!data->HasString(kOrderKey)) return parameters;
    const QStringList names = FromExt(data->GetString(kOrderKey)).split(QChar(';'), Qt::SkipEmptyParts);
    for (const QString& name : names) {
        ShapeParameter p;
        if (GetShapeParameter(label, name, p)) parameters.push_back(p);
    }
    return parameters;
}

bool BaseShapeParaCreator::GetShapeParameter(const TDF_Label& label, const QString& name, ShapeParameter& parameter)
{
    opencascade::handle<TDataStd_NamedData> data;
    if (label.IsNull() || name.isEmpty() || name.startsWith('@')) return false;
    if (!label.FindAttribute(TDataStd_NamedData::GetID(), data)) return false;
    const TCollection_ExtendedString key = ToExt(name);
    const bool hasValues = data->HasArrayOfReals(key);
    const bool hasText = data->HasString(key);
    if (!hasValues && !hasText) return false;
    parameter = ShapeParameter();
    parameter.name = name;
    if (hasValues) {
        const opencascade::handle<TColStd_HArray1OfReal>& array = data->GetArrayOfReals(key);
        if (!array.IsNull())
            for (int i = array->Lower(); i <= array->Upper(); ++i) parameter.values.push_back(array->Value(i));
    }
    if (hasText) parameter.text = FromExt(data->GetString(key));
    return true;
}

void BaseShapeParaCreator::SetShapeParameters(const TDF_Label& label, const QString& kind,
                                              const std::vector<ShapeParameter>& parameters)
{
    if (label.IsNull()) return;
    OwnTransaction bracket(label);
    opencascade::handle<TDataStd_NamedData> data = TDataStd_NamedData::Set(label);
    data->SetString(kKindKey, ToExt(kind));
    QStringList order;
    for (const ShapeParameter& p : parameters) {
        if (p.name.isEmpty() || p.name.startsWith('@') || p.name.contains(';')) continue;
        const TCollection_ExtendedString key = ToExt(p.name);
        if (!p.values.empty()) {
            opencascade::handle<TColStd_HArray1OfReal> array =
                new TColStd_HArray1OfReal(1, static_cast<int>(p.values.size()));
            for (size_t i = 0; i < p.values.size(); ++i) array->SetValue(static_cast<int>(i) + 1, p.values[i]);
            data->SetArrayOfReals(key, array);
        }
        if (!p.text.isNull()) data->SetString(key, ToExt(p.text));
        order << p.name;
    }
    data->SetString(kOrderKey, ToExt(order.join(';')));
}

TDF_Label BaseShapeParaCreator::RegisterShape(const TopoDS_Shape& shape, const QString& kind,
                                              const std::vector<ShapeParameter>& parameters)
{
    opencascade::handle<TDocStd_Document> doc = ShapeDocMgr::GetInstance()->GetDoc();
    if (doc.IsNull() || shape.IsNull()) return TDF_Label();
    const bool own = !doc->HasOpenCommand();
    if (own) ShapeDocMgr::GetInstance()->StartTransaction();
    // AddShapeToDoc names the label and gives it the default common attributes.
    TDF_Label label = ShapeLabelMgr::GetInstance()->AddShapeToDoc(doc, shape, kind);
    if (!label.IsNull()) SetShapeParameters(label, kind, parameters);
    if (own) ShapeDocMgr::GetInstance()->EndTransaction();
    return label;
}

TDF_Label BaseShapeParaCreator::Fail(const char* operation, const QString& reason)
{
    const QByteArray text = QString("%1 : %2").arg(QString::fromLatin1(operation), reason).toLocal8Bit();
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(2, "%s", text.constData());
    return TDF_Label();
}

TDF_Label BaseShapeParaCreator::Guarded(const char* operation, const std::function<TDF_Label()>& build)
{
    try {
        return build();
    } catch (const Standard_Failure& failure) {
        const char* what = failure.GetMessageString();
        QString reason = QObject::tr("the geometry kernel failed (%1)").arg(failure.DynamicType()->Name());
        if (what && *what) reason += QString(": ") + QString::fromLocal8Bit(what);
        return Fail(operation, reason);
    } catch (const std::exception& e) {
        return Fail(operation, QObject::tr("failed: %1").arg(QString::fromLocal8Bit(e.what())));
    }
}

bool BaseShapeParaCreator::IsValidResult(const TopoDS_Shape& shape)
{
    if (shape.IsNull()) return false;
    BRepCheck_Analyzer analyzer(shape);
    return analyzer.IsValid() == Standard_True;
}

gp_Ax2 BaseShapeParaCreator::MakeAxes(const gp_Pnt& origin, const gp_Dir& dir)
{
    gp_Vec x(1.0, 0.0, 0.0);
    gp_Vec n(dir);
    gp_Vec xp = x - n * (x.Dot(n));
    if (xp.Magnitude() < 1e-9) {
        gp_Vec y(0.0, 1.0, 0.0);
        xp = y - n * (y.Dot(n));
    }
    return gp_Ax2(origin, dir, gp_Dir(xp));
}

ShapeParameter BaseShapeParaCreator::Param(const QString& name, double value)
{
    return ShapeParameter{name, {value}, QString()};
}

ShapeParameter BaseShapeParaCreator::Param(const QString& name, const gp_Pnt& point)
{
    return ShapeParameter{name, {point.X(), point.Y(), point.Z()}, QString()};
}

ShapeParameter BaseShapeParaCreator::Param(const QString& name, const gp_Dir& dir)
{
    return ShapeParameter{name, {dir.X(), dir.Y(), dir.Z()}, QString()};
}

ShapeParameter BaseShapeParaCreator::Param(const QString& name, const std::vector<gp_Pnt>& points)
{
    ShapeParameter p{name, {}, QString()};
    p.values.reserve(points.size() * 3);
    for (const gp_Pnt& point : points) {
        p.values.push_back(point.X());
        p.values.push_back(point.Y());
        p.values.push_back(point.Z());
    }
    return p;
}

ShapeParameter BaseShapeParaCreator::TextParam(const QString& name, const QString& text)
{
    return ShapeParameter{name, {}, text.isNull() ? QString("") : text};
}

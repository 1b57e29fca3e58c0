#include "ShapeLabelMgr.h"

#include "BaseShapeParaCreator.h"
#include "ShapeDocMgr.h"

#include <TCollection_ExtendedString.hxx>
#include <TDF_ChildIterator.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

ShapeLabelMgr* ShapeLabelMgr::m_Instance = nullptr;

ShapeLabelMgr* ShapeLabelMgr::GetInstance()
{
    if (!m_Instance) m_Instance = new ShapeLabelMgr();
    return m_Instance;
}

std::vector<TopoDS_Shape> ShapeLabelMgr::GetAllShapes()
{
    // The labels XCAFDoc_ShapeTool::GetShapes would list, each shape read once: a rebuild and
    // every snap query read the whole list.
    std::vector<TopoDS_Shape> shapes;
    for (TDF_ChildIterator it(ShapeDocMgr::GetInstance()->GetShapeTool()->Label()); it.More(); it.Next()) {
        TopoDS_Shape shape;
        if (XCAFDoc_ShapeTool::GetShape(it.Value(), shape) && !shape.IsNull()) shapes.push_back(shape);
    }
    return shapes;
}

void ShapeLabelMgr::AddNewShapeToDoc(opencascade::handle<TDocStd_Document> doc, TopoDS_Shape shape)
{
    AddShapeToDoc(doc, shape, ShapeTypeName(shape));
}

TDF_Label ShapeLabelMgr::AddShapeToDoc(const opencascade::handle<TDocStd_Document>& doc,
                                       const TopoDS_Shape& shape, const QString& prefix)
{
    if (doc.IsNull() || shape.IsNull()) return TDF_Label();
    opencascade::handle<XCAFDoc_ShapeTool> tool = XCAFDoc_DocumentTool::ShapeTool(doc->Main());
    // No assembly and no splitting of compounds: the shape is kept as it was given.
    TDF_Label label = tool->AddShape(shape, Standard_False, Standard_False);
    const QString name = QString("%1_%2").arg(prefix).arg(label.Tag());
    TDataStd_Name::Set(label, TCollection_ExtendedString(name.toUtf8().constData(), Standard_True));
    // Every shape of the document carries the common attributes, made in the same change.
    BaseShapeParaCreator::InitCommonAttribute(label);
    return label;
}

TDF_Label ShapeLabelMgr::FindLabel(const TopoDS_Shape& shape)
{
    TDF_Label label;
    if (shape.IsNull()) return label;
    ShapeDocMgr::GetInstance()->GetShapeTool()->FindShape(shape, label, Standard_False);
    return label;
}

QString ShapeLabelMgr::GetShapeName(TopoDS_Shape* shape)
{
    if (!shape) return QString();
    return GetLabelName(FindLabel(*shape));
}

QString ShapeLabelMgr::GetLabelName(const TDF_Label& label)
{
    opencascade::handle<TDataStd_Name> name;
    if (label.IsNull() || !label.FindAttribute(TDataStd_Name::GetID(), name)) return QString();
    const TCollection_ExtendedString& text = name->Get();
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.ToExtString()), text.Length());
}

QString ShapeLabelMgr::ShapeTypeName(const TopoDS_Shape& shape)
{
    static const char* const names[] = {"Compound", "CompSolid", "Solid", "Shell", "Face",
                                        "Wire",     "Edge",      "Vertex", "Shape"};
    if (shape.IsNull()) return names[8];
    return names[static_cast<int>(shape.ShapeType())];
}

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
    Sync();
    std::vector<TopoDS_Shape> shapes;
    shapes.reserve(m_list.size());
    for (const Listed& entry : m_list) shapes.push_back(entry.shape);
    return shapes;
}

void ShapeLabelMgr::GetAllShapes(std::vector<TopoDS_Shape>& shapes, std::vector<TDF_Label>& labels)
{
    Sync();
    shapes.clear();
    labels.clear();
    for (const Listed& entry : m_list) {
        shapes.push_back(entry.shape);
        labels.push_back(entry.label);
    }
}

// The labels XCAFDoc_ShapeTool::GetShapes would list: the shape tool's children with a shape.
static bool ReadShape(const TDF_Label& label, TopoDS_Shape& shape)
{
    return XCAFDoc_ShapeTool::GetShape(label, shape) && !shape.IsNull();
}

void ShapeLabelMgr::ReadAll()
{
    m_list.clear();
    for (TDF_ChildIterator it(ShapeDocMgr::GetInstance()->GetShapeToolToRead()->Label()); it.More(); it.Next()) {
        TopoDS_Shape shape;
        if (ReadShape(it.Value(), shape)) m_list.push_back({it.Value(), shape});
    }
}

void ShapeLabelMgr::Sync()
{
    const ShapeDocMgr* docs = ShapeDocMgr::GetInstance();
    if (m_listRead && docs->RevisionIsCurrent() && m_listRevision == docs->Revision()) return;
    ReadAll();
    m_listRevision = docs->Revision();
    m_listRead = true;
}

void ShapeLabelMgr::ReadAgain()
{
    m_listRead = false;
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
    // Outside a transaction the revision cannot see this change by itself.
    ShapeDocMgr* docs = ShapeDocMgr::GetInstance();
    if (doc == docs->GetDocToRead() && !doc->HasOpenCommand()) docs->MarkChanged();
    return label;
}

TDF_Label ShapeLabelMgr::FindLabel(const TopoDS_Shape& shape)
{
    TDF_Label label;
    if (shape.IsNull()) return label;
    ShapeDocMgr::GetInstance()->GetShapeToolToRead()->FindShape(shape, label, Standard_False);
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

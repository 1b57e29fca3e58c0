#include "TevDocumentFiles.h"

#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <IFSelect_ReturnStatus.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESControl_Reader.hxx>
#include <IGESControl_Writer.hxx>
#include <STEPControl_Reader.hxx>
#include <STEPControl_Writer.hxx>
#include <XSControl_Reader.hxx>

#include <memory>
#include <vector>

TevDocumentFiles::Format TevDocumentFiles::FormatOf(const QString& path)
{
    const QString lower = path.toLower();
    return lower.endsWith(".igs") || lower.endsWith(".iges") ? Iges : Step;
}

static bool Fail(QString* error, const QString& text)
{
    if (error) *error = text;
    return false;
}

// The shapes a STEP or IGES file holds, one per transferred root.
static bool ReadShapes(XSControl_Reader& reader, const QString& path, std::vector<TopoDS_Shape>& shapes,
                       QString* error)
{
    if (reader.ReadFile(path.toLocal8Bit().constData()) != IFSelect_RetDone)
        return Fail(error, QString("cannot read %1").arg(path));
    reader.TransferRoots();
    for (int i = 1; i <= reader.NbShapes(); ++i)
        if (!reader.Shape(i).IsNull()) shapes.push_back(reader.Shape(i));
    if (shapes.empty()) return Fail(error, QString("%1 holds no shape").arg(path));
    return true;
}

bool TevDocumentFiles::Import(const QString& path, Format format, int* added, QString* error)
{
    std::unique_ptr<XSControl_Reader> reader;
    if (format == Iges) {
        IGESControl_Controller::Init();
        reader = std::make_unique<IGESControl_Reader>();
    } else {
        reader = std::make_unique<STEPControl_Reader>();
    }
    std::vector<TopoDS_Shape> shapes;
    if (!ReadShapes(*reader, path, shapes, error)) return false;
    ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
    doc->StartTransaction();
    for (const TopoDS_Shape& shape : shapes)
        ShapeLabelMgr::GetInstance()->AddShapeToDoc(doc->GetDoc(), shape, ShapeLabelMgr::ShapeTypeName(shape));
    doc->EndTransaction();
    if (added) *added = static_cast<int>(shapes.size());
    return true;
}

static bool WriteStep(const std::vector<TopoDS_Shape>& shapes, const QString& path, QString* error)
{
    STEPControl_Writer writer;
    for (const TopoDS_Shape& shape : shapes)
        if (writer.Transfer(shape, STEPControl_AsIs) != IFSelect_RetDone)
            return Fail(error, "a shape could not be translated to STEP");
    if (writer.Write(path.toLocal8Bit().constData()) != IFSelect_RetDone)
        return Fail(error, QString("cannot write %1").arg(path));
    return true;
}

static bool WriteIges(const std::vector<TopoDS_Shape>& shapes, const QString& path, QString* error)
{
    IGESControl_Controller::Init();
    // Mode 1 writes B-rep entities, which keep solids solid.
    IGESControl_Writer writer("MM", 1);
    for (const TopoDS_Shape& shape : shapes)
        if (!writer.AddShape(shape)) return Fail(error, "a shape could not be translated to IGES");
    writer.ComputeModel();
    if (!writer.Write(path.toLocal8Bit().constData())) return Fail(error, QString("cannot write %1").arg(path));
    return true;
}

bool TevDocumentFiles::Export(const QString& path, Format format, QString* error)
{
    const std::vector<TopoDS_Shape> shapes = ShapeLabelMgr::GetInstance()->GetAllShapes();
    if (shapes.empty()) return Fail(error, "the document has no shape to export");
    return format == Iges ? WriteIges(shapes, path, error) : WriteStep(shapes, path, error);
}

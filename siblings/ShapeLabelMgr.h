// ShapeLabelMgr: the registry of the document's shapes. Every top-level shape of the document's
// shape tool is one entry, with a name kept on its label.
//
// The list is kept between calls and read again when ShapeDocMgr's revision says the document
// may have changed, so that a snap query on each mouse move does not read the whole document.
// Unlike a plain read on every call, this misses a change made outside a transaction through a
// handle kept from before, until ReadAgain() or ShapeDocMgr::MarkChanged() (every viewer rebuild
// reads again).
#ifndef SHAPELABELMGR_H
#define SHAPELABELMGR_H

#include <QString>
#include <Standard_Handle.hxx>
#include <TDF_Label.hxx>
#include <TopoDS_Shape.hxx>

#include <vector>

class TDocStd_Document;

class ShapeLabelMgr
{
public:
    static ShapeLabelMgr* GetInstance();

    // All top-level shapes of ShapeDocMgr's document, in the order of their labels, which is
    // the order in which they were added: stable across calls and refreshes.
    std::vector<TopoDS_Shape> GetAllShapes();
    // The same into `shapes`, with the shapes' labels in the same order into `labels`; both are
    // overwritten, keeping their capacity for a caller that reads often.
    void GetAllShapes(std::vector<TopoDS_Shape>& shapes, std::vector<TDF_Label>& labels);
    // Makes the next call read the document again, for a caller that may have changed it behind
    // ShapeDocMgr's back. Every rebuild of a viewer does this.
    void ReadAgain();

    // Registers a shape that no creator made, named after its type ("Edge_7"), with the default
    // common attributes of BaseShapeParaCreator.
    void AddNewShapeToDoc(opencascade::handle<TDocStd_Document> doc, TopoDS_Shape shape);
    // Registers `shape` under a label of its own in `doc` and names it `<prefix>_<tag>`, the tag
    // of the new label, which keeps names unique within a document, and gives it the default
    // common attributes. Returns the label, or a
    // null label for a null shape or document.
    TDF_Label AddShapeToDoc(const opencascade::handle<TDocStd_Document>& doc, const TopoDS_Shape& shape,
                            const QString& prefix);

    // The name on the shape's label in ShapeDocMgr's document; empty for a shape it does not hold.
    QString GetShapeName(TopoDS_Shape* shape);
    // The name on `label`; empty for a null label or one without a name.
    static QString GetLabelName(const TDF_Label& label);
    // The label of a top-level shape of ShapeDocMgr's document; null when it is not there.
    TDF_Label FindLabel(const TopoDS_Shape& shape);

    // The type word used in default names: "Compound", "Solid", "Face", "Edge", ...
    static QString ShapeTypeName(const TopoDS_Shape& shape);

private:
    ShapeLabelMgr() = default;
    // Reads the document again unless its revision says nothing changed since the last read.
    void Sync();
    void ReadAll();

    struct Listed {
        TDF_Label label;
        TopoDS_Shape shape;
    };
    static ShapeLabelMgr* m_Instance;
    std::vector<Listed> m_list;
    unsigned long m_listRevision = 0;
    bool m_listRead = false;
};

#endif

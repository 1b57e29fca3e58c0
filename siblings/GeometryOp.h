// GeometryOp: the Boolean operations on shapes of the document. Each one changes the document
// itself, in one transaction of its own that one undo takes back: the result becomes a new
// shape named "Unite_<tag>", "Subtract_<tag>" or "Intersect_<tag>", which takes over the common
// attributes of the first operand, and the operands leave the document.
//
// The operands must be whole shapes of ShapeDocMgr's document. A Boolean that cannot be made
// (too few or equal operands, an operand that is not in the document, operands of dimensions
// the kernel cannot combine, an empty result) gives one level-2 line through DrawerOutput and
// leaves the document as it was.
#ifndef GEOMETRYOP_H
#define GEOMETRYOP_H

#include <TopoDS_Shape.hxx>

#include <vector>

class GeometryOp
{
public:
    // Unites all the shapes into one; true when the document holds the union.
    static bool PerformUnite(std::vector<const TopoDS_Shape*>& shapes);
    // The first shape minus the second; the result, or a null shape on failure.
    static TopoDS_Shape PerformSubtract(TopoDS_Shape& object, TopoDS_Shape& tool);
    // The common part of the two shapes; the result, or a null shape on failure.
    static TopoDS_Shape PerformIneersect(TopoDS_Shape& object, TopoDS_Shape& tool);
};

#endif

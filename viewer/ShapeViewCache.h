// ShapeViewCache: what the viewer built to show each shape of its picture (the shape's pick
// structures, its actor and its box), found again by the shape itself, so that a rebuild makes
// only what is new. Two shapes are the same here when TShape, location and orientation agree;
// the document may hold one shape twice, and then each occurrence has an entry of its own.
#ifndef SHAPEVIEWCACHE_H
#define SHAPEVIEWCACHE_H

#include "ShapeActorLook.h"

#include <Bnd_Box.hxx>
#include <IVtkOCC_Shape.hxx>
#include <QString>
#include <TDF_Label.hxx>
#include <TopoDS_Shape.hxx>
#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

class DisplayProjection;
class IVtkTools_ShapePicker;
class vtkActor;

class ShapeViewCache
{
public:
    struct Entry {
        TopoDS_Shape shape;
        IVtkOCC_Shape::Handle occ;
        vtkSmartPointer<IVtkTools_ShapePicker> picker;
        vtkSmartPointer<vtkActor> actor;
        Bnd_Box box;
    };

    ShapeViewCache() = default;
    ShapeViewCache(const ShapeViewCache&) = delete;
    ShapeViewCache& operator=(const ShapeViewCache&) = delete;

    // Adds an entry; entries added since the last ClearOrder are also kept in the order added,
    // which a rebuild makes the document's order.
    void Add(Entry entry);
    void ClearOrder() { m_ordered.clear(); }
    size_t OrderSize() const { return m_ordered.size(); }
    vtkActor* ActorAt(size_t position) const { return m_ordered[position].actor; }
    const ShapeActorLook& LookAt(size_t position) const { return m_ordered[position].look; }
    const QString& NameAt(size_t position) const { return m_ordered[position].name; }
    // The label that gave the shape at `position` its look and name: the one the document finds
    // for the shape, which for a shape held twice is the first.
    const TDF_Label& SourceAt(size_t position) const { return m_ordered[position].source; }
    // Notes, for the entries in order from `first` on, the label each shape came from (`labels`
    // in the same order), the look and name it was given, and the actor's modification time.
    void StampOrder(const std::vector<TDF_Label>& labels, size_t first);
    // The same after `look` was applied again to the actor at `position`.
    void Restamp(size_t position, const ShapeActorLook& look);
    // The number of leading entries in order that show the same shape at the same place from
    // the same label, with an actor that nobody changed since it was stamped.
    size_t KeptPrefix(const std::vector<TopoDS_Shape>& shapes, const std::vector<TDF_Label>& labels) const;
    // Moves the entry of `shape` into `out` and forgets it; false when there is none.
    bool Take(const TopoDS_Shape& shape, Entry& out);
    // Moves every entry out, in no particular order.
    std::vector<Entry> TakeAll();

    // The box of a shape, or of the shape an IVtkOCC_Shape wraps; null when there is no entry.
    const Bnd_Box* BoxOf(const TopoDS_Shape& shape) const;
    const Bnd_Box* BoxOf(const IVtkOCC_Shape* occ) const;
    // The same for the shape at `position` of the document's list: when the entry added at that
    // place is that very shape, its box is read from a packed array without hashing.
    const Bnd_Box* BoxAt(size_t position, const TopoDS_Shape& shape) const;
    size_t Size() const { return m_byShape.size(); }

    // The IVtkOCC_Shapes, in address order, whose box may show within `radius` pixels of
    // display (x, y). The boxes are scanned from one packed array, rebuilt after a change.
    std::vector<const IVtkOCC_Shape*> Reaching(const DisplayProjection& projection, double x, double y,
                                               double radius) const;

    // Lets go of the selection structures that an IVtkOCC_Shape and its selectable object hold
    // on each other: that pair refers to itself and is otherwise never freed. Done when nothing
    // points into the shape any more; until then (and for the shapes of a viewer that is
    // destroyed) the pair keeps the shape alive, so that selection entries stay readable.
    static void Unlink(const IVtkOCC_Shape::Handle& occ);

private:
    struct Hash {
        size_t operator()(const TopoDS_Shape& s) const;
    };
    struct Same {
        bool operator()(const TopoDS_Shape& a, const TopoDS_Shape& b) const { return a.IsEqual(b); }
    };

    std::unordered_multimap<TopoDS_Shape, Entry, Hash, Same> m_byShape;
    std::unordered_map<const IVtkOCC_Shape*, const Entry*> m_byOcc;
    struct Placed {
        TopoDS_Shape shape;
        Bnd_Box box;
        vtkActor* actor;  // owned by the entry
        TDF_Label label;
        TDF_Label source;
        vtkMTimeType stamp;
        ShapeActorLook look;
        QString name;
    };
    std::vector<Placed> m_ordered;
    mutable std::vector<std::pair<const IVtkOCC_Shape*, Bnd_Box>> m_packed;
    mutable bool m_packedStale = false;
};

#endif

// TevModelTree: the document's shapes by name, one row each with its type, in document order.
// Choosing rows selects those shapes in the viewer (through SelectionUpdate(QString), after the
// old selection is cleared); a selection made in the viewer marks the rows of the shapes it
// touches, a picked face or edge marking the shape it belongs to.
#ifndef TEVMODELTREE_H
#define TEVMODELTREE_H

#include <QStringList>
#include <QTreeWidget>
#include <TopoDS_Shape.hxx>

#include <vector>

class TevBasicViewer;

class TevModelTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit TevModelTree(TevBasicViewer* viewer, QWidget* parent = nullptr);

    // The names of the rows, in order.
    QStringList Names() const;
    // The names of the marked rows, in order.
    QStringList SelectedNames() const;
    // The document shapes of the marked rows, in order.
    std::vector<TopoDS_Shape> SelectedShapes() const;

public slots:
    // Reads the document's shapes again.
    void Rebuild();
    // Rebuild() when the document may have changed since the last one: its revision moved or
    // its shape count differs (a change made outside a transaction moves no revision).
    void RebuildIfChanged();
    // Marks the rows of the viewer's current selection.
    void FollowViewer();

private slots:
    void SelectInViewer();

private:
    // The row of the document shape that is or contains `shape`; -1 when none.
    int RowOf(const TopoDS_Shape& shape) const;

    TevBasicViewer* m_viewer;
    std::vector<TopoDS_Shape> m_shapes;  // one per row
    bool m_following = false;            // set while rows are marked from the viewer
    unsigned long m_revision = 0;        // the document revision of the last rebuild
};

#endif

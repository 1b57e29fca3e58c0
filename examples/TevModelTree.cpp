#include "TevModelTree.h"

#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"

#include <QHeaderView>
#include <TopExp_Explorer.hxx>

TevModelTree::TevModelTree(TevBasicViewer* viewer, QWidget* parent) : QTreeWidget(parent), m_viewer(viewer)
{
    setObjectName("modelTree");
    setColumnCount(2);
    setHeaderLabels({tr("Shape"), tr("Type")});
    setRootIsDecorated(false);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    setToolTip(tr("The document's shapes; choose rows to select the shapes in the view"));
    connect(this, &QTreeWidget::itemSelectionChanged, this, &TevModelTree::SelectInViewer);
}

void TevModelTree::Rebuild()
{
    m_following = true;
    clear();
    m_shapes = ShapeLabelMgr::GetInstance()->GetAllShapes();
    m_revision = ShapeDocMgr::GetInstance()->Revision();
    for (TopoDS_Shape& shape : m_shapes) {
        auto* item = new QTreeWidgetItem(this);
        item->setText(0, ShapeLabelMgr::GetInstance()->GetShapeName(&shape));
        item->setText(1, ShapeLabelMgr::ShapeTypeName(shape));
    }
    m_following = false;
    FollowViewer();
}

void TevModelTree::RebuildIfChanged()
{
    if (ShapeDocMgr::GetInstance()->Revision() != m_revision ||
        ShapeLabelMgr::GetInstance()->GetAllShapes().size() != m_shapes.size())
        Rebuild();
}

std::vector<TopoDS_Shape> TevModelTree::SelectedShapes() const
{
    std::vector<TopoDS_Shape> shapes;
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->isSelected()) shapes.push_back(m_shapes[i]);
    return shapes;
}

QStringList TevModelTree::Names() const
{
    QStringList names;
    for (int i = 0; i < topLevelItemCount(); ++i) names << topLevelItem(i)->text(0);
    return names;
}

QStringList TevModelTree::SelectedNames() const
{
    QStringList names;
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->isSelected()) names << topLevelItem(i)->text(0);
    return names;
}

int TevModelTree::RowOf(const TopoDS_Shape& shape) const
{
    for (size_t row = 0; row < m_shapes.size(); ++row) {
        if (m_shapes[row].IsSame(shape)) return static_cast<int>(row);
        for (TopExp_Explorer it(m_shapes[row], shape.ShapeType()); it.More(); it.Next())
            if (it.Current().IsSame(shape)) return static_cast<int>(row);
    }
    return -1;
}

void TevModelTree::FollowViewer()
{
    m_following = true;
    clearSelection();
    for (const TopoDS_Shape* shape : SelectionMgr::GetInstance()->GetshapeList()) {
        const int row = shape ? RowOf(*shape) : -1;
        if (row >= 0) topLevelItem(row)->setSelected(true);
    }
    m_following = false;
}

void TevModelTree::SelectInViewer()
{
    if (m_following) return;
    const QStringList names = SelectedNames();
    SelectionMgr::GetInstance()->ClearSelList();
    m_viewer->ProcessHighLightedObj();
    for (const QString& name : names) m_viewer->SelectionUpdate(name);
    if (names.isEmpty()) m_viewer->UpdateViewer();
}

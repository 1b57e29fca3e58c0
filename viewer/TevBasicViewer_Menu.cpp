// TevBasicViewer: the right-button menu and the commands it runs: "Confirm" of the running
// operation, the face as work plane, the selection and display levels, and the three Booleans on
// the selection.
//
// The menu is rebuilt at each showing from actions that live as long as the widget. "Confirm" is
// connected to its slot at each showing, without Qt::UniqueConnection, so after the n-th showing
// one trigger runs the slot n times; the extra runs end nothing more than an empty stack or a
// parent whose child has just ended. "Set Material" and "Set Mesh Size" are features still to
// come: their actions are disabled and their connections name slots the class does not have,
// which Qt refuses with a warning at run time; "Set Mesh Size" is not shown at all.
#include "TevBasicViewer.h"

#include "DrawOpMgr.h"
#include "GeometryOp.h"
#include "SelectionMgr.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QMessageBox>

#include <memory>

QAction* TevBasicViewer::MakeMenuAction(const QString& text, bool checkable)
{
    QAction* action = new QAction(text, this);
    action->setCheckable(checkable);
    return action;
}

void TevBasicViewer::CreateRightMenu()
{
    m_menu = new QMenu(this);
    m_actionConfirm = MakeMenuAction(tr("Confirm"), false);
    m_actionWorkPlane = MakeMenuAction(tr("Set As WorkPlane"), false);
    connect(m_actionWorkPlane, &QAction::triggered, this, &TevBasicViewer::m_Slot_SetFaceAsWorkPlane);
    m_actionWireframe = MakeMenuAction(tr("Display Level: Wireframe"), true);
    connect(m_actionWireframe, &QAction::triggered, this, &TevBasicViewer::m_Slot_DisplayByWireFrame);
    m_actionSurface = MakeMenuAction(tr("Display Level: Face"), true);
    connect(m_actionSurface, &QAction::triggered, this, &TevBasicViewer::m_Slot_DisplayBySurface);
    m_actionPoint = MakeMenuAction(tr("Display Level: Point"), true);
    connect(m_actionPoint, &QAction::triggered, this, &TevBasicViewer::m_Slot_DisplayByPoint);
    m_actionSelectEdge = MakeMenuAction(tr("Select Level: Edge"), true);
    connect(m_actionSelectEdge, &QAction::triggered, this, &TevBasicViewer::m_Slot_SetSelectionEdge);
    m_actionSelectFace = MakeMenuAction(tr("Select Level: Face"), true);
    connect(m_actionSelectFace, &QAction::triggered, this, &TevBasicViewer::m_Slot_SetSelectionFace);
    m_actionSelectBody = MakeMenuAction(tr("Select Level: Body"), true);
    m_actionSelectBody->setChecked(true);
    connect(m_actionSelectBody, &QAction::triggered, this, &TevBasicViewer::m_Slot_SetSelectionBody);

    // Features still to come: the slots named here do not exist, so these two connections fail
    // with Qt's warning, and the actions stay disabled.
    m_actionMaterial = MakeMenuAction(tr("Set Material"), false);
    m_actionMaterial->setEnabled(false);
    connect(m_actionMaterial, SIGNAL(triggered()), this, SLOT(m_Slot_AssignMaterial()));
    m_actionMeshSize = MakeMenuAction(tr("Set Mesh Size"), false);
    m_actionMeshSize->setEnabled(false);
    connect(m_actionMeshSize, SIGNAL(triggered()), this, SLOT(m_Slot_AssignMeshSize()));

    m_actionUnite = MakeMenuAction(tr("Unite"), false);
    connect(m_actionUnite, &QAction::triggered, this, &TevBasicViewer::m_Slot_BoolUnite);
    m_actionSubtract = MakeMenuAction(tr("Subtract"), false);
    connect(m_actionSubtract, &QAction::triggered, this, &TevBasicViewer::m_Slot_BoolSubtract);
    m_actionIntersect = MakeMenuAction(tr("Intersect"), false);
    connect(m_actionIntersect, &QAction::triggered, this, &TevBasicViewer::m_Slot_BoolIntersect);

    connect(this, &TevBasicViewer::m_signal_Menu, this, &TevBasicViewer::m_slot_ContextMenu);
    UpdateSelectionLevel();
}

// The point is not used: the menu opens at the cursor.
void TevBasicViewer::m_slot_ContextMenu(QPoint)
{
    if (!m_menu) return;
    RunGuarded("ContextMenu", [this] { ShowContextMenu(); });
}

void TevBasicViewer::ShowContextMenu()
{
    m_menu->clear();
    m_menu->addAction(m_actionConfirm);
    connect(m_actionConfirm, &QAction::triggered, this, &TevBasicViewer::m_Slot_OKCurrentOp);
    m_menu->addSeparator();
    m_menu->addAction(m_actionWorkPlane);
    m_menu->addSeparator();
    m_menu->addActions({m_actionSelectEdge, m_actionSelectFace, m_actionSelectBody});
    m_menu->addSeparator();
    m_menu->addAction(m_actionMaterial);
    m_menu->addSeparator();
    m_menu->addActions({m_actionWireframe, m_actionSurface, m_actionPoint});
    // Made anew at each showing without a parent; it goes when the menu has closed.
    std::unique_ptr<QMenu> booleans(new QMenu(tr("Boolean operation")));
    m_menu->addSeparator();
    m_menu->addMenu(booleans.get());
    booleans->addActions({m_actionUnite, m_actionSubtract, m_actionIntersect});
    m_menu->exec(QCursor::pos());
}

void TevBasicViewer::m_Slot_OKCurrentOp()
{
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    RunOpStep([&] { mgr->EndOp(mgr->GetCurrentOp(), this); });
    RenderSnapPoint(nullptr);
}

// The selection is kept after each Boolean: its entries point into pictures the rebuild keeps
// alive while they are selected.
void TevBasicViewer::m_Slot_BoolUnite()
{
    RunGuarded("Unite", [this] {
        std::vector<const TopoDS_Shape*> list = SelectionMgr::GetInstance()->GetshapeList();
        if (list.size() < 2) {
            // This one text does not pass through tr.
            QMessageBox::information(nullptr, tr("Title"), QString::fromLatin1("Shape number is too less"));
            return;
        }
        GeometryOp::PerformUnite(list);
        RefreshViewer();
    });
}

void TevBasicViewer::m_Slot_BoolSubtract()
{
    RunGuarded("Subtract", [this] { RunPairBoolean(&GeometryOp::PerformSubtract); });
}

void TevBasicViewer::m_Slot_BoolIntersect()
{
    RunGuarded("Intersect", [this] { RunPairBoolean(&GeometryOp::PerformIneersect); });
}

void TevBasicViewer::RunPairBoolean(TopoDS_Shape (*perform)(TopoDS_Shape&, TopoDS_Shape&))
{
    const std::vector<const TopoDS_Shape*> list = SelectionMgr::GetInstance()->GetshapeList();
    if (list.size() < 2) {
        QMessageBox::information(nullptr, tr("Title"), tr("Shape number is too less"));
        return;
    }
    // Copies share the selected shapes' TShape, location and orientation.
    TopoDS_Shape object = *list[0];
    TopoDS_Shape tool = *list[1];
    perform(object, tool);
    RefreshViewer();
}

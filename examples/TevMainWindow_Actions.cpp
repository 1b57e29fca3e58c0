// The menus and toolbars of TevMainWindow.
#include "TevMainWindow.h"

#include "TevBasicViewer.h"
#include "TevDrawOpCatalog.h"
#include "TevIconFactory.h"
#include "TevOperationRunner.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>

QAction* TevMainWindow::MakeAction(const QString& name, const QString& text, const QString& tooltip,
                                   const QIcon& icon, const QKeySequence& shortcut)
{
    auto* action = new QAction(icon, text, this);
    action->setObjectName(name);
    action->setToolTip(shortcut.isEmpty() ? tooltip : tooltip + " (" + shortcut.toString() + ")");
    action->setStatusTip(tooltip);
    if (!shortcut.isEmpty()) action->setShortcut(shortcut);
    return action;
}

void TevMainWindow::MakeChoice(QMenu* menu, QToolBar* bar, const std::vector<QAction*>& actions)
{
    auto* group = new QActionGroup(this);
    for (QAction* action : actions) {
        action->setCheckable(true);
        group->addAction(action);
        menu->addAction(action);
        if (bar) bar->addAction(action);
    }
    actions.front()->setChecked(true);
}

void TevMainWindow::CreateActions()
{
    CreateFileActions();
    CreateEditActions();
    CreateDrawActions();
    CreateViewActions();
    CreateModeActions();
    CreateMeshActions();
    CreateAnalysisActions();
}

void TevMainWindow::CreateFileActions()
{
    QStyle* style = QApplication::style();
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    QToolBar* bar = addToolBar(tr("File"));
    bar->setObjectName("fileToolBar");
    struct Row {
        const char* name; QString text; QString tip; QStyle::StandardPixmap icon; QKeySequence key;
        void (TevMainWindow::*slot)();
    };
    const Row rows[] = {
        {"actionNew", tr("&New"), tr("Start an empty document"), QStyle::SP_FileIcon, QKeySequence::New, &TevMainWindow::NewDocument},
        {"actionOpen", tr("&Open..."), tr("Open a document (OCAF binary .xbf or XML .xml)"), QStyle::SP_DialogOpenButton, QKeySequence::Open, &TevMainWindow::OpenDocument},
        {"actionSave", tr("&Save as..."), tr("Save the document (OCAF binary .xbf or XML .xml)"), QStyle::SP_DialogSaveButton, QKeySequence::Save, &TevMainWindow::SaveDocument},
        {"actionImport", tr("&Import STEP/IGES..."), tr("Add the shapes of a STEP or IGES file to the document"), QStyle::SP_ArrowDown, QKeySequence(), &TevMainWindow::ImportShapes},
        {"actionExport", tr("&Export STEP/IGES..."), tr("Write all shapes to a STEP or IGES file"), QStyle::SP_ArrowUp, QKeySequence(), &TevMainWindow::ExportShapes},
    };
    for (const Row& row : rows) {
        QAction* action = MakeAction(row.name, row.text, row.tip, style->standardIcon(row.icon), row.key);
        connect(action, &QAction::triggered, this, row.slot);
        menu->addAction(action);
        bar->addAction(action);
    }
    menu->addSeparator();
    QAction* quit = MakeAction("actionQuit", tr("&Quit"), tr("Close the demo host"),
                               style->standardIcon(QStyle::SP_DialogCloseButton), QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    menu->addAction(quit);
}

void TevMainWindow::CreateEditActions()
{
    QStyle* style = QApplication::style();
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    QToolBar* bar = addToolBar(tr("Edit"));
    bar->setObjectName("editToolBar");
    struct Row {
        const char* name; QString text; QString tip; QIcon icon; QKeySequence key; void (TevMainWindow::*slot)();
    };
    const QColor grey = TevIconFactory::GroupColour(QString());
    const Row rows[] = {
        {"actionUndo", tr("&Undo"), tr("Undo the last change of the document"), style->standardIcon(QStyle::SP_ArrowBack), QKeySequence(Qt::CTRL | Qt::Key_Z), &TevMainWindow::Undo},
        {"actionRedo", tr("&Redo"), tr("Redo the change undone last"), style->standardIcon(QStyle::SP_ArrowForward), QKeySequence(Qt::CTRL | Qt::Key_Y), &TevMainWindow::Redo},
        {"actionDelete", tr("&Delete"), tr("Delete the selected shapes"), style->standardIcon(QStyle::SP_TrashIcon), QKeySequence(Qt::Key_Delete), &TevMainWindow::DeleteSelection},
        {"actionCancel", tr("&Cancel"), tr("End the running operation, or clear the selection"), style->standardIcon(QStyle::SP_DialogCancelButton), QKeySequence(Qt::Key_Escape), &TevMainWindow::Cancel},
    };
    for (const Row& row : rows) {
        QAction* action = MakeAction(row.name, row.text, row.tip, row.icon, row.key);
        connect(action, &QAction::triggered, this, row.slot);
        menu->addAction(action);
        bar->addAction(action);
    }
    QAction* confirm = MakeAction("actionConfirm", tr("C&onfirm"), tr("Finish the running operation with what is selected"),
                                  TevIconFactory::Glyph("OK", grey), QKeySequence(Qt::CTRL | Qt::Key_Return));
    connect(confirm, &QAction::triggered, m_viewer, &TevBasicViewer::m_Slot_OKCurrentOp);
    menu->addAction(confirm);
    bar->addAction(confirm);
    menu->addSeparator();
    QMenu* booleans = menu->addMenu(tr("&Boolean"));
    struct Bool { const char* name; QString text; QString tip; QString glyph; void (TevBasicViewer::*slot)(); };
    const Bool bools[] = {
        {"actionUnite", tr("Unite"), tr("Unite the selected shapes"), "U", &TevBasicViewer::m_Slot_BoolUnite},
        {"actionSubtract", tr("Subtract"), tr("Cut the second selected shape from the first"), "-", &TevBasicViewer::m_Slot_BoolSubtract},
        {"actionIntersect", tr("Intersect"), tr("Keep the common part of the first two selected shapes"), "^", &TevBasicViewer::m_Slot_BoolIntersect},
    };
    for (const Bool& row : bools) {
        QAction* action = MakeAction(row.name, row.text, row.tip, TevIconFactory::Glyph(row.glyph, QColor(230, 81, 0)));
        connect(action, &QAction::triggered, m_viewer, row.slot);
        booleans->addAction(action);
        bar->addAction(action);
    }
}

void TevMainWindow::CreateDrawActions()
{
    QMenu* menu = menuBar()->addMenu(tr("&Draw"));
    addToolBarBreak();
    QToolBar* bar = addToolBar(tr("Draw"));
    bar->setObjectName("drawToolBar");
    for (const QString& group : TevDrawOpCatalog::Groups()) {
        QMenu* sub = menu->addMenu(tr(group.toUtf8().constData()));
        for (const TevDrawOpEntry& entry : TevDrawOpCatalog::Entries()) {
            if (entry.group != group) continue;
            QAction* action = MakeAction(entry.name, entry.text, entry.tooltip,
                                         TevIconFactory::Glyph(entry.glyph, TevIconFactory::GroupColour(group)));
            connect(action, &QAction::triggered, this, [this, &entry] { m_runner->Start(entry); });
            sub->addAction(action);
            bar->addAction(action);
        }
        bar->addSeparator();
    }
}

void TevMainWindow::CreateViewActions()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    QToolBar* bar = addToolBar(tr("View"));
    bar->setObjectName("viewToolBar");
    struct Row { const char* name; QString text; QString glyph; void (TevBasicViewer::*view)(); };
    const Row views[] = {
        {"actionViewXY", tr("Top (XY)"), "XY", &TevBasicViewer::SetXY},
        {"actionViewYX", tr("Bottom (YX)"), "YX", &TevBasicViewer::SetYX},
        {"actionViewXZ", tr("Front (XZ)"), "XZ", &TevBasicViewer::SetXZ},
        {"actionViewZX", tr("Back (ZX)"), "ZX", &TevBasicViewer::SetZX},
        {"actionViewYZ", tr("Right (YZ)"), "YZ", &TevBasicViewer::SetYZ},
        {"actionViewZY", tr("Left (ZY)"), "ZY", &TevBasicViewer::SetZY},
        {"actionViewISO", tr("Isometric"), "3D", &TevBasicViewer::SetISO},
    };
    const QColor teal(0, 121, 107);
    for (const Row& row : views) {
        QAction* action = MakeAction(row.name, row.text, tr("Look at the model: %1").arg(row.text),
                                     TevIconFactory::Glyph(row.glyph, teal));
        connect(action, &QAction::triggered, this, [this, view = row.view] {
            (m_viewer->*view)();
            m_viewer->UpdateViewer();
        });
        menu->addAction(action);
        bar->addAction(action);
    }
    menu->addSeparator();
    QMenu* planes = menu->addMenu(tr("Work &plane"));
    const QColor olive(130, 119, 23);
    std::vector<QAction*> planeActions;
    const Row rows[] = {
        {"actionPlaneXY", tr("XY plane"), "pZ", &TevBasicViewer::EnableXYPlane},
        {"actionPlaneXZ", tr("XZ plane"), "pY", &TevBasicViewer::EnableXZPlane},
        {"actionPlaneYZ", tr("YZ plane"), "pX", &TevBasicViewer::EnableYZPlane},
    };
    for (const Row& row : rows) {
        QAction* action = MakeAction(row.name, row.text, tr("Draw on the %1").arg(row.text),
                                     TevIconFactory::Glyph(row.glyph, olive));
        connect(action, &QAction::triggered, m_viewer, row.view);
        planeActions.push_back(action);
    }
    MakeChoice(planes, bar, planeActions);
    // Not one of the choice: the face may be refused, and the plane stays as it was.
    QAction* face = MakeAction("actionPlaneFace", tr("Selected face"), tr("Draw on the plane of the selected face"),
                               TevIconFactory::Glyph("pF", olive));
    connect(face, &QAction::triggered, m_viewer, &TevBasicViewer::m_Slot_SetFaceAsWorkPlane);
    planes->addAction(face);
    bar->addAction(face);
}

void TevMainWindow::CreateModeActions()
{
    QMenu* menu = menuBar()->addMenu(tr("&Select"));
    QToolBar* bar = addToolBar(tr("Modes"));
    bar->setObjectName("modeToolBar");
    struct Row { const char* name; QString text; QString tip; QString glyph; void (TevBasicViewer::*slot)(); };
    const QColor purple(94, 53, 177), brown(93, 64, 55);
    // One checkable action per row, connected to its viewer slot.
    auto actionsOf = [this](const std::vector<Row>& rows, const QColor& colour) {
        std::vector<QAction*> actions;
        for (const Row& row : rows) {
            actions.push_back(MakeAction(row.name, row.text, row.tip, TevIconFactory::Glyph(row.glyph, colour)));
            connect(actions.back(), &QAction::triggered, m_viewer, row.slot);
        }
        return actions;
    };
    MakeChoice(menu, bar, actionsOf({
        {"actionSelectBody", tr("Select bodies"), tr("Clicks select whole shapes"), "sB", &TevBasicViewer::m_Slot_SetSelectionBody},
        {"actionSelectFace", tr("Select faces"), tr("Clicks select faces"), "sF", &TevBasicViewer::m_Slot_SetSelectionFace},
        {"actionSelectEdge", tr("Select edges"), tr("Clicks select edges"), "sE", &TevBasicViewer::m_Slot_SetSelectionEdge},
    }, purple));
    QMenu* display = menuBar()->addMenu(tr("&Display"));
    MakeChoice(display, bar, actionsOf({
        {"actionDisplaySurface", tr("Surfaces"), tr("Show shapes shaded"), "dS", &TevBasicViewer::m_Slot_DisplayBySurface},
        {"actionDisplayWireframe", tr("Wireframe"), tr("Show the edges of shapes only"), "dW", &TevBasicViewer::m_Slot_DisplayByWireFrame},
        {"actionDisplayPoints", tr("Points"), tr("Show the vertices of shapes only"), "dP", &TevBasicViewer::m_Slot_DisplayByPoint},
    }, brown));
    display->addSeparator();
    std::vector<QAction*> mice;
    const std::pair<MOUSE_OP_MODE, const char*> modes[] = {
        {MOUSE_OP_SELECT, "Select"}, {MOUSE_OP_ROTATE, "Rotate"}, {MOUSE_OP_ZOOM, "Zoom"}};
    for (const auto& mode : modes) {
        const QString word = tr(mode.second);
        mice.push_back(MakeAction(QString("actionMouse") + mode.second, tr("Mouse: %1").arg(word),
                                  tr("The left button drags to %1").arg(word.toLower()),
                                  TevIconFactory::Glyph(word.left(1), brown)));
        connect(mice.back(), &QAction::triggered, this, [this, m = mode.first] { m_viewer->SetCurrentOperationMode(m); });
    }
    MakeChoice(display, nullptr, mice);
}

void TevMainWindow::CreateMeshActions()
{
    QMenu* menu = menuBar()->addMenu(tr("&Mesh"));
    const QColor mesh(69, 90, 100);
    QAction* make = MakeAction("actionMesh", tr("&Mesh shapes"),
                               tr("Surface mesh of the selected shapes (all shapes when none is selected)"),
                               TevIconFactory::Glyph("M", mesh));
    connect(make, &QAction::triggered, this, &TevMainWindow::MeshSelection);
    QAction* write = MakeAction("actionExportMesh", tr("&Export mesh..."),
                                tr("Write the mesh in the form chosen in the mesh tab"), TevIconFactory::Glyph("Mx", mesh));
    connect(write, &QAction::triggered, this, &TevMainWindow::ExportMesh);
    menu->addAction(make);
    menu->addAction(write);
    QToolBar* bar = findChild<QToolBar*>("modeToolBar");
    bar->addSeparator();
    bar->addAction(make);
    bar->addAction(write);
}

void TevMainWindow::CreateAnalysisActions()
{
    QMenu* menu = menuBar()->addMenu(tr("&Analysis"));
    const QColor colour(183, 28, 28);
    struct Row { const char* name; QString text; QString tip; QString glyph; void (TevMainWindow::*slot)(); };
    const Row rows[] = {
        {"actionVolumeMesh", tr("&Volume mesh"), tr("Tetrahedra of the selected solid, of the size and order set in the analysis tab"), "VM", &TevMainWindow::VolumeMeshSelection},
        {"actionFixFace", tr("&Fix picked face"), tr("Clamp the picked face of the meshed solid"), "Fx", &TevMainWindow::FixPickedFace},
        {"actionLoadFace", tr("&Load picked face"), tr("Put the load set in the analysis tab on the picked face"), "Ld", &TevMainWindow::LoadPickedFace},
        {"actionMaterial", tr("&Material..."), tr("Young's modulus, Poisson's ratio and density"), "Mt", &TevMainWindow::EditMaterial},
        {"actionSolve", tr("&Solve"), tr("Solve the analysis with CalculiX and show the result"), "So", &TevMainWindow::SolveAnalysis},
        {"actionCancelSolve", tr("&Cancel solve"), tr("Stop the running solve"), "Sx", &TevMainWindow::CancelSolve},
    };
    QToolBar* bar = findChild<QToolBar*>("modeToolBar");
    bar->addSeparator();
    for (const Row& row : rows) {
        QAction* action = MakeAction(row.name, row.text, row.tip, TevIconFactory::Glyph(row.glyph, colour));
        connect(action, &QAction::triggered, this, row.slot);
        menu->addAction(action);
        bar->addAction(action);
    }
}

// The demo host's main window driven through its actions, as a user drives it: drawing by the
// Draw actions with clicks on the view and answers typed into the dialogs, the Edit actions and
// their shortcuts, the file actions with the file chooser answered, and the mesh actions.
// Expected values come from the clicked grid points and typed sizes:
//   box: corners (10, 10) and (60, 50), height 30: 50 x 40 x 30, volume 60000;
//   line: (-60, -40) to (-20, -40), length 40;
//   rectangle (-80, -60) to (-30, -20), 50 x 40, extruded by 25: four walls of area
//   2 x (50 + 40) x 25 = 4500.
#include "GuiTestSupport.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"
#include "TevDemoApplication.h"
#include "TevAnalysisModel.h"
#include "TevAnalysisPanel.h"
#include "TevCalculixJob.h"
#include "TevMainWindow.h"
#include "TevMeshPanel.h"
#include "TevMessagePanel.h"
#include "TevModelTree.h"
#include "TevUserHand.h"
#include "vis_Connect.h"

#include <BRepBndLib.hxx>
#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QStatusBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <QTest>
#include <QVTKOpenGLNativeWidget.h>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <gtest/gtest.h>

#include <memory>

namespace {

double Volume(const TopoDS_Shape& s)
{
    GProp_GProps p;
    BRepGProp::VolumeProperties(s, p);
    return p.Mass();
}

double Area(const TopoDS_Shape& s)
{
    GProp_GProps p;
    BRepGProp::SurfaceProperties(s, p);
    return p.Mass();
}

double Length(const TopoDS_Shape& s)
{
    GProp_GProps p;
    BRepGProp::LinearProperties(s, p);
    return p.Mass();
}

std::vector<TopoDS_Shape> Shapes()
{
    return ShapeLabelMgr::GetInstance()->GetAllShapes();
}

// What a shape is for the comparisons: name, type, size measures and bounding box.
struct ShapeFacts {
    QString name, type;
    double volume, area, length;
    double box[6];
};

std::vector<ShapeFacts> Facts()
{
    std::vector<ShapeFacts> facts;
    for (TopoDS_Shape& s : Shapes()) {
        ShapeFacts f{ShapeLabelMgr::GetInstance()->GetShapeName(&s), ShapeLabelMgr::ShapeTypeName(s),
                     Volume(s), Area(s), Length(s), {}};
        Bnd_Box b;
        BRepBndLib::Add(s, b);
        b.Get(f.box[0], f.box[1], f.box[2], f.box[3], f.box[4], f.box[5]);
        facts.push_back(f);
    }
    return facts;
}

void ExpectSameFacts(const std::vector<ShapeFacts>& a, const std::vector<ShapeFacts>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].name, b[i].name);
        EXPECT_EQ(a[i].type, b[i].type);
        EXPECT_NEAR(a[i].volume, b[i].volume, 1e-9);
        EXPECT_NEAR(a[i].area, b[i].area, 1e-9);
        EXPECT_NEAR(a[i].length, b[i].length, 1e-9);
        for (int k = 0; k < 6; ++k) EXPECT_NEAR(a[i].box[k], b[i].box[k], 1e-9);
    }
}

int CountLinesStartingWith(const QByteArray& text, const QByteArray& head)
{
    int count = 0;
    for (const QByteArray& line : text.split('\n')) count += line.startsWith(head);
    return count;
}

class MainWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        // The mesh display writes its deck into the current folder.
        previous = QDir::currentPath();
        QDir::setCurrent(dir.path());
        SelectionMgr::GetInstance()->ClearSelList();
        ShapeDocMgr::GetInstance()->NewDocument();
        window = std::make_unique<TevMainWindow>();
        window->SetFileChooser([this](bool, const QString&, const QString&) { return chosen; });
        window->resize(1100, 800);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        QTest::qWait(50);
    }
    void TearDown() override
    {
        window.reset();
        QDir::setCurrent(previous);
    }

    void Trigger(const char* name)
    {
        QAction* action = window->Action(name);
        ASSERT_NE(action, nullptr) << name;
        action->trigger();
        QTest::qWait(30);
    }
    void Click(double x, double y) { TevUserHand::Click(window->Viewer(), x, y); }
    void Answer(const char* dialog, const std::vector<tevtest::FieldText>& fields)
    {
        tevtest::AnswerNextDialog(dialog, fields, true, &seen);
    }
    QString Path(const char* name) const { return QDir(dir.path()).filePath(name); }
    // Runs a file action with the chooser answering `file` in the test's folder.
    void WithFile(const char* action, const char* file)
    {
        chosen = Path(file);
        Trigger(action);
    }

    void DrawBox()
    {
        Trigger("actionBox");
        Click(10, 10);
        Answer("DataInputDlg", {{"lineEdit", "30"}});
        Click(60, 50);
        QTest::qWait(30);
    }
    void DrawLine()
    {
        Trigger("actionLine");
        Click(-60, -40);
        Click(-20, -40);
        Trigger("actionCancel");
    }
    void ExpectBoxRoundTrip(const char* file);
    void DrawExtrudedRectangle()
    {
        Trigger("actionRectangle");
        Click(-80, -60);
        Click(-30, -20);
        Trigger("actionCancel");
        window->ModelTree()->clearSelection();
        QTreeWidget* tree = window->ModelTree();
        tree->topLevelItem(tree->topLevelItemCount() - 1)->setSelected(true);
        Trigger("actionExtrude");
        Answer("ExtrudInputDlg", {{"lineEdit_Height", "25"}});
        Trigger("actionConfirm");
        Trigger("actionCancel");
    }

    QTemporaryDir dir;
    QString previous;
    QString chosen;
    tevtest::DialogSeen seen;
    std::unique_ptr<TevMainWindow> window;
};

TEST_F(MainWindowTest, EveryActionHasAnIconAndATooltipAndTheUsualShortcuts)
{
    const QList<QAction*> actions = window->findChildren<QAction*>(QRegularExpression("^action"));
    // 23 drawing operations; file 6 (new, open, save, import, export, quit); edit 5 (undo, redo,
    // delete, cancel, confirm); Booleans 3; views 7; work planes 4 (three principal, face);
    // selection levels 3; display modes 3; mouse modes 3; mesh 2; analysis 6 (volume mesh, fix
    // face, load face, material, solve, cancel solve): 23 + 42 = 65.
    EXPECT_EQ(actions.size(), 65);
    for (QAction* action : actions) {
        EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
        EXPECT_FALSE(action->toolTip().isEmpty()) << action->objectName().toStdString();
    }
    EXPECT_EQ(window->Action("actionUndo")->shortcut(), QKeySequence("Ctrl+Z"));
    EXPECT_EQ(window->Action("actionRedo")->shortcut(), QKeySequence("Ctrl+Y"));
    EXPECT_EQ(window->Action("actionDelete")->shortcut(), QKeySequence(Qt::Key_Delete));
    EXPECT_EQ(window->Action("actionCancel")->shortcut(), QKeySequence(Qt::Key_Escape));
    for (const char* view : {"actionViewXY", "actionViewYX", "actionViewXZ", "actionViewZX", "actionViewYZ",
                             "actionViewZY", "actionViewISO", "actionPlaneXY", "actionPlaneXZ", "actionPlaneYZ",
                             "actionSelectBody", "actionSelectFace", "actionSelectEdge", "actionDisplaySurface",
                             "actionDisplayWireframe", "actionDisplayPoints"})
        EXPECT_NE(window->Action(view), nullptr) << view;
}

TEST_F(MainWindowTest, OneCurveOneSolidAndOneSweepDrawnThroughTheActions)
{
    DrawLine();
    DrawBox();
    DrawExtrudedRectangle();
    const std::vector<TopoDS_Shape> shapes = Shapes();
    // line, box, rectangle, extrusion
    ASSERT_EQ(shapes.size(), 4u);
    EXPECT_EQ(shapes[0].ShapeType(), TopAbs_EDGE);
    EXPECT_NEAR(Length(shapes[0]), 40.0, 1e-9);
    EXPECT_NEAR(Volume(shapes[1]), 60000.0, 1e-6);
    EXPECT_NEAR(Area(shapes[3]), 4500.0, 1e-6);
    EXPECT_EQ(window->ModelTree()->Names().size(), 4);
    EXPECT_EQ(window->Messages()->FaultCount(), 0);
}

TEST_F(MainWindowTest, UndoAndRedoByActionAndByShortcut)
{
    DrawBox();
    ASSERT_EQ(Shapes().size(), 1u);
    Trigger("actionUndo");
    EXPECT_EQ(Shapes().size(), 0u);
    EXPECT_EQ(window->ModelTree()->Names().size(), 0);
    Trigger("actionRedo");
    ASSERT_EQ(Shapes().size(), 1u);
    EXPECT_NEAR(Volume(Shapes()[0]), 60000.0, 1e-6);

    ASSERT_TRUE(tevtest::ActivateAndWait(window.get()));
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(30);
    EXPECT_EQ(Shapes().size(), 0u);
    QTest::keyClick(window.get(), Qt::Key_Y, Qt::ControlModifier);
    QTest::qWait(30);
    EXPECT_EQ(Shapes().size(), 1u);
    EXPECT_EQ(window->ModelTree()->Names().size(), 1);
}

TEST_F(MainWindowTest, DeleteRemovesTheShapesChosenInTheTree)
{
    DrawLine();
    DrawBox();
    // The box's last click selected it; only the line is chosen.
    window->ModelTree()->clearSelection();
    window->ModelTree()->topLevelItem(0)->setSelected(true);
    Trigger("actionDelete");
    ASSERT_EQ(Shapes().size(), 1u);
    EXPECT_NEAR(Volume(Shapes()[0]), 60000.0, 1e-6);
    Trigger("actionUndo");
    EXPECT_EQ(Shapes().size(), 2u);
}

TEST_F(MainWindowTest, SavedDocumentReopensWithIdenticalShapesInBothForms)
{
    DrawLine();
    DrawBox();
    const std::vector<ShapeFacts> before = Facts();
    ASSERT_EQ(before.size(), 2u);
    for (const char* file : {"doc.xbf", "doc.xml"}) {
        SCOPED_TRACE(file);
        WithFile("actionSave", file);
        ASSERT_TRUE(QFile::exists(Path(file)));
        Trigger("actionNew");
        ASSERT_EQ(Shapes().size(), 0u);
        WithFile("actionOpen", file);
        ExpectSameFacts(Facts(), before);
        EXPECT_EQ(window->ModelTree()->Names().size(), 2);
    }
    EXPECT_EQ(window->Messages()->FaultCount(), 0);
}

// Exports the box through the export action to `file`, starts a new document and imports the
// file again: one shape of the box's volume comes back, to the translation's precision.
void MainWindowTest::ExpectBoxRoundTrip(const char* file)
{
    DrawBox();
    WithFile("actionExport", file);
    ASSERT_TRUE(QFile::exists(Path(file)));
    Trigger("actionNew");
    ASSERT_EQ(Shapes().size(), 0u);
    WithFile("actionImport", file);
    ASSERT_EQ(Shapes().size(), 1u);
    EXPECT_NEAR(Volume(Shapes()[0]), 60000.0, 1e-6 * 60000.0);
    EXPECT_EQ(window->Messages()->FaultCount(), 0);
}

TEST_F(MainWindowTest, StepExportReadsBackWithTheSameVolume)
{
    ExpectBoxRoundTrip("box.step");
}

// IGES is written in B-rep mode, which keeps the solid.
TEST_F(MainWindowTest, IgesExportReadsBackWithTheSameVolume)
{
    ExpectBoxRoundTrip("box.igs");
}

// The box's six planar faces are meshed with their four corners alone: 2 triangles each, 12 in
// all, on the 8 corners, which the faces share.
TEST_F(MainWindowTest, BoxMeshExportedAsNastranHasEightGridsAndTwelveTriangles)
{
    DrawBox();
    Trigger("actionMesh");
    ASSERT_NE(window->MeshPanel()->Mesh(), nullptr);
    EXPECT_EQ(window->MeshPanel()->CountsText(), QString("8 nodes, 12 triangles"));
    window->MeshPanel()->ChooseFormat(18);
    WithFile("actionExportMesh", "box.bdf");
    QFile deck(Path("box.bdf"));
    ASSERT_TRUE(deck.open(QIODevice::ReadOnly));
    const QByteArray text = deck.readAll();
    EXPECT_EQ(CountLinesStartingWith(text, "GRID*"), 8);
    EXPECT_EQ(CountLinesStartingWith(text, "CTRIA3"), 12);
    EXPECT_EQ(CountLinesStartingWith(text, "ENDDATA"), 1);
    EXPECT_EQ(window->Messages()->FaultCount(), 0);
}

TEST_F(MainWindowTest, AnExportWithoutAMeshIsReportedInRed)
{
    window->MeshPanel()->ChooseFormat(18);
    WithFile("actionExportMesh", "none.bdf");
    EXPECT_FALSE(QFile::exists(Path("none.bdf")));
    ASSERT_EQ(window->Messages()->FaultCount(), 1);
    EXPECT_EQ(window->Messages()->Lines().back().first, 2);
    // Faults are shown in red, notes in the normal colour.
    EXPECT_TRUE(window->Messages()->toHtml().contains("#c00000"));
}

// A click on the box in the view marks its row; choosing the line's row selects the line in the
// view (one selected shape, the line); a move over the view shows its coordinates in the status
// bar.
TEST_F(MainWindowTest, TheTreeFollowsTheViewAndSelectsInIt)
{
    DrawLine();
    DrawBox();
    Trigger("actionCancel");  // no operation runs: Escape clears the selection
    ASSERT_TRUE(window->ModelTree()->SelectedNames().isEmpty());
    const QStringList names = window->ModelTree()->Names();
    ASSERT_EQ(names.size(), 2);
    Click(35, 30);  // inside the box's top face, seen from above
    EXPECT_EQ(window->ModelTree()->SelectedNames(), QStringList{names[1]});

    window->ModelTree()->clearSelection();
    window->ModelTree()->topLevelItem(0)->setSelected(true);
    const std::vector<const TopoDS_Shape*>& selected = SelectionMgr::GetInstance()->GetshapeList();
    ASSERT_EQ(selected.size(), 1u);
    EXPECT_TRUE(selected[0]->IsSame(Shapes()[0]));
    EXPECT_EQ(window->ModelTree()->SelectedNames(), QStringList{names[0]});

    tevtest::MouseMove(window->Viewer(), QPoint(100, 100));
    EXPECT_TRUE(window->statusBar()->currentMessage().contains("Screen Coordinate:"));
}

// A command that fails half way, with its transaction open, reached by its shortcut: the
// failure is caught in notify(), reported in red, the half-made change is gone, and the
// document and the window go on working.
TEST_F(MainWindowTest, AFailureCaughtInNotifyLeavesTheDocumentUsable)
{
    DrawBox();
    ASSERT_EQ(Shapes().size(), 1u);
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();
    auto* failing = new QAction("Failing command", window.get());
    failing->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    window->addAction(failing);
    QObject::connect(failing, &QAction::triggered, [] {
        ShapeDocMgr* doc = ShapeDocMgr::GetInstance();
        doc->StartTransaction();
        ShapeLabelMgr::GetInstance()->AddShapeToDoc(doc->GetDoc(), BRepPrimAPI_MakeSphere(5).Shape(), "Sphere");
        throw Standard_Failure("injected failure");
    });
    ASSERT_TRUE(tevtest::ActivateAndWait(window.get()));
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::qWait(30);

    ASSERT_EQ(window->Messages()->FaultCount(), 1);
    EXPECT_EQ(window->Messages()->Lines().back().first, 2);
    EXPECT_TRUE(window->Messages()->Lines().back().second.contains("injected failure"));
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    ASSERT_EQ(Shapes().size(), 1u);
    EXPECT_NEAR(Volume(Shapes()[0]), 60000.0, 1e-6);
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
    EXPECT_EQ(window->ModelTree()->Names().size(), 1);

    DrawLine();
    EXPECT_EQ(Shapes().size(), 2u);
    Trigger("actionUndo");
    EXPECT_EQ(Shapes().size(), 1u);
}


// The last message of the panel: its level and text.
std::pair<int, QString> LastMessage(TevMainWindow* window)
{
    const auto& lines = window->Messages()->Lines();
    return lines.empty() ? std::make_pair(-1, QString()) : lines.back();
}

TEST_F(MainWindowTest, AnalysisCommandsSayWhatIsMissing)
{
    Trigger("actionVolumeMesh");
    EXPECT_EQ(LastMessage(window.get()), std::make_pair(2, QString("No solid selected: select a solid to mesh")));
    Trigger("actionFixFace");
    EXPECT_EQ(LastMessage(window.get()), std::make_pair(2, QString("No volume mesh: mesh a solid first")));
    Trigger("actionLoadFace");
    EXPECT_EQ(LastMessage(window.get()), std::make_pair(2, QString("No volume mesh: mesh a solid first")));
    Trigger("actionSolve");
    EXPECT_EQ(LastMessage(window.get()), std::make_pair(2, QString("No volume mesh: mesh a solid first")));
    EXPECT_EQ(window->AnalysisPanel()->Mesh(), nullptr);
}

// A drawn box meshed through the action, faces picked (put in the selection list as a click at
// the face level does), then a solve with a solver path that does not exist: the fault is
// reported, and the document, mesh and model are as they were and can be solved again.
TEST_F(MainWindowTest, AnalysisOfADrawnBoxReportsAMissingSolver)
{
    DrawBox();
    ASSERT_EQ(Shapes().size(), 1u);
    const TopoDS_Shape box = Shapes()[0];
    window->ModelTree()->topLevelItem(0)->setSelected(true);
    TevAnalysisPanel* panel = window->AnalysisPanel();
    panel->SetElementSize(10.0);
    panel->SetOrder(1);
    Trigger("actionVolumeMesh");
    ASSERT_NE(panel->Mesh(), nullptr) << LastMessage(window.get()).second.toStdString();
    EXPECT_EQ(window->Tabs()->currentWidget(), panel);

    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(box, TopAbs_FACE, faces);
    ASSERT_EQ(faces.Extent(), 6);
    SelectionMgr::GetInstance()->ClearSelList();
    Trigger("actionFixFace");
    EXPECT_EQ(LastMessage(window.get()), std::make_pair(2, QString("Pick a face (select faces, then click one)")));
    const TopoDS_Shape first = faces(1), second = faces(2);
    SelectionMgr::GetInstance()->AddToSelectionList(&first);
    Trigger("actionFixFace");
    EXPECT_EQ(panel->Model()->FixedFace(), 1);
    SelectionMgr::GetInstance()->ClearSelList();
    SelectionMgr::GetInstance()->AddToSelectionList(&second);
    panel->SetLoad(true, 1.0, 0.0, 0.0);
    Trigger("actionLoadFace");
    EXPECT_EQ(panel->Model()->LoadFace(), 2);
    EXPECT_EQ(panel->Model()->Load(), TevAnalysisModel::LoadKind::Pressure);
    SelectionMgr::GetInstance()->ClearSelList();

    panel->SetSolver(Path("no-such-solver"));
    bool ended = false, ok = true;
    QObject::connect(panel, &TevAnalysisPanel::m_signal_Solved, [&](bool done) { ended = true, ok = done; });
    Trigger("actionSolve");
    for (int i = 0; i < 200 && !ended; ++i) QTest::qWait(20);
    ASSERT_TRUE(ended);
    EXPECT_FALSE(ok);
    EXPECT_EQ(LastMessage(window.get()), std::make_pair(2, "The solver could not be started: " + Path("no-such-solver")));
    ASSERT_EQ(Shapes().size(), 1u);
    EXPECT_NEAR(Volume(Shapes()[0]), 60000.0, 1e-6);
    EXPECT_NE(panel->Model()->Build(nullptr), nullptr);
    EXPECT_FALSE(panel->Job()->IsRunning());
}

}  // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    TevDemoApplication app(argc, argv);
    return RUN_ALL_TESTS();
}

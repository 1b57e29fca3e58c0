// The widget core on a shown viewer: construction, renderer set-up, the mouse and key paths with
// real Qt events, interaction modes, close refusals and the picture it draws.
#include "GuiTestSupport.h"
#include "RecordingOp.h"
#include "TevBasicViewerTestPeer.h"
#include "ViewerFixture.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <vtkCallbackCommand.h>
#include <vtkCamera.h>
#include <vtkInteractorObserver.h>
#include <gp_Pln.hxx>
#include <vtkAbstractPicker.h>
#include <vtkPropCollection.h>
#include <vtkRendererCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>
#include <vtkTextActor.h>
#include <vtkTextProperty.h>

#include <cmath>

using tevtest::ViewerTest;

namespace {

// Opens the protected parts the tests read.
class ProbeViewer : public TevBasicViewer
{
public:
    explicit ProbeViewer(std::string name) : TevBasicViewer(std::move(name)) {}
    using TevBasicViewer::IsCtrlPressed;
};

bool StyleIs(TevBasicViewer* v, const char* className)
{
    vtkInteractorObserver* style = v->GetInteractor()->GetInteractorStyle();
    return style && style->IsA(className);
}

// The world point of widget pixel (x, y) on the near clipping plane, computed from the parallel
// camera alone: display row h - y (the bottom row is 1), normalised to [-1, 1] over the
// viewport, scaled by the parallel scale, on the plane at the near clipping distance.
void ExpectedNearPoint(TevBasicViewer* v, int x, int y, double out[3])
{
    vtkRenderer* ren = v->GetDefaultRender();
    vtkCamera* cam = ren->GetActiveCamera();
    const int* size = ren->GetSize();
    const double w = size[0], h = size[1];
    const double dx = 2.0 * x / w - 1.0;
    const double dy = 2.0 * (v->height() - y) / h - 1.0;
    const double s = cam->GetParallelScale();
    double up[3], dop[3], right[3];
    cam->GetViewUp(up);
    cam->GetDirectionOfProjection(dop);
    right[0] = dop[1] * up[2] - dop[2] * up[1];
    right[1] = dop[2] * up[0] - dop[0] * up[2];
    right[2] = dop[0] * up[1] - dop[1] * up[0];
    const double* pos = cam->GetPosition();
    const double nearDist = cam->GetClippingRange()[0];
    for (int i = 0; i < 3; ++i)
        out[i] = pos[i] + nearDist * dop[i] + dx * s * (w / h) * right[i] + dy * s * up[i];
}

class TevBasicViewerTest : public ViewerTest
{
protected:
    RecordingOp op;
    void StartRecording() { DrawOpMgr::GetInstance()->StartOp(&op, viewer.get()); }
};

TEST(TevBasicViewerConstruction, DefaultsBeforeInit)
{
    TevBasicViewer v;
    EXPECT_EQ(v.GetName(), "TevPlatform");
    EXPECT_EQ(v.GetViewerType(), VIEW_TYPE_MAIN);
    EXPECT_EQ(v.GetCurrentOperationMode(), MOUSE_OP_SELECT);
    EXPECT_EQ(v.GetGrid(), nullptr);
    EXPECT_EQ(v.GetFEMModel(), nullptr);
    EXPECT_EQ(v.GetDefaultRender(), nullptr);
    EXPECT_TRUE(StyleIs(&v, "vtkInteractorStyleRubberBand3D"));
    EXPECT_EQ(v.parent(), nullptr);
    EXPECT_EQ(MOUSE_OP_PAN, 2);
    EXPECT_EQ(VIEW_TYPE_MESH, 1);
}

TEST(TevBasicViewerConstruction, SignalsAndSlotsInMetaObjectOrder)
{
    const char* expected[] = {
        "m_signal_Menu(QPoint)", "m_signal_StatusBar(QString)", "m_signal_SelChange(QString)",
        "m_signal_ViewerUpdated()", "m_Slot_SetSelectionBody()", "m_Slot_SetSelectionFace()",
        "m_Slot_SetSelectionEdge()", "m_Slot_DisplayByWireFrame()", "m_Slot_DisplayBySurface()",
        "m_Slot_DisplayByPoint()", "m_Slot_SetFaceAsWorkPlane()", "SelectionUpdate(QString)",
        "m_slot_ContextMenu(QPoint)", "m_Slot_BoolSubtract()", "m_Slot_BoolIntersect()",
        "m_Slot_BoolUnite()", "m_Slot_OKCurrentOp()", "CreateRightMenu()", "CreateAxis()",
        "CreatePlaneGrid()", "InitMainRender()", "UpdateSelectionLevel()"};
    const QMetaObject& mo = TevBasicViewer::staticMetaObject;
    ASSERT_EQ(mo.methodCount() - mo.methodOffset(), 22);
    for (int i = 0; i < 22; ++i) {
        QMetaMethod m = mo.method(mo.methodOffset() + i);
        EXPECT_EQ(m.methodSignature().toStdString(), expected[i]) << "index " << i;
        EXPECT_EQ(m.methodType(), i < 4 ? QMetaMethod::Signal : QMetaMethod::Slot) << i;
    }
}

TEST_F(TevBasicViewerTest, InitViewerBuildsTheScene)
{
    EXPECT_EQ(viewer->minimumWidth(), 500);
    EXPECT_EQ(viewer->minimumHeight(), 400);
    vtkRenderer* ren = viewer->GetDefaultRender();
    ASSERT_NE(ren, nullptr);
    // The scene's renderer comes first; the axes marker widget brings its own small viewport.
    EXPECT_EQ(viewer->GetRenderWindow()->GetRenderers()->GetFirstRenderer(), ren);
    EXPECT_TRUE(ren->GetGradientBackground());
    EXPECT_DOUBLE_EQ(ren->GetBackground()[0], 1.0);
    EXPECT_DOUBLE_EQ(ren->GetBackground()[1], 1.0);
    EXPECT_DOUBLE_EQ(ren->GetBackground()[2], 0.9);
    EXPECT_DOUBLE_EQ(ren->GetBackground2()[0], 0.0);
    EXPECT_DOUBLE_EQ(ren->GetBackground2()[1], 0.8);
    EXPECT_DOUBLE_EQ(ren->GetBackground2()[2], 0.9);
    EXPECT_TRUE(ren->GetActiveCamera()->GetParallelProjection());
    EXPECT_TRUE(StyleIs(viewer.get(), "vtkInteractorStyleRubberBand3D"));
    EXPECT_TRUE(viewer->GetInteractor()->GetPicker()->IsA("IVtkTools_ShapePicker"));
    // The name text.
    vtkTextActor* text = nullptr;
    vtkPropCollection* props = ren->GetViewProps();
    props->InitTraversal();
    while (vtkProp* p = props->GetNextProp())
        if (auto* t = vtkTextActor::SafeDownCast(p)) text = t;
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text->GetInput(), "TevPlatform");
    EXPECT_EQ(text->GetTextProperty()->GetFontSize(), 15);
    EXPECT_DOUBLE_EQ(text->GetTextProperty()->GetColor()[0], 1.0);
    EXPECT_DOUBLE_EQ(text->GetTextProperty()->GetColor()[1], 0.0);
    double* pos = text->GetPositionCoordinate()->GetValue();
    EXPECT_EQ(pos[0], 10.0);
    EXPECT_EQ(pos[1], 10.0);
    // The XY view: looking down -Z with Y up, and the XY work plane.
    double dop[3];
    ren->GetActiveCamera()->GetDirectionOfProjection(dop);
    EXPECT_NEAR(dop[2], -1.0, 1e-12);
    EXPECT_NEAR(ren->GetActiveCamera()->GetViewUp()[1], 1.0, 1e-12);
    ASSERT_FALSE(viewer->GetCurrentPlane().IsNull());
    EXPECT_NEAR(viewer->GetCurrentPlane()->Pln().Axis().Direction().Z(), 1.0, 1e-12);
}

TEST(TevBasicViewerConstruction, MeshViewerNameHasNoAxesNoGridNoPlane)
{
    auto mesh = tevtest::MakeShownViewer("CAE-TevViewer");
    auto main = tevtest::MakeShownViewer("CAE-TevViewer2");
    EXPECT_EQ(mesh->GetGrid(), nullptr);
    EXPECT_TRUE(mesh->GetCurrentPlane().IsNull());
    EXPECT_FALSE(main->GetCurrentPlane().IsNull());
    // The mesh view holds the name text alone; the other also the axes.
    EXPECT_EQ(mesh->GetDefaultRender()->GetViewProps()->GetNumberOfItems(), 1);
    EXPECT_EQ(mesh->GetRenderWindow()->GetRenderers()->GetNumberOfItems(), 1);
    EXPECT_GT(main->GetDefaultRender()->GetViewProps()->GetNumberOfItems(), 1);
}

TEST_F(TevBasicViewerTest, MoveSendsType1WithTheNearPlanePointAndStatusText)
{
    StartRecording();
    DrawOpMgr::GetInstance()->SetOutputString("Snap Grid:1.00000, 2.00000, 0.00000");
    QSignalSpy status(viewer.get(), &TevBasicViewer::m_signal_StatusBar);
    tevtest::MouseMove(viewer.get(), QPoint(200, 150));
    ASSERT_EQ(op.calls.size(), 2u);
    EXPECT_EQ(op.calls[1].name, "MovePoint");
    EXPECT_EQ(op.calls[1].type, 1);
    double expected[3];
    ExpectedNearPoint(viewer.get(), 200, 150, expected);
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(op.calls[1].point[i], expected[i], 1e-6) << i;
    ASSERT_EQ(status.count(), 1);
    const int flipped = viewer->height() - 150;
    EXPECT_EQ(status.at(0).at(0).toString(),
              QString("Screen Coordinate:(200,%1)   Snap Grid:1.00000, 2.00000, 0.00000").arg(flipped));
}

TEST_F(TevBasicViewerTest, BottomRowIsDisplayRowOne)
{
    StartRecording();
    QSignalSpy status(viewer.get(), &TevBasicViewer::m_signal_StatusBar);
    tevtest::MouseMove(viewer.get(), QPoint(0, viewer->height() - 1));
    ASSERT_EQ(status.count(), 1);
    EXPECT_EQ(status.at(0).at(0).toString(), "Screen Coordinate:(0,1)   ");
    double expected[3];
    ExpectedNearPoint(viewer.get(), 0, viewer->height() - 1, expected);
    EXPECT_NEAR(op.calls.back().point[1], expected[1], 1e-6);
}

TEST_F(TevBasicViewerTest, PressReachesNothingReleaseAndDoubleClickDo)
{
    StartRecording();
    QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
    QSignalSpy menu(viewer.get(), &TevBasicViewer::m_signal_Menu);
    const QPoint p(320, 240);
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, p);
    EXPECT_EQ(op.calls.size(), 1u);  // InitAction only
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, p);
    ASSERT_EQ(op.calls.size(), 2u);
    EXPECT_EQ(op.calls[1].type, 3);
    EXPECT_EQ(updated.count(), 1);
    double expected[3];
    ExpectedNearPoint(viewer.get(), p.x(), p.y(), expected);
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(op.calls[1].point[i], expected[i], 1e-6);

    {
        // The right release opens the menu inside the widget; it is closed again at once.
        EXPECT_TRUE(tevtest::ActivateAndWait(viewer.get()));
        tevtest::MenuSeen seen;
        tevtest::MenuAnswer answer(QStringList(), &seen);
        QTest::mousePress(viewer.get(), Qt::RightButton, Qt::NoModifier, p);
        QTest::mouseRelease(viewer.get(), Qt::RightButton, Qt::NoModifier, p);
        EXPECT_TRUE(seen.shown);
    }
    ASSERT_EQ(op.calls.size(), 3u);
    EXPECT_EQ(op.calls[2].type, 6);
    ASSERT_EQ(menu.count(), 1);
    EXPECT_EQ(menu.at(0).at(0).toPoint(), p);

    QTest::mouseDClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, p);
    ASSERT_EQ(op.calls.size(), 4u);
    EXPECT_EQ(op.calls[3].type, 4);
    EXPECT_EQ(op.calls[3].name, "LButtonDoubleClick");

    // A middle release reaches no operation but still ends in a redraw.
    QTest::mousePress(viewer.get(), Qt::MiddleButton, Qt::NoModifier, p);
    QTest::mouseRelease(viewer.get(), Qt::MiddleButton, Qt::NoModifier, p);
    EXPECT_EQ(op.calls.size(), 4u);
    EXPECT_EQ(updated.count(), 3);
}

TEST_F(TevBasicViewerTest, ReleaseWithoutOperationStillRedraws)
{
    QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
    QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    EXPECT_EQ(updated.count(), 1);
}

TEST_F(TevBasicViewerTest, PressAndReleasePositionsAreTheEventsOwn)
{
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 120));
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 300));
    const int h = viewer->height();
    EXPECT_EQ(TevBasicViewerTestPeer::PressPos(*viewer)[0], 100);
    EXPECT_EQ(TevBasicViewerTestPeer::PressPos(*viewer)[1], h - 120 - 1);  // VTK rows count from 0 at the bottom
    EXPECT_EQ(TevBasicViewerTestPeer::ReleasePos(*viewer)[0], 250);
    EXPECT_EQ(TevBasicViewerTestPeer::ReleasePos(*viewer)[1], h - 300 - 1);
    EXPECT_TRUE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
}

TEST_F(TevBasicViewerTest, ClickAndStraightDragsArePointPicks)
{
    QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    EXPECT_FALSE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 100));
    EXPECT_FALSE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 300));
    EXPECT_FALSE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
}

TEST_F(TevBasicViewerTest, RightDragShowsNoMenuInSelectModeButDoesInRotateMode)
{
    QSignalSpy menu(viewer.get(), &TevBasicViewer::m_signal_Menu);
    // Each drag runs while a menu answerer waits: whether a menu showed is what it saw.
    auto rightDrag = [&](QPoint from, QPoint to) {
        EXPECT_TRUE(tevtest::ActivateAndWait(viewer.get()));
        tevtest::MenuSeen seen;
        tevtest::MenuAnswer answer(QStringList(), &seen);
        QTest::mousePress(viewer.get(), Qt::RightButton, Qt::NoModifier, from);
        QTest::mouseRelease(viewer.get(), Qt::RightButton, Qt::NoModifier, to);
        return seen.shown;
    };
    EXPECT_FALSE(rightDrag(QPoint(100, 100), QPoint(200, 200)));
    EXPECT_EQ(menu.count(), 0);
    // A straight right drag is a click.
    EXPECT_TRUE(rightDrag(QPoint(100, 100), QPoint(200, 100)));
    EXPECT_EQ(menu.count(), 1);
    viewer->SetCurrentOperationMode(MOUSE_OP_ROTATE);
    EXPECT_TRUE(rightDrag(QPoint(100, 100), QPoint(200, 200)));
    EXPECT_EQ(menu.count(), 2);
    EXPECT_EQ(menu.at(1).at(0).toPoint(), QPoint(200, 200));
}

TEST_F(TevBasicViewerTest, InRotateOrZoomModeEveryLeftReleaseIsAPointPick)
{
    for (MOUSE_OP_MODE mode : {MOUSE_OP_ROTATE, MOUSE_OP_ZOOM}) {
        viewer->SetCurrentOperationMode(mode);
        QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
        QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
        EXPECT_FALSE(TevBasicViewerTestPeer::IsRectRelease(*viewer)) << mode;
    }
    viewer->SetCurrentOperationMode(MOUSE_OP_SELECT);
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
    EXPECT_TRUE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
}

TEST_F(TevBasicViewerTest, ModesInstallTheirStylesAndPanOnlyStores)
{
    viewer->SetCurrentOperationMode(MOUSE_OP_ROTATE);
    EXPECT_TRUE(StyleIs(viewer.get(), "vtkInteractorStyleTrackballCamera"));
    viewer->SetCurrentOperationMode(MOUSE_OP_ZOOM);
    EXPECT_TRUE(StyleIs(viewer.get(), "vtkInteractorStyleRubberBandZoom"));
    viewer->SetCurrentOperationMode(MOUSE_OP_SELECT);
    EXPECT_TRUE(StyleIs(viewer.get(), "vtkInteractorStyleRubberBand3D"));
    vtkInteractorObserver* before = viewer->GetInteractor()->GetInteractorStyle();
    viewer->SetCurrentOperationMode(MOUSE_OP_PAN);
    EXPECT_EQ(viewer->GetCurrentOperationMode(), MOUSE_OP_PAN);
    EXPECT_EQ(viewer->GetInteractor()->GetInteractorStyle(), before);
    // Rectangle selection is off in pan mode although the rubber-band style is still there.
    QTest::mousePress(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QTest::mouseRelease(viewer.get(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
    EXPECT_FALSE(TevBasicViewerTestPeer::IsRectRelease(*viewer));
    viewer->SetCurrentOperationMode(static_cast<MOUSE_OP_MODE>(7));
    EXPECT_EQ(viewer->GetInteractor()->GetInteractorStyle(), before);
}

// One key event as the window system delivers it, `state` being the modifiers held before the
// key (QKeyEvent::modifiers() then adds or removes the key itself when it is a modifier).
// QTest's keyPress and keyRelease would add presses and releases of the modifier keys.
void Key(QWidget* w, bool press, Qt::Key key, Qt::KeyboardModifiers state)
{
    QTest::simulateEvent(w, press, key, state, QString(), false);
}

TEST(TevBasicViewerKeys, CtrlAloneSetsTheFlagAndReleasingCtrlClearsIt)
{
    auto probe = tevtest::MakeShownViewer<ProbeViewer>();
    ProbeViewer* v = probe.get();
    TevBasicViewer* viewer = v;
    EXPECT_FALSE(v->IsCtrlPressed());
    Key(viewer, true, Qt::Key_Control, Qt::NoModifier);
    EXPECT_TRUE(v->IsCtrlPressed());
    Key(viewer, false, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(v->IsCtrlPressed());
    Key(viewer, false, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_FALSE(v->IsCtrlPressed());
    // Ctrl pressed while Shift is held does not count.
    Key(viewer, true, Qt::Key_Control, Qt::ShiftModifier);
    EXPECT_FALSE(v->IsCtrlPressed());
    // Any key pressed with Ctrl alone does; releasing Ctrl clears it whatever else is held.
    Key(viewer, true, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(v->IsCtrlPressed());
    Key(viewer, false, Qt::Key_Control, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(v->IsCtrlPressed());
    // QTest's own sequences: Ctrl+B, and Ctrl+Alt+B.
    QTest::keyPress(viewer, Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(v->IsCtrlPressed());
    QTest::keyRelease(viewer, Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(v->IsCtrlPressed());
    QTest::keyPress(viewer, Qt::Key_B, Qt::ControlModifier | Qt::AltModifier);
    Key(viewer, false, Qt::Key_Control, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_FALSE(v->IsCtrlPressed());
    Key(viewer, true, Qt::Key_B, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_FALSE(v->IsCtrlPressed());
}

TEST_F(TevBasicViewerTest, EscapeWithoutOperationClearsTheSelection)
{
    QSignalSpy sel(viewer.get(), &TevBasicViewer::m_signal_SelChange);
    QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    ASSERT_EQ(sel.count(), 1);
    EXPECT_EQ(sel.at(0).at(0).toString(), "");
    EXPECT_EQ(updated.count(), 1);
}

TEST_F(TevBasicViewerTest, EscapeWithAnOperationCancelsItAndKeepsTheSelection)
{
    StartRecording();
    QSignalSpy sel(viewer.get(), &TevBasicViewer::m_signal_SelChange);
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(sel.count(), 0);
    EXPECT_EQ(op.Names(), (std::vector<std::string>{"InitAction", "ActionCancelled", "FinishCurrentOp"}));
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), nullptr);
}

TEST_F(TevBasicViewerTest, OtherKeysReachNoOperationButRedraw)
{
    StartRecording();
    QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
    QTest::keyClick(viewer.get(), Qt::Key_Return);
    QTest::keyClick(viewer.get(), Qt::Key_W);
    QTest::keyClick(viewer.get(), Qt::Key_Tab);
    EXPECT_EQ(op.Names(), (std::vector<std::string>{"InitAction"}));
    EXPECT_EQ(updated.count(), 3);  // Tab reaches the widget, not the focus chain
    // VTK's own key bindings ("w" for wireframe) never run: keys are not forwarded.
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), &op);
}

TEST_F(TevBasicViewerTest, MainViewerRefusesToClose)
{
    tevtest::BoxSeen seen;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &seen);
    EXPECT_FALSE(viewer->close());
    EXPECT_TRUE(seen.shown);
    EXPECT_EQ(seen.title, "Notify");
    EXPECT_EQ(seen.text, "Main viewer can't be closed");
    EXPECT_TRUE(viewer->isVisible());
}

TEST_F(TevBasicViewerTest, MeshViewerAsksBeforeClosing)
{
    viewer->SetViewerType(VIEW_TYPE_MESH);
    tevtest::BoxSeen seen;
    tevtest::AnswerNextMessageBox(QMessageBox::No, &seen);
    EXPECT_FALSE(viewer->close());
    EXPECT_EQ(seen.title, "Notify");
    EXPECT_EQ(seen.text, "Current Mesh Data would be lost, Confirm?");
    EXPECT_TRUE(viewer->isVisible());

    tevtest::BoxSeen again;
    tevtest::AnswerNextMessageBox(QMessageBox::Yes, &again);
    EXPECT_TRUE(viewer->close());
    EXPECT_TRUE(again.shown);
    EXPECT_FALSE(viewer->isVisible());
}

TEST_F(TevBasicViewerTest, ConfirmEndsTheCurrentOperationAndWithoutOneDoesNothing)
{
    QMetaObject::invokeMethod(viewer.get(), "m_Slot_OKCurrentOp");
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), nullptr);
    StartRecording();
    QMetaObject::invokeMethod(viewer.get(), "m_Slot_OKCurrentOp");
    EXPECT_EQ(op.Names(), (std::vector<std::string>{"InitAction", "FinishCurrentOp"}));
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), nullptr);
}

TEST_F(TevBasicViewerTest, StandardViewsPlaceTheCamera)
{
    vtkCamera* cam = viewer->GetDefaultRender()->GetActiveCamera();
    struct View {
        void (TevBasicViewer::*set)();
        double dir[3];  // position minus focal point, over d
        double up[3];
    } views[] = {
        {&TevBasicViewer::SetXY, {0, 0, 1}, {0, 1, 0}},   {&TevBasicViewer::SetYX, {0, 0, -1}, {1, 0, 0}},
        {&TevBasicViewer::SetXZ, {0, -1, 0}, {0, 0, 1}},  {&TevBasicViewer::SetZX, {0, 1, 0}, {1, 0, 0}},
        {&TevBasicViewer::SetYZ, {1, 0, 0}, {0, 0, 1}},   {&TevBasicViewer::SetZY, {-1, 0, 0}, {0, 1, 0}},
        {&TevBasicViewer::SetISO, {0.5, 0.5, 0.5}, {0, 0, 1}},
    };
    for (const View& v : views) {
        (viewer.get()->*v.set)();
        viewer->GetDefaultRender()->ResetCamera();
        const double* f = cam->GetFocalPoint();
        const double* p = cam->GetPosition();
        // ResetCamera puts the camera at distance d, whatever the direction.
        const double d = std::sqrt((p[0] - f[0]) * (p[0] - f[0]) + (p[1] - f[1]) * (p[1] - f[1]) +
                                   (p[2] - f[2]) * (p[2] - f[2]));
        (viewer.get()->*v.set)();
        p = cam->GetPosition();
        f = cam->GetFocalPoint();
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(p[i] - f[i], v.dir[i] * d, 1e-6 * d) << i;
            EXPECT_NEAR(cam->GetViewUp()[i], v.up[i], 1e-9) << i;
        }
        EXPECT_TRUE(cam->GetParallelProjection());
    }
}

// Counts each finished render of the viewer's window into `renders`.
void CountRenders(TevBasicViewer* viewer, int* renders)
{
    auto counter = vtkSmartPointer<vtkCallbackCommand>::New();
    counter->SetClientData(renders);
    counter->SetCallback([](vtkObject*, unsigned long, void* count, void*) { ++*static_cast<int*>(count); });
    viewer->GetRenderWindow()->AddObserver(vtkCommand::EndEvent, counter);
}

TEST_F(TevBasicViewerTest, UpdatesOfOneEventRenderOnceAndShowTheChange)
{
    QTest::qWait(50);
    int renders = 0;
    CountRenders(viewer.get(), &renders);
    viewer->GetDefaultRender()->SetBackground(0.0, 0.0, 0.0);
    viewer->GetDefaultRender()->SetBackground2(0.0, 0.0, 0.0);
    viewer->update();
    viewer->update();
    viewer->UpdateViewer();
    EXPECT_EQ(renders, 0);  // nothing renders before control returns to the event loop
    QImage img = tevtest::GrabRendered(viewer.get());
    EXPECT_EQ(renders, 1);
    const QColor c = img.pixelColor(img.width() - 5, img.height() / 2);
    EXPECT_LT(c.red() + c.green() + c.blue(), 10);
}

// A host that holds the viewer as a QWidget* and calls update() gets the scene rendered: the
// render comes from Qt's paint, not from an overload that such a call would not reach.
TEST_F(TevBasicViewerTest, UpdateThroughAQWidgetPointerRendersTheChange)
{
    QTest::qWait(50);
    int renders = 0;
    CountRenders(viewer.get(), &renders);
    // A plain red background everywhere: any pixel of the picture then reads (255, 0, 0).
    viewer->GetDefaultRender()->SetBackground(1.0, 0.0, 0.0);
    viewer->GetDefaultRender()->SetBackground2(1.0, 0.0, 0.0);
    QWidget* host = viewer.get();
    host->update();
    host->update();
    EXPECT_EQ(renders, 0);  // nothing renders before control returns to the event loop
    QImage img = tevtest::GrabRendered(viewer.get());
    EXPECT_EQ(renders, 1);
    const QColor c = img.pixelColor(img.width() - 5, img.height() / 2);
    EXPECT_EQ(c.red(), 255);
    EXPECT_EQ(c.green(), 0);
    EXPECT_EQ(c.blue(), 0);
    // The repaint that shows the new frame does not render again: the widget does not keep
    // itself busy.
    QTest::qWait(300);
    EXPECT_EQ(renders, 1);
}

TEST_F(TevBasicViewerTest, RenderedImageShowsTheGradient)
{
    QImage img = tevtest::GrabRendered(viewer.get());
    ASSERT_FALSE(img.isNull());
    const int w = img.width(), h = img.height();
    // Top row: the second colour (0.0, 0.8, 0.9); bottom row: the first (1.0, 1.0, 0.9). Read
    // at the right edge, away from the name text and the axes marker.
    QColor top = img.pixelColor(w - 5, 1);
    QColor bottom = img.pixelColor(w - 5, h - 2);
    EXPECT_NEAR(top.red(), 0, 6);
    EXPECT_NEAR(top.green(), 204, 6);
    EXPECT_NEAR(top.blue(), 230, 6);
    EXPECT_NEAR(bottom.red(), 255, 6);
    EXPECT_NEAR(bottom.green(), 255, 6);
    EXPECT_NEAR(bottom.blue(), 230, 6);
    QColor middle = img.pixelColor(w - 5, h / 2);
    EXPECT_NEAR(middle.red(), 128, 10);
}

// Counts strongly red pixels in the lower-left corner where the name is drawn.
int RedPixelsOfTheName(const QImage& img)
{
    int red = 0;
    for (int y = img.height() - 40; y < img.height() - 5; ++y)
        for (int x = 5; x < 200; ++x) {
            QColor c = img.pixelColor(x, y);
            if (c.red() > 180 && c.green() < 90 && c.blue() < 90) ++red;
        }
    return red;
}

TEST(TevBasicViewerPicture, NameTextIsDrawnInRed)
{
    // A bare mesh view has no axes marker in that corner, so the red is the text alone.
    auto named = tevtest::MakeShownViewer("CAE-TevViewer");
    const int withText = RedPixelsOfTheName(tevtest::GrabRendered(named.get()));
    EXPECT_GT(withText, 40);
    QImage shot = tevtest::GrabRendered(named.get());
    // The text sits on the lowest rows, not above them.
    int highest = shot.height();
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 5; x < 200; ++x) {
            QColor c = shot.pixelColor(x, y);
            if (c.red() > 180 && c.green() < 90 && c.blue() < 90) highest = std::min(highest, y);
        }
    EXPECT_GT(highest, shot.height() - 40);
}

}  // namespace

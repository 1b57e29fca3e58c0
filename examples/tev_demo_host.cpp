// A small host application of the viewer: a main window with the widget in the middle, its
// status texts in the status bar and the message panel below. It does what a host is expected
// to do: create the widget, InitViewer(), connect the four signals, open the document,
// RefreshViewer(), and start drawing operations through DrawOpMgr.
//
//   tev_demo_host                     interactive: draws lines until Escape
//   tev_demo_host --screenshot FILE   draws a line, a circle and a rectangle, then a box, a
//                                     cylinder and a sphere by simulated clicks (the heights
//                                     typed into the dialog as a user would), turns to the
//                                     isometric view, saves the window as PNG and quits
#include "DrawBoxOp.h"
#include "DrawCircleByCenterRadiusOp.h"
#include "DrawCylinderOp.h"
#include "DrawLineOp.h"
#include "DrawOpMgr.h"
#include "DrawRectangleOp.h"
#include "DrawSphereOp.h"
#include "DrawerOutput.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPushButton>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QSurfaceFormat>
#include <QTimer>
#include <QVTKOpenGLNativeWidget.h>
#include <vtkCamera.h>
#include <vtkCoordinate.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <cmath>
#include <cstdio>
#include <cstring>

static const char* ScreenshotPath(int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], "--screenshot") == 0) return argv[i + 1];
    return nullptr;
}

// The widget pixel where a world point is drawn.
static QPoint PixelOf(TevBasicViewer* viewer, double x, double y, double z)
{
    auto coord = vtkSmartPointer<vtkCoordinate>::New();
    coord->SetCoordinateSystemToWorld();
    coord->SetValue(x, y, z);
    const double* d = coord->GetComputedDoubleDisplayValue(viewer->GetDefaultRender());
    return QPoint(static_cast<int>(std::lround(d[0])), viewer->height() - 1 - static_cast<int>(std::lround(d[1])));
}

// What a user's hand does: move there, press and release the left button.
static void ClickAt(TevBasicViewer* viewer, double x, double y)
{
    const QPoint pos = PixelOf(viewer, x, y, 0.0);
    const QPoint global = viewer->mapToGlobal(pos);
    QMouseEvent move(QEvent::MouseMove, pos, global, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QMouseEvent press(QEvent::MouseButtonPress, pos, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, pos, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(viewer, &move);
    QApplication::sendEvent(viewer, &press);
    QApplication::sendEvent(viewer, &release);
}

// What a user does with the height dialog that the next click opens: types `height` and
// presses OK. The dialog runs modally inside that click, so the answer comes from a timer.
static void AnswerHeightLater(const char* height)
{
    auto* timer = new QTimer();
    timer->setInterval(20);
    QObject::connect(timer, &QTimer::timeout, [timer, height]() {
        auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dlg || !dlg->inherits("DataInputDlg")) return;
        timer->stop();
        timer->deleteLater();
        if (auto* edit = dlg->findChild<QLineEdit*>("lineEdit")) edit->setText(height);
        auto* buttons = dlg->findChild<QDialogButtonBox*>("buttonBox");
        if (buttons && buttons->button(QDialogButtonBox::Ok)) buttons->button(QDialogButtonBox::Ok)->click();
        else dlg->accept();
    });
    timer->start();
}

// A box, a cylinder and a sphere, clear of the curves, by clicks on grid points of the XY plane.
static void DrawSolidsScripted(TevBasicViewer* viewer)
{
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    static DrawBoxOp box;
    mgr->StartOp(&box, viewer);
    ClickAt(viewer, 10, 50);
    AnswerHeightLater("30");
    ClickAt(viewer, 50, 80);
    static DrawCylinderOp cylinder;
    mgr->StartOp(&cylinder, viewer);
    ClickAt(viewer, -80, 80);
    AnswerHeightLater("40");
    ClickAt(viewer, -65, 80);
    static DrawSphereOp sphere;
    mgr->StartOp(&sphere, viewer);
    ClickAt(viewer, -20, -70);
    ClickAt(viewer, -5, -70);
}

// A line, a circle and a rectangle, each by clicks on grid points of the XY plane, then the
// solids.
static void DrawScripted(TevBasicViewer* viewer)
{
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    static DrawLineOp line;
    mgr->StartOp(&line, viewer);
    ClickAt(viewer, -80, -60);
    ClickAt(viewer, 80, 60);
    static DrawCircleByCenterRadiusOp circle;
    mgr->StartOp(&circle, viewer);
    ClickAt(viewer, -40, 30);
    ClickAt(viewer, -10, 30);
    static DrawRectangleOp rectangle;
    mgr->StartOp(&rectangle, viewer);
    ClickAt(viewer, 20, -70);
    ClickAt(viewer, 70, -20);
    DrawSolidsScripted(viewer);
    // The first Escape ends the sphere, which starts over after each one; the second, with no
    // operation left, clears the selection that the last click made.
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(viewer, &escape);
    QApplication::sendEvent(viewer, &escape);
}

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--help") == 0) {
        std::printf("usage: tev_demo_host [--screenshot FILE]\n");
        return 0;
    }
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    const char* shot = ScreenshotPath(argc, argv);

    QMainWindow window;
    window.setWindowTitle("TevBasicViewer demo host");
    auto* viewer = new TevBasicViewer("TevPlatform");
    viewer->InitViewer();
    window.setCentralWidget(viewer);

    auto* messages = new QPlainTextEdit();
    messages->setReadOnly(true);
    auto* dock = new QDockWidget("Messages");
    dock->setWidget(messages);
    window.addDockWidget(Qt::BottomDockWidgetArea, dock);
    QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                     [messages](int level, QString text) {
                         messages->appendPlainText(level >= 2 ? "Error: " + text : text);
                     });
    QObject::connect(viewer, &TevBasicViewer::m_signal_StatusBar,
                     [&window](QString text) { window.statusBar()->showMessage(text); });
    window.statusBar()->showMessage("Ready");

    ShapeDocMgr::GetInstance();
    viewer->RefreshViewer();
    window.resize(900, 700);
    window.resizeDocks({dock}, {120}, Qt::Vertical);
    window.show();
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(0, "Viewer ready: %d shape(s) in the document",
                                                           static_cast<int>(ShapeLabelMgr::GetInstance()->GetAllShapes().size()));

    if (!shot) {
        static DrawLineOp line;
        DrawOpMgr::GetInstance()->StartOp(&line, viewer);
        return app.exec();
    }

    int status = 0;
    QTimer::singleShot(300, [&]() {
        DrawScripted(viewer);
        DrawerOutput::GetInstance()->EmitMessage2MessageWidget(0, "%d shape(s) in the document",
                                                               static_cast<int>(ShapeLabelMgr::GetInstance()->GetAllShapes().size()));
        // Seen from above the solids would show as flat outlines. The isometric view, turned a
        // little about the vertical so that the faces of the box take different light, shows
        // their shading.
        viewer->SetISO();
        viewer->GetDefaultRender()->GetActiveCamera()->Azimuth(25.0);
        viewer->UpdateViewer();
        QTimer::singleShot(300, [&]() {
            if (!window.grab().save(shot, "PNG")) {
                std::fprintf(stderr, "tev_demo_host: cannot write %s\n", shot);
                status = 1;
            }
            app.quit();
        });
    });
    app.exec();
    return status;
}

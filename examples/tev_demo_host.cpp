// A small host application of the viewer: a main window with the widget in the middle, its
// status texts in the status bar and the message panel below. It does what a host is expected
// to do: create the widget, InitViewer(), connect the four signals, open the document and
// RefreshViewer().
//
//   tev_demo_host                     interactive
//   tev_demo_host --screenshot FILE   renders once, saves the window as PNG and quits
#include "DrawerOutput.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewer.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QSurfaceFormat>
#include <QTextCodec>
#include <QTimer>
#include <QVTKOpenGLNativeWidget.h>

#include <cstdio>
#include <cstring>

static const char* ScreenshotPath(int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], "--screenshot") == 0) return argv[i + 1];
    return nullptr;
}

int main(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    // The viewer's texts are UTF-8 literals passed as local 8-bit text.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
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

    if (!shot) return app.exec();

    int status = 0;
    QTimer::singleShot(500, [&]() {
        viewer->UpdateViewer();
        QApplication::processEvents();
        if (!window.grab().save(shot, "PNG")) {
            std::fprintf(stderr, "tev_demo_host: cannot write %s\n", shot);
            status = 1;
        }
        app.quit();
    });
    app.exec();
    return status;
}

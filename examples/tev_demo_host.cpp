// The demo host: a desktop modeller around TevBasicViewer, built on the library's public headers
// and its CMake package only.
//
//   tev_demo_host                  the window, for a person to use
//   tev_demo_host --scripted DIR   a scripted session without a user (see TevScriptedSession.h)
//                                  that writes screenshots and decks into DIR, then quits
//   tev_demo_host --help           this usage
#include "TevDemoApplication.h"
#include "TevMainWindow.h"
#include "TevScriptedSession.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <QSurfaceFormat>
#include <QTimer>
#include <QVTKOpenGLNativeWidget.h>

#include <cstdio>
#include <cstring>

// OpenCASCADE's data exchange prints its statistics to standard output; the host keeps only
// its warnings and failures there.
static void QuietOpenCascade()
{
    for (Message_SequenceOfPrinters::Iterator it(Message::DefaultMessenger()->Printers()); it.More(); it.Next())
        it.Value()->SetTraceLevel(Message_Warning);
}

static const char* SessionDir(int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], "--scripted") == 0) return argv[i + 1];
    return nullptr;
}

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--help") == 0) {
        std::printf("usage: tev_demo_host [--scripted OUTPUT_DIR]\n");
        return 0;
    }
    // Read before QApplication, which takes the options it knows out of argv.
    const char* dir = SessionDir(argc, argv);
    QuietOpenCascade();
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    TevDemoApplication app(argc, argv);
    TevMainWindow window;
    window.resize(1200, 820);
    window.show();
    if (!dir) return app.exec();

    int status = 1;
    QTimer::singleShot(300, [&]() {
        status = TevScriptedSession(&window, QString::fromLocal8Bit(dir)).Run();
        app.quit();
    });
    app.exec();
    return status;
}

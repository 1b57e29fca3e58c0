// main() of the GUI test suites: a real QApplication on the display given by the test script
// (Xvfb), with the OpenGL surface format that VTK's Qt widget needs.
#include <QApplication>
#include <QSurfaceFormat>
#include <QTextCodec>
#include <QVTKOpenGLNativeWidget.h>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    // The library's own texts, Chinese status lines included, are UTF-8 literals read as local
    // 8-bit text: the test host runs with a UTF-8 locale whatever the machine's default is.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return RUN_ALL_TESTS();
}

// main() of the GUI test suites: a real QApplication on the display given by the test script
// (Xvfb), with the OpenGL surface format that VTK's Qt widget needs.
#include <QApplication>
#include <QSurfaceFormat>
#include <QVTKOpenGLNativeWidget.h>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}

// QVTKWidget: the render-window widget the viewer derives from, over VTK 9's
// QVTKOpenGLNativeWidget.
//
// VTK 9's widget hands every Qt event to the interactor inside event(), before the virtual
// handlers run, so a subclass cannot decide whether or when VTK sees an event. This base gives
// that decision back to the subclass: mouse and key events reach the interactor only when the
// subclass calls the base handler (QVTKWidget::mousePressEvent and friends). Before the virtual
// handler runs, the interactor's event position and modifier state are already set from the Qt
// event, so GetInteractor()->GetEventPosition() reads the current event's position in VTK
// display coordinates (device pixels, origin bottom-left).
#ifndef QVTKWIDGET_H
#define QVTKWIDGET_H

#include <QVTKOpenGLNativeWidget.h>
#include <vtkSmartPointer.h>

class QVTKInteractorAdapter;
class vtkRenderWindow;
class vtkRenderWindowInteractor;

class QVTKWidget : public QVTKOpenGLNativeWidget
{
    Q_OBJECT

public:
    explicit QVTKWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~QVTKWidget() override;

    // The render window shown by the widget; a vtkGenericOpenGLRenderWindow.
    vtkRenderWindow* GetRenderWindow();
    // Shows `window`, which must be a vtkGenericOpenGLRenderWindow (what Qt's OpenGL widget can
    // draw into). The widget gives the window an interactor if it has none.
    void SetRenderWindow(vtkRenderWindow* window);
    // The interactor of the current render window.
    vtkRenderWindowInteractor* GetInteractor();

protected:
    // Renders the scene for a paint. VTK 9's widget only shows the last rendered frame when Qt
    // paints it; this widget renders first, so that QWidget::update() (through any pointer
    // type) shows every change made before it. Qt merges the update() calls of one event into
    // one paint, so the scene renders once however often one event asked. Subclasses may wrap
    // the render (the viewer runs it inside its failure boundary).
    virtual void RenderScene();

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

    // Hands one Qt event to the interactor.
    void ForwardToInteractor(QEvent* event);

private:
    static bool IsRoutedEvent(const QEvent* event);
    void UpdateEventInformation(QEvent* event);

    void PaintScene();

    QVTKInteractorAdapter* m_adapter;
};

#endif

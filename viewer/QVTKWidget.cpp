#include "QVTKWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QVTKInteractorAdapter.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkRenderWindowInteractor.h>

QVTKWidget::QVTKWidget(QWidget* parent, Qt::WindowFlags flags)
    : QVTKOpenGLNativeWidget(parent, flags), m_adapter(new QVTKInteractorAdapter(this))
{
}

QVTKWidget::~QVTKWidget() = default;

vtkRenderWindow* QVTKWidget::GetRenderWindow()
{
    return renderWindow();
}

void QVTKWidget::SetRenderWindow(vtkRenderWindow* window)
{
    setRenderWindow(window);
}

vtkRenderWindowInteractor* QVTKWidget::GetInteractor()
{
    vtkRenderWindow* window = renderWindow();
    return window ? window->GetInteractor() : nullptr;
}

bool QVTKWidget::IsRoutedEvent(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return true;
    default:
        return false;
    }
}

bool QVTKWidget::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) PaintScene();
    if (!IsRoutedEvent(event)) return QVTKOpenGLNativeWidget::event(event);
    // Skip VTK's automatic forwarding; the handlers below forward when the subclass asks.
    UpdateEventInformation(event);
    return QOpenGLWidget::event(event);
}

void QVTKWidget::UpdateEventInformation(QEvent* event)
{
    vtkRenderWindowInteractor* iren = GetInteractor();
    if (!iren) return;
    const double ratio = devicePixelRatioF();
    if (auto* me = dynamic_cast<QMouseEvent*>(event)) {
        const Qt::KeyboardModifiers mods = me->modifiers();
        iren->SetEventInformationFlipY(static_cast<int>(me->x() * ratio + 0.5),
                                       static_cast<int>(me->y() * ratio + 0.5),
                                       (mods & Qt::ControlModifier) ? 1 : 0,
                                       (mods & Qt::ShiftModifier) ? 1 : 0, 0,
                                       event->type() == QEvent::MouseButtonDblClick ? 1 : 0);
        iren->SetAltKey((mods & Qt::AltModifier) ? 1 : 0);
    }
}

void QVTKWidget::ForwardToInteractor(QEvent* event)
{
    vtkRenderWindowInteractor* iren = GetInteractor();
    if (!iren) return;
    // The ratio only, for the positions the adapter computes: given the interactor, the adapter
    // would also scale the interactor's size, which VTK's widget already keeps in device pixels,
    // and every flipped row would then be off on a scaled display.
    m_adapter->SetDevicePixelRatio(static_cast<float>(devicePixelRatioF()), nullptr);
    m_adapter->ProcessEvent(event, iren);
}

void QVTKWidget::mousePressEvent(QMouseEvent* event)
{
    ForwardToInteractor(event);
}

void QVTKWidget::mouseReleaseEvent(QMouseEvent* event)
{
    ForwardToInteractor(event);
}

void QVTKWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    ForwardToInteractor(event);
}

void QVTKWidget::mouseMoveEvent(QMouseEvent* event)
{
    ForwardToInteractor(event);
}

void QVTKWidget::keyPressEvent(QKeyEvent* event)
{
    ForwardToInteractor(event);
}

void QVTKWidget::keyReleaseEvent(QKeyEvent* event)
{
    ForwardToInteractor(event);
}

void QVTKWidget::PaintScene()
{
    // Before the widget has its OpenGL context the window is not ready and nothing is drawn.
    if (!renderWindow() || !isValid()) return;
    // The adapter asks Qt for a repaint of every frame VTK finishes; this paint shows the frame
    // it renders, so that request is held back, or each paint would schedule the next one.
    const bool held = testAttribute(Qt::WA_UpdatesDisabled);
    setAttribute(Qt::WA_UpdatesDisabled, true);
    RenderScene();
    setAttribute(Qt::WA_UpdatesDisabled, held);
}

void QVTKWidget::RenderScene()
{
    renderWindow()->Render();
}

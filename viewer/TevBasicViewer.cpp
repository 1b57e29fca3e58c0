#include "TevBasicViewer.h"

#include "BrepSnapMgr.h"
#include "DrawOpMgr.h"
#include "GeoGridDrawer.h"
#include "SelectionMgr.h"

#include <IVtkTools_ShapePicker.hxx>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <vtkActor.h>
#include <vtkArcSource.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkImageActor.h>
#include <vtkImageData.h>
#include <vtkImageMapper3D.h>
#include <vtkInteractorStyleRubberBand3D.h>
#include <vtkInteractorStyleRubberBandZoom.h>
#include <vtkInteractorStyleTrackballCamera.h>
#include <vtkJPEGReader.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>
#include <vtkTextActor.h>
#include <vtkTextProperty.h>

// A widget of this name is a bare mesh view: no axes, no grid, no work planes.
static const char* const kMeshViewerName = "CAE-TevViewer";

TevBasicViewer::TevBasicViewer(std::string name)
    : QVTKWidget(nullptr, Qt::WindowFlags()),
      m_viewerType(VIEW_TYPE_MAIN),
      m_hoverActor(nullptr),
      m_menu(nullptr),
      m_ctrlPressed(false),
      m_pressPos{0, 0},
      m_releasePos{0, 0},
      m_selectLevel(4),
      m_grid(nullptr),
      m_mouseOpMode(MOUSE_OP_SELECT),
      m_currentSelIndex(0),
      m_femModel(nullptr)
{
    m_snapActor = nullptr;
    ActiveSelectionMode();
    m_name = name;
    m_viewerType = VIEW_TYPE_MAIN;
}

// The grid drawer and the hover actor are the widget's own; the actor's creation reference is
// released, the renderer keeps it while it needs it.
TevBasicViewer::~TevBasicViewer()
{
    delete m_grid;
    if (m_hoverActor) m_hoverActor->Delete();
}

void TevBasicViewer::InitViewer()
{
    setMinimumHeight(400);
    setMinimumWidth(500);
    CreateRightMenu();
    InitHightActor();
    InitSnapRender();
    InitMainRender();
    if (m_name != kMeshViewerName) {
        CreateAxis();
        CreatePlaneGrid();
    }
    SetXY();
    GetInteractor()->SetInteractorStyle(vtkSmartPointer<vtkInteractorStyleRubberBand3D>::New());
}

void TevBasicViewer::InitSnapRender()
{
    m_snapActor = vtkSmartPointer<vtkActor>::New();
    m_snapActor->SetPickable(0);
    m_snapActor->SetVisibility(1);
    vtkProperty* prop = m_snapActor->GetProperty();
    prop->SetColor(0.8, 0.0, 0.0);
    prop->SetOpacity(0.5);
    prop->SetPointSize(2.0);
    prop->SetLineWidth(3.0);
    prop->SetLighting(false);
    m_snapImageActor = vtkSmartPointer<vtkImageActor>::New();
}

void TevBasicViewer::InitMainRender()
{
    m_renderer = vtkSmartPointer<vtkRenderer>::New();
    // Qt's OpenGL widget can only draw into a generic OpenGL window.
    auto window = vtkSmartPointer<vtkGenericOpenGLRenderWindow>::New();
    m_renderer->SetBackground(1.0, 1.0, 0.9);
    m_renderer->SetBackground2(0.0, 0.8, 0.9);
    m_renderer->GradientBackgroundOn();
    window->AddRenderer(m_renderer);
    SetRenderWindow(window);

    auto picker = vtkSmartPointer<IVtkTools_ShapePicker>::New();
    picker->SetRenderer(m_renderer);
    GetInteractor()->SetPicker(picker);

    m_textActor = vtkSmartPointer<vtkTextActor>::New();
    m_textActor->SetDisplayPosition(10, 10);
    m_textActor->SetInput(m_name.c_str());
    m_textActor->GetTextProperty()->SetFontSize(15);
    m_textActor->GetTextProperty()->SetColor(1.0, 0.0, 0.0);
    m_renderer->AddActor(m_textActor);

    window->Render();
}

QPoint TevBasicViewer::DisplayPosition(QMouseEvent* event) const
{
    // Device pixels, rounded as the interactor rounds them, so that the point an operation gets
    // and the pixel a pick looks at are the same. Rows are counted from the bottom, where the
    // bottom row is 1 (bottom - top + 1 - y), one more than the interactor's row.
    const double ratio = devicePixelRatioF();
    const QRect r = rect();
    const int height = static_cast<int>((r.bottom() - r.top() + 1) * ratio + 0.5);
    const int x = static_cast<int>(event->x() * ratio + 0.5);
    const int y = static_cast<int>(event->y() * ratio + 0.5);
    return QPoint(x, height - y);
}

void TevBasicViewer::EventToWorld(QMouseEvent* event, double world[3])
{
    world[0] = world[1] = world[2] = 0.0;
    if (!m_renderer) return;
    const QPoint display = DisplayPosition(event);
    m_renderer->SetDisplayPoint(display.x(), display.y(), 0.0);
    m_renderer->DisplayToWorld();
    const double* w = m_renderer->GetWorldPoint();
    world[0] = w[0];
    world[1] = w[1];
    world[2] = w[2];
}

void TevBasicViewer::FinishRedraw()
{
    if (m_renderer) m_propBounds.ResetClippingRange(m_renderer);
    update();
    emit m_signal_ViewerUpdated();
}

bool TevBasicViewer::IsRectRelease() const
{
    return m_pressPos[0] != m_releasePos[0] && m_pressPos[1] != m_releasePos[1] &&
           m_mouseOpMode == MOUSE_OP_SELECT;
}

void TevBasicViewer::mousePressEvent(QMouseEvent* event)
{
    const int* pos = GetInteractor()->GetEventPosition();
    m_pressPos[0] = pos[0];
    m_pressPos[1] = pos[1];
    QVTKWidget::mousePressEvent(event);
}

void TevBasicViewer::mouseMoveEvent(QMouseEvent* event)
{
    QVTKWidget::mouseMoveEvent(event);
    double world[3];
    EventToWorld(event, world);
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    RunOpStep([&] { mgr->ProcessMouseEvent(this, DrawOpMgr::EnMouseMove, world); });
    const QPoint display = DisplayPosition(event);
    const QString text = tr("Screen Coordinate:") + "(" + QString::number(display.x()) + "," +
                         QString::number(display.y()) + ")   " + mgr->GetOutputString();
    emit m_signal_StatusBar(text);
}

void TevBasicViewer::mouseReleaseEvent(QMouseEvent* event)
{
    double world[3];
    EventToWorld(event, world);
    // The operation's answer is ignored: it cannot stop the selection step below, and neither
    // can its failure.
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    if (event->button() == Qt::LeftButton)
        RunOpStep([&] { mgr->ProcessMouseEvent(this, DrawOpMgr::EnLButtonUp, world); });
    else if (event->button() == Qt::RightButton)
        RunOpStep([&] { mgr->ProcessMouseEvent(this, DrawOpMgr::EnRButtonUp, world); });

    const int* pos = GetInteractor()->GetEventPosition();
    m_releasePos[0] = pos[0];
    m_releasePos[1] = pos[1];
    const bool isRect = IsRectRelease();
    if (event->button() == Qt::LeftButton) {
        if (isRect)
            OnLButtonDownRectPicker(event);
        else
            OnLButtonDownMultiPicker(event);
    } else if (event->button() == Qt::RightButton && !isRect) {
        emit m_signal_Menu(event->pos());
    }
    QVTKWidget::mouseReleaseEvent(event);
    FinishRedraw();
}

void TevBasicViewer::mouseDoubleClickEvent(QMouseEvent* event)
{
    // QWidget's handler on purpose, not QVTKWidget's: VTK hears the second press only.
    QWidget::mouseDoubleClickEvent(event);
    double world[3];
    EventToWorld(event, world);
    if (event->button() == Qt::LeftButton)
        RunOpStep([&] { DrawOpMgr::GetInstance()->ProcessMouseEvent(this, DrawOpMgr::EnLButtonDoubleClick, world); });
}

void TevBasicViewer::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::ControlModifier) m_ctrlPressed = true;
    if (event->key() == Qt::Key_Escape) {
        DrawOpMgr* mgr = DrawOpMgr::GetInstance();
        if (!mgr->GetCurrentOp()) {
            SelectionMgr::GetInstance()->ClearSelList();
            ProcessHighLightedObj();
            emit m_signal_SelChange("");
        }
        RunOpStep([&] { mgr->ProcessKeyDown(this, Qt::Key_Escape); });
    }
    if (event->key() == Qt::Key_Tab) HighligtCurrentObject();
    FinishRedraw();
}

void TevBasicViewer::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Control) m_ctrlPressed = false;
}

void TevBasicViewer::contextMenuEvent(QContextMenuEvent*) {}

bool TevBasicViewer::event(QEvent* event)
{
    bool handled = true;
    RunGuarded("TevBasicViewer", [&] { handled = DispatchEvent(event); });
    return handled;
}

void TevBasicViewer::RenderScene()
{
    RunGuarded("Render", [this] { QVTKWidget::RenderScene(); });
}

bool TevBasicViewer::DispatchEvent(QEvent* event)
{
    if (event->type() == QEvent::Close) {
        if (m_viewerType != VIEW_TYPE_MESH) {
            QMessageBox::information(nullptr, tr("Notify"), tr("Main viewer can't be closed"), QMessageBox::Ok);
            event->ignore();
            return true;
        }
        const int answer = QMessageBox::information(nullptr, tr("Notify"), tr("Current Mesh Data would be lost, Confirm?"),
                                                    QMessageBox::Yes | QMessageBox::No);
        if (answer == QMessageBox::No) {
            event->ignore();
            return true;
        }
        return QVTKWidget::event(event);
    }
    // Tab cycles the selection: Qt would otherwise spend it on moving the focus.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QVTKWidget::event(event);
}

void TevBasicViewer::SetCurrentOperationMode(MOUSE_OP_MODE mode)
{
    m_mouseOpMode = mode;
    switch (mode) {
    case MOUSE_OP_SELECT: ActiveSelectionMode(); break;
    case MOUSE_OP_ROTATE: ActiveRotateMode(); break;
    case MOUSE_OP_ZOOM: ActiveZoomMode(); break;
    default: break;
    }
}

// Pan has no style of its own by design: the interactor keeps the style it had.
void TevBasicViewer::ActivePanMode() {}

void TevBasicViewer::ActiveRotateMode()
{
    GetInteractor()->SetInteractorStyle(vtkSmartPointer<vtkInteractorStyleTrackballCamera>::New());
}

void TevBasicViewer::ActiveSelectionMode()
{
    GetInteractor()->SetInteractorStyle(vtkSmartPointer<vtkInteractorStyleRubberBand3D>::New());
}

void TevBasicViewer::ActiveZoomMode()
{
    GetInteractor()->SetInteractorStyle(vtkSmartPointer<vtkInteractorStyleRubberBandZoom>::New());
}

void TevBasicViewer::ShowSnapPicture(double* const point)
{
    auto reader = vtkSmartPointer<vtkJPEGReader>::New();
    reader->SetFileName("d:/QQ.JPG");
    reader->Update();
    m_snapImageActor->GetMapper()->SetInputData(reader->GetOutput());
    m_snapImageActor->SetOpacity(0.6);
    m_snapImageActor->SetPosition(point);
    m_snapImageActor->SetPickable(0);
    m_renderer->AddActor(m_snapImageActor);
    update();
}

// The snap ring: a circle of fixed world radius |(3, 3, 0)| around the hit, in the arc
// source's default plane whatever the view. Null takes the ring and the debugging image away.
void TevBasicViewer::RenderSnapPoint(sSnapResult* result)
{
    if (!m_renderer) return;
    if (!result) {
        m_renderer->RemoveActor(m_snapActor);
        m_renderer->RemoveActor(m_snapImageActor);
        update();
        return;
    }
    auto ring = vtkSmartPointer<vtkArcSource>::New();
    ring->SetResolution(64);
    ring->SetUseNormalAndAngle(true);
    ring->SetCenter(result->point.X(), result->point.Y(), result->point.Z());
    ring->SetPolarVector(3.0, 3.0, 0.0);
    ring->SetAngle(360.0);
    ring->SetNegative(true);
    auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(ring->GetOutputPort());
    m_snapActor->SetMapper(mapper);
    // The renderer holds an actor once, however often it is added.
    m_renderer->AddActor(m_snapActor);
    update();
}

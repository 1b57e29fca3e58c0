// TevBasicViewer: the interactive 3D modelling view.
//
// A QVTKWidget with one renderer that shows the document's B-rep shapes through the IVtk
// bridge, the grid and axes of the work plane, the snap ring and the rubber bands of the
// running drawing operation. The widget's mouse handlers only translate: a release becomes a
// world point on the near clipping plane, handed to DrawOpMgr, followed by the selection pick.
// The host creates the widget, calls InitViewer() once, connects the four signals, starts
// operations through DrawOpMgr and reads the selection from SelectionMgr.
//
// Failures. A modelling failure never leaves the widget's event handling. The operations, the
// snap engine and the commands keep no exception handlers; the widget's entry points catch
// Standard_Failure and std::exception: the mouse and key handlers around each operation step,
// event() around everything Qt delivers (wheel and paint included), and every slot that does
// work. On a catch:
//   - the document transaction the step opened is aborted, so the document is exactly as before
//     the event (a transaction an earlier step left open is committed when an event begins);
//   - the operation on top, if it still is, gets IDrawOp::StepFailed: its rubber bands, the
//     snap ring and the points the step appended go; its step flags are as before the event,
//     since operations change them only after their last call that can raise;
//   - one level-2 line "<name> : <failure text>" goes out through DrawerOutput, where <name> is
//     the operation's class ("DrawCircleOp") or, outside an operation step, the command
//     ("Set Face as work plane") or "TevBasicViewer", and the failure text is the exception's
//     message (its type when it has none), in the "<Operation> : <reason>" form of the creators;
//   - the operation stays on the stack, so the user can click again or press Escape; the rest of
//     the event (the selection pick, the interactor, the redraw) goes on.
// The creators of the sibling library report their own failures and raise none, so input they
// refuse (collinear arc points, for one) ends as their message and a normal end of the step.
//
// One guard stays where the plain steps would give a wrong result rather than a failure: the
// snap engine skips edges parallel to the view ray (see BrepSnapMgr.h). Catching here is a
// deliberate departure from letting a failure pass through Qt's event handler, which Qt does not
// support.
//
// Pixels. One convention throughout, on any screen: VTK display coordinates, in device pixels
// with the origin at the bottom left. Clicks become world points from it, picks and rubber bands
// use the interactor's positions in it, the snap engine measures in it, and the status bar's
// "Screen Coordinate:" shows it. Pixel tolerances (the 5-pixel grid radius, the snap tolerance
// of 10) are meant as the user sees them and are scaled by the device pixel ratio, so the same
// gesture snaps the same on a scaled display.
//
// Shape actors. A shape's actor keeps a compact copy of the bridge's mesh and lets the bridge's
// data source go (see ShapeActorData.h); deliberately, the vertices that bound an edge are not
// drawn as points of their own, which changes only the few pixels where such a vertex is drawn.
//
// Texts. The status text's count ("选中 %d 个对象") is built from UTF-8, not from the local 8-bit
// encoding, so it reads the same whatever the host's locale is.
#ifndef TEVBASICVIEWER_H
#define TEVBASICVIEWER_H

#include "QVTKWidget.h"
#include "PropBoundsCache.h"
#include "ShapeViewCache.h"

#include <Geom_Plane.hxx>
#include <QPoint>
#include <QString>
#include <Standard_Handle.hxx>
#include <TopoDS_Shape.hxx>
#include <TopoDS_TShape.hxx>
#include <gp_Pnt.hxx>
#include <vtkSmartPointer.h>

#include <functional>
#include <map>
#include <utility>
#include <string>
#include <vector>

class GeoGridDrawer;
class IDrawOp;
class IVtkOCC_Shape;
class IVtkTools_ShapePicker;
class QAction;
class QMenu;
class QMouseEvent;
class vtkActor;
class vtkImageActor;
class vtkObject;
class vtkRenderer;
class vtkTextActor;
struct sSnapResult;
struct vis_Model;

enum MOUSE_OP_MODE {
    MOUSE_OP_SELECT = 0,  // left drag draws a rubber band, selection active
    MOUSE_OP_ROTATE = 1,  // trackball camera
    MOUSE_OP_PAN = 2,     // stored only: the interactor style stays as it was
    MOUSE_OP_ZOOM = 3     // rubber-band zoom
};

enum VIEW_TYPE {
    VIEW_TYPE_MAIN = 0,  // the main geometry viewer; it refuses to close
    VIEW_TYPE_MESH = 1   // a mesh viewer; closing asks for confirmation
};

// Orders TShape handles by address: the key ignores location and orientation.
struct TevTShapeLess {
    bool operator()(const opencascade::handle<TopoDS_TShape>& a,
                    const opencascade::handle<TopoDS_TShape>& b) const
    {
        return a.get() < b.get();
    }
};

class TevBasicViewer : public QVTKWidget
{
    Q_OBJECT
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class TevBasicViewerTestPeer;

public:
    explicit TevBasicViewer(std::string name = "TevPlatform");
    ~TevBasicViewer() override;

    // Builds menu, highlight and snap actors, renderer, then axes and grid (except in a bare
    // mesh view named "CAE-TevViewer"), the XY view and the rubber-band style. Called once.
    void InitViewer();

    void SetViewerType(VIEW_TYPE type) { m_viewerType = type; }
    VIEW_TYPE GetViewerType() { return m_viewerType; }
    vtkSmartPointer<vtkRenderer> GetDefaultRender() { return m_renderer; }
    GeoGridDrawer* GetGrid() { return m_grid; }
    void SetCurrentFEMModel(vis_Model* model) { m_femModel = model; }
    vis_Model* GetFEMModel() { return m_femModel; }
    // Stores the mode, then installs its interactor style; MOUSE_OP_PAN only stores.
    void SetCurrentOperationMode(MOUSE_OP_MODE mode);
    MOUSE_OP_MODE GetCurrentOperationMode() const { return m_mouseOpMode; }
    const std::string& GetName() const { return m_name; }

    // Redraw entries. RefreshViewer rebuilds the picture from the document and keeps the
    // selection; UpdateRefreshViewer does the same and clears the selection; UpdateViewer only
    // redraws. A rebuild keeps the actor, data source and picker of every shape whose TShape,
    // location and orientation are unchanged, gives them their look from the label again, and
    // makes new ones only for new shapes; what it drops holds no geometry afterwards. Unlike the
    // plain rebuild, the TShape and name maps then hold only the shapes of this build (and the
    // names of shapes the selection still points into), so stale entries no longer pile up.
    void UpdateViewer();
    void RefreshViewer();
    void UpdateRefreshViewer();
    void RemoveAllViewShapes();
    void RemoveTempRenderActor(vtkSmartPointer<vtkActor> actor);

    // Per-shape display, looked up by the shape's TShape. These change the actor only: the next
    // rebuild takes colour, opacity and visibility from the shape's label again.
    void SetShapeColor(TopoDS_Shape* shape, gp_Pnt& rgb);
    void SetShapeOpacity(TopoDS_Shape* shape, double opacity);
    double GetShapeOpacity(TopoDS_Shape* shape);
    void SetShapeVisibility(TopoDS_Shape* shape, bool visible);
    bool GetShapeVisiblity(TopoDS_Shape* shape);
    // The world box of what snaps and picks can reach on a shape of the picture (same TShape,
    // location and orientation), kept since the shape was added; null for any other shape.
    // `position`, the shape's place in ShapeLabelMgr::GetAllShapes(), only speeds the look-up.
    const Bnd_Box* FindShapeBox(const TopoDS_Shape& shape, size_t position) const
    {
        return m_shapeViews.BoxAt(position, shape);
    }

    // The snap ring at a snap hit; null takes the ring (and the debugging image) away.
    void RenderSnapPoint(sSnapResult* result);

    // Work plane and standard views.
    void EnableXYPlane();
    void EnableXZPlane();
    void EnableYZPlane();
    opencascade::handle<Geom_Plane> GetCurrentPlane() { return m_currentPlane; }
    std::vector<gp_Pnt> GetCurrentPlanePoints() const { return m_currentPlanePoints; }
    void SetXY();
    void SetXZ();
    void SetYZ();
    void SetZY();
    void SetZX();
    void SetYX();
    void SetISO();

    // Selection display: one translucent copy of each selected shape over the model.
    void ProcessHighLightedObj();
    // Tab: moves the cursor to the next selected shape and doubles its highlight; also redraws.
    void SelectionUpdate();

signals:
    void m_signal_Menu(QPoint pos);
    void m_signal_StatusBar(QString text);
    void m_signal_SelChange(QString text);
    void m_signal_ViewerUpdated();

public slots:
    void m_Slot_SetSelectionBody();
    void m_Slot_SetSelectionFace();
    void m_Slot_SetSelectionEdge();
    void m_Slot_DisplayByWireFrame();
    void m_Slot_DisplayBySurface();
    void m_Slot_DisplayByPoint();
    void m_Slot_SetFaceAsWorkPlane();
    void SelectionUpdate(QString name);
    void m_slot_ContextMenu(QPoint pos);
    void m_Slot_BoolSubtract();
    void m_Slot_BoolIntersect();
    void m_Slot_BoolUnite();
    void m_Slot_OKCurrentOp();

private slots:
    void CreateRightMenu();
    void CreateAxis();
    void CreatePlaneGrid();
    void InitMainRender();
    void UpdateSelectionLevel();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    // The render of a paint, inside the failure boundary: a shape whose meshing fails is reported.
    void RenderScene() override;

    bool IsCtrlPressed() { return m_ctrlPressed; }
    void ActivePanMode();
    void ActiveRotateMode();
    void ActiveSelectionMode();
    void ActiveZoomMode();
    // Debugging aid without a caller: shows the image "d:/QQ.JPG" at `point`.
    void ShowSnapPicture(double* const point);

    // Picks at the left release. The point pick takes every shape under the cursor, the
    // rectangle pick every shape (or sub-shape) fully inside the band; without Ctrl the
    // selection is cleared first.
    void OnLButtonDown(QMouseEvent* event);
    void OnLButtonDownMultiPicker(QMouseEvent* event);
    void OnLButtonDownRectPicker(QMouseEvent* event);
    void ProcessHighLight();
    void RemoveHighLihgt();
    void InitHightActor();
    void InitAllHightActor(vtkSmartPointer<vtkActor> actor);

private:
    // The failure boundary (see the top of this file). RunOpStep runs the operation's share of an
    // event, RunGuarded the work of an entry point outside any operation (named by `entry`).
    void RunOpStep(const std::function<void()>& step);
    // What event() does inside the boundary: the close refusal, Tab, then the base.
    bool DispatchEvent(QEvent* event);
    void RunGuarded(const char* entry, const std::function<void()>& body);
    // Both run here: `body` inside the handlers, and on a failure the recovery, reported under
    // the class of `op` when there is one, else under `entry`.
    void RunInBoundary(IDrawOp* op, const QString& entry, const std::function<void()>& body);
    // Runs `body`; false with the failure's text when it raised.
    static bool Attempt(const std::function<void()>& body, QString& failure);

    // Adds the faces or edges the picker reports for `occ` at levels 1 and 2 (the first hit, or
    // all of them for a rectangle).
    void AddPickedSubShapes(IVtkOCC_Shape* occ, IVtkTools_ShapePicker* picker, bool all);
    void HighligtFirstObject();
    void HighligtCurrentObject();
    void RemoveSelActor();
    // Adds a highlight of `shape` to the renderer through a new actor prepared by the caller.
    void ShowHighlight(vtkActor* actor, const TopoDS_Shape* shape);
    // Applies one selection level to every picker: (mode, on) pairs in order.
    void ApplySelectionModes(const std::vector<std::pair<int, bool>>& modes);
    void CheckLevelAction(QAction* checked);

    void AddShape(TopoDS_Shape* shape);
    // The rebuild of RefreshViewer and UpdateRefreshViewer: keeps what is unchanged, adds what
    // is new, retires the rest. `labels` are the shapes' labels, in the same order.
    void RebuildShapes(std::vector<TopoDS_Shape>& shapes, const std::vector<TDF_Label>& labels);
    // The rebuild after a change that only added shapes at the end of the document's list (a
    // click of a drawing operation): when every shape of the last build is still at its place,
    // from the same label under the same name, with an actor nobody changed, it only applies
    // changed looks and appends the new shapes, leaving the maps as they are, which is what the
    // full rebuild would make of them. False, doing nothing, when that cannot be told for sure.
    bool AppendShapes(std::vector<TopoDS_Shape>& shapes, const std::vector<TDF_Label>& labels);
    // ShapeLabelMgr's shapes into `shapes` and their labels into m_readLabels, read from the
    // document again.
    void ReadDocumentShapes(std::vector<TopoDS_Shape>& shapes);
    void ReuseShape(TopoDS_Shape* shape, ShapeViewCache::Entry entry);
    void RetireShape(ShapeViewCache::Entry& entry);
    // Name entries that no shape of the last build wrote stay only while the selection points
    // into their shape.
    void KeepSelectedNames(const std::map<QString, IVtkOCC_Shape*>& previous);
    // The entries of m_pickerByShape, in key order, whose shape's box shows near display
    // position `pos`: the only pickers a point pick there can hit. Every key of m_pickerByShape
    // has an entry in m_shapeViews, since both are written together.
    std::vector<std::pair<IVtkOCC_Shape*, vtkSmartPointer<IVtkTools_ShapePicker>>> PickCandidates(const int* pos);
    void AddShapeMap(IVtkOCC_Shape* occ, vtkSmartPointer<IVtkTools_ShapePicker> picker);
    void AddShapeMap(IVtkOCC_Shape* occ, vtkSmartPointer<vtkActor> actor);
    void AddShapeMap(IVtkOCC_Shape* occ, QString name);
    void AddShapeMap(TopoDS_Shape* shape, vtkSmartPointer<vtkActor> actor);
    void RemoveShape(IVtkOCC_Shape* occ);
    void RemoveShape(const TopoDS_Shape* shape);
    vtkSmartPointer<vtkActor> ActorOf(TopoDS_Shape* shape);
    // Shapes of earlier builds stay alive while the selection or the name map still points
    // into them, so that reading either after a rebuild never touches freed memory.
    void PruneRetiredShapes();

    void InitSnapRender();
    // The common first step of a mouse event: the world point on the near clipping plane under
    // the event's position. The bottom row of the widget is display row 1, not 0.
    void EventToWorld(QMouseEvent* event, double world[3]);
    // The event's position in VTK display coordinates (device pixels, from the bottom, the
    // bottom row being 1): what EventToWorld and the status text use.
    QPoint DisplayPosition(QMouseEvent* event) const;
    // ResetCameraClippingRange (from the props' bounds as the renderer computes them, with the
    // shape actors' bounds kept between redraws: PropBoundsCache), update, m_signal_ViewerUpdated.
    void FinishRedraw();
    // Whether the last press and release make a rubber band: both coordinates moved, in
    // MOUSE_OP_SELECT. Otherwise a release is a point pick.
    bool IsRectRelease() const;
    // The work of m_Slot_SetFaceAsWorkPlane, inside the failure boundary.
    void SetFaceAsWorkPlane();

    // The right-button menu (TevBasicViewer_Menu.cpp). An action with the widget as parent.
    QAction* MakeMenuAction(const QString& text, bool checkable);
    // The work of m_slot_ContextMenu: rebuilds the menu and runs it at the cursor. On purpose,
    // nothing of the menu is left behind: the menu has the widget as parent, and
    // the "Boolean operation" sub-menu made at each showing is freed when the menu closes.
    void ShowContextMenu();
    // Subtract or Intersect on the first two selected shapes, object then tool in list order,
    // then a rebuild; fewer than two give the message "Shape number is too less".
    void RunPairBoolean(TopoDS_Shape (*perform)(TopoDS_Shape&, TopoDS_Shape&));
    void ResetViewCamera(const double offset[3], double upX, double upY, double upZ);
    void EnablePlane(const opencascade::handle<Geom_Plane>& plane, vtkActor* shown, const std::vector<gp_Pnt>& points);

    VIEW_TYPE m_viewerType;
    vtkSmartPointer<IVtkTools_ShapePicker> m_picker;
    vtkSmartPointer<vtkRenderer> m_renderer;
    vtkSmartPointer<vtkObject> m_reservedObject;  // never assigned; kept for the class layout
    vtkActor* m_hoverActor;
    vtkSmartPointer<vtkActor> m_snapActor;
    std::vector<vtkSmartPointer<vtkActor>> m_shapeActors;
    QMenu* m_menu;
    QAction* m_actionConfirm = nullptr;
    QAction* m_actionWorkPlane = nullptr;
    QAction* m_actionWireframe = nullptr;
    QAction* m_actionSurface = nullptr;
    QAction* m_actionPoint = nullptr;
    QAction* m_actionSelectEdge = nullptr;
    QAction* m_actionSelectFace = nullptr;
    QAction* m_actionSelectBody = nullptr;
    QAction* m_actionMaterial = nullptr;
    QAction* m_actionMeshSize = nullptr;
    QAction* m_actionUnite = nullptr;
    QAction* m_actionSubtract = nullptr;
    QAction* m_actionIntersect = nullptr;
    bool m_ctrlPressed;
    vtkSmartPointer<vtkTextActor> m_textActor;
    std::vector<vtkSmartPointer<vtkActor>> m_reservedActors;  // stays empty
    std::map<IVtkOCC_Shape*, vtkSmartPointer<IVtkTools_ShapePicker>> m_pickerByShape;
    std::map<IVtkOCC_Shape*, vtkSmartPointer<vtkActor>> m_actorByShape;
    std::map<opencascade::handle<TopoDS_TShape>, vtkSmartPointer<vtkActor>, TevTShapeLess> m_actorByTShape;
    std::map<QString, IVtkOCC_Shape*> m_shapeByName;
    int m_pressPos[2];
    int m_releasePos[2];
    vtkSmartPointer<vtkActor> m_reservedActor;  // never assigned; kept for the class layout
    std::vector<vtkSmartPointer<vtkActor>> m_selActors;
    std::vector<vtkSmartPointer<vtkActor>> m_reservedSelActors;  // stays empty
    int m_selectLevel;
    GeoGridDrawer* m_grid;
    MOUSE_OP_MODE m_mouseOpMode;
    vtkSmartPointer<vtkImageActor> m_snapImageActor;
    int m_currentSelIndex;
    vtkSmartPointer<vtkActor> m_currentSelActor;
    vtkSmartPointer<vtkActor> m_gridActorXY;
    vtkSmartPointer<vtkActor> m_gridActorXZ;
    vtkSmartPointer<vtkActor> m_gridActorYZ;
    opencascade::handle<Geom_Plane> m_planeXY;
    opencascade::handle<Geom_Plane> m_planeXZ;
    opencascade::handle<Geom_Plane> m_planeYZ;
    opencascade::handle<Geom_Plane> m_currentPlane;
    opencascade::handle<Geom_Plane> m_facePlane;
    std::vector<gp_Pnt> m_currentPlanePoints;
    std::vector<TopoDS_Shape> m_allShapes;
    std::string m_name;
    vis_Model* m_femModel;
    std::vector<opencascade::handle<IVtkOCC_Shape>> m_retiredShapes;
    int m_boundaryDepth = 0;  // failure boundaries entered and not yet left
    ShapeViewCache m_shapeViews;
    // Set when a level slot changed the pickers' modes: the next rebuild turns the modes of the
    // pickers it keeps back to those of a new picker.
    bool m_pickModesChanged = false;
    // Set when a map was written outside a rebuild: the next rebuild is a full one.
    bool m_mapsTouched = false;
    PropBoundsCache m_propBounds;
    // What a rebuild reads, kept between rebuilds so that a click's rebuild allocates nothing in
    // proportion to the whole document.
    std::vector<TopoDS_Shape> m_readShapes;
    std::vector<TDF_Label> m_readLabels;
    std::vector<ShapeActorLook> m_readLooks;
};

#endif

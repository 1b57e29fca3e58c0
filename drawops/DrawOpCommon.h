// DrawOpCommon: what every drawing operation shares: the finished flag, the two rubber-band
// actors, the accepted points, the prompt path and the temporary line, circle, triangle and quad.
//
// Rubber-band actors live in the viewer's default renderer only; they are rebuilt from scratch
// on every mouse move, are never registered as shapes and leave through FinishCurrentOp or
// ActionCancelled.
#ifndef DRAWOPCOMMON_H
#define DRAWOPCOMMON_H

#include "IDrawOp.h"

#include <QString>
#include <gp_Pnt.hxx>
#include <vtkActor.h>
#include <vtkSmartPointer.h>

#include <functional>
#include <vector>

class DrawOpCommon : public IDrawOp
{
    // Tests reach the internals through this peer (tests/support), not through the host's API.
    friend class DrawOpTestPeer;
public:
    // `paramInput` true makes an operation ask for its angular parameters.
    explicit DrawOpCommon(bool paramInput = false);
    ~DrawOpCommon() override;

    void InitAction(TevBasicViewer* viewer) override;
    void ActionCancelled(TevBasicViewer* viewer) override;
    bool LButtonDown(TevBasicViewer* viewer, const double point[3]) override;
    bool LButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool LButtonDoubleClick(TevBasicViewer* viewer, const double point[3]) override;
    bool RButtonDown(TevBasicViewer* viewer, const double point[3]) override;
    bool RButtonUp(TevBasicViewer* viewer, const double point[3]) override;
    bool MovePoint(TevBasicViewer* viewer, const double point[3]) override;
    bool KeyDown(TevBasicViewer* viewer, int key) override;
    void ChildActionFinished(TevBasicViewer* viewer) override;
    bool IsActionFinished() override;
    void FinishCurrentOp(TevBasicViewer* viewer) override;
    // Remembers how many points the operation holds; StepFailed cuts the list back to that and
    // removes both rubber bands and the snap ring.
    void BeginStep() override;
    void StepFailed(TevBasicViewer* viewer) override;

    std::vector<gp_Pnt>& GetPointList() { return m_PointList; }
    void SetPointList(std::vector<gp_Pnt> points) { m_PointList = points; }
    QString GetStatusString() { return m_StatusString; }
    void SetStatusString(QString& text) { m_StatusString = text; }

    // Prints one prompt line: tr(text) in the local 8-bit encoding at level 0.
    static void Prompt(const char* text);

protected:
    // The point an operation uses for a raw world point: on the work plane, snapped
    // (PickerMgr::GetPickPoint, which also moves the snap ring and sets the snap text).
    static gp_Pnt PickPoint(TevBasicViewer* viewer, const double point[3]);

    // Rubber-band line p1-p2 in m_TempActor; nothing is shown when the points coincide.
    void DrawTempLine(TevBasicViewer* viewer, double p1[3], double p2[3]);
    // The same band in another colour.
    void DrawTempSegment(TevBasicViewer* viewer, double p1[3], double p2[3], double r, double g, double b);
    // Rubber-band circle around `center` through `rim` in m_TempActor2.
    void DrawTempCircle(TevBasicViewer* viewer, double center[3], double rim[3]);
    // Rubber-band triangle in m_TempActor; nothing is shown when p1 and p2 coincide.
    void DrawTempTriangle(TevBasicViewer* viewer, double p1[3], double p2[3], double p3[3]);
    // Both rubber bands out of the renderer, then the base's FinishCurrentOp and a redraw: the
    // ending that cancel and finish steps of the operations share.
    void ClearTempDisplay(TevBasicViewer* viewer);
    // The creation bracket of a last step: one transaction around `create` (a creator call on a
    // local creator object), then the rebuild of the viewer's picture, which shows the new shape.
    static void CreateInTransaction(TevBasicViewer* viewer, const std::function<void()>& create);
    // Rubber-band quad over `corners`, in order, in m_TempActor: wireframe of colour `rgb`, line
    // width 3, opacity 0.8; nothing is shown when `p1` and `p2`, the clicked points, coincide.
    void DrawTempQuad(TevBasicViewer* viewer, const gp_Pnt& p1, const gp_Pnt& p2, const gp_Pnt corners[4],
                      const double rgb[3]);
    // The mouse move of the solids built on a centre and a rim point: picks the point, keeps it
    // as `centre` until the centre is taken when `keepCentre` says so, and once the centre is
    // taken and until the rim is, shows the circle band from the centre through it.
    void MoveCircleBand(TevBasicViewer* viewer, const double point[3], bool centreTaken, bool rimTaken,
                        gp_Pnt& centre, bool keepCentre);

    bool m_bFinished;
    vtkSmartPointer<vtkActor> m_TempActor;   // line, rectangle or triangle
    vtkSmartPointer<vtkActor> m_TempActor2;  // circle, curve or shape
    std::vector<gp_Pnt> m_PointList;         // accepted points in click order; never cleared
    gp_Pnt m_CenterPoint;
    gp_Pnt m_SecondPoint;
    gp_Pnt m_ThirdPoint;
    bool m_bParamInput;
    QString m_StatusString;

private:
    size_t m_stepPointCount = 0;  // size of m_PointList when the current step began

    void ShowTempCell(TevBasicViewer* viewer, const double* a, const double* b, const double* const* points, int count,
                      const double rgb[3], double lineWidth);
};

#endif

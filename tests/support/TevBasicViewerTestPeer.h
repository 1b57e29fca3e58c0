// TevBasicViewerTestPeer: how tests read the viewer's internals (positions of the last press and
// release, the maps of the picture, the selection actors and cursor). These are not the host's
// interface, so they live here, as a friend of the class, rather than on the exported widget.
#ifndef TEVBASICVIEWERTESTPEER_H
#define TEVBASICVIEWERTESTPEER_H

#include "TevBasicViewer.h"

class TevBasicViewerTestPeer
{
public:
    // Interactor event positions (VTK display pixels) at the last press and release.
    static const int* PressPos(const TevBasicViewer& v) { return v.m_pressPos; }
    static const int* ReleasePos(const TevBasicViewer& v) { return v.m_releasePos; }
    // Whether the last press and release made a rubber band.
    static bool IsRectRelease(const TevBasicViewer& v) { return v.IsRectRelease(); }

    static const std::vector<vtkSmartPointer<vtkActor>>& ShapeActors(const TevBasicViewer& v) { return v.m_shapeActors; }
    static const std::map<IVtkOCC_Shape*, vtkSmartPointer<vtkActor>>& ActorByShape(const TevBasicViewer& v)
    {
        return v.m_actorByShape;
    }
    static const std::map<IVtkOCC_Shape*, vtkSmartPointer<IVtkTools_ShapePicker>>& PickerByShape(const TevBasicViewer& v)
    {
        return v.m_pickerByShape;
    }
    static const std::map<QString, IVtkOCC_Shape*>& ShapeByName(const TevBasicViewer& v) { return v.m_shapeByName; }
    static size_t ActorByTShapeCount(const TevBasicViewer& v) { return v.m_actorByTShape.size(); }
    static const std::vector<vtkSmartPointer<vtkActor>>& SelectionActors(const TevBasicViewer& v) { return v.m_selActors; }
    static vtkSmartPointer<vtkActor> CurrentSelActor(const TevBasicViewer& v) { return v.m_currentSelActor; }
    static int SelectLevel(const TevBasicViewer& v) { return v.m_selectLevel; }
    static int CurrentSelIndex(const TevBasicViewer& v) { return v.m_currentSelIndex; }
    // Makes the next rebuild a full one, as after a change it cannot follow.
    static void ForceFullRebuild(TevBasicViewer& v) { v.m_mapsTouched = true; }
};

#endif

// The fixture of the free-form curve operation tests: the planar operations' fixture with a
// double click as Qt delivers it, raw releases handed to the operation directly, a raised work
// plane seen from the side, and the curve of a document edge.
#ifndef FREEFORMOPTEST_H
#define FREEFORMOPTEST_H

#include "BoxShapeParaCreator.h"
#include "PlanarOpTest.h"

#include <Geom_Curve.hxx>
#include <gp_Pln.hxx>

namespace tevtest {

class FreeFormOpTest : public PlanarOpTest
{
protected:
    void DoubleClick(const gp_Pnt& p) { tevtest::DoubleClick(viewer.get(), WorldToWidget(viewer.get(), p)); }

    // A left release at the raw world point (x, y, z), handed to the current operation as the
    // widget would hand it.
    void Release(double x, double y, double z)
    {
        double raw[3] = {x, y, z};
        DrawOpMgr::GetInstance()->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnLButtonUp, raw);
    }

    // Makes the top face of a 100 x 100 x 5 box at the origin the work plane (z = 5) and looks
    // from the ISO direction with every snap off. A raw point r is then picked as its projection
    // on z = 5 along the direction of projection -(1, 1, 1)/sqrt(3): r + (r.z - 5) * (-1, -1, -1),
    // that is (r.x + 5 - r.z, r.y + 5 - r.z, 5).
    void UseRaisedPlaneInIsoView()
    {
        ShapeDocMgr::GetInstance()->StartTransaction();
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 100, 100, 5);
        ShapeDocMgr::GetInstance()->EndTransaction();
        viewer->RefreshViewer();
        viewer->SetXY();
        viewer->UpdateViewer();
        viewer->m_Slot_SetSelectionFace();
        Click(gp_Pnt(50, 50, 5));
        ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList().size(), 1u);
        BoxSeen seen;
        AnswerNextMessageBox(QMessageBox::Ok, &seen);
        viewer->m_Slot_SetFaceAsWorkPlane();
        ASSERT_NEAR(viewer->GetCurrentPlane()->Pln().Distance(gp_Pnt(-7, 3, 5)), 0.0, 1e-9);
        viewer->SetISO();
        viewer->UpdateViewer();
        TevPreference* pref = TevPreference::GetInstance();
        pref->snapEndPoint = pref->snapMiddle = pref->snapGrid = pref->snapOnLine = false;
    }

    // The curve under a document edge, with the edge's parameter range.
    static opencascade::handle<Geom_Curve> CurveOf(const TopoDS_Shape& edge, double& first, double& last)
    {
        return BRep_Tool::Curve(TopoDS::Edge(edge), first, last);
    }
};

}  // namespace tevtest

#endif

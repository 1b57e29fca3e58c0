// A DocumentViewerTest with the means of selecting by clicks: boxes made by the real creator in
// a transaction, the document shown in the XY view, clicks at world points and Ctrl held.
#ifndef SELECTIONSCENE_H
#define SELECTIONSCENE_H

#include "BoxShapeParaCreator.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <QTest>

#include <vector>

namespace tevtest {

class SelectionSceneTest : public DocumentViewerTest
{
protected:
    // A box from (x, y, z) with sides dx, dy, dz, made through the creator in a transaction.
    static void Box(double x, double y, double z, double dx, double dy, double dz)
    {
        ShapeDocMgr::GetInstance()->StartTransaction();
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(x, y, z), gp_Dir(0, 0, 1)), dx, dy, dz);
        ShapeDocMgr::GetInstance()->EndTransaction();
    }

    // Shows the document and frames it in the XY view.
    void Show()
    {
        viewer->RefreshViewer();
        viewer->SetXY();
        viewer->UpdateViewer();
        QTest::qWait(30);
    }

    void Click(const gp_Pnt& p, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QTest::mouseClick(viewer.get(), Qt::LeftButton, mods, WorldToWidget(viewer.get(), p));
    }

    void HoldCtrl(bool down)
    {
        QTest::simulateEvent(viewer.get(), down, Qt::Key_Control, down ? Qt::NoModifier : Qt::ControlModifier,
                             QString(), false);
    }

    std::vector<const TopoDS_Shape*>& Sel() { return SelectionMgr::GetInstance()->GetshapeList(); }

    std::vector<TopoDS_Shape> All() { return ShapeLabelMgr::GetInstance()->GetAllShapes(); }
};

}  // namespace tevtest

#endif

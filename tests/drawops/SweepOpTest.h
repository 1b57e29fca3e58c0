// The fixture of the sweep operation tests: the planar operations' fixture with profiles drawn
// by the drawing operations themselves, selection by clicks, "Confirm" from the right-button
// menu, parameter dialogs answered by typing, volumes, and a snapshot of the document that undo
// must bring back exactly.
#ifndef SWEEPOPTEST_H
#define SWEEPOPTEST_H

#include "BaseShapeParaCreator.h"
#include "DrawLineOp.h"
#include "DrawRectangleOp.h"
#include "DrawTriangleFaceOp.h"
#include "PlanarOpTest.h"

#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <QDialog>

#include <memory>
#include <utility>
#include <vector>

namespace tevtest {

// What a parameter dialog showed before it was answered.
struct DialogSeen {
    bool shown = false;
    QString title;
};

// Arms a timer that answers the next modal dialog of class `className`: for each (object name,
// text) of `fields` it selects the line edit's text and types the new one, then clicks OK, or
// Cancel when `ok` is false. It gives up after five seconds. Call before the event that opens it.
inline void AnswerInputDialog(const char* className, const std::vector<std::pair<QString, QString>>& fields,
                              bool ok, DialogSeen* seen)
{
    auto* timer = new QTimer();
    timer->setInterval(20);
    auto ticks = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, [timer, className, fields, ok, seen, ticks]() {
        auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (++*ticks > 250) {
            timer->stop();
            timer->deleteLater();
            return;
        }
        if (!dlg || !dlg->isVisible() || !dlg->inherits(className)) return;
        timer->stop();
        timer->deleteLater();
        seen->shown = true;
        seen->title = dlg->windowTitle();
        for (const auto& field : fields) {
            auto* edit = dlg->findChild<QLineEdit*>(field.first);
            if (!edit) {
                ADD_FAILURE() << "no field " << field.first.toStdString();
                continue;
            }
            edit->setFocus();
            QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(edit, field.second);
        }
        auto* buttons = dlg->findChild<QDialogButtonBox*>();
        if (!buttons) {
            dlg->reject();
            return;
        }
        QTest::mouseClick(buttons->button(ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel), Qt::LeftButton);
    });
    timer->start();
}

// One document shape as undo must restore it.
struct ShapeRecord {
    TopoDS_Shape shape;
    QString name;
    bool visible = false;
    double opacity = 0.0;
    gp_Pnt colour;
};

class SweepOpTest : public PlanarOpTest
{
protected:
    // A click with Ctrl held, which adds to the selection.
    void CtrlClick(const gp_Pnt& p)
    {
        HoldCtrl(true);
        QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::ControlModifier, WorldToWidget(viewer.get(), p));
        HoldCtrl(false);
    }
    void HoldCtrl(bool down)
    {
        QTest::simulateEvent(viewer.get(), down, Qt::Key_Control, down ? Qt::NoModifier : Qt::ControlModifier,
                             QString(), false);
    }
    std::vector<const TopoDS_Shape*>& Sel() { return SelectionMgr::GetInstance()->GetshapeList(); }

    // "Confirm" chosen from the right-button menu, opened in an empty corner. Each showing
    // connects the entry once more, so the n-th showing of a test runs the slot n times.
    void Confirm()
    {
        ASSERT_TRUE(ActivateAndWait(viewer.get()));
        MenuSeen seen;
        MenuAnswer answer({"Confirm"}, &seen);
        QTest::mouseClick(viewer.get(), Qt::RightButton, Qt::NoModifier, QPoint(8, 8));
        ASSERT_TRUE(seen.shown);
    }

    // Drawn by the drawing operations with real clicks, each ended by Escape.
    void DrawRectangle(const gp_Pnt& a, const gp_Pnt& b)
    {
        DrawRectangleOp op;
        Start(&op);
        Click(a);
        Click(b);
        Escape();
    }
    void DrawTriangle(const gp_Pnt& a, const gp_Pnt& b, const gp_Pnt& c)
    {
        DrawTriangleFaceOp op;
        Start(&op);
        Click(a);
        Click(b);
        Click(c);
        Escape();
    }
    void DrawLine(const gp_Pnt& a, const gp_Pnt& b)
    {
        DrawLineOp op;
        Start(&op);
        Click(a);
        Click(b);
        Escape();
    }

    static double Volume(const TopoDS_Shape& s)
    {
        GProp_GProps props;
        BRepGProp::VolumeProperties(s, props);
        return props.Mass();
    }

    // Every document shape with its name and common attributes, in document order.
    static std::vector<ShapeRecord> Snapshot()
    {
        std::vector<ShapeRecord> out;
        for (TopoDS_Shape& s : ShapeLabelMgr::GetInstance()->GetAllShapes()) {
            ShapeRecord r;
            r.shape = s;
            r.name = ShapeLabelMgr::GetInstance()->GetShapeName(&s);
            TDF_Label label = LabelOf(s);
            BaseShapeParaCreator().GetCommonAttribute(label, r.visible, r.opacity, r.colour);
            out.push_back(r);
        }
        return out;
    }
    static void ExpectSameDocument(const std::vector<ShapeRecord>& was, const std::vector<ShapeRecord>& is)
    {
        ASSERT_EQ(was.size(), is.size());
        for (size_t i = 0; i < was.size(); ++i) {
            EXPECT_TRUE(was[i].shape.IsEqual(is[i].shape)) << i;
            EXPECT_EQ(was[i].name, is[i].name);
            EXPECT_EQ(was[i].visible, is[i].visible);
            EXPECT_EQ(was[i].opacity, is[i].opacity);
            EXPECT_TRUE(was[i].colour.IsEqual(is[i].colour, 0.0));
        }
    }
    // Undo brings `before` back exactly, redo `after`; the picture follows each.
    void ExpectUndoRedo(const std::vector<ShapeRecord>& before, const std::vector<ShapeRecord>& after)
    {
        ASSERT_TRUE(ShapeDocMgr::GetInstance()->Undo());
        viewer->RefreshViewer();
        ExpectSameDocument(before, Snapshot());
        ASSERT_TRUE(ShapeDocMgr::GetInstance()->Redo());
        viewer->RefreshViewer();
        ExpectSameDocument(after, Snapshot());
    }
};

}  // namespace tevtest

#endif

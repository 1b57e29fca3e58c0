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

// While it lives, a timer waits for the next modal dialog of class `className` and answers it:
// for each (object name, text) of `fields` it selects the line edit's text and types the new
// one, then clicks OK, or Cancel when `ok` is false. `shown` and `title` tell what it saw. The
// timer goes with the object, so a dialog that never came cannot be answered in a later test.
class DialogAnswer
{
public:
    DialogAnswer(const char* className, const std::vector<std::pair<QString, QString>>& fields, bool ok)
        : m_className(className), m_fields(fields), m_ok(ok), m_timer(new QTimer())
    {
        m_timer->setInterval(20);
        QObject::connect(m_timer.get(), &QTimer::timeout, [this]() { Poll(); });
        m_timer->start();
    }
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;

    bool shown = false;
    QString title;

private:
    void Poll()
    {
        auto* dlg = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dlg || !dlg->isVisible() || !dlg->inherits(m_className)) return;
        m_timer->stop();
        shown = true;
        title = dlg->windowTitle();
        for (const auto& field : m_fields) {
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
        QTest::mouseClick(buttons->button(m_ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel), Qt::LeftButton);
    }

    const char* m_className;
    std::vector<std::pair<QString, QString>> m_fields;
    bool m_ok;
    std::unique_ptr<QTimer> m_timer;
};

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

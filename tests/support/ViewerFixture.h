// A shown, initialised viewer for GUI tests, with the operation stack emptied before and after
// each test so that no test inherits another's state.
#ifndef VIEWERFIXTURE_H
#define VIEWERFIXTURE_H

#include "DrawOpCommon.h"
#include "DrawOpMgr.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "TevBasicViewer.h"

#include <QTest>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tevtest {

// Empties the operation stack without calling the operations on it, which may be gone already:
// StartOp drops them silently, and the placeholder it pushes is then ended.
inline void EmptyOpStack(TevBasicViewer* viewer)
{
    static DrawOpCommon placeholder;
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    mgr->StartOp(&placeholder, viewer);
    mgr->EndCurrentOp(&placeholder, viewer);
    mgr->SetOutputString(QString());
}

// Makes, initialises and shows a viewer (or a test subclass of it) of `name` at 640 x 480 and
// waits until it is drawn.
template <class Viewer = TevBasicViewer>
std::unique_ptr<Viewer> MakeShownViewer(const std::string& name = "TevPlatform")
{
    std::unique_ptr<Viewer> viewer(new Viewer(name));
    viewer->InitViewer();
    viewer->resize(640, 480);
    viewer->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(viewer.get()));
    QTest::qWait(20);
    return viewer;
}

class ViewerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        viewer = MakeShownViewer(ViewerName());
        EmptyOpStack(viewer.get());
    }
    void TearDown() override
    {
        EmptyOpStack(viewer.get());
        viewer.reset();
    }
    virtual std::string ViewerName() const { return "TevPlatform"; }

    std::unique_ptr<TevBasicViewer> viewer;
};

// A ViewerTest over a new, empty document and an empty selection, which it empties again after.
class DocumentViewerTest : public ViewerTest
{
protected:
    void SetUp() override
    {
        ViewerTest::SetUp();
        ShapeDocMgr::GetInstance()->NewDocument();
        SelectionMgr::GetInstance()->ClearSelList();
    }
    void TearDown() override
    {
        SelectionMgr::GetInstance()->ClearSelList();
        ViewerTest::TearDown();
    }
};

}  // namespace tevtest

#endif

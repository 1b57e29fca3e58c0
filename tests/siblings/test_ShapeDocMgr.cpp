// The document: transactions, undo and redo of whole transactions, a transaction left open.
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <gtest/gtest.h>

namespace {

class ShapeDocMgrTest : public ::testing::Test
{
protected:
    void SetUp() override { ShapeDocMgr::GetInstance()->NewDocument(); }

    static size_t Count() { return ShapeLabelMgr::GetInstance()->GetAllShapes().size(); }

    static void AddBox(double dx)
    {
        ShapeLabelMgr::GetInstance()->AddNewShapeToDoc(ShapeDocMgr::GetInstance()->GetDoc(),
                                                       BRepPrimAPI_MakeBox(dx, 1, 1).Shape());
    }
};

TEST_F(ShapeDocMgrTest, SingletonAndEmptyDocument)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    EXPECT_EQ(mgr, ShapeDocMgr::GetInstance());
    ASSERT_FALSE(mgr->GetDoc().IsNull());
    ASSERT_FALSE(mgr->GetShapeTool().IsNull());
    EXPECT_EQ(Count(), 0u);
    EXPECT_FALSE(mgr->HasOpenTransaction());
    EXPECT_EQ(mgr->GetUndoLimit(), 100);
    EXPECT_EQ(mgr->GetAvailableUndos(), 0);
}

TEST_F(ShapeDocMgrTest, OneTransactionIsOneUndoStep)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->StartTransaction();
    AddBox(1);
    AddBox(2);
    mgr->EndTransaction();
    EXPECT_EQ(Count(), 2u);
    EXPECT_EQ(mgr->GetAvailableUndos(), 1);
    ASSERT_TRUE(mgr->Undo());
    EXPECT_EQ(Count(), 0u);
    ASSERT_TRUE(mgr->Redo());
    EXPECT_EQ(Count(), 2u);
    EXPECT_FALSE(mgr->Redo());
}

TEST_F(ShapeDocMgrTest, StartAfterAnOpenTransactionCommitsIt)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->StartTransaction();
    AddBox(1);
    // An error path returns without EndTransaction.
    mgr->StartTransaction();
    AddBox(2);
    mgr->EndTransaction();
    EXPECT_EQ(Count(), 2u);
    EXPECT_EQ(mgr->GetAvailableUndos(), 2);
    ASSERT_TRUE(mgr->Undo());
    EXPECT_EQ(Count(), 1u);
    ASSERT_TRUE(mgr->Undo());
    EXPECT_EQ(Count(), 0u);
    EXPECT_FALSE(mgr->Undo());
}

TEST_F(ShapeDocMgrTest, UndoCommitsAnOpenTransactionFirst)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->StartTransaction();
    AddBox(1);
    ASSERT_TRUE(mgr->HasOpenTransaction());
    ASSERT_TRUE(mgr->Undo());
    EXPECT_FALSE(mgr->HasOpenTransaction());
    EXPECT_EQ(Count(), 0u);
    ASSERT_TRUE(mgr->Redo());
    EXPECT_EQ(Count(), 1u);
}

TEST_F(ShapeDocMgrTest, AbortRestoresTheDocument)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->StartTransaction();
    AddBox(1);
    mgr->EndTransaction();
    mgr->StartTransaction();
    AddBox(2);
    mgr->AbortTransaction();
    EXPECT_EQ(Count(), 1u);
    EXPECT_EQ(mgr->GetAvailableUndos(), 1);
}

TEST_F(ShapeDocMgrTest, EndWithoutStartDoesNothing)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->EndTransaction();
    EXPECT_EQ(mgr->GetAvailableUndos(), 0);
    EXPECT_FALSE(mgr->Undo());
}

TEST_F(ShapeDocMgrTest, UndoLimitBoundsTheHistory)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->SetUndoLimit(3);
    for (int i = 1; i <= 5; ++i) {
        mgr->StartTransaction();
        AddBox(i);
        mgr->EndTransaction();
    }
    EXPECT_EQ(mgr->GetAvailableUndos(), 3);
    while (mgr->Undo()) {}
    EXPECT_EQ(Count(), 2u);
    mgr->SetUndoLimit(100);
}

TEST_F(ShapeDocMgrTest, NewDocumentStartsEmptyWithoutHistory)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    mgr->StartTransaction();
    AddBox(1);
    mgr->NewDocument();
    EXPECT_EQ(Count(), 0u);
    EXPECT_FALSE(mgr->HasOpenTransaction());
    EXPECT_FALSE(mgr->Undo());
}

}  // namespace

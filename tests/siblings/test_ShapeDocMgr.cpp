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

// The revision moves once per change the manager sees, and never for a transaction that changed
// nothing: readers that keep what they read rely on both.
TEST_F(ShapeDocMgrTest, TheRevisionMovesWithEveryChangeAndOnlyThen)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    unsigned long r = mgr->Revision();
    EXPECT_TRUE(mgr->RevisionIsCurrent());

    mgr->StartTransaction();
    EXPECT_FALSE(mgr->RevisionIsCurrent());  // open: changes not yet counted
    mgr->EndTransaction();
    EXPECT_EQ(mgr->Revision(), r);  // empty transaction: no change
    EXPECT_TRUE(mgr->RevisionIsCurrent());

    mgr->StartTransaction();
    AddBox(1);
    mgr->EndTransaction();
    EXPECT_EQ(mgr->Revision(), ++r);

    mgr->StartTransaction();
    AddBox(2);
    mgr->AbortTransaction();
    EXPECT_EQ(mgr->Revision(), ++r);

    ASSERT_TRUE(mgr->Undo());
    EXPECT_EQ(mgr->Revision(), ++r);
    ASSERT_TRUE(mgr->Redo());
    EXPECT_EQ(mgr->Revision(), ++r);
    EXPECT_FALSE(mgr->Redo());  // nothing to redo: no change
    EXPECT_EQ(mgr->Revision(), r);

    mgr->MarkChanged();
    EXPECT_EQ(mgr->Revision(), ++r);
    mgr->NewDocument();
    EXPECT_EQ(mgr->Revision(), ++r);
}

// GetDoc outside a transaction may be the start of a change nobody counts: until the next
// transaction starts, readers must not trust the revision, and that start counts as a change.
TEST_F(ShapeDocMgrTest, AnAccessOutsideATransactionMakesTheRevisionUncertainUntilTheNextOne)
{
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    const unsigned long r = mgr->Revision();
    mgr->GetDocToRead();
    mgr->GetShapeToolToRead();
    EXPECT_TRUE(mgr->RevisionIsCurrent());  // readers' accessors never count
    mgr->GetDoc();
    EXPECT_FALSE(mgr->RevisionIsCurrent());
    mgr->StartTransaction();
    mgr->EndTransaction();
    EXPECT_TRUE(mgr->RevisionIsCurrent());
    EXPECT_EQ(mgr->Revision(), r + 1);
    mgr->GetShapeTool();
    EXPECT_FALSE(mgr->RevisionIsCurrent());
    // Inside a transaction an access is covered by the transaction's own commit.
    mgr->StartTransaction();
    mgr->GetDoc();
    mgr->EndTransaction();
    EXPECT_TRUE(mgr->RevisionIsCurrent());
}

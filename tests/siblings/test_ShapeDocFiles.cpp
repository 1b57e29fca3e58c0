// The document's files: binary and XML OCAF forms written and read back, a file that cannot be
// read, and the same file opened again after it was saved.
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"

#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <GProp_GProps.hxx>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

double Volume(const TopoDS_Shape& shape)
{
    GProp_GProps props;
    BRepGProp::VolumeProperties(shape, props);
    return props.Mass();
}

class ShapeDocFilesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ShapeDocMgr::GetInstance()->NewDocument();
        ASSERT_TRUE(m_dir.isValid());
    }

    // Two boxes, 2 x 3 x 4 and 1 x 1 x 5, in one transaction: volumes 24 and 5.
    static void AddTwoBoxes()
    {
        ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
        mgr->StartTransaction();
        ShapeLabelMgr::GetInstance()->AddShapeToDoc(mgr->GetDoc(), BRepPrimAPI_MakeBox(2, 3, 4).Shape(), "Box");
        ShapeLabelMgr::GetInstance()->AddShapeToDoc(mgr->GetDoc(), BRepPrimAPI_MakeBox(1, 1, 5).Shape(), "Box");
        mgr->EndTransaction();
    }

    QString Path(const char* name) const { return QDir(m_dir.path()).filePath(name); }

    static void ExpectTheTwoBoxes()
    {
        std::vector<TopoDS_Shape> shapes = ShapeLabelMgr::GetInstance()->GetAllShapes();
        ASSERT_EQ(shapes.size(), 2u);
        EXPECT_NEAR(Volume(shapes[0]), 24.0, 1e-9);
        EXPECT_NEAR(Volume(shapes[1]), 5.0, 1e-9);
    }

    QTemporaryDir m_dir;
};

TEST_F(ShapeDocFilesTest, BinaryAndXmlFormsReadBackTheSameShapesAndNames)
{
    AddTwoBoxes();
    std::vector<TopoDS_Shape> before = ShapeLabelMgr::GetInstance()->GetAllShapes();
    const QString name0 = ShapeLabelMgr::GetInstance()->GetShapeName(&before[0]);
    ASSERT_FALSE(name0.isEmpty());
    for (const char* file : {"doc.xbf", "doc.xml"}) {
        SCOPED_TRACE(file);
        ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
        ASSERT_TRUE(mgr->SaveDocument(Path(file)));
        ASSERT_TRUE(QFile::exists(Path(file)));
        mgr->NewDocument();
        ASSERT_TRUE(ShapeLabelMgr::GetInstance()->GetAllShapes().empty());
        QString error;
        ASSERT_TRUE(mgr->OpenDocument(Path(file), &error)) << error.toStdString();
        ExpectTheTwoBoxes();
        std::vector<TopoDS_Shape> after = ShapeLabelMgr::GetInstance()->GetAllShapes();
        EXPECT_EQ(ShapeLabelMgr::GetInstance()->GetShapeName(&after[0]), name0);
        EXPECT_EQ(mgr->GetAvailableUndos(), 0);
    }
    // The XML form is text: its first bytes are an XML declaration.
    QFile xml(Path("doc.xml"));
    ASSERT_TRUE(xml.open(QIODevice::ReadOnly));
    EXPECT_TRUE(xml.read(5) == "<?xml");
}

TEST_F(ShapeDocFilesTest, AFileThatCannotBeReadLeavesTheDocumentAsItWas)
{
    AddTwoBoxes();
    for (const char* file : {"junk.xbf", "junk.xml"}) {
        QFile junk(Path(file));
        ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
        junk.write("not a document");
        junk.close();
        QString error;
        EXPECT_FALSE(ShapeDocMgr::GetInstance()->OpenDocument(Path(file), &error)) << file;
        EXPECT_FALSE(error.isEmpty());
    }
    // An XML file that is not a document of this kind.
    QFile other(Path("other.xml"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("<?xml version=\"1.0\"?>\n<nothing/>\n");
    other.close();
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->OpenDocument(Path("other.xml")));
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->OpenDocument(Path("missing.xbf")));
    ExpectTheTwoBoxes();
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
}

TEST_F(ShapeDocFilesTest, TheFileJustSavedOpensAgainAsSaved)
{
    AddTwoBoxes();
    ShapeDocMgr* mgr = ShapeDocMgr::GetInstance();
    ASSERT_TRUE(mgr->SaveDocument(Path("same.xbf")));
    // A third shape after the save is not in the file.
    mgr->StartTransaction();
    ShapeLabelMgr::GetInstance()->AddShapeToDoc(mgr->GetDoc(), BRepPrimAPI_MakeBox(7, 7, 7).Shape(), "Box");
    mgr->EndTransaction();
    QString error;
    ASSERT_TRUE(mgr->OpenDocument(Path("same.xbf"), &error)) << error.toStdString();
    ExpectTheTwoBoxes();
}

}  // namespace

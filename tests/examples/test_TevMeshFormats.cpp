// The export forms the demo host offers: each row's code is one the library writes, so a row for
// a writer that is not built fails here rather than in the user's hands.
#include "TevMeshFormats.h"
#include "TevShapeMesher.h"
#include "vis_Connect.h"
#include "vis_ConnectWrite.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <set>

namespace {

TEST(MeshFormatsTest, EveryRowWritesABoxMesh)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    vis_Connect* mesh = TevShapeMesher::Mesh({BRepPrimAPI_MakeBox(1, 1, 1).Shape()}, 0.1);
    ASSERT_NE(mesh, nullptr);
    ASSERT_FALSE(TevMeshFormats::All().empty());
    for (const TevMeshFormat& format : TevMeshFormats::All()) {
        SCOPED_TRACE(format.name.toStdString());
        const QString path = QDir(dir.path()).filePath("mesh" + QString::number(format.code) + "." + format.suffix);
        vis_ConnectWrite(mesh, format.code, path.toLocal8Bit().constData());
        EXPECT_EQ(vis_ConnectError(mesh), 0);
        // The pair form writes two files named after the path; the others write the path.
        const QString written = format.suffix.isEmpty() ? path + ".points" : path;
        EXPECT_GT(QFileInfo(written).size(), 0);
    }
    vis_ConnectDelete(mesh);
}

TEST(MeshFormatsTest, CodesAreUniqueAndFoundByCode)
{
    std::set<int> codes;
    for (const TevMeshFormat& format : TevMeshFormats::All()) {
        EXPECT_TRUE(codes.insert(format.code).second) << format.code;
        EXPECT_EQ(TevMeshFormats::Find(format.code), &format);
    }
    // 0 is no vis_ConnectWrite code.
    EXPECT_EQ(TevMeshFormats::Find(0), nullptr);
}

}  // namespace

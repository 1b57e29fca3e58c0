// The results file reader on a small file written by hand in the solver's fixed columns.
#include "TevFrdReader.h"
#include "vis_State.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <fstream>

namespace {

// Two result sets: the second's blocks must win. Records: " -1", node in 10 columns, values
// in 12 columns each.
const char* kFrd =
    "    1PSTEP                         1           1           1\n"
    " -4  DISP        4    1\n"
    " -5  D1          1    2    1    0\n"
    " -1         1 9.00000E+00 9.00000E+00 9.00000E+00\n"
    " -3\n"
    " -4  DISP        4    1\n"
    " -5  D1          1    2    1    0\n"
    " -1         1 1.00000E-01-2.00000E-01 3.00000E-01\n"
    " -1         3 0.00000E+00 0.00000E+00-4.00000E+00\n"
    " -3\n"
    " -4  STRESS      6    1\n"
    " -5  SXX         1    4    1    1\n"
    " -1         1 1.00000E+01 2.00000E+01 3.00000E+01 4.00000E+00 5.00000E+00 6.00000E+00\n"
    " -3\n"
    " -4  STRAIN      6    1\n"
    " -1         1 7.00000E+00 7.00000E+00 7.00000E+00 7.00000E+00 7.00000E+00 7.00000E+00\n"
    " -3\n"
    "9999\n";

TEST(TevFrdReader, ReadsTheLastDisplacementAndStressBlocks)
{
    QTemporaryDir dir;
    const std::string path = dir.path().toStdString() + "/job.frd";
    std::ofstream(path) << kFrd;
    vis_State* u = vis_StateNew();
    vis_State* s = vis_StateNew();
    std::string error;
    ASSERT_TRUE(TevFrdReader::Read(path, 3, u, s, &error)) << error;
    int ids[3] = {1, 2, 3}, stat[3];
    vis_StateDataStat(u, 3, ids, stat);
    EXPECT_EQ(stat[0], 1);
    EXPECT_EQ(stat[1], 0);
    EXPECT_EQ(stat[2], 1);
    double v[9];
    vis_StateDatadv(u, 1, ids, v);
    EXPECT_DOUBLE_EQ(v[0], 0.1);
    EXPECT_DOUBLE_EQ(v[1], -0.2);
    EXPECT_DOUBLE_EQ(v[2], 0.3);
    vis_StateDatadv(u, 1, ids + 2, v);
    EXPECT_DOUBLE_EQ(v[2], -4.0);
    double t[6];
    vis_StateDatadv(s, 1, ids, t);
    const double expected[6] = {10.0, 20.0, 30.0, 4.0, 5.0, 6.0};
    for (int k = 0; k < 6; ++k) EXPECT_DOUBLE_EQ(t[k], expected[k]) << k;
    vis_StateDelete(u);
    vis_StateDelete(s);
}

TEST(TevFrdReader, ReportsAMissingFileAndAFileWithoutDisplacements)
{
    QTemporaryDir dir;
    vis_State* u = vis_StateNew();
    std::string error;
    EXPECT_FALSE(TevFrdReader::Read(dir.path().toStdString() + "/none.frd", 3, u, nullptr, &error));
    EXPECT_EQ(error, "Cannot read the results file " + dir.path().toStdString() + "/none.frd");
    const std::string path = dir.path().toStdString() + "/empty.frd";
    std::ofstream(path) << "9999\n";
    EXPECT_FALSE(TevFrdReader::Read(path, 3, u, nullptr, &error));
    EXPECT_EQ(error, "The results file has no displacements: " + path);
    vis_StateDelete(u);
}

}  // namespace

// The property family: numbered parameter tables, unset reads, range and type errors, user
// values and the evaluation of location values.
#include "vis_EProp.h"
#include "vis_ElemTopology.h"
#include "vis_GProp.h"
#include "vis_MProp.h"
#include "vis_RProp.h"
#include "vis_SProp.h"
#include "vis_UProp.h"
#include "vsy_PropSet.h"
#include "vsy_TestSupport.h"

#include <cstring>

using namespace vsytest;

namespace {

class PropTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        sp = vis_SPropNew();
        vis_SPropDef(sp, 1);
        ep = vis_EPropNew();
        vis_EPropDef(ep, 2);
    }
    void TearDown() override
    {
        vis_SPropDelete(sp);
        vis_EPropDelete(ep);
        ContainerTest::TearDown();
    }
    vis_SProp* sp = nullptr;
    vis_EProp* ep = nullptr;
};

TEST_F(PropTest, CodePastTheTableReportsTypeWithCode2)
{
    double d = 7.5;
    vis_SPropValueDouble(sp, 60, &d);  // codes 0 to 59
    ExpectOnlyReport("vis_SPropValueDouble", SYS_ERROR_ENUM, "type= 60");
    EXPECT_EQ(d, 7.5);
    EXPECT_EQ(vis_SPropError(sp), SYS_ERROR_ENUM);
    EXPECT_EQ(vis_SPropError(sp), 0);
}

TEST_F(PropTest, CodeBelowTheUserBlocksReportsTypeWithCode2)
{
    int v = 3;
    vis_SPropValueInteger(sp, -5000001, &v);
    ExpectOnlyReport("vis_SPropValueInteger", SYS_ERROR_ENUM, "type= -5000001");
    EXPECT_EQ(v, 3);
}

TEST_F(PropTest, ElementPropertyRangeTextIsImproperType)
{
    int flag = 5;
    vis_EPropValueFlag(ep, 135, &flag);
    ExpectOnlyReport("vis_EPropValueFlag", SYS_ERROR_ENUM, "Improper type= 135");
    EXPECT_EQ(flag, 5);
}

TEST_F(PropTest, IntegerReadOfADoubleReportsImproperDataType)
{
    vis_SPropSetValued(sp, 5, 0.25);  // 5 "Time initial" is a double
    int v = 11;
    vis_SPropValueInteger(sp, 5, &v);
    ExpectOnlyReport("vis_SPropValueInteger", SYS_ERROR_OPERATION, "Improper data type, type= 5");
    EXPECT_EQ(v, 11);
    EXPECT_EQ(vis_SPropError(sp), SYS_ERROR_OPERATION);
}

TEST_F(PropTest, UnsetParameterLeavesThePresetDefault)
{
    double d = 3.5;
    int i = 17, flag = 9;
    char text[81] = "default";
    vis_SPropValueDouble(sp, 6, &d);
    vis_SPropValueInteger(sp, 8, &i);
    vis_SPropValueString(sp, 19, text);
    vis_SPropValueFlag(sp, 6, &flag);
    EXPECT_EQ(d, 3.5);
    EXPECT_EQ(i, 17);
    EXPECT_STREQ(text, "default");
    EXPECT_EQ(flag, 0);
    ExpectNoReport();
}

TEST_F(PropTest, ValuesReadBackExactly)
{
    vis_SPropSetValuei(sp, 8, 12);
    vis_SPropSetValued(sp, 7, 0.1);
    vis_SPropSetValuec(sp, 19, "Plate under pressure");
    int i = 0, flag = 0;
    double d = 0;
    char text[81] = "";
    vis_SPropValueInteger(sp, 8, &i);
    vis_SPropValueDouble(sp, 7, &d);
    vis_SPropValueString(sp, 19, text);
    vis_SPropValueFlag(sp, 7, &flag);
    EXPECT_EQ(i, 12);
    EXPECT_EQ(d, 0.1);
    EXPECT_STREQ(text, "Plate under pressure");
    EXPECT_EQ(flag, 1);
    vis_SPropSetValued(sp, 7, 0.2);  // a later set replaces
    vis_SPropValueDouble(sp, 7, &d);
    EXPECT_EQ(d, 0.2);
    char name[81];
    vis_SPropValueName(sp, 18, name);
    EXPECT_STREQ(name, "Multipoint constraint case Id");
    ExpectNoReport();
}

TEST_F(PropTest, FloatAndDoubleRequestsShareTheRealParameters)
{
    vis_SPropSetValuef(sp, 37, 1.5f);  // 37 "Mass factor" d
    double d = 0;
    float f = 0;
    vis_SPropValueDouble(sp, 37, &d);
    vis_SPropValueFloat(sp, 37, &f);
    EXPECT_EQ(d, 1.5);
    EXPECT_EQ(f, 1.5f);
    vis_SPropValueFloat(sp, 19, &f);  // a string
    ExpectOnlyReport("vis_SPropValueFloat", SYS_ERROR_OPERATION, "Improper data type, type= 19");
}

TEST_F(PropTest, StringIsCutToItsCapacity)
{
    std::string longtext(100, 'x');
    vis_SPropSetValuec(sp, 20, longtext.c_str());
    char text[120];
    std::memset(text, 'y', sizeof(text));
    vis_SPropValueString(sp, 20, text);
    EXPECT_EQ(std::string(text), std::string(80, 'x'));  // sx81: 80 characters and the end
}

TEST_F(PropTest, CountedRowTakesItsCountFromTheCountParameter)
{
    const int ids[3] = {10, 20, 30};
    vis_SPropSetValueiv(sp, 3, ids);
    ExpectOnlyReport("vis_SPropSetValueiv", SYS_ERROR_OPERATION, "Count parameter not set, type= 3");
    Reports().clear();
    vis_SPropSetValuei(sp, 2, 2);  // "Number of load cases"
    vis_SPropSetValueiv(sp, 3, ids);
    int got[3] = {-1, -1, -1};
    vis_SPropValueInteger(sp, 3, got);
    EXPECT_EQ(got[0], 10);
    EXPECT_EQ(got[1], 20);
    EXPECT_EQ(got[2], -1);  // only two were stored
    int type = 0, count = 0, nloc = 0;
    vis_SPropValueParams(sp, 3, &type, &count, &nloc);
    EXPECT_EQ(type, VIS_PROP_INTEGER);
    EXPECT_EQ(count, 2);
    ExpectNoReport();
}

TEST_F(PropTest, UserCodeWithoutUserValuesReportsType)
{
    int v = 4;
    vis_SPropValueInteger(sp, -1, &v);
    ExpectOnlyReport("vis_SPropValueInteger", SYS_ERROR_ENUM, "type= -1");
    EXPECT_EQ(v, 4);
}

TEST_F(PropTest, UserValuesByBlock)
{
    vis_SPropSetValuei(sp, 59, 2);  // two user values: index 0 and 1 of each block
    vis_SPropSetValuei(sp, -1, 7);
    vis_SPropSetValued(sp, -1000002, 2.5);
    vis_SPropSetValuec(sp, -2000001, "user text");
    vis_SPropSetValuef(sp, -3000001, 0.75f);
    int i = 0;
    double d = 0;
    float f = 0;
    char text[32] = "";
    vis_SPropValueInteger(sp, -1, &i);
    vis_SPropValueDouble(sp, -1000002, &d);
    vis_SPropValueString(sp, -2000001, text);
    vis_SPropValueFloat(sp, -3000001, &f);
    EXPECT_EQ(i, 7);
    EXPECT_EQ(d, 2.5);
    EXPECT_STREQ(text, "user text");
    EXPECT_EQ(f, 0.75f);
    int flag = 1;
    vis_SPropValueFlag(sp, -2, &flag);
    EXPECT_EQ(flag, 0);  // index 1 of the integers never set
    ExpectNoReport();
    vis_SPropSetValuei(sp, 59, 3);  // more user values later: the slots grow, values stay
    vis_SPropValueFlag(sp, -3, &flag);
    EXPECT_EQ(flag, 0);
    vis_SPropValueInteger(sp, -1, &i);
    EXPECT_EQ(i, 7);
    ExpectNoReport();
    vis_SPropSetValuei(sp, 59, 2);
    vis_SPropSetValuei(sp, -3, 1);  // index 2: beyond two user values
    ExpectOnlyReport("vis_SPropSetValuei", SYS_ERROR_ENUM, "type= -3");
    Reports().clear();
    vis_SPropValueInteger(sp, -1000001, &i);  // a double slot read as an integer
    ExpectOnlyReport("vis_SPropValueInteger", SYS_ERROR_OPERATION, "Improper data type, type= -1000001");
}

TEST_F(PropTest, DefClearsReDefKeeps)
{
    vis_SPropSetValuei(sp, 0, 4);
    vis_SPropReDef(sp, 2);
    int type = 0, v = 0;
    vis_SPropGetType(sp, &type);
    vis_SPropValueInteger(sp, 0, &v);
    EXPECT_EQ(type, 2);
    EXPECT_EQ(v, 4);
    vis_SPropDef(sp, 3);
    v = -1;
    vis_SPropValueInteger(sp, 0, &v);
    EXPECT_EQ(v, -1);
    vis_SPropDef(sp, 6);
    ExpectOnlyReport("vis_SPropDef", SYS_ERROR_ENUM, "type= 6");
    vis_SPropGetType(sp, &type);
    EXPECT_EQ(type, 3);
}

TEST_F(PropTest, MaterialTypeOneIsRefused)
{
    vis_MProp* mp = vis_MPropNew();
    vis_MPropDef(mp, 1);
    ExpectOnlyReport("vis_MPropDef", SYS_ERROR_ENUM, "type= 1");
    vis_MPropDef(mp, 2);
    const double e[3] = {1e5, 2e5, 3e5};
    vis_MPropSetValuedv(mp, 7, e);
    double got[3] = {};
    vis_MPropValueDouble(mp, 7, got);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(got[i], e[i]);
    vis_MPropDelete(mp);
}

TEST_F(PropTest, MaterialListsItsSetParametersAscending)
{
    vis_MProp* mp = vis_MPropNew();
    vis_MPropDef(mp, 0);
    int num = -1, codes[VIS_MPROP_NUM];
    vis_MPropGetParams(mp, &num, codes);
    EXPECT_EQ(num, 0);  // nothing set yet
    vis_MPropSetValued(mp, 19, 45.0);  // thermal conductivity
    vis_MPropSetValued(mp, 1, 2.1e11);  // Young's modulus
    vis_MPropSetValued(mp, 0, 7850.0);  // density
    vis_MPropSetValued(mp, 1, 2.0e11);  // a second set is the same parameter
    const double e3[3] = {1, 2, 3};
    vis_MPropSetValuedv(mp, 7, e3);
    vis_MPropGetParams(mp, &num, nullptr);  // count only
    EXPECT_EQ(num, 4);
    vis_MPropGetParams(mp, &num, codes);
    // Set in the order 19, 1, 0, 7: listed by code, 0 1 7 19.
    ASSERT_EQ(num, 4);
    EXPECT_EQ(codes[0], 0);
    EXPECT_EQ(codes[1], 1);
    EXPECT_EQ(codes[2], 7);
    EXPECT_EQ(codes[3], 19);
    vis_MPropDef(mp, 2);  // Def clears every parameter
    vis_MPropGetParams(mp, &num, codes);
    EXPECT_EQ(num, 0);
    ExpectNoReport();
    vis_MPropGetParams(nullptr, &num, codes);
    ExpectOnlyReport("vis_MPropGetParams", SYS_ERROR_NULLOBJECT, "");
    vis_MPropDelete(mp);
}

TEST_F(PropTest, FailedAllocationKeepsTheOldValue)
{
    vis_SPropSetValued(sp, 6, 1.0);
    FailAllocation(1);
    vis_SPropSetValued(sp, 6, 2.0);
    ExpectOnlyReport("vis_SPropSetValued", SYS_ERROR_MEMORY, "type= 6");
    RestoreAllocation();
    double d = 0;
    vis_SPropValueDouble(sp, 6, &d);
    EXPECT_EQ(d, 1.0);
}

TEST_F(PropTest, EvaluationShapeOutsideZeroToThreeReportsShape)
{
    vis_EPropSetValued(ep, 7, 1.0);
    double out[8] = {5, 5, 5, 5, 5, 5, 5, 5};
    vis_EPropEvaldv(ep, 7, SYS_SHAPE_TET, 0, 0, out);
    ExpectOnlyReport("vis_EPropEvaldv", SYS_ERROR_ENUM, "shape= 4");
    EXPECT_EQ(out[0], 5.0);
}

TEST_F(PropTest, QuadraticTriangleInterpolatesTheFirstThreeLocations)
{
    const double corner[4] = {1.0, 2.0, 4.0, 100.0};
    vis_EPropSetValuedv(ep, 7, corner);
    double out[6] = {};
    vis_EPropEvaldv(ep, 7, SYS_SHAPE_TRI, 3, 0, out);
    // Corners take their values; mid nodes of edges 1-2, 2-3, 3-1 the means: 1.5, 3, 2.5.
    const double want[6] = {1.0, 2.0, 4.0, 1.5, 3.0, 2.5};
    for (int i = 0; i < 6; ++i) EXPECT_DOUBLE_EQ(out[i], want[i]) << i;
}

TEST_F(PropTest, BeamEndValuesInterpolateAlongTheLine)
{
    const double area[2] = {2.0, 4.0};  // 14 "Area" d L2
    vis_EPropSetValuedv(ep, 14, area);
    double out[3] = {};
    vis_EPropEvaldv(ep, 14, SYS_SHAPE_LINE, 3, 0, out);
    // Ends first, then the middle node at r = 0: (2 + 4) / 2.
    EXPECT_DOUBLE_EQ(out[0], 2.0);
    EXPECT_DOUBLE_EQ(out[1], 4.0);
    EXPECT_DOUBLE_EQ(out[2], 3.0);
}

TEST_F(PropTest, VectorAtLocationsKeepsItsComponents)
{
    // 30 "Stress recovery section location - C(y,z)" dx2 L2: two values at each end.
    const double c[4] = {1.0, 10.0, 3.0, 30.0};
    vis_EPropSetValuedv(ep, 30, c);
    double out[4] = {};
    vis_EPropEvaldv(ep, 30, SYS_SHAPE_LINE, 2, 0, out);
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(out[i], c[i]);
    int type = 0, count = 0, nloc = 0;
    vis_EPropValueParams(ep, 30, &type, &count, &nloc);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(nloc, 2);
}

TEST_F(PropTest, GlobalAndResultPropertiesUseTheirTables)
{
    vis_GProp* gp = vis_GPropNew();
    vis_RProp* rp = vis_RPropNew();
    vis_GPropSetValuec(gp, 5, "solver");
    vis_RPropSetValuef(rp, 1, 12.5f);
    vis_RPropSetType(rp, 42);
    char text[81] = "";
    float f = 0;
    int type = 0;
    vis_GPropValueString(gp, 5, text);
    vis_RPropValueFloat(rp, 1, &f);
    vis_RPropGetType(rp, &type);
    EXPECT_STREQ(text, "solver");
    EXPECT_EQ(f, 12.5f);
    EXPECT_EQ(type, 42);
    vis_GPropValueString(gp, 10, text);
    ExpectOnlyReport("vis_GPropValueString", SYS_ERROR_ENUM, "type= 10");
    vis_GPropDelete(gp);
    vis_RPropDelete(rp);
}

TEST_F(PropTest, UserArraysKeepTheirDimensions)
{
    vis_UProp* up = vis_UPropNew();
    vis_UPropDef(up, 2);
    const int dims[2] = {2, 3};
    const double a[6] = {1, 2, 3, 4, 5, 6};
    vis_UPropSetArraydv(up, -4000002, 2, dims, a);  // array block, index 1
    double got[6] = {};
    int ndim = 0, gd[8] = {};
    vis_UPropValueDouble(up, -4000002, got);
    vis_UPropValueDims(up, -4000002, &ndim, gd);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(got[i], a[i]);
    EXPECT_EQ(ndim, 2);
    EXPECT_EQ(gd[1], 3);
    ExpectNoReport();
    const int bad[1] = {0};
    vis_UPropSetArraydv(up, -4000001, 1, bad, a);
    vis_UPropValueInteger(up, -4000001, &ndim);
    vis_UPropDef(up, -1);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_EQ(reports()[0].text, "nument= 1");
    EXPECT_EQ(reports()[1].text, "Improper data type, type= -4000001");
    EXPECT_EQ(reports()[2].text, "nument= -1");
    vis_UPropDelete(up);
}

TEST_F(PropTest, PropSetReplacesAndReads)
{
    vsy_PropSet* set = vsy_PropSetNew();
    vsy_PropSet_Insert(set, "ORIENT1", 4);
    vsy_PropSet_Insert(set, "ORIENT1", 9);  // the old entry is freed (the sanitizer build checks)
    vsy_PropSet_Insert(set, "ORIENT2", 1);
    int flag = 0, value = 0, count = 0;
    vsy_PropSetValue(set, "ORIENT1", &flag, &value);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(value, 9);
    vsy_PropSetCount(set, &count);
    EXPECT_EQ(count, 2);
    value = -3;
    vsy_PropSetValue(set, "NONE", &flag, &value);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(value, -3);
    FailAllocation(1, true);
    vsy_PropSet_Insert(set, "ORIENT3", 2);
    RestoreAllocation();
    ASSERT_FALSE(reports().empty());
    EXPECT_EQ(reports().back().name, "vsy_PropSet_Insert");
    EXPECT_EQ(reports().back().code, SYS_ERROR_MEMORY);
    EXPECT_EQ(reports().back().text, "");
    EXPECT_EQ(vsy_PropSetError(set), SYS_ERROR_MEMORY);
    vsy_PropSetDelete(set);
}

}  // namespace

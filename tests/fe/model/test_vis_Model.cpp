// vis_Model: slots by object-type code, the element thickness rule, and vsy_List.
#include "vis_Connect.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_Model.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"
#include "vsy_TestSupport.h"

using namespace vsytest;

namespace {

class ModelTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        model = vis_ModelNew();
    }
    void TearDown() override
    {
        vis_ModelDelete(model);
        ContainerTest::TearDown();
    }
    vis_Model* model = nullptr;
};

TEST_F(ModelTest, ObjectSlotsHoldWhatWasSetAndNullOtherwise)
{
    int a = 0, b = 0;
    void* got = &a;
    vis_ModelGetObject(model, SYS_UNITS, &got);
    EXPECT_EQ(got, nullptr);  // never set: null
    vis_ModelSetObject(model, SYS_CONNECT, &a);
    vis_ModelSetObject(model, SYS_MODELOBJ4, &b);
    vis_ModelGetObject(model, SYS_CONNECT, &got);
    EXPECT_EQ(got, &a);
    vis_ModelGetObject(model, SYS_MODELOBJ4, &got);
    EXPECT_EQ(got, &b);
    ExpectNoReport();
    EXPECT_EQ(vis_ModelError(model), 0);
}

TEST_F(ModelTest, EveryHashCodeHasItsOwnSlot)
{
    const int codes[14] = {2100, 2330, 2320, 2340, 2550, 2310, 2300, 2560, 2600, 2113, 2114, 2116, 2540, 2660};
    vsy_HashTable tabs[14];
    for (int i = 0; i < 14; ++i) vis_ModelSetHashTable(model, codes[i], &tabs[i]);
    for (int i = 0; i < 14; ++i) {
        vsy_HashTable* got = nullptr;
        vis_ModelGetHashTable(model, codes[i], &got);
        EXPECT_EQ(got, &tabs[i]) << codes[i];
    }
    ExpectNoReport();
}

TEST_F(ModelTest, ObjectGetWithAHashCodeFailsWithCode3)
{
    void* got = model;  // must stay as it was
    vis_ModelGetObject(model, SYS_COORDSYS, &got);
    ExpectOnlyReport("vis_ModelGetObject", SYS_ERROR_OBJECTTYPE, "objecttype= 2100");
    EXPECT_EQ(got, model);
    EXPECT_EQ(vis_ModelError(model), SYS_ERROR_OBJECTTYPE);
    EXPECT_EQ(vis_ModelError(model), 0);  // polled once
}

TEST_F(ModelTest, HashGetWithAnObjectCodeFailsWithCode3)
{
    vsy_HashTable* got = nullptr;
    vis_ModelGetHashTable(model, SYS_CONNECT, &got);
    ExpectOnlyReport("vis_ModelGetHashTable", SYS_ERROR_OBJECTTYPE, "type= 2080");
    EXPECT_EQ(vis_ModelError(model), SYS_ERROR_OBJECTTYPE);
}

TEST_F(ModelTest, FailedSetLeavesTheSlots)
{
    int a = 0;
    vis_ModelSetObject(model, SYS_CONNECT, &a);
    vis_ModelSetObject(model, 2081, nullptr);
    vis_ModelSetHashTable(model, SYS_SPROP, nullptr);  // the list code is no hash table
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_EQ(reports()[0].text, "objecttype= 2081");
    EXPECT_EQ(reports()[1].name, "vis_ModelSetHashTable");
    EXPECT_EQ(reports()[1].text, "type= 2280");
    void* got = nullptr;
    vis_ModelGetObject(model, SYS_CONNECT, &got);
    EXPECT_EQ(got, &a);
}

TEST_F(ModelTest, ListAcceptsOnly2280)
{
    vsy_List* list = vsy_ListNew();
    vis_ModelSetList(model, SYS_SPROP, list);
    vsy_List* got = nullptr;
    vis_ModelGetList(model, SYS_SPROP, &got);
    EXPECT_EQ(got, list);
    ExpectNoReport();
    for (int code : {SYS_EPROP, SYS_CONNECT, 2281}) {
        Reports().clear();
        got = nullptr;
        vis_ModelGetList(model, code, &got);
        ExpectOnlyReport("vis_ModelGetList", SYS_ERROR_OBJECTTYPE, "type= " + std::to_string(code));
        EXPECT_EQ(got, nullptr);
    }
    Reports().clear();
    vis_ModelSetList(model, SYS_EPROP, list);
    ExpectOnlyReport("vis_ModelSetList", SYS_ERROR_OBJECTTYPE, "type= 2300");
    vsy_ListDelete(list);
}

TEST_F(ModelTest, IntegersByOption)
{
    int v = -1;
    vis_ModelGetInteger(model, 11, &v);
    EXPECT_EQ(v, 0);  // zero after creation
    vis_ModelSetInteger(model, 3, 42);
    vis_ModelGetInteger(model, 3, &v);
    EXPECT_EQ(v, 42);
    vis_ModelGetInteger(model, 12, &v);
    ExpectOnlyReport("vis_ModelGetInteger", SYS_ERROR_ENUM, "type= 12");
    EXPECT_EQ(v, 42);
}

TEST_F(ModelTest, CreationFailureReportsModel)
{
    FailAllocation(1);
    EXPECT_EQ(vis_ModelNew(), nullptr);
    ExpectOnlyReport("Model", SYS_ERROR_MEMORY, "Creation Failure");
}

TEST_F(ModelTest, NullModelReportsCode5)
{
    vis_ModelSetObject(nullptr, SYS_CONNECT, nullptr);
    ExpectOnlyReport("vis_ModelSetObject", SYS_ERROR_NULLOBJECT, "");
    EXPECT_EQ(vis_ModelError(nullptr), SYS_ERROR_NULLOBJECT);
}

// Thickness: a quadrilateral 1 2 3 4 (element 1) and a triangle 1 2 3 (element 2) on the unit
// square, both with propid 5.
class ThicknessTest : public ModelTest {
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        connect = vis_ConnectNew();
        vis_ConnectDef(connect, 4, 3);
        const double x[4][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
        for (int i = 0; i < 4; ++i) vis_ConnectSetCoordsdv(connect, i + 1, x[i]);
        const int quad[4] = {1, 2, 3, 4}, tri[3] = {1, 2, 3};
        vis_ConnectSetTopology(connect, 1, SYS_SHAPE_QUAD, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 1, quad);
        vis_ConnectSetTopology(connect, 2, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 2, tri);
        vis_ConnectSetElemAssoc(connect, 2, 1, 5);
        vis_ConnectSetElemAssoc(connect, 2, 2, 5);
        const int tet[4] = {1, 2, 3, 4};
        vis_ConnectSetTopology(connect, 3, SYS_SHAPE_TET, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 3, tet);
        vis_ConnectSetElemAssoc(connect, 2, 3, 5);
        vis_ModelSetObject(model, SYS_CONNECT, connect);
        eprops = vsy_HashTableNew();
        prop = vis_EPropNew();
        vsy_HashTableInsert(eprops, 5, prop);
        elemdat = vis_ElemDatNew();
        vis_ElemDatDef(elemdat, 2, VIS_ELEMDAT_THICKNESS, 4);
        elemdats = vsy_HashTableNew();
        vsy_HashTableInsert(elemdats, VIS_ELEMDAT_THICKNESS, elemdat);
    }
    void TearDown() override
    {
        vsy_HashTableDelete(elemdats);
        vis_ElemDatDelete(elemdat);
        vsy_HashTableDelete(eprops);
        vis_EPropDelete(prop);
        vis_ConnectDelete(connect);
        ModelTest::TearDown();
    }
    /* Gives property 5 a type and a one-location thickness of 0.5 and puts it in the model. */
    void UseProperty(int type)
    {
        vis_EPropDef(prop, type);
        vis_EPropSetValued(prop, 7, 0.5);
        vis_ModelSetHashTable(model, SYS_EPROP, eprops);
    }
    vis_Connect* connect = nullptr;
    vsy_HashTable* eprops = nullptr;
    vis_EProp* prop = nullptr;
    vis_ElemDat* elemdat = nullptr;
    vsy_HashTable* elemdats = nullptr;
};

TEST_F(ThicknessTest, NoDataNoPropertyGivesZerosWithoutError)
{
    double t[4] = {9, 9, 9, 9};
    vis_ModelElemThickness(model, 1, t);
    for (double v : t) EXPECT_EQ(v, 0.0);
    ExpectNoReport();
    EXPECT_EQ(vis_ModelError(model), 0);
}

TEST_F(ThicknessTest, MissingConnectReportsCode5)
{
    vis_ModelSetObject(model, SYS_CONNECT, nullptr);
    double t[4] = {9, 9, 9, 9};
    vis_ModelElemThickness(model, 1, t);
    ExpectOnlyReport("vis_ModelElemThickness", SYS_ERROR_NULLOBJECT, "Connect object");
    EXPECT_EQ(t[0], 9.0);
    EXPECT_EQ(vis_ModelError(model), SYS_ERROR_NULLOBJECT);
}

TEST_F(ThicknessTest, ElementDataWinsOverTheProperty)
{
    UseProperty(2);
    vis_ModelSetHashTable(model, SYS_ELEMDAT, elemdats);
    const double d[4] = {1, 2, 3, 4};
    vis_ElemDatSetDatadv(elemdat, 1, 4, d);
    double t[4] = {};
    vis_ModelElemThickness(model, 1, t);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(t[i], d[i]);
}

TEST_F(ThicknessTest, ZeroAtTheFirstNodeFallsBackOnTheShellProperty)
{
    UseProperty(2);
    vis_ModelSetHashTable(model, SYS_ELEMDAT, elemdats);
    const double d[4] = {0.0, 2, 3, 4};  // only the first value decides: replaced whole
    vis_ElemDatSetDatadv(elemdat, 1, 4, d);
    double t[4] = {};
    vis_ModelElemThickness(model, 1, t);
    for (double v : t) EXPECT_EQ(v, 0.5);  // one location: repeated at every node
    ExpectNoReport();
}

TEST_F(ThicknessTest, MembranePropertyGivesNoFallback)
{
    UseProperty(3);
    double t[4] = {9, 9, 9, 9};
    vis_ModelElemThickness(model, 1, t);
    for (double v : t) EXPECT_EQ(v, 0.0);
}

TEST_F(ThicknessTest, TriangleWithFourCornerThicknessTakesTheFirstThree)
{
    vis_EPropDef(prop, 2);
    const double corner[4] = {1.0, 2.0, 3.0, 100.0};
    vis_EPropSetValuedv(prop, 7, corner);
    vis_ModelSetHashTable(model, SYS_EPROP, eprops);
    double t[3] = {};
    vis_ModelElemThickness(model, 2, t);
    // Linear triangle functions are 1 at their own corner: each node gets its corner's value.
    EXPECT_DOUBLE_EQ(t[0], 1.0);
    EXPECT_DOUBLE_EQ(t[1], 2.0);
    EXPECT_DOUBLE_EQ(t[2], 3.0);
}

TEST_F(ThicknessTest, ShellPropertyOnASolidIsPolledIntoTheModel)
{
    UseProperty(2);
    double t[4] = {9, 9, 9, 9};
    vis_ModelElemThickness(model, 3, t);
    ExpectOnlyReport("vis_EPropEvaldv", SYS_ERROR_ENUM, "shape= 4");
    for (double v : t) EXPECT_EQ(v, 0.0);  // the zeros stay
    EXPECT_EQ(vis_ModelError(model), SYS_ERROR_ENUM);
    EXPECT_EQ(vis_EPropError(prop), 0);  // consumed by the model's poll
}

class ListTest : public ContainerTest {};

TEST_F(ListTest, PositionsFromOne)
{
    vsy_List* list = vsy_ListNew();
    int a, b, c;
    void* got = &a;
    vsy_ListRef(list, 1, &got);
    EXPECT_EQ(got, nullptr);
    for (int i = 0; i < 20; ++i) vsy_ListAppend(list, i % 2 ? &a : &b);
    int n = 0;
    vsy_ListCount(list, &n);
    EXPECT_EQ(n, 20);
    vsy_ListRef(list, 1, &got);
    EXPECT_EQ(got, &b);  // position 1 is the first appended (i = 0)
    vsy_ListSet(list, 20, &c);
    vsy_ListRef(list, 20, &got);
    EXPECT_EQ(got, &c);
    vsy_ListRef(list, 0, &got);
    EXPECT_EQ(got, nullptr);
    vsy_ListSet(list, 21, &c);
    ExpectOnlyReport("vsy_ListSet", SYS_ERROR_VALUE, "index= 21");
    EXPECT_EQ(vsy_ListError(list), SYS_ERROR_VALUE);
    vsy_ListDelete(list);
}

TEST_F(ListTest, FailedGrowthAppendsNothing)
{
    vsy_List* list = vsy_ListNew();
    FailAllocation(1);
    int a;
    vsy_ListAppend(list, &a);
    ExpectOnlyReport("vsy_ListAppend", SYS_ERROR_MEMORY, "Realloc vec");
    int n = -1;
    vsy_ListCount(list, &n);
    EXPECT_EQ(n, 0);
    vsy_ListDelete(list);
}

}  // namespace

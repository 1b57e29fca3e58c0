// The property family's options and stream form: round trips of every parameter type and of
// user values of all five blocks, the documented byte layout, and refusal of truncated,
// corrupted and foreign streams with the object left as it was.
#include "StreamBytes.h"
#include "vis_EProp.h"
#include "vis_ElemTopology.h"
#include "vis_GProp.h"
#include "vis_MProp.h"
#include "vis_RProp.h"
#include "vis_SProp.h"
#include "vis_UProp.h"
#include "vsy_TestSupport.h"

#include <cstring>

using namespace vsytest;
using namespace streamtest;

namespace {

// Every table parameter of a and b: both unset, or the same count, scalars per location and
// data (strings up to their end).
template <class P>
void ExpectSameStore(P* a, P* b, const vis_PropTable& tab)
{
    vis_PropRef ra = VIS_PROP_REF(a, tab), rb = VIS_PROP_REF(b, tab);
    EXPECT_EQ(a->type, b->type);
    for (int code = 0; code < tab.num; ++code) {
        const vis_PropSlot* sa = vis_Prop_SlotOf(&ra, code);
        const vis_PropSlot* sb = vis_Prop_SlotOf(&rb, code);
        ASSERT_EQ(sa == nullptr, sb == nullptr) << "code " << code;
        if (!sa) continue;
        EXPECT_EQ(sa->count, sb->count) << "code " << code;
        EXPECT_EQ(sa->perloc, sb->perloc) << "code " << code;
        int type = tab.rows[code].datatype;
        if (type == VIS_PROP_STRING) EXPECT_STREQ((const char*)sa->data, (const char*)sb->data);
        else EXPECT_EQ(0, std::memcmp(sa->data, sb->data, (size_t)sa->count * (type == VIS_PROP_INTEGER ? 4 : 8)));
    }
}

class PropStreamTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        sp = vis_SPropNew();
        FillStep(sp);
        target = vis_SPropNew();
        PresetTarget(target);
    }
    void TearDown() override
    {
        vis_SPropDelete(sp);
        vis_SPropDelete(target);
        ContainerTest::TearDown();
    }
    // A transient step with an integer, counted integer and double vectors, a double, a
    // string, and one user value in each of the five blocks.
    static void FillStep(vis_SProp* p)
    {
        static const int ids[3] = {11, 12, 13};
        static const double factors[3] = {1.0, 0.5, 0.25};
        vis_SPropDef(p, 4);
        vis_SPropSetValuei(p, 0, 4);
        vis_SPropSetValuei(p, 2, 3);
        vis_SPropSetValueiv(p, 3, ids);
        vis_SPropSetValuedv(p, 4, factors);
        vis_SPropSetValued(p, 6, 0.01);
        vis_SPropSetValuec(p, 19, "Transient step");
        vis_SPropSetValuei(p, 59, 2);
        vis_SPropSetValuei(p, -1, 42);
        vis_SPropSetValued(p, -1000001, 2.5);
        vis_SPropSetValuec(p, -2000001, "user text");
        vis_SPropSetValuef(p, -3000001, 0.75f);
        vis_SPropSetValued(p, -4000002, -3.5);
    }
    // A static step holding only "Time initial" 9: what a refused load must leave.
    static void PresetTarget(vis_SProp* p)
    {
        vis_SPropDef(p, 1);
        vis_SPropSetValued(p, 5, 9.0);
    }
    static void ExpectPreset(vis_SProp* p)
    {
        int type = 0, flag = 1;
        double t = 0.0;
        vis_SPropGetType(p, &type);
        vis_SPropValueDouble(p, 5, &t);
        vis_SPropValueFlag(p, 0, &flag);
        EXPECT_EQ(type, 1);
        EXPECT_EQ(t, 9.0);
        EXPECT_EQ(flag, 0);
        EXPECT_EQ(p->uprop, nullptr);
    }
    Bytes StepBytes()
    {
        return SavedBytes([this](FILE* f) { vis_SPropStreamSave(sp, f); });
    }
    void LoadTarget(const Bytes& b)
    {
        Stream s;
        Fill(s, b);
        vis_SPropStreamLoad(target, s.f);
    }
    vis_SProp* sp = nullptr;
    vis_SProp* target = nullptr;
};

TEST_F(PropStreamTest, StepRoundTripKeepsEveryTypeAndAllUserBlocks)
{
    Bytes b = StepBytes();
    ExpectNoReport();
    LoadTarget(b);
    ExpectNoReport();
    EXPECT_EQ(vis_SPropError(target), 0);
    ExpectSameStore(sp, target, vis_SPropTable);
    // Values read back through the query functions equal what FillStep put in.
    int type = 0, ids[3] = {0, 0, 0}, flag = 1, iu = 0;
    double factors[3] = {0, 0, 0}, dt = 0.0, du = 0.0, au = 0.0;
    float fu = 0.0f;
    char title[81] = "", text[81] = "";
    vis_SPropGetType(target, &type);
    vis_SPropValueInteger(target, 3, ids);
    vis_SPropValueDouble(target, 4, factors);
    vis_SPropValueDouble(target, 6, &dt);
    vis_SPropValueString(target, 19, title);
    vis_SPropValueFlag(target, 5, &flag);  // the preset "Time initial" is replaced, not merged
    vis_SPropValueInteger(target, -1, &iu);
    vis_SPropValueDouble(target, -1000001, &du);
    vis_SPropValueString(target, -2000001, text);
    vis_SPropValueFloat(target, -3000001, &fu);
    vis_SPropValueDouble(target, -4000002, &au);
    EXPECT_EQ(type, 4);
    EXPECT_EQ(ids[0], 11);
    EXPECT_EQ(ids[2], 13);
    EXPECT_EQ(factors[1], 0.5);
    EXPECT_EQ(dt, 0.01);
    EXPECT_STREQ(title, "Transient step");
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(iu, 42);
    EXPECT_EQ(du, 2.5);
    EXPECT_STREQ(text, "user text");
    EXPECT_EQ(fu, 0.75f);
    EXPECT_EQ(au, -3.5);
    ExpectNoReport();
}

TEST_F(PropStreamTest, UserArraysKeepTheirDimensionsAndEmptyStrings)
{
    vis_UProp* up = vis_UPropNew();
    vis_UProp* back = vis_UPropNew();
    vis_UPropDef(up, 2);
    vis_UPropDef(back, 5);
    vis_UPropSetValuei(back, -5, 7);  // replaced by the load
    const int dims[2] = {2, 3};
    const double values[6] = {1, 2, 3, 4, 5, 6};
    vis_UPropSetArraydv(up, -4000002, 2, dims, values);
    vis_UPropSetValuec(up, -2000001, "");
    Bytes b = SavedBytes([up](FILE* f) { vis_UPropStreamSave(up, f); });
    Stream s;
    Fill(s, b);
    vis_UPropStreamLoad(back, s.f);
    ExpectNoReport();
    int ndim = 0, got[2] = {0, 0}, flag = 1;
    double arr[6] = {0};
    char text[8] = "x";
    vis_UPropValueDims(back, -4000002, &ndim, got);
    vis_UPropValueDouble(back, -4000002, arr);
    vis_UPropValueString(back, -2000001, text);
    vis_UPropValueFlag(back, -1, &flag);
    EXPECT_EQ(back->num, 2);
    EXPECT_EQ(ndim, 2);
    EXPECT_EQ(got[1], 3);
    EXPECT_EQ(arr[5], 6.0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(flag, 0);
    vis_UPropDelete(up);
    vis_UPropDelete(back);
}

TEST_F(PropStreamTest, ElementLocationsFloatsAndMaterialsRoundTrip)
{
    vis_EProp* ep = vis_EPropNew();
    vis_EProp* ep2 = vis_EPropNew();
    vis_EPropDef(ep, 2);
    const double thick[4] = {1, 2, 3, 4}, sect[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    vis_EPropSetValuedv(ep, 7, thick);
    vis_EPropSetValuedv(ep, 30, sect);  // dx2 L2
    vis_EPropSetValuec(ep, 69, "S4R");
    Bytes b = SavedBytes([ep](FILE* f) { vis_EPropStreamSave(ep, f); });
    Stream s;
    Fill(s, b);
    vis_EPropStreamLoad(ep2, s.f);
    ExpectSameStore(ep, ep2, vis_EPropTable);
    // At the corners of a linear quadrilateral the corner functions are 1 at their own
    // corner, so the evaluated thickness is the location values in order.
    double out[4] = {0, 0, 0, 0};
    int datatype = 0, count = 0, nloc = 0;
    vis_EPropEvaldv(ep2, 7, SYS_SHAPE_QUAD, 2, 0, out);
    vis_EPropValueParams(ep2, 30, &datatype, &count, &nloc);
    EXPECT_EQ(out[0], 1.0);
    EXPECT_EQ(out[3], 4.0);
    EXPECT_EQ(count, 4);  // two scalars at each of two locations
    EXPECT_EQ(nloc, 2);

    vis_RProp* rp = vis_RPropNew();
    vis_RProp* rp2 = vis_RPropNew();
    vis_RPropDef(rp, 0);
    vis_RPropSetType(rp, 77);
    vis_RPropSetValuef(rp, 0, 0.25f);
    vis_RPropSetValuei(rp, 8, 3);
    vis_RPropSetValuec(rp, 9, "Displacement");
    Bytes rb = SavedBytes([rp](FILE* f) { vis_RPropStreamSave(rp, f); });
    Stream rs;
    Fill(rs, rb);
    vis_RPropStreamLoad(rp2, rs.f);
    float lf = 0.0f;
    vis_RPropValueFloat(rp2, 0, &lf);
    EXPECT_EQ(lf, 0.25f);
    ExpectSameStore(rp, rp2, vis_RPropTable);

    vis_MProp* mp = vis_MPropNew();
    vis_MProp* mp2 = vis_MPropNew();
    vis_MPropDef(mp, 2);
    const double young[3] = {2e11, 1e10, 1e10};
    vis_MPropSetValued(mp, 0, 7850.0);
    vis_MPropSetValuedv(mp, 7, young);
    Bytes mb = SavedBytes([mp](FILE* f) { vis_MPropStreamSave(mp, f); });
    Stream ms;
    Fill(ms, mb);
    vis_MPropStreamLoad(mp2, ms.f);
    ExpectSameStore(mp, mp2, vis_MPropTable);
    ExpectNoReport();
    vis_EPropDelete(ep);
    vis_EPropDelete(ep2);
    vis_RPropDelete(rp);
    vis_RPropDelete(rp2);
    vis_MPropDelete(mp);
    vis_MPropDelete(mp2);
}

TEST_F(PropStreamTest, EmptyGlobalDataHasTheDocumentedBytes)
{
    vis_GProp* gp = vis_GPropNew();
    vis_GPropDef(gp, 7);
    Bytes b = SavedBytes([gp](FILE* f) { vis_GPropStreamSave(gp, f); });
    // mark "VPRP", version 1, member 4 (GProp), type 7, 0 parameters, 0 (no user record),
    // then the CRC-32 of those 24 bytes: 28 bytes in all.
    const unsigned char head[24] = {'V', 'P', 'R', 'P', 1, 0, 0, 0, 4, 0, 0, 0,
                                    7,   0,   0,   0,   0, 0, 0, 0, 0, 0, 0, 0};
    ASSERT_EQ(b.size(), 28u);
    EXPECT_EQ(0, std::memcmp(b.data(), head, 24));
    EXPECT_EQ(Le32(b, 24), Crc32(head, 24));
    // The reference CRC itself gives the standard check value of "123456789".
    EXPECT_EQ(Crc32((const unsigned char*)"123456789", 9), 0xCBF43926u);
    vis_GPropDelete(gp);
}

TEST_F(PropStreamTest, EveryTruncationIsRefusedAndLeavesTheObject)
{
    Bytes b = StepBytes();
    ASSERT_GT(b.size(), 100u);
    for (size_t n = 0; n < b.size(); ++n) {
        Reports().clear();
        LoadTarget(Bytes(b.begin(), b.begin() + (long)n));
        ASSERT_EQ(reports().size(), 1u) << n;
        EXPECT_EQ(reports()[0].name, "vis_SPropStreamLoad");
        EXPECT_EQ(reports()[0].text, "Stream truncated") << n;
        EXPECT_EQ(vis_SPropError(target), SYS_ERROR_FORMAT) << n;
        ExpectPreset(target);
    }
}

TEST_F(PropStreamTest, EveryCorruptedByteIsRefusedAndLeavesTheObject)
{
    Bytes b = StepBytes();
    for (size_t i = 0; i < b.size(); ++i) {
        Bytes c = b;
        c[i] ^= 0x5A;
        Reports().clear();
        LoadTarget(c);
        ASSERT_FALSE(reports().empty()) << i;
        EXPECT_EQ(reports().back().name, "vis_SPropStreamLoad");
        EXPECT_EQ(vis_SPropError(target), SYS_ERROR_FORMAT) << i;
        ExpectPreset(target);
    }
}

TEST_F(PropStreamTest, ForeignMemberNewerVersionAndNullStreamAreRefused)
{
    vis_MProp* mp = vis_MPropNew();
    vis_MPropDef(mp, 0);
    LoadTarget(SavedBytes([mp](FILE* f) { vis_MPropStreamSave(mp, f); }));
    ExpectOnlyReport("vis_SPropStreamLoad", SYS_ERROR_FORMAT, "Stream member= 3");
    vis_MPropDelete(mp);
    Reports().clear();
    Bytes b = StepBytes();
    b[4] = 2;  // version field
    LoadTarget(b);
    ExpectOnlyReport("vis_SPropStreamLoad", SYS_ERROR_FORMAT, "Stream version= 2");
    Reports().clear();
    vis_SPropStreamLoad(target, nullptr);
    ExpectOnlyReport("vis_SPropStreamLoad", SYS_ERROR_NULLOBJECT, "stream");
    EXPECT_EQ(vis_SPropError(target), SYS_ERROR_NULLOBJECT);
    ExpectPreset(target);
}

TEST_F(PropStreamTest, UnwritableStreamReportsCode6)
{
    FILE* f = std::fopen("/dev/null", "rb");
    ASSERT_NE(f, nullptr);
    vis_SPropStreamSave(sp, f);
    std::fclose(f);
    ExpectOnlyReport("vis_SPropStreamSave", SYS_ERROR_FILE, "Stream write");
    EXPECT_EQ(vis_SPropError(sp), SYS_ERROR_FILE);
}

TEST_F(PropStreamTest, FailedAllocationAtEveryStepOfALoadLeavesTheObject)
{
    Bytes b = StepBytes();
    long total = FailEachAllocation(
        "vis_SPropStreamLoad", [this] { PresetTarget(target); }, [&] { LoadTarget(b); },
        [this](long k) {
            EXPECT_EQ(vis_SPropError(target), SYS_ERROR_MEMORY) << k;
            ExpectPreset(target);
        });
    EXPECT_GT(total, 5);  // slots, data of each parameter, user values
}

TEST_F(PropStreamTest, TypeOptionKeepsParametersAndChecksLikeDef)
{
    vis_SPropSetParami(sp, VIS_PROP_TYPE, 2);
    int type = 0, ids[3] = {0, 0, 0};
    vis_SPropGetType(sp, &type);
    vis_SPropValueInteger(sp, 3, ids);
    EXPECT_EQ(type, 2);
    EXPECT_EQ(ids[1], 12);
    vis_SPropSetParami(sp, VIS_PROP_TYPE, 9);  // analysis kinds are 1 to 5
    ExpectOnlyReport("vis_SPropSetParami", SYS_ERROR_ENUM, "iparam= 9");
    vis_SPropGetType(sp, &type);
    EXPECT_EQ(type, 2);
    Reports().clear();
    vis_SPropSetParami(sp, 3, 1);
    ExpectOnlyReport("vis_SPropSetParami", SYS_ERROR_ENUM, "type= 3");
    Reports().clear();
    vis_RProp* rp = vis_RPropNew();
    vis_RPropSetParami(rp, VIS_PROP_TYPE, -12);  // a result type is any value
    vis_RPropGetType(rp, &type);
    EXPECT_EQ(type, -12);
    vis_RPropDelete(rp);
    ExpectNoReport();
}

TEST_F(PropStreamTest, UnsetOptionClearsTableAndUserValues)
{
    vis_SPropSetParami(sp, VIS_PROP_UNSET, 6);
    vis_SPropSetParami(sp, VIS_PROP_UNSET, -1);
    ExpectNoReport();
    int flag = 1, iu = 5, num = 0;
    double dt = 3.0;
    vis_SPropValueFlag(sp, 6, &flag);
    vis_SPropValueDouble(sp, 6, &dt);
    vis_SPropValueInteger(sp, -1, &iu);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(dt, 3.0);  // the default stays, as for a parameter never set
    EXPECT_EQ(iu, 5);
    // An unset parameter is not saved: the loaded step lacks it, and may set it again.
    LoadTarget(StepBytes());
    vis_SPropValueFlag(target, 6, &flag);
    EXPECT_EQ(flag, 0);
    vis_SPropSetValued(sp, 6, 0.02);
    vis_SPropValueDouble(sp, 6, &dt);
    EXPECT_EQ(dt, 0.02);
    vis_MProp* mp = vis_MPropNew();
    vis_MPropDef(mp, 0);
    vis_MPropSetValued(mp, 1, 2e11);
    vis_MPropSetParami(mp, VIS_PROP_UNSET, 1);
    vis_MPropGetParams(mp, &num, nullptr);
    EXPECT_EQ(num, 0);
    vis_MPropDelete(mp);
    ExpectNoReport();
    vis_SPropSetParami(sp, VIS_PROP_UNSET, 60);  // codes 0 to 59
    ExpectOnlyReport("vis_SPropSetParami", SYS_ERROR_ENUM, "type= 60");
    Reports().clear();
    vis_UProp* up = vis_UPropNew();
    vis_UPropDef(up, 1);
    vis_UPropSetParami(up, VIS_PROP_UNSET, -2);  // one slot: index 0 only
    ExpectOnlyReport("vis_UPropSetParami", SYS_ERROR_ENUM, "type= -2");
    vis_UPropDelete(up);
}

// A GProp record built by hand with a valid checksum: version 1, member 4, type 0, then the
// parameter section given as 32-bit words and bytes, no user record.
Bytes GlobalRecord(const Bytes& params)
{
    static const unsigned char head[16] = {'V', 'P', 'R', 'P', 1, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0};
    Bytes b(head, head + 16);
    for (unsigned char c : params) b.push_back(c);
    for (int i = 0; i < 4; ++i) b.push_back(0);
    uint32_t crc = Crc32(b.data(), b.size());
    for (int i = 0; i < 4; ++i) b.push_back((unsigned char)(crc >> (8 * i)));
    return b;
}

TEST_F(PropStreamTest, FieldsAreCheckedEvenUnderAValidChecksum)
{
    vis_GProp* gp = vis_GPropNew();
    vis_GPropDef(gp, 0);
    vis_GPropSetValuei(gp, 0, 2);
    auto load = [gp](const Bytes& b) {
        Stream s;
        Fill(s, b);
        vis_GPropStreamLoad(gp, s.f);
    };
    // One parameter: "Title" (code 3, string, capacity 81) of length 2, "AB".
    load(GlobalRecord({1, 0, 0, 0, 3, 0, 0, 0, 3, 0, 0, 0, 81, 0, 0, 0, 81, 0, 0, 0, 2, 0, 0, 0, 'A', 'B'}));
    ExpectNoReport();
    char title[81] = "";
    vis_GPropValueString(gp, 3, title);
    EXPECT_STREQ(title, "AB");
    // Code 10 is past the ten codes of GProp.
    load(GlobalRecord({1, 0, 0, 0, 10, 0, 0, 0}));
    ExpectOnlyReport("vis_GPropStreamLoad", SYS_ERROR_FORMAT, "type= 10");
    Reports().clear();
    // "Title" claimed as an integer (type 1) instead of a string (type 3).
    load(GlobalRecord({1, 0, 0, 0, 3, 0, 0, 0, 1, 0, 0, 0}));
    ExpectOnlyReport("vis_GPropStreamLoad", SYS_ERROR_FORMAT, "datatype= 1");
    Reports().clear();
    // A text of 81 characters leaves no room for its end in a capacity of 81.
    load(GlobalRecord({1, 0, 0, 0, 3, 0, 0, 0, 3, 0, 0, 0, 81, 0, 0, 0, 81, 0, 0, 0, 81, 0, 0, 0}));
    ExpectOnlyReport("vis_GPropStreamLoad", SYS_ERROR_FORMAT, "Stream length= 81");
    Reports().clear();
    // "2D Analysis Plane" (code 0, one integer) claiming two scalars.
    load(GlobalRecord({1, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0}));
    ExpectOnlyReport("vis_GPropStreamLoad", SYS_ERROR_FORMAT, "nument= 2");
    vis_GPropValueString(gp, 3, title);
    EXPECT_STREQ(title, "AB");  // every refusal kept the first load's value
    vis_GPropDelete(gp);
}

TEST_F(PropStreamTest, RecordsFollowOneAnotherInOneStream)
{
    vis_MProp* mp = vis_MPropNew();
    vis_MProp* mp2 = vis_MPropNew();
    vis_MPropDef(mp, 3);
    vis_MPropSetValued(mp, 0, 2700.0);
    Stream s;
    vis_SPropStreamSave(sp, s.f);
    vis_MPropStreamSave(mp, s.f);
    std::rewind(s.f);
    vis_SPropStreamLoad(target, s.f);
    vis_MPropStreamLoad(mp2, s.f);
    ExpectNoReport();
    ExpectSameStore(sp, target, vis_SPropTable);
    ExpectSameStore(mp, mp2, vis_MPropTable);
    EXPECT_EQ(std::fgetc(s.f), EOF);  // each load stopped at the end of its records
    vis_MPropDelete(mp);
    vis_MPropDelete(mp2);
}

TEST_F(PropStreamTest, UserValueRecordRefusedWhenTruncatedKeepsItsValues)
{
    vis_UProp* up = vis_UPropNew();
    vis_UPropDef(up, 1);
    vis_UPropSetValuec(up, -2000001, "kept");
    Bytes b = SavedBytes([this](FILE* f) { vis_UPropStreamSave(sp->uprop, f); });
    for (size_t n = 0; n < b.size(); ++n) {
        Reports().clear();
        Stream s;
        Fill(s, Bytes(b.begin(), b.begin() + (long)n));
        vis_UPropStreamLoad(up, s.f);
        ExpectOnlyReport("vis_UPropStreamLoad", SYS_ERROR_FORMAT, "Stream truncated");
        char text[8] = "";
        vis_UPropValueString(up, -2000001, text);
        EXPECT_STREQ(text, "kept");
        EXPECT_EQ(up->num, 1);
    }
    vis_UPropDelete(up);
}

}  // namespace

// vsy_LinkList: node layout, chains, growth that keeps indices, removal and reuse, every
// report, allocation failure, and a differential run against std::map.
#include "vsy_LinkList.h"

#include "vsy_TestSupport.h"

#include <climits>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <map>
#include <vector>

using namespace vsytest;

namespace {

struct Head {
    int prev, next, inuse;
};

class LinkListTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        list = vsy_LinkListNew();
        ASSERT_NE(list, nullptr);
    }
    void TearDown() override
    {
        vsy_LinkListDelete(list);
        ContainerTest::TearDown();
    }
    Head head(int i)
    {
        Head h;
        std::memcpy(&h, list->nodes + static_cast<size_t>(i) * list->stride, sizeof h);
        return h;
    }
    int add(void** payload = nullptr)
    {
        int index = -1;
        void* p = nullptr;
        vsy_LinkListAdd(list, &index, &p);
        if (payload) *payload = p;
        return index;
    }
    void* get(int index)
    {
        void* p = reinterpret_cast<void*>(1);
        vsy_LinkListGet(list, index, &p);
        return p;
    }
    // Walks a chain from its head and checks the back links.
    std::vector<int> chain(int first)
    {
        std::vector<int> out;
        int prev = 0;
        for (int i = first; i != 0 && out.size() <= static_cast<size_t>(list->len); i = head(i).next) {
            EXPECT_EQ(head(i).prev, prev) << i;
            out.push_back(i);
            prev = i;
        }
        return out;
    }
    vsy_LinkList* list = nullptr;
};

// A pool at the largest length (INT_MAX - 2 nodes, the last index an int32 count and its spare
// node can address) cannot grow: the next Add fails with the growth report and allocates
// nothing. The limit is staged in `len` (a real pool that size would take gigabytes) and undone
// before the list is released.
TEST_F(LinkListTest, PoolAtTheLargestLengthRefusesTheNextNode)
{
    vsy_LinkListDef(list, 0, 8);
    int index = 0;
    void* payload = nullptr;
    for (int k = 0; k < 17; ++k) vsy_LinkListAdd(list, &index, &payload);
    ASSERT_EQ(list->freehead, 0);
    const int len = list->len;
    list->len = INT_MAX - 2;
    CountAllocations();
    vsy_LinkListAdd(list, &index, &payload);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    list->len = len;
    ExpectOnlyReport("vsy_LinkListAdd", 4, "Realloc node");
    EXPECT_EQ(vsy_LinkListError(list), 4);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(payload, nullptr);
    vsy_LinkListGet(list, 17, &payload);
    EXPECT_NE(payload, nullptr);
}

}  // namespace

TEST_F(LinkListTest, NewRecordHasStartValues)
{
    EXPECT_EQ(list->ierr, 0);
    EXPECT_EQ(list->len, 0);
    EXPECT_EQ(list->nbytes, 0);
    EXPECT_EQ(list->nodes, nullptr);
    EXPECT_EQ(list->freehead, 0);
    EXPECT_EQ(list->usedhead, 0);
    EXPECT_EQ(get(1), nullptr);
}

TEST_F(LinkListTest, DefZeroLengthGives17)
{
    vsy_LinkListDef(list, 0, 8);
    EXPECT_EQ(list->len, 17);
    EXPECT_EQ(list->nbytes, 8);
    EXPECT_EQ(list->words, 3);
    EXPECT_EQ(list->stride, 24);
    EXPECT_EQ(list->freehead, 1);
    EXPECT_EQ(list->usedhead, 0);
    std::vector<int> free = chain(list->freehead);
    ASSERT_EQ(free.size(), 17u);
    for (int i = 1; i <= 17; ++i) {
        EXPECT_EQ(free[i - 1], i);
        EXPECT_EQ(head(i).inuse, 0);
    }
    EXPECT_EQ(head(17).next, 0);
    ExpectNoReport();
}

TEST_F(LinkListTest, NodeSizes)
{
    const int cases[][3] = {{0, 2, 16}, {8, 3, 24}, {40, 7, 56}, {64, 10, 80}, {5, 3, 24}, {13, 4, 32}};
    for (auto& c : cases) {
        vsy_LinkListDef(list, 4, c[0]);
        EXPECT_EQ(list->words, c[1]) << c[0];
        EXPECT_EQ(list->stride, c[2]) << c[0];
        EXPECT_EQ(list->len, 5);
    }
    // Payloads of 1 to 4 bytes past a multiple of 8 get one more word so that they fit after
    // the 16-byte head.
    for (int nbytes : {1, 4, 9, 12, 20}) {
        vsy_LinkListDef(list, 4, nbytes);
        EXPECT_GE(list->stride, VSY_LINKLIST_PAYLOAD + nbytes) << nbytes;
        EXPECT_EQ(list->stride, 8 * list->words);
    }
}

TEST_F(LinkListTest, AddTakesFreeNodesInOrderAndChainsThemAsUsed)
{
    vsy_LinkListDef(list, 4, 16);
    void* p1 = nullptr;
    EXPECT_EQ(add(&p1), 1);
    EXPECT_EQ(p1, list->nodes + list->stride + 16);
    EXPECT_EQ(add(), 2);
    EXPECT_EQ(add(), 3);
    EXPECT_EQ(list->usedhead, 3);
    EXPECT_EQ(chain(list->usedhead), (std::vector<int>{3, 2, 1}));
    EXPECT_EQ(chain(list->freehead), (std::vector<int>{4, 5}));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(head(i).inuse, 1);
    EXPECT_EQ(get(2), list->nodes + 2 * list->stride + 16);
    EXPECT_EQ(get(4), nullptr);
    EXPECT_EQ(get(0), nullptr);
    EXPECT_EQ(get(6), nullptr);
    EXPECT_EQ(get(-1), nullptr);
    ExpectNoReport();
}

TEST_F(LinkListTest, AddPastLenKeepsEarlierIndicesValid)
{
    vsy_LinkListDef(list, 0, 8);
    for (int i = 1; i <= 17; ++i) {
        void* p = nullptr;
        ASSERT_EQ(add(&p), i);
        long long v = 1000 + i;
        std::memcpy(p, &v, sizeof v);
    }
    EXPECT_EQ(list->freehead, 0);
    void* p = nullptr;
    EXPECT_EQ(add(&p), 18);
    EXPECT_EQ(list->len, 34);  // min(17 + 20000, 2 * 17)
    for (int i = 1; i <= 17; ++i) {
        void* q = get(i);
        ASSERT_NE(q, nullptr);
        long long v = 0;
        std::memcpy(&v, q, sizeof v);
        EXPECT_EQ(v, 1000 + i);
    }
    for (int i = 19; i <= 34; ++i) {
        EXPECT_EQ(head(i).inuse, 0);
        EXPECT_EQ(get(i), nullptr);
    }
    EXPECT_EQ(chain(list->freehead).size(), 16u);
    EXPECT_EQ(chain(list->usedhead).size(), 18u);
    ExpectNoReport();
}

TEST_F(LinkListTest, GrowthStepsAreBoundedBy20000)
{
    vsy_LinkListDef(list, 30000, 0);
    EXPECT_EQ(list->len, 30001);
    for (int i = 0; i < 30001; ++i) add();
    add();
    EXPECT_EQ(list->len, 50001);
    vsy_LinkList_Expand(list, 10, "caller");
    EXPECT_EQ(list->len, 70001);  // max(len + 20000, wanted)
    vsy_LinkList_Expand(list, 100000, "caller");
    EXPECT_EQ(list->len, 100000);
    EXPECT_EQ(static_cast<int>(chain(list->freehead).size()), 100000 - 30002);
    ExpectNoReport();
}

TEST_F(LinkListTest, AddOnUndefinedListDefinesIt)
{
    EXPECT_EQ(add(), 1);
    EXPECT_EQ(list->len, 17);
    EXPECT_EQ(list->stride, 16);
}

TEST_F(LinkListTest, RemoveReturnsTheNodeToTheFreeChain)
{
    vsy_LinkListDef(list, 5, 8);
    for (int i = 0; i < 4; ++i) add();
    vsy_LinkListRemove(list, 2);
    EXPECT_EQ(get(2), nullptr);
    EXPECT_EQ(chain(list->usedhead), (std::vector<int>{4, 3, 1}));
    EXPECT_EQ(chain(list->freehead), (std::vector<int>{2, 5, 6}));
    EXPECT_EQ(add(), 2);
    vsy_LinkListRemove(list, 4);  // the head of the used chain
    EXPECT_EQ(chain(list->usedhead), (std::vector<int>{2, 3, 1}));
    vsy_LinkListRemove(list, 1);  // its tail
    EXPECT_EQ(chain(list->usedhead), (std::vector<int>{2, 3}));
    ExpectNoReport();
    vsy_LinkListRemove(list, 1);
    ExpectOnlyReport("vsy_LinkListRemove", 1, "index= 1");
    EXPECT_EQ(vsy_LinkListError(list), 1);
    Reports().clear();
    vsy_LinkListRemove(list, 99);
    ExpectOnlyReport("vsy_LinkListRemove", 1, "index= 99");
}

TEST_F(LinkListTest, DefBadArgumentsChangeNothing)
{
    vsy_LinkListDef(list, 3, 8);
    add();
    EXPECT_EQ(CaptureReport([&] { vsy_LinkListDef(list, -1, 8); }),
              "\nvsy_LinkListDef: ierr= 1\nSYS_ERROR_VALUE       Argument with an improper value\nlen= -1\n");
    EXPECT_EQ(CaptureReport([&] { vsy_LinkListDef(list, 3, -2); }),
              "\nvsy_LinkListDef: ierr= 1\nSYS_ERROR_VALUE       Argument with an improper value\nnbytes= -2\n");
    EXPECT_EQ(list->len, 4);
    EXPECT_EQ(list->nbytes, 8);
    EXPECT_NE(get(1), nullptr);
    EXPECT_EQ(vsy_LinkListError(list), 1);
    EXPECT_EQ(vsy_LinkListError(list), 0);
}

TEST_F(LinkListTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([] { EXPECT_EQ(vsy_LinkListNew(), nullptr); }),
              "\nLinkList: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nCreation Failure\n");
}

TEST_F(LinkListTest, DefAllocationFailureReportsMallocNode)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_LinkListDef(list, 10, 8); }),
              "\nvsy_LinkListDef: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nMalloc node\n");
    EXPECT_EQ(vsy_LinkListError(list), 4);
    EXPECT_EQ(list->nodes, nullptr);
    EXPECT_EQ(get(1), nullptr);
    RestoreAllocation();
    EXPECT_EQ(add(), 1);
    EXPECT_EQ(list->nbytes, 8);
}

TEST_F(LinkListTest, GrowthFailureReportsReallocNodeUnderTheCaller)
{
    vsy_LinkListDef(list, 2, 8);
    for (int i = 0; i < 3; ++i) add();
    FailAllocation(1);
    int index = 5;
    void* payload = reinterpret_cast<void*>(1);
    EXPECT_EQ(CaptureReport([&] { vsy_LinkListAdd(list, &index, &payload); }),
              "\nvsy_LinkListAdd: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nRealloc node\n");
    EXPECT_EQ(index, 0);
    EXPECT_EQ(payload, nullptr);
    EXPECT_EQ(list->len, 3);
    EXPECT_EQ(vsy_LinkListError(list), 4);
    for (int i = 1; i <= 3; ++i) EXPECT_NE(get(i), nullptr);
    RestoreAllocation();
    EXPECT_EQ(add(), 4);
    EXPECT_EQ(list->len, 6);
}

TEST_F(LinkListTest, NullObject)
{
    int index = 3;
    vsy_LinkListAdd(nullptr, &index, nullptr);
    EXPECT_EQ(index, 0);
    ExpectOnlyReport("vsy_LinkListAdd", 5, "");
    void* p = reinterpret_cast<void*>(1);
    vsy_LinkListGet(nullptr, 1, &p);
    EXPECT_EQ(p, nullptr);
    vsy_LinkListDelete(nullptr);
}

TEST_F(LinkListTest, DifferentialAgainstStdMap)
{
    vsy_LinkListDef(list, 3, 12);
    std::map<int, int> ref;
    Rng rng(41);
    for (int step = 0; step < 50000; ++step) {
        if (ref.empty() || rng.below(3) < 2) {
            void* p = nullptr;
            int index = add(&p);
            ASSERT_GE(index, 1);
            ASSERT_EQ(ref.count(index), 0u);
            int v = static_cast<int>(rng.next());
            std::memcpy(static_cast<char*>(p) + 8, &v, sizeof v);  // the last 4 of 12 bytes
            ref[index] = v;
        } else {
            auto it = ref.begin();
            std::advance(it, rng.below(static_cast<int>(std::min<size_t>(ref.size(), 50))));
            vsy_LinkListRemove(list, it->first);
            ref.erase(it);
        }
    }
    int inUse = 0;
    for (int i = 1; i <= list->len; ++i) {
        void* p = get(i);
        auto it = ref.find(i);
        ASSERT_EQ(p != nullptr, it != ref.end()) << i;
        if (p) {
            int v = 0;
            std::memcpy(&v, static_cast<char*>(p) + 8, sizeof v);
            ASSERT_EQ(v, it->second);
            ++inUse;
        }
    }
    EXPECT_EQ(inUse, static_cast<int>(ref.size()));
    EXPECT_EQ(chain(list->usedhead).size(), ref.size());
    EXPECT_EQ(chain(list->freehead).size() + ref.size(), static_cast<size_t>(list->len));
    ExpectNoReport();
}

TEST_F(LinkListTest, HoldsAMillionNodes)
{
    vsy_LinkListDef(list, 0, 8);
    for (int i = 1; i <= 1000000; ++i) {
        void* p = nullptr;
        ASSERT_EQ(add(&p), i);
        std::memcpy(p, &i, sizeof i);
    }
    for (int i = 1; i <= 1000000; i += 9) {
        int v = 0;
        std::memcpy(&v, get(i), sizeof v);
        ASSERT_EQ(v, i);
    }
    EXPECT_GE(list->len, 1000000);
    ExpectNoReport();
}

// The small-model fixture of the ABAQUS writer suites: a mesh of nodes at the origin and the
// model tables a test adds, all owned and released by the fixture.
#ifndef ABAFWTMODELTEST_H
#define ABAFWTMODELTEST_H

#include "ABAFwtTestSupport.h"
#include "vis_EProp.h"
#include "vis_IdTran.h"
#include "vis_LCase.h"
#include "vis_MProp.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

#include <functional>

namespace abatest {

using nastest::BuildMesh;
using nastest::MeshElem;
using nastest::MeshNode;

/* n nodes at the origin, ids 1 to n, grid points. */
inline std::vector<MeshNode> Origin(int n)
{
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= n; ++i) nodes.push_back({{0.0, 0.0, 0.0}, i, 1, 0});
    return nodes;
}

/* The node block of Origin(n): 0.0 is " 0.000000000E+00" (two exponent digits kept). */
inline std::string OriginDeck(int n)
{
    std::string s = "**         Nodes\n*NODE, NSET=NALL\n";
    for (int i = 1; i <= n; ++i) s += std::to_string(i) + ", 0.000000000E+00, 0.000000000E+00, 0.000000000E+00\n";
    return s;
}

inline std::string Eall(int largest)
{
    return "**         All elements set\n*ELSET, ELSET=EALL, GENERATE\n1, " + std::to_string(largest) + "\n";
}

/* A model over a mesh, with tables added by the tests; owns everything. */
class ABAFwtTest : public nastest::WriterTest {
protected:
    void TearDown() override
    {
        for (auto& f : drop) f();
        vis_ModelDelete(model);
        for (vsy_HashTable* t : tables) vsy_HashTableDelete(t);
        for (vis_EProp* p : eprops) vis_EPropDelete(p);
        for (vis_SProp* s : sprops) vis_SPropDelete(s);
        for (vis_IdTran* g : groups) vis_IdTranDelete(g);
        for (vis_LCase* l : lcases) vis_LCaseDelete(l);
        for (vis_RCase* r : rcases) vis_RCaseDelete(r);
        for (vis_MProp* p : mprops) vis_MPropDelete(p);
        vsy_ListDelete(steps);
        if (connect) vis_ConnectDelete(connect);
        WriterTest::TearDown();
    }
    void Mesh(const std::vector<MeshNode>& nodes, const std::vector<MeshElem>& elems)
    {
        connect = BuildMesh(nodes, elems);
        model = vis_ModelNew();
        vis_ModelSetObject(model, SYS_CONNECT, connect);
    }
    vsy_HashTable* Table(int code)
    {
        vsy_HashTable* t = nullptr;
        vis_ModelGetHashTable(model, code, &t);
        if (t) return t;
        tables.push_back(t = vsy_HashTableNew());
        vis_ModelSetHashTable(model, code, t);
        return t;
    }
    vis_EProp* Prop(int id, int type)
    {
        vis_EProp* p = vis_EPropNew();
        vis_EPropDef(p, type);
        eprops.push_back(p);
        vsy_HashTableInsert(Table(SYS_EPROP), id, p);
        return p;
    }
    vis_SProp* Step(int type)
    {
        vis_SProp* s = vis_SPropNew();
        vis_SPropDef(s, type);
        sprops.push_back(s);
        if (!steps) {
            steps = vsy_ListNew();
            vis_ModelSetList(model, SYS_SPROP, steps);
        }
        vsy_ListAppend(steps, s);
        return s;
    }
    vis_IdTran* Group(int code, int key, const char* name, std::vector<int> ids)
    {
        vis_IdTran* g = vis_IdTranNew();
        vis_IdTranSetName(g, name);
        for (size_t i = 0; i < ids.size(); ++i) vis_IdTranSetId(g, static_cast<int>(i) + 1, ids[i]);
        groups.push_back(g);
        vsy_HashTableInsert(Table(code), key, g);
        return g;
    }
    vis_LCase* Load(int id)
    {
        lcases.push_back(vis_LCaseNew());
        vsy_HashTableInsert(Table(SYS_LCASE), id, lcases.back());
        return lcases.back();
    }
    std::string Deck()
    {
        return WriteAba(model, File("deck.inp"));
    }
    vis_Connect* connect = nullptr;
    vis_Model* model = nullptr;
    vsy_List* steps = nullptr;
    std::vector<vsy_HashTable*> tables;
    std::vector<vis_EProp*> eprops;
    std::vector<vis_SProp*> sprops;
    std::vector<vis_IdTran*> groups;
    std::vector<vis_LCase*> lcases;
    std::vector<vis_RCase*> rcases;
    std::vector<vis_MProp*> mprops;
    std::vector<std::function<void()>> drop; /* releases of further objects a test made */
};

inline std::vector<int> Seq(int n)
{
    std::vector<int> v;
    for (int i = 1; i <= n; ++i) v.push_back(i);
    return v;
}

}  // namespace abatest

#endif

// Support of the NASTRAN writer suites: a scratch directory, the file reader, fixed-column
// helpers that spell out the card formats ("%8d", "%16d", "%-8s") and a small mesh builder.
#ifndef NASFWTTESTSUPPORT_H
#define NASFWTTESTSUPPORT_H

#include "vis_Connect.h"
#include "vis_Model.h"
#include "vis_NASFwt.h"
#include "vsy_HashTable.h"
#include "vsy_TestSupport.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace nastest {

// Right-aligned in `width` columns, as "%8d" and "%16d" print an integer that fits.
inline std::string R(const std::string& text, size_t width)
{
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}
inline std::string I8(int v) { return R(std::to_string(v), 8); }
inline std::string I16(int v) { return R(std::to_string(v), 16); }
// "%-8s": the card name left-aligned in eight columns.
inline std::string N8(const std::string& name) { return name + std::string(8 - name.size(), ' '); }
inline const std::string kBlank8(8, ' ');

inline std::string ReadFile(const std::string& path)
{
    std::string s;
    FILE* fp = std::fopen(path.c_str(), "rb");
    if (!fp) return "(missing)";
    for (int c; (c = std::fgetc(fp)) != EOF;) s.push_back(static_cast<char>(c));
    std::fclose(fp);
    return s;
}

struct MeshNode {
    double x[3];
    int userid, featype, csysid;
};
struct MeshElem {
    int shape, maxi, maxj, featype, propid, userid;
    std::vector<int> nodes;
    int featwod = 0, feaspec = 0, csysid = 0;
};

// A connectivity of the given nodes and elements with their associations.
inline vis_Connect* BuildMesh(const std::vector<MeshNode>& nodes, const std::vector<MeshElem>& elems)
{
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, static_cast<int>(nodes.size()), static_cast<int>(elems.size()));
    for (size_t i = 0; i < nodes.size(); ++i) {
        const int n = static_cast<int>(i + 1);
        vis_ConnectSetCoordsdv(c, n, nodes[i].x);
        vis_ConnectSetNodeAssoc(c, 10, n, nodes[i].userid);
        if (nodes[i].featype) vis_ConnectSetNodeAssoc(c, 0, n, nodes[i].featype);
        if (nodes[i].csysid) vis_ConnectSetNodeAssoc(c, 4, n, nodes[i].csysid);
    }
    for (size_t i = 0; i < elems.size(); ++i) {
        const int e = static_cast<int>(i + 1);
        const MeshElem& m = elems[i];
        vis_ConnectSetTopology(c, e, m.shape, m.maxi, m.maxj, 0);
        vis_ConnectSetElemNode(c, e, m.nodes.data());
        vis_ConnectSetElemAssoc(c, 0, e, m.featype);
        vis_ConnectSetElemAssoc(c, 2, e, m.propid);
        vis_ConnectSetElemAssoc(c, 10, e, m.userid);
        if (m.featwod) vis_ConnectSetElemAssoc(c, 25, e, m.featwod);
        if (m.feaspec) vis_ConnectSetElemAssoc(c, 12, e, m.feaspec);
        if (m.csysid) vis_ConnectSetElemAssoc(c, 4, e, m.csysid);
    }
    return c;
}

// Base fixture: reports recorded, a scratch directory removed at the end.
class WriterTest : public vsytest::ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        char tmpl[] = "/tmp/tev_nasfwt_XXXXXX";
        const char* d = mkdtemp(tmpl);
        dir = d ? d : "/tmp";
    }
    void TearDown() override
    {
        for (const std::string& f : files) std::remove(f.c_str());
        for (auto it = dirs.rbegin(); it != dirs.rend(); ++it) rmdir(it->c_str());
        rmdir(dir.c_str());
        ContainerTest::TearDown();
    }
    std::string File(const std::string& name)
    {
        files.push_back(dir + "/" + name);
        return files.back();
    }
    std::string Dir(const std::string& name)
    {
        dirs.push_back(dir + "/" + name);
        mkdir(dirs.back().c_str(), 0700);
        return dirs.back();
    }
    // Writes the model and returns the deck; the writer's poll must be 0.
    std::string Write(vis_Model* model, const std::string& path)
    {
        vis_NASFwt* nas = vis_NASFwtNew();
        vis_NASFwtWriteModel(nas, model, path.c_str());
        EXPECT_EQ(vis_NASFwtError(nas), 0);
        vis_NASFwtDelete(nas);
        return ReadFile(path);
    }
    std::string dir;
    std::vector<std::string> files, dirs;
};

// The part of a deck from the section title line `title` ("$          Loads") up to the next
// section title or ENDDATA; "(no section)" when the title is missing.
inline std::string SectionOf(const std::string& deck, const std::string& title)
{
    const size_t at = deck.find(title + "\n");
    if (at == std::string::npos) return "(no section)";
    size_t end = deck.find("\n$          ", at + 1);
    const size_t enddata = deck.find("ENDDATA\n", at);
    if (end == std::string::npos || (enddata != std::string::npos && enddata < end)) end = enddata - 1;
    return deck.substr(at, end + 1 - at);
}

// A model of a small mesh and the tables of the card sections, filled on demand; the objects
// put in are deleted with the fixture through the deleters given.
class CardTest : public WriterTest {
protected:
    void TearDown() override
    {
        for (auto& d : deleters) d();
        for (vsy_HashTable* t : tables) vsy_HashTableDelete(t);
        if (model) vis_ModelDelete(model);
        if (connect) vis_ConnectDelete(connect);
        WriterTest::TearDown();
    }
    void Use(vis_Connect* c)
    {
        connect = c;
        model = vis_ModelNew();
        vis_ModelSetObject(model, SYS_CONNECT, connect);
    }
    // Puts object under key in the model table of `type`, made on first use.
    template <class T>
    T* Put(int type, int key, T* object, void (*destroy)(T*))
    {
        vsy_HashTable* tab = nullptr;
        vis_ModelGetHashTable(model, type, &tab);
        if (!tab) {
            tab = vsy_HashTableNew();
            tables.push_back(tab);
            vis_ModelSetHashTable(model, type, tab);
        }
        vsy_HashTableInsert(tab, key, object);
        deleters.push_back([object, destroy] { destroy(object); });
        return object;
    }
    // The deck's section of `title`.
    std::string Section(const std::string& title)
    {
        return SectionOf(Write(model, File("cards.bdf")), title);
    }
    vis_Connect* connect = nullptr;
    vis_Model* model = nullptr;
    std::vector<vsy_HashTable*> tables;
    std::vector<std::function<void()>> deleters;
};

}  // namespace nastest

#endif

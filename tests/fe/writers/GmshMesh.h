// An independent reading of a written deck: the `gmsh` command line converts it to its own
// mesh format 4.1 (text), which keeps the node and element tags of the deck, and this header
// reads that file back into maps by tag. Tests that use it skip with a clear message when the
// program is missing. With GMSH_KEEP set in the environment the converted file stays for a look.
#ifndef GMSHMESH_H
#define GMSHMESH_H

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace gmshtest {

struct Element {
    int type = 0;            // gmsh element type: 1 line, 2 triangle, 3 quadrilateral, 4 tetrahedron ...
    std::vector<int> nodes;  // node tags in gmsh's order
    int entity = 0;          // tag of the entity holding it: for a deck, the property id
};

struct Mesh {
    std::map<int, std::vector<double>> nodes;  // tag -> x, y, z
    std::map<int, Element> elements;           // tag -> element
    std::string log;                           // what gmsh printed
};

// True when a `gmsh` program is on the path.
inline bool Available()
{
    return std::system("gmsh -version > /dev/null 2>&1") == 0;
}

// Skips the running test when gmsh is missing, saying so.
#define GMSH_REQUIRED()                                                                         \
    do {                                                                                        \
        if (!gmshtest::Available())                                                             \
            GTEST_SKIP() << "gmsh is not installed: the deck was not read by an independent reader"; \
    } while (0)

namespace detail {

inline void ReadNodes(std::istream& in, Mesh& m)
{
    size_t nblocks = 0, nnodes = 0, mintag = 0, maxtag = 0;
    in >> nblocks >> nnodes >> mintag >> maxtag;
    for (size_t b = 0; b < nblocks; ++b) {
        int dim = 0, entity = 0, parametric = 0;
        size_t n = 0;
        in >> dim >> entity >> parametric >> n;
        std::vector<int> tags(n);
        for (int& t : tags) in >> t;
        for (int t : tags) {
            std::vector<double> x(3);
            in >> x[0] >> x[1] >> x[2];
            m.nodes[t] = x;
        }
    }
}

// Number of nodes of the gmsh element types a deck can produce.
inline int NodesOfType(int type)
{
    static const std::map<int, int> count = {{1, 2},  {2, 3},  {3, 4},  {4, 4},   {5, 8},   {6, 6},  {7, 5},
                                             {8, 3},  {9, 6},  {10, 9}, {11, 10}, {12, 27}, {13, 18},
                                             {14, 14}, {15, 1}, {16, 8}, {17, 20}, {18, 15}, {19, 13}};
    auto it = count.find(type);
    return it == count.end() ? -1 : it->second;
}

inline bool ReadElements(std::istream& in, Mesh& m)
{
    size_t nblocks = 0, nelems = 0, mintag = 0, maxtag = 0;
    in >> nblocks >> nelems >> mintag >> maxtag;
    for (size_t b = 0; b < nblocks; ++b) {
        int dim = 0, entity = 0, type = 0;
        size_t n = 0;
        in >> dim >> entity >> type >> n;
        const int nn = NodesOfType(type);
        if (nn < 0) return false;
        for (size_t i = 0; i < n; ++i) {
            int tag = 0;
            in >> tag;
            Element& e = m.elements[tag];
            e.type = type;
            e.entity = entity;
            e.nodes.resize(static_cast<size_t>(nn));
            for (int& v : e.nodes) in >> v;
        }
    }
    return true;
}

}  // namespace detail

// Converts `deck` with gmsh into `deck`.msh and reads it. An empty mesh and the log when gmsh
// failed or wrote no file.
inline Mesh Read(const std::string& deck)
{
    Mesh m;
    const std::string msh = deck + ".msh", log = deck + ".log";
    const std::string cmd = "gmsh '" + deck + "' -0 -save_all -format msh41 -o '" + msh + "' > '" + log + "' 2>&1";
    const int rc = std::system(cmd.c_str());
    std::ifstream lf(log);
    std::stringstream ls;
    ls << lf.rdbuf();
    m.log = "gmsh exit " + std::to_string(rc) + "\n" + ls.str();
    std::remove(log.c_str());
    std::ifstream in(msh);
    for (std::string word; in >> word;) {
        if (word == "$Nodes") detail::ReadNodes(in, m);
        if (word == "$Elements" && !detail::ReadElements(in, m)) m.log += "\nunknown element type";
    }
    if (!std::getenv("GMSH_KEEP")) std::remove(msh.c_str());
    return m;
}

}  // namespace gmshtest

#endif

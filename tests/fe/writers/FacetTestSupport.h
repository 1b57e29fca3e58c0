// Support of the facet writer suites: writing a model with the STL or OBJ writer, and the text
// of one STL facet spelled out from the format's lines.
#ifndef FACETTESTSUPPORT_H
#define FACETTESTSUPPORT_H

#include "NASFwtTestSupport.h"
#include "vis_OBJFwt.h"
#include "vis_STLFwt.h"

#include <string>

namespace facettest {

// One text facet: the normal as three "%f" texts, the vertices as three "%e" texts each.
inline std::string Facet(const std::string& normal, const std::string& v0, const std::string& v1,
                         const std::string& v2)
{
    return " facet normal " + normal + "\n  outer loop\n   vertex " + v0 + "\n   vertex " + v1 + "\n   vertex " + v2 +
           "\n  endloop\n endfacet\n";
}

// A model holding only the connectivity c; the writer's poll must be 0.
inline std::string WriteStl(vis_Connect* c, const std::string& path, int form = VIS_STLFWT_TEXT)
{
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    vis_STLFwt* stl = vis_STLFwtNew();
    stl->form = form;
    vis_STLFwtWriteModel(stl, model, path.c_str());
    EXPECT_EQ(vis_STLFwtError(stl), 0);
    vis_STLFwtDelete(stl);
    vis_ModelDelete(model);
    return nastest::ReadFile(path);
}

inline std::string WriteObj(vis_Connect* c, const std::string& path)
{
    vis_Model* model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, c);
    vis_OBJFwt* obj = vis_OBJFwtNew();
    vis_OBJFwtWriteModel(obj, model, path.c_str());
    EXPECT_EQ(vis_OBJFwtError(obj), 0);
    vis_OBJFwtDelete(obj);
    vis_ModelDelete(model);
    return nastest::ReadFile(path);
}

// The twelve quadrilaterals' worth of a closed cube surface [0,s]^3: eight corner nodes and
// six outward quadrilaterals, each corner order counter-clockwise seen from outside.
inline vis_Connect* CubeSurface(double s)
{
    std::vector<nastest::MeshNode> nodes;
    for (int k = 0; k < 2; ++k)
        for (int j = 0; j < 2; ++j)
            for (int i = 0; i < 2; ++i) nodes.push_back({{i * s, j * s, k * s}, 1 + i + 2 * j + 4 * k, 1, 0});
    // Node n of (i, j, k) is 1 + i + 2j + 4k.
    const int faces[6][4] = {{1, 3, 4, 2}, {5, 6, 8, 7}, {1, 2, 6, 5}, {3, 7, 8, 4}, {1, 5, 7, 3}, {2, 4, 8, 6}};
    std::vector<nastest::MeshElem> elems;
    for (int f = 0; f < 6; ++f)
        elems.push_back({SYS_SHAPE_QUAD, 0, 0, 2, 1, f + 1, {faces[f][0], faces[f][1], faces[f][2], faces[f][3]}});
    return nastest::BuildMesh(nodes, elems);
}

}  // namespace facettest

#endif

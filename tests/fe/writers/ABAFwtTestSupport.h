// Support of the ABAQUS writer suites: the writer run on a model, on top of the NASTRAN
// suites' scratch directory and mesh builder.
#ifndef ABAFWTTESTSUPPORT_H
#define ABAFWTTESTSUPPORT_H

#include "NASFwtTestSupport.h"
#include "vis_ABAFwt.h"

namespace abatest {

using nastest::ReadFile;

// Writes the model with vis_ABAFwt and returns the deck; the writer's poll must be 0.
inline std::string WriteAba(vis_Model* model, const std::string& path)
{
    vis_ABAFwt* aba = vis_ABAFwtNew();
    vis_ABAFwtWriteModel(aba, model, path.c_str());
    EXPECT_EQ(vis_ABAFwtError(aba), 0);
    vis_ABAFwtDelete(aba);
    return ReadFile(path);
}

}  // namespace abatest

#endif

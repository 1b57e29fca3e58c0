#include "TevFrdReader.h"

#include "vis_ElemTopology.h"
#include "vis_State.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <vector>

namespace {

using Block = std::map<int, std::vector<double>>;

// The values of one " -1" record with `count` values, or false when it is too short.
bool Record(const std::string& line, int count, int* node, std::vector<double>* values)
{
    if (line.size() < static_cast<size_t>(13 + 12 * count)) return false;
    *node = std::atoi(line.substr(3, 10).c_str());
    values->resize(count);
    for (int k = 0; k < count; ++k) (*values)[k] = std::atof(line.substr(13 + 12 * k, 12).c_str());
    return true;
}

void Fill(vis_State* state, int numnode, int datatype, const Block& block)
{
    vis_StateDef(state, numnode, SYS_NODE, 0, datatype);
    vis_StatePre(state, 4);
    vis_StateClear(state);
    for (const auto& entry : block)
        if (entry.first >= 1 && entry.first <= numnode) vis_StateSetDatadv(state, entry.first, entry.second.data());
}

}  // namespace

bool TevFrdReader::Read(const std::string& path, int numnode, vis_State* displacement, vis_State* stress,
                        std::string* error)
{
    std::ifstream in(path);
    if (!in) {
        if (error) *error = "Cannot read the results file " + path;
        return false;
    }
    Block disp, sigma, *open = nullptr;
    int count = 0;
    std::string line;
    while (std::getline(in, line)) {
        if (line.rfind(" -4  DISP", 0) == 0) open = &disp, count = 3, disp.clear();
        else if (line.rfind(" -4  STRESS", 0) == 0) open = &sigma, count = 6, sigma.clear();
        else if (line.rfind(" -4", 0) == 0 || line.rfind(" -3", 0) == 0) open = nullptr;
        else if (open && line.rfind(" -1", 0) == 0) {
            int node = 0;
            std::vector<double> values;
            if (Record(line, count, &node, &values)) (*open)[node] = values;
        }
    }
    if (disp.empty()) {
        if (error) *error = "The results file has no displacements: " + path;
        return false;
    }
    Fill(displacement, numnode, 1, disp);
    if (stress) Fill(stress, numnode, 2, sigma);
    return true;
}

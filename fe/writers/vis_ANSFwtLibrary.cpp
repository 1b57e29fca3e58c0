/* vis_ANSFwtLibrary: the format's element library, looked up by name. */
#include "vis_ANSFwtInternal.h"

#include <cstring>

namespace {

/* The names in the order of the format's element numbers; a few numbers came twice in the
 * source list and stay so: a walk finds the first. */
const char* const kNames[] = {
    "LINK1", "PLANE2", "BEAM3", "BEAM4", "SOLID5", "COMBIN7", "LINK8", "INFIN9",
    "LINK10", "LINK11", "CONTAC12", "PLANE13", "COMBIN14", "FLUID15", "PIPE16", "PIPE17",
    "PIPE18", "SURF19", "PIPE20", "MASS21", "SURF22", "BEAM23", "BEAM24", "PLANE25",
    "CONTAC26", "MATRIX27", "SHELL28", "FLUID29", "FLUID30", "LINK31", "LINK32", "LINK33",
    "LINK34", "PLANE35", "SOURC36", "COMBIN37", "FLUID38", "COMBIN39", "COMBIN40", "SHELL41",
    "PLANE42", "SHELL43", "BEAM44", "SOLID45", "SOLID46", "INFIN47", "CONTAC48", "CONTAC49",
    "MATRIX50", "SHELL51", "CONTAC52", "PLANE53", "BEAM54", "PLANE55", "HYPER56", "SHELL57",
    "HYPER58", "PIPE59", "PIPE60", "SHELL61", "SOLID62", "SHELL63", "SOLID64", "SOLID65",
    "FLUID66", "PLANE67", "LINK68", "SOLID69", "SOLID70", "MASS71", "SOLID72", "SOLID73",
    "HYPER74", "PLANE75", "PLANE77", "PLANE78", "FLUID79", "FLUID80", "FLUID81", "PLANE82",
    "PLANE83", "HYPER84", "HYPER86", "SOLID87", "VISCO88", "VISCO89", "SOLID90", "SHELL91",
    "SOLID92", "SHELL93", "CIRCU94", "SOLID95", "SOLID96", "SOLID97", "SOLID98", "SHELL99",
    "USER100", "VISCO106", "VISCO107", "VISCO108", "TRANS109", "INFIN110", "INFIN111", "INTER115",
    "FLUID116", "SOLID117", "HF118", "HF119", "HF120", "PLANE121", "SOLID122", "SOLID123",
    "CIRCU124", "CIRCU125", "TRANS126", "SOLID127", "SOLID128", "FLUID129", "FLUID130", "SHELL131",
    "SHELL132", "FLUID136", "FLUID138", "FLUID139", "FLUID141", "FLUID142", "SHELL143", "ROM144",
    "PLANE145", "PLANE146", "SOLID147", "SOLID148", "SHELL150", "SURF151", "SURF152", "SURF153",
    "SURF154", "SURF156", "SHELL157", "HYPER158", "LINK160", "BEAM161", "PLANE162", "SHELL163",
    "SOLID164", "COMBI165", "MASS166", "LINK167", "SOLID168", "TARGE169", "TARGE170", "CONTA171",
    "CONTA172", "CONTA173", "CONTA174", "CONTA175", "CONTA176", "CONTA177", "CONTA178", "PRETS179",
    "LINK180", "SHELL181", "PLANE182", "PLANE183", "MPC184", "SOLID185", "SOLID186", "SOLID187",
    "BEAM188", "BEAM189", "SOLSH190", "SOLID191", "INTER192", "INTER193", "INTER194", "INTER195",
    "MESH200", "FOLLW201", "INTER202", "INTER203", "INTER204", "INTER205", "SHELL208", "SHELL209",
    "FLUID220", "FLUID221", "CPT212", "CPT213", "COMBI214", "CPT215", "CPT216", "CPT217",
    "FLUID220", "FLUID221", "PLANE223", "SOLID226", "SOLID227", "PLANE230", "SOLID231", "SOLID232",
    "PLANE233", "SOLID236", "SOLID237", "SURF251", "SURF252", "PLANE272", "PLANE273", "SOLID278",
    "SOLID279", "SHELL281", "SOLID285", "PIPE288", "PIPE289",
};

/* The rows the writer reads beyond the name: shape, order, feature, feaspec, nodes. */
const vis_ANSFwt_LibRow kRows[] = {
    {"SOLID185", "3-D 8-Node Structural Solid", 7, 2, 1, 0, 8},
    {"PLANE182", "2-D 4-Node Structural Solid", 3, 2, 1, 0, 4},
    {"SHELL181", "Finite Strain Layered Shell", 3, 2, 2, 0, 4},
    {"BEAM188", "3-D Linear Finite Strain Beam", 1, 2, 4, 0, 2},
    {"LINK180", "3-D Finite Strain Spar", 1, 2, 5, 0, 2},
    {"MPC184", "Multi-Point Constraint Rigid Link and Rigid Beam", 0, 0, 11, 0, 0},
    {"LINK1", "2-D Spar", 1, 2, 5, 0, 2},
    {"BEAM4", "3-D Elastic Beam", 1, 2, 4, 0, 2},
    {"COMBIN14", "Spring-Damper", 1, 2, 9, 0, 2},
    {"MASS21", "Structural Mass", 0, 2, 13, 0, 1},
    {"SOLID95", "3-D 20-Node Structural Solid", 7, 3, 1, 0, 20},
    {"SOLID92", "3-D 10-Node Tetrahedral Structural Solid", 4, 3, 1, 0, 10},
    {"SHELL93", "8-Node Structural Shell", 3, 3, 2, 0, 8},
    {"SURF154", "3-D Structural Surface Effect", 3, 2, 14, 6, 4},
};

}  // namespace

int vis_ANSFwt_LibCount(void)
{
    return static_cast<int>(sizeof kNames / sizeof kNames[0]);
}

int vis_ANSFwt_LibNumber(const char* name)
{
    for (const char* row : kNames) {
        if (std::strcmp(row, name) != 0) continue;
        const char* digit = row;
        while (*digit && (*digit < '0' || *digit > '9')) ++digit;
        int number = 0;
        for (; *digit >= '0' && *digit <= '9'; ++digit) number = 10 * number + (*digit - '0');
        return number;
    }
    return 0;
}

const vis_ANSFwt_LibRow* vis_ANSFwt_LibRowOf(const char* name)
{
    for (const vis_ANSFwt_LibRow& row : kRows)
        if (std::strcmp(row.name, name) == 0) return &row;
    return nullptr;
}

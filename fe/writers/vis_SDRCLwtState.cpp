/* vis_SDRCLwtWriteState: one result state as dataset 2414, analysis data at nodes or elements.
 *
 *   "    -1\n", "  2414\n"
 *   "%10d\n" dataset label 1; "%s\n" the name "vis_State"; "%10d\n" location 1 (nodes) or 2
 *   (elements); five "NONE\n" identification lines;
 *   "%10d" six times: model type 1 (structural), analysis type 1 (static), the data
 *   characteristic by the state's class (scalar 1, vector 2, six dof 3, tensor 4, general
 *   tensor 5, any other 0), result type 1 (general), data type 4 (double), and the number of
 *   values per entity; "\n";
 *   two lines of integers (eight, then two) and two lines of six reals of the analysis data,
 *   all 0 here;
 *   per entity that was set, in index order: "%10d\n" with the node id, or "%10d%10d\n" with
 *   the element id and the number of values, then the values "%13s", six to a line.
 *   "    -1\n"
 * A tensor goes out in the format's order xx, xy, yy, xz, yz, zz. Ids are the user ids of the
 * state's grid function (indices when they are not unique, or without a grid function).
 */
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_GridFunId.h"
#include "vis_SDRCLwtInternal.h"
#include "vis_State.h"
#include "vsy_Error.h"

#include <vector>

namespace {

const char* const kWriteState = "vis_SDRCLwtWriteState";

int Characteristic(int datatype)
{
    switch (datatype) {
    case 0: return 1;
    case 1: return 2;
    case 9: return 3;
    case 2: return 4;
    case 3: return 5;
    default: return 0;
    }
}

/* The user ids of entities 1 to n, or the indices. */
std::vector<int> Ids(vis_State* state, int node, int n)
{
    std::vector<int> ids(static_cast<size_t>(n) + 1), index(static_cast<size_t>(n) + 1);
    for (int i = 0; i <= n; ++i) ids[i] = index[i] = i;
    if (!state->gf || n < 1) return ids;
    int nf = 0, ef = 0, ni = 0, ei = 0;
    vis_GridFunIdCheckIdentity(state->gf, &nf, &ef, &ni, &ei);
    if (node) vis_GridFunNodeId(state->gf, nf | ni, n, index.data() + 1, ids.data() + 1);
    else vis_GridFunElemId(state->gf, ef | ei, n, index.data() + 1, ids.data() + 1);
    return ids;
}

void Header(FILE* fp, const vis_State* state)
{
    vis_SDRCLwt_Open(fp, 2414);
    std::fprintf(fp, "%10d\nvis_State\n%10d\n", 1, state->parenttype == SYS_NODE ? 1 : 2);
    for (int i = 0; i < 5; ++i) std::fputs("NONE\n", fp);
    std::fprintf(fp, "%10d%10d%10d%10d%10d%10d\n", 1, 1, Characteristic(state->datatype), 1, 4, state->datanum);
    std::fprintf(fp, "%10d%10d%10d%10d%10d%10d%10d%10d\n%10d%10d\n", 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    for (int line = 0; line < 2; ++line) {
        for (int i = 0; i < 6; ++i) vis_SDRCLwt_Real(fp, 0.0, 13);
        std::fputc('\n', fp);
    }
}

void Values(FILE* fp, const vis_State* state, const double* v)
{
    static const int tensor[6] = {0, 3, 1, 5, 4, 2};
    const int n = state->datanum;
    for (int i = 0; i < n; ++i) {
        vis_SDRCLwt_Real(fp, state->datatype == 2 ? v[tensor[i]] : v[i], 13);
        if (i % 6 == 5 || i + 1 == n) std::fputc('\n', fp);
    }
}

void Entities(FILE* fp, vis_State* state)
{
    const int node = state->parenttype == SYS_NODE;
    const std::vector<int> ids = Ids(state, node, state->nument);
    std::vector<double> v(static_cast<size_t>(state->datanum));
    for (int i = 1; i <= state->nument; ++i) {
        int stat = 0;
        vis_StateDataStat(state, 1, &i, &stat);
        if (!stat) continue;
        vis_StateDatadv(state, 1, &i, v.data());
        if (node) std::fprintf(fp, "%10d\n", ids[i]);
        else std::fprintf(fp, "%10d%10d\n", ids[i], state->datanum);
        Values(fp, state, v.data());
    }
}

}  // namespace

void vis_SDRCLwtWriteState(vis_SDRCLwt* sdrc, vis_State* state, const char* path)
{
    if (!sdrc) {
        vsy_ErrorMessage(kWriteState, SYS_ERROR_NULLOBJECT, "SDRCLwt");
        return;
    }
    if (!state) {
        vsy_ErrorRecord(&sdrc->w.ierr, kWriteState, SYS_ERROR_NULLOBJECT, "State");
        return;
    }
    const bool stored = state->fstore || state->dstore || state->rstore;
    if (state->nument < 1 || state->childtype != 0 || !stored || state->datanum < 1) {
        vsy_ErrorRecord(&sdrc->w.ierr, kWriteState, SYS_ERROR_OPERATION, "State type");
        return;
    }
    if (!vis_Writer_Open(&sdrc->w, kWriteState, path, "w")) return;
    Header(sdrc->w.fp, state);
    Entities(sdrc->w.fp, state);
    vis_SDRCLwt_Close(sdrc->w.fp);
    vis_Writer_End(&sdrc->w);
}

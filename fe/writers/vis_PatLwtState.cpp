/* A result state as a results file of the neutral format's nodal or element kind. */
#include "vis_ElemTopology.h"
#include "vis_PatLwtInternal.h"
#include "vis_State.h"
#include "vis_WriterLine.h"
#include "vsy_Error.h"

#include <algorithm>
#include <vector>

namespace {

const char* const kWriteState = "vis_PatLwtWriteState";

/* Values in 13 columns, `per` to a line; the first line after `lead` characters already in
 * `line`, the others after `indent` blanks. */
void Values(FILE* fp, vis_WriterLine* line, int n, const double* v, int per, int indent)
{
    for (int i = 0; i < n; ++i) {
        if (i > 0 && i % per == 0) {
            line->End(fp);
            for (int b = 0; b < indent; ++b) line->Char(' ');
        }
        line->Exp(v[i], 13, 2);
    }
    line->End(fp);
}

/* The set entities of `featype` not 0 (nodes) or every set entity (elements), in index order. */
std::vector<int> SetEntities(vis_PatLwt* pat, vis_State* state, bool nodes, int num)
{
    std::vector<int> out;
    int ids[VIS_WRITER_BLOCK], stat[VIS_WRITER_BLOCK], ft[VIS_WRITER_BLOCK];
    for (int first = 1; first <= num; first += VIS_WRITER_BLOCK) {
        const int n = num - first + 1 < VIS_WRITER_BLOCK ? num - first + 1 : VIS_WRITER_BLOCK;
        for (int i = 0; i < n; ++i) ids[i] = first + i;
        vis_StateDataStat(state, n, ids, stat);
        if (nodes) vis_Writer_NodeAssocs(&pat->w, 0, first, n, ft);
        for (int i = 0; i < n; ++i)
            if (stat[i] && (!nodes || ft[i] != 0)) out.push_back(first + i);
    }
    return out;
}

void Nodal(vis_PatLwt* pat, vis_State* state, int datatype, int datanum)
{
    vis_Writer* w = &pat->w;
    const std::vector<int> nodes = SetEntities(pat, state, true, w->numnp);
    int maxid = 0;
    for (int index : nodes) maxid = std::max(maxid, vis_Writer_NodeId(w, index));
    std::fprintf(w->fp, "Nodal results\n%9d%9d%15.6E%9d%9d\ndatatype= %d\n\n", int(nodes.size()), maxid, 0.0, 0, datanum, datatype);
    std::vector<double> v(static_cast<size_t>(datanum));
    for (int index : nodes) {
        vis_StateDatadv(state, 1, &index, v.data());
        vis_WriterLine line;
        line.Int(vis_Writer_NodeId(w, index), 8);
        Values(w->fp, &line, datanum, v.data(), 5, 8);
    }
}

void Element(vis_PatLwt* pat, vis_State* state, int datatype, int datanum)
{
    vis_Writer* w = &pat->w;
    std::fprintf(w->fp, "Element results\ndatatype= %d\n\n", datatype);
    std::vector<double> v;
    for (int index : SetEntities(pat, state, false, w->numel)) {
        int num = 1, shape = 0, maxi = 0, maxj = 0, maxk = 0;
        vis_StateElemNum(state, index, &num);
        vis_Writer_Topology(w, index, &shape, &maxi, &maxj, &maxk);
        v.assign(static_cast<size_t>(num) * datanum, 0.0);
        vis_StateDataElemdv(state, index, v.data());
        vis_WriterLine line;
        line.Int(vis_Writer_ElemId(w, index), 8);
        line.Int(vis_PatLwt_ShapeCode(shape), 8);
        line.End(w->fp);
        Values(w->fp, &line, num * datanum, v.data(), 6, 0);
    }
}

}  // namespace

void vis_PatLwtWriteState(vis_PatLwt* pat, vis_Model* model, vis_State* state, const char* path)
{
    if (!pat) {
        vsy_ErrorMessage(kWriteState, SYS_ERROR_NULLOBJECT, "PatLwt");
        return;
    }
    if (!state) {
        vsy_ErrorRecord(&pat->w.ierr, kWriteState, SYS_ERROR_NULLOBJECT, "State");
        return;
    }
    if (!vis_Writer_Open(&pat->w, kWriteState, path, "w")) return;
    if (!vis_Writer_Begin(&pat->w, kWriteState, model)) return;
    int nument = 0, parent = 0, child = 0, datatype = 0, datanum = 0;
    vis_StateInq(state, &nument, &parent, &child, &datatype);
    vis_StateDataNum(state, &datanum);
    const bool nodal = parent == SYS_NODE;
    if (nument != (nodal ? pat->w.numnp : pat->w.numel) || (!nodal && parent != SYS_ELEM) || datanum < 1)
        vsy_ErrorRecord(&pat->w.ierr, kWriteState, SYS_ERROR_OPERATION, "State mismatch");
    else if (nodal)
        Nodal(pat, state, datatype, datanum);
    else
        Element(pat, state, datatype, datanum);
    vis_Writer_End(&pat->w);
}

/* vis_NASFwtWriteState: a node result state as a punch file of real displacement records.
 *
 * Every line has 80 columns: 72 of content and the line's number "%8d" (from 1). The head is
 * "$TITLE   =", "$SUBTITLE=", "$LABEL   =", "$DISPLACEMENTS", "$REAL OUTPUT" and
 * "$SUBCASE ID =" with "%12d" of the case (1), each padded with blanks to 72 columns. Then for
 * each set node, in index order: "%10d", "       G" and the first three components "%18.6E",
 * and a continuation line "-CONT-" padded to 18 columns with components four to six. A scalar
 * is the first component (a temperature is punched as the displacement T1), a vector the first
 * three; missing components are 0. Node ids come from the state's grid function (its user id
 * association), else the indices.
 *
 * Reports under "vis_NASFwtWriteState": a null state code 5; a state that is not over nodes or
 * has more than six components code 2 "parenttype= %d, datatype= %d"; a state never cleared
 * code 8 "Clear not called"; a path that cannot be opened code 6 "path= %s".
 */
#include "vis_GridFun.h"
#include "vis_GridFunId.h"
#include "vis_NASFwtInternal.h"
#include "vis_State.h"
#include "vsy_Error.h"

#include <cstring>
#include <initializer_list>

namespace {

const char* const kWriteState = "vis_NASFwtWriteState";

/* One line: the content padded with blanks to 72 columns, then the line number. */
void PunchLine(FILE* fp, const char* content, int* line)
{
    char buf[96];
    std::snprintf(buf, sizeof buf, "%-72.72s%8d\n", content, ++*line);
    std::fputs(buf, fp);
}

void Head(FILE* fp, int* line)
{
    for (const char* text : {"$TITLE   =", "$SUBTITLE=", "$LABEL   =", "$DISPLACEMENTS", "$REAL OUTPUT"})
        PunchLine(fp, text, line);
    char buf[40];
    std::snprintf(buf, sizeof buf, "$SUBCASE ID =%12d", 1);
    PunchLine(fp, buf, line);
}

/* The user id of node `index` through the grid function, else the index. */
int NodeId(vis_GridFun* gf, int flag, int index)
{
    int id = index;
    if (gf) vis_GridFunNodeId(gf, flag, 1, &index, &id);
    return id;
}

bool Usable(vis_NASFwt* nas, vis_State* s)
{
    int nument = 0, parent = 0, child = 0, datatype = 0, num = 0;
    vis_StateInq(s, &nument, &parent, &child, &datatype);
    vis_StateDataNum(s, &num);
    if (parent == SYS_NODE && num >= 1 && num <= 6) return true;
    vsy_ErrorRecord(&nas->w.ierr, kWriteState, SYS_ERROR_ENUM, "parenttype= %d, datatype= %d", parent, datatype);
    return false;
}

}  // namespace

void vis_NASFwtWriteState(vis_NASFwt* nas, vis_State* state, const char* path)
{
    if (!nas || !state) {
        vsy_ErrorMessage(kWriteState, SYS_ERROR_NULLOBJECT, nas ? "State" : "NASFwt");
        return;
    }
    if (!state->flags) {
        vsy_ErrorRecord(&nas->w.ierr, kWriteState, SYS_ERROR_OPERATION, "Clear not called");
        return;
    }
    if (!Usable(nas, state)) return;
    if (!vis_Writer_Open(&nas->w, kWriteState, path, "wb")) return;
    FILE* fp = nas->w.fp;
    int line = 0, nodeflag = 1, elemflag = 1;
    if (state->gf) vis_GridFunIdCheck(state->gf, &nodeflag, &elemflag);
    Head(fp, &line);
    for (int i = 1; i <= state->nument; ++i) {
        int set = 0;
        vis_StateDataStat(state, 1, &i, &set);
        if (!set) continue;
        double v[6] = {0, 0, 0, 0, 0, 0};
        vis_StateDatadv(state, 1, &i, v);
        char buf[96];
        std::snprintf(buf, sizeof buf, "%10d       G%18.6E%18.6E%18.6E", NodeId(state->gf, nodeflag, i), v[0], v[1], v[2]);
        PunchLine(fp, buf, &line);
        std::snprintf(buf, sizeof buf, "%-18s%18.6E%18.6E%18.6E", "-CONT-", v[3], v[4], v[5]);
        PunchLine(fp, buf, &line);
    }
    vis_Writer_End(&nas->w);
}

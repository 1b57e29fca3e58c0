/* vis_State: the native text and binary forms and the listing; see vis_State.h.
 *
 * Text: "State 1\n", then "%d %d %d %d %d %d %d %d\n" with nument, parent, child, data type,
 * precision, section, layer position and layer count, then for each set entity a line with its
 * id, its child count and every value "%.17g" (exact for a double), then "End\n".
 * Binary: the eight bytes "vsState1", the same eight integers (int32), then for each set entity
 * its id and child count (int32) and its values (double), and a closing id 0. Both in entity
 * order; values of unset entities are not written.
 */
#include "vis_ModelSupport.h"
#include "vis_StateInternal.h"
#include "vsy_Error.h"

#include <cinttypes>
#include <cstring>

namespace {

constexpr int kBuf = VIS_STATE_MAXNUM * VIS_STATE_MAXCHILD;
const char kMagic[8] = {'v', 's', 'S', 't', 'a', 't', 'e', '1'};

void Header(const vis_State* s, int32_t* h)
{
    const int v[8] = {s->nument, s->parenttype, s->childtype, s->datatype, s->precision, s->section, s->laypos, s->layers};
    for (int i = 0; i < 8; ++i) h[i] = v[i];
}

bool WriteText(vis_State* s, const char* name, FILE* fp)
{
    int32_t h[8];
    Header(s, h);
    std::fprintf(fp, "State 1\n%d %d %d %d %d %d %d %d\n", h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7]);
    double v[kBuf];
    for (int id = 1; id <= s->nument; ++id) {
        if (!s->flags[id]) continue;
        const int count = vis_State_Count(s, id);
        if (!vis_State_Get(s, name, vis_State_First(s, id), count * s->datanum, v)) return false;
        std::fprintf(fp, "%d %d", id, count);
        for (int i = 0; i < count * s->datanum; ++i) std::fprintf(fp, " %.17g", v[i]);
        std::fputc('\n', fp);
    }
    std::fputs("End\n", fp);
    return true;
}

bool WriteBinary(vis_State* s, const char* name, FILE* fp)
{
    int32_t h[8];
    Header(s, h);
    std::fwrite(kMagic, 1, sizeof kMagic, fp);
    std::fwrite(h, sizeof h[0], 8, fp);
    double v[kBuf];
    for (int id = 1; id <= s->nument; ++id) {
        if (!s->flags[id]) continue;
        const int32_t head[2] = {id, vis_State_Count(s, id)};
        if (!vis_State_Get(s, name, vis_State_First(s, id), head[1] * s->datanum, v)) return false;
        std::fwrite(head, sizeof head[0], 2, fp);
        std::fwrite(v, sizeof v[0], static_cast<size_t>(head[1] * s->datanum), fp);
    }
    const int32_t end = 0;
    std::fwrite(&end, sizeof end, 1, fp);
    return true;
}

/* Defines and clears the state from a header; false when the header cannot be a state's (the
 * definition then differs from the header, whatever the state's earlier error code). */
bool Define(vis_State* s, const int32_t* h)
{
    vis_StatePre(s, h[4]);
    vis_StateDef(s, h[0], h[1], h[2], h[3]);
    const bool defined = s->precision == h[4] && s->nument == h[0] && s->parenttype == h[1] && s->datatype == h[3] &&
                         (s->childtype == h[2] || (h[2] == h[1] && s->childtype == 0));
    if (!defined) return false;
    vis_StateClear(s);
    if (!s->flags) return false;
    s->section = h[5];
    s->laypos = h[6];
    s->layers = h[7];
    return true;
}

/* One entity's id, count and values into the state; false at a mismatch with the mesh. */
bool Store(vis_State* s, const char* name, int id, int count, const double* v)
{
    if (id < 1 || id > s->nument || count != vis_State_Count(s, id)) return false;
    if (!vis_State_Put(s, name, vis_State_First(s, id), count * s->datanum, v)) return false;
    s->flags[id] = 1;
    return true;
}

bool ReadText(vis_State* s, const char* name, FILE* fp)
{
    int32_t h[8];
    char word[16] = "";
    int version = 0;
    if (std::fscanf(fp, "%15s %d", word, &version) != 2 || std::strcmp(word, "State") != 0 || version != 1) return false;
    for (int32_t& x : h)
        if (std::fscanf(fp, "%" SCNd32, &x) != 1) return false;
    if (!Define(s, h)) return false;
    for (;;) {
        char token[32];
        if (std::fscanf(fp, "%31s", token) != 1) return false;
        if (std::strcmp(token, "End") == 0) return true;
        int id = 0, count = 0;
        if (std::sscanf(token, "%d", &id) != 1 || std::fscanf(fp, "%d", &count) != 1) return false;
        if (count < 1 || count * s->datanum > kBuf) return false;
        double v[kBuf];
        for (int i = 0; i < count * s->datanum; ++i)
            if (std::fscanf(fp, "%lg", &v[i]) != 1) return false;
        if (!Store(s, name, id, count, v)) return false;
    }
}

bool ReadBinary(vis_State* s, const char* name, FILE* fp)
{
    char magic[8];
    int32_t h[8];
    if (std::fread(magic, 1, 8, fp) != 8 || std::memcmp(magic, kMagic, 8) != 0) return false;
    if (std::fread(h, sizeof h[0], 8, fp) != 8 || !Define(s, h)) return false;
    for (;;) {
        int32_t head[2] = {0, 0};
        if (std::fread(head, sizeof head[0], 1, fp) != 1) return false;
        if (head[0] == 0) return true;
        if (std::fread(head + 1, sizeof head[0], 1, fp) != 1 || head[1] < 1 || head[1] * s->datanum > kBuf) return false;
        double v[kBuf];
        const size_t n = static_cast<size_t>(head[1] * s->datanum);
        if (std::fread(v, sizeof v[0], n, fp) != n || !Store(s, name, head[0], head[1], v)) return false;
    }
}

}  // namespace

void vis_StateWrite(vis_State* state, int type, const char* path)
{
    static const char* name = "vis_StateWrite";
    if (!vis_State_Ready(state, name)) return;
    if (type != 0 && type != 1) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    FILE* fp = path ? std::fopen(path, type ? "wb" : "w") : nullptr;
    if (!fp) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_FILE, "path= %s", path ? path : "(null)");
        return;
    }
    type ? WriteBinary(state, name, fp) : WriteText(state, name, fp);
    if (std::fclose(fp) != 0) vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_FILE, "path= %s", path);
}

void vis_StateRead(vis_State* state, int type, const char* path)
{
    static const char* name = "vis_StateRead";
    if (vis_Model_IsNull(state, name)) return;
    if (type != 0 && type != 1) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    FILE* fp = path ? std::fopen(path, type ? "rb" : "r") : nullptr;
    if (!fp) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_FILE, "path= %s", path ? path : "(null)");
        return;
    }
    const bool ok = type ? ReadBinary(state, name, fp) : ReadText(state, name, fp);
    std::fclose(fp);
    if (!ok && state->ierr == 0) vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_FORMAT, "path= %s", path);
}

void vis_StateList(vis_State* state, FILE* stream)
{
    static const char* name = "vis_StateList";
    if (!vis_State_Ready(state, name)) return;
    FILE* fp = stream ? stream : stdout;
    std::fprintf(fp, "State: nument= %d parenttype= %d childtype= %d datatype= %d datanum= %d\n", state->nument,
                 state->parenttype, state->childtype, state->datatype, state->datanum);
    double v[kBuf];
    for (int id = 1; id <= state->nument; ++id) {
        if (!state->flags[id]) continue;
        const int count = vis_State_Count(state, id);
        if (!vis_State_Get(state, name, vis_State_First(state, id), count * state->datanum, v)) return;
        std::fprintf(fp, "%8d", id);
        for (int i = 0; i < count * state->datanum; ++i) std::fprintf(fp, " % .6e", v[i]);
        std::fputc('\n', fp);
    }
}

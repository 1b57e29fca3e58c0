/* One *STEP per solution step: procedure, boundary conditions, loads and output requests. */
#include "vis_ABAFwtInternal.h"
#include "vis_RCase.h"
#include "vis_SProp.h"

#include <cstring>
#include <initializer_list>

namespace {

int Int(vis_SProp* step, int code, int def)
{
    vis_SPropValueInteger(step, code, &def);
    return def;
}

bool IsSet(vis_SProp* step, int code)
{
    int flag = 0;
    vis_SPropValueFlag(step, code, &flag);
    return flag != 0;
}

double Double(vis_SProp* step, int code, double def)
{
    vis_SPropValueDouble(step, code, &def);
    return def;
}

/* "%16.9E," of a set parameter, "," of an unset one. */
void OptionalReal(FILE* fp, vis_SProp* step, int code)
{
    if (IsSet(step, code)) std::fprintf(fp, "%16.9E,", Double(step, code, 0.0));
    else std::fputc(',', fp);
}

void Buckle(FILE* fp, vis_SProp* step)
{
    std::fprintf(fp, "*BUCKLE\n%d,", Int(step, 1, 0));
    OptionalReal(fp, step, 12);
    std::fputc('\n', fp);
}

/* The procedure of a step; returns the step whose cases follow (a static step followed by a
 * buckling step forms one step with the second). */
vis_SProp* Procedure(vis_ABAFwt* aba, int* pos)
{
    FILE* fp = aba->w.fp;
    vis_SProp* step = vis_ABAFwt_Step(aba, *pos);
    vis_SProp* next = vis_ABAFwt_Step(aba, *pos + 1);
    int kind = 0, nextkind = 0;
    vis_SPropGetType(step, &kind);
    if (next) vis_SPropGetType(next, &nextkind);
    const bool stress = aba->domain == 1, nonlinear = Int(step, 16, 0) != 0;
    std::fputs(stress && nonlinear ? "*STEP, NLGEOM\n" : "*STEP\n", fp);
    for (int code : {20, 21}) {
        char text[96] = "";
        vis_SPropValueString(step, code, text);
        if (text[0]) std::fprintf(fp, "%s\n", text);
    }
    if (kind == 1 && nextkind == 3) {
        ++*pos;
        Buckle(fp, next);
        return next;
    }
    switch (kind) {
    case 1:
        if (!stress) std::fputs("*HEAT TRANSFER, STEADY STATE\n", fp);
        else if (nonlinear) std::fprintf(fp, "*STATIC\n%16.9E,%16.9E,\n", Double(step, 5, 0.0), Double(step, 7, 0.0));
        else std::fputs("*STATIC\n", fp);
        break;
    case 2:
    case 5:
        std::fprintf(fp, "*FREQUENCY, EIGENSOLVER=LANCZOS\n%d,", Int(step, 1, 0));
        OptionalReal(fp, step, 11);
        OptionalReal(fp, step, 12);
        std::fputc('\n', fp);
        break;
    case 3: Buckle(fp, step); break;
    case 4:
        std::fprintf(fp, "%s%16.9E,%16.9E,\n", stress ? "*DYNAMIC\n" : "*HEAT TRANSFER\n", Double(step, 6, 0.0), Double(step, 7, 0.0));
        break;
    default: break;
    }
    return step;
}

/* One node's restraints: a run of fixed dofs in one line, else a line per dof. */
void Restraint(vis_ABAFwt* aba, vis_RCase* rc, int index, double factor)
{
    int n = 0, tags[32], types[32];
    double values[32];
    vis_RCaseSPCTag(rc, index, &n, tags);
    if (n < 1 || n > 31) return;
    bool run = n >= 2 && n <= 6;
    for (int k = 0; k < n; ++k) {
        vis_RCaseSPCdv(rc, index, tags[k], &types[k], &values[k]);
        if (values[k] != 0.0 || tags[k] == 7 || (k > 0 && tags[k] != tags[k - 1] + 1)) run = false;
    }
    FILE* fp = aba->w.fp;
    const int id = vis_Writer_NodeId(&aba->w, index);
    if (run) {
        std::fprintf(fp, "%d,%2d,%2d, 0.\n", id, tags[0], tags[n - 1]);
        return;
    }
    for (int k = 0; k < n; ++k) {
        if (types[k] != 1 && types[k] != 2) continue;
        std::fprintf(fp, "%d,%2d,, ", id, tags[k] == 7 ? 11 : tags[k]);
        vis_ABAFwt_Value(fp, values[k] * factor, "\n");
    }
}

void Restraints(vis_ABAFwt* aba, vis_SProp* step)
{
    std::fputs("*BOUNDARY, OP=NEW\n", aba->w.fp);
    auto* rc = static_cast<vis_RCase*>(vis_ABAFwt_Find(aba->rcase, Int(step, 8, 0)));
    if (!rc) return;
    const double factor = Double(step, 9, 1.0);
    int max = 0;
    vis_RCaseSPCMax(rc, &max);
    for (int index = 1; index <= max && index <= aba->w.numnp; ++index) {
        const int featype = vis_Writer_NodeAssoc(&aba->w, 0, index);
        if (featype != 0 && featype != 2) Restraint(aba, rc, index, factor);
    }
}

/* Requested codes of a step: filed (30, 31) or printed (32, 33). */
struct Codes {
    int n = 0;
    int code[256];
    Codes(vis_SProp* step, int countcode)
    {
        vis_SPropValueInteger(step, countcode, &n);
        if (n < 0 || n > 256) n = 0;
        if (n > 0) vis_SPropValueInteger(step, countcode + 1, code);
    }
    bool Has(int c) const
    {
        for (int i = 0; i < n; ++i)
            if (code[i] == c) return true;
        return false;
    }
};

struct Key {
    int a, b;          /* the codes asking for it (b 0: one code) */
    const char* name;
};

/* A request keyword line and its entries, when any of the keys is asked for. */
void Request(FILE* fp, const Codes& codes, const char* keyword, int freq, const char* tail,
             std::initializer_list<Key> keys)
{
    bool open = false;
    for (const Key& k : keys) {
        if (!codes.Has(k.a) && !(k.b && codes.Has(k.b))) continue;
        if (!open) std::fprintf(fp, "%s, FREQUENCY=%d%s\n%s", keyword, freq, tail, k.name);
        else std::fprintf(fp, ", %s", k.name);
        open = true;
    }
    if (open) std::fputc('\n', fp);
}

void StressRequests(vis_ABAFwt* aba, const Codes& c, int freq, bool file)
{
    FILE* fp = aba->w.fp;
    const bool structural = aba->shells || aba->beams;
    const char* node = file ? "*NODE FILE" : "*NODE PRINT";
    const char* el = file ? "*EL FILE" : "*EL PRINT";
    Request(fp, c, node, freq, file && structural ? ", DIRECTIONS=YES" : "", {{1, 0, "U"}, {3, 0, "RF"}});
    if (aba->solids || structural || aba->trusses) Request(fp, c, el, freq, ", POSITION=NODES", {{35, 0, "S"}, {30, 0, "E"}});
    if (structural) Request(fp, c, el, freq, ", POSITION=NODES", {{121, 94, "SF"}, {122, 95, "SE"}});
    Request(fp, c, el, freq, "", {{98, 0, "ELEN"}});
    if (!file || !aba->cpair) return;
    if (c.Has(102) || c.Has(129)) std::fprintf(fp, "*CONTACT FILE, FREQUENCY=%d\nCSTRESS\n", freq);
    if (c.Has(130) || c.Has(105)) std::fprintf(fp, "*CONTACT FILE, FREQUENCY=%d\nCDISP\n", freq);
}

void HeatRequests(vis_ABAFwt* aba, const Codes& c, int freq, bool file)
{
    Request(aba->w.fp, c, file ? "*NODE FILE" : "*NODE PRINT", freq, "", {{15, 0, "NT"}, {81, 0, "RFL"}});
    Request(aba->w.fp, c, file ? "*EL FILE" : "*EL PRINT", freq, "", {{6, 0, "HFL"}});
}

void Outputs(vis_ABAFwt* aba, vis_SProp* step)
{
    int freq = Int(step, 26, 0);
    if (freq == 0 && IsSet(step, 27)) freq = 1000000;
    const Codes filed(step, 30), printed(step, 32);
    if (aba->domain == 1) {
        StressRequests(aba, filed, freq, true);
        StressRequests(aba, printed, freq, false);
    } else {
        HeatRequests(aba, filed, freq, true);
        HeatRequests(aba, printed, freq, false);
    }
}

}  // namespace

void vis_ABAFwt_Steps(vis_ABAFwt* aba)
{
    if (!aba->sprop) return;
    std::fputs("**         Steps\n", aba->w.fp);
    for (int pos = 1; vis_ABAFwt_Step(aba, pos); ++pos) {
        vis_SProp* step = Procedure(aba, &pos);
        Restraints(aba, step);
        vis_ABAFwt_Loads(aba, step);
        Outputs(aba, step);
        std::fputs("*END STEP\n", aba->w.fp);
    }
}

/* The solution steps: one "/SOLUTION" block each with the analysis type, the cases that change
 * from the step before and the load cases, ended by "SOLVE" and "FINISH". */
#include "vis_ANSFwtInternal.h"

#include "vis_SProp.h"
#include "vsy_List.h"

#include <vector>

namespace {

vis_SProp* Step(vis_ANSFwt* ans, int i, int count)
{
    void* s = nullptr;
    if (i >= 1 && i <= count) vsy_ListRef(ans->sprop, i, &s);
    return static_cast<vis_SProp*>(s);
}

int Kind(vis_SProp* s)
{
    int kind = 0;
    if (s) vis_SPropGetType(s, &kind);
    return kind;
}

int Int(vis_SProp* s, int code)
{
    int v = 0;
    vis_SPropValueInteger(s, code, &v);
    return v;
}

/* The "%16.9E" text of a real parameter, empty when unset. */
void Exp(vis_SProp* s, int code, char* out)
{
    int flag = 0;
    double v = 0;
    vis_SPropValueFlag(s, code, &flag);
    if (flag) vis_SPropValueDouble(s, code, &v);
    vis_ANSFwt_Exp(v, flag, out);
}

void Analysis(FILE* fp, vis_SProp* s, int nextkind)
{
    char a[24], b[24];
    const int n = Int(s, 1);
    switch (Kind(s)) {
    case 1:
        std::fputs("ANTYPE,STATIC\n", fp);
        if (nextkind == 3) std::fputs("PSTRES,ON\n", fp);
        break;
    case 2:
        std::fputs("ANTYPE,MODAL\n", fp);
        Exp(s, 11, a);
        Exp(s, 12, b);
        std::fprintf(fp, "MODOPT,LANB,%d,%s,%s,,ON\n", n, a, b);
        std::fprintf(fp, "MXPAND,%d,,,YES\n", n);
        break;
    case 3:
        std::fputs("ANTYPE,BUCKLE\n", fp);
        Exp(s, 13, a);
        Exp(s, 12, b);
        std::fprintf(fp, "BUCOPT,SUBSP,%d,%s,%s\n", n, a, b);
        std::fprintf(fp, "MXPAND,%d,,,YES\n", n);
        break;
    case 4: std::fputs("ANTYPE,TRANS\n", fp); break;
    default: break;
    }
}

/* A case of the step that differs from the last one: the old one deleted, the new written. */
void Change(vis_ANSFwt* ans, int id, int* last, const char* erase, void (*write)(vis_ANSFwt*, int))
{
    if (id == *last) return;
    if (*last) std::fputs(erase, ans->w.fp);
    if (id) write(ans, id);
    *last = id;
}

/* The load cases of the step with their factors (1 where none is given). */
int LoadCases(vis_ANSFwt* ans, vis_SProp* s, int hadloads)
{
    FILE* fp = ans->w.fp;
    if (hadloads)
        std::fputs("FDELE,ALL,ALL\nSFEDELE,ALL,ALL,ALL\nBFDELE,ALL,ALL\nBFEDELE,ALL,ALL\nLSCLEAR,INER\n", fp);
    const int n = Int(s, 2);
    if (n <= 0) return 0;
    std::vector<int> ids(static_cast<size_t>(n), 0);
    std::vector<double> factors(static_cast<size_t>(n), 1.0);
    vis_SPropValueInteger(s, 3, ids.data());
    int flag = 0;
    vis_SPropValueFlag(s, 4, &flag);
    if (flag) vis_SPropValueDouble(s, 4, factors.data());
    for (size_t k = 0; k < ids.size(); ++k) {
        std::fputs(k == 0 ? "FCUM,REPL\n" : "FCUM,ADD\n", fp);
        vis_ANSFwt_Loads(ans, ids[k], factors[k]);
    }
    return 1;
}

}  // namespace

void vis_ANSFwt_Steps(vis_ANSFwt* ans)
{
    FILE* fp = ans->w.fp;
    std::fputs("C***       Solution Steps\n", fp);
    int count = 0;
    vsy_ListCount(ans->sprop, &count);
    int ic = 0, rc = 0, mc = 0, hadloads = 0;
    for (int i = 1; i <= count; ++i) {
        vis_SProp* s = Step(ans, i, count);
        if (!s) continue;
        if (ans->w.connect && ans->blocks) std::fputs("/SOLUTION\n", fp);
        Analysis(fp, s, Kind(Step(ans, i + 1, count)));
        Change(ans, Int(s, 10), &ic, "ICDELE\n", vis_ANSFwt_Initial);
        Change(ans, Int(s, 8), &rc, "DDELE,ALL,ALL\n", vis_ANSFwt_Restraints);
        Change(ans, Int(s, 18), &mc, "CEDELE,ALL,ALL\n", vis_ANSFwt_Equations);
        hadloads |= LoadCases(ans, s, hadloads);
        if (ans->blocks) std::fputs("SOLVE\nFINISH\n", fp);
    }
}

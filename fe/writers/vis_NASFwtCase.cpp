/* Executive and case control and the parameter cards of the NASTRAN deck, read from the
 * solution steps of the model's list. The first step decides the solution of the whole deck. */
#include "vis_LCase.h"
#include "vis_NASFwtInternal.h"
#include "vis_SProp.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

#include <cmath>
#include <cstring>

namespace {

/* Solution step parameters read here. */
enum {
    kDomain = 0, kEigenCount = 1, kLoadCount = 2, kLoadIds = 3, kTimeStep = 6, kTimeEnd = 7,
    kSpc = 8, kIc = 10, kEigenLow = 11, kEigenHigh = 12, kNonlinear = 16, kMpc = 18, kTitle = 19,
    kSubtitle = 20, kLabel = 21, kCaseId = 22, kSaveFreq = 26, kFiledCount = 30, kFiled = 31,
    kPrintedCount = 32, kPrinted = 33
};

/* Room for the ids of a step's load cases and result codes read at a time. */
constexpr int kMaxIds = 256;
constexpr int kTextLen = 96;

int StepCount(vis_NASFwt* nas)
{
    int n = 0;
    vsy_ListCount(nas->sprop, &n);
    return n;
}

vis_SProp* Step(vis_NASFwt* nas, int pos)
{
    void* value = nullptr;
    vsy_ListRef(nas->sprop, pos, &value);
    return static_cast<vis_SProp*>(value);
}

int Type(vis_SProp* step)
{
    int type = 0;
    if (step) vis_SPropGetType(step, &type);
    return type;
}

int Int(vis_SProp* step, int code, int def = 0)
{
    vis_SPropValueInteger(step, code, &def);
    return def;
}

double Real(vis_SProp* step, int code)
{
    double value = 0.0;
    vis_SPropValueDouble(step, code, &value);
    return value;
}

/* A list parameter of `countcode` entries, at most kMaxIds; returns the count read. */
int IntList(vis_SProp* step, int countcode, int listcode, int* ids)
{
    int n = Int(step, countcode);
    if (n <= 0) return 0;
    if (n > kMaxIds) return 0;
    vis_SPropValueInteger(step, listcode, ids);
    return n;
}

/* Executive control: the output assignment and id from the path's stem (cut at its first '.'). */
void Executive(vis_NASFwt* nas)
{
    char stem[VIS_NASFWT_PATHLEN];
    std::snprintf(stem, sizeof stem, "%s", nas->path);
    if (char* dot = std::strchr(stem, '.')) *dot = '\0';
    std::fprintf(nas->w.fp, "ASSIGN,OUTPUT='%s.op2',UNIT=12\n", stem);
    std::fprintf(nas->w.fp, "ID,NASTRAN,%s\n", stem);
}

void Solution(vis_NASFwt* nas, int nonlinear)
{
    FILE* fp = nas->w.fp;
    switch (nas->kind) {
    case 1:
        if (nas->domain == 1) std::fputs(nonlinear ? "SOL 106\n" : "SOL 101\n", fp);
        else if (nas->domain == 2) std::fputs("SOL 153\n", fp);
        break;
    case 2:
    case 5: std::fputs("SOL 103\n", fp); break;
    case 3: std::fputs("SOL 105\n", fp); break;
    case 4: std::fputs("SOL 159\n", fp); break;
    default: break;
    }
}

bool Has(const int* codes, int n, int code)
{
    for (int i = 0; i < n; ++i)
        if (codes[i] == code) return true;
    return false;
}

/* "PLOT,PRINT", "PLOT", "PRINT" or null when the code is neither filed nor printed. */
const char* Mode(const int* filed, int nf, const int* printed, int np, int code)
{
    const bool f = Has(filed, nf, code), p = Has(printed, np, code);
    return f && p ? "PLOT,PRINT" : (f ? "PLOT" : (p ? "PRINT" : nullptr));
}

void Requests(vis_NASFwt* nas, vis_SProp* step)
{
    int filed[kMaxIds], printed[kMaxIds];
    const int nf = IntList(step, kFiledCount, kFiled, filed);
    const int np = IntList(step, kPrintedCount, kPrinted, printed);
    if (nf == 0 && np == 0) return;
    FILE* fp = nas->w.fp;
    std::fputs("OUTPUT\n", fp);
    auto line = [&](int code, const char* format) {
        if (const char* mode = Mode(filed, nf, printed, np, code)) std::fprintf(fp, format, mode);
    };
    if (nas->domain == 1) {
        line(1, "DISPLACEMENT(%s) = ALL\n");
        line(35, "STRESS(%s,CORNER) = ALL\n");
        line(30, "STRAIN(%s,FIBER,CORNER) = ALL\n");
        line(94, "FORCE(%s,CORNER) = ALL\n");
        line(Mode(filed, nf, printed, np, 98) ? 98 : 51, "ESE(%s) = ALL\n");
        line(2, "OLOAD(%s) = ALL\n");
        line(3, "SPCFORCES(%s) = ALL\n");
    } else if (nas->domain == 2) {
        if (Mode(filed, nf, printed, np, 15)) std::fputs("THERMAL(PLOT) = ALL\n", fp);
        if (Mode(filed, nf, printed, np, 6)) std::fputs("FLUX(PLOT) = ALL\n", fp);
        line(119, "OLOAD(%s) = ALL\n");
        line(81, "SPCFORCES(%s) = ALL\n");
    }
}

void Texts(FILE* fp, vis_SProp* step)
{
    const struct {
        int code;
        const char* format;
    } texts[3] = {{kTitle, "TITLE = %s\n"}, {kSubtitle, "SUBTITLE = %s\n"}, {kLabel, "LABEL = %s\n"}};
    for (const auto& t : texts) {
        char text[kTextLen] = "";
        vis_SPropValueString(step, t.code, text);
        if (text[0] != '\0') std::fprintf(fp, t.format, text);
    }
    const struct {
        int code;
        const char* format;
    } ids[3] = {{kSpc, "SPC = %d\n"}, {kMpc, "MPC = %d\n"}, {kIc, "IC = %d\n"}};
    for (const auto& c : ids)
        if (const int id = Int(step, c.code)) std::fprintf(fp, c.format, id);
}

/* A load case with concentrated temperatures (type 4) is a temperature case. */
bool IsTemperature(vis_NASFwt* nas, int id)
{
    void* lc = nullptr;
    if (nas->lcase) vsy_HashTableGet(nas->lcase, id, &lc);
    int num = 0;
    if (lc) vis_LCaseConcNum(static_cast<vis_LCase*>(lc), 4, &num);
    return num > 0;
}

void Loads(vis_NASFwt* nas, vis_SProp* step)
{
    int ids[kMaxIds];
    const int n = IntList(step, kLoadCount, kLoadIds, ids);
    for (int i = 0; i < n; ++i) {
        if (IsTemperature(nas, ids[i])) {
            std::fprintf(nas->w.fp, "TEMP = %d\n", ids[i]);
            if (ids[i] > nas->tempcase) nas->tempcase = ids[i];
        } else {
            std::fprintf(nas->w.fp, "LOAD = %d\n", ids[i]);
        }
    }
}

void Subcase(vis_NASFwt* nas, vis_SProp* step, int pos)
{
    FILE* fp = nas->w.fp;
    std::fprintf(fp, "SUBCASE = %d\n", pos);
    Requests(nas, step);
    Texts(fp, step);
    Loads(nas, step);
    const int caseid = Int(step, kCaseId);
    if (Type(step) == 1 && Int(step, kNonlinear)) std::fprintf(fp, "NLPARM = %d\n", caseid);
    else if (nas->kind == 2 || nas->kind == 3) std::fprintf(fp, "METHOD = %d\n", caseid);
}

/* Load increments of a nonlinear static step: termination over step, less a little, cut. A step
 * of 0 or a ratio beyond the int range gives 0. */
int Increments(vis_SProp* step)
{
    const double dt = Real(step, kTimeStep);
    const double r = dt != 0.0 ? Real(step, kTimeEnd) / dt - 1e-6 : 0.0;
    return (std::isfinite(r) && std::fabs(r) < 2147483647.0) ? static_cast<int>(r) : 0;
}

void StepParams(FILE* fp, vis_SProp* step)
{
    const int type = Type(step);
    const int caseid = Int(step, kCaseId);
    if (type == 1 && Int(step, kNonlinear)) {
        int flag = 0;
        vis_SPropValueFlag(step, kSaveFreq, &flag);
        if (flag) std::fprintf(fp, "NLPARM  %8d%8d%40c%8s\n", caseid, Increments(step), ' ', "YES");
        else std::fprintf(fp, "NLPARM  %8d%8d\n", caseid, Increments(step));
    } else if (type == 2 || type == 3) {
        const double bounds[2] = {Real(step, kEigenLow), Real(step, kEigenHigh)};
        std::fprintf(fp, "EIGRL   %8d", caseid);
        vsy_FieldSmall(fp, 0, 2, bounds, 0);
        std::fprintf(fp, "%8d\n", Int(step, kEigenCount));
    }
}

}  // namespace

void vis_NASFwt_Control(vis_NASFwt* nas)
{
    Executive(nas);
    vis_SProp* first = Step(nas, 1);
    const int n = StepCount(nas);
    nas->kind = first ? Type(first) : 1;
    nas->domain = first ? Int(first, kDomain, 1) : 1;
    const int nonlinear = first ? Int(first, kNonlinear) : 0;
    if (nas->kind == 1 && n >= 2 && Type(Step(nas, 2)) == 3) nas->kind = 3;
    Solution(nas, nonlinear);
    FILE* fp = nas->w.fp;
    std::fputs("TIME 10000\nCEND\n", fp);
    if (nas->domain == 2) std::fputs("ANALYSIS = HEAT\n", fp);
    std::fputs("ECHO = NONE\n", fp);
    for (int pos = 1; pos <= n; ++pos)
        if (vis_SProp* step = Step(nas, pos)) Subcase(nas, step, pos);
}

void vis_NASFwt_Params(vis_NASFwt* nas)
{
    FILE* fp = nas->w.fp;
    const int n = StepCount(nas);
    for (int pos = 1; pos <= n; ++pos) {
        vis_SProp* step = Step(nas, pos);
        if (!step) continue;
        if (pos == 1 && Type(step) != 0)
            std::fputs("PARAM,POST,-1\nPARAM,PATVER,3.0\nPARAM,K6ROT,100.0\nPARAM,MAXRATIO,1.E+8\n"
                       "PARAM,GRDPNT,0\nPARAM,AUTOSPC,YES\n",
                       fp);
        StepParams(fp, step);
    }
}

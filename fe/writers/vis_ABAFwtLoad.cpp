/* Loads of one step. Each load keyword opens on its first load of the step with "OP=NEW"; a
 * keyword used by an earlier step and without loads now is written alone, to clear them. */
#include "vis_ABAFwtInternal.h"
#include "vis_LCase.h"
#include "vis_SProp.h"

#include <cmath>
#include <vector>

namespace {

enum { kCload, kCflux, kCfilm, kTemp, kDload, kDflux, kFilm };
const char* const kKeywords[VIS_ABAFWT_NSECT] = {"*CLOAD, OP=NEW\n", "*CFLUX, OP=NEW\n",  "*CFILM, OP=NEW\n",
                                                 "*TEMPERATURE, OP=NEW\n", "*DLOAD, OP=NEW\n", "*DFLUX, OP=NEW\n",
                                                 "*FILM, OP=NEW\n"};

struct Case {
    vis_LCase* lc;
    double factor;
};

/* The writer of one step's loads: opens keywords and block comments on the first line. */
struct Loads {
    vis_ABAFwt* aba;
    FILE* fp;
    std::vector<Case> cases;
    bool open[VIS_ABAFWT_NSECT] = {false};
    const char* comment = nullptr;  /* the block's comment, until its first line */
    int sect = 0;

    void Block(int s, const char* text)
    {
        sect = s;
        comment = text;
    }
    /* Before a data line: the section keyword and the block comment when still due. */
    void Line()
    {
        if (!open[sect]) std::fputs(kKeywords[sect], fp);
        open[sect] = true;
        aba->sect[sect] = 1;
        if (comment) std::fputs(comment, fp);
        comment = nullptr;
    }
    /* "head" then ", " and the reals, "\n". */
    void Data(const char* head, int n, const double* v)
    {
        Line();
        std::fputs(head, fp);
        std::fputs(", ", fp);
        vis_ABAFwt_Reals(fp, n, v, "\n");
    }
};

int ElemId(Loads* l, int index)
{
    return vis_Writer_ElemId(&l->aba->w, index);
}

bool Shell(Loads* l, int index)
{
    const int f = vis_Writer_ElemAssoc(&l->aba->w, 0, index);
    return f == 2 || f == 3;
}

/* Concentrated loads of one type: each non-zero component at its dof. */
void Concentrated(Loads* l, int type, int firstdof, int width)
{
    for (const Case& c : l->cases) {
        int max = 0;
        vis_LCaseConcMax(c.lc, type, &max);
        for (int index = 1; index <= max && index <= l->aba->w.numnp; ++index) {
            int flag = 0;
            vis_LCaseConcFlag(c.lc, index, type, &flag);
            if (!flag) continue;
            double v[3] = {0, 0, 0};
            vis_LCaseConcdv(c.lc, index, type, v);
            for (int k = 0; k < width; ++k) {
                if (v[k] == 0.0) continue;
                char head[48];
                std::snprintf(head, sizeof head, "%d,%2d", vis_Writer_NodeId(&l->aba->w, index), firstdof + k);
                const double value = v[k] * c.factor;
                l->Data(head, 1, &value);
            }
        }
    }
}

void Temperatures(Loads* l)
{
    for (const Case& c : l->cases) {
        int max = 0;
        vis_LCaseConcMax(c.lc, 4, &max);
        for (int index = 1; index <= max && index <= l->aba->w.numnp; ++index) {
            int flag = 0;
            vis_LCaseConcFlag(c.lc, index, 4, &flag);
            if (!flag) continue;
            if (l->comment) {
                const double zero = 0.0;
                l->Data(l->aba->nall, 1, &zero);
            }
            double t = 0.0;
            vis_LCaseConcdv(c.lc, index, 4, &t);
            t *= c.factor;
            char head[24];
            std::snprintf(head, sizeof head, "%d", vis_Writer_NodeId(&l->aba->w, index));
            l->Data(head, 1, &t);
        }
    }
}

/* Corners of face or edge `no` of an element, for the mean of the corner values. */
int Corners(Loads* l, int index, int entity, int no)
{
    int shape = 0, maxi = 0, maxj = 0, maxk = 0, num = 0, pos[VIS_ELEM_MAXFACENODE];
    vis_Writer_Topology(&l->aba->w, index, &shape, &maxi, &maxj, &maxk);
    if (entity == SYS_EDGE) return 2;
    if (shape == SYS_SHAPE_TRI || shape == SYS_SHAPE_QUAD) return shape == SYS_SHAPE_TRI ? 3 : 4;
    vis_ElemFaceCorners(shape, maxi, maxj, maxk, no - 1, &num, pos);
    return num > 0 && num <= 4 ? num : 4;
}

int Shape(Loads* l, int index)
{
    int shape = 0, maxi = 0, maxj = 0, maxk = 0;
    vis_Writer_Topology(&l->aba->w, index, &shape, &maxi, &maxj, &maxk);
    return shape;
}

/* The per-corner values of a distributed load averaged: `width` means. */
void Mean(const double* v, int corners, int width, double factor, double* out)
{
    for (int k = 0; k < width; ++k) {
        double sum = 0.0;
        for (int c = 0; c < corners; ++c) sum += v[c * width + k];
        out[k] = sum / corners * factor;
    }
}

/* Label of a distributed load: "%d,<p>%d" with the format's face number, or "%d,<p><shell>" on
 * a shell face. */
void Label(Loads* l, int index, int entity, int no, const char* p, const char* shell, char* head)
{
    const int id = ElemId(l, index);
    if (entity == SYS_FACE && Shell(l, index)) std::snprintf(head, 48, "%d,%s%s", id, p, shell);
    else if (entity == SYS_FACE) std::snprintf(head, 48, "%d,%s%d", id, p, vis_ABAFwt_Face(Shape(l, index), no));
    else std::snprintf(head, 48, "%d,%s%d", id, p, no);
}

/* Distributed loads of one type on faces or edges. Tractions (type 1) give their magnitude and
 * direction, convection (6) the sink temperature and the film coefficient. */
void Distributed(Loads* l, int entity, int type, const char* p, const char* shell)
{
    const int width = type == 1 ? 3 : type == 6 ? 2 : 1;
    for (const Case& c : l->cases) {
        int max = 0;
        vis_LCaseDistMax(c.lc, entity, type, &max);
        for (int index = 1; index <= max && index <= l->aba->w.numel; ++index) {
            int flags = 0;
            vis_LCaseDistFlag(c.lc, entity, index, type, &flags);
            for (int no = 1; no <= 12; ++no) {
                if (!(flags >> (no - 1) & 1)) continue;
                double v[12] = {0}, m[3]; /* 4 corners of up to 3 scalars */
                vis_LCaseDistdv(c.lc, entity, index, no, type, v);
                Mean(v, Corners(l, index, entity, no), width, c.factor, m);
                char head[48];
                Label(l, index, entity, no, p, shell, head);
                if (type == 1) {
                    const double mag = std::sqrt(m[0] * m[0] + m[1] * m[1] + m[2] * m[2]);
                    if (mag == 0.0) continue;
                    const double out[4] = {mag, m[0] / mag, m[1] / mag, m[2] / mag};
                    l->Data(head, 4, out);
                } else
                    l->Data(head, width, m);
            }
        }
    }
}

double Norm(const double* v)
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

/* Gravity, centrifugal load and rotary acceleration on "EALL". */
void Body(Loads* l)
{
    for (const Case& c : l->cases) {
        int flag = 0;
        vis_LCaseAccelFlag(c.lc, &flag);
        if (!flag) continue;
        double a[3], w[3], alpha[3], o[3];
        vis_LCaseAccel(c.lc, a, w, alpha, o);
        const double ga = Norm(a), gw = Norm(w), gr = Norm(alpha);
        if (ga > 0.0) {
            l->Block(kDload, "**         Gravity\n");
            const double v[4] = {ga * c.factor, a[0] / ga, a[1] / ga, a[2] / ga};
            l->Data("EALL, GRAV", 4, v);
        }
        if (gw > 0.0) {
            l->Block(kDload, "**         Centrifugal load\n");
            const double v[7] = {gw * gw * c.factor, o[0], o[1], o[2], w[0] / gw, w[1] / gw, w[2] / gw};
            l->Data("EALL, CENTRIF", 7, v);
        }
        if (gr > 0.0) {
            l->Block(kDload, "**         Rotary acceleration\n");
            const double v[7] = {gr * c.factor, o[0], o[1], o[2], alpha[0] / gr, alpha[1] / gr, alpha[2] / gr};
            l->Data("EALL, ROTA", 7, v);
        }
    }
}

/* Element heat generation: the mean of the node values, "%d,BF". */
void Generation(Loads* l)
{
    for (const Case& c : l->cases) {
        int max = 0;
        vis_LCaseElemMax(c.lc, 2, &max);
        for (int index = 1; index <= max && index <= l->aba->w.numel; ++index) {
            int flag = 0, n = 0;
            vis_LCaseElemFlag(c.lc, index, 2, &flag);
            if (!flag) continue;
            double v[VIS_LCASE_MAXELEMVAL] = {0}, sum = 0.0;
            vis_LCaseElemdv(c.lc, index, 2, &n, v);
            for (int k = 0; k < n; ++k) sum += v[k];
            const double mean = n > 0 ? sum / n * c.factor : 0.0;
            char head[32];
            std::snprintf(head, sizeof head, "%d,BF", ElemId(l, index));
            l->Data(head, 1, &mean);
        }
    }
}

void Stress(Loads* l)
{
    l->Block(kCload, "**         Forces and moments\n");
    Concentrated(l, 1, 1, 3);
    Concentrated(l, 2, 4, 3);
    l->Block(kTemp, "**         Temperatures\n");
    Temperatures(l);
    l->Block(kDload, "**         Distributed face pressure\n");
    Distributed(l, SYS_FACE, 2, "P", "");
    l->Block(kDload, "**         Distributed edge pressure\n");
    Distributed(l, SYS_EDGE, 2, "P", "");
    l->Block(kDload, "**         Distributed face traction\n");
    Distributed(l, SYS_FACE, 1, "TRVEC", "");
    l->Block(kDload, "**         Distributed edge traction\n");
    Distributed(l, SYS_EDGE, 1, "P", "");
    Body(l);
}

void Heat(Loads* l)
{
    l->Block(kCflux, "**         Heat source\n");
    Concentrated(l, 3, 11, 1);
    l->Block(kDflux, "**         Distributed face flux\n");
    Distributed(l, SYS_FACE, 5, "S", "POS");
    l->Block(kDflux, "**         Distributed edge flux\n");
    Distributed(l, SYS_EDGE, 5, "S", "");
    l->Block(kDflux, "**         Distributed element heat generation\n");
    Generation(l);
    l->Block(kFilm, "**         Distributed face convection\n");
    Distributed(l, SYS_FACE, 6, "F", "POS");
    l->Block(kFilm, "**         Distributed edge convection\n");
    Distributed(l, SYS_EDGE, 6, "F", "");
}

}  // namespace

void vis_ABAFwt_Loads(vis_ABAFwt* aba, vis_SProp* step)
{
    Loads l;
    l.aba = aba;
    l.fp = aba->w.fp;
    int n = 0;
    vis_SPropValueInteger(step, 2, &n);
    if (n > 0 && n <= 1024) {
        std::vector<int> ids(static_cast<size_t>(n), 0);
        std::vector<double> factors(static_cast<size_t>(n), 1.0);
        vis_SPropValueInteger(step, 3, ids.data());
        vis_SPropValueDouble(step, 4, factors.data());
        for (int i = 0; i < n; ++i)
            if (auto* lc = static_cast<vis_LCase*>(vis_ABAFwt_Find(aba->lcase, ids[i]))) l.cases.push_back({lc, factors[i]});
    }
    if (aba->domain == 1) Stress(&l);
    else Heat(&l);
    for (int s = 0; s < VIS_ABAFWT_NSECT; ++s)
        if (aba->sect[s] && !l.open[s]) std::fputs(kKeywords[s], l.fp);
}

/* Contact surfaces and pairs, co-simulation, multipoint constraints and initial conditions. */
#include "vis_ABAFwtInternal.h"
#include "vis_CPair.h"
#include "vis_EProp.h"
#include "vis_ICase.h"
#include "vis_MCase.h"
#include "vsy_HashTable.h"

#include <cstring>

namespace {

/* Element faces of one side: "%d,S%d" with the format's face number, "%d,SPOS" on a shell. */
void Faces(vis_ABAFwt* aba, vis_CPair* cp, int side)
{
    int num = 0;
    vis_CPairMasterSlaveElemNum(cp, side, &num);
    for (int i = 1; i <= num; ++i) {
        int index = 0, no = 0;
        double weight = 1.0;
        vis_CPairMasterSlaveElem(cp, side, i, &index, &no, &weight);
        if (index < 1 || index > aba->w.numel) continue;
        const int id = vis_Writer_ElemId(&aba->w, index), featype = vis_Writer_ElemAssoc(&aba->w, 0, index);
        int shape = 0, maxi = 0, maxj = 0, maxk = 0;
        vis_Writer_Topology(&aba->w, index, &shape, &maxi, &maxj, &maxk);
        if (featype == 2 || featype == 3) std::fprintf(aba->w.fp, "%d,SPOS\n", id);
        else std::fprintf(aba->w.fp, "%d,S%d\n", id, vis_ABAFwt_Face(shape, no));
    }
}

/* Slave nodes: "%d," for a unit weight, else the weight. */
void Nodes(vis_ABAFwt* aba, vis_CPair* cp)
{
    int num = 0;
    vis_CPairMasterSlaveElemNum(cp, VIS_CPAIR_SLAVE, &num);
    for (int i = 1; i <= num; ++i) {
        int index = 0, no = 0;
        double weight = 1.0;
        vis_CPairMasterSlaveElem(cp, VIS_CPAIR_SLAVE, i, &index, &no, &weight);
        if (index < 1 || index > aba->w.numnp) continue;
        std::fprintf(aba->w.fp, "%d", vis_Writer_NodeId(&aba->w, index));
        if (weight == 1.0) std::fputs(",\n", aba->w.fp);
        else {
            std::fputs(", ", aba->w.fp);
            vis_ABAFwt_Value(aba->w.fp, weight, "\n");
        }
    }
}

/* ", NAME=value" of a real option when it is set. */
void RealOption(FILE* fp, vis_CPair* cp, int code, const char* name)
{
    int flag = 0;
    vis_CPairValueFlag(cp, code, &flag);
    if (!flag) return;
    float value = 0.0f;
    vis_CPairValueFloat(cp, code, &value);
    char text[40];
    vis_ABAFwt_Real(value, text);
    std::fprintf(fp, ", %s=%s", name, text);
}

int IntOption(vis_CPair* cp, int code)
{
    int value = 0;
    vis_CPairValueInteger(cp, code, &value);
    return value;
}

void Pair(vis_ABAFwt* aba, int c, vis_CPair* cp, int kind)
{
    FILE* fp = aba->w.fp;
    std::fputs("*CONTACT PAIR", fp);
    RealOption(fp, cp, 1, "ADJUST");
    RealOption(fp, cp, 6, "EXTENSION ZONE");
    RealOption(fp, cp, 5, "HCRIT");
    RealOption(fp, cp, 4, "SMOOTH");
    if (IntOption(cp, 2)) std::fputs(", SMALL SLIDING", fp);
    if (IntOption(cp, 3)) std::fputs(", TIED", fp);
    std::fprintf(fp, ", INTERACTION=CPAIR%d\n", c);
    if (kind == 0) std::fprintf(fp, "SLAVE%d, SLAVE%d\n", c, c);
    else {
        std::fprintf(fp, "SLAVE%d, MASTER%d\n", c, c);
        if (IntOption(cp, 7)) std::fprintf(fp, "MASTER%d, SLAVE%d\n", c, c);
    }
    std::fprintf(fp, "*SURFACE INTERACTION, NAME=CPAIR%d\n", c);
    int flag = 0;
    vis_CPairValueFlag(cp, 0, &flag);
    if (!flag) return;
    if (auto* prop = static_cast<vis_EProp*>(vis_ABAFwt_Find(aba->eprop, IntOption(cp, 0))))
        vis_ABAFwt_SurfaceBehavior(aba, prop);
}

void CoSimulation(vis_ABAFwt* aba, int c)
{
    const bool stress = aba->domain == 1;
    std::fprintf(aba->w.fp, "*CO-SIMULATION,EXPORT\nSLAVE%d, %s\n", c, stress ? "U" : "NT");
    std::fprintf(aba->w.fp, "*CO-SIMULATION,IMPORT\nSLAVE%d, %s\n", c, stress ? "CF" : "HFL");
}

void Contact(vis_ABAFwt* aba, int c, vis_CPair* cp)
{
    FILE* fp = aba->w.fp;
    int kind = 0, link = 0;
    vis_CPairGetType(cp, &kind, &link);
    if (kind == 1) {
        std::fprintf(fp, "*SURFACE, TYPE=NODE, NAME=SLAVE%d\n", c);
        Nodes(aba, cp);
    } else {
        std::fprintf(fp, "*SURFACE, TYPE=ELEMENT, NAME=SLAVE%d\n", c);
        Faces(aba, cp, VIS_CPAIR_SLAVE);
    }
    if (kind != 0) {
        std::fprintf(fp, "*SURFACE, TYPE=ELEMENT, NAME=MASTER%d\n", c);
        Faces(aba, cp, VIS_CPAIR_MASTER);
    }
    if (link) CoSimulation(aba, c);
    else Pair(aba, c, cp, kind);
}

/* One linear equation: the term count, then four "%d,%2d,%16s," terms to a line. */
void Equation(vis_ABAFwt* aba, vis_MCase* mc, int index, int nterms)
{
    FILE* fp = aba->w.fp;
    int nodes[64], tags[64];
    double factors[64];
    if (nterms > 64) return;
    vis_MCaseMPCdv(mc, index, &nterms, nodes, tags, factors);
    std::fprintf(fp, "%d\n", nterms);
    for (int i = 0; i < nterms; ++i) {
        char text[40];
        vis_ABAFwt_Real(factors[i], text);
        const int tag = tags[i] == 7 ? 11 : tags[i];
        const char* end = i + 1 == nterms ? "\n" : (i + 1) % 4 == 0 ? ",\n" : ",";
        std::fprintf(fp, "%d,%2d,%16s%s", vis_Writer_NodeId(&aba->w, nodes[i]), tag, text, end);
    }
}

}  // namespace

void vis_ABAFwt_Contacts(vis_ABAFwt* aba)
{
    if (!aba->cpair) return;
    std::fputs("**         Contact pairs and Co-simulation\n", aba->w.fp);
    vis_ABAFwt_Ordered(aba->cpair, [aba](int key, void* value) { Contact(aba, key, static_cast<vis_CPair*>(value)); });
}

void vis_ABAFwt_Constraints(vis_ABAFwt* aba, int id)
{
    auto* mc = static_cast<vis_MCase*>(vis_ABAFwt_Find(aba->mcase, id));
    if (!mc) return;
    FILE* fp = aba->w.fp;
    static const char* const kTwoNode[6] = {nullptr, nullptr, "TIE", "PIN", "LINK", "BEAM"};
    int nequ = 0, maxterm = 0, maxindex = 0, open = 0;
    vis_MCaseInq(mc, &nequ, &maxterm, &maxindex);
    std::fputs("**         multi-point constraints\n", fp);
    for (int index = 1; index <= maxindex; ++index) {
        int type = 0, n = 0, nodes[2] = {0, 0};
        vis_MCaseType(mc, index, &type);
        if (type == 1) {
            vis_MCaseMPC(mc, index, &n);
            if (n < 1) continue;
            if (open != 1) std::fputs("*EQUATION\n", fp);
            open = 1;
            Equation(aba, mc, index, n);
        } else if (type >= 2 && type <= 5) {
            vis_MCaseCon(mc, index, &type, &n, nodes);
            if (open != 2) std::fputs("*MPC\n", fp);
            open = 2;
            std::fprintf(fp, "%s, %d, %d\n", kTwoNode[type], vis_Writer_NodeId(&aba->w, nodes[0]),
                         vis_Writer_NodeId(&aba->w, nodes[1]));
        }
    }
}

void vis_ABAFwt_Initial(vis_ABAFwt* aba, int id)
{
    auto* ic = static_cast<vis_ICase*>(vis_ABAFwt_Find(aba->icase, id));
    if (!ic) return;
    FILE* fp = aba->w.fp;
    int max[2] = {0, 0};
    vis_ICaseSPVMax(ic, 1, &max[0]);
    vis_ICaseSPVMax(ic, 2, &max[1]);
    if (max[0] < 1 && max[1] < 1) return;
    std::fputs("**         Initial Temperatures\n", fp);
    for (int level = 1; level <= 2; ++level) {
        bool open = false;
        for (int index = 1; index <= max[level - 1] && index <= aba->w.numnp; ++index) {
            int n = 0, tags[32];
            double values[32];
            vis_ICaseSPVdv(ic, index, level, &n, tags, values);
            for (int k = 0; k < n; ++k) {
                if (level == 1 && tags[k] != 7) continue;
                if (!open) std::fputs(level == 1 ? "*INITIAL CONDITIONS, TYPE=TEMPERATURE\n" : "*INITIAL CONDITIONS, TYPE=VELOCITY\n", fp);
                open = true;
                const int node = vis_Writer_NodeId(&aba->w, index);
                if (level == 1) std::fprintf(fp, "%d, ", node);
                else std::fprintf(fp, "%d,%d, ", node, tags[k]);
                vis_ABAFwt_Value(fp, values[k], "\n");
            }
        }
    }
}

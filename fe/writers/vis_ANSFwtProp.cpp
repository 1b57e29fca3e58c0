/* Sections "SECTYPE" and "SECDATA", materials "MP", and the components
 * "CMBLOCK" of the node and element groups. */
#include "vis_ANSFwtInternal.h"

#include "vis_EProp.h"
#include "vis_IdTran.h"
#include "vis_MProp.h"
#include "vsy_HashTable.h"

#include <string>
#include <vector>

namespace {

double Double(vis_EProp* p, int code, int at)
{
    double v[64] = {0};
    int flag = 0;
    vis_EPropValueFlag(p, code, &flag);
    if (flag) vis_EPropValueDouble(p, code, v);
    return v[at];
}

int Integer(vis_EProp* p, int code, int dflt)
{
    int v = dflt;
    vis_EPropValueInteger(p, code, &v);
    return v;
}

int IsSet(vis_EProp* p, int code)
{
    int flag = 0;
    vis_EPropValueFlag(p, code, &flag);
    return flag;
}

/* Nonstructural mass of a shell section: four empty fields, then the mass. */
void ShellMass(FILE* fp, vis_EProp* p)
{
    if (!IsSet(p, 11)) return;
    std::fputs("SECCONTROL,,,,", fp);
    vis_ANSFwt_Real(fp, Double(p, 11, 0));
    std::fputc('\n', fp);
}

void Shell(FILE* fp, int id, vis_EProp* p)
{
    const int wall = Integer(p, 89, 0);
    if (wall == 0 && IsSet(p, 7)) {
        std::fprintf(fp, "SECTYPE,%d,SHELL\n", id);
        std::fputs("SECDATA", fp);
        vis_ANSFwt_Real(fp, Double(p, 7, 0));
        std::fprintf(fp, ",%d,\n", Integer(p, 0, 0));
        ShellMass(fp, p);
    } else if (wall == 2) {
        std::fprintf(fp, "SECTYPE,%d,SHELL\n", id);
        const int n = Integer(p, 96, 0);
        std::vector<double> t(static_cast<size_t>(n > 0 ? n : 1)), a(t.size());
        std::vector<int> m(t.size(), 0), ip(t.size(), 0);
        if (n > 0) {
            if (IsSet(p, 97)) vis_EPropValueDouble(p, 97, t.data());
            if (IsSet(p, 98)) vis_EPropValueDouble(p, 98, a.data());
            vis_EPropValueInteger(p, 99, m.data());
            vis_EPropValueInteger(p, 100, ip.data());
        }
        for (size_t k = 0; k < static_cast<size_t>(n > 0 ? n : 0); ++k) {
            std::fputs("SECDATA", fp);
            vis_ANSFwt_Real(fp, t[k]);
            std::fprintf(fp, ",%d", m[k]);
            vis_ANSFwt_Real(fp, a[k]);
            std::fprintf(fp, ",%d\n", ip[k]);
        }
        ShellMass(fp, p);
    }
}

/* Section types of the library with the format's name and its number of dimensions. */
struct BeamForm {
    int type;
    const char* name;
    int ndim;
};
const BeamForm kBeamForms[] = {{5, "CSOLID", 1}, {8, "RECT", 2}, {20, "QUAD", 8}, {6, "CTUBE", 2},
                               {13, "CHAN", 6},  {4, "I", 6},    {12, "Z", 6},    {3, "L", 4},
                               {11, "T", 4},     {21, "HATS", 9}, {2, "HREC", 6}};

/* The general section: area, moments, product, warping and torsion in the format's order, and
 * the shear stiffnesses from the shear factors and an isotropic material's moduli. */
void BeamGeneral(vis_ANSFwt* ans, FILE* fp, int id, vis_EProp* p)
{
    std::fprintf(fp, "SECTYPE,%d,BEAM,ASEC\n", id);
    std::fputs("SECDATA", fp);
    for (int code : {14, 15, 17, 16, 25, 18}) vis_ANSFwt_Real(fp, Double(p, code, 0));
    std::fputc('\n', fp);
    Integer(p, 102, 0);
    Integer(p, 103, 0);
    if (!IsSet(p, 19) && !IsSet(p, 20)) return;
    void* mat = nullptr;
    if (ans->mprop) vsy_HashTableGet(ans->mprop, Integer(p, 0, 0), &mat);
    vis_MProp* m = static_cast<vis_MProp*>(mat);
    if (!m || m->type != 0) return;
    double e = 0, nu = 0;
    vis_MPropValueDouble(m, 1, &e);
    vis_MPropValueDouble(m, 2, &nu);
    const double g = e / (2.0 * (1.0 + nu)), area = Double(p, 14, 0);
    std::fputs("SECCONTROL", fp);
    vis_ANSFwt_Real(fp, Double(p, 20, 0) * g * area);
    vis_ANSFwt_Real(fp, Double(p, 19, 0) * g * area);
    std::fputc('\n', fp);
}

void Beam(vis_ANSFwt* ans, FILE* fp, int id, vis_EProp* p)
{
    const int type = Integer(p, 81, 0);
    if (type == 0) {
        BeamGeneral(ans, fp, id, p);
        return;
    }
    for (const BeamForm& form : kBeamForms) {
        if (form.type != type) continue;
        std::fprintf(fp, "SECTYPE,%d,BEAM,%s\n", id, form.name);
        std::fputs("SECDATA", fp);
        for (int k = 0; k < form.ndim; ++k) vis_ANSFwt_Real(fp, Double(p, 82, k));
        std::fputc('\n', fp);
    }
}

/* Label and parameter of each material value: the type's own, then those of every type. */
struct MatValue {
    const char* label;
    int code, at;
};
const MatValue kIsotropic[] = {{"EX", 1, 0}, {"NUXY", 2, 0}, {"ALPX", 4, 0}, {"KXX", 19, 0}};
const MatValue kOrthotropic[] = {{"EX", 7, 0},   {"EY", 7, 1},   {"EZ", 7, 2},   {"PRXY", 8, 0},
                                 {"PRYZ", 8, 1}, {"PRXZ", 8, 2}, {"GXY", 9, 0},  {"GYZ", 9, 1},
                                 {"GXZ", 9, 2},  {"ALPX", 10, 0}, {"ALPY", 10, 1}, {"ALPZ", 10, 2}};
const MatValue kAll[] = {{"DENS", 0, 0}, {"C", 20, 0}};

void Values(FILE* fp, int id, vis_MProp* m, const MatValue* list, int n)
{
    for (int k = 0; k < n; ++k) {
        int flag = 0;
        vis_MPropValueFlag(m, list[k].code, &flag);
        if (!flag) continue;
        double v[8] = {0};
        vis_MPropValueDouble(m, list[k].code, v);
        std::fprintf(fp, "MP,%s,%d", list[k].label, id);
        vis_ANSFwt_Real(fp, v[list[k].at]);
        std::fputc('\n', fp);
    }
}

/* "CMBLOCK" of one group: its name ('.' made '_'), the count, "(8i10)" and the ids. */
void Block(vis_ANSFwt* ans, int key, vis_IdTran* idt, int node)
{
    FILE* fp = ans->w.fp;
    std::string name = idt->name ? idt->name : "";
    for (char& c : name)
        if (c == '.') c = '_';
    if (name.empty()) name = (node ? "NODE_SET" : "ELEM_SET") + std::to_string(key);
    int n = 0;
    vis_IdTranNum(idt, &n);
    std::fprintf(fp, "CMBLOCK,%-s,%s,%d\n(8i10)\n", name.c_str(), node ? "NODE" : "ELEM", n);
    for (int k = 1; k <= n; ++k) {
        int index = 0;
        vis_IdTranGetId(idt, k, &index);
        const int id = node ? vis_Writer_NodeId(&ans->w, index) : vis_Writer_ElemId(&ans->w, index);
        std::fprintf(fp, "%10d", id);
        if (k % 8 == 0 || k == n) std::fputc('\n', fp);
    }
}

void NodeBlock(vis_ANSFwt* ans, int key, void* value) { Block(ans, key, static_cast<vis_IdTran*>(value), 1); }
void ElemBlock(vis_ANSFwt* ans, int key, void* value) { Block(ans, key, static_cast<vis_IdTran*>(value), 0); }

void Section(vis_ANSFwt* ans, int key, void* value)
{
    vis_EProp* p = static_cast<vis_EProp*>(value);
    if (p->type == 2) Shell(ans->w.fp, key, p);
    else if (p->type == 4) Beam(ans, ans->w.fp, key, p);
}

void Material(vis_ANSFwt* ans, int key, void* value)
{
    FILE* fp = ans->w.fp;
    vis_MProp* m = static_cast<vis_MProp*>(value);
    int flag = 0;
    vis_MPropValueFlag(m, 6, &flag);
    if (flag) {
        double t = 0;
        vis_MPropValueDouble(m, 6, &t);
        std::fprintf(fp, "MP,REFT,%d", key);
        vis_ANSFwt_Real(fp, t);
        std::fputc('\n', fp);
    }
    if (m->type == 0) Values(fp, key, m, kIsotropic, 4);
    if (m->type == 2) Values(fp, key, m, kOrthotropic, 12);
    Values(fp, key, m, kAll, 2);
}

}  // namespace

void vis_ANSFwt_Sections(vis_ANSFwt* ans)
{
    vis_ANSFwt_Walk(ans, ans->eprop, "C***       Element properties\n", Section);
}

void vis_ANSFwt_Materials(vis_ANSFwt* ans)
{
    vis_ANSFwt_Walk(ans, ans->mprop, "C***       Material properties\n", Material);
}

void vis_ANSFwt_Components(vis_ANSFwt* ans)
{
    if (ans->nodegroup) vis_ANSFwt_Walk(ans, ans->nodegroup, "C***       Node sets\n", NodeBlock);
    if (ans->elemgroup) vis_ANSFwt_Walk(ans, ans->elemgroup, "C***       Element sets\n", ElemBlock);
}

/* Element properties of the ABAQUS deck: sections by property, orientations, the sections of
 * springs, masses and gaps by element set, nodal thickness and gap surface behaviour. */
#include "vis_ABAFwtInternal.h"
#include "vis_CoordSys.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_MProp.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"

#include <set>
#include <string>

namespace {

/* An "*ORIENTATION" named "MCID" and the id, once per id; false when it cannot be written. */
bool Orientation(vis_ABAFwt* aba, int id)
{
    int done = 0;
    vsy_IntHashGet(aba->orients, id, &done);
    if (done) return true;
    FILE* fp = aba->w.fp;
    if (id < 0) {
        std::fprintf(fp, "*ORIENTATION, NAME=MCID%d, DEFINITION=OFFSET TO NODES\n", id);
        if (id == -9) std::fputs("2, 3\n3, 0.\n", fp);
    } else {
        auto* cs = static_cast<vis_CoordSys*>(vis_ABAFwt_Find(aba->coordsys, id));
        if (!cs) return false;
        int type = 0;
        double o[3], t[9];
        vis_CoordSysGetType(cs, &type);
        vis_CoordSysOriginTriad(cs, o, t);
        std::fprintf(fp, "*ORIENTATION, NAME=MCID%d", id);
        double v[6] = {t[0], t[1], t[2], t[3], t[4], t[5]};
        if (type == 1) std::fputc('\n', fp);
        else {
            std::fputs(type == 2 ? ", SYSTEM=CYLINDRICAL\n" : ", SYSTEM=SPHERICAL\n", fp);
            for (int a = 0; a < 3; ++a) v[a] = o[a], v[3 + a] = o[a] + t[6 + a];
        }
        vis_ABAFwt_Reals(fp, 6, v, "\n");
    }
    std::fputs("1, 0.\n", fp);
    vsy_IntHashInsert(aba->orients, id, 1);
    return true;
}

/* ", ORIENTATION=MCID%d" of the property's material system (parameter 5), when it has one. */
void OrientationRef(vis_ABAFwt* aba, vis_EProp* prop, char* text, int size)
{
    int flag = 0;
    text[0] = '\0';
    vis_EPropValueFlag(prop, 5, &flag);
    if (!flag) return;
    const int id = vis_ABAFwt_EPropInt(prop, 5, 0);
    if (Orientation(aba, id)) std::snprintf(text, size, ", ORIENTATION=MCID%d", id);
}

void ThicknessLine(vis_ABAFwt* aba, vis_EProp* prop)
{
    char text[40];
    vis_ABAFwt_Real(vis_ABAFwt_EPropDouble(prop, 7, 0.0), text);
    if (aba->domain != 1) std::fprintf(aba->w.fp, "%s,%d\n", text, 1);
    else std::fprintf(aba->w.fp, "%s\n", text);
}

/* Shell and membrane sections: nodal thickness or the property's thickness line. */
void ShellEnd(vis_ABAFwt* aba, int pid, vis_EProp* prop)
{
    int marked = 0;
    vsy_IntHashGet(aba->nodalthick, pid, &marked);
    if (marked) std::fputs(", NODAL THICKNESS\n", aba->w.fp);
    else {
        std::fputc('\n', aba->w.fp);
        ThicknessLine(aba, prop);
    }
}

double MatValue(vis_MProp* mat, int code, double def)
{
    double v[32];
    v[0] = def;
    if (mat) vis_MPropValueDouble(mat, code, v);
    return v[0];
}

/* A line "y, z" of a two-valued point from parameters a and b (first location). */
void Pair(vis_ABAFwt* aba, vis_EProp* prop, int a, int b)
{
    const double v[2] = {vis_ABAFwt_EPropDouble(prop, a, 0.0), vis_ABAFwt_EPropDouble(prop, b, 0.0)};
    vis_ABAFwt_Reals(aba->w.fp, 2, v, "\n");
}

bool Flag(vis_EProp* prop, int code)
{
    int flag = 0;
    vis_EPropValueFlag(prop, code, &flag);
    return flag != 0;
}

void BeamGeneral(vis_ABAFwt* aba, int pid, vis_EProp* prop, vis_MProp* mat)
{
    FILE* fp = aba->w.fp;
    const int section = vis_ABAFwt_EPropInt(prop, 81, 0);
    std::fprintf(fp, "*BEAM GENERAL SECTION, ELSET=PID%d", pid);
    if (section == 5) std::fputs(", SECTION=CIRC", fp);
    if (section == 8) std::fputs(", SECTION=RECT", fp);
    int dens = 0;
    vis_MPropValueFlag(mat, 0, &dens);
    if (dens) {
        char text[40];
        vis_ABAFwt_Real(MatValue(mat, 0, 0.0), text);
        std::fprintf(fp, ", %s=%s", "DENSITY", text);
    }
    std::fputc('\n', fp);
    if (section == 5 || section == 8) {
        double dim[64] = {0};
        vis_EPropValueDouble(prop, 82, dim);
        vis_ABAFwt_Reals(fp, section == 5 ? 1 : 2, dim, "\n");
    } else if (section == 0) {
        double v[6];
        const int codes[6] = {14, 15, 17, 16, 18, 25};
        for (int i = 0; i < 6; ++i) v[i] = vis_ABAFwt_EPropDouble(prop, codes[i], 0.0);
        vis_ABAFwt_Reals(fp, Flag(prop, 25) ? 6 : 5, v, "\n");
    }
    const double e = MatValue(mat, 1, 0.0), nu = MatValue(mat, 2, 0.0);
    const double g[2] = {e, MatValue(mat, 3, e / (2.0 * (1.0 + nu)))};
    vis_ABAFwt_Reals(fp, 2, g, "\n");
    if (Flag(prop, 23) || Flag(prop, 24)) std::fputs("*CENTROID\n", fp), Pair(aba, prop, 23, 24);
    if (Flag(prop, 21) || Flag(prop, 22)) std::fputs("*SHEAR CENTER\n", fp), Pair(aba, prop, 21, 22);
    if (Flag(prop, 30) || Flag(prop, 31) || Flag(prop, 32) || Flag(prop, 33)) {
        std::fputs("*SECTION POINTS\n", fp);
        for (int code = 30; code <= 33; ++code) {
            double p[4] = {0, 0, 0, 0};
            vis_EPropValueDouble(prop, code, p);
            vis_ABAFwt_Reals(fp, 2, p, "\n");
        }
    }
}

void Beam(vis_ABAFwt* aba, int pid, vis_EProp* prop, int mid)
{
    auto* mat = static_cast<vis_MProp*>(vis_ABAFwt_Find(aba->mprop, mid));
    if (aba->domain != 1) {
        std::fprintf(aba->w.fp, "*SOLID SECTION, ELSET=PID%d, MATERIAL=MID%d\n", pid, mid);
        vis_ABAFwt_Value(aba->w.fp, vis_ABAFwt_EPropDouble(prop, 14, 0.0), "\n");
        return;
    }
    int type = -1;
    if (mat) vis_MPropGetType(mat, &type);
    if (type == 0) BeamGeneral(aba, pid, prop, mat);
}

/* The section of one property of types 1 to 5. */
void Section(vis_ABAFwt* aba, int pid, vis_EProp* prop)
{
    FILE* fp = aba->w.fp;
    int type = 0;
    vis_EPropGetType(prop, &type);
    const int mid = vis_ABAFwt_EPropInt(prop, 0, 0);
    char orient[48];
    switch (type) {
    case 1: {
        OrientationRef(aba, prop, orient, sizeof orient);
        std::fprintf(fp, "*SOLID SECTION, ELSET=PID%d, MATERIAL=MID%d%s\n", pid, mid, orient);
        if (aba->featwod && Flag(prop, 7)) ThicknessLine(aba, prop);
        break;
    }
    case 2:
    case 3:
        OrientationRef(aba, prop, orient, sizeof orient);
        std::fprintf(fp, "*%s SECTION, ELSET=PID%d, MATERIAL=MID%d%s", type == 2 ? "SHELL" : "MEMBRANE", pid, mid, orient);
        ShellEnd(aba, pid, prop);
        break;
    case 4: Beam(aba, pid, prop, mid); break;
    case 5:
        std::fprintf(fp, "*SOLID SECTION, ELSET=PID%d, MATERIAL=MID%d\n", pid, mid);
        vis_ABAFwt_Value(fp, vis_ABAFwt_EPropDouble(prop, 14, 0.0), ",\n");
        break;
    default: break;
    }
}

/* The set name an element of feature 7, 9 or 13 was written under; empty for others. */
std::string LinkSet(vis_ABAFwt* aba, int index, int* featype, int* propid, int* csysid, bool* rotary)
{
    vis_Writer* w = &aba->w;
    *featype = vis_Writer_ElemAssoc(w, 0, index);
    *propid = vis_Writer_ElemAssoc(w, 2, index);
    *csysid = vis_Writer_ElemAssoc(w, 4, index);
    *rotary = false;
    char name[64];
    if (*featype == 9 || (*featype == 7 && *csysid >= 1))
        std::snprintf(name, sizeof name, "PID%d_CID%d", *propid, *csysid);
    else if (*featype == 7)
        std::snprintf(name, sizeof name, "PID%d_ID%d", *propid, vis_Writer_ElemId(w, index));
    else if (*featype == 13) {
        auto* prop = static_cast<vis_EProp*>(vis_ABAFwt_Find(aba->eprop, *propid));
        const bool mass = prop && Flag(prop, 51), inertia = prop && Flag(prop, 53);
        *rotary = inertia;
        if (!mass && inertia) std::snprintf(name, sizeof name, "PID%d_CID%d", *propid, *csysid);
        else std::snprintf(name, sizeof name, "PID%d", *propid);
    } else
        return std::string();
    return name;
}

void Spring(vis_ABAFwt* aba, const std::string& set, vis_EProp* prop, int csysid)
{
    FILE* fp = aba->w.fp;
    const bool oriented = csysid > 0 && Orientation(aba, csysid);
    std::fprintf(fp, "*SPRING, ELSET=%s", set.c_str());
    if (oriented) std::fprintf(fp, ", ORIENTATION=MCID%d", csysid);
    std::fprintf(fp, "\n%d,%d\n", vis_ABAFwt_EPropInt(prop, 49, 0), vis_ABAFwt_EPropInt(prop, 50, 0));
    vis_ABAFwt_Value(fp, vis_ABAFwt_EPropDouble(prop, 47, 0.0), "\n");
}

void Mass(vis_ABAFwt* aba, const std::string& set, vis_EProp* prop, bool rotary, int csysid)
{
    FILE* fp = aba->w.fp;
    if (Flag(prop, 51)) {
        std::fprintf(fp, "*MASS, ELSET=%s\n", set.c_str());
        vis_ABAFwt_Value(fp, vis_ABAFwt_EPropDouble(prop, 51, 0.0), "\n");
    }
    if (!rotary) return;
    double inertia[6] = {0, 0, 0, 0, 0, 0};
    vis_EPropValueDouble(prop, 53, inertia);
    int pid = 0;
    std::sscanf(set.c_str(), "PID%d", &pid);
    std::fprintf(fp, "*ROTARY INERTIA, ELSET=PID%d_CID%d\n", pid, csysid);
    vis_ABAFwt_Reals(fp, 6, inertia, "\n");
}

void Gap(vis_ABAFwt* aba, const std::string& set, vis_EProp* prop, int index)
{
    double v[4] = {vis_ABAFwt_EPropDouble(prop, 34, 0.0), 0, 0, 0};
    if (auto* orient = static_cast<vis_ElemDat*>(vis_ABAFwt_Find(aba->elemdat, 28))) vis_ElemDatData(orient, index, 3, v + 1);
    std::fprintf(aba->w.fp, "*GAP, ELSET=%s\n", set.c_str());
    vis_ABAFwt_Reals(aba->w.fp, 4, v, "\n");
    vis_ABAFwt_SurfaceBehavior(aba, prop);
}

/* The second pass: one section per distinct set of springs, masses and gaps. */
void LinkSections(vis_ABAFwt* aba)
{
    std::set<std::string> done;
    for (int i = 1; i <= aba->w.numel; ++i) {
        int featype = 0, propid = 0, csysid = 0;
        bool rotary = false;
        const std::string set = LinkSet(aba, i, &featype, &propid, &csysid, &rotary);
        auto* prop = static_cast<vis_EProp*>(vis_ABAFwt_Find(aba->eprop, propid));
        if (set.empty() || !prop || !done.insert(set).second) continue;
        if (featype == 9) Spring(aba, set, prop, csysid);
        else if (featype == 13) Mass(aba, set, prop, rotary, csysid);
        else Gap(aba, set, prop, i);
    }
}

/* "*NODAL THICKNESS" with each node of a shell with element thickness once. */
void NodalThickness(vis_ABAFwt* aba, vis_ElemDat* thick)
{
    vsy_IntHash* seen = vsy_IntHashNew();
    bool open = false;
    for (int i = 1; i <= aba->w.numel && seen; ++i) {
        if (vis_Writer_ElemAssoc(&aba->w, 0, i) != 2) continue;
        int n = 0, nodes[VIS_ELEM_MAXNODE];
        double t[VIS_ELEM_MAXNODE] = {0};
        vis_Writer_ElemNode(&aba->w, i, &n, nodes);
        vis_ElemDatData(thick, i, n, t);
        bool any = false;
        for (int k = 0; k < n; ++k) any = any || t[k] != 0.0;
        if (!any) continue;
        if (!open) std::fputs("*NODAL THICKNESS\n", aba->w.fp);
        open = true;
        vis_Writer_NodeIds(&aba->w, n, nodes);
        for (int k = 0; k < n; ++k) {
            int known = 0;
            vsy_IntHashGet(seen, nodes[k], &known);
            if (known) continue;
            vsy_IntHashInsert(seen, nodes[k], 1);
            char text[40];
            vis_ABAFwt_Real(t[k], text);
            std::fprintf(aba->w.fp, "%d,%s\n", nodes[k], text);
        }
    }
    vsy_IntHashDelete(seen);
}

}  // namespace

void vis_ABAFwt_Props(vis_ABAFwt* aba)
{
    if (!aba->eprop) return;
    std::fputs("**         Element properties\n", aba->w.fp);
    vis_ABAFwt_Ordered(aba->eprop, [aba](int key, void* value) { Section(aba, key, static_cast<vis_EProp*>(value)); });
    LinkSections(aba);
    if (auto* thick = static_cast<vis_ElemDat*>(vis_ABAFwt_Find(aba->elemdat, 2))) NodalThickness(aba, thick);
}

void vis_ABAFwt_SurfaceBehavior(vis_ABAFwt* aba, vis_EProp* prop)
{
    FILE* fp = aba->w.fp;
    std::fputs("*SURFACE BEHAVIOR", fp);
    if (Flag(prop, 45)) std::fputs(", NO SEPARATION", fp);
    const double k = vis_ABAFwt_EPropDouble(prop, 37, 0.0);
    if (k == 0.0) std::fputs(", PRESSURE-OVERCLOSURE=HARD\n", fp);
    else {
        std::fputs(", PRESSURE-OVERCLOSURE=TABULAR\n", fp);
        const double gap = vis_ABAFwt_EPropDouble(prop, 34, 0.0), slope = vis_ABAFwt_EPropDouble(prop, 36, k);
        const double rows[3][2] = {{0.0, 0.0}, {k * gap, gap}, {k * gap + slope, gap + 1.0}};
        vis_ABAFwt_Reals(fp, 2, rows[0], "\n");
        if (Flag(prop, 34)) vis_ABAFwt_Reals(fp, 2, rows[1], "\n");
        vis_ABAFwt_Reals(fp, 2, rows[2], "\n");
    }
    if (Flag(prop, 46)) {
        std::fputs("*FRICTION, ROUGH\n", fp);
        return;
    }
    const double mu[2] = {vis_ABAFwt_EPropDouble(prop, 39, 0.0), vis_ABAFwt_EPropDouble(prop, 40, 0.0)};
    if (mu[0] == 0.0 && mu[1] == 0.0) return;
    std::fputs(mu[0] == mu[1] ? "*FRICTION\n" : "*FRICTION, ANISOTROPIC\n", fp);
    vis_ABAFwt_Reals(fp, mu[0] == mu[1] ? 1 : 2, mu, ",\n");
}

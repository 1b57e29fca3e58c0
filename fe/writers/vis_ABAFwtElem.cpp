/* Elements of the ABAQUS deck in runs under one "*ELEMENT" header, the all-elements set, end
 * releases and couplings. Node positions follow the library's order, which for solids of order
 * 3 (top edges before vertical edges) is the format's own. */
#include "vis_ABAFwtInternal.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_IdTran.h"
#include "vsy_Dictionary.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"

#include <cstring>
#include <vector>

namespace {

constexpr int kMaxNode = VIS_ELEM_MAXNODE + 8;

struct Elem {
    int index, id, shape, maxi, maxj, maxk, n;
    int node[kMaxNode];   /* node indices, then ids after Ids() */
    int propid, csysid, featype, feaspec, featwod;
    vis_EProp* prop;
};

/* A pyramid as a hexahedron whose top face is the apex four times; of order 3 the base edges'
 * midside nodes stay, the top edges collapse into the apex and the apex edges' midside nodes go
 * to the vertical edges. */
void PyramidToHex(Elem* e)
{
    const bool quadratic = e->n >= 13;
    const int apex = e->node[4];
    if (quadratic) {
        int mid[8];
        for (int i = 0; i < 8; ++i) mid[i] = e->node[5 + i];
        for (int i = 0; i < 4; ++i) e->node[8 + i] = mid[i], e->node[12 + i] = apex, e->node[16 + i] = mid[4 + i];
    }
    for (int i = 5; i < 8; ++i) e->node[i] = apex;
    e->n = quadratic ? 20 : 8;
}

/* The associations and ids of a run of elements, read by one call per kind: features,
 * properties, systems, feaspec, featwod and end releases. */
struct Run {
    static constexpr int kTypes[6] = {0, 2, 4, 12, 25, 41};
    int first = 1, n = 0;
    int value[6][VIS_WRITER_BLOCK];
    int id[VIS_WRITER_BLOCK];
    /* Makes element `index` one of the run's, reading the next run when it is not. */
    int At(vis_Writer* w, int index)
    {
        if (index < first || index >= first + n) {
            first = index;
            n = w->numel - index + 1 < VIS_WRITER_BLOCK ? w->numel - index + 1 : VIS_WRITER_BLOCK;
            for (int t = 0; t < 6; ++t) vis_Writer_ElemAssocs(w, kTypes[t], first, n, value[t]);
            vis_Writer_ElemIds(w, first, n, id);
        }
        return index - first;
    }
};

bool Read(vis_ABAFwt* aba, Run* run, int index, Elem* e)
{
    vis_Writer* w = &aba->w;
    e->index = index;
    vis_Writer_Topology(w, index, &e->shape, &e->maxi, &e->maxj, &e->maxk);
    vis_Writer_ElemNode(w, index, &e->n, e->node);
    if (e->n < 1) return false;
    if (e->shape == SYS_SHAPE_PYR) PyramidToHex(e);
    const int b = run->At(w, index);
    e->featype = run->value[0][b];
    const int propid = run->value[1][b];
    if (propid != e->propid || !e->prop) e->prop = static_cast<vis_EProp*>(vis_ABAFwt_Find(aba->eprop, propid));
    e->propid = propid;
    e->csysid = run->value[2][b];
    e->feaspec = run->value[3][b];
    e->featwod = run->value[4][b];
    e->id = run->id[b];
    return true;
}

/* Node indices to printed ids, from the table of the node pass when there is one. */
void Ids(vis_ABAFwt* aba, Elem* e)
{
    if (!aba->nodeids) {
        vis_Writer_NodeIds(&aba->w, e->n, e->node);
        return;
    }
    for (int i = 0; i < e->n; ++i) {
        const int node = e->node[i];
        e->node[i] = node >= 1 && node <= aba->w.numnp ? aba->nodeids[node] : 0;
    }
}

/* "%s%d" of a prefix and the node count. */
void Numbered(char* name, const char* prefix, int n)
{
    std::snprintf(name, 16, "%s%d", prefix, n);
}

/* Names of solids, shells, membranes, beams and trusses; empty when the element is passed over. */
void ContinuumName(const vis_ABAFwt* aba, const Elem* e, char* name)
{
    const bool stress = aba->domain == 1;
    const bool plane = e->shape == SYS_SHAPE_TRI || e->shape == SYS_SHAPE_QUAD;
    const bool solid3 = e->shape >= SYS_SHAPE_TET && e->shape <= SYS_SHAPE_HEX;
    const int n = e->n;
    name[0] = '\0';
    switch (e->featype) {
    case 1:
        if (plane && stress) Numbered(name, e->featwod == 3 ? "CAX" : e->featwod == 1 ? "CPE" : "CPS", n);
        else if (plane) Numbered(name, e->featwod == 3 ? "DCAX" : "DC2D", n);
        else if (solid3) Numbered(name, stress ? "C3D" : "DC3D", n);
        break;
    case 2:
        if (e->shape == SYS_SHAPE_LINE && e->featwod == 3 && (n == 2 || n == 3))
            Numbered(name, stress ? "SAX" : "DSAX", n - 1);
        else if (plane && !stress) Numbered(name, "DS", n);
        else if (plane) {
            const char* names[10] = {"", "", "", "S3R", "S4R", "", "STRI65", "", "S8R", "S9R5"};
            if (n <= 9) std::strcpy(name, names[n]);
        }
        break;
    case 3: Numbered(name, stress ? "M3D" : "DS", n); break;
    case 4:
        if (e->shape == SYS_SHAPE_LINE && stress && (n == 2 || n == 3)) std::strcpy(name, n == 2 ? "B31" : "B32");
        else if (e->shape == SYS_SHAPE_LINE && !stress) Numbered(name, "DC1D", n);
        break;
    case 5:
        if (e->shape == SYS_SHAPE_LINE) Numbered(name, stress ? "T3D" : "DC1D", n);
        break;
    default: break;
    }
}

/* Property's name for the element's shape (parameters 66 to 73), when set. */
void PropName(const Elem* e, char* name)
{
    int flag = 0;
    if (!e->prop || e->shape < 0 || e->shape > 7) return;
    vis_EPropValueFlag(e->prop, 66 + e->shape, &flag);
    char text[32] = "";
    if (flag) vis_EPropValueString(e->prop, 66 + e->shape, text);
    if (text[0]) std::snprintf(name, 16, "%s", text);
}

struct Header {
    char type[32];
    char elset[48];
    bool rotary = false;  /* a mass element that also has an inertia: queued as ROTARYI */
};

/* The header an element belongs under; false for an element written under no header. */
bool HeaderOf(vis_ABAFwt* aba, const Elem* e, Header* h)
{
    h->rotary = false;
    std::snprintf(h->elset, sizeof h->elset, "PID%d", e->propid);
    switch (e->featype) {
    case 7:
        std::strcpy(h->type, "GAPUNI");
        if (e->csysid < 1) std::snprintf(h->elset, sizeof h->elset, "PID%d_ID%d", e->propid, e->id);
        else std::snprintf(h->elset, sizeof h->elset, "PID%d_CID%d", e->propid, e->csysid);
        return true;
    case 9:
        std::strcpy(h->type, e->shape == SYS_SHAPE_POINT ? "SPRING1" : "SPRING2");
        std::snprintf(h->elset, sizeof h->elset, "PID%d_CID%d", e->propid, e->csysid);
        return true;
    case 10:
        if (e->feaspec != 1 && e->feaspec != 4) return false;
        std::strcpy(h->type, aba->featwod ? "DCOUP2D" : "DCOUP3D");
        std::snprintf(h->elset, sizeof h->elset, "PID%d_ID%d", e->propid, e->id);
        return true;
    case 13: {
        int mass = 0, inertia = 0;
        if (e->prop) vis_EPropValueFlag(e->prop, 51, &mass), vis_EPropValueFlag(e->prop, 53, &inertia);
        std::strcpy(h->type, mass || !inertia ? "MASS" : "ROTARYI");
        if (!mass && inertia) std::snprintf(h->elset, sizeof h->elset, "PID%d_CID%d", e->propid, e->csysid);
        h->rotary = mass && inertia;
        return true;
    }
    default:
        ContinuumName(aba, e, h->type);
        PropName(e, h->type);
        return h->type[0] != '\0';
    }
}

void Remember(vis_ABAFwt* aba, const char* name)
{
    void* value = nullptr;
    vsy_DictionaryGet(aba->names, name, &value);
    if (!value) vsy_DictionaryInsert(aba->names, name, aba);
}

/* Node entries per data line: 71 over the digits of the largest id plus 2, within 8 to 16. */
int PerLine(const vis_ABAFwt* aba)
{
    int big = aba->maxnode > aba->maxelem ? aba->maxnode : aba->maxelem, digits = 1;
    while (big >= 10) big /= 10, ++digits;
    int m = 71 / (digits + 2);
    return m > 16 ? 16 : m < 8 ? 8 : m;
}

/* "%d," with the id, " %d," for nodes, " %d\n" for the last, a break after m entries. */
void DataLine(FILE* fp, const Elem* e, int m)
{
    char line[kMaxNode * 16 + 32];
    int len = vsy_FieldIntText(e->id, 1, line);
    line[len++] = ',';
    for (int i = 0; i < e->n; ++i) {
        line[len++] = ' ';
        len += vsy_FieldIntText(e->node[i], 1, line + len);
        if (i + 1 < e->n) line[len++] = ',';
        if (i + 1 == e->n || (i + 1) % m == 0) line[len++] = '\n';
    }
    vis_Writer_Put(fp, line, len);
}

/* Queued rotary inertia elements of a mass run: new ids above the largest, one node each. */
struct Queue {
    std::vector<int> nodes;
    int propid = 0, csysid = 0;
    void Flush(vis_ABAFwt* aba)
    {
        if (nodes.empty()) return;
        char elset[48];
        std::snprintf(elset, sizeof elset, "PID%d_CID%d", propid, csysid);
        std::fprintf(aba->w.fp, "*ELEMENT, TYPE=ROTARYI, ELSET=%s\n", elset);
        Remember(aba, elset);
        for (int node : nodes) std::fprintf(aba->w.fp, "%d,%d\n", ++aba->maxelem, node);
        nodes.clear();
    }
};

void Features(vis_ABAFwt* aba, const Elem* e)
{
    switch (e->featype) {
    case 1: aba->solids = 1; break;
    case 2: case 3: aba->shells = 1; break;
    case 4: aba->beams = 1, ++aba->beamorient; break;
    case 5: aba->trusses = 1; break;
    default: break;
    }
}

/* A shell whose element data holds a non-zero thickness marks its property. */
void MarkThickness(vis_ABAFwt* aba, const Elem* e, vis_ElemDat* thick)
{
    if (e->featype != 2 || !thick) return;
    double t[kMaxNode] = {0};
    vis_ElemDatData(thick, e->index, e->n, t);
    for (int i = 0; i < e->n; ++i)
        if (t[i] != 0.0) {
            vsy_IntHashInsert(aba->nodalthick, e->propid, 1);
            return;
        }
}

void AllElements(vis_ABAFwt* aba)
{
    bool named = false;
    if (aba->elemgroup)
        vis_ABAFwt_Ordered(aba->elemgroup, [aba, &named](int, void* value) {
            int n = 0;
            char name[8];
            vis_ABAFwt_GroupName(static_cast<vis_IdTran*>(value), name, sizeof name);
            vis_IdTranNum(static_cast<vis_IdTran*>(value), &n);
            named = named || (std::strcmp(name, "EALL") == 0 && n == aba->w.numel);
        });
    if (named) return;
    std::fprintf(aba->w.fp, "**         All elements set\n*ELSET, ELSET=EALL, GENERATE\n%d, %d\n", 1, aba->maxelem);
    Remember(aba, "EALL");
}

/* "M1", "M2", "T" and their pairs from the three rotation bits of one end (dofs 5, 6, 4). */
const char* ReleaseText(int bits)
{
    const int m1 = bits >> 1 & 1, m2 = bits >> 2 & 1, t = bits & 1;
    if (m1 && m2 && t) return "ALLM";
    if (m1 && m2) return "M1-M2";
    if (m1 && t) return "M1-T";
    if (m2 && t) return "M2-T";
    return m1 ? "M1" : m2 ? "M2" : t ? "T" : nullptr;
}

void Releases(vis_ABAFwt* aba)
{
    bool open = false;
    Run run;
    for (int i = 1; i <= aba->w.numel; ++i) {
        const int bits = run.value[5][run.At(&aba->w, i)];
        if (bits == 0) continue;
        if (!open) std::fputs("**         End releases\n*RELEASE\n", aba->w.fp);
        open = true;
        for (int end = 0; end < 2; ++end)
            if (const char* text = ReleaseText(bits >> (6 * end + 3) & 7))
                std::fprintf(aba->w.fp, "%d, S%d, %s\n", vis_Writer_ElemId(&aba->w, i), end + 1, text);
    }
}

/* Dof runs of a flag mask, each as "%d,%2d" or "%d,%2d,%2d". */
void DofRuns(FILE* fp, int node, int flags)
{
    for (int d = 0; d < 6; ++d) {
        if (!(flags >> d & 1)) continue;
        int last = d;
        while (last + 1 < 6 && (flags >> (last + 1) & 1)) ++last;
        if (last == d) std::fprintf(fp, "%d,%2d\n", node, d + 1);
        else std::fprintf(fp, "%d,%2d,%2d\n", node, d + 1, last + 1);
        d = last;
    }
}

void Distributing(FILE* fp, const Elem& e)
{
    std::fprintf(fp, "*DISTRIBUTING COUPLING, ELSET=PID%d_ID%d\n", e.propid, e.id);
    /* Weights of parameter 84 (as many as parameter 83 says), 1 where there is none. */
    double weight[kMaxNode];
    for (double& v : weight) v = 1.0;
    if (e.prop && vis_ABAFwt_EPropInt(e.prop, 83, 0) <= kMaxNode) vis_EPropValueDouble(e.prop, 84, weight);
    for (int k = 1; k < e.n; ++k) {
        std::fprintf(fp, "%d, ", e.node[k]);
        vis_ABAFwt_Value(fp, weight[k - 1], "\n");
    }
}

/* The reference node and the dependent nodes' dof runs (parameter 86, all six by default). */
void Kinematic(FILE* fp, const Elem& e)
{
    int dep = 63;
    if (e.prop) vis_EPropValueInteger(e.prop, 86, &dep);
    std::fprintf(fp, "*KINEMATIC COUPLING, REF NODE=%d", e.node[0]);
    if (e.csysid > 0) std::fprintf(fp, ", ORIENTATION=KINECID%d\n", e.csysid);
    else std::fputc('\n', fp);
    for (int k = 1; k < e.n; ++k) DofRuns(fp, e.node[k], dep);
}

/* Rigid elements: distributing couplings (feaspec 1 or 4) first, then kinematic ones (0). */
void Couplings(vis_ABAFwt* aba, bool kinematic)
{
    bool open = false;
    Elem e{};
    Run run;
    for (int i = 1; i <= aba->w.numel; ++i) {
        if (run.value[0][run.At(&aba->w, i)] != 10 || !Read(aba, &run, i, &e)) continue;
        if (kinematic ? e.feaspec != 0 : e.feaspec != 1 && e.feaspec != 4) continue;
        Ids(aba, &e);
        if (!open) std::fputs(kinematic ? "**         Kinematic couplings\n" : "**         Distributing couplings\n", aba->w.fp);
        open = true;
        if (kinematic) Kinematic(aba->w.fp, e);
        else Distributing(aba->w.fp, e);
    }
}

}  // namespace

void vis_ABAFwt_Elems(vis_ABAFwt* aba)
{
    FILE* fp = aba->w.fp;
    std::fputs("**         Elements\n", fp);
    vis_ElemDat* thick = static_cast<vis_ElemDat*>(vis_ABAFwt_Find(aba->elemdat, 2));
    const int m = PerLine(aba);
    Header cur{}, h{};
    cur.type[0] = cur.elset[0] = '\0';
    Queue queue;
    Elem e{};
    Run run;
    int key[8] = {-1}, known = 0;
    bool releases = false, rigid = false;  /* whether the passes below have anything to write */
    for (int i = 1; i <= aba->w.numel; ++i) {
        const int b = run.At(&aba->w, i);
        releases = releases || run.value[5][b] != 0;
        rigid = rigid || run.value[0][b] == 10;
        if (!Read(aba, &run, i, &e)) continue;
        /* The header depends on these alone (and on the id for one-element sets). */
        const int now[8] = {e.featype, e.propid, e.csysid, e.feaspec, e.featwod, e.n, e.shape,
                            e.featype == 7 || e.featype == 10 ? e.id : 0};
        if (std::memcmp(now, key, sizeof key) != 0) {
            std::memcpy(key, now, sizeof key);
            known = HeaderOf(aba, &e, &h);
        }
        if (!known) continue;
        if (std::strcmp(h.type, cur.type) != 0 || std::strcmp(h.elset, cur.elset) != 0) {
            queue.Flush(aba);
            cur = h;
            std::fprintf(fp, "*ELEMENT, TYPE=%s, ELSET=%s\n", h.type, h.elset);
            Remember(aba, h.elset);
        }
        Ids(aba, &e);
        if (e.featype == 10) e.n = 1;
        DataLine(fp, &e, m);
        Features(aba, &e);
        MarkThickness(aba, &e, thick);
        if (h.rotary) queue.nodes.push_back(e.node[0]), queue.propid = e.propid, queue.csysid = e.csysid;
    }
    queue.Flush(aba);
    AllElements(aba);
    if (releases) Releases(aba);
    if (rigid) Couplings(aba, false), Couplings(aba, true);
}

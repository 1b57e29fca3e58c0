/* Parts with their sections, materials, and the node and element sets of the keyword deck. */
#include "vis_D3DFwtInternal.h"
#include "vis_EProp.h"
#include "vis_IdTran.h"
#include "vis_MProp.h"
#include "vis_WriterLine.h"
#include "vis_WriterTable.h"
#include "vsy_Util.h"

namespace {

/* The shell section: id, 2 and the shear ratio (parameter 9); then the four corner
 * thicknesses (parameter 7), 0.0 and the nonstructural mass (parameter 11). */
void ShellSection(FILE* fp, int id, vis_EProp* prop)
{
    double ratio = 0.8333333333333334, thick[4] = {0.0, 0.0, 0.0, 0.0}, nsm[4] = {0.0, 0.0, 0.0, 0.0};
    vis_EPropValueDouble(prop, 9, &ratio);
    vis_EPropValueDouble(prop, 7, thick);
    vis_EPropValueDouble(prop, 11, nsm);
    std::fputs("*SECTION_SHELL\n", fp);
    vis_WriterLine line;
    line.Int(id, 10);
    line.Int(2, 10);
    line.Real(ratio, 10);
    line.End(fp);
    for (double t : thick) line.Real(t, 10);
    line.Real(0.0, 10);
    line.Real(nsm[0], 10);
    line.End(fp);
}

void Part(FILE* fp, int id, vis_EProp* prop)
{
    int type = 0, material = 0;
    vis_EPropGetType(prop, &type);
    vis_EPropValueInteger(prop, 0, &material);
    std::fprintf(fp, "*PART\nelement property %d\n", id);
    vis_WriterLine line;
    line.Int(id, 10);
    line.Int(id, 10);
    line.Int(material, 10);
    line.End(fp);
    if (type == 1) std::fprintf(fp, "*SECTION_SOLID\n%10d\n", id);
    if (type == 2) ShellSection(fp, id, prop);
}

/* A material value: a double for flag 1; flag 2 names a curve, which this card cannot hold,
 * so the value stays 0.0. */
double MaterialValue(vis_D3DFwt* d3d, vis_MProp* mat, int code)
{
    int flag = 0;
    double value = 0.0;
    vis_MPropValueFlag(mat, code, &flag);
    if (flag == 1) vis_MPropValueDouble(mat, code, &value);
    if (flag == 2) {
        int curve = 0;
        vis_MPropValueId(mat, code, &curve);
        (void)vis_Writer_Find(d3d->tcurve, curve);
    }
    return value;
}

/* One set: the selection of its first entity, the others added, then the named component. */
void Set(vis_D3DFwt* d3d, int key, vis_IdTran* group, bool nodes)
{
    vis_Writer* w = &d3d->w;
    char name[256] = "";
    if (group->name) vsy_StrCopy(name, group->name, sizeof name);
    if (!name[0]) std::snprintf(name, sizeof name, nodes ? "NODE_SET%d" : "ELEM_SET%d", key);
    const char* sel = nodes ? "NSEL" : "ESEL";
    const int limit = nodes ? w->numnp : w->numel;
    int n = 0, written = 0;
    vis_IdTranNum(group, &n);
    for (int i = 1; i <= n; ++i) {
        int index = 0;
        vis_IdTranGetId(group, i, &index);
        if (index < 1 || index > limit) continue;
        const int featype = nodes ? vis_Writer_NodeAssoc(w, 0, index) : vis_Writer_ElemAssoc(w, 0, index);
        const int id = nodes ? vis_Writer_NodeId(w, index) : vis_Writer_ElemId(w, index);
        if (featype == 0 || id == 0) continue;
        std::fprintf(w->fp, "%s,%s,,,%d\n", sel, written++ ? "A" : "S", id);
    }
    std::fprintf(w->fp, "CM,%-s,%s\n%s,ALL\n", name, nodes ? "NODE" : "ELEM", sel);
}

void Sets(vis_D3DFwt* d3d, vsy_HashTable* tab, bool nodes)
{
    std::fputs(nodes ? "C***       Node sets\n" : "C***       Element sets\n", d3d->w.fp);
    vis_Writer_Ordered(tab, [d3d, nodes](int key, void* value) { Set(d3d, key, static_cast<vis_IdTran*>(value), nodes); });
}

}  // namespace

void vis_D3DFwt_Parts(vis_D3DFwt* d3d)
{
    FILE* fp = d3d->w.fp;
    std::fputs("$***       Element properties\n", fp);
    vis_Writer_Ordered(d3d->eprop, [fp](int key, void* value) { Part(fp, key, static_cast<vis_EProp*>(value)); });
}

void vis_D3DFwt_Materials(vis_D3DFwt* d3d)
{
    FILE* fp = d3d->w.fp;
    std::fputs("$***       Material properties\n", fp);
    vis_Writer_Ordered(d3d->mprop, [d3d, fp](int key, void* value) {
        auto* mat = static_cast<vis_MProp*>(value);
        int type = -1;
        vis_MPropGetType(mat, &type);
        const double density = MaterialValue(d3d, mat, 0);
        if (type != 0) return;
        vis_WriterLine line;
        line.Int(key, 10);
        line.Real(density, 10);
        line.Real(MaterialValue(d3d, mat, 1), 10);
        line.Real(MaterialValue(d3d, mat, 2), 10);
        std::fputs("*MAT_ELASTIC\n", fp);
        line.End(fp);
    });
}

void vis_D3DFwt_Sets(vis_D3DFwt* d3d)
{
    if (d3d->nodegroup) Sets(d3d, d3d->nodegroup, true);
    if (d3d->elemgroup) Sets(d3d, d3d->elemgroup, false);
}

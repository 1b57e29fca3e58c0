/* Element reads, the element type rules, "ET" and "KEYOPT", and the real constants "R". */
#include "vis_ANSFwtInternal.h"

#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vsy_HashTable.h"
#include "vsy_IntDict.h"

#include <cmath>
#include <cstring>
#include <string>

namespace {

/* Order 2 for a linear element, 3 for a quadratic serendipity one, 0 for any other form. */
int Order(int maxi, int maxj)
{
    if (maxj != 0) return 0;
    if (maxi == 0 || maxi == 2) return 2;
    return maxi == 3 ? 3 : 0;
}

int IsPlane(int shape) { return shape == SYS_SHAPE_TRI || shape == SYS_SHAPE_QUAD; }
int IsSolid(int shape) { return shape >= SYS_SHAPE_TET && shape <= SYS_SHAPE_HEX; }

int PropInt(vis_EProp* p, int code, int dflt)
{
    int v = dflt;
    if (p) vis_EPropValueInteger(p, code, &v);
    return v;
}

int PropSet(vis_EProp* p, int code)
{
    int flag = 0;
    if (p) vis_EPropValueFlag(p, code, &flag);
    return flag;
}

/* Up to n doubles of a parameter, zeros where unset. */
void PropDoubles(vis_EProp* p, int code, int n, double* v)
{
    double buf[64] = {0};
    if (p && PropSet(p, code)) vis_EPropValueDouble(p, code, buf);
    for (int i = 0; i < n; ++i) v[i] = buf[i];
}

void Set(vis_ANSFwt_Type* t, const char* name) { t->name = name; }

void Key(vis_ANSFwt_Type* t, int which, int value)
{
    t->k[which - 1] = value;
    if (value != 0 && which > t->nk) t->nk = which;
}

int Solid(int domain, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    const int o2 = e->order == 2, tet = e->shape == SYS_SHAPE_TET;
    if (IsPlane(e->shape) && domain == 1) {
        Set(t, o2 ? "PLANE182" : "PLANE183");
        Key(t, 3, e->featwod == 3 ? 1 : e->featwod == 1 ? 2 : 0);
    } else if (IsSolid(e->shape) && domain == 1) {
        Set(t, o2 ? "SOLID185" : tet ? "SOLID187" : "SOLID186");
    } else if (IsPlane(e->shape) && domain == 2) {
        Set(t, o2 ? "PLANE75" : "PLANE77");
        Key(t, 3, e->featwod == 3 ? 1 : 0);
    } else if (IsSolid(e->shape) && domain == 2) {
        Set(t, o2 ? "SOLID70" : tet ? "SOLID87" : "SOLID90");
    }
    return t->name != nullptr;
}

int Shell(int domain, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    const int o2 = e->order == 2, membrane = e->featype == 3;
    if (domain == 1 && e->shape == SYS_SHAPE_LINE && e->featwod == 3) {
        Set(t, o2 ? "SHELL208" : "SHELL209");
        Key(t, 1, membrane);
    } else if (domain == 1 && IsPlane(e->shape)) {
        Set(t, o2 ? "SHELL181" : "SHELL281");
        Key(t, 1, membrane);
    } else if (domain == 2 && IsPlane(e->shape) && e->featwod == 0) {
        Set(t, o2 ? "SHELL131" : "SHELL132");
    }
    return t->name != nullptr;
}

int Line(int domain, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    const int o2 = e->order == 2;
    if (e->shape != SYS_SHAPE_LINE) return 0;
    if (e->featype == 4 && domain == 1 && e->featwod == 0) Set(t, o2 ? "BEAM188" : "BEAM189");
    else if (e->featype == 4 && domain == 1 && e->featwod == 2 && o2) Set(t, "BEAM3");
    else if (e->featype == 5 && domain == 1 && e->featwod == 0 && o2) Set(t, "LINK180");
    else if (domain == 2 && e->featwod == 0 && o2) Set(t, "LINK33");
    return t->name != nullptr;
}

/* A spring of two different dofs has no type; feaspec 1 is a plane spring when featwod is set,
 * feaspec 8 a torsional one. */
int Spring(const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    if (e->feaspec == 0) {
        const int d1 = PropInt(e->prop, 49, 0), d2 = PropInt(e->prop, 50, 0);
        if (d1 != d2) return 0;
        Key(t, 2, d1);
    } else if (e->feaspec == 1) {
        Key(t, 3, e->featwod != 0 ? 2 : 0);
    } else if (e->feaspec == 8) {
        Key(t, 3, 1);
    }
    Set(t, "COMBIN14");
    return 1;
}

int Mass(int domain, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    if (domain == 2) {
        Set(t, "MASS71");
        return 1;
    }
    if (domain != 1) return 0;
    double m[3];
    PropDoubles(e->prop, 51, 3, m);
    const int differ = m[0] != m[1] || m[0] != m[2];
    Set(t, "MASS21");
    Key(t, 3, PropSet(e->prop, 53) || differ ? 0 : 2);
    return 1;
}

int Interface(int domain, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    if (e->feaspec != 6) return 0;
    if (domain == 1) Set(t, e->featwod != 0 ? "SURF153" : "SURF154");
    else if (domain == 2) Set(t, e->featwod != 0 ? "SURF151" : "SURF152");
    else return 0;
    Key(t, 3, e->featwod == 3 ? 1 : 0);
    Key(t, 4, e->order == 2 ? 1 : 0);
    return 1;
}

/* The text key of an element type: the name and each KEYOPT value up to the last non-zero. */
std::string TypeKey(const vis_ANSFwt_Type* t)
{
    std::string key = t->name;
    for (int i = 0; i < t->nk; ++i) key += "," + std::to_string(t->k[i]);
    return key;
}

void AppendExp(std::string* key, const char* tag, int n, const double* v)
{
    char buf[32];
    *key += tag;
    for (int i = 0; i < n; ++i) {
        std::snprintf(buf, sizeof buf, "%16.9E", v[i]);
        *key += buf;
    }
}

/* Values of a real constant; a NaN stands for an empty field. */
struct RealSet {
    std::string key;
    double v[16];
    int n = 0;
    void Add(double x) { if (n < 16) v[n++] = x; }
};

/* Corner thicknesses of a shell: the property's, or the element's where they differ; a line or
 * triangle repeats its last corner up to four. Returns 1 when a constant is needed: the
 * element's own differ, or the corners are not all equal. */
int ShellThickness(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e, double t[4])
{
    const int nc = e->shape == SYS_SHAPE_LINE ? 2 : e->shape == SYS_SHAPE_TRI ? 3 : 4;
    double prop[VIS_ELEM_MAXNODE] = {0}, own[VIS_ELEM_MAXNODE];
    const int hasprop = PropSet(e->prop, 7);
    if (hasprop) vis_EPropEvaldv(e->prop, 7, e->shape, e->maxi, e->maxj, prop);
    for (int i = 0; i < VIS_ELEM_MAXNODE; ++i) own[i] = prop[i];
    void* ed = nullptr;
    if (ans->elemdat) vsy_HashTableGet(ans->elemdat, 2, &ed);
    if (ed) vis_ElemDatData(static_cast<vis_ElemDat*>(ed), e->index, e->n, own);
    int need = !hasprop;
    for (int i = 0; i < nc; ++i) {
        if (std::fabs(own[i] - prop[i]) > 2e-07) need = 1;
        if (own[i] != own[0]) need = 1;
        t[i] = own[i];
    }
    for (int i = nc; i < 4; ++i) t[i] = t[nc - 1];
    return need && (hasprop || ed);
}

/* The constants of an element; 0 when it needs none. */
int Constants(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e, const vis_ANSFwt_Type* t, RealSet* r)
{
    char head[32];
    std::snprintf(head, sizeof head, "%d %d", ans->etnum[e->index], e->propid);
    r->key = head;
    r->n = 0;
    double v[8];
    switch (e->featype) {
    case 2:
    case 3: {
        double th[4];
        const int need = ShellThickness(ans, e, th), nsm = PropSet(e->prop, 11);
        if (!need && !nsm) return 0;
        AppendExp(&r->key, " T4 ", 4, th);
        for (double x : th) r->Add(x);
        if (nsm) {
            PropDoubles(e->prop, 11, 1, v);
            AppendExp(&r->key, " NSM ", 1, v);
            r->Add(NAN);
            r->Add(v[0]);
        }
        return 1;
    }
    case 4:
        if (ans->domain != 2) return 0;
        PropDoubles(e->prop, 14, 1, v);
        AppendExp(&r->key, " A ", 1, v);
        r->Add(v[0]);
        return 1;
    case 5:
        PropDoubles(e->prop, 14, 1, v);
        PropDoubles(e->prop, 11, 1, v + 1);
        AppendExp(&r->key, " A ", 1, v);
        r->Add(v[0]);
        if (std::strcmp(t->name, "LINK180") == 0) {
            AppendExp(&r->key, " NSM ", 1, v + 1);
            r->Add(v[1]);
        }
        return 1;
    case 7:
        PropDoubles(e->prop, 36, 1, v);
        PropDoubles(e->prop, 34, 1, v + 1);
        PropDoubles(e->prop, 37, 1, v + 2);
        PropDoubles(e->prop, 38, 1, v + 3);
        AppendExp(&r->key, " K ", 4, v);
        for (int i = 0; i < 4; ++i) r->Add(v[i]);
        return 1;
    case 9:
        PropDoubles(e->prop, 47, 1, v);
        PropDoubles(e->prop, 48, 1, v + 1);
        AppendExp(&r->key, " K ", 1, v);
        AppendExp(&r->key, " D ", 1, v + 1);
        r->Add(v[0]);
        r->Add(v[1]);
        return 1;
    case 13:
        PropDoubles(e->prop, 51, 3, v);
        if (t->k[2] == 2 || std::strcmp(t->name, "MASS71") == 0) {
            AppendExp(&r->key, " M ", 1, v);
            r->Add(v[0]);
        } else {
            PropDoubles(e->prop, 53, 3, v + 3);
            AppendExp(&r->key, " MI ", 6, v);
            for (int i = 0; i < 6; ++i) r->Add(v[i]);
        }
        return 1;
    default:
        return 0;
    }
}

/* Features whose elements take no real constants. */
int NoConstants(int featype)
{
    return featype == 1 || featype == 10 || featype == 11 || featype == 14;
}

/* The constants of a typed element of a feature that takes them; 0 otherwise. */
int ElemConstants(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e, RealSet* r)
{
    if (ans->etnum[e->index] == 0) return 0;
    if (NoConstants(e->featype)) return 0;
    vis_ANSFwt_Type t;
    if (!vis_ANSFwt_Rule(ans, e, &t)) return 0;
    return Constants(ans, e, &t, r);
}

}  // namespace

void vis_ANSFwt_ReadElem(vis_ANSFwt* ans, int index, vis_ANSFwt_Elem* e)
{
    vis_Writer* w = &ans->w;
    e->index = index;
    vis_Writer_Topology(w, index, &e->shape, &e->maxi, &e->maxj, &e->maxk);
    vis_Writer_ElemNode(w, index, &e->n, e->node);
    e->order = Order(e->maxi, e->maxj);
    e->id = vis_Writer_ElemId(w, index);
    e->propid = vis_Writer_ElemAssoc(w, 2, index);
    e->matlid = vis_Writer_ElemAssoc(w, 1, index);
    e->csysid = vis_Writer_ElemAssoc(w, 4, index);
    e->featype = vis_Writer_ElemAssoc(w, 0, index);
    e->feaspec = vis_Writer_ElemAssoc(w, 12, index);
    e->featwod = vis_Writer_ElemAssoc(w, 25, index);
    void* prop = nullptr;
    if (ans->eprop && e->propid) vsy_HashTableGet(ans->eprop, e->propid, &prop);
    e->prop = static_cast<vis_EProp*>(prop);
    if (e->matlid == 0) e->matlid = PropInt(e->prop, 0, 0);
}

int vis_ANSFwt_Rule(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t)
{
    std::memset(t, 0, sizeof *t);
    if (e->order == 0 || e->n == 0) return 0;
    const int domain = ans->domain;
    switch (e->featype) {
    case 1: return Solid(domain, e, t);
    case 2:
    case 3: return Shell(domain, e, t);
    case 4:
    case 5: return Line(domain, e, t);
    case 7:
        Set(t, e->featwod == 0 ? "CONTAC52" : "CONTAC12");
        Key(t, 3, 1);
        return 1;
    case 9: return Spring(e, t);
    case 13: return Mass(domain, e, t);
    case 14: return Interface(domain, e, t);
    default: return 0;
    }
}

int vis_ANSFwt_HasSection(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e)
{
    if (!e->prop) return 0;
    const int type = e->prop->type;
    if ((e->featype == 2 || e->featype == 3) && type == 2) {
        const int wall = PropInt(e->prop, 89, 0);
        return (wall == 0 && PropSet(e->prop, 7)) || wall == 2;
    }
    /* Only the three-dimensional beams take sections; the others read real constants. */
    return e->featype == 4 && type == 4 && ans->domain == 1 && e->featwod == 0;
}

void vis_ANSFwt_Types(vis_ANSFwt* ans)
{
    FILE* fp = ans->w.fp;
    std::fputs("C***       Element Types\n", fp);
    vsy_IntDict* dict = vsy_IntDictNew();
    if (!dict) return;
    int count = 0;
    vis_ANSFwt_Elem e;
    vis_ANSFwt_Type t;
    /* The rule reads only these fields: an element like the one before takes its type. */
    int last[6] = {-1, -1, -1, -1, -1, -1}, lastnum = 0, lastlib = 0;
    const void* lastprop = nullptr;
    for (int i = 1; i <= ans->w.numel; ++i) {
        vis_ANSFwt_ReadElem(ans, i, &e);
        const int inputs[6] = {e.featype, e.shape, e.order, e.featwod, e.feaspec, e.n > 0};
        if (std::memcmp(inputs, last, sizeof last) == 0 && e.prop == lastprop) {
            ans->etnum[i] = lastnum;
            ans->libno[i] = lastlib;
            continue;
        }
        std::memcpy(last, inputs, sizeof last);
        lastprop = e.prop;
        lastnum = lastlib = 0;
        if (!vis_ANSFwt_Rule(ans, &e, &t)) continue;
        const std::string key = TypeKey(&t);
        int num = 0;
        vsy_IntDictGet(dict, key.c_str(), &num);
        if (num == 0) {
            num = ++count;
            vsy_IntDictInsert(dict, key.c_str(), num);
            std::fprintf(fp, "ET,%d,%s", num, t.name);
            for (int k = 0; k < t.nk && k < 6; ++k) std::fprintf(fp, ",%d", t.k[k]);
            std::fputc('\n', fp);
            for (int k = 6; k < t.nk; ++k) std::fprintf(fp, "KEYOPT,%d,%d\n", num, t.k[k]);
        }
        ans->etnum[i] = lastnum = num;
        ans->libno[i] = lastlib = vis_ANSFwt_LibNumber(t.name);
    }
    vsy_IntDictDelete(dict);
}

void vis_ANSFwt_Reals(vis_ANSFwt* ans)
{
    FILE* fp = ans->w.fp;
    std::fputs("C***       Real Constants\n", fp);
    int maxprop = 0;
    if (ans->eprop) vsy_HashTableMaxKey(ans->eprop, &maxprop);
    ans->realnum = maxprop;
    vis_ANSFwt_Elem e;
    RealSet r;
    for (int i = 1; i <= ans->w.numel; ++i) {
        if (ans->etnum[i] == 0 || NoConstants(vis_Writer_ElemAssoc(&ans->w, 0, i))) continue;
        vis_ANSFwt_ReadElem(ans, i, &e);
        if (!ElemConstants(ans, &e, &r)) continue;
        int num = 0;
        vsy_IntDictGet(ans->reals, r.key.c_str(), &num);
        if (num != 0) continue;
        vsy_IntDictInsert(ans->reals, r.key.c_str(), ++ans->realnum);
        std::fprintf(fp, "R,%d", ans->realnum);
        for (int k = 0; k < r.n; ++k) {
            if (std::isnan(r.v[k])) std::fputc(',', fp);
            else vis_ANSFwt_Real(fp, r.v[k]);
        }
        std::fputc('\n', fp);
    }
}

int vis_ANSFwt_RealOf(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e)
{
    RealSet r;
    if (!ElemConstants(ans, e, &r)) return 0;
    int num = 0;
    vsy_IntDictGet(ans->reals, r.key.c_str(), &num);
    return num;
}

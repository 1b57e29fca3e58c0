#include "vis_OBJFwt.h"

#include "vis_Connect.h"
#include "vis_ElemDat.h"
#include "vis_FacetSplit.h"
#include "vis_GridFun.h"
#include "vsy_Error.h"

#include <cstring>

namespace {

const char* const kWriteModel = "vis_OBJFwtWriteModel";

int AnyFacet(vis_Writer* w)
{
    vis_FacetSplit f;
    for (int e = 1; e <= w->numel; ++e)
        if (vis_FacetSplit_Element(w, e, 0, &f)) return 1;
    return 0;
}

void Vertices(vis_Writer* w)
{
    std::fputs("# vertices\n", w->fp);
    for (int n = 1; n <= w->numnp; ++n) {
        double x[3];
        vis_Writer_Coords(w, n, x);
        char line[4 * 340];
        int len = 0;
        line[len++] = 'v';
        for (double v : x) line[len++] = ' ', len += vis_FacetSplit_Text(static_cast<float>(v), 0, line + len);
        line[len++] = '\n';
        vis_Writer_Put(w->fp, line, len);
    }
    for (int n = 1; n <= w->numnp; ++n)
        if (vis_Writer_NodeAssoc(w, 17, n) || vis_Writer_NodeAssoc(w, 33, n)) std::fprintf(w->fp, "p %d\n", n);
}

int EdgeAssoc(vis_Writer* w, int type, int elem, int edge)
{
    int value = 0;
    auto f = reinterpret_cast<vis_GridFunElemEntAssoc_t>(w->gf->fun[VIS_GRIDFUN_ELEMENTASSOC]);
    if (f) f(w->gf->obj, type, SYS_EDGE, elem, edge, &value);
    return value;
}

void Lines(vis_Writer* w, int elem, const vis_FacetSplit& f)
{
    for (int e = 0; e < f.ncorner; ++e) {
        if (!EdgeAssoc(w, 16, elem, e + 1) && !EdgeAssoc(w, 34, elem, e + 1)) continue;
        /* Edge e of a triangle or quadrilateral runs from corner e to the next. */
        std::fprintf(w->fp, "l %d %d\n", f.nodes[e], f.nodes[(e + 1) % f.ncorner]);
    }
}

/* The normals at the corners from the connectivity's face data; 0 without. */
int Normals(vis_Writer* w, int elem, double* vectors)
{
    vis_ElemDat* ed = w->connect ? w->connect->elemnorm : nullptr;
    return ed ? vis_ElemDatEntdv(ed, elem, 1, vectors) : 0;
}

void Face(vis_OBJFwt* obj, int elem, const vis_FacetSplit& f)
{
    FILE* fp = obj->w.fp;
    Lines(&obj->w, elem, f);
    double vn[3 * VIS_ELEM_MAXFACENODE];
    if (Normals(&obj->w, elem, vn)) {
        for (int c = 0; c < f.ncorner; ++c)
            std::fprintf(fp, "vn %f %f %f\n", static_cast<float>(vn[3 * c]), static_cast<float>(vn[3 * c + 1]),
                         static_cast<float>(vn[3 * c + 2]));
        std::fputc('f', fp);
        for (int c = 0; c < f.ncorner; ++c) std::fprintf(fp, " %d//%d", f.nodes[c], obj->numvn + 1 + c);
        obj->numvn += f.ncorner;
    } else {
        std::fputc('f', fp);
        for (int c = 0; c < f.ncorner; ++c) std::fprintf(fp, " %d", f.nodes[c]);
    }
    std::fputc('\n', fp);
}

void Faces(vis_OBJFwt* obj)
{
    vis_Writer* w = &obj->w;
    std::fputs("# faces\n", w->fp);
    obj->numvn = 0;
    vis_FacetSplit f;
    for (int e = 1; e <= w->numel; ++e)
        if (vis_FacetSplit_Element(w, e, 0, &f)) Face(obj, e, f);
}

}  // namespace

vis_OBJFwt* vis_OBJFwtNew(void)
{
    vis_OBJFwt* obj = static_cast<vis_OBJFwt*>(vis_Writer_New(sizeof(vis_OBJFwt), "OBJFwt"));
    return obj;
}

void vis_OBJFwtDelete(vis_OBJFwt* obj)
{
    if (!obj) return;
    vis_Writer_Release(&obj->w);
    vsy_Free(obj);
}

int vis_OBJFwtError(vis_OBJFwt* obj)
{
    return vis_Writer_TakeError(obj ? &obj->w : nullptr);
}

void vis_OBJFwtWriteModel(vis_OBJFwt* obj, vis_Model* model, const char* path)
{
    if (!obj) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "OBJFwt");
        return;
    }
    if (!vis_Writer_Open(&obj->w, kWriteModel, path, "wb")) return;
    if (!vis_Writer_Begin(&obj->w, kWriteModel, model)) return;
    if (AnyFacet(&obj->w)) {
        Vertices(&obj->w);
        Faces(obj);
    }
    vis_Writer_End(&obj->w);
}

#include "vis_STLFwt.h"

#include "vis_FacetSplit.h"
#include "vsy_Error.h"

#include <cstdint>
#include <cstring>

namespace {

const char* const kWriteModel = "vis_STLFwtWriteModel";

/* " facet normal %f %f %f\n" ... " endfacet\n", built in one buffer. */
void TextFacet(FILE* fp, const vis_FacetSplit& f, int k)
{
    char line[8 * 340];
    float n[3];
    vis_FacetSplit_Normal(&f, k, n);
    int len = 0;
    auto put = [&](const char* text) {
        while (*text) line[len++] = *text++;
    };
    put(" facet normal");
    for (float v : n) line[len++] = ' ', len += vis_FacetSplit_Text(v, 1, line + len);
    put("\n  outer loop\n");
    for (int c = 0; c < 3; ++c) {
        put("   vertex");
        for (int a = 0; a < 3; ++a) line[len++] = ' ', len += vis_FacetSplit_Text(f.x[f.facet[k][c]][a], 0, line + len);
        line[len++] = '\n';
    }
    put("  endloop\n endfacet\n");
    vis_Writer_Put(fp, line, len);
}

void Text(vis_Writer* w)
{
    std::fputs("solid ascii\n", w->fp);
    vis_FacetSplit f;
    for (int e = 1; e <= w->numel; ++e) {
        const int n = vis_FacetSplit_Element(w, e, 1, &f);
        for (int k = 0; k < n; ++k) TextFacet(w->fp, f, k);
    }
    std::fputs("endsolid\n", w->fp);
}

void BinaryFacet(FILE* fp, const vis_FacetSplit& f, int k)
{
    float v[12];
    vis_FacetSplit_Normal(&f, k, v);
    for (int c = 0; c < 3; ++c) std::memcpy(v + 3 + 3 * c, f.x[f.facet[k][c]], 3 * sizeof(float));
    char rec[50] = {};
    std::memcpy(rec, v, sizeof v);
    vis_Writer_Put(fp, rec, 50);
}

void Binary(vis_Writer* w)
{
    vis_FacetSplit f;
    uint32_t count = 0;
    for (int e = 1; e <= w->numel; ++e) count += static_cast<uint32_t>(vis_FacetSplit_Element(w, e, 1, &f));
    char head[84] = {};
    std::memcpy(head + 80, &count, 4);
    vis_Writer_Put(w->fp, head, 84);
    for (int e = 1; e <= w->numel; ++e) {
        const int n = vis_FacetSplit_Element(w, e, 1, &f);
        for (int k = 0; k < n; ++k) BinaryFacet(w->fp, f, k);
    }
}

}  // namespace

vis_STLFwt* vis_STLFwtNew(void)
{
    vis_STLFwt* stl = static_cast<vis_STLFwt*>(vis_Writer_New(sizeof(vis_STLFwt), "STLFwt"));
    if (stl) stl->form = VIS_STLFWT_TEXT;
    return stl;
}

void vis_STLFwtDelete(vis_STLFwt* stl)
{
    if (!stl) return;
    vis_Writer_Release(&stl->w);
    vsy_Free(stl);
}

int vis_STLFwtError(vis_STLFwt* stl)
{
    return vis_Writer_TakeError(stl ? &stl->w : nullptr);
}

void vis_STLFwtWriteModel(vis_STLFwt* stl, vis_Model* model, const char* path)
{
    if (!stl) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "STLFwt");
        return;
    }
    if (!vis_Writer_Open(&stl->w, kWriteModel, path, "wb")) return;
    if (!vis_Writer_Begin(&stl->w, kWriteModel, model)) return;
    if (stl->form == VIS_STLFWT_BINARY) Binary(&stl->w);
    else Text(&stl->w);
    vis_Writer_End(&stl->w);
}

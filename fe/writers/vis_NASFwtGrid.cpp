/* Grid points and coordinate systems of the NASTRAN deck, both in large-field form. */
#include "vis_CoordSys.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"
#include "vsy_RealText.h"

#include <cstring>

namespace {

/* A coordinate of a grid point at `out`: always the exponent form at full precision, "%16s".
 * Returns the characters written. */
int Coordinate(double value, char* out)
{
    char text[VSY_REALTEXT_LEN];
    const int len = vsy_RealToExpLen(value, 16, 0, 1, 0, text);
    const int pad = len < 16 ? 16 - len : 0;
    std::memset(out, ' ', pad);
    std::memcpy(out + pad, text, len);
    return pad + len;
}

/* "GRID*   %16d%16d", x, y, "\n*       ", z, "%16d\n": built in one buffer. */
void GridCard(FILE* fp, int id, const double x[3], int csysid)
{
    char line[256];
    std::memcpy(line, "GRID*   ", 8);
    int len = 8;
    len += vsy_FieldIntText(id, 16, line + len);
    len += vsy_FieldIntText(0, 16, line + len);
    len += Coordinate(x[0], line + len);
    len += Coordinate(x[1], line + len);
    std::memcpy(line + len, "\n*       ", 9);
    len += 9;
    len += Coordinate(x[2], line + len);
    len += vsy_FieldIntText(csysid, 16, line + len);
    line[len++] = '\n';
    vis_Writer_Put(fp, line, len);
}

const char* CordName(int type)
{
    switch (type) {
    case 1: return "CORD2R* ";
    case 2: return "CORD2C* ";
    case 4: return "CORD2S* ";
    default: return nullptr;
    }
}

/* Origin, a point on the z axis (B) and a point on the x axis (C), three large-field lines. */
void CordCard(FILE* fp, int id, const vis_CoordSys* cs)
{
    if (const char* name = CordName(cs->type)) std::fprintf(fp, "%s%16d%16d", name, id, 0);
    const double* o = cs->origin;
    const double* t = cs->triad;
    const double b[3] = {o[0] + t[6], o[1] + t[7], o[2] + t[8]};
    const double c[3] = {o[0] + t[0], o[1] + t[1], o[2] + t[2]};
    vsy_FieldLarge(fp, 0, 2, o, 1);
    std::fputs("*       ", fp);
    vsy_FieldLarge(fp, 0, 1, o + 2, 0);
    vsy_FieldLarge(fp, 0, 3, b, 1);
    std::fputs("*       ", fp);
    vsy_FieldLarge(fp, 0, 3, c, 1);
}

}  // namespace

void vis_NASFwt_Grid(vis_NASFwt* nas)
{
    vis_Writer* w = &nas->w;
    std::fputs("$          Grid points\n", w->fp);
    int featype[VIS_WRITER_BLOCK], csysid[VIS_WRITER_BLOCK], id[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 0, first, n, featype);
        vis_Writer_NodeAssocs(w, 4, first, n, csysid);
        for (int i = 0; i < n; ++i) id[i] = first + i;
        vis_Writer_NodeIds(w, n, id);
        for (int i = 0; i < n; ++i) {
            if (featype[i] == 2) std::fprintf(w->fp, "SPOINT  %8d\n", id[i]);
            if (featype[i] != 1) continue;
            double x[3];
            vis_Writer_Coords(w, first + i, x);
            GridCard(w->fp, id[i], x, csysid[i]);
        }
    }
}

void vis_NASFwt_CoordSys(vis_NASFwt* nas)
{
    std::fputs("$          Coordinate systems\n", nas->w.fp);
    vsy_HashTableInitIter(nas->coordsys);
    int key = 0;
    void* value = nullptr;
    for (;;) {
        vsy_HashTableNextIter(nas->coordsys, &key, &value);
        if (!value) break;
        CordCard(nas->w.fp, key, static_cast<const vis_CoordSys*>(value));
    }
}

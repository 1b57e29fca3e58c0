/* The native connectivity format: one order of sections in text or binary. */
#include "vis_Connect.h"
#include "vis_ConnectKernel.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemDat.h"
#include "vsy_HashTable.h"

#include <cstdint>
#include <initializer_list>
#include <cstring>

namespace {

/* One output form: text lines or machine-order binary words. */
struct Out {
    FILE* fp;
    int binary;
    /* n integers: "%d" joined by blanks and ended by "\n", or n int32 words. */
    void Ints(std::initializer_list<int> v) const
    {
        if (binary) {
            for (int x : v) {
                const int32_t w = x;
                std::fwrite(&w, 4, 1, fp);
            }
            return;
        }
        int i = 0;
        for (int x : v) std::fprintf(fp, i++ ? " %d" : "%d", x);
        std::fputc('\n', fp);
    }
};

void Header(vis_Connect* c, const Out& out)
{
    int nn = 0, ne = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &nn);
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &ne);
    out.Ints({1, nn, ne, c->type, VIS_CONNECTWRITE_MARK, 0, 0});
    out.Ints({c->headerflag, c->exactface, 0, 0, 0, 0, 0, 0});
    if (out.binary) {
        const float zero[8] = {0, 0, 0, 0, 0, 0, 0, 0};
        std::fwrite(zero, 4, 8, out.fp);
    } else {
        std::fprintf(out.fp, "%e %e %e %e %e %e %e %e\n", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    }
}

void Nodes(vis_Connect* c, const Out& out)
{
    int nn = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &nn);
    for (int id = 1; id <= nn; ++id) {
        double x[3];
        vis_ConnectCoordsdv(c, 1, &id, x);
        if (!out.binary) {
            std::fprintf(out.fp, "%d %e %e %e\n", id, x[0], x[1], x[2]);
            continue;
        }
        const int32_t w = id;
        std::fwrite(&w, 4, 1, out.fp);
        if (c->type == 4) {
            std::fwrite(x, 8, 3, out.fp);
        } else {
            float xf[3];
            vis_ConnectCoords(c, 1, &id, xf);
            std::fwrite(xf, 4, 3, out.fp);
        }
    }
}

void Elements(vis_Connect* c, const Out& out)
{
    int ne = 0, maxn = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &ne);
    vis_ConnectMaxElemNode(c, &maxn);
    for (int id = 1; id <= ne; ++id) {
        int shape = -1, maxi = 0, maxj = 0, maxk = 0, num = 0;
        const int* nodes = nullptr;
        vis_ConnectTopology(c, id, &shape, &maxi, &maxj, &maxk);
        vis_ConnectElemNodePtr(c, id, &num, &nodes);
        if (!nodes) num = 0;
        out.Ints({id, shape, maxi, maxj, maxk, num});
        if (out.binary) {
            for (int i = 0; i < num; ++i) {
                const int32_t w = nodes[i];
                std::fwrite(&w, 4, 1, out.fp);
            }
            continue;
        }
        for (int i = 0; i < num; ++i) {
            std::fprintf(out.fp, "%d ", nodes[i]);
            if ((i + 1) % 8 == 0 || i + 1 == num) std::fputc('\n', out.fp);
        }
    }
}

/* The vectors at the n nodes of a face or an edge: "%e %e %e\n" a node, or three double words
 * when the coordinates are double (type 4), else three float words. */
void Vectors(vis_Connect* c, const Out& out, const double* v, int n)
{
    for (int k = 0; k < n; ++k) {
        const double* x = v + 3 * k;
        if (!out.binary) {
            std::fprintf(out.fp, "%e %e %e\n", x[0], x[1], x[2]);
        } else if (c->type == 4) {
            std::fwrite(x, 8, 3, out.fp);
        } else {
            const float xf[3] = {(float)x[0], (float)x[1], (float)x[2]};
            std::fwrite(xf, 4, 3, out.fp);
        }
    }
}

/* The faces (SYS_FACE) or edges (SYS_EDGE) with vectors in `ed`, element by element: an edge
 * element's head is its id and flag word, then every flagged edge's vectors; each face has a
 * head of its own, element id and face number. */
void Entities(vis_Connect* c, const Out& out, vis_ElemDat* ed, int enttype)
{
    int ne = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &ne);
    double v[3 * VIS_ELEM_MAXNODE];
    int nodes[VIS_ELEM_MAXNODE];
    for (int id = 1; ed && id <= ne; ++id) {
        const int flags = vis_ElemDatFlags(ed, id);
        if (flags == 0) continue;
        if (enttype == SYS_EDGE) out.Ints({id, flags});
        for (int no = 1; no <= 32; ++no) {
            if (!(flags >> (no - 1) & 1)) continue;
            int n = 0;
            vis_ConnectElemCon(c, enttype, id, no, &n, nodes);
            if (n < 1 || n > VIS_ELEM_MAXNODE || !vis_ElemDatEntdv(ed, id, no, v)) n = 0;
            if (enttype == SYS_FACE) out.Ints({id, no});
            Vectors(c, out, v, n);
        }
    }
}

/* Calls f(key, value) for every entry of a table, in slot order; nothing for no table. */
template <class F>
void EachEntry(vsy_HashTable* table, F f)
{
    if (!table) return;
    vsy_HashTableInitIter(table);
    for (;;) {
        int key = 0;
        void* v = nullptr;
        vsy_HashTableNextIter(table, &key, &v);
        if (!v) break;
        f(key, v);
    }
}

void PartNames(vis_Connect* c, const Out& out)
{
    EachEntry(c->partnames, [&](int key, void* v) {
        const char* name = static_cast<const char*>(v);
        const int len = static_cast<int>(std::strlen(name));
        out.Ints({key, len});
        if (out.binary) std::fwrite(name, 1, len, out.fp);
        else std::fprintf(out.fp, "%s\n", name);
    });
}

void PartSizes(vis_Connect* c, const Out& out)
{
    EachEntry(c->partijk, [&](int key, void* v) {
        const int* ijk = static_cast<const int*>(v);
        out.Ints({key, ijk[0], ijk[1], ijk[2]});
    });
}

}  // namespace

void vis_ConnectWrite_Native(vis_Connect* c, FILE* fp, int binary)
{
    const Out out{fp, binary};
    Header(c, out);
    Nodes(c, out);
    Elements(c, out);
    out.Ints({0, 0, 0}); /* node attributes are not written: their end only */
    Entities(c, out, c->elemtang, SYS_EDGE);
    out.Ints({0, 0});
    Entities(c, out, c->elemnorm, SYS_FACE);
    out.Ints({0, 0});
    PartNames(c, out);
    out.Ints({0, 0});
    PartSizes(c, out);
    out.Ints({0, 0, 0, 0});
}

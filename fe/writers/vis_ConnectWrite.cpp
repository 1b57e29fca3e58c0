#include "vis_ConnectWrite.h"

#include "vis_ABAFwt.h"
#include "vis_ANSFwt.h"
#include "vis_Connect.h"
#include "vis_D3DFwt.h"
#include "vis_Model.h"
#include "vis_NASFwt.h"
#include "vis_PatLwt.h"
#include "vis_OBJFwt.h"
#include "vis_SDRCLwt.h"
#include "vis_STLFwt.h"
#include "vsy_Error.h"

#include <cfloat>
#include <string>

namespace {

const char* const kName = "vis_ConnectWrite";

FILE* Open(vis_Connect* c, const char* path, const char* mode)
{
    FILE* fp = path ? std::fopen(path, mode) : nullptr;
    if (!fp) vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_FILE, "pathname= %s", path ? path : "(null)");
    return fp;
}

int Count(vis_Connect* c, int option)
{
    int n = 0;
    vis_ConnectGetInteger(c, option, &n);
    return n;
}

int NodeAssoc(vis_Connect* c, int type, int id)
{
    int v = 0;
    vis_ConnectNodeAssoc(c, type, 1, &id, &v);
    return v;
}

int ElemAssoc(vis_Connect* c, int type, int id)
{
    int v = 0;
    vis_ConnectElemAssoc(c, type, 1, &id, &v);
    return v;
}

/* A solver deck through a temporary model and writer W; the writer's failed open is the
 * connect's too. */
template <class W>
void Deck(vis_Connect* c, const char* path, W* (*make)(), void (*write)(W*, vis_Model*, const char*),
          int (*error)(W*), void (*drop)(W*))
{
    vis_Model* model = vis_ModelNew();
    W* writer = make();
    if (model && writer) {
        vis_ModelSetObject(model, SYS_CONNECT, c);
        write(writer, model, path);
        if (error(writer) == SYS_ERROR_FILE)
            vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_FILE, "pathname= %s", path ? path : "(null)");
    }
    drop(writer);
    vis_ModelDelete(model);
}

void Native(vis_Connect* c, const char* path, int binary)
{
    if (FILE* fp = Open(c, path, "wb")) {
        vis_ConnectWrite_Native(c, fp, binary);
        std::fclose(fp);
    }
}

/* `path`.points: the nodes in single precision; `path`.faces: three nodes of every element. */
void Pair(vis_Connect* c, const char* path)
{
    const std::string base = path ? path : "";
    const std::string points = base + ".points", faces = base + ".faces";
    if (FILE* fp = Open(c, points.c_str(), "wb")) {
        const int nn = Count(c, VIS_CONNECT_NUMNODE);
        std::fprintf(fp, "%d\n", nn);
        for (int id = 1; id <= nn; ++id) {
            float x[3];
            vis_ConnectCoords(c, 1, &id, x);
            std::fprintf(fp, " %e %e %e 0\n", x[0], x[1], x[2]);
        }
        std::fclose(fp);
    }
    if (FILE* fp = Open(c, faces.c_str(), "wb")) {
        const int ne = Count(c, VIS_CONNECT_NUMELEM);
        std::fprintf(fp, "%d\n", ne);
        for (int id = 1; id <= ne; ++id) {
            int num = 0;
            const int* nodes = nullptr;
            vis_ConnectElemNodePtr(c, id, &num, &nodes);
            int v[3] = {0, 0, 0};
            for (int i = 0; i < 3 && i < num && nodes; ++i) v[i] = nodes[i];
            std::fprintf(fp, " 3 %d %d %d 0 0 0 0\n", v[0], v[1], v[2]);
        }
        std::fclose(fp);
    }
}

/* Smallest and largest coordinate on each axis with the user id of the first node holding it. */
void Summary(vis_Connect* c, const char* path)
{
    FILE* fp = Open(c, path, "a+");
    if (!fp) return;
    const int nn = Count(c, VIS_CONNECT_NUMNODE);
    float lo[3] = {0, 0, 0}, hi[3] = {0, 0, 0};
    int loid[3] = {0, 0, 0}, hiid[3] = {0, 0, 0};
    for (int id = 1; id <= nn; ++id) {
        float x[3];
        vis_ConnectCoords(c, 1, &id, x);
        for (int a = 0; a < 3; ++a) {
            if (id == 1 || x[a] < lo[a]) lo[a] = x[a], loid[a] = NodeAssoc(c, 10, id);
            if (id == 1 || x[a] > hi[a]) hi[a] = x[a], hiid[a] = NodeAssoc(c, 10, id);
        }
    }
    std::fprintf(fp, "Node Summary\nNumber of nodes= %d\nCoordinate Extent\n", nn);
    std::fputs("          Minimum  Node Id       Maximum  Node Id\n", fp);
    const char axis[3] = {'x', 'y', 'z'};
    for (int a = 0; a < 3; ++a)
        std::fprintf(fp, "   %c%13.5e %8d %13.5e %8d\n", axis[a], lo[a], loid[a], hi[a], hiid[a]);
    std::fprintf(fp, "\nElem Summary\nNumber of elems= %d\n\n", Count(c, VIS_CONNECT_NUMELEM));
    std::fclose(fp);
}

void Listing(vis_Connect* c, const char* path)
{
    FILE* fp = Open(c, path, "a+");
    if (!fp) return;
    const int nn = Count(c, VIS_CONNECT_NUMNODE), ne = Count(c, VIS_CONNECT_NUMELEM);
    std::fputs("Node Listing\n Node Id     CId            x           y           z\n", fp);
    for (int id = 1; id <= nn; ++id) {
        float x[3];
        vis_ConnectCoords(c, 1, &id, x);
        std::fprintf(fp, "%8d%8d%13.5e%13.5e%13.5e\n", NodeAssoc(c, 10, id), NodeAssoc(c, 4, id), x[0], x[1], x[2]);
    }
    std::fputs("\nElem Listing\n Elem Id     PId  Connectivity\n", fp);
    for (int id = 1; id <= ne; ++id) {
        int part = ElemAssoc(c, 2, id);
        if (part == 0) part = ElemAssoc(c, 1, id);
        std::fprintf(fp, "%8d%8d", ElemAssoc(c, 10, id), part);
        int num = 0;
        const int* nodes = nullptr;
        vis_ConnectElemNodePtr(c, id, &num, &nodes);
        for (int i = 0; i < num && nodes; ++i) {
            std::fprintf(fp, "%8d", nodes[i]);
            if ((i + 1) % 8 == 0 || i + 1 == num) std::fputc('\n', fp);
        }
    }
    std::fputc('\n', fp);
    std::fclose(fp);
}

}  // namespace

void vis_ConnectWrite(vis_Connect* connect, int type, const char* path)
{
    if (!connect) {
        vsy_ErrorMessage(kName, SYS_ERROR_NULLOBJECT, "Connect");
        return;
    }
    switch (type) {
    case 13: Deck(connect, path, vis_ABAFwtNew, vis_ABAFwtWriteModel, vis_ABAFwtError, vis_ABAFwtDelete); break;
    case 20: Deck(connect, path, vis_PatLwtNew, vis_PatLwtWriteModel, vis_PatLwtError, vis_PatLwtDelete); break;
    case 25: Deck(connect, path, vis_D3DFwtNew, vis_D3DFwtWriteModel, vis_D3DFwtError, vis_D3DFwtDelete); break;
    case 18: Deck(connect, path, vis_NASFwtNew, vis_NASFwtWriteModel, vis_NASFwtError, vis_NASFwtDelete); break;
    case 22: Deck(connect, path, vis_ANSFwtNew, vis_ANSFwtWriteModel, vis_ANSFwtError, vis_ANSFwtDelete); break;
    case 14: Deck(connect, path, vis_SDRCLwtNew, vis_SDRCLwtWriteModel, vis_SDRCLwtError, vis_SDRCLwtDelete); break;
    case 11: Deck(connect, path, vis_STLFwtNew, vis_STLFwtWriteModel, vis_STLFwtError, vis_STLFwtDelete); break;
    case 41: Deck(connect, path, vis_OBJFwtNew, vis_OBJFwtWriteModel, vis_OBJFwtError, vis_OBJFwtDelete); break;
    case -1: Native(connect, path, 0); break;
    case -2: Native(connect, path, 1); break;
    case -7:
        if (FILE* fp = Open(connect, path, "w")) {
            vis_ConnectWrite_Surface(connect, fp);
            std::fclose(fp);
        }
        break;
    case -10: Pair(connect, path); break;
    case -16: Summary(connect, path); break;
    case -17: Listing(connect, path); break;
    default: vsy_ErrorRecord(&connect->ierr, kName, SYS_ERROR_ENUM, "type= %d", type); break;
    }
}

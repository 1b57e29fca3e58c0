#include "vis_Writer.h"

#include "vis_Connect.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_GridFunId.h"
#include "vis_Model.h"
#include "vsy_Error.h"

#include <cstring>

namespace {

void CloseStream(vis_Writer* w)
{
    if (w->fp) std::fclose(w->fp);
    w->fp = nullptr;
}

void DropGridFun(vis_Writer* w)
{
    if (w->owngf && w->gf) vis_GridFunDelete(w->gf);
    w->gf = nullptr;
    w->owngf = 0;
}

template <class F>
F Slot(vis_Writer* w, int code)
{
    return w->gf ? reinterpret_cast<F>(w->gf->fun[code]) : nullptr;
}

int GetInteger(vis_Writer* w, int option)
{
    int value = 0;
    if (auto f = Slot<vis_GridFunGetInteger_t>(w, VIS_GRIDFUN_GETINTEGER)) f(w->gf->obj, option, &value);
    return value;
}

}  // namespace

int vis_Writer_Open(vis_Writer* w, const char* name, const char* path, const char* mode)
{
    CloseStream(w);
    w->fp = path ? std::fopen(path, mode) : nullptr;
    /* Decks run to hundreds of megabytes: a large buffer saves most system calls. */
    if (w->fp) std::setvbuf(w->fp, nullptr, _IOFBF, 1 << 20);
    if (w->fp) return 1;
    vsy_ErrorRecord(&w->ierr, name, SYS_ERROR_FILE, "path= %s", path ? path : "(null)");
    return 0;
}

int vis_Writer_Begin(vis_Writer* w, const char* name, vis_Model* model)
{
    DropGridFun(w);
    w->connect = nullptr;
    if (!model) {
        vsy_ErrorRecord(&w->ierr, name, SYS_ERROR_NULLOBJECT, "Model");
        return 0;
    }
    void* gf = nullptr;
    void* connect = nullptr;
    vis_ModelGetObject(model, SYS_GRIDFUN, &gf);
    vis_ModelGetObject(model, SYS_CONNECT, &connect);
    w->gf = static_cast<vis_GridFun*>(gf);
    w->connect = static_cast<vis_Connect*>(connect);
    if (!w->gf && w->connect) {
        w->gf = vis_GridFunNew();
        if (w->gf) vis_ConnectGridFun(w->connect, w->gf);
        w->owngf = w->gf != nullptr;
    }
    if (!w->gf) {
        vsy_ErrorRecord(&w->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun");
        return 0;
    }
    vis_GridFunIdCheckIdentity(w->gf, &w->nodeflag, &w->elemflag, &w->nodeident, &w->elemident);
    w->numnp = GetInteger(w, 1);
    w->numel = GetInteger(w, 4);
    return 1;
}

void vis_Writer_End(vis_Writer* w)
{
    DropGridFun(w);
    CloseStream(w);
}

void vis_Writer_Release(vis_Writer* w)
{
    vis_Writer_End(w);
}

void* vis_Writer_New(size_t size, const char* shortname)
{
    void* record = vsy_Malloc(size);
    if (!record) {
        vsy_ErrorMessage(shortname, SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(record, 0, size);
    return record;
}

int vis_Writer_TakeError(vis_Writer* w)
{
    if (!w) return 0;
    const int ierr = w->ierr;
    w->ierr = 0;
    return ierr;
}

void vis_Writer_Topology(vis_Writer* w, int elem, int* shape, int* maxi, int* maxj, int* maxk)
{
    *shape = -1;
    *maxi = *maxj = *maxk = 0;
    if (auto f = Slot<vis_GridFunTopology_t>(w, VIS_GRIDFUN_TOPOLOGY)) f(w->gf->obj, elem, shape, maxi, maxj, maxk);
}

void vis_Writer_ElemNode(vis_Writer* w, int elem, int* num, int* nodes)
{
    *num = 0;
    auto count = Slot<vis_GridFunNumElemNode_t>(w, VIS_GRIDFUN_NUMELEMNODE);
    auto get = Slot<vis_GridFunElemNode_t>(w, VIS_GRIDFUN_ELEMNODE);
    if (!count || !get) return;
    int n = 0;
    count(w->gf->obj, elem, &n);
    if (n < 1 || n > VIS_ELEM_MAXNODE) return;
    get(w->gf->obj, elem, num, nodes);
}

void vis_Writer_Coords(vis_Writer* w, int node, double x[3])
{
    x[0] = x[1] = x[2] = 0.0;
    if (auto f = Slot<vis_GridFunCoordsdv_t>(w, VIS_GRIDFUN_COORDSDV)) f(w->gf->obj, 1, &node, x);
}

int vis_Writer_NodeAssoc(vis_Writer* w, int type, int node)
{
    int value = 0;
    if (auto f = Slot<vis_GridFunNodeAssoc_t>(w, VIS_GRIDFUN_NODEASSOC)) f(w->gf->obj, type, 1, &node, &value);
    return value;
}

int vis_Writer_ElemAssoc(vis_Writer* w, int type, int elem)
{
    int value = 0;
    if (auto f = Slot<vis_GridFunElemAssoc_t>(w, VIS_GRIDFUN_ELEMASSOC)) f(w->gf->obj, type, 1, &elem, &value);
    return value;
}

int vis_Writer_NodeId(vis_Writer* w, int node)
{
    int id = 0;
    vis_GridFunNodeId(w->gf, w->nodeflag | w->nodeident, 1, &node, &id);
    return id;
}

namespace {

int Block(int first, int n, int* ix)
{
    if (n > VIS_WRITER_BLOCK) n = VIS_WRITER_BLOCK;
    for (int i = 0; i < n; ++i) ix[i] = first + i;
    return n;
}

}  // namespace

void vis_Writer_ElemAssocs(vis_Writer* w, int type, int first, int n, int* values)
{
    int ix[VIS_WRITER_BLOCK];
    n = Block(first, n, ix);
    for (int i = 0; i < n; ++i) values[i] = 0;
    if (auto f = Slot<vis_GridFunElemAssoc_t>(w, VIS_GRIDFUN_ELEMASSOC)) f(w->gf->obj, type, n, ix, values);
}

void vis_Writer_NodeAssocs(vis_Writer* w, int type, int first, int n, int* values)
{
    int ix[VIS_WRITER_BLOCK];
    n = Block(first, n, ix);
    for (int i = 0; i < n; ++i) values[i] = 0;
    if (auto f = Slot<vis_GridFunNodeAssoc_t>(w, VIS_GRIDFUN_NODEASSOC)) f(w->gf->obj, type, n, ix, values);
}

void vis_Writer_ElemIds(vis_Writer* w, int first, int n, int* ids)
{
    int ix[VIS_WRITER_BLOCK];
    n = Block(first, n, ix);
    vis_GridFunElemId(w->gf, w->elemflag | w->elemident, n, ix, ids);
}

void vis_Writer_NodeIds(vis_Writer* w, int n, int* nodes)
{
    if (w->nodeflag || w->nodeident) return; /* the ids are the indices already in place */
    int index[VIS_WRITER_BLOCK];
    if (n > VIS_WRITER_BLOCK) n = VIS_WRITER_BLOCK;
    for (int i = 0; i < n; ++i) index[i] = nodes[i];
    for (int i = 0; i < n; ++i) nodes[i] = 0;
    vis_GridFunNodeId(w->gf, 0, n, index, nodes);
}

int vis_Writer_ElemId(vis_Writer* w, int elem)
{
    int id = 0;
    vis_GridFunElemId(w->gf, w->elemflag | w->elemident, 1, &elem, &id);
    return id;
}

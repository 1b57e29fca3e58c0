#include "vis_ModelWrite.h"

#include "vis_Model.h"
#include "vis_NASFwt.h"
#include "vsy_Error.h"

namespace {

const char* const kName = "vis_ModelWrite";

void Nastran(vis_Model* model, const char* path)
{
    vis_NASFwt* nas = vis_NASFwtNew();
    if (!nas) {
        vsy_ErrorRecord(&model->ierr, kName, SYS_ERROR_MEMORY, "vis_NASFwt");
        return;
    }
    vis_NASFwtWriteModel(nas, model, path);
    const int ierr = vis_NASFwtError(nas);
    vis_NASFwtDelete(nas);
    if (ierr == SYS_ERROR_FILE)
        vsy_ErrorRecord(&model->ierr, kName, SYS_ERROR_FILE, "pathname= %s", path ? path : "(null)");
    else if (ierr)
        model->ierr = ierr;
}

}  // namespace

void vis_ModelWrite(vis_Model* model, int type, const char* path)
{
    if (!model) {
        vsy_ErrorMessage(kName, SYS_ERROR_NULLOBJECT, "Model");
        return;
    }
    if (type == 18) {
        Nastran(model, path);
        return;
    }
    vsy_ErrorRecord(&model->ierr, kName, SYS_ERROR_ENUM, "type= %d", type);
}

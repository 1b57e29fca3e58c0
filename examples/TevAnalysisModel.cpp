#include "TevAnalysisModel.h"

#include "TevFaceLoad.h"
#include "TevVolumeMesh.h"
#include "vis_EProp.h"
#include "vis_LCase.h"
#include "vis_MProp.h"
#include "vis_Model.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

namespace {

// Codes of the model objects used here: the solid property's material (0); the material's
// density (0), Young's modulus (1) and Poisson's ratio (2); the static step's load case count
// (2), ids (3) and factors (4), restraint case (8), output frequency (26) and filed results
// (30, 31: 1 displacements, 35 stresses).
const int kStatic = 1, kIsotropic = 0, kSolidProp = 1;
const int kFiled[2] = {1, 35};

}  // namespace

TevAnalysisModel::TevAnalysisModel(const TevVolumeMesh& mesh) : m_mesh(mesh)
{
}

TevAnalysisModel::~TevAnalysisModel()
{
    Release();
}

bool TevAnalysisModel::CheckMaterial(const Material& material, std::string* error)
{
    if (material.young > 0.0 && material.poisson > -1.0 && material.poisson < 0.5 && material.density >= 0.0) return true;
    if (error) *error = "Young's modulus must be positive, Poisson's ratio between -1 and 0.5 and the density not negative";
    return false;
}

bool TevAnalysisModel::SetMaterial(const Material& material, std::string* error)
{
    if (!CheckMaterial(material, error)) return false;
    m_material = material;
    return true;
}

bool TevAnalysisModel::CheckFace(int face, std::string* error) const
{
    if (face >= 1 && face <= m_mesh.FaceCount() && !m_mesh.FaceTriangles(face).empty()) return true;
    if (error) *error = "The mesh has no face " + std::to_string(face);
    return false;
}

bool TevAnalysisModel::SetFixedFace(int face, std::string* error)
{
    if (!CheckFace(face, error)) return false;
    m_fixed = face;
    return true;
}

bool TevAnalysisModel::SetForce(int face, const std::array<double, 3>& total, std::string* error)
{
    if (!CheckFace(face, error)) return false;
    m_loadFace = face;
    m_kind = LoadKind::Force;
    m_force = total;
    return true;
}

bool TevAnalysisModel::SetPressure(int face, double pressure, std::string* error)
{
    if (!CheckFace(face, error)) return false;
    m_loadFace = face;
    m_kind = LoadKind::Pressure;
    m_pressure = pressure;
    return true;
}

vis_Model* TevAnalysisModel::Build(std::string* error)
{
    if (m_fixed == 0 || m_kind == LoadKind::None) {
        if (error) *error = m_fixed == 0 ? "No fixed face: pick a face to clamp" : "No load: pick a face to load";
        return nullptr;
    }
    Release();
    Fill();
    return m_model;
}

void TevAnalysisModel::Fill()
{
    m_model = vis_ModelNew();
    vis_ModelSetObject(m_model, SYS_CONNECT, m_mesh.Volume());
    m_prop = vis_EPropNew();
    vis_EPropDef(m_prop, kSolidProp);
    vis_EPropSetValuei(m_prop, 0, 1);
    m_mat = vis_MPropNew();
    vis_MPropDef(m_mat, kIsotropic);
    vis_MPropSetValued(m_mat, 0, m_material.density);
    vis_MPropSetValued(m_mat, 1, m_material.young);
    vis_MPropSetValued(m_mat, 2, m_material.poisson);
    m_rc = vis_RCaseNew();
    for (int node : m_mesh.FaceNodes(m_fixed))
        for (int dof = 1; dof <= 3; ++dof) vis_RCaseSetSPCdv(m_rc, node, dof, 1, 0.0);
    m_lc = vis_LCaseNew();
    const TevFaceLoad::Forces forces = m_kind == LoadKind::Force ? TevFaceLoad::TotalForce(m_mesh, m_loadFace, m_force)
                                                                 : TevFaceLoad::Pressure(m_mesh, m_loadFace, m_pressure);
    for (const auto& f : forces) vis_LCaseSetConcdv(m_lc, f.first, 1, f.second.data());
    m_step = vis_SPropNew();
    vis_SPropDef(m_step, kStatic);
    const int ids[1] = {1};
    const double one[1] = {1.0};
    vis_SPropSetValuei(m_step, 2, 1);
    vis_SPropSetValueiv(m_step, 3, ids);
    vis_SPropSetValuedv(m_step, 4, one);
    vis_SPropSetValuei(m_step, 8, 1);
    vis_SPropSetValuei(m_step, 26, 1);
    vis_SPropSetValuei(m_step, 30, 2);
    vis_SPropSetValueiv(m_step, 31, kFiled);
    m_eprops = vsy_HashTableNew();
    m_mprops = vsy_HashTableNew();
    m_rcases = vsy_HashTableNew();
    m_lcases = vsy_HashTableNew();
    m_steps = vsy_ListNew();
    vsy_HashTableInsert(m_eprops, 1, m_prop);
    vsy_HashTableInsert(m_mprops, 1, m_mat);
    vsy_HashTableInsert(m_rcases, 1, m_rc);
    vsy_HashTableInsert(m_lcases, 1, m_lc);
    vsy_ListAppend(m_steps, m_step);
    vis_ModelSetHashTable(m_model, SYS_EPROP, m_eprops);
    vis_ModelSetHashTable(m_model, SYS_MPROP, m_mprops);
    vis_ModelSetHashTable(m_model, SYS_RCASE, m_rcases);
    vis_ModelSetHashTable(m_model, SYS_LCASE, m_lcases);
    vis_ModelSetList(m_model, SYS_SPROP, m_steps);
}

void TevAnalysisModel::Release()
{
    if (!m_model) return;
    vis_ModelDelete(m_model);
    vsy_ListDelete(m_steps);
    for (vsy_HashTable* t : {m_eprops, m_mprops, m_rcases, m_lcases}) vsy_HashTableDelete(t);
    vis_SPropDelete(m_step);
    vis_LCaseDelete(m_lc);
    vis_RCaseDelete(m_rc);
    vis_MPropDelete(m_mat);
    vis_EPropDelete(m_prop);
    m_model = nullptr;
}

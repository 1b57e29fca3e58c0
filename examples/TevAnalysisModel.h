// TevAnalysisModel: a linear static analysis of a volume mesh as a vis_Model: one solid
// property of one isotropic material, restraint case 1 clamping every node of the fixed face,
// load case 1 with the face load as forces at the nodes (TevFaceLoad), and one static step
// that files displacements and stresses. The mesh is the caller's and must outlive this
// object; everything the vis_Model refers to (its tables, cases and properties) is owned here
// and rebuilt by each Build.
#ifndef TEVANALYSISMODEL_H
#define TEVANALYSISMODEL_H

#include <array>
#include <string>

class TevVolumeMesh;
struct vis_EProp;
struct vis_LCase;
struct vis_MProp;
struct vis_Model;
struct vis_RCase;
struct vis_SProp;
struct vsy_HashTable;
struct vsy_List;

class TevAnalysisModel
{
public:
    struct Material {
        double young = 210000.0;   // Young's modulus
        double poisson = 0.3;      // Poisson's ratio
        double density = 7.85e-9;  // mass per volume
    };
    enum class LoadKind { None, Force, Pressure };

    explicit TevAnalysisModel(const TevVolumeMesh& mesh);
    ~TevAnalysisModel();
    TevAnalysisModel(const TevAnalysisModel&) = delete;
    TevAnalysisModel& operator=(const TevAnalysisModel&) = delete;

    // False, with the old value kept, when E is not positive or nu is not in (-1, 0.5).
    bool SetMaterial(const Material& material, std::string* error);
    // The check of SetMaterial, alone.
    static bool CheckMaterial(const Material& material, std::string* error);
    const Material& GetMaterial() const { return m_material; }
    // Faces are numbered as in TevVolumeMesh; false, with nothing changed, for a face the mesh
    // does not have.
    bool SetFixedFace(int face, std::string* error);
    bool SetForce(int face, const std::array<double, 3>& total, std::string* error);
    bool SetPressure(int face, double pressure, std::string* error);
    int FixedFace() const { return m_fixed; }
    int LoadFace() const { return m_loadFace; }
    LoadKind Load() const { return m_kind; }

    // The model, rebuilt from the current settings; null with the reason when no face is fixed
    // or none is loaded. It stays valid until the next Build or the destructor.
    vis_Model* Build(std::string* error);

private:
    bool CheckFace(int face, std::string* error) const;
    void Release();
    void Fill();

    const TevVolumeMesh& m_mesh;
    Material m_material;
    int m_fixed = 0, m_loadFace = 0;
    LoadKind m_kind = LoadKind::None;
    std::array<double, 3> m_force = {0.0, 0.0, 0.0};
    double m_pressure = 0.0;

    vis_Model* m_model = nullptr;
    vis_EProp* m_prop = nullptr;
    vis_MProp* m_mat = nullptr;
    vis_RCase* m_rc = nullptr;
    vis_LCase* m_lc = nullptr;
    vis_SProp* m_step = nullptr;
    vsy_HashTable *m_eprops = nullptr, *m_mprops = nullptr, *m_rcases = nullptr, *m_lcases = nullptr;
    vsy_List* m_steps = nullptr;
};

#endif

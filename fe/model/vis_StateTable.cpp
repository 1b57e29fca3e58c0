/* vis_State: the data type table, the class table and the qualifiers; see vis_State.h. */
#include "vis_State.h"

namespace {

struct DataTypeRow {
    const char* keyword;
    const char* name;
    const char* shortname;
    int dataclass;
};

/* Rows 0 to 183; a row without keyword is reserved. Class 7 stands for the matrices. */
const DataTypeRow kDataTypes[184] = {
    {"X", "Position", "Posi", 1}, /* 0 */
    {"D", "Displacement", "Disp", 1}, /* 1 */
    {"XF", "External Applied Force", "ExAF", 1}, /* 2 */
    {"R", "Reaction Force", "ReFo", 1}, /* 3 */
    {"V", "Velocity", "Velo", 1}, /* 4 */
    {"A", "Acceleration", "Acce", 1}, /* 5 */
    {"HEAT_FLUX", "Heat Flux", "HeFl", 1}, /* 6 */
    {"VOLT", "Voltage", "Volt", 0}, /* 7 */
    {"DENS", "Density", "Dens", 0}, /* 8 */
    {"VISC", "Viscosity", "Visc", 0}, /* 9 */
    {"COND", "Conductivity", "Cond", 0}, /* 10 */
    {"MACH", "Mach Number", "MaNu", 0}, /* 11 */
    {"STREAM", "Stream Function", "StFu", 0}, /* 12 */
    {"ENTROPY", "Entropy", "Entr", 0}, /* 13 */
    {"MASS_FLUX", "Mass Flux", "MaFx", 1}, /* 14 */
    {"TEMP", "Temperature", "Temp", 0}, /* 15 */
    {"FILM_COEF", "Film Coefficient", "FiCo", 0}, /* 16 */
    {"J", "Current", "Curr", 0}, /* 17 */
    {"TF", "Total Residual Force", "ToRF", 1}, /* 18 */
    {"PRES", "Pressure", "Pres", 0}, /* 19 */
    {"D_MAT", "Damping Matrix", "DMat", 7}, /* 20 */
    {"ELEC_POT", "Electric Potential", "ElPo", 0}, /* 21 */
    {"Q", "Electric Charge", "ElCh", 0}, /* 22 */
    {"MAG_POT", "Magnetic Potential", "MaPo", 0}, /* 23 */
    {"R_J", "Reaction Current", "ReCu", 0}, /* 24 */
    {"MASS_FLOW", "Mass Flow", "MaFw", 0}, /* 25 */
    {"VOLUME", "Volume", "Volu", 0}, /* 26 */
    {"VOLUME_FLUX", "Volume Flux", "VoFl", 0}, /* 27 */
    {"UNKNOWN", "Unknown", "Unkn", 0}, /* 28 */
    {"V_DIV", "Velocity Divergence", "VDiv", 0}, /* 29 */
    {"E", "Strain", "Stra", 2}, /* 30 */
    {"INERTIA", "Rotary Inertia", "RtIn", 2}, /* 31 */
    {"DENS_GRAD", "Density Gradient", "DnGr", 1}, /* 32 */
    {"P", "Momentum", "Momm", 1}, /* 33 */
    {"TIME", "Time", "Time", 0}, /* 34 */
    {"S", "Stress", "Stre", 2}, /* 35 */
    {nullptr, nullptr, nullptr, 0},  /* 36 reserved */
    {"V_GRAD", "Velocity Gradient", "VGrd", 3}, /* 37 */
    {"USER", "User Selected Variable", "UsSV", 0}, /* 38 */
    {"THICKNESS", "Element Thickness", "ElTh", 0}, /* 39 */
    {nullptr, nullptr, nullptr, 0},  /* 40 reserved */
    {"R_Q", "Reaction Charge", "ReCh", 0}, /* 41 */
    {"R_MPC", "Reaction Force MPC", "ReFM", 1}, /* 42 */
    {"HEAT_GRAD", "Heat Gradient", "HeGr", 1}, /* 43 */
    {"TE_ERROR", "Thermal Energy Error", "ThEE", 0}, /* 44 */
    {"XF_Q", "External Applied Charge", "EACh", 0}, /* 45 */
    {"ENERGY_DENSITY", "Energy Density", "EnDe", 0}, /* 46 */
    {"SDV", "Solution Dependent Variable", "SoDV", 10}, /* 47 */
    {"VIEW_FACT", "View Factor", "ViFa", 0}, /* 48 */
    {nullptr, nullptr, nullptr, 0},  /* 49 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 50 reserved */
    {"SE_DENSITY", "Strain Energy Density", "StED", 0}, /* 51 */
    {"K_MAT", "Stiffness Matrix", "KMat", 7}, /* 52 */
    {"M_MAT", "Mass Matrix", "MMat", 7}, /* 53 */
    {nullptr, nullptr, nullptr, 0},  /* 54 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 55 reserved */
    {"AREA", "Area", "Area", 0}, /* 56 */
    {"LENGTH", "Length", "Leng", 0}, /* 57 */
    {"RADIUS", "Radius", "Radi", 0}, /* 58 */
    {"NUMBER", "Number", "Numb", 0}, /* 59 */
    {"KE_DENSITY", "Kinetic Energy Density", "KiED", 0}, /* 60 */
    {nullptr, nullptr, nullptr, 0},  /* 61 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 62 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 63 reserved */
    {"TE", "Thermal Energy", "ThEn", 0}, /* 64 */
    {nullptr, nullptr, nullptr, 0},  /* 65 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 66 reserved */
    {"FAIL_INDEX", "Failure Index", "FaIn", 10}, /* 67 */
    {"CODE_CHECK", "Code Check Value", "CoCV", 0}, /* 68 */
    {"VOID_RATIO", "Void Ratio", "VoRa", 0}, /* 69 */
    {"TEMP_GRAD", "Temperature Gradient", "TeGr", 1}, /* 70 */
    {"PRES_COEF", "Pressure Coefficient", "PrCo", 0}, /* 71 */
    {nullptr, nullptr, nullptr, 0},  /* 72 reserved */
    {"PRES_GRAD", "Pressure Gradient", "PrGr", 0}, /* 73 */
    {nullptr, nullptr, nullptr, 0},  /* 74 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 75 reserved */
    {"MASS", "Mass", "Mass", 0}, /* 76 */
    {"HEAT", "Heat Generated", "HeGe", 0}, /* 77 */
    {nullptr, nullptr, nullptr, 0},  /* 78 reserved */
    {"ELEC_FIELD", "Electric Field", "ElFi", 1}, /* 79 */
    {"ELEC_FLUX", "Electric Flux", "ElFl", 1}, /* 80 */
    {"R_HEAT_FLOW", "Reaction Heat Flow", "ReHF", 0}, /* 81 */
    {"MAG_FLUX", "Magnetic Flux", "MgFx", 1}, /* 82 */
    {"MAG_FIELD", "Magnetic Field", "MaFi", 1}, /* 83 */
    {"J_DENSITY", "Current Density", "Cude", 1}, /* 84 */
    {"TURB_KE", "Turbulent Kinetic Energy", "TuKE", 0}, /* 85 */
    {"TURB_ED", "Turbulent Energy Dissipation", "TuEd", 0}, /* 86 */
    {"CONC", "Concentration", "Conc", 0}, /* 87 */
    {"H", "Enthalpy", "Enth", 0}, /* 88 */
    {"CP", "Specific Heat", "SpHe", 0}, /* 89 */
    {"POROSITY", "Porosity", "Poro", 0}, /* 90 */
    {"HDOT", "Enthalpy Rate", "EntR", 0}, /* 91 */
    {nullptr, nullptr, nullptr, 0},  /* 92 reserved */
    {"HEAT_FLOW", "Heat flow", "Hefl", 0}, /* 93 */
    {"SFM", "Stress and Moment Resultant", "SaMR", 5}, /* 94 */
    {"SEK", "Strain and Curvature", "StaC", 5}, /* 95 */
    {nullptr, nullptr, nullptr, 0},  /* 96 reserved */
    {"KE", "Kinetic Energy", "KiEn", 0}, /* 97 */
    {"SE", "Strain Energy", "StEn", 0}, /* 98 */
    {nullptr, nullptr, nullptr, 0},  /* 99 reserved */
    {"ENERGY", "Energy", "Ener", 0}, /* 100 */
    {nullptr, nullptr, nullptr, 0},  /* 101 reserved */
    {"SEP_CONTACT", "Contact Separation", "CoSe", 0}, /* 102 */
    {nullptr, nullptr, nullptr, 0},  /* 103 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 104 reserved */
    {"CLOSURE", "Closure", "Clos", 0}, /* 105 */
    {nullptr, nullptr, nullptr, 0},  /* 106 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 107 reserved */
    {"STAT", "Status", "Stat", 0}, /* 108 */
    {"R_MASS_FLOW", "Reaction Mass Flow", "ReMF", 0}, /* 109 */
    {"XF_MASS_FLOW", "External Applied Mass Flow", "EAMF", 0}, /* 110 */
    {nullptr, nullptr, nullptr, 0},  /* 111 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 112 reserved */
    {"E_RATE", "Strain Rate", "StRa", 2}, /* 113 */
    {nullptr, nullptr, nullptr, 0},  /* 114 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 115 reserved */
    {"S_ERROR_DENSITY", "Stress Error Density", "SsED", 0}, /* 116 */
    {"SE_ERROR", "Strain Energy Error", "StEE", 0}, /* 117 */
    {nullptr, nullptr, nullptr, 0},  /* 118 reserved */
    {"XF_HEAT_FLOW", "External Applied Heat Flow", "EAHF", 0}, /* 119 */
    {"DIR_COS", "Direction Cosine Matrix", "DiCM", 3}, /* 120 */
    {"SF", "Element Force", "ElFo", 1}, /* 121 */
    {"SD", "Element Displacement", "ElDi", 1}, /* 122 */
    {"YPLUS", "Y Plus", "YPlu", 0}, /* 123 */
    {"UTAU", "U Tau", "UTau", 0}, /* 124 */
    {"SE_PERCENT", "Strain Energy Percent", "StEP", 0}, /* 125 */
    {"KE_PERCENT", "Kinetic Energy Percent", "KiEP", 0}, /* 126 */
    {"DOM_FLUID_PHASE", "Dominant Fluid Phase", "DoFP", 0}, /* 127 */
    {nullptr, nullptr, nullptr, 0},  /* 128 reserved */
    {"PENE_CONTACT", "Contact Penetration", "CoPe", 0}, /* 129 */
    {"DISP_CONTACT", "Contact Displacement", "CoDi", 0}, /* 130 */
    {nullptr, nullptr, nullptr, 0},  /* 131 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 132 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 133 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 134 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 135 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 136 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 137 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 138 reserved */
    {"SAFE_FACT", "Safety Factor", "SaFa", 0}, /* 139 */
    {"FAT_DAMAGE", "Fatigue Damage", "FaDa", 0}, /* 140 */
    {"FAT_DAMAGE_DIR", "Fatigue Damage Direction", "FaDD", 1}, /* 141 */
    {"FAT_LIFE", "Fatigue Life", "FaLi", 0}, /* 142 */
    {"QUAL_INDEX", "Quality Index", "QuIn", 0}, /* 143 */
    {"GAP_THICKNESS", "Gap Thickness", "GaTh", 0}, /* 144 */
    {"EN_FORC", "Element Nodal Force", "EnFc", 1}, /* 145 */
    {"EN_FLUX", "Element Nodal Flux", "EnFx", 0}, /* 146 */
    {"STRENGTH_SAFE_FACT", "Strength Safety Factor", "StSF", 0}, /* 147 */
    {"FAT_SAFE_FACT", "Fatigue Safety Factor", "FaSF", 0}, /* 148 */
    {nullptr, nullptr, nullptr, 0},  /* 149 reserved */
    {"MU_LAMB", "Mu Lambda", "MuLa", 0}, /* 150 */
    {"MU_TURB", "Mu Turbulent", "MuTu", 0}, /* 151 */
    {"BODY_FORCE", "Body Force", "BoFo", 1}, /* 152 */
    {"WALL_SHEAR", "Wall Shear", "WaSh", 1}, /* 153 */
    {"VORTICITY", "Vorticity", "Vort", 1}, /* 154 */
    {nullptr, nullptr, nullptr, 0},  /* 155 reserved */
    {"SOUND_LEVEL", "Sound Level", "SoLe", 0}, /* 156 */
    {"ROT_ANG", "Rotation Angle Vector", "RoAV", 1}, /* 157 */
    {"VOF", "Volume of Fluid", "VooF", 0}, /* 158 */
    {"VISC_EDDY", "Eddy Viscosity", "EdVi", 0}, /* 159 */
    {"ROUGHNESS", "Roughness", "Roug", 0}, /* 160 */
    {"FRACTION", "Fraction", "Frac", 0}, /* 161 */
    {"CONV_COEF", "Convection Coefficient", "CoCo", 0}, /* 162 */
    {"POWER", "Power", "Powe", 0}, /* 163 */
    {"SOUND_INTENSITY", "Sound Intensity", "SoIn", 0}, /* 164 */
    {"TRAC", "Traction", "Trac", 1}, /* 165 */
    {"XF_J", "External Applied Current", "EACr", 0}, /* 166 */
    {"PRANDTL", "Prandtl Number", "PrNu", 0}, /* 167 */
    {"TURB_DIST", "Turbulent Distance", "TuDi", 0}, /* 168 */
    {"REYNOLDS", "Reynolds Number", "ReNu", 0}, /* 169 */
    {"RADIANCE", "Radiance", "Radi", 0}, /* 170 */
    {"FLUENCE", "Fluence", "Flue", 0}, /* 171 */
    {"RC_PROD", "RC Product", "RCPr", 0}, /* 172 */
    {"POWER_DENS", "Power Density", "PoDe", 0}, /* 173 */
    {"WATER_ACCUM", "Water Accumulation", "WaAc", 0}, /* 174 */
    {"TURB_SD", "Turbulent Specific Dissipation", "TuSD", 0}, /* 175 */
    {"TE_DENSITY", "Thermal Energy Density", "ThED", 0}, /* 176 */
    {"STRENGTH_RATIO", "Strength Ratio", "StRa", 10}, /* 177 */
    {"DELETED", "Deleted Entities", "DeEn", 0}, /* 178 */
    {"MARG_SAFE", "Margin of Safety", "MaSa", 0}, /* 179 */
    {"MOMENT", "Moment", "Mome", 1}, /* 180 */
    {nullptr, nullptr, nullptr, 0},  /* 181 reserved */
    {nullptr, nullptr, nullptr, 0},  /* 182 reserved */
    {"FORCE", "Force", "Forc", 1}, /* 183 */
};

/* Qualifier keywords, numbered from 1. */
const char* const kQualifiers[] = {
    "X", "Y", "Z", "MAG", "XX", "YY", "ZZ", "XY",
    "YZ", "ZX", "VONMISES", "NXX", "NYY", "NXY", "MXX", "MYY",
    "MXY", "QXY", "QZX", "TX", "TY", "TZ", "RX", "RY",
    "RZ", "MINIMUM", "MAXIMUM", "INTERMEDIATE", "EFF", "TOT", "INC", "REL",
    "ABS", "EQUIV", "PLAST", "CREEP", "THERMAL", "ELAST", "INELAST", "STAG",
    "CAUCHY", "PK", "LOG", "TRESCA", "YIELD", "MEAN", "NONLIN", "TORSION",
    "SWELLING", "CRACKING", "NORMAL", "SHEAR", "PSD", "RMS", "NOM",
};

}  // namespace

int vis_StateDataType(int code, const char** keyword, const char** name, const char** shortname, int* dataclass)
{
    const bool known = code >= 0 && code < 184 && kDataTypes[code].keyword;
    if (keyword) *keyword = known ? kDataTypes[code].keyword : "";
    if (name) *name = known ? kDataTypes[code].name : "";
    if (shortname) *shortname = known ? kDataTypes[code].shortname : "";
    if (dataclass) *dataclass = known ? kDataTypes[code].dataclass : 0;
    return known ? 1 : 0;
}

int vis_StateClassNum(int dataclass)
{
    switch (dataclass) {
    case 0: return 1;  /* Scalar */
    case 1: return 3;  /* Vector */
    case 2: return 6;  /* Tensor */
    case 3: return 9;  /* GeneralTensor */
    case 5: return 8;  /* ElementResult */
    case 9: return 6;  /* SixDof */
    case 10: return 1; /* Scalars */
    default: return dataclass >= 11 && dataclass <= 22 ? dataclass - 10 : 0; /* Scalars1 to 12 */
    }
}

const char* vis_StateQualifier(int no)
{
    const int count = static_cast<int>(sizeof kQualifiers / sizeof kQualifiers[0]);
    return no >= 1 && no <= count ? kQualifiers[no - 1] : nullptr;
}

/* vis_Units: unit choices and factors; see vis_Units.h. */
#include "vis_Units.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

/* SI factor tables per base type, indexed by the unit index (entry 0 unused). */
static const double vis_UnitsLength[] = {0, 1.0, 0.01, 0.001, 0.0254, 0.3048};
static const double vis_UnitsMass[] = {0, 1.0, 0.001, 1000.0, 0.45359237, 14.593902937206364, 175.12683524647636};
static const double vis_UnitsTime[] = {0, 1.0, 0.001, 60.0, 3600.0};
static const double vis_UnitsTemp[] = {0, 1.0, 1.0, 5.0 / 9.0, 5.0 / 9.0};
static const double vis_UnitsOffset[] = {0, 0.0, 273.15, 459.67 * 5.0 / 9.0, 0.0};
static const double vis_UnitsForce[] = {0, 1.0, 1000.0, 4.4482216152605, 9.80665, 1.0e-5};
static const double vis_UnitsFurther[] = {0, 1.0};

typedef struct vis_UnitsTable {
    const double* si;
    int count; /* unit choices */
    int slot;  /* position in the base array */
} vis_UnitsTable;

#define VIS_UNITS_COUNT(a) ((int)(sizeof(a) / sizeof((a)[0])) - 1)

static const vis_UnitsTable vis_UnitsTables[8] = {
    {nullptr, 0, 0},
    {vis_UnitsLength, VIS_UNITS_COUNT(vis_UnitsLength), 0},
    {vis_UnitsMass, VIS_UNITS_COUNT(vis_UnitsMass), 1},
    {vis_UnitsTime, VIS_UNITS_COUNT(vis_UnitsTime), 2},
    {vis_UnitsTemp, VIS_UNITS_COUNT(vis_UnitsTemp), 3},
    {vis_UnitsOffset, VIS_UNITS_COUNT(vis_UnitsOffset), 3},
    {vis_UnitsForce, VIS_UNITS_COUNT(vis_UnitsForce), 4},
    {vis_UnitsFurther, VIS_UNITS_COUNT(vis_UnitsFurther), 5},
};

vis_Units* vis_UnitsNew(void)
{
    vis_Units* units = (vis_Units*)vis_Model_NewRecord(sizeof(vis_Units), "Units");
    if (!units) return nullptr;
    for (int i = 0; i < 6; ++i) units->base[i] = 1;
    for (int i = 0; i < 7; ++i) units->factor[i] = 1.0;
    return units;
}

void vis_UnitsDelete(vis_Units* units)
{
    vsy_Free(units);
}

int vis_UnitsError(vis_Units* units)
{
    return vis_Model_TakeError(units ? &units->ierr : nullptr);
}

static int vis_Units_Type(vis_Units* units, const char* name, int type)
{
    if (vis_Model_IsNull(units, name)) return 0;
    if (type >= VIS_UNITS_LENGTH && type <= VIS_UNITS_FURTHER) return 1;
    vsy_ErrorRecord(&units->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    return 0;
}

void vis_UnitsSetConv(vis_Units* units, int type, int index)
{
    if (!vis_Units_Type(units, "vis_UnitsSetConv", type)) return;
    const vis_UnitsTable* t = &vis_UnitsTables[type];
    if (index < 1 || index > t->count) {
        vsy_ErrorRecord(&units->ierr, "vis_UnitsSetConv", SYS_ERROR_VALUE, "iparam= %d", index);
        return;
    }
    units->base[t->slot] = index;
}

void vis_UnitsGetBase(vis_Units* units, int type, int* index)
{
    if (vis_Units_Type(units, "vis_UnitsGetBase", type)) *index = units->base[vis_UnitsTables[type].slot];
}

void vis_UnitsGetConv(vis_Units* units, int type, int* index)
{
    if (vis_Units_Type(units, "vis_UnitsGetConv", type)) *index = units->base[vis_UnitsTables[type].slot];
}

void vis_UnitsSetFactor(vis_Units* units, int type, double factor)
{
    if (vis_Units_Type(units, "vis_UnitsSetFactor", type)) units->factor[type - 1] = factor;
}

void vis_UnitsGetFactor(vis_Units* units, int type, double* factor)
{
    if (vis_Units_Type(units, "vis_UnitsGetFactor", type)) *factor = units->factor[type - 1];
}

void vis_UnitsGetBaseSIFactor(vis_Units* units, int type, double* factor)
{
    if (!vis_Units_Type(units, "vis_UnitsGetBaseSIFactor", type)) return;
    const vis_UnitsTable* t = &vis_UnitsTables[type];
    *factor = t->si[units->base[t->slot]];
}

void vis_UnitsGetSIFactor(vis_Units* units, int type, double* factor)
{
    if (!vis_Units_Type(units, "vis_UnitsGetSIFactor", type)) return;
    const vis_UnitsTable* t = &vis_UnitsTables[type];
    double si = t->si[units->base[t->slot]];
    *factor = type == VIS_UNITS_TEMPOFFSET ? si : si * units->factor[type - 1];
}

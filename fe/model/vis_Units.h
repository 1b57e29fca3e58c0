/* vis_Units: a unit system: per base type the unit chosen from a list and a further factor.
 *
 * Base types: 1 length, 2 mass, 3 time, 4 temperature, 5 temperature offset, 6 force, 7 a
 * further base. Six base indices are kept: the temperature offset follows the temperature's
 * unit. Seven factors are kept, one per type, 1 after New. Unit choices (index: SI factor):
 *   length       1 m, 2 cm, 3 mm, 4 in, 5 ft
 *   mass         1 kg, 2 g, 3 t, 4 lbm, 5 slug, 6 lbf s^2/in
 *   time         1 s, 2 ms, 3 min, 4 h
 *   temperature  1 K, 2 C (1), 3 F, 4 R (5/9); offsets to kelvin 0, 273.15, 459.67 * 5/9, 0
 *   force        1 N, 2 kN, 3 lbf, 4 kgf, 5 dyn
 *   further      1 (factor 1)
 * A value v in the system is v * SI factor * factor in SI units (for the temperature offset the
 * SI factor is the offset added after scaling). Any other type: code 2 "type= %d"; a unit index
 * outside its list: code 1 "iparam= %d".
 */
#ifndef VIS_UNITS_H
#define VIS_UNITS_H

#define VIS_UNITS_LENGTH 1
#define VIS_UNITS_MASS 2
#define VIS_UNITS_TIME 3
#define VIS_UNITS_TEMPERATURE 4
#define VIS_UNITS_TEMPOFFSET 5
#define VIS_UNITS_FORCE 6
#define VIS_UNITS_FURTHER 7

typedef struct vis_Units {
    int ierr;         /* last error */
    int base[6];      /* unit index of length, mass, time, temperature, force, further */
    double factor[7]; /* factor per base type 1 to 7 */
} vis_Units;

/* Creates SI units (every index 1, every factor 1); null with "Units" code 4 "Creation
 * Failure". */
vis_Units* vis_UnitsNew(void);
void vis_UnitsDelete(vis_Units* units);
int vis_UnitsError(vis_Units* units);

/* Chooses the unit of a base type by its index in the lists above; type 5 chooses the
 * temperature's unit as well. */
void vis_UnitsSetConv(vis_Units* units, int type, int index);
/* The unit index of a base type (the same as vis_UnitsGetBase). */
void vis_UnitsGetConv(vis_Units* units, int type, int* index);
void vis_UnitsGetBase(vis_Units* units, int type, int* index);
void vis_UnitsSetFactor(vis_Units* units, int type, double factor);
void vis_UnitsGetFactor(vis_Units* units, int type, double* factor);
/* The SI factor (type 5: the offset) of the chosen unit. */
void vis_UnitsGetBaseSIFactor(vis_Units* units, int type, double* factor);
/* The chosen unit's SI factor times the type's factor (type 5: the offset, unscaled). */
void vis_UnitsGetSIFactor(vis_Units* units, int type, double* factor);

#endif

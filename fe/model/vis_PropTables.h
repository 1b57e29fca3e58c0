/* vis_PropTables: the constant parameter tables of the property family (solution steps,
 * element properties, materials, global data, result properties, contact pairs).
 *
 * A row gives a parameter's name, data type, the count of scalars at one location (or 0 with
 * the code of the parameter that holds the count at run time) and the number of locations:
 * shell corner values have four, beam end values two. `nuser` names the member's "Number of
 * user values" parameter, or -1 when the member has none (no negative codes then).
 */
#ifndef VIS_PROPTABLES_H
#define VIS_PROPTABLES_H

#define VIS_PROP_INTEGER 1
#define VIS_PROP_FLOAT 2
#define VIS_PROP_STRING 3
#define VIS_PROP_DOUBLE 4

typedef struct vis_PropRow {
    const char* name;
    int datatype;   /* VIS_PROP_INTEGER ... VIS_PROP_DOUBLE */
    int count;      /* scalars at one location; 0 when countparam gives the count */
    int nloc;       /* locations */
    int countparam; /* code of the count parameter, -1 for none */
} vis_PropRow;

typedef struct vis_PropTable {
    int num;                 /* codes 0 to num - 1 */
    const vis_PropRow* rows;
    int nuser;               /* code of "Number of user values", -1 for none */
    const char* rangetext;   /* detail format of an out-of-range code */
} vis_PropTable;

extern const vis_PropTable vis_SPropTable;
extern const vis_PropTable vis_EPropTable;
extern const vis_PropTable vis_MPropTable;
extern const vis_PropTable vis_GPropTable;
extern const vis_PropTable vis_RPropTable;
extern const vis_PropTable vis_CPairTable;

#endif

/* vis_ElemShapeClosed: picks the closed form of a tuple and runs it; see vis_ElemShapeClosed.h.
 *
 * The forms live in one header per shape family. Each is instantiated three times per
 * precision, for the flag pairs values and derivatives, values only, derivatives only, so the
 * mode is settled once here and not per function.
 */
#include "vis_ElemShapeClosed.h"

#include "vis_ElemClosedHex.h"
#include "vis_ElemClosedPlane.h"
#include "vis_ElemClosedPyr.h"
#include "vis_ElemClosedTet.h"
#include "vis_ElemClosedWed.h"
#include "vis_ElemShape.h"
#include "vis_ElemTables.h"
#include "vis_ElemTopology.h"

namespace {

enum Form {
    FORM_NONE,
    FORM_LINE2, FORM_LINE3,
    FORM_TRI3, FORM_TRI6, FORM_TRI6LAG,
    FORM_QUAD4, FORM_QUAD8, FORM_QUAD9, FORM_QUAD12,
    FORM_TET4, FORM_TET10, FORM_TET10LAG,
    FORM_PYR5, FORM_PYR13, FORM_PYR14,
    FORM_WED6, FORM_WED15, FORM_WED18,
    FORM_HEX8, FORM_HEX20, FORM_HEX27, FORM_HEX32
};

/* The closed form of a tuple evaluated in dimension dim, or FORM_NONE. maxj must be exactly 0
 * or 3, so any mask half sends the tuple to the generic path. maxi 0 and 2 are the same
 * linear element, the pyramid included. */
int Pick(int shape, int maxi, int maxj, int maxk, int dim)
{
    if (shape < SYS_SHAPE_LINE || shape > SYS_SHAPE_HEX || vis_ElemShapeDefs[shape].dim != dim)
        return FORM_NONE;
    const bool ser = maxj == 0 && maxk == 0;
    const bool lin = ser && (maxi == 0 || maxi == 2);
    const bool quadratic = ser && maxi == 3, cubic = ser && maxi == 4;
    const bool lag = maxi == 3 && maxj == 3 && maxk == (dim == 3 ? 3 : 0);
    switch (shape) {
    case SYS_SHAPE_LINE: return lin ? FORM_LINE2 : quadratic ? FORM_LINE3 : FORM_NONE;
    case SYS_SHAPE_TRI: return lin ? FORM_TRI3 : quadratic ? FORM_TRI6 : lag ? FORM_TRI6LAG : FORM_NONE;
    case SYS_SHAPE_QUAD:
        return lin ? FORM_QUAD4 : quadratic ? FORM_QUAD8 : cubic ? FORM_QUAD12 : lag ? FORM_QUAD9 : FORM_NONE;
    case SYS_SHAPE_TET: return lin ? FORM_TET4 : quadratic ? FORM_TET10 : lag ? FORM_TET10LAG : FORM_NONE;
    case SYS_SHAPE_PYR: return lin ? FORM_PYR5 : quadratic ? FORM_PYR13 : lag ? FORM_PYR14 : FORM_NONE;
    case SYS_SHAPE_WED: return lin ? FORM_WED6 : quadratic ? FORM_WED15 : lag ? FORM_WED18 : FORM_NONE;
    default:
        return lin ? FORM_HEX8 : quadratic ? FORM_HEX20 : cubic ? FORM_HEX32 : lag ? FORM_HEX27 : FORM_NONE;
    }
}

template <class T, bool V, bool D>
void Run(int form, const T* x, T* N, T* dN)
{
    using namespace vis_closed;
    switch (form) {
    case FORM_LINE2: Line2<T, V, D>(x, N, dN); break;
    case FORM_LINE3: Line3<T, V, D>(x, N, dN); break;
    case FORM_TRI3: Tri3<T, V, D>(x, N, dN); break;
    case FORM_TRI6: Tri6<T, V, D>(x, N, dN); break;
    case FORM_TRI6LAG: Tri6Lag<T, V, D>(x, N, dN); break;
    case FORM_QUAD4: Quad4<T, V, D>(x, N, dN); break;
    case FORM_QUAD8: Quad8<T, V, D>(x, N, dN); break;
    case FORM_QUAD9: Quad9<T, V, D>(x, N, dN); break;
    case FORM_QUAD12: Quad12<T, V, D>(x, N, dN); break;
    case FORM_TET4: Tet4<T, V, D>(x, N, dN); break;
    case FORM_TET10: Tet10<T, V, D>(x, N, dN); break;
    case FORM_TET10LAG: Tet10Lag<T, V, D>(x, N, dN); break;
    case FORM_PYR5: Pyr5<T, V, D>(x, N, dN); break;
    case FORM_PYR13: Pyr13<T, V, D>(x, N, dN); break;
    case FORM_PYR14: Pyr14<T, V, D>(x, N, dN); break;
    case FORM_WED6: Wed6<T, V, D>(x, N, dN); break;
    case FORM_WED15: Wed15<T, V, D>(x, N, dN); break;
    case FORM_WED18: Wed18<T, V, D>(x, N, dN); break;
    case FORM_HEX8: Hex8<T, V, D>(x, N, dN); break;
    case FORM_HEX20: Hex20<T, V, D>(x, N, dN); break;
    case FORM_HEX27: Hex27<T, V, D>(x, N, dN); break;
    default: Hex32<T, V, D>(x, N, dN); break;
    }
}

template <class T>
int Closed(int mode, int shape, int maxi, int maxj, int maxk, int dim, const T* x, T* N, T* dN)
{
    if (!x || mode < VIS_SHAPE_ALL || mode > VIS_SHAPE_DERIV) return 0;
    const int form = Pick(shape, maxi, maxj, maxk, dim);
    if (form == FORM_NONE) return 0;
    const bool v = mode != VIS_SHAPE_DERIV && N, d = mode != VIS_SHAPE_FUNC && dN;
    if (v && d) Run<T, true, true>(form, x, N, dN);
    else if (v) Run<T, true, false>(form, x, N, dN);
    else if (d) Run<T, false, true>(form, x, N, dN);
    return 1;
}

}  // namespace

int vis_ElemShapeClosed(int mode, int shape, int maxi, int maxj, int maxk, int dim,
                        const float* coords, float* N, float* dN)
{
    return Closed(mode, shape, maxi, maxj, maxk, dim, coords, N, dN);
}

int vis_ElemShapeCloseddv(int mode, int shape, int maxi, int maxj, int maxk, int dim,
                          const double* coords, double* N, double* dN)
{
    return Closed(mode, shape, maxi, maxj, maxk, dim, coords, N, dN);
}

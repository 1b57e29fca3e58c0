/* vis_ConnectFreeScanAvx2: the quick free-face scan built for AVX2 (this file alone is compiled
 * with -mavx2); vis_Connect_GroupFreeFaces calls it only on a processor that has AVX2. It
 * includes nothing but C declarations and compiler intrinsics, so that no inline function
 * compiled here for AVX2 can stand in for the baseline copy elsewhere. */
#define VIS_FREESCAN vis_Connect_FreeScanAvx2
#include "vis_ConnectFreeScanBody.h"

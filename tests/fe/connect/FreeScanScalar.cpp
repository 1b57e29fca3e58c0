// The plain C form of the quick free-face scan, which processors without SSE2 build, compiled
// here so that it is tested on every machine.
#define VIS_FREESCAN_SCALAR
#define VIS_FREESCAN vis_Connect_FreeScanScalar
#include "vis_ConnectFreeScanBody.h"

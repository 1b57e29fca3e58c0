#include "vsy_DofDigits.h"

#include "vsy_Util.h"

void vsy_DofDigits(int n, int flags, int* digits)
{
    if (n > 32) n = 32;
    if (n < 0) n = 0;
    int bits[32];
    vsy_BitsUnpack(flags, n, bits);
    vsy_DofEncode(n, bits, digits);
}

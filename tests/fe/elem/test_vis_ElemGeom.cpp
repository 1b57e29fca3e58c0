// Element geometry: normals, curvature on cylinder and sphere patches, segment against
// triangle.
#include "vis_Elem.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(ElemGeomPlaceholder, Builds)
{
    SUCCEED();
}

}  // namespace

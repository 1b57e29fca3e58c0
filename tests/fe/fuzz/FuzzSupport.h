// Support of the seeded random drivers: the check that every refusal was reported, and the
// bound on how long a driver runs.
#ifndef FUZZSUPPORT_H
#define FUZZSUPPORT_H

#include "vsy_TestSupport.h"

#include <cstdlib>
#include <string>

namespace fuzztest {

// Seeds each driver runs: enough to reach every refusal many times, few enough that a run
// under the sanitizers stays within seconds. TEV_FUZZ_SEEDS in the environment asks for more,
// for a longer search by hand.
inline int Seeds()
{
    const char* env = std::getenv("TEV_FUZZ_SEEDS");
    const int n = env ? std::atoi(env) : 0;
    return n > 0 ? n : 500;
}

// Called after an operation whose object was polled with `code`: a non-zero code must come
// with a report of the same code made since `before` reports had been recorded, and every report
// carries a code of the table.
inline void ExpectReported(int code, size_t before, const std::string& what)
{
    const auto& reports = vsytest::Reports();
    for (size_t i = before; i < reports.size(); ++i)
        EXPECT_TRUE(reports[i].code >= 1 && reports[i].code <= SYS_ERROR_MAX)
            << what << ": " << reports[i].name << " code " << reports[i].code;
    if (code == 0) return;
    bool found = false;
    for (size_t i = before; i < reports.size() && !found; ++i) found = reports[i].code == code;
    EXPECT_TRUE(found) << what << ": code " << code << " polled without its report";
}

}  // namespace fuzztest

#endif

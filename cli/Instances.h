#pragma once

#include <string>

#include "util/Handle.h"

// Who else runs tasks in this session. Two programs that run the same list would launch each due task twice.
class CInstances {
public:
    // A sentence that says who runs tasks already, or an empty text; then this process counts as the one
    // console that does until the object goes.
    [[nodiscard]] std::string WhyNotToLaunch();

private:
    CKernelHandle m_claim;  // the console's named mutex
};

#pragma once

#include "platform/files/file_calls.h"

namespace lorvan::test {

/// Locks that everybody gets, as on a share that does not know them.
class VainLocks : public FileCalls {
public:
    VainLocks() { replace(this); }
    ~VainLocks() override { replace(nullptr); }
    int lock(int, short, off_t, off_t) override { return 0; }
};

} // namespace lorvan::test

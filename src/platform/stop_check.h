#pragma once

#include <functional>

struct sqlite3;

namespace lorvan {

class Connection;

/// While it lives, asks from time to time whether the statement that runs is to go on; where not, the statement ends
/// with an SqlError. It is asked on the statement's own thread and must not use the connection, which must outlive the
/// check.
class StopCheck {
public:
    StopCheck(Connection& connection, std::function<bool()> goesOn);
    ~StopCheck();
    StopCheck(const StopCheck&) = delete;
    StopCheck& operator=(const StopCheck&) = delete;

private:
    sqlite3* m_handle;
    std::function<bool()> m_goesOn;
};

} // namespace lorvan

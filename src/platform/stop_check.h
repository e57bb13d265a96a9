#pragma once

#include <functional>

namespace lorvan {

class Connection;

/// While it lives, asks from time to time whether the statement that runs, or waits for a lock, is to go on; where not,
/// the statement ends with an SqlError. A commit is not asked once it writes. It is asked on the statement's own thread
/// and must not use the connection, which must outlive the check and stay where it is. One inside another asks both.
class StopCheck {
public:
    StopCheck(Connection& connection, std::function<bool()> goesOn);
    ~StopCheck();
    StopCheck(const StopCheck&) = delete;
    StopCheck& operator=(const StopCheck&) = delete;

private:
    Connection& m_connection;
    const std::function<bool()>* m_outer;
    std::function<bool()> m_goesOn;
};

} // namespace lorvan

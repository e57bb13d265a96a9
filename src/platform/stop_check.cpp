#include "platform/stop_check.h"

#include "platform/connection.h"

#include <sqlite3.h>

namespace lorvan {
namespace {

constexpr int stepsBetweenQuestions = 20'000; // of the engine's own; some ten milliseconds

int answer(void* goesOn)
{
    return (*static_cast<const std::function<bool()>*>(goesOn))() ? 0 : 1;
}

void ask(Connection& connection, const std::function<bool()>* goesOn)
{
    if (goesOn)
        sqlite3_progress_handler(
            connection.handle(), stepsBetweenQuestions, answer, const_cast<std::function<bool()>*>(goesOn));
    else
        sqlite3_progress_handler(connection.handle(), 0, nullptr, nullptr);
}

} // namespace

StopCheck::StopCheck(Connection& connection, std::function<bool()> goesOn)
    : m_connection(connection)
    , m_outer(connection.m_waiting->goesOn)
    , m_goesOn([outer = m_outer, own = std::move(goesOn)] { return own() && (!outer || (*outer)()); })
{
    m_connection.m_waiting->goesOn = &m_goesOn;
    ask(m_connection, &m_goesOn);
}

StopCheck::~StopCheck()
{
    m_connection.m_waiting->goesOn = m_outer;
    ask(m_connection, m_outer);
}

} // namespace lorvan

#include "platform/stop_check.h"

#include "platform/connection.h"

#include <sqlite3.h>

namespace lorvan {
namespace {

constexpr int stepsBetweenQuestions = 20'000; // of the engine's own; some ten milliseconds

int answer(void* goesOn)
{
    return (*static_cast<std::function<bool()>*>(goesOn))() ? 0 : 1;
}

} // namespace

StopCheck::StopCheck(Connection& connection, std::function<bool()> goesOn)
    : m_connection(connection)
    , m_goesOn(std::move(goesOn))
{
    m_connection.m_waiting->goesOn = &m_goesOn;
    sqlite3_progress_handler(m_connection.handle(), stepsBetweenQuestions, answer, &m_goesOn);
}

StopCheck::~StopCheck()
{
    m_connection.m_waiting->goesOn = nullptr;
    sqlite3_progress_handler(m_connection.handle(), 0, nullptr, nullptr);
}

} // namespace lorvan

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
    : m_handle(connection.handle())
    , m_goesOn(std::move(goesOn))
{
    sqlite3_progress_handler(m_handle, stepsBetweenQuestions, answer, &m_goesOn);
}

StopCheck::~StopCheck()
{
    sqlite3_progress_handler(m_handle, 0, nullptr, nullptr);
}

} // namespace lorvan

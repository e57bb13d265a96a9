#include "platform/work_watch.h"

#include "platform/stop_check.h"

#include <utility>

namespace lorvan {
namespace {

thread_local const WorkWatch* current = nullptr;

} // namespace

WorkWatch::WorkWatch(std::function<void(const QString&)> begun, std::function<bool()> decides)
    : m_begun(std::move(begun))
    , m_decides(std::move(decides))
    , m_outer(std::exchange(current, this))
{
}

WorkWatch::~WorkWatch()
{
    current = m_outer;
}

PartOfWork::PartOfWork(const QString& activity)
    : m_outer((beginStep(activity), std::exchange(current, nullptr)))
{
}

PartOfWork::~PartOfWork()
{
    current = m_outer;
}

void beginStep(const QString& activity)
{
    for (const WorkWatch* each = current; each; each = each->m_outer)
        each->m_begun(activity);
}

void decideOrGiveUp()
{
    continueOrGiveUp();
    for (const WorkWatch* each = current; each; each = each->m_outer) {
        if (!each->m_decides())
            throw GivenUp();
    }
}

} // namespace lorvan

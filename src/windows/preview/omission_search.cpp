#include "preview/omission_search.h"

#include "book/failure_text.h"

namespace lorvan {
namespace {

OmissionSearch::Omissions foundBy(const OmissionSearch::Search& search, const std::function<bool()>& goesOn)
{
    try {
        return search(goesOn);
    } catch (const std::exception& failure) {
        return {{QStringLiteral("Δεν ελέγχθηκε αν η εκτύπωση αφήνει κάτι έξω: %1").arg(failureText(failure))}};
    }
}

} // namespace

void OmissionSearch::start(Search search, Answer answer)
{
    cancel();
    m_isCancelled = false;
    m_thread = std::thread([this, number = ++m_number, search = std::move(search), answer = std::move(answer)] {
        Omissions omissions = foundBy(search, [this] { return !m_isCancelled; });
        QMetaObject::invokeMethod(
            this,
            [this, number, answer, omissions = std::move(omissions)] {
                if (number == m_number && !m_isCancelled)
                    answer(omissions);
            },
            Qt::QueuedConnection);
    });
}

void OmissionSearch::cancel()
{
    m_isCancelled = true;
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace lorvan

#pragma once

#include "jet/jet_error.h"

#include <vector>

namespace lorvan {

/// How to deal with damage that does not prevent further reading: a page, a row or a table is left out.
class JetDamage {
public:
    enum class Answer {
        Refuse, ///< The first damage ends the reading.
        Collect ///< Damage is recorded, and the rest is read.
    };

    /// The number of faults kept for listing; further ones are only counted.
    static constexpr std::size_t mostListed = 10'000;

    explicit JetDamage(Answer answer)
        : m_answer(answer)
    {
    }

    /// Throws the error, or records it.
    void meet(const JetError& error)
    {
        if (m_answer == Answer::Refuse)
            throw error;
        ++m_count;
        if (m_listed.size() < mostListed)
            m_listed.push_back(error);
    }

    /// Runs `work`. If it throws a JetError, adds the place, passes the error to meet() and, if that does not throw,
    /// returns false.
    template <typename Work> bool attempt(const JetPlace& place, const Work& work)
    {
        try {
            work();
            return true;
        } catch (JetError& error) {
            error.locate(place);
            meet(error);
            return false;
        }
    }

    [[nodiscard]] bool collects() const { return m_answer == Answer::Collect; }
    [[nodiscard]] std::uint64_t count() const { return m_count; }
    [[nodiscard]] const std::vector<JetError>& listed() const { return m_listed; }

private:
    Answer m_answer;
    std::uint64_t m_count = 0;
    std::vector<JetError> m_listed;
};

} // namespace lorvan

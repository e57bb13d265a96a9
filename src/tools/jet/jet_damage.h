#pragma once

#include "jet/jet_error.h"

#include <vector>

namespace lorvan {

/// What becomes of damage that a reading can go on behind: a page, a row or a table is left out.
class JetDamage {
public:
    enum class Answer {
        Refuse, ///< The first damage ends the reading.
        Collect ///< It is noted, and what is left is read.
    };

    /// So many are kept to be listed; further ones are only counted.
    static constexpr std::size_t mostListed = 10'000;

    explicit JetDamage(Answer answer)
        : m_answer(answer)
    {
    }

    /// Throws the error, or notes it.
    void meet(const JetError& error)
    {
        if (m_answer == Answer::Refuse)
            throw error;
        ++m_count;
        if (m_listed.size() < mostListed)
            m_listed.push_back(error);
    }

    /// Does `work`; damage that leaves it is located and met. False then.
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
